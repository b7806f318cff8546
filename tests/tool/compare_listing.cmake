# Runs `optkw help DEF MODE` as the library renders it and again put together
# piece by piece (--piecewise), and requires the very same output for each mode.
#   -DTOOL=path -DWORKDIR=dir -DDEF=file -DMODES=1|2|3
string(REPLACE "|" ";" modes "${MODES}")
foreach(mode IN LISTS modes)
  execute_process(COMMAND ${TOOL} help ${DEF} ${mode} WORKING_DIRECTORY ${WORKDIR}
    RESULT_VARIABLE whole_status OUTPUT_VARIABLE whole ERROR_QUIET)
  execute_process(COMMAND ${TOOL} help ${DEF} ${mode} --piecewise WORKING_DIRECTORY ${WORKDIR}
    RESULT_VARIABLE pieces_status OUTPUT_VARIABLE pieces ERROR_VARIABLE pieces_err)
  if(NOT whole STREQUAL pieces OR NOT whole_status EQUAL pieces_status)
    message(FATAL_ERROR "mode ${mode} of ${DEF}: the listing put together differs from the "
      "library's (status ${pieces_status} against ${whole_status}):\n${pieces}\n${pieces_err}")
  endif()
endforeach()
