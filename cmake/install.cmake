# Installs libsimulation, its workstation stand-ins for the device's services, the program
# that gives others a data folder, and the packages that find_package(simulation) and
# pkg-config find, and simrec with its man page and what shells complete its calls by. The
# tree can be moved.
include(CMakePackageConfigHelpers)

set_target_properties(simulation_platform PROPERTIES EXPORT_NAME platform)
add_library(simulation::platform ALIAS simulation_platform)
set_target_properties(simulation PROPERTIES INSTALL_RPATH $ORIGIN)

# The headers of the stand-ins are off the path of a consumer of
# simulation::simulation; a host program that replaces the log, the properties or
# the memory services links simulation::platform for them.
set(platform_headers ${CMAKE_INSTALL_INCLUDEDIR}/simulation/platform)
target_include_directories(simulation_platform PUBLIC $<INSTALL_INTERFACE:${platform_headers}>)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/simulation)
configure_package_config_file(cmake/simulationConfig.cmake.in simulationConfig.cmake
                              INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(simulationConfigVersion.cmake COMPATIBILITY SameMajorVersion)

# Found from the file's own place, so that the tree can be moved.
file(RELATIVE_PATH pc_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(cmake/simulation.pc.in simulation.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/simulation.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

set_target_properties(simulation_sandbox PROPERTIES EXPORT_NAME sandbox)
install(TARGETS simulation simulation_platform simulation_sandbox EXPORT simulationTargets)
install(EXPORT simulationTargets NAMESPACE simulation:: DESTINATION ${package_folder})
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY platform/include/ DESTINATION ${platform_headers})
if(SIMULATION_SIMREC)
  install(TARGETS simrec_program)
  install(FILES doc/simrec.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES simrec/cli/shell/simrec.bash RENAME simrec
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  install(FILES simrec/cli/shell/_simrec DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
endif()
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/simulationConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/simulationConfigVersion.cmake
        DESTINATION ${package_folder})
