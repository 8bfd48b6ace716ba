# Runs the applications that packages.cmake has built with the library as each platform needs it.
#
#     cmake -D SOURCE=<source root> -D WORK=<scratch of packages.cmake>
#           -D LIBRARY=<libmcuservice.so.1.0.0> -D SAMPLE=<build folder of the sample platforms>
#           -D COMPILER=<c++> -D FLAGS=<sanitizers> -D GENERATOR=<generator>
#           -P check.cmake
cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/functions.cmake)

# build(library platform): builds the library against the platform and installs it in
# WORK/library. All use the build folder of page.sh, so that only the first compiles.
function(build library platform)
    execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK}/page/build -G ${GENERATOR}
                            -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_BUILD_TYPE=Release
                            -DBUILD_TESTING=OFF -DMCUSERVICE_SIMULATOR=OFF
                            -DMCUSERVICE_PLATFORM_DIR=${platform}
                    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    run(${CMAKE_COMMAND} --build ${WORK}/page/build)
    run(${CMAKE_COMMAND} --install ${WORK}/page/build --prefix ${WORK}/${library})
endfunction()

if(NOT FLAGS)
    file(READ ${SOURCE}/docs/integration.md page)
    foreach(services one split)
        file(READ ${SAMPLE}/${services}/cmake/McuPlatformConfig.cmake config)
        string(FIND "${page}" "${config}" at)
        if(at EQUAL -1)
            message(SEND_ERROR "docs/integration.md does not show this:\n${config}")
        endif()
        build(${services} ${SAMPLE}/${services}/cmake)
        expect(${services} ${SAMPLE}/${services}/lib ${on_sample})
    endforeach()
    # Its commands have names without blanks; the probe cannot be loaded from a path with one.
    if(NOT WORK MATCHES "[ :]")
        run(bash ${CMAKE_CURRENT_LIST_DIR}/page.sh ${SOURCE} ${WORK} ${SAMPLE}/split ${COMPILER})
        if(NOT output MATCHES "\n1 fault\n.*\n0 faults\n.*\n27[0-9][0-9][0-9][0-9][0-9]\n$")
            message(SEND_ERROR "docs/integration.md: other faults, or not 2.7 MB an hour")
        endif()
        expect(swapped ${WORK}/page/build/platform/substitute ${on_substitute})
        expect(swapped ${SAMPLE}/split/lib ${on_sample})
    endif()
endif()

run(objdump -p ${LIBRARY})
if(NOT output MATCHES "SONAME +libmcuservice\\.so\\.1\n")
    message(FATAL_ERROR "wrong soname: ${output}")
endif()

include(${CMAKE_CURRENT_LIST_DIR}/../../cmake/ExportedSymbols.cmake)
