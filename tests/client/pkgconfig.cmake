# Builds one C99 program with the flags that pkg-config gives, and nothing else of ours.
set(ENV{PKG_CONFIG_LIBDIR} ${PREFISSO}/${LIBDIR}/pkgconfig)
execute_process(COMMAND ${PKG_CONFIG} --cflags --libs ${MODULO}
  OUTPUT_VARIABLE da_pkg_config OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
# The source first: the libraries are for what stands before them. Its path is one argument, whatever blanks it has.
separate_arguments(opzioni UNIX_COMMAND "${OPZIONI}")
separate_arguments(da_pkg_config UNIX_COMMAND "${da_pkg_config}")
execute_process(
  COMMAND ${CC} -std=c99 -pedantic-errors -Wall -Wextra -Werror ${opzioni} ${SORGENTE} ${da_pkg_config}
    -Wl,-rpath,${PREFISSO}/${LIBDIR} -o ${PROGRAMMA}
  COMMAND_ERROR_IS_FATAL ANY COMMAND_ECHO STDOUT)
