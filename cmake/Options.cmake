# Compiler set-up, shared by every target through `vantrel_flags`.
include(CheckCXXSourceCompiles)
option(VANTREL_TESTS "Build the tests" ON)
option(VANTREL_BENCH "Build the benchmarks" OFF)
option(VANTREL_VALIDATE "Re-check lists, grid and tree after each simulation step" OFF)
option(VANTREL_ASSERTS "Check preconditions (platform/Assert.h)" OFF)
option(VANTREL_LTO "Optimise programs as a whole (g++ only)" OFF)
set(VANTREL_SANITIZE "" CACHE STRING "Sanitizers, as in -fsanitize=")
option(VANTREL_FUZZ "Build the libFuzzer programs (clang only)" OFF)
option(VANTREL_COVERAGE "Instrument for gcov" OFF)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(VANTREL_CCACHE ccache)
if(VANTREL_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${VANTREL_CCACHE})
endif()

add_library(vantrel_flags INTERFACE)
target_compile_options(vantrel_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
  # A fused multiply-add would round once where the plain code rounds twice, and runs
  # would then differ from compiler to compiler.
  -ffp-contract=off
  # Nobody asks for errno after a root.
  -fno-math-errno)
# g++ keeps to that in plain code, but its vectoriser takes a sum beside a difference of products,
# as in a turned vector, for one instruction where the processor has it.
set(CMAKE_TRY_COMPILE_CONFIGURATION ${CMAKE_BUILD_TYPE})
check_cxx_source_compiles("
  #if !defined(__FMA__) && !defined(__AVX512F__) && !defined(__ARM_FEATURE_COMPLEX)
  #error
  #endif
  int main() {}" VANTREL_TARGET_FUSES)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND VANTREL_TARGET_FUSES)
  target_compile_options(vantrel_flags INTERFACE -fno-tree-vectorize)
endif()
target_include_directories(vantrel_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_definitions(vantrel_flags INTERFACE
  $<$<BOOL:${VANTREL_VALIDATE}>:VANTREL_VALIDATE>
  $<$<BOOL:${VANTREL_ASSERTS}>:VANTREL_ASSERTS>)

if(VANTREL_SANITIZE)
  target_compile_options(vantrel_flags INTERFACE
    -fsanitize=${VANTREL_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  # -rdynamic lets the dlclose of tests/support/KeepLoaded.cpp win.
  target_link_options(vantrel_flags INTERFACE -fsanitize=${VANTREL_SANITIZE} -rdynamic)
endif()
if(VANTREL_COVERAGE)
  target_compile_options(vantrel_flags INTERFACE --coverage)
  target_link_options(vantrel_flags INTERFACE --coverage)
endif()
