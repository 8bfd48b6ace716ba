# Compares the binary interface of a built library with that of the last release, as described in
# libmcuservice.abi: functions with their types, classes with their sizes, members and virtual tables.
# Needs abidw and abidiff, and a library with debug information, for the processor of the description.
#
#     cmake -D BUILD=<build folder> [-D RENEW=ON] -P BinaryInterface.cmake
#
# With RENEW, writes the description instead.
cmake_minimum_required(VERSION 3.25)

set(description ${CMAKE_CURRENT_LIST_DIR}/libmcuservice.abi)
set(library ${BUILD}/libmcuservice.so)

# Without debug information, only names would be compared.
execute_process(COMMAND readelf -WS ${library} OUTPUT_VARIABLE sections COMMAND_ERROR_IS_FATAL ANY)
if(NOT sections MATCHES " \\.debug_info ")
    message(FATAL_ERROR "${library} has no debug information")
endif()

# Only types that a public header of the library defines are part of the interface.
set(installed ${BUILD}/interface)
file(REMOVE_RECURSE ${installed})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --component development
                        --prefix ${installed}
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
set(headers ${installed}/include/mcuservice)
file(REMOVE_RECURSE ${headers}/contract)

execute_process(COMMAND abidw --headers-dir ${headers} --drop-private-types
                        --exported-interfaces-only --type-id-style hash
                        --no-show-locs --no-comp-dir-path --no-corpus-path --no-elf-needed
                        --no-parameter-names --no-write-default-sizes ${library}
                OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
# The last folder is enough to tell the sources apart; the others are those of this machine.
string(REGEX REPLACE "path='[^']*/([^'/]*/[^'/]*)'" "path='\\1'" text "${text}")
if(RENEW)
    file(WRITE ${description} "${text}")
    return()
endif()

file(WRITE ${installed}/libmcuservice.abi "${text}")
# The changes that it calls harmless include a return type of another name with the same layout.
execute_process(COMMAND abidiff --harmless
                        --suppressions ${CMAKE_CURRENT_LIST_DIR}/libmcuservice.abignore
                        ${description} ${installed}/libmcuservice.abi
                RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${library} does not have the binary interface of ${description}.\n"
            "If this is intended, renew the description:\n"
            "  cmake -D BUILD=${BUILD} -D RENEW=ON -P ${CMAKE_CURRENT_LIST_FILE}")
endif()
