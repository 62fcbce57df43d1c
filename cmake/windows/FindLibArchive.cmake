# The static library and what it is linked with in turn, which CMake's own module does not know.
find_package(PkgConfig REQUIRED)
pkg_check_modules(libarchive QUIET IMPORTED_TARGET GLOBAL libarchive)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(LibArchive REQUIRED_VARS libarchive_LIBRARIES
                                  VERSION_VAR libarchive_VERSION)
if(LibArchive_FOUND AND NOT TARGET LibArchive::LibArchive)
  add_library(LibArchive::LibArchive ALIAS PkgConfig::libarchive)
endif()
