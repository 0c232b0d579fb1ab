# The names that LIBRARY shows to the world are those in the file EXPECTED, one a line in the order
# of the alphabet, and each is declared in HEADER.
# SPDX-License-Identifier: MIT
execute_process(COMMAND ${NM} -D --defined-only ${LIBRARY} OUTPUT_VARIABLE symbols
  COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[0-9a-f]+ [A-Za-z] [^\n]+" symbols "${symbols}")
list(TRANSFORM symbols REPLACE "^[0-9a-f]+ [A-Za-z] " "")
list(SORT symbols)
file(STRINGS ${EXPECTED} expected)
if(NOT symbols STREQUAL expected)
  set(extra ${symbols})
  list(REMOVE_ITEM extra ${expected})
  list(REMOVE_ITEM expected ${symbols})
  message(FATAL_ERROR "exported but not listed: ${extra}\nlisted but not exported: ${expected}")
endif()
file(READ ${HEADER} header)
foreach(name IN LISTS symbols)
  if(NOT header MATCHES "[ *\n]${name}\\(")
    message(FATAL_ERROR "exported but not declared: ${name}")
  endif()
endforeach()
