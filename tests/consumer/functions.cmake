# Used by both scripts of this folder.
function(run)
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output ECHO_OUTPUT_VARIABLE
                    COMMAND_ERROR_IS_FATAL ANY)
    set(output "${output}" PARENT_SCOPE)
endfunction()

# find_folder(variable file root): the folder that has the file, somewhere below the root.
function(find_folder variable file root)
    file(GLOB_RECURSE path ${root}/${file})
    get_filename_component(folder ${path} DIRECTORY)
    set(${variable} ${folder} PARENT_SCOPE)
endfunction()

# expect(library platform output): every application that was linked above must print this output with
# the library installed in WORK/library and the libraries in the platform's folder.
function(expect library platform expected)
    find_folder(folder libmcuservice.so.1 ${WORK}/${library})
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

# An application must link with the linker's defaults and without a platform.
set(ENV{LDFLAGS} "")
set(ENV{LD_LIBRARY_PATH} "")
