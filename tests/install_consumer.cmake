# Installs the build, moves the installed tree, then builds and runs the project
# in consumer/ against it, as somebody else's project would.
function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/staged)
file(RENAME ${WORK}/staged ${WORK}/prefix)
run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${SOURCE} -B ${WORK}/build -D simulation_ROOT=${WORK}/prefix
    ${SETTINGS})
run(${CMAKE_COMMAND} --build ${WORK}/build)
run(${CMAKE_CTEST_COMMAND} --test-dir ${WORK}/build --output-on-failure --no-tests=error)
