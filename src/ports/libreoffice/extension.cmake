# SPDX-License-Identifier: MPL-2.0
# The extension: the component with its descriptions and icons, as a folder and as a package.

find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_program(ZIP zip REQUIRED)

# huebrush_extension_resources(TARGET FOLDER)
# Puts what the component reads at run time into an extension's folder whenever TARGET is built:
# the icons, drawn in each size, and the schema of the settings.
function(huebrush_extension_resources target folder)
  configure_file(${CMAKE_CURRENT_FUNCTION_LIST_DIR}/extension/Settings.xcs ${folder}/Settings.xcs COPYONLY)
  file(MAKE_DIRECTORY ${folder}/icons)
  set(pictures)
  foreach(icon 101 102 103)
    foreach(size 16 24 32)
      set(picture ${folder}/icons/${icon}_${size}.png)
      set(drawing ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/icons/${icon}.svg)
      add_custom_command(OUTPUT ${picture} DEPENDS ${drawing}
        COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} ${drawing} -o ${picture} VERBATIM)
      list(APPEND pictures ${picture})
    endforeach()
  endforeach()
  # Those of the dialogs are scaled down to their place on the screen. The last is a button's drawing.
  foreach(icon 200 201 300 301 400 401 402 410 411 412 403)
    set(picture ${folder}/icons/${icon}_64.png)
    string(REPLACE /403.svg /103.svg drawing ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/icons/${icon}.svg)
    add_custom_command(OUTPUT ${picture} DEPENDS ${drawing}
      COMMAND ${RSVG_CONVERT} --keep-aspect-ratio -h 64 ${drawing} -o ${picture} VERBATIM)
    list(APPEND pictures ${picture})
  endforeach()
  add_custom_target(${target}_icons DEPENDS ${pictures})
  add_dependencies(${target} ${target}_icons)
endfunction()

set(EXTENSION_FOLDER ${CMAKE_BINARY_DIR}/extension/huebrush)
add_library(huebrush_component MODULE entry/component.cpp)
set_target_properties(huebrush_component PROPERTIES
  PREFIX "" OUTPUT_NAME huebrush LIBRARY_OUTPUT_DIRECTORY ${EXTENSION_FOLDER})
target_link_options(huebrush_component PRIVATE -Wl,-z,defs)
target_link_libraries(huebrush_component PRIVATE
  huebrush_libreoffice huebrush_flags huebrush_delivered)
huebrush_extension_resources(huebrush_component ${EXTENSION_FOLDER})

# Where the extension manager looks for newer versions.
set(HUEBRUSH_UPDATE_URL "" CACHE STRING
  "The address of the folder with huebrush.update.xml and the package; empty where there is none")
if(HUEBRUSH_UPDATE_URL)
  set(HUEBRUSH_UPDATE_INFORMATION "
  <update-information>
    <src xlink:href=\"${HUEBRUSH_UPDATE_URL}/huebrush.update.xml\"/>
  </update-information>")
  configure_file(extension/update.xml.in ${CMAKE_BINARY_DIR}/huebrush.update.xml @ONLY)
endif()
configure_file(extension/description.xml.in ${EXTENSION_FOLDER}/description.xml @ONLY)
foreach(file META-INF/manifest.xml huebrush.components Jobs.xcu ProtocolHandler.xcu
    description/cs.txt description/en.txt)
  configure_file(extension/${file} ${EXTENSION_FOLDER}/${file} COPYONLY)
endforeach()
configure_file(${PROJECT_SOURCE_DIR}/LICENSE ${EXTENSION_FOLDER}/LICENSE COPYONLY)
# The picture that the extension manager shows.
add_custom_command(OUTPUT ${EXTENSION_FOLDER}/icon.png
  DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/icons/103.svg
  COMMAND ${RSVG_CONVERT} -w 42 -h 42 ${CMAKE_CURRENT_SOURCE_DIR}/icons/103.svg
    -o ${EXTENSION_FOLDER}/icon.png VERBATIM)
add_custom_target(huebrush_extension_icon DEPENDS ${EXTENSION_FOLDER}/icon.png)

# The package, without what only a debugger reads. It is made from scratch each time: its parts are many,
# and packing takes a moment. The same parts make the same bytes.
set(PACKAGE_FOLDER ${CMAKE_BINARY_DIR}/package)
set(EXTENSION_PACKAGE ${CMAKE_BINARY_DIR}/huebrush.oxt)
add_custom_target(huebrush_extension ALL
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${PACKAGE_FOLDER} ${EXTENSION_PACKAGE}
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${EXTENSION_FOLDER} ${PACKAGE_FOLDER}
  COMMAND ${CMAKE_STRIP} --strip-unneeded ${PACKAGE_FOLDER}/huebrush.so
  COMMAND ${CMAKE_COMMAND} -E chdir ${PACKAGE_FOLDER} sh
    ${CMAKE_CURRENT_SOURCE_DIR}/extension/pack.sh ${ZIP} ${EXTENSION_PACKAGE}
  VERBATIM)
add_dependencies(huebrush_extension huebrush_component huebrush_extension_icon)

install(TARGETS huebrush_component LIBRARY DESTINATION ${HUEBRUSH_EXTENSIONDIR}/huebrush)
install(DIRECTORY ${EXTENSION_FOLDER} DESTINATION ${HUEBRUSH_EXTENSIONDIR}
  PATTERN huebrush.so EXCLUDE)
install(FILES ${EXTENSION_PACKAGE} DESTINATION ${CMAKE_INSTALL_DATADIR}/huebrush)
