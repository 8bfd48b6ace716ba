# Installs the library into a folder of its own and uses it there as an application would: by the
# CMake package, by pkg-config, and with nothing to link against but the public classes.
#
#     cmake -D BUILD=<build folder> -D WORK=<scratch> -D LIBRARY=<libmcuservice.so.1.0.0>
#           -D PLATFORM=<folder of the platform libraries> -D COMPILER=<c++> -D FLAGS=<flags>
#           -D GENERATOR=<generator>
#           -P check.cmake
cmake_minimum_required(VERSION 3.25)

function(run)
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
    set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK})
set(prefix ${WORK}/prefix)
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix})
file(GLOB_RECURSE installed ${prefix}/*/libmcuservice.so.1)
get_filename_component(libraries "${installed}" DIRECTORY)
set(ENV{LD_LIBRARY_PATH} ${libraries}:${PLATFORM})
set(ENV{PKG_CONFIG_PATH} ${libraries}/pkgconfig)
# The platform libraries come with the head unit, beside the system's own.
set(platform -Wl,-rpath-link,${PLATFORM})

run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR} -B ${WORK}/build -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${prefix}
    -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_CXX_FLAGS=${FLAGS}
    "-DCMAKE_EXE_LINKER_FLAGS=\"${platform}\"")
run(${CMAKE_COMMAND} --build ${WORK}/build)
run(${WORK}/build/consumer)

run(pkg-config --modversion mcuservice)
if(NOT output STREQUAL "1.0.0\n")
    message(FATAL_ERROR "pkg-config: version ${output}")
endif()
run(pkg-config --cflags --libs mcuservice)
separate_arguments(flags UNIX_COMMAND "${FLAGS} ${output}")
run(${COMPILER} -std=c++17 -fPIC ${CMAKE_CURRENT_LIST_DIR}/main.cpp ${flags} ${platform}
    -o ${WORK}/consumer)
run(${WORK}/consumer)

run(objdump -p ${LIBRARY})
if(NOT output MATCHES "SONAME +libmcuservice\\.so\\.1\n")
    message(FATAL_ERROR "wrong soname: ${output}")
endif()

include(${CMAKE_CURRENT_LIST_DIR}/../../cmake/ExportedSymbols.cmake)
