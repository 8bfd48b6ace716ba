# Installs the library; for development its public headers, those of the platform contract, a CMake
# package and a pkg-config file. Each component is a Debian package, too.
include(CMakePackageConfigHelpers)

# Private headers end in _p.h.
file(GLOB public_headers CONFIGURE_DEPENDS include/*.h vehicle/*.h radio/*.h service/*.h autotest/*.h
                                           manager/*.h)
list(FILTER public_headers EXCLUDE REGEX "_p\\.h$")

set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/mcuservice)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/McuService)

target_include_directories(mcuservice PUBLIC $<INSTALL_INTERFACE:${header_folder}>)
# Applications must also link on machines without the head unit's platform.
target_link_options(mcuservice INTERFACE $<INSTALL_INTERFACE:LINKER:--allow-shlib-undefined>)
install(TARGETS mcuservice EXPORT McuServiceTargets
        LIBRARY COMPONENT library NAMELINK_COMPONENT development)
install(FILES ${public_headers} DESTINATION ${header_folder} COMPONENT development)
install(DIRECTORY platform/contract DESTINATION ${header_folder} COMPONENT development)
install(EXPORT McuServiceTargets NAMESPACE McuService:: DESTINATION ${package_folder}
        COMPONENT development)

configure_package_config_file(cmake/McuServiceConfig.cmake.in McuServiceConfig.cmake
                              INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(McuServiceConfigVersion.cmake COMPATIBILITY SameMajorVersion)
# The prefix is relative to the .pc file, so that an installation under another prefix works too.
set(pkgconfig_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH pkgconfig_to_prefix /${pkgconfig_folder} /)
configure_file(cmake/mcuservice.pc.in mcuservice.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/McuServiceConfig.cmake
              ${PROJECT_BINARY_DIR}/McuServiceConfigVersion.cmake
        DESTINATION ${package_folder} COMPONENT development)
install(FILES ${PROJECT_BINARY_DIR}/mcuservice.pc DESTINATION ${pkgconfig_folder}
        COMPONENT development)
