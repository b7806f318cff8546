# CLI11 and nlohmann/json take longer to compile than the rest of the tool:
# only main.cpp may include CLI11, and no header of the tool may include
# either, or each file that includes it pays for them again.
#   -DSOURCES=dir   the tool's sources
get_filename_component(SOURCES ${SOURCES} ABSOLUTE)
file(GLOB files RELATIVE ${SOURCES} ${SOURCES}/*.h ${SOURCES}/*.cpp)
set(faults)
foreach(file IN LISTS files)
  file(STRINGS ${SOURCES}/${file} includes REGEX "^#include <(CLI/|nlohmann/json.hpp)")
  if(includes AND (file MATCHES "\\.h$" OR (includes MATCHES "CLI/" AND NOT file STREQUAL "main.cpp")))
    list(APPEND faults "${file}: ${includes}")
  endif()
endforeach()
if(faults)
  list(JOIN faults "\n" faults)
  message(FATAL_ERROR "costly headers included where they shouldn't be:\n${faults}")
endif()
list(LENGTH files count)
message(STATUS "${count} files checked")
