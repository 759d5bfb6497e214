# Compares what LIBRARY exports with the names in the file EXPECTED, which are the
# ABI. After a wanted change:
#   nm -D --defined-only build/release/libsimulation.so | sed 's/.* //; s/B5cxx11//' | LC_ALL=C sort
execute_process(COMMAND ${NM} -D --defined-only ${LIBRARY} OUTPUT_VARIABLE output
                COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "[^\n]* ([^\n]+)\n" "\\1;" exported "${output}")
# The tag that only the workstation's standard library puts on its strings.
string(REPLACE "B5cxx11" "" exported "${exported}")
file(STRINGS ${EXPECTED} expected)

set(added ${exported})
list(REMOVE_ITEM added ${expected} "")
set(gone ${expected})
list(REMOVE_ITEM gone ${exported} "")
if(added OR gone)
  list(JOIN added "\n  " added)
  list(JOIN gone "\n  " gone)
  message(FATAL_ERROR "exported but not listed:\n  ${added}\nlisted but not exported:\n  ${gone}")
endif()
