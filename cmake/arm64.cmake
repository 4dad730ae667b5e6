# SPDX-License-Identifier: MIT
# Toolchain file: builds for arm64 on an amd64 Debian that has the libraries of both.

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(QT_HOST_PATH /usr) # moc and rcc run here
# What is built and run on the way: the program that renders the icon, tests.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64)
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE arm64)
