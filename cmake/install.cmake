# Installs libsimulation, its workstation stand-ins for the device's services and
# the package that find_package(simulation) finds. The tree can be moved.
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

install(TARGETS simulation simulation_platform EXPORT simulationTargets)
install(EXPORT simulationTargets NAMESPACE simulation:: DESTINATION ${package_folder})
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY platform/include/ DESTINATION ${platform_headers})
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/simulationConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/simulationConfigVersion.cmake
        DESTINATION ${package_folder})
