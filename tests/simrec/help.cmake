# Each command and option that simrec's help tells of stands in the man page and the document,
# and is offered to shells; each command's help ends with its statuses and examples. Then bash
# completes a few words.
function(simrec result)
  execute_process(COMMAND ${EMULATOR} ${SIMREC} ${ARGN} OUTPUT_VARIABLE output
                  COMMAND_ERROR_IS_FATAL ANY)
  set(${result} "${output}" PARENT_SCOPE)
endfunction()

function(expect text part what)
  string(FIND "${text}" "${part}" at)
  if(at EQUAL -1)
    message(SEND_ERROR "${what} lacks: ${part}")
  endif()
endfunction()

file(READ ${SOURCE}/doc/simrec.1 man)
string(REPLACE "\\-" "-" man "${man}")
file(READ ${SOURCE}/doc/simrec.md document)

# What stands in the first column of a help's list.
function(names_in help pattern result)
  string(REGEX MATCHALL "\n  [-a-zA-Z,]+" rows "${help}")
  string(REGEX MATCHALL "${pattern}" names "${rows}")
  set(${result} "${names}" PARENT_SCOPE)
endfunction()

simrec(help help)
string(REGEX REPLACE ".*\nSubcommands:" "" subcommands "${help}")
string(REGEX REPLACE "\n\n.*" "" subcommands "${subcommands}")
names_in("${subcommands}" "[a-z]+" commands)
list(LENGTH commands count)
if(count LESS 5)
  message(SEND_ERROR "simrec help lists: ${commands}")
endif()
simrec(offered complete)
foreach(command ${commands})
  expect("${offered}" "${command}\t" "completion")
  expect("${man}" "\n.SS ${command}\n" "the man page")
  expect("${document}" "\n## simrec ${command}" "doc/simrec.md")
  simrec(help help ${command})
  expect("${help}" "Usage: simrec ${command}" "help ${command}")
  expect("${help}" "\nExit status: 0 " "help ${command}")
  expect("${help}" "\nExamples:\n  simrec " "help ${command}")
  simrec(options complete ${command} -)
  names_in("${help}" "--[-a-z]+" names)
  # The page tells of --help once, for all.
  string(REGEX REPLACE ".*\n.SS ${command}\n" "" section "${man}")
  string(REGEX REPLACE "\n.S[SH] .*" "" section "${section}")
  foreach(option ${names})
    expect("${options}" "${option}\t" "completion of ${command}")
    if(NOT option STREQUAL "--help")
      expect("${section}" "${option}" "the man page on ${command}")
    endif()
  endforeach()
endforeach()

find_program(BASH bash)
if(BASH AND NOT EMULATOR)
  set(script "source '${SOURCE}/simrec/cli/shell/simrec.bash'
    COMP_WORDS=('${SIMREC}' list --sort = t) COMP_CWORD=4; _simrec; echo \"\${COMPREPLY[@]}\"
    COMP_WORDS=('${SIMREC}' show 'x\\ y' ACB_acb_) COMP_CWORD=3; _simrec; echo \"\${COMPREPLY[@]}\"
    COMP_WORDS=('${SIMREC}' sh) COMP_CWORD=1; _simrec; echo \"\${COMPREPLY[@]}\"")
  execute_process(COMMAND ${BASH} -c "${script}" OUTPUT_VARIABLE output)
  if(NOT output STREQUAL "time\nACB_acb_orientation\nshow\n")
    message(SEND_ERROR "bash completes to:\n${output}")
  endif()
endif()
