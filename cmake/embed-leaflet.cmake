# Makes a source of the functions that app/page/LeafletFiles.h declares:
#
#   cmake -DFOLDER=/usr/share/javascript/leaflet -DOUTPUT=LeafletFiles.cpp -P cmake/embed-leaflet.cmake
#
# The comment that names a source map is left out, and pictures stand in the styles themselves: a
# page must not ask for a file.
find_program(base64 base64 REQUIRED)

file(READ "${FOLDER}/leaflet.min.js" script)
string(REGEX REPLACE "//# sourceMappingURL=[^\r\n]*" "" script "${script}")
file(READ "${FOLDER}/leaflet.css" styles)
foreach(picture IN ITEMS layers layers-2x marker-icon)
  execute_process(COMMAND "${base64}" --wrap=0 "${FOLDER}/images/${picture}.png"
    OUTPUT_VARIABLE encoded COMMAND_ERROR_IS_FATAL ANY)
  string(REPLACE "url(images/${picture}.png)" "url(data:image/png;base64,${encoded})"
    styles "${styles}")
endforeach()
if(styles MATCHES "url\\(images/")
  message(FATAL_ERROR "leaflet.css names a picture that cmake/embed-leaflet.cmake does not know")
endif()

# A string literal is limited in length, an array of numbers is not.
function(make_array variable text)
  string(HEX "${text}" hex)
  string(REGEX REPLACE "(................................)" "\\1\n    " hex "${hex}")
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," hex "${hex}")
  set(${variable} "${hex}" PARENT_SCOPE)
endfunction()
make_array(script_bytes "${script}")
make_array(styles_bytes "${styles}")

file(WRITE "${OUTPUT}" "#include \"app/page/LeafletFiles.h\"

namespace app {

namespace {

constexpr char kScript[] = {
    ${script_bytes}};
constexpr char kStyles[] = {
    ${styles_bytes}};

}  // namespace

std::string_view LeafletScript() {
    return {kScript, sizeof kScript};
}

std::string_view LeafletStyles() {
    return {kStyles, sizeof kStyles};
}

}  // namespace app
")
