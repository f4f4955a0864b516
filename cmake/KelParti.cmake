# Parts of the project that need more than the compilers. Each is ON, OFF or AUTO, the default. AUTO builds the part
# when all that it needs is installed; else it leaves the part out and names what is missing. ON makes a missing need an
# error.
#
# A need is declared with kel_serve or kel_serve_intestazione, after kel_parte and before kel_decidi.

# Declares a part.
function(kel_parte opzione descrizione)
  set(predefinito OFF)
  if(PROJECT_IS_TOP_LEVEL)
    set(predefinito AUTO)
  endif()
  set(${opzione} ${predefinito} CACHE STRING "${descrizione}: ON, OFF, or AUTO, which is ON when all that it needs is here")
  set_property(CACHE ${opzione} PROPERTY STRINGS AUTO ON OFF)
  set_property(GLOBAL PROPERTY KEL_MANCA_${opzione} "")
endfunction()

# Declares a need of a part: what, the Debian package that has it, and the variable that says whether it is installed.
function(kel_serve opzione cosa pacchetto variabile)
  if(NOT ${variabile})
    set_property(GLOBAL APPEND PROPERTY KEL_MANCA_${opzione} "${cosa} (${pacchetto})")
  endif()
endfunction()

# Declares that a part needs a header, and stores its folder in the variable. Header-only libraries are the same for
# every target, so those of this machine are used when cross-compiling, too.
function(kel_serve_intestazione opzione intestazione pacchetto variabile)
  find_path(${variabile} ${intestazione} NO_CMAKE_FIND_ROOT_PATH)
  mark_as_advanced(${variabile})
  kel_serve(${opzione} "the header ${intestazione}" ${pacchetto} ${variabile})
endfunction()

# Sets the variable of a part to ON or OFF, when all its needs have been declared.
function(kel_decidi opzione parte)
  get_property(manca GLOBAL PROPERTY KEL_MANCA_${opzione})
  list(JOIN manca ", " manca)
  set(si ${${opzione}})
  if(si STREQUAL "AUTO")
    set(si ON)
    if(manca)
      set(si OFF)
      message(STATUS "Left out: ${parte}, for want of ${manca}")
    endif()
  elseif(si AND manca)
    message(FATAL_ERROR "${parte}: missing ${manca}. Install the package in brackets, or configure with -D${opzione}=OFF.")
  endif()
  set(${opzione} ${si} PARENT_SCOPE)
endfunction()
