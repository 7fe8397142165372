# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

# Cross compiles for Windows with mingw-w64, against the libraries that script/windows-dependencies
# has installed in MV_WINDOWS_PREFIX.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(host x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${host}-gcc-posix)
set(CMAKE_CXX_COMPILER ${host}-g++-posix)
set(CMAKE_RC_COMPILER ${host}-windres)

if(NOT MV_WINDOWS_PREFIX)
    message(FATAL_ERROR "MV_WINDOWS_PREFIX must name the folder with Qt and libcurl for Windows")
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES MV_WINDOWS_PREFIX)
set(CMAKE_FIND_ROOT_PATH ${MV_WINDOWS_PREFIX} /usr/${host})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# The compilers of translations run on this machine.
set(Qt5LinguistTools_DIR /usr/lib/x86_64-linux-gnu/cmake/Qt5LinguistTools)
set(ENV{PKG_CONFIG_LIBDIR} ${MV_WINDOWS_PREFIX}/lib/pkgconfig:/usr/${host}/lib/pkgconfig)
set(ENV{PKG_CONFIG_SYSROOT_DIR} "")
