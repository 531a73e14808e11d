# SPDX-License-Identifier: MPL-2.0
# Windows programs, compiled with mingw-w64 on Debian. The toolchain file of each processor sets
# CMAKE_SYSTEM_PROCESSOR and includes this one.

set(CMAKE_SYSTEM_NAME Windows)
set(mingw ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32)

# By their full names: without the ending, another package may decide which thread model it is. This
# one needs no function that is newer than Windows 2000, and has no std::thread and std::mutex.
set(CMAKE_C_COMPILER ${mingw}-gcc-win32)
set(CMAKE_CXX_COMPILER ${mingw}-g++-win32)
set(CMAKE_RC_COMPILER ${mingw}-windres)

# The oldest Windows whose functions the headers declare: 2000.
add_compile_definitions(WINVER=0x0500 _WIN32_WINNT=0x0500 UNICODE _UNICODE NOMINMAX
  WIN32_LEAN_AND_MEAN)
# Programs need no other files than those of the system.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)

set(CMAKE_FIND_ROOT_PATH /usr/${mingw})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
