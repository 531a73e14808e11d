# SPDX-License-Identifier: MPL-2.0
# What a build for Windows has beside that for this system: libraries that Debian has as source or
# headers, and Wine, which runs the tests.

# By a link, since the folder that it is in has this system's own headers as well.
find_path(JSON_HEADERS nlohmann/json.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/include)
file(CREATE_LINK ${JSON_HEADERS}/nlohmann ${CMAKE_BINARY_DIR}/include/nlohmann SYMBOLIC)
add_library(nlohmann_json INTERFACE)
target_include_directories(nlohmann_json SYSTEM INTERFACE ${CMAKE_BINARY_DIR}/include)
add_library(nlohmann_json::nlohmann_json ALIAS nlohmann_json)

if(NOT BUILD_TESTING)
  return()
endif()

find_path(GOOGLETEST_SOURCE src/gtest-all.cc PATHS /usr/src/googletest/googletest
  NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(HUEBRUSH_WINDOWS_TESTS ${PROJECT_SOURCE_DIR}/tests/windows)

add_library(gtest STATIC ${GOOGLETEST_SOURCE}/src/gtest-all.cc ${GOOGLETEST_SOURCE}/src/gtest_main.cc
  ${HUEBRUSH_WINDOWS_TESTS}/GTestNotification.cpp)
target_include_directories(gtest SYSTEM PUBLIC ${GOOGLETEST_SOURCE}/include PRIVATE ${GOOGLETEST_SOURCE})
# It takes this Notification for its own.
target_compile_definitions(gtest PUBLIC GTEST_HAS_NOTIFICATION_=1)
target_compile_options(gtest PUBLIC
  "SHELL:-include ${HUEBRUSH_WINDOWS_TESTS}/GTestNotification.h")
set_target_properties(gtest PROPERTIES COMPILE_WARNING_AS_ERROR OFF)
add_library(GTest::gtest ALIAS gtest)
add_library(GTest::gtest_main ALIAS gtest)

# One Wine prefix for all programs, away from the user's own. It is made once and kept.
set(HUEBRUSH_WINE ${HUEBRUSH_WINDOWS_TESTS}/wine.sh ${CMAKE_BINARY_DIR}/wine)

# huebrush_register_tests(PROGRAM)
# One test for the whole program: asking it for its tests one by one, or starting it for each of them,
# takes longer than they do. The one that takes longer than all others comes in parts, and without its
# sweeps over damaged files, which are most of its time and run with the sanitizers.
function(huebrush_register_tests program)
  set(parts 1)
  set(filter *)
  if(program STREQUAL "jet_test")
    set(parts 4)
    set(filter -All/DamagedFiles*)
  endif()
  foreach(part RANGE 1 ${parts})
    math(EXPR index "${part} - 1")
    set(name ${program})
    if(parts GREATER 1)
      set(name ${program}_${part})
    endif()
    add_test(NAME ${name} COMMAND ${HUEBRUSH_WINE} run $<TARGET_FILE:${program}>)
    set_tests_properties(${name} PROPERTIES LABELS unit TIMEOUT 900 FIXTURES_REQUIRED wine
      ENVIRONMENT "GTEST_TOTAL_SHARDS=${parts};GTEST_SHARD_INDEX=${index};GTEST_FILTER=${filter}"
      # A program without tests ends well, too.
      FAIL_REGULAR_EXPRESSION "PASSED  \\] 0 tests")
    if(program MATCHES "^word_")
      # They share one user's registry, clipboard and locale.
      set_tests_properties(${name} PROPERTIES RESOURCE_LOCK windows_user)
    endif()
  endforeach()
endfunction()
