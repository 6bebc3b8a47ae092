# What every target of the project is compiled with, as the interface target
# `build_settings`.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

option(TESSELLOMATICS_WARNINGS_ARE_ERRORS "Stop at a warning, as the presets do; a newer compiler may have new ones" OFF)
option(TESSELLOMATICS_SANITIZE "Build with AddressSanitizer and UBSan" OFF)
option(TESSELLOMATICS_FUZZ "Build the fuzzers of tests/fuzz/ and no other test; wants clang++" OFF)
option(TESSELLOMATICS_BENCHMARKS "Build the benchmarks" OFF)
option(TESSELLOMATICS_COVERAGE "Count the lines that run, for tools/coverage" OFF)
option(TESSELLOMATICS_BUILD_TOOLS_ALONE "Build the programs that a build runs and no more, as a cross build does beside itself" OFF)

# Off to build as for a processor without it.
# Where a compiler builds for less it may have the header, and refuse what is used of it.
include(CheckCXXSourceCompiles)
check_cxx_source_compiles("#include <emmintrin.h>
  int main() { return _mm_cvtsi128_si32(_mm_add_epi32(_mm_setzero_si128(), _mm_setzero_si128())); }"
  HAS_SSE2)
option(TESSELLOMATICS_SSE2 "Sum pixels with SSE2; the bytes are the same without" ${HAS_SSE2})

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()

add_library(build_settings INTERFACE)
target_include_directories(build_settings INTERFACE ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/generated)
target_compile_options(build_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast
  $<$<BOOL:${TESSELLOMATICS_WARNINGS_ARE_ERRORS}>:-Werror>
  # One seed gives one tile everywhere: no contraction, no reassociation, and
  # single precision stays single.
  -ffp-contract=off -fno-fast-math
  -fno-strict-aliasing
  # The same sources give the same bytes, wherever they lie.
  -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)

# The sanitizers watch the folders of the project. Test sources are left out: it
# is the core that they look for faults in, and the build takes half the time.
if(TESSELLOMATICS_SANITIZE)
  set(sanitizer_options -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(build_settings INTERFACE -fsanitize=address,undefined)
endif()
# What reads is watched for the ways that it takes, too. Drawing is not: it would take
# most of a fuzzer's time, and tell nothing of a reader.
if(TESSELLOMATICS_FUZZ)
  set(coverage_options -fsanitize=fuzzer-no-link)
  set(folders_that_draw raster runtime toolkit)
  file(GLOB sources_that_draw fills/*_texture.cpp fills/lattice_noise.cpp)
  set_source_files_properties(${sources_that_draw} PROPERTIES
    COMPILE_OPTIONS -fno-sanitize=fuzzer-no-link)
endif()

if(TESSELLOMATICS_COVERAGE)
  set(counting_options --coverage -fprofile-update=atomic)
  target_link_options(build_settings INTERFACE --coverage)
endif()

if(WIN32)
  target_compile_definitions(build_settings INTERFACE
    WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601)
  # MinGW's g++ takes an inline function for its own source's copy, and trusts the registers
  # that this one leaves alone; the linker may keep another source's, compiled otherwise.
  target_compile_options(build_settings INTERFACE -fno-ipa-ra)
  # The runtime is linked statically: the library imports system DLLs alone.
  target_link_options(build_settings INTERFACE -static)
  # No time of the linking.
  target_link_options(build_settings INTERFACE -Wl,--no-insert-timestamp)
endif()
