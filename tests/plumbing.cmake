# Tests of what the build delivers: the exported symbols, the host program, the
# installed package.
add_test(NAME exported_symbols
  COMMAND ${CMAKE_COMMAND} -D NM=${CMAKE_NM} -D LIBRARY=$<TARGET_FILE:simulation>
          -D EXPECTED=${CMAKE_CURRENT_LIST_DIR}/exported_symbols.txt
          -P ${CMAKE_CURRENT_LIST_DIR}/exported_symbols.cmake)

if(TARGET capture_session)
  add_test(NAME host_program
    COMMAND ${CMAKE_CURRENT_LIST_DIR}/host_program.sh ${CMAKE_CURRENT_BINARY_DIR}/host_program
            ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:capture_session>)
endif()

add_test(NAME needed_libraries
  COMMAND ${CMAKE_COMMAND} -D READELF=${CMAKE_READELF} -D LIBRARY=$<TARGET_FILE:simulation>
          -P ${CMAKE_CURRENT_LIST_DIR}/needed_libraries.cmake)

if(SIMULATION_SIMREC)
  add_test(NAME simrec_help
    COMMAND ${CMAKE_COMMAND} -D SIMREC=$<TARGET_FILE:simrec_program> -D SOURCE=${PROJECT_SOURCE_DIR}
            "-D EMULATOR=${CMAKE_CROSSCOMPILING_EMULATOR}"
            -P ${CMAKE_CURRENT_LIST_DIR}/simrec/help.cmake)
endif()
if(SIMULATION_SIMREC AND TARGET capture_session)
  add_test(NAME operators_way
    COMMAND ${CMAKE_CURRENT_LIST_DIR}/simrec/operators_way.sh
            ${CMAKE_CURRENT_BINARY_DIR}/operators_way $<TARGET_FILE:capture_session>
            $<TARGET_FILE:simrec_program> ${CMAKE_CROSSCOMPILING_EMULATOR})
endif()

find_package(Python3 COMPONENTS Interpreter)
if(SIMULATION_SIMREC AND TARGET capture_session AND Python3_FOUND)
  add_test(NAME simrec_questions
    COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/simrec/questions.py
            $<TARGET_FILE:simrec_program> $<TARGET_FILE:capture_session>
            ${PROJECT_SOURCE_DIR}/doc/simrec.md)
  # The host program's library keeps some documents on purpose.
  set_tests_properties(simrec_questions PROPERTIES ENVIRONMENT ASAN_OPTIONS=detect_leaks=0)
endif()

# The consumer is built as this build is: same compiler, flags and emulator.
set(consumer_settings "")
foreach(setting CMAKE_BUILD_TYPE CMAKE_CXX_FLAGS CMAKE_TOOLCHAIN_FILE)
  list(APPEND consumer_settings "-D${setting}=${${setting}}")
endforeach()
if(NOT CMAKE_TOOLCHAIN_FILE)
  list(APPEND consumer_settings -DCMAKE_CXX_COMPILER=${CMAKE_CXX_COMPILER})
endif()
set(installed_module "")
if(TARGET simrec_python)
  set(installed_module -D PYTHON=${SIMULATION_PYTHON_INTERPRETER}
      -D PYTHON_FOLDER=${SIMULATION_PYTHON_FOLDER})
endif()
add_test(NAME install_consumer
  COMMAND ${CMAKE_COMMAND} -D BUILD=${PROJECT_BINARY_DIR} -D GENERATOR=${CMAKE_GENERATOR}
          -D SOURCE=${CMAKE_CURRENT_LIST_DIR}/consumer -D WORK=${CMAKE_CURRENT_BINARY_DIR}/consumer
          -D README=${PROJECT_SOURCE_DIR}/README.md
          -D SIMREC=${SIMULATION_SIMREC} ${installed_module} "-D SETTINGS=${consumer_settings}" -P ${CMAKE_CURRENT_LIST_DIR}/install_consumer.cmake)
