# Compares the names that a built library exports with the list in exported-symbols.txt, one name
# per line. Existing applications are linked against these names.
#
#     cmake -D LIBRARY=<libmcuservice.so.1.0.0> [-D RENEW=ON] -P ExportedSymbols.cmake
#
# With RENEW, writes the list instead.
cmake_minimum_required(VERSION 3.25)

set(list ${CMAKE_CURRENT_LIST_DIR}/exported-symbols.txt)

execute_process(COMMAND nm -DC --defined-only ${LIBRARY} OUTPUT_VARIABLE output
                COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" lines "${output}")
set(exported "")
foreach(line IN LISTS lines)
    string(REGEX REPLACE "^[0-9a-f]+ (.) (.*)" "\\2" name "${line}")
    set(binding ${CMAKE_MATCH_1})
    # Names of the toolchain, and inline functions and templates of Qt and the standard library, are
    # not listed: they differ by compiler, build type and sanitizer.
    if(name MATCHES "^_" OR (binding MATCHES "[WVu]" AND NOT name MATCHES " for (mcu::|Mcu)"))
        continue()
    endif()
    list(APPEND exported "${name}")
endforeach()
list(REMOVE_DUPLICATES exported)
list(SORT exported)

if(RENEW)
    list(JOIN exported "\n" text)
    file(WRITE ${list} "${text}\n")
    return()
endif()

file(STRINGS ${list} expected)
set(new ${exported})
list(REMOVE_ITEM new ${expected})
set(gone ${expected})
list(REMOVE_ITEM gone ${exported})
if(new OR gone)
    list(TRANSFORM new PREPEND "\n  new:  ")
    list(TRANSFORM gone PREPEND "\n  gone: ")
    message(SEND_ERROR "${LIBRARY} does not export the names in ${list}:" ${new} ${gone}
            "\nIf this is intended, renew the list:"
            "\n  cmake -D LIBRARY=${LIBRARY} -D RENEW=ON -P ${CMAKE_CURRENT_LIST_FILE}")
endif()
