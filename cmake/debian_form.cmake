# Gives an install, before cpack packs it, the form that Debian asks of a package.

set(root ${CPACK_TEMPORARY_DIRECTORY}/usr)
set(documentation ${root}/share/doc/${CPACK_PACKAGE_NAME})
set(debian ${CMAKE_CURRENT_LIST_DIR}/../packaging/debian)

execute_process(COMMAND strip --remove-section=.comment --remove-section=.note
                        ${root}/bin/nv8x_schedule_to_xml ${root}/bin/nv8x_schedule_check
                         ${root}/bin/nv8x_schedule_import ${root}/bin/tv_grab_nv8x
                         ${root}/bin/nv8x_schedule_publish
                COMMAND_ERROR_IS_FATAL ANY)

file(RENAME ${documentation}/CHANGELOG.md ${documentation}/changelog)
file(COPY_FILE ${debian}/changelog ${documentation}/changelog.Debian)
# zsh looks there below /usr, and below /usr/local in site-functions.
file(RENAME ${root}/share/zsh/site-functions ${root}/share/zsh/vendor-completions)
# The licence stands in the copyright file.
file(REMOVE ${documentation}/LICENSE)
file(COPY_FILE ${debian}/copyright ${documentation}/copyright)

file(GLOB manual ${root}/share/man/*/*)
# Compressed files hold neither names nor times, so that equal contents stay equal bytes.
execute_process(COMMAND gzip -9n ${documentation}/changelog ${documentation}/changelog.Debian
                        ${manual}
                COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND chmod -R u=rwX,go=rX ${root} COMMAND_ERROR_IS_FATAL ANY)
