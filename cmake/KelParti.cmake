# Parts of the project that need more than the compilers. Each is ON, OFF or AUTO. AUTO, the choice of whoever chooses
# nothing, builds the part when all that it needs is here, and says in one line what it was left out for. ON stops there.
#
# Another need of a part is one more line with kel_serve or kel_serve_intestazione, before kel_decidi.

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

# A part needs something: what, the Debian package that brings it, and the variable that says whether it is here.
function(kel_serve opzione cosa pacchetto variabile)
  if(NOT ${variabile})
    set_property(GLOBAL APPEND PROPERTY KEL_MANCA_${opzione} "${cosa} (${pacchetto})")
  endif()
endfunction()

# A part needs a header. Its folder goes into the variable. Headers alone are for any machine: those of this one serve when
# cross-compiling.
function(kel_serve_intestazione opzione intestazione pacchetto variabile)
  find_path(${variabile} ${intestazione} NO_CMAKE_FIND_ROOT_PATH)
  mark_as_advanced(${variabile})
  kel_serve(${opzione} "the header ${intestazione}" ${pacchetto} ${variabile})
endfunction()

# Decides on a part, of which all needs are known: its variable is ON or OFF from here on.
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
    message(FATAL_ERROR "${parte}: missing ${manca}. Bring what is in brackets, or configure with -D${opzione}=OFF.")
  endif()
  set(${opzione} ${si} PARENT_SCOPE)
endfunction()
