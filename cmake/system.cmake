# SPDX-License-Identifier: MIT
# Which system and processor the programs are built for: picks the few sources that cannot be
# compiled everywhere, and the variant suffix that bundled executables carry in their names.

if(APPLE)
  set(TARNWICK_SYSTEM darwin)
else()
  set(TARNWICK_SYSTEM linux)
endif()

if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(arm64|aarch64)$")
  set(TARNWICK_VARIANT_SUFFIX ${TARNWICK_SYSTEM}-arm64)
else()
  set(TARNWICK_VARIANT_SUFFIX ${TARNWICK_SYSTEM}-amd64)
endif()

# A client that lies in memory all day: no loop of it is worth a third more code, and what nothing
# refers to is left out.
if(TARNWICK_SYSTEM STREQUAL "linux")
  string(REPLACE "-O3" "-Os" CMAKE_CXX_FLAGS_RELEASE "${CMAKE_CXX_FLAGS_RELEASE}")
  string(APPEND CMAKE_CXX_FLAGS_RELEASE " -ffunction-sections -fdata-sections")
  string(APPEND CMAKE_EXE_LINKER_FLAGS_RELEASE " -Wl,--gc-sections")
endif()
