# SPDX-License-Identifier: GPL-3.0-or-later
# Every target of a fuzzing build is compiled with AddressSanitizer, UndefinedBehaviorSanitizer
# and libFuzzer's coverage hooks, so the fuzzer sees the branches of the libraries it drives
# and any fault in them stops the run. Only the fuzz targets themselves link libFuzzer's main.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "TROUPE_FUZZ needs clang: configure with -DCMAKE_CXX_COMPILER=clang++")
endif()

add_compile_options(
    -fsanitize=address,undefined,fuzzer-no-link
    -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
add_link_options(-fsanitize=address,undefined)
