# Runs the catalog converter of the examples and requires the committed
# definition as its output.
#   -DPYTHON=path -DSCRIPT=file -DCATALOG=file -DEXPECTED=file -DOUTPUT=file
execute_process(COMMAND ${PYTHON} ${SCRIPT} ${CATALOG} -o ${OUTPUT}
  RESULT_VARIABLE status ERROR_VARIABLE notes)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "the converter failed (${status}):\n${notes}")
endif()
file(READ ${OUTPUT} made)
file(READ ${EXPECTED} expected)
if(NOT made STREQUAL expected)
  message(FATAL_ERROR "the converter's output differs from ${EXPECTED}:\n${made}")
endif()
