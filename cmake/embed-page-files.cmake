# Makes a source of the functions that app/page/PageFiles.h declares:
#
#   cmake -DLEAFLET=/usr/share/javascript/leaflet -DCOPYRIGHT=/usr/share/doc/libjs-leaflet/copyright
#         -DPAGE=app/page/script -DOUTPUT=PageFiles.cpp -P cmake/embed-page-files.cmake
#
# The library's script goes without the comment that names a source map, and its styles without
# their pictures, which belong to controls that pages do not have: a page must not ask for a file.
find_program(base64 base64 REQUIRED)
find_program(printf printf REQUIRED)

file(READ "${LEAFLET}/leaflet.min.js" script)
string(REGEX REPLACE "//# sourceMappingURL=[^\r\n]*" "" script "${script}")
string(APPEND script "\n(function () {\n'use strict';\n")
foreach(part IN ITEMS layers symbols view painter texts labels hits controls page)
  file(READ "${PAGE}/${part}.js" text)
  string(APPEND script "${text}")
endforeach()
string(APPEND script "})();\n")

file(READ "${LEAFLET}/leaflet.css" styles)
string(REGEX REPLACE "url\\(images/[a-z0-9-]+\\.png\\)" "none" styles "${styles}")
if(styles MATCHES "url\\(images/")
  message(FATAL_ERROR "leaflet.css names a picture in a way that cmake/embed-page-files.cmake does not know")
endif()
file(READ "${PAGE}/page.css" page_styles)
string(APPEND styles "${page_styles}")

# The library's own licence, without what Debian says of its packaging.
file(READ "${COPYRIGHT}" copyright)
if(NOT copyright MATCHES "(20[0-9]+-20[0-9]+  CloudMade).*(20[0-9]+-20[0-9]+  Vladimir Agafonkin)"
   OR NOT copyright MATCHES "License: BSD-2-clause\n( All rights reserved.*)")
  message(FATAL_ERROR "${COPYRIGHT}: no licence of Leaflet in the known form")
endif()
string(REGEX MATCH "20[0-9]+-20[0-9]+  CloudMade" first "${copyright}")
string(REGEX MATCH "20[0-9]+-20[0-9]+  Vladimir Agafonkin" second "${copyright}")
string(REGEX MATCH "License: BSD-2-clause\n All rights reserved.*" license "${copyright}")
string(REGEX REPLACE "^License: BSD-2-clause\n" "" license "${license}")
string(REGEX REPLACE "\n\nLicense: .*" "" license "${license}")
set(notice "Leaflet, the map library of this page:\n Copyright (c) ${first}\n Copyright (c) ${second}\n${license}\n")

# A string literal is limited in length, an array of numbers is not.
function(make_array variable text)
  string(HEX "${text}" hex)
  string(REGEX REPLACE "(................................)" "\\1\n    " hex "${hex}")
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," hex "${hex}")
  set(${variable} "${hex}" PARENT_SCOPE)
endfunction()
make_array(script_bytes "${script}")
make_array(styles_bytes "${styles}")
make_array(notice_bytes "${notice}")

function(make_hash variable text)
  string(SHA256 hash "${text}")
  string(REGEX REPLACE "(..)" "\\\\x\\1" bytes "${hash}")
  execute_process(COMMAND "${printf}" "${bytes}" COMMAND "${base64}" --wrap=0
    OUTPUT_VARIABLE encoded COMMAND_ERROR_IS_FATAL ANY)
  set(${variable} "sha256-${encoded}" PARENT_SCOPE)
endfunction()
make_hash(script_hash "${script}")
make_hash(styles_hash "${styles}")

file(WRITE "${OUTPUT}" "#include \"app/page/PageFiles.h\"

namespace app {

namespace {

constexpr char kScript[] = {
    ${script_bytes}};
constexpr char kStyles[] = {
    ${styles_bytes}};
constexpr char kNotice[] = {
    ${notice_bytes}};

}  // namespace

std::string_view EmbeddedScript() {
    return {kScript, sizeof kScript};
}

std::string_view EmbeddedStyles() {
    return {kStyles, sizeof kStyles};
}

std::string_view EmbeddedNotice() {
    return {kNotice, sizeof kNotice};
}

std::string_view EmbeddedScriptHash() {
    return \"${script_hash}\";
}

std::string_view EmbeddedStylesHash() {
    return \"${styles_hash}\";
}

}  // namespace app
")
