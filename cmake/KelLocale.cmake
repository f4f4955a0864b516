# A locale that groups digits and writes a decimal comma, for a second run of every test. KEL_LOCALE_QUI says whether it
# could be made. Tests in an emulator do not use it.
set(KEL_LOCALE it_IT.UTF-8)
set(KEL_LOCPATH ${PROJECT_BINARY_DIR}/tests/locale)
set(KEL_LOCALE_QUI ON)
if(NOT CMAKE_CROSSCOMPILING)
  find_program(KEL_LOCALEDEF localedef)
  mark_as_advanced(KEL_LOCALEDEF)
  if(KEL_LOCALEDEF AND NOT EXISTS ${KEL_LOCPATH}/${KEL_LOCALE}/LC_NUMERIC)
    file(MAKE_DIRECTORY ${KEL_LOCPATH})
    execute_process(COMMAND ${KEL_LOCALEDEF} --no-archive -i it_IT -f UTF-8 ${KEL_LOCPATH}/${KEL_LOCALE}
      OUTPUT_QUIET ERROR_QUIET)
  endif()
  if(NOT EXISTS ${KEL_LOCPATH}/${KEL_LOCALE}/LC_NUMERIC)
    set(KEL_LOCALE_QUI OFF)
  endif()
endif()
