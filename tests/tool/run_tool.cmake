# Runs the optkw tool as a user would and compares its exit status and output
# with what is expected.
#   -DTOOL=path -DWORKDIR=dir -DSTATUS=n -DARGS=a|b|c
#   -DSTDOUT=file          standard output must equal this file
#   -DREADME=file          standard output must equal the README's main-job output
#   -DSTDERR_HAS=a|b       standard error must contain each of these texts
#   -DSTDERR_LACKS=text    standard error must not contain this text
#   -DSTDOUT_HAS=a|b       standard output must contain each of these texts
string(REPLACE "|" ";" args "${ARGS}")
execute_process(COMMAND ${TOOL} ${args}
  WORKING_DIRECTORY ${WORKDIR}
  RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT status EQUAL STATUS)
  message(FATAL_ERROR "exit status ${status}, expected ${STATUS}\nstdout:\n${out}\nstderr:\n${err}")
endif()
if(DEFINED STDOUT)
  file(READ ${STDOUT} expected)
  if(NOT out STREQUAL expected)
    message(FATAL_ERROR "standard output differs from ${STDOUT}:\n${out}")
  endif()
endif()
if(DEFINED README)
  file(READ ${README} readme)
  string(REGEX MATCH "<!-- main-job-output -->\n```\n(.*)```\n<!-- /main-job-output -->" found "${readme}")
  if(NOT found OR NOT out STREQUAL CMAKE_MATCH_1)
    message(FATAL_ERROR "the README shows other output than the tool prints:\n${out}")
  endif()
endif()
if(DEFINED STDERR_HAS)
  string(REPLACE "|" ";" wanted "${STDERR_HAS}")
  foreach(text IN LISTS wanted)
    string(FIND "${err}" "${text}" at)
    if(at EQUAL -1)
      message(FATAL_ERROR "standard error lacks \"${text}\":\n${err}")
    endif()
  endforeach()
endif()
if(DEFINED STDOUT_HAS)
  string(REPLACE "|" ";" wanted "${STDOUT_HAS}")
  foreach(text IN LISTS wanted)
    string(FIND "${out}" "${text}" at)
    if(at EQUAL -1)
      message(FATAL_ERROR "standard output lacks \"${text}\":\n${out}")
    endif()
  endforeach()
endif()
if(DEFINED STDERR_LACKS)
  string(FIND "${err}" "${STDERR_LACKS}" at)
  if(NOT at EQUAL -1)
    message(FATAL_ERROR "standard error holds \"${STDERR_LACKS}\":\n${err}")
  endif()
endif()
