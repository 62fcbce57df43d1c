# What `cmake --install` puts where:
#
#   bin/qolf                       the command
#   lib/qolf/qolf.so               the module, in a folder of its own: nothing links with it
#   lib/qolf/qolf-commands.so      the commands that need large libraries
#   lib/libqolfhost.so*            the host library, beside which both look for it
#   include/qolf/{host,standalone} headers, included as "host/zeio/IoManager.h"
#   lib/cmake/qolf                 find_package(qolf), which gives qolf::host
#   share                          man pages (docs/man/), completion, documents
#
# Run paths are relative, so an installed tree may be moved as a whole.
include_guard(GLOBAL)
include(CMakePackageConfigHelpers)

set(QOLF_INSTALL_MODULE_DIR "${CMAKE_INSTALL_LIBDIR}/qolf")
set(QOLF_INSTALL_CONFIG_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/qolf")
set(QOLF_INSTALL_INCLUDE_DIR "${CMAKE_INSTALL_INCLUDEDIR}/qolf")

install(TARGETS qolf_module LIBRARY DESTINATION "${QOLF_INSTALL_MODULE_DIR}")
if(TARGET qolf_app)
  install(TARGETS qolf_app RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
  if(TARGET qolf_commands)
    install(TARGETS qolf_commands LIBRARY DESTINATION "${QOLF_INSTALL_MODULE_DIR}")
  endif()
  install(FILES "${PROJECT_SOURCE_DIR}/docs/completion/qolf.bash"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" RENAME qolf)
endif()
# The documents for users, in the folders that their links say. Those that the README names under
# "Development" stay with the source, and so does that part of it.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/README.md")
file(READ "${PROJECT_SOURCE_DIR}/README.md" readme)
string(FIND "${readme}" "\n## Development\n" readme_length)
string(SUBSTRING "${readme}" 0 ${readme_length} readme)
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/README.md" CONTENT "${readme}" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/README.md" DESTINATION "${CMAKE_INSTALL_DOCDIR}")
foreach(document IN ITEMS
    findings geopackage integrating reading reliability round-trip scale trace-format windows)
  install(FILES "${PROJECT_SOURCE_DIR}/docs/${document}.md"
          DESTINATION "${CMAKE_INSTALL_DOCDIR}/docs")
endforeach()
install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs/images/"
        DESTINATION "${CMAKE_INSTALL_DOCDIR}/docs/images")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/examples/count-objects"
                  "${PROJECT_SOURCE_DIR}/examples/gnu-parallel"
                  "${PROJECT_SOURCE_DIR}/examples/slurm"
        USE_SOURCE_PERMISSIONS
        DESTINATION "${CMAKE_INSTALL_DOCDIR}/examples")

# The Debian package has these two under names and in forms of its own (cmake/QolfPackage.cmake).
install(FILES "${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${PROJECT_SOURCE_DIR}/LICENSE"
        DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT not_debian)

# Another host brings a library and headers of its own.
if(NOT TARGET qolfhost)
  return()
endif()
install(TARGETS qolfhost host_headers EXPORT qolf
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  FILE_SET HEADERS DESTINATION "${QOLF_INSTALL_INCLUDE_DIR}")
install(EXPORT qolf NAMESPACE qolf:: FILE qolf-targets.cmake
        DESTINATION "${QOLF_INSTALL_CONFIG_DIR}")
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/qolf-config.cmake.in"
  "${PROJECT_BINARY_DIR}/qolf-config.cmake"
  INSTALL_DESTINATION "${QOLF_INSTALL_CONFIG_DIR}"
  PATH_VARS QOLF_INSTALL_MODULE_DIR)
# Slots and layouts may change from one 0.x to the next.
write_basic_package_version_file("${PROJECT_BINARY_DIR}/qolf-config-version.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES
  "${PROJECT_BINARY_DIR}/qolf-config.cmake"
  "${PROJECT_BINARY_DIR}/qolf-config-version.cmake"
  DESTINATION "${QOLF_INSTALL_CONFIG_DIR}")
