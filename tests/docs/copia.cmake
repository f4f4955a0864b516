# Builds the examples as their readers do: a copy of the folder, against an installed library.
file(REMOVE_RECURSE ${CARTELLA})
file(COPY ${SORGENTE}/ DESTINATION ${CARTELLA}/examples)
set(comando ${CMAKE_COMMAND} -S ${CARTELLA}/examples -B ${CARTELLA}/build -G ${GENERATORE} --no-warn-unused-cli
  -DCMAKE_BUILD_TYPE=Release -DCMAKE_C_COMPILER=${CC} -DCMAKE_CXX_COMPILER=${CXX}
  -DCMAKE_C_FLAGS=${OPZIONI} -DCMAKE_CXX_FLAGS=${OPZIONI}
  -Dkelfunzioni_ROOT=${PREFISSO})
if(TOOLCHAIN)
  list(APPEND comando -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN})
endif()
execute_process(COMMAND ${comando} COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${CARTELLA}/build COMMAND_ERROR_IS_FATAL ANY)
