# The Debian package: what `cpack` makes of an install. The Debian files that no install has come
# from packaging/debian.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME nv8x-schedule-to-xml)
set(CPACK_PACKAGE_VENDOR "nv8x_schedule_to_xml authors")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/debian_form.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# The revision of a package that is not Debian's own: its first one, -1, would be newer.
set(CPACK_DEBIAN_PACKAGE_RELEASE 0upstream1)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "nv8x_schedule_to_xml developers <maintainers@nv8x.example>")
set(CPACK_DEBIAN_PACKAGE_SECTION video)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS tzdata)
# What pages of the documentation use; the shells and editors that there are find their files.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS
    "bash-completion, gnumeric, lighttpd | httpd-cgi, parallel, vim, xmltv-util")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"It reads the schedule file of a playout channel (a day, a week, a month, a
year or an endless span), repairs overlaps and gaps, adds what the media files
and the play log say of each item, and prints the result as XML, as a
programme-guide page, as JSON, or as a listing for Rovi or Gracenote: by hand,
from scripts, or as a CGI program behind a web server. A second program,
nv8x_schedule_check, finds what a schedule file says that will not air, or not
as it was meant, and tells what airs at a time and why. A third, tv_grab_nv8x,
prints an XMLTV guide of many channels for media centres. A fourth,
nv8x_schedule_import, makes schedule files of spreadsheets, and back. A fifth,
nv8x_schedule_publish, publishes all pages of a station into a web folder, and
keeps the old pages where the new ones would be poor.")

include(CPack)
