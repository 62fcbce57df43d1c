# Cross-builds for 64-bit Windows with Debian's g++-mingw-w64-x86-64.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Finds the static libraries that cmake/windows/dependencies has built. They are in another folder
# after each change of a recipe; what was found in the one before is forgotten then.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QOLF_WINDOWS_LIBRARIES)
if(NOT QOLF_WINDOWS_LIBRARIES)
  execute_process(COMMAND "${CMAKE_CURRENT_LIST_DIR}/windows/dependencies" --where
    OUTPUT_VARIABLE QOLF_WINDOWS_LIBRARIES OUTPUT_STRIP_TRAILING_WHITESPACE
    ERROR_VARIABLE reason ERROR_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${reason}")
  endif()
  set(before "$CACHE{QOLF_WINDOWS_LIBRARIES_BEFORE}")
  if(before AND NOT before STREQUAL QOLF_WINDOWS_LIBRARIES)
    get_cmake_property(names CACHE_VARIABLES)
    foreach(name IN LISTS names)
      string(FIND "$CACHE{${name}}" "${before}/" position)
      if(position GREATER -1 OR name MATCHES "^__pkg_config_checked_")
        unset(${name} CACHE)
      endif()
    endforeach()
  endif()
  set(QOLF_WINDOWS_LIBRARIES_BEFORE "${QOLF_WINDOWS_LIBRARIES}" CACHE INTERNAL "")
endif()

set(CMAKE_FIND_ROOT_PATH "${QOLF_WINDOWS_LIBRARIES}" /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# pkg-config knows these libraries only, and names what each is linked with in turn.
set(ENV{PKG_CONFIG_LIBDIR} "${QOLF_WINDOWS_LIBRARIES}/lib/pkgconfig")
set(ENV{PKG_CONFIG_PATH} "")
set(PKG_CONFIG_ARGN --static)
# Header-only libraries (Boost.Any, CLI11, JSON) and googletest come from the build machine.
list(PREPEND CMAKE_MODULE_PATH "${CMAKE_CURRENT_LIST_DIR}/windows")

# No runtime library of the compiler's own may be needed beside the module.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static")
