# What an integrator gets: the library, its public headers, a CMake package and a pkg-config file.
include(CMakePackageConfigHelpers)

# docs/Doxyfile lists them too.
set(public_headers
    autotest/autotesthandler.h
    include/debug.h
    include/mcuserviceexport.h
    manager/mcumanager.h
    radio/mcuradiointerface.h
    radio/radiostringconnver.h
    service/mcuservice.h
    service/setupinfo.h
    vehicle/mcuvechiclebridge.h)

set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/mcuservice)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/McuService)

target_include_directories(mcuservice PUBLIC $<INSTALL_INTERFACE:${header_folder}>)
# Applications are also linked where the head unit's platform is not at hand.
target_link_options(mcuservice INTERFACE $<INSTALL_INTERFACE:LINKER:--allow-shlib-undefined>)
install(TARGETS mcuservice EXPORT McuServiceTargets)
install(FILES ${public_headers} DESTINATION ${header_folder})
install(EXPORT McuServiceTargets NAMESPACE McuService:: DESTINATION ${package_folder})

configure_package_config_file(cmake/McuServiceConfig.cmake.in McuServiceConfig.cmake
                              INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(McuServiceConfigVersion.cmake COMPATIBILITY SameMajorVersion)
# Relative to itself, so that an install under another prefix is found as well.
set(pkgconfig_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH pkgconfig_to_prefix /${pkgconfig_folder} /)
configure_file(cmake/mcuservice.pc.in mcuservice.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/McuServiceConfig.cmake
              ${PROJECT_BINARY_DIR}/McuServiceConfigVersion.cmake
        DESTINATION ${package_folder})
install(FILES ${PROJECT_BINARY_DIR}/mcuservice.pc DESTINATION ${pkgconfig_folder})
