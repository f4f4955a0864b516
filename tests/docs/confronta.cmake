# Runs PROGRAMMA (through EMULATORE, where there is one) in CARTELLA, and compares what it prints with the file ATTESO.
file(MAKE_DIRECTORY ${CARTELLA})
execute_process(COMMAND ${EMULATORE} ${PROGRAMMA}
  WORKING_DIRECTORY ${CARTELLA}
  OUTPUT_VARIABLE stampato
  RESULT_VARIABLE esito)
if(NOT esito EQUAL 0)
  message(FATAL_ERROR "${PROGRAMMA} ended with ${esito}, having printed:\n${stampato}")
endif()
file(READ ${ATTESO} atteso)
if(NOT stampato STREQUAL atteso)
  file(WRITE ${CARTELLA}/stampato.txt "${stampato}")
  execute_process(COMMAND diff -u ${ATTESO} ${CARTELLA}/stampato.txt)
  message(FATAL_ERROR "${PROGRAMMA} printed something else than ${ATTESO}; where that is meant, copy "
    "${CARTELLA}/stampato.txt over it")
endif()
