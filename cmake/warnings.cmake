# SPDX-License-Identifier: MIT
# Compiler settings that every target of ours links. Warnings are errors where we develop, never in
# what is built to be used: a newer compiler or library may warn of what was right.

option(TARNWICK_WARNINGS_AS_ERRORS "Treat warnings as errors" OFF)

add_library(tarnwick_warnings INTERFACE)
target_compile_options(tarnwick_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Wold-style-cast)
if(TARNWICK_WARNINGS_AS_ERRORS)
  target_compile_options(tarnwick_warnings INTERFACE -Werror)
endif()
# What joined sources keep to themselves meets in one file, and Clang warns of equal names there.
if(CMAKE_UNITY_BUILD)
  target_compile_options(tarnwick_warnings INTERFACE -Wno-shadow)
endif()
target_compile_definitions(tarnwick_warnings INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_URL_CAST_FROM_STRING
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_STRICT_ITERATORS)

# Address and undefined-behaviour sanitizers, or coverage counters, for a whole build.
option(TARNWICK_SANITIZE "Instrument with the address and undefined-behaviour sanitizers" OFF)
option(TARNWICK_COVERAGE "Instrument for line and branch coverage" OFF)
if(TARNWICK_SANITIZE)
  # GCC 12 takes the sanitizers' own bookkeeping for uses of what is not initialised.
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
                      $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  add_link_options(-fsanitize=address,undefined)
endif()
if(TARNWICK_COVERAGE)
  add_link_options(--coverage) # src/ alone is counted: see there
endif()
