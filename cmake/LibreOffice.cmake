# SPDX-License-Identifier: MPL-2.0
# The LibreOffice SDK: C++ headers generated from its type libraries, and its link libraries.

set(LIBREOFFICE_ROOT "/usr/lib/libreoffice" CACHE PATH "The folder of LibreOffice")
set(LIBREOFFICE_HEADERS ${CMAKE_BINARY_DIR}/libreoffice-headers)

if(NOT EXISTS ${LIBREOFFICE_ROOT}/sdk/bin/cppumaker)
  message(FATAL_ERROR "The LibreOffice SDK is missing in ${LIBREOFFICE_ROOT}: "
    "install it (on Debian libreoffice-dev), or configure with HUEBRUSH_LIBREOFFICE=OFF")
endif()

file(STRINGS ${LIBREOFFICE_ROOT}/sdk/settings/dk.mk LIBREOFFICE_VERSION REGEX "^SDKVERSION=")
string(REPLACE "SDKVERSION=" "" LIBREOFFICE_VERSION "${LIBREOFFICE_VERSION}")

if(NOT EXISTS ${LIBREOFFICE_HEADERS}/done)
  file(MAKE_DIRECTORY ${LIBREOFFICE_HEADERS})
  execute_process(
    COMMAND ${LIBREOFFICE_ROOT}/sdk/bin/cppumaker -Gc -O${LIBREOFFICE_HEADERS}
            ${LIBREOFFICE_ROOT}/program/types.rdb ${LIBREOFFICE_ROOT}/program/types/offapi.rdb
    COMMAND_ERROR_IS_FATAL ANY)
  file(TOUCH ${LIBREOFFICE_HEADERS}/done)
endif()

# SYSTEM: the generated headers and the SDK's own are not held to our warnings.
add_library(libreoffice_sdk INTERFACE)
target_include_directories(libreoffice_sdk SYSTEM INTERFACE
  ${LIBREOFFICE_HEADERS} /usr/include/libreoffice)
target_compile_definitions(libreoffice_sdk INTERFACE UNX GCC LINUX CPPU_ENV=gcc3)
# Much of what the office calls deprecated has no successor.
target_compile_options(libreoffice_sdk INTERFACE -Wno-deprecated-declarations)
target_link_directories(libreoffice_sdk INTERFACE
  ${LIBREOFFICE_ROOT}/sdk/lib ${LIBREOFFICE_ROOT}/program)
target_link_libraries(libreoffice_sdk INTERFACE
  uno_cppuhelpergcc3 uno_cppu uno_salhelpergcc3 uno_sal)
