# SPDX-License-Identifier: MPL-2.0
# Where `cmake --install` puts things. The program and the extension are installed where they are built.

include(GNUInstallDirs)
set(HUEBRUSH_EXTENSIONDIR "${CMAKE_INSTALL_LIBDIR}/huebrush/extension" CACHE STRING
  "The folder that gets the unpacked extension; in a package it may be that of LibreOffice's own")
cmake_path(ABSOLUTE_PATH HUEBRUSH_EXTENSIONDIR BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX}
  OUTPUT_VARIABLE HUEBRUSH_FULL_EXTENSIONDIR)

configure_file(man/huebrush.1.in man/huebrush.1 @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/man/huebrush.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
# Each shell finds its completions by their names.
set(completions ${CMAKE_CURRENT_BINARY_DIR}/completions)
foreach(shell_and_file bash/huebrush zsh/_huebrush fish/huebrush.fish)
  string(REGEX REPLACE "/.*" "" shell ${shell_and_file})
  add_custom_command(OUTPUT ${completions}/${shell_and_file}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${completions}/${shell}
    COMMAND huebrush completions ${shell} > ${completions}/${shell_and_file}
    DEPENDS huebrush VERBATIM)
  list(APPEND completion_files ${completions}/${shell_and_file})
endforeach()
add_custom_target(completions ALL DEPENDS ${completion_files})
install(FILES ${completions}/bash/huebrush
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${completions}/zsh/_huebrush DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
install(FILES ${completions}/fish/huebrush.fish
  DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
# The manual in both languages and what it refers to, in the same places beside each other.
install(FILES LICENSE CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES docs/manual.md docs/manual.cs.md docs/libreoffice-fills.md docs/huebrush.schema.json
  DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)
install(DIRECTORY docs/images DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)
