# Targets of this project: compiler settings, libraries and tests in one way everywhere.
include_guard(GLOBAL)

# Warnings are private to our own targets and never reach a user of the package.
add_library(qolf_warnings INTERFACE)
target_compile_options(qolf_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    # g++ 12 sees overlapping copies in every optimised  "text" + std::string  (its bug 105651).
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # And, where it comes from a precompiled header, as copies that are too long.
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<BOOL:${QOLF_FAST_BUILD}>>:-Wno-stringop-overflow$<SEMICOLON>-Wno-stringop-overread$<SEMICOLON>-Wno-array-bounds>)

# The version as text, for sources that include no header for it.
add_library(qolf_version INTERFACE)
target_compile_definitions(qolf_version INTERFACE QOLF_VERSION="${PROJECT_VERSION}")

# The same as numbers, for the version of a Windows resource.
set(QOLF_VERSION_NUMBERS
  QOLF_VERSION_MAJOR=${PROJECT_VERSION_MAJOR} QOLF_VERSION_MINOR=${PROJECT_VERSION_MINOR}
  QOLF_VERSION_PATCH=${PROJECT_VERSION_PATCH})

# The standard library's headers, compiled once: reading them is most of what a small file costs.
# Files still include what they use; a build with QOLF_FAST_BUILD off, as clang-tidy has, shows it.
if(QOLF_FAST_BUILD)
  file(GENERATE OUTPUT "${PROJECT_BINARY_DIR}/StandardHeaders.cpp" CONTENT "")
  add_library(qolf_standard_headers OBJECT "${PROJECT_BINARY_DIR}/StandardHeaders.cpp")
  target_link_libraries(qolf_standard_headers PRIVATE qolf_warnings)
  target_precompile_headers(qolf_standard_headers PRIVATE
    <algorithm> <array> <charconv> <cmath> <cstdint> <cstdio> <cstring> <filesystem> <functional>
    <limits> <map> <memory> <numbers> <optional> <set> <span> <string> <string_view> <system_error>
    <utility> <variant> <vector>)
endif()

function(qolf_use_standard_headers name)
  if(QOLF_FAST_BUILD)
    target_precompile_headers(${name} REUSE_FROM qolf_standard_headers)
  endif()
endfunction()

# Compiles the sources of each target six at a time. Most of what a source costs is code of the
# standard library that its neighbours need, too. Twelve at a time made conversions an eighth slower,
# and the filters' libraries compiled so take half as long again to read a file. The sources for Windows stay alone: its headers
# define macros for whatever follows.
function(qolf_compile_together)
  if(NOT QOLF_FAST_BUILD)
    return()
  endif()
  foreach(target IN LISTS ARGN)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 6)
    # g++ takes the sources for headers, in which types of one file alone would be a fault. And it
    # collects garbage only when there are 512 MB of memory to search, not 128.
    target_compile_options(${target} PRIVATE
      $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage$<SEMICOLON>--param=ggc-min-heapsize=524288>)
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "_windows\\.cpp$")
    if(sources)
      get_target_property(folder ${target} SOURCE_DIR)
      list(TRANSFORM sources PREPEND "${folder}/")
      set_source_files_properties(${sources} TARGET_DIRECTORY ${target}
                                  PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    endif()
  endforeach()
endfunction()

# A static core library of one folder: qolf_add_core(reader SOURCES a.cpp b.cpp LINK other)
function(qolf_add_core name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
  add_library(${name} STATIC)
  target_sources(${name} PRIVATE ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC host ${arg_LINK} PRIVATE qolf_warnings)
  qolf_use_standard_headers(${name})
endfunction()

# Sets `variable` to the headers that other projects may include, as they include them.
function(qolf_public_headers variable)
  set(headers)
  foreach(library IN ITEMS host_headers qolfhost)
    if(TARGET ${library})
      get_target_property(files ${library} HEADER_SET)
      list(APPEND headers ${files})
    endif()
  endforeach()
  list(TRANSFORM headers REPLACE "^${PROJECT_SOURCE_DIR}/" "")
  set(${variable} "${headers}" PARENT_SCOPE)
endfunction()

# What every test reads, compiled once, as fast as a test's own sources are: their speed does not
# matter, and optimising them would take most of a build's time.
function(qolf_use_test_headers name)
  if(CMAKE_BUILD_TYPE STREQUAL "Release")
    target_compile_options(${name} PRIVATE -O0)
  endif()
  if(NOT QOLF_FAST_BUILD)
    return()
  endif()
  if(NOT TARGET qolf_test_headers)
    file(GENERATE OUTPUT "${PROJECT_BINARY_DIR}/TestHeaders.cpp" CONTENT "int main() {}\n")
    add_executable(qolf_test_headers "${PROJECT_BINARY_DIR}/TestHeaders.cpp")
    target_link_libraries(qolf_test_headers PRIVATE GTest::gmock qolf_warnings)
    target_compile_features(qolf_test_headers PRIVATE cxx_std_20)
    if(CMAKE_BUILD_TYPE STREQUAL "Release")
      target_compile_options(qolf_test_headers PRIVATE -O0)
    endif()
    target_precompile_headers(qolf_test_headers PRIVATE
      <gmock/gmock.h> <gtest/gtest.h> <algorithm> <array> <cmath> <cstdint> <cstdio> <filesystem>
      <fstream> <functional> <memory> <optional> <sstream> <string> <string_view> <utility>
      <vector>)
  endif()
  target_precompile_headers(${name} REUSE_FROM qolf_test_headers)
endfunction()

# A test program of one folder: qolf_add_test(test_reader SOURCES ... LINK reader)
# Each test is a test of ctest's own on the build machine; under an emulator, where starting a
# program is slow, the whole program is one. ENVIRONMENT is a list of NAME=VALUE for its runs.
function(qolf_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK;LABELS;ENVIRONMENT")
  add_executable(${name})
  target_sources(${name} PRIVATE ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LINK} GTest::gmock GTest::gtest_main qolf_warnings)
  target_compile_definitions(${name} PRIVATE
      QOLF_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data"
      QOLF_TEST_GOLDEN="${PROJECT_SOURCE_DIR}/tests/golden"
      QOLF_SAMPLES="${PROJECT_SOURCE_DIR}/samples")
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
  qolf_use_test_headers(${name})
  if(WIN32)
    file(STRINGS "${PROJECT_SOURCE_DIR}/tests/windows/linux-only.txt" linux_only REGEX "^[A-Za-z*]")
    list(TRANSFORM linux_only REPLACE " .*" "")
    list(JOIN linux_only ":" linux_only)
    add_test(NAME ${name} COMMAND ${name} --gtest_brief=1 "--gtest_filter=-${linux_only}")
    set_tests_properties(${name} PROPERTIES
      LABELS "${arg_LABELS}" FIXTURES_REQUIRED unpacked)  # the zip, in tests/windows
  else()
    include(GoogleTest)
    # An empty value would take the next property's name for itself.
    set(properties)
    foreach(property IN ITEMS LABELS ENVIRONMENT)
      if(arg_${property})
        list(APPEND properties ${property} "${arg_${property}}")
      endif()
    endforeach()
    if(properties)
      list(PREPEND properties PROPERTIES)
    endif()
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST ${properties})
  endif()
endfunction()
