# What the project's libraries have in common: how they are compiled, what they show and how they are linked.

# The loader has to correct each address in the tables. A packed list takes one bit for each of them, the usual one 24
# bytes (8 on 32-bit machines). Linker and C library must both know the packed form. On some machines GNU ld accepts the
# option but ignores it with a warning, so the check fails when it sees that warning.
include(CheckCXXSourceCompiles)
set(CMAKE_REQUIRED_LINK_OPTIONS LINKER:-z,pack-relative-relocs)
check_cxx_source_compiles("int main() {}" KEL_LINKER_RELR FAIL_REGEX "pack-relative-relocs ignored")
unset(CMAKE_REQUIRED_LINK_OPTIONS)
# Not every linker binds the calls within a library, or puts code and constants on the same pages.
include(CheckLinkerFlag)
check_linker_flag(CXX LINKER:-Bsymbolic-functions KEL_LINKER_BSYMBOLIC)
check_linker_flag(CXX LINKER:-z,noseparate-code KEL_LINKER_NOSEPARATE)

# How sources of a library are compiled.
function(kel_compila libreria)
  target_link_libraries(${libreria} PRIVATE $<BUILD_INTERFACE:kel_opzioni>)
  # A square root becomes one instruction. Without this option the compiler adds a call of the C library for negative
  # numbers, whose only effect is to set errno, which no function of the libraries reads or promises.
  target_compile_options(${libreria} PRIVATE -fno-math-errno)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "aarch64|arm64")
    # Otherwise a routine of the compiler's asks for the processor's atomic instructions when the library is loaded.
    target_compile_options(${libreria} PRIVATE -mno-outline-atomics)
  endif()
  if(NOT KEL_CONDIVISA)
    # A program's linker may leave out what it does not use (--gc-sections).
    target_compile_options(${libreria} PRIVATE -ffunction-sections -fdata-sections)
  endif()
  set_target_properties(${libreria} PROPERTIES
    POSITION_INDEPENDENT_CODE ON
    CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
endfunction()

# kel_libreria(TARGET MAP): shared or static; `MAP` is the list of what the shared one exports.
function(kel_libreria libreria mappa)
  if(KEL_CONDIVISA)
    add_library(${libreria} SHARED)
  else()
    add_library(${libreria} STATIC)
  endif()
  add_library(kelfunzioni::${libreria} ALIAS ${libreria})
  target_include_directories(${libreria} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_compile_features(${libreria} PUBLIC cxx_std_11)
  kel_compila(${libreria})
  target_link_libraries(${libreria} PRIVATE m)
  set_target_properties(${libreria} PROPERTIES
    VERSION ${PROJECT_VERSION}
    SOVERSION ${KEL_SOVERSION}
    LINK_DEPENDS ${mappa})
  target_link_options(${libreria} PRIVATE
    LINKER:--version-script=${mappa}
    LINKER:--no-undefined-version
    LINKER:-z,relro,-z,now
    LINKER:--gc-sections
    # Calls within a library go straight to the functions. For data there must be no such option: a program linked
    # without PIE has copies of the exported tables, and the rows that functions return must lie in these copies.
    $<$<BOOL:${KEL_LINKER_BSYMBOLIC}>:LINKER:-Bsymbolic-functions>
    # Code and constants share pages: three pages fewer to map, and no gaps in the file.
    $<$<BOOL:${KEL_LINKER_NOSEPARATE}>:LINKER:-z,noseparate-code>)
  if(KEL_LINKER_RELR)
    target_link_options(${libreria} PRIVATE LINKER:-z,pack-relative-relocs)
  endif()
  if(NOT KEL_SANITIZE)
    target_link_options(${libreria} PRIVATE LINKER:--no-undefined)
  endif()
endfunction()

# The pkg-config file. Its folders are taken from where it lies, so that a prefix may be moved.
function(kel_pkg_config libreria)
  file(RELATIVE_PATH KEL_PREFIX_DA_PC
    ${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
  string(REGEX REPLACE "/$" "" KEL_PREFIX_DA_PC "${KEL_PREFIX_DA_PC}")
  configure_file(${PROJECT_SOURCE_DIR}/cmake/${libreria}.pc.in ${PROJECT_BINARY_DIR}/${libreria}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${libreria}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()
