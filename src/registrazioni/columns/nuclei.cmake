# The files of loops over samples: plain loops that the compiler turns into vector code, each file for one instruction set.

# Where the C library tells what the processor can run, there are loops for AVX2 too.
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|amd64|i[3-6]86)$")
  include(CheckCXXSourceCompiles)
  set(CMAKE_REQUIRED_FLAGS "-mavx2 -mf16c")
  check_cxx_source_compiles("
    #include <immintrin.h>
    #define _Bool bool
    #include <sys/platform/x86.h>
    int main() { return CPU_FEATURE_ACTIVE(AVX2) && CPU_FEATURE_ACTIVE(F16C) ? 1 : 0; }" KEL_NUCLEI_AVX2)
  unset(CMAKE_REQUIRED_FLAGS)
endif()

# Gives the files of `cartella` within a target their options.
function(kel_nuclei bersaglio cartella)
  # Whether an operation traps does not matter, and lets both sides of a choice be computed. No result changes by it.
  set(opzioni -fno-trapping-math $<$<CONFIG:Release,RelWithDebInfo,None>:-O3>)
  set_property(SOURCE ${cartella}/nuclei_base.cpp ${cartella}/nuclei_avx2.cpp TARGET_DIRECTORY ${bersaglio}
    APPEND PROPERTY COMPILE_OPTIONS ${opzioni})
  if(KEL_NUCLEI_AVX2)
    target_compile_definitions(${bersaglio} PUBLIC KEL_NUCLEI_AVX2)
    set_property(SOURCE ${cartella}/nuclei_avx2.cpp TARGET_DIRECTORY ${bersaglio}
      APPEND PROPERTY COMPILE_OPTIONS -mavx2 -mf16c)
  else()
    set_property(SOURCE ${cartella}/nuclei_avx2.cpp TARGET_DIRECTORY ${bersaglio}
      APPEND PROPERTY HEADER_FILE_ONLY ON)
  endif()
endfunction()
