# SPDX-License-Identifier: MPL-2.0
set(CMAKE_SYSTEM_PROCESSOR x86_64)
include(${CMAKE_CURRENT_LIST_DIR}/WindowsToolchain.cmake)
