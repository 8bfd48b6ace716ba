# Runs the applications that packages.cmake has built with the library as each platform needs it.
#
#     cmake -D SOURCE=<source root> -D WORK=<scratch of packages.cmake>
#           -D LIBRARY=<libmcuservice.so.1.0.0> -D SAMPLE=<build folder of the sample platforms>
#           -D COMPILER=<c++> -D FLAGS=<sanitizers> -D GENERATOR=<generator>
#           -P check.cmake
cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/functions.cmake)

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
