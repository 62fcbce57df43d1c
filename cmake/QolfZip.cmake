# The zip for Windows that `cpack` makes in a build of the preset `windows`: a folder that runs
# where it is unpacked.
include_guard(GLOBAL)

# Texts as the programs of Windows expect them, with CR LF.
function(qolf_text_for_windows source name)
  configure_file("${source}" "${PROJECT_BINARY_DIR}/zip/${name}" NEWLINE_STYLE CRLF ${ARGN})
  install(FILES "${PROJECT_BINARY_DIR}/zip/${name}" DESTINATION .)
endfunction()

qolf_text_for_windows("${CMAKE_CURRENT_LIST_DIR}/windows/zip/README.txt.in" README.txt @ONLY)
qolf_text_for_windows("${PROJECT_SOURCE_DIR}/LICENSE" LICENSE.txt)
qolf_text_for_windows("${PROJECT_SOURCE_DIR}/CHANGELOG.md" CHANGELOG.txt)
install(FILES
  "${PROJECT_SOURCE_DIR}/docs/help/Mif-Import.htm"
  "${PROJECT_SOURCE_DIR}/docs/help/Mif-Export.htm"
  DESTINATION .)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/samples/" DESTINATION samples
        FILES_MATCHING PATTERN "island*" PATTERN "real" EXCLUDE)

install(TARGETS qolf_app qolfhost RUNTIME DESTINATION . ARCHIVE EXCLUDE_FROM_ALL)
install(TARGETS qolf_module LIBRARY DESTINATION .)
install(DIRECTORY "${QOLF_WINDOWS_LIBRARIES}/share/proj" DESTINATION .)

# The terms of everything that is linked in: of the libraries that were built for it, and of those
# that are headers or scripts alone.
install(DIRECTORY "${QOLF_WINDOWS_LIBRARIES}/share/licenses/" DESTINATION licences)
install(FILES "${CMAKE_CURRENT_LIST_DIR}/windows/zip/LICENSE_1_0.txt" DESTINATION licences/boost)
install(FILES /usr/share/doc/libcli11-dev/copyright DESTINATION licences/cli11)
install(FILES /usr/share/doc/nlohmann-json3-dev/copyright DESTINATION licences/nlohmann-json)
install(FILES /usr/share/doc/libjs-leaflet/copyright DESTINATION licences/leaflet)

# Without this, packing would build the tests, too.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME "qolf-${PROJECT_VERSION}-windows-x64")
set(CPACK_STRIP_FILES ON)
include(CPack)
