# Installs the build, moves the installed tree, then builds and runs the project
# in consumer/ against it, as somebody else's project would, with the example of the README.
function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/staged)
file(RENAME ${WORK}/staged ${WORK}/prefix)

file(READ ${README} readme)
if(NOT readme MATCHES "```cpp\n([^`]*)```")
  message(FATAL_ERROR "no example in ${README}")
endif()
file(WRITE ${WORK}/example.cpp "${CMAKE_MATCH_1}")

if(SIMREC)
  foreach(file bin/simrec share/man/man1/simrec.1 share/bash-completion/completions/simrec
               share/zsh/site-functions/_simrec)
    if(NOT EXISTS ${WORK}/prefix/${file})
      message(FATAL_ERROR "not installed: ${file}")
    endif()
  endforeach()
endif()
if(PYTHON)
  run(${CMAKE_COMMAND} -E env PYTHONPATH=${WORK}/prefix/${PYTHON_FOLDER} ${PYTHON} -c
      "import simrec, os; assert simrec.__file__.startswith(os.environ['PYTHONPATH']), simrec")
endif()
run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${SOURCE} -B ${WORK}/build -D simulation_ROOT=${WORK}/prefix
    -D EXAMPLE=${WORK}/example.cpp ${SETTINGS})
run(${CMAKE_COMMAND} --build ${WORK}/build)
run(${CMAKE_CTEST_COMMAND} --test-dir ${WORK}/build --output-on-failure --no-tests=error)
