# With KEL_FUZZ: options to compile the library and the tools for fuzzing. Needs clang, and KEL_SANITIZE as in the
# preset `fuzz`.

# Beyond undefined behaviour, the library is held to this: no conversion of integers changes a value or its sign unless
# the source says so with a cast, and no division of floats is by zero.
#
# Two checks of the group `integer` are off, because they report arithmetic that is well defined and intended:
#
#   unsigned-integer-overflow   lap times are summed modulo 2^32 and a minus sign negates so
#                               (laptime/lettura_tempo.cpp), eight digits are tried and read in one word (the same),
#                               keys are spread by a product modulo 2^32 (tables/indice_perfetto.h), the magnitude of
#                               the most negative int is 0u - it (converters/scrittura.cpp); libstdc++'s loops of
#                               std::string count down past 0
#   unsigned-shift-base         the first character of a text of eight is shifted out of its word
#                               (converters/decoder_tempi.cpp)
#
# and one is off in one file, because of the code of libstdc++:
#
#   implicit-integer-sign-change   std::to_chars negates a negative int as an unsigned one (laptime/formato_tempo.cpp)
set(KEL_FUZZ_INTERI -fsanitize=integer,implicit-conversion,float-divide-by-zero
  -fno-sanitize=unsigned-integer-overflow,unsigned-shift-base)

function(kel_strumenta bersaglio)
  target_compile_options(${bersaglio} PRIVATE -fsanitize=fuzzer-no-link)
endfunction()

kel_strumenta(kelfunzioni)
target_compile_options(kelfunzioni PRIVATE ${KEL_FUZZ_INTERI})
target_link_options(kelfunzioni PRIVATE ${KEL_FUZZ_INTERI})
set_property(SOURCE ${PROJECT_SOURCE_DIR}/src/funzioni/laptime/formato_tempo.cpp TARGET_DIRECTORY kelfunzioni
  APPEND PROPERTY COMPILE_OPTIONS -fno-sanitize=implicit-integer-sign-change)
if(TARGET kelregistrazioni)
  kel_strumenta(kelregistrazioni)
  kel_strumenta(kelregistrazioni_parti)
endif()
if(TARGET kelfun_parti)
  kel_strumenta(kelfun_parti)
endif()
