# Cross-compiles for a 64-bit (arm64) or 32-bit (armhf) ARM head unit, and runs the tests under
# emulation. MCUSERVICE_ARM chooses; .ci/arm unpacks the processor's Debian packages for it.
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES MCUSERVICE_ARM)
set(arm64 aarch64 aarch64-linux-gnu)
set(armhf arm arm-linux-gnueabihf)
list(GET ${MCUSERVICE_ARM} 0 CMAKE_SYSTEM_PROCESSOR)
list(GET ${MCUSERVICE_ARM} 1 triple)

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_CXX_COMPILER ${triple}-g++)
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi) # notes on the interface of GCC before 7
set(CMAKE_LIBRARY_ARCHITECTURE ${triple})
get_filename_component(CMAKE_SYSROOT ${CMAKE_CURRENT_LIST_DIR}/../build/sysroot/${MCUSERVICE_ARM}
                       ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-${CMAKE_SYSTEM_PROCESSOR} -L ${CMAKE_SYSROOT})
# Only libraries for this processor are found. The linker does not find the platform that the library
# loads; an application is not linked with it.
set(ENV{PKG_CONFIG_LIBDIR} ${CMAKE_SYSROOT}/usr/lib/${triple}/pkgconfig)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${CMAKE_SYSROOT})
set(CMAKE_EXE_LINKER_FLAGS_INIT -Wl,--allow-shlib-undefined)
