# Installs the library in a separate folder and builds an application with it: by the CMake package,
# by pkg-config and by qmake. Runs the application on each platform.
#
#     cmake -D SOURCE=<source root> -D BUILD=<build folder> -D WORK=<scratch>
#           -D LIBRARY=<libmcuservice.so.1.0.0> -D SUBSTITUTE=<folder of the substitute's libraries>
#           -D SAMPLE=<build folder of the sample platforms>
#           -D COMPILER=<c++> -D QMAKE=<qmake> -D FLAGS=<sanitizers> -D GENERATOR=<generator>
#           -P check.cmake
cmake_minimum_required(VERSION 3.25)

function(run)
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output ECHO_OUTPUT_VARIABLE
                    COMMAND_ERROR_IS_FATAL ANY)
    set(output "${output}" PARENT_SCOPE)
endfunction()

# An application must link with the linker's defaults and without a platform.
set(ENV{LDFLAGS} "")
set(ENV{LD_LIBRARY_PATH} "")
file(REMOVE_RECURSE ${WORK}/own ${WORK}/pkg-config ${WORK}/qmake)
file(MAKE_DIRECTORY ${WORK}/pkg-config ${WORK}/qmake)
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/own)
file(GLOB_RECURSE package ${WORK}/own/*/mcuservice.pc)
get_filename_component(package ${package} DIRECTORY)
set(ENV{PKG_CONFIG_PATH} ${package})

run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR} -B ${WORK}/cmake -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${WORK}/own -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_CXX_FLAGS=${FLAGS})
run(${CMAKE_COMMAND} --build ${WORK}/cmake)

run(pkg-config --modversion mcuservice)
if(NOT output STREQUAL "1.0.0\n")
    message(FATAL_ERROR "pkg-config: version ${output}")
endif()
run(pkg-config --cflags --libs mcuservice)
separate_arguments(flags UNIX_COMMAND "${FLAGS} ${output}")
run(${COMPILER} -fPIC ${CMAKE_CURRENT_LIST_DIR}/main.cpp ${flags} -o ${WORK}/pkg-config/consumer)

run(${CMAKE_COMMAND} -E chdir ${WORK}/qmake ${QMAKE} ${CMAKE_CURRENT_LIST_DIR}/consumer.pro
    QMAKE_CXX=${COMPILER} QMAKE_LINK=${COMPILER} QMAKE_CXXFLAGS+=${FLAGS} QMAKE_LFLAGS+=${FLAGS})
run(make -C ${WORK}/qmake)

# expect(library platform output): every application that was linked above must print this output with
# the library installed in WORK/library and the libraries in the platform's folder.
function(expect library platform expected)
    file(GLOB_RECURSE folder ${WORK}/${library}/*/libmcuservice.so.1)
    get_filename_component(folder ${folder} DIRECTORY)
    foreach(application cmake pkg-config qmake)
        run(${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${folder}:${platform} LD_BIND_NOW=1
            ${WORK}/${application}/consumer)
        if(NOT output STREQUAL expected)
            message(SEND_ERROR "${application}, ${library} on ${platform}: ${output}")
        endif()
    endforeach()
endfunction()

set(on_substitute "version \n")
set(on_sample "init\nsendVehicleSpeed 42\nspeed 42\nHDR_DabRequestScan\nversion sample 1\n")
expect(own ${SUBSTITUTE} ${on_substitute})

# build(library platform sonames): builds the library with these settings and installs it in
# WORK/library. All use one build folder, so that the second and the third are only linked.
function(build library platform sonames)
    execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK}/library -G ${GENERATOR}
                            -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_BUILD_TYPE=Debug
                            -DBUILD_TESTING=OFF -DMCUSERVICE_SIMULATOR=OFF
                            -DMCUSERVICE_PLATFORM_DIR=${platform}
                            "-DMCUSERVICE_SERVICES_SONAMES=${sonames}"
                    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    run(${CMAKE_COMMAND} --build ${WORK}/library)
    run(${CMAKE_COMMAND} --install ${WORK}/library --prefix ${WORK}/${library})
endfunction()

if(NOT FLAGS)
    file(READ ${SOURCE}/docs/integration.md page)
    foreach(services one split)
        file(READ ${SAMPLE}/${services}/cmake/McuPlatformConfig.cmake config)
        string(FIND "${page}" "${config}" at)
        if(at EQUAL -1)
            message(SEND_ERROR "docs/integration.md does not show this:\n${config}")
        endif()
        build(${services} ${SAMPLE}/${services}/cmake "")
        expect(${services} ${SAMPLE}/${services}/lib ${on_sample})
    endforeach()
    build(swapped "" "libsamplemedia.so.1;libsamplesettings.so.1")
    expect(swapped ${WORK}/library/platform/substitute ${on_substitute})
    expect(swapped ${SAMPLE}/split/lib ${on_sample})
endif()

run(objdump -p ${LIBRARY})
if(NOT output MATCHES "SONAME +libmcuservice\\.so\\.1\n")
    message(FATAL_ERROR "wrong soname: ${output}")
endif()

include(${CMAKE_CURRENT_LIST_DIR}/../../cmake/ExportedSymbols.cmake)
