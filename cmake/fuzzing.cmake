# SPDX-License-Identifier: MIT
# Instruments a whole build for fuzzing: libFuzzer's feedback, the sanitizers that turn a slip into
# a finding, and source coverage, so that a run can say what it reached.

if(NOT CMAKE_CXX_COMPILER_ID MATCHES Clang)
  message(FATAL_ERROR "The fuzz targets need Clang: cmake --preset fuzz")
endif()
add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
                    -fno-omit-frame-pointer -fprofile-instr-generate -fcoverage-mapping)
add_link_options(-fsanitize=address,undefined -fprofile-instr-generate)
