# What the project's libraries have in common: how they are compiled, what they show and how they are linked.

# The addresses in the tables as one bit each in place of a record each, where linker and C library know how.
# GNU ld of the other machines accepts the option, and only says that it ignores it.
include(CheckCXXSourceCompiles)
set(CMAKE_REQUIRED_LINK_OPTIONS LINKER:-z,pack-relative-relocs)
check_cxx_source_compiles("int main() {}" KEL_LINKER_RELR FAIL_REGEX "pack-relative-relocs ignored")
unset(CMAKE_REQUIRED_LINK_OPTIONS)

# How sources of a library are compiled.
function(kel_compila libreria)
  target_link_libraries(${libreria} PRIVATE $<BUILD_INTERFACE:kel_opzioni>)
  # Nobody looks at errno: a square root is one instruction, and not also a call.
  target_compile_options(${libreria} PRIVATE -fno-math-errno)
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
    SOVERSION 0
    LINK_DEPENDS ${mappa})
  target_link_options(${libreria} PRIVATE
    LINKER:--version-script=${mappa}
    LINKER:--no-undefined-version
    LINKER:-z,relro,-z,now
    LINKER:--gc-sections
    # The library's own calls go straight to its functions. Data stay as they are: a program linked without PIE holds copies
    # of the tables, and the rows that it is handed must lie in them.
    LINKER:-Bsymbolic-functions
    # Code and constants on the same pages: three pages fewer to map, and no gaps between them in the file.
    LINKER:-z,noseparate-code)
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
