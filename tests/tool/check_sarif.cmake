# Writes SARIF logs of a few runs of optkw check and validates them against the
# schema; the test counts as skipped when the schema is not beside the clone.
#   -DTOOL -DPYTHON -DSCHEMA -DEXAMPLES -DCATALOG -DVALIDATE
if(NOT EXISTS ${SCHEMA})
  message("SARIF schema not found at ${SCHEMA}; skipped")
  return()
endif()
set(logs)
function(write_log name workdir)
  execute_process(COMMAND ${TOOL} check ${ARGN} --format sarif WORKING_DIRECTORY ${workdir}
    OUTPUT_FILE ${CMAKE_CURRENT_BINARY_DIR}/${name}.sarif)
  set(logs ${logs} ${CMAKE_CURRENT_BINARY_DIR}/${name}.sarif PARENT_SCOPE)
endfunction()
write_log(mistakes ${EXAMPLES} kestrel.def mistakes.opt -c "iters=x" -s "heuristics \"a#b\"" --write ${CMAKE_CURRENT_BINARY_DIR}/mistakes-written.opt)
write_log(clean ${EXAMPLES} kestrel.def kestrel.opt)
write_log(overflow ${CATALOG} catalog.def catalog.opt catalog-next.opt)
execute_process(COMMAND ${PYTHON} ${VALIDATE} ${SCHEMA} ${logs} RESULT_VARIABLE status
  OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "SARIF validation failed:\n${out}${err}")
endif()
message("${out}")
