# SPDX-License-Identifier: MPL-2.0
# A recolour undone and redone by the Edit menu of a real window.
set(RECOLOUR_EXTENSION ${CMAKE_CURRENT_BINARY_DIR}/recolour-extensions/huebrush-recolour)
add_library(huebrush_recolour_job MODULE recolour_job.cpp)
set_target_properties(huebrush_recolour_job PROPERTIES
  PREFIX "" LIBRARY_OUTPUT_DIRECTORY ${RECOLOUR_EXTENSION})
target_link_options(huebrush_recolour_job PRIVATE -Wl,-z,defs)
target_link_libraries(huebrush_recolour_job PRIVATE huebrush_libreoffice huebrush_flags)
foreach(file description.xml huebrush_recolour_job.components META-INF/manifest.xml)
  configure_file(recolour-extension/${file} ${RECOLOUR_EXTENSION}/${file} @ONLY)
endforeach()
add_test(NAME undo
  COMMAND /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/undo_test.py
    --office ${LIBREOFFICE_ROOT}/program/soffice
    --extensions ${CMAKE_CURRENT_BINARY_DIR}/recolour-extensions)
set_tests_properties(undo PROPERTIES LABELS libreoffice TIMEOUT 300)
