# The Debian package that `cpack` makes in a build of the preset `package`: everything that
# `cmake --install` installs, with what Debian wants in its place for licence and history.
include_guard(GLOBAL)

set(debian "${PROJECT_SOURCE_DIR}/cmake/debian")
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
string(TIMESTAMP now "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(CPACK_PACKAGE_CONTACT "The qolf developers <developers@qolf.example>")
set(filled "${PROJECT_BINARY_DIR}/debian")
configure_file("${debian}/changelog.in" "${filled}/changelog.Debian" @ONLY)
configure_file("${debian}/shlibs.in" "${filled}/shlibs" @ONLY)
configure_file("${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${filled}/changelog" COPYONLY)
add_custom_command(OUTPUT "${filled}/changelog.Debian.gz" "${filled}/changelog.gz"
  COMMAND gzip --best --no-name --keep --force changelog.Debian changelog
  DEPENDS "${filled}/changelog.Debian" "${filled}/changelog"
  WORKING_DIRECTORY "${filled}"
  VERBATIM)
add_custom_target(debian_changelogs ALL
  DEPENDS "${filled}/changelog.Debian.gz" "${filled}/changelog.gz")
install(FILES
  "${debian}/copyright"
  "${filled}/changelog.Debian.gz"
  "${filled}/changelog.gz"
  DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT debian EXCLUDE_FROM_ALL)
install(FILES "${debian}/lintian-overrides" DESTINATION "${CMAKE_INSTALL_DATADIR}/lintian/overrides"
        RENAME qolf COMPONENT debian EXCLUDE_FROM_ALL)

# One package: someone who installs it can run the command, load the module and build a host.
set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_COMPONENTS_ALL qolf debian)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA "${debian}/triggers" "${filled}/shlibs")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "g++, cmake, libboost-dev")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "command and filter module for MIF/MID map files")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"The command qolf says what MapInfo Interchange Format files hold, converts
them to and from other formats, draws them and finds what is wrong with them.
.
The filter module qolf.so gives the format to programs that load such modules;
the host library libqolfhost, its headers and its CMake package serve those
who write such a program.")
include(CPack)
