# What `cmake --install` puts where. tests/package/installed_files.txt lists every file.

set(CMAKE_INSTALL_DOCDIR share/doc/nv8x-schedule-to-xml CACHE PATH "Documentation and examples")
include(GNUInstallDirs)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

install(TARGETS nv8x_schedule_to_xml nv8x_schedule_check nv8x_schedule_import tv_grab_nv8x
                nv8x_schedule_publish)
# Both /usr/lib and /usr/local/lib are where systemd looks.
install(FILES systemd/nv8x-publish.service systemd/nv8x-publish.timer
        DESTINATION lib/systemd/system)
install(FILES man/nv8x_schedule_to_xml.1 man/nv8x_schedule_check.1
              man/nv8x_schedule_import.1 man/tv_grab_nv8x.1 man/nv8x_schedule_publish.1
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES man/nv8x_schedule.5 DESTINATION ${CMAKE_INSTALL_MANDIR}/man5)
install(DIRECTORY ${PROJECT_BINARY_DIR}/completion/bash/
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
# Where zsh looks below /usr/local; a Debian package has another place (cmake/debian_form.cmake).
install(DIRECTORY ${PROJECT_BINARY_DIR}/completion/zsh/ DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
install(DIRECTORY ${PROJECT_BINARY_DIR}/completion/fish/ DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
install(DIRECTORY share/vim/ DESTINATION ${CMAKE_INSTALL_DATADIR}/vim/vimfiles)
install(DIRECTORY share/schema DESTINATION ${CMAKE_INSTALL_DATADIR}/nv8x_schedule_to_xml OPTIONAL)
install(FILES README.md CHANGELOG.md LICENSE SECURITY.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
# These are for those who have the source tree.
set(pages_of_developers add-a-format.md architecture.md metadata-library.md images/run.dot
                        images/run.svg)
list(TRANSFORM pages_of_developers PREPEND docs/)
file(GLOB_RECURSE pages CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} docs/*)
list(REMOVE_ITEM pages ${pages_of_developers})
foreach(page IN LISTS pages)
  cmake_path(GET page PARENT_PATH folder)
  install(FILES ${page} DESTINATION ${CMAKE_INSTALL_DOCDIR}/${folder})
endforeach()
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} USE_SOURCE_PERMISSIONS)
install(CODE "execute_process(
  COMMAND ${PROJECT_SOURCE_DIR}/cmake/installed_pages.sh \"\$ENV{DESTDIR}\" \${CMAKE_INSTALL_PREFIX}
          ${CMAKE_INSTALL_DOCDIR} ${CMAKE_INSTALL_MANDIR}
  COMMAND_ERROR_IS_FATAL ANY)")
