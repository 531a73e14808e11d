# SPDX-License-Identifier: MPL-2.0
# How the targets of this project are defined: one library per folder of src/, with its tests.

if(WIN32)
  include(${CMAKE_CURRENT_LIST_DIR}/Windows.cmake)
elseif(BUILD_TESTING)
  find_package(GTest REQUIRED)
  include(GoogleTest)
endif()

# Whether a warning is an error, and what there is for a debugger, is for the presets to say.
add_library(huebrush_flags INTERFACE)
target_compile_options(huebrush_flags INTERFACE -Wall -Wextra -Wpedantic -Wconversion)
if(HUEBRUSH_SANITIZE)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "HUEBRUSH_SANITIZE needs clang, with which libFuzzer comes")
  endif()
  # One build for the tests and the fuzzers: what the fuzzers need costs the tests little.
  target_compile_options(huebrush_flags INTERFACE
    -fsanitize=address,undefined,fuzzer-no-link -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(huebrush_flags INTERFACE -fsanitize=address,undefined)
  # Places in the standard library's containers are checked, too.
  target_compile_definitions(huebrush_flags INTERFACE HUEBRUSH_SANITIZED _GLIBCXX_ASSERTIONS)
endif()

# For what users get. The same sources make the same bytes, wherever and whenever they are built: the
# identity of a build would depend on the folder of the sources, a time on the day.
add_library(huebrush_delivered INTERFACE)
if(WIN32)
  target_link_options(huebrush_delivered INTERFACE -Wl,--no-insert-timestamp)
else()
  target_link_options(huebrush_delivered INTERFACE -Wl,-z,now -Wl,--build-id=none)
endif()

# huebrush_library(NAME LIBRARIES library... SOURCES file...)
# The library of the current folder. It links those of the folders that its row in src/README.md
# names, and LIBRARIES, which are not ours or only for tests.
function(huebrush_library name)
  cmake_parse_arguments(ARG "" "" "LIBRARIES;SOURCES" ${ARGN})
  file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR}/src ${CMAKE_CURRENT_SOURCE_DIR})
  get_property(first GLOBAL PROPERTY huebrush_library_of_${folder})
  if(NOT first)
    set_property(GLOBAL PROPERTY huebrush_library_of_${folder} ${name})
  endif()
  huebrush_used_libraries(used ${folder})
  if(ARG_SOURCES)
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${used} ${ARG_LIBRARIES} PRIVATE huebrush_flags)
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} INTERFACE ${used} ${ARG_LIBRARIES})
  endif()
endfunction()

# huebrush_optimise(NAME)
# For code that works on thousands of rows: optimised under the sanitizers, too. A program gets an inline
# function from the first file that has it, so this counts only where all of its files are optimised.
function(huebrush_optimise name)
  if(HUEBRUSH_SANITIZE)
    target_compile_options(${name} PRIVATE -O2)
  endif()
endfunction()

# huebrush_test(NAME USES library... SOURCES file...)
# A GoogleTest program whose tests are registered one by one, on Windows together; nothing without
# BUILD_TESTING. The timeout is for what hangs, and far from what a test takes on a machine that has
# much else to do.
function(huebrush_test name)
  if(NOT BUILD_TESTING)
    return()
  endif()
  cmake_parse_arguments(ARG "" "" "USES;SOURCES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_USES} huebrush_flags GTest::gtest GTest::gtest_main)
  huebrush_compile_tests_fast(${name})
  if(WIN32)
    huebrush_register_tests(${name})
  else()
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES LABELS unit TIMEOUT 900)
  endif()
endfunction()

# huebrush_long_test(PROGRAM TEST)
# A test of that program that does more when HUEBRUSH_LONG is set, once more with all of its work:
# what `make long` runs.
function(huebrush_long_test program test)
  if(NOT BUILD_TESTING OR WIN32)
    return()
  endif()
  add_test(NAME long.${test} COMMAND ${program} --gtest_filter=${test})
  set_tests_properties(long.${test} PROPERTIES LABELS long TIMEOUT 7200
    ENVIRONMENT HUEBRUSH_LONG=1
    # The exit code would also be that of a filter that fits no test.
    PASS_REGULAR_EXPRESSION "PASSED  . 1 test\\.")
endfunction()

# huebrush_compile_tests_fast(NAME)
# Tests are half of what there is to compile, and most of that is the test library's own macros: its
# headers are precompiled once for all programs, and less is optimised. What is tested is built as
# usual.
function(huebrush_compile_tests_fast name)
  target_compile_options(${name} PRIVATE $<$<CONFIG:RelWithDebInfo>:-O1>)
  get_target_property(kind ${name} TYPE)
  # Programs and libraries are compiled with different options.
  get_property(owner GLOBAL PROPERTY huebrush_test_headers_${kind})
  if(owner)
    target_precompile_headers(${name} REUSE_FROM ${owner})
  else()
    target_precompile_headers(${name} PRIVATE
      <gtest/gtest.h> <functional> <map> <memory> <optional> <string> <vector>)
    set_property(GLOBAL PROPERTY huebrush_test_headers_${kind} ${name})
  endif()
endfunction()
