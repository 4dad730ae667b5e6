# SPDX-License-Identifier: MIT
# Configures the macOS build on Linux, so that its sources can be compiled there: a Clang with
# Apple's C headers, and Debian's Qt for its headers. What it makes cannot be linked.
# TARNWICK_APPLE_COMPILER and TARNWICK_APPLE_PROCESSOR (arm64 or x86_64) say what to compile with.
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TARNWICK_APPLE_COMPILER TARNWICK_APPLE_PROCESSOR)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_PROCESSOR ${TARNWICK_APPLE_PROCESSOR})
set(CMAKE_SIZEOF_VOID_P 8)
set(CMAKE_CXX_COMPILER ${TARNWICK_APPLE_COMPILER})
set(CMAKE_CXX_FLAGS_DEBUG "-O0 -g0 -fno-sanitize=undefined")

# Apple's own Qt lies elsewhere; the headers are the same.
file(GLOB qt_configs /usr/lib/*/cmake/Qt6)
list(GET qt_configs 0 Qt6_DIR)
get_filename_component(QT_HOST_PATH_CMAKE_DIR ${Qt6_DIR} DIRECTORY)
set(CMAKE_PREFIX_PATH ${QT_HOST_PATH_CMAKE_DIR}/..)
set(QT_HOST_PATH /usr)
# Qt asks for OpenGL, a framework there; the headers of this system must not come in its stead.
set(OPENGL_INCLUDE_DIR ${CMAKE_CURRENT_LIST_DIR})
set(OPENGL_gl_LIBRARY OpenGL)
set(CMAKE_DISABLE_FIND_PACKAGE_WrapVulkanHeaders ON)
# Its tool that copies Qt into a bundle exists on a Mac alone.
set(TARNWICK_DEPLOY_QT OFF CACHE BOOL "")
