# Compiler options of everything that this project builds: link a target with kel_opzioni to get them.

add_library(kel_opzioni INTERFACE)
target_compile_features(kel_opzioni INTERFACE cxx_std_20)

target_compile_options(kel_opzioni INTERFACE
  # Values must have the same bits on every target: no fused multiply-add.
  -ffp-contract=off
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  # gcc 12 sees overlapping copies in "text" + std::string that are not there (GCC bug 105651).
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
  $<$<BOOL:${KEL_WARNINGS_AS_ERRORS}>:-Werror>)

if(KEL_SANITIZE)
  target_compile_options(kel_opzioni INTERFACE
    -fsanitize=${KEL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kel_opzioni INTERFACE -fsanitize=${KEL_SANITIZE})
endif()

# Options of tests and tools. Optimising them takes most of their build time, and does not test the library any better.
add_library(kel_opzioni_contorno INTERFACE)
target_link_libraries(kel_opzioni_contorno INTERFACE kel_opzioni)
if(KEL_TEST_LEVEL)
  # At -O1 gcc warns of an empty std::optional as if its value could be read.
  target_compile_options(kel_opzioni_contorno INTERFACE ${KEL_TEST_LEVEL}
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()

option(KEL_FUZZ "Build the fuzzers of tests/fuzz as such, not only what runs their kept inputs" OFF)

# Programs in the build folder find the library by a path relative to themselves. The absolute path of the build folder
# would leave a gap of its length in the installed programs, and two builds would not give the same bytes.
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
