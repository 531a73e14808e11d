# SPDX-License-Identifier: MPL-2.0
# A recolour undone and redone by the Edit menu of a real window.
add_job_extension(recolour META-INF/manifest.xml)
add_test(NAME undo
  COMMAND /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/undo_test.py
    --office ${LIBREOFFICE_ROOT}/program/soffice
    --extensions ${CMAKE_CURRENT_BINARY_DIR}/recolour-extensions)
set_tests_properties(undo PROPERTIES LABELS libreoffice TIMEOUT 300)
