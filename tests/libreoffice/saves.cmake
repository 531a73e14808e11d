# SPDX-License-Identifier: MPL-2.0
# The office killed while the dialog saves palettes, at a few instants or at many.
add_job_extension(saves Jobs.xcu META-INF/manifest.xml)
target_link_libraries(huebrush_saves_job PRIVATE huebrush_memory)
huebrush_extension_resources(huebrush_saves_job
  ${CMAKE_CURRENT_BINARY_DIR}/saves-extensions/huebrush-saves)
foreach(test saves_killed long.saves_killed)
  add_test(NAME ${test}
    COMMAND /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/saves_killed_test.py
      --office ${LIBREOFFICE_ROOT}/program/soffice
      --extensions ${CMAKE_CURRENT_BINARY_DIR}/saves-extensions)
  set_tests_properties(${test} PROPERTIES LABELS libreoffice TIMEOUT 600 FIXTURES_REQUIRED readers
    ENVIRONMENT "HUEBRUSH_PROGRAM=$<TARGET_FILE:huebrush>;HUEBRUSH_READERS=${HUEBRUSH_READERS}")
endforeach()
set_tests_properties(long.saves_killed PROPERTIES LABELS long TIMEOUT 7200)
set_property(TEST long.saves_killed APPEND PROPERTY ENVIRONMENT HUEBRUSH_LONG=1)
