# What LIBRARY makes the camera process load: the platform, tinyxml2, and what the
# compiler itself (with its sanitizers) puts there.
execute_process(COMMAND ${READELF} -d ${LIBRARY} OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "[" "<" output "${output}")  # a bracket keeps a list together
string(REGEX MATCHALL "\\(NEEDED\\)[^\n]*<[^.]*" entries "${output}")
set(needed "")
foreach(entry ${entries})
  string(REGEX REPLACE ".*<(lib)?" "" name "${entry}")
  list(APPEND needed ${name})
endforeach()
list(REMOVE_ITEM needed c m gcc_s stdc++ c++ c++abi unwind pthread dl rt asan ubsan tsan
     ld-linux-x86-64 ld-linux-aarch64)
list(SORT needed)
if(NOT needed STREQUAL "simulation_platform;tinyxml2")
  message(FATAL_ERROR "libsimulation needs: ${needed}")
endif()
