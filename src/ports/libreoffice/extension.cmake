# The extension: the component with its descriptions and icons, as a folder and as a package.

set(EXTENSION_FOLDER ${CMAKE_BINARY_DIR}/extension/huebrush)

add_library(huebrush_component MODULE component.cpp)
set_target_properties(huebrush_component PROPERTIES
  PREFIX "" OUTPUT_NAME huebrush LIBRARY_OUTPUT_DIRECTORY ${EXTENSION_FOLDER})
target_link_options(huebrush_component PRIVATE -Wl,-z,defs)
target_link_libraries(huebrush_component PRIVATE huebrush_libreoffice huebrush_flags)

find_program(RSVG_CONVERT rsvg-convert REQUIRED)
find_program(ZIP zip REQUIRED)

set(EXTENSION_FILES ${EXTENSION_FOLDER}/description.xml)
configure_file(extension/description.xml.in ${EXTENSION_FOLDER}/description.xml @ONLY)
foreach(file META-INF/manifest.xml huebrush.components Jobs.xcu ProtocolHandler.xcu Settings.xcs)
  configure_file(extension/${file} ${EXTENSION_FOLDER}/${file} COPYONLY)
  list(APPEND EXTENSION_FILES ${EXTENSION_FOLDER}/${file})
endforeach()

file(MAKE_DIRECTORY ${EXTENSION_FOLDER}/icons)
foreach(icon 101 102 103)
  foreach(size 16 24 32)
    set(picture ${EXTENSION_FOLDER}/icons/${icon}_${size}.png)
    set(drawing ${CMAKE_CURRENT_SOURCE_DIR}/icons/${icon}.svg)
    add_custom_command(OUTPUT ${picture} DEPENDS ${drawing}
      COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} ${drawing} -o ${picture} VERBATIM)
    list(APPEND EXTENSION_FILES ${picture})
  endforeach()
endforeach()

set(EXTENSION_PACKAGE ${CMAKE_BINARY_DIR}/huebrush.oxt)
add_custom_command(OUTPUT ${EXTENSION_PACKAGE}
  DEPENDS huebrush_component ${EXTENSION_FILES}
  COMMAND ${CMAKE_COMMAND} -E rm -f ${EXTENSION_PACKAGE}
  COMMAND ${ZIP} -qrX ${EXTENSION_PACKAGE} .
  WORKING_DIRECTORY ${EXTENSION_FOLDER} VERBATIM)
add_custom_target(huebrush_extension ALL DEPENDS ${EXTENSION_PACKAGE})
