# Header-only libraries of the build machine for a cross-build: each is linked into one folder of
# the build tree, because /usr/include as a whole holds another system's C library.
include_guard(GLOBAL)

# Makes the target from /usr/include/FOLDER: qolf_header_library(Boost::boost boost)
function(qolf_header_library target folder)
  set(headers "${CMAKE_BINARY_DIR}/headers")
  if(NOT EXISTS "/usr/include/${folder}")
    message(FATAL_ERROR "/usr/include/${folder} is missing; cmake/install-packages windows")
  endif()
  file(MAKE_DIRECTORY "${headers}")
  file(CREATE_LINK "/usr/include/${folder}" "${headers}/${folder}" SYMBOLIC)
  add_library(${target} INTERFACE IMPORTED GLOBAL)
  target_include_directories(${target} SYSTEM INTERFACE "${headers}")
endfunction()
