# Unpacks the Debian packages into an empty root and builds an application with them: by the CMake
# package, by pkg-config and by qmake. Runs the application and mcusim from there, and builds
# and runs the examples.
#
#     cmake -D BUILD=<build folder> -D WORK=<scratch> -D LIBRARY=<libmcuservice.so.1.0.0>
#           -D COMPILER=<c++> -D QMAKE=<qmake> -D FLAGS=<sanitizers> -D GENERATOR=<generator>
#           -P packages.cmake
cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/functions.cmake)

file(REMOVE_RECURSE ${WORK}/packages ${WORK}/own ${WORK}/installed ${WORK}/pkg-config ${WORK}/qmake)
file(MAKE_DIRECTORY ${WORK}/pkg-config ${WORK}/qmake)
run(${CMAKE_CPACK_COMMAND} --config ${BUILD}/CPackConfig.cmake -B ${WORK}/packages)
file(GLOB packages ${WORK}/packages/*.deb)
foreach(package IN LISTS packages)
    run(dpkg-deb --extract ${package} ${WORK}/own)
    run(dpkg-deb --field ${package} Depends)
    if(output MATCHES "widgets" AND NOT package MATCHES "/mcuservice-panel_")
        message(SEND_ERROR "${package} depends on ${output}")
    endif()
endforeach()
set(root ${WORK}/own/usr)

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/installed)
file(GLOB_RECURSE packaged RELATIVE ${root} ${root}/*)
file(GLOB_RECURSE installed RELATIVE ${WORK}/installed ${WORK}/installed/*)
if(NOT packaged STREQUAL installed)
    message(SEND_ERROR "packaged:\n  ${packaged}\ninstalled:\n  ${installed}")
endif()

find_folder(package mcuservice.pc ${root})
set(ENV{PKG_CONFIG_PATH} ${package})

run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR} -B ${WORK}/cmake -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${root} -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_CXX_FLAGS=${FLAGS})
run(${CMAKE_COMMAND} --build ${WORK}/cmake)

string(REGEX REPLACE ".*\\.so\\." "" version ${LIBRARY})
run(pkg-config --modversion mcuservice)
if(NOT output STREQUAL "${version}\n")
    message(FATAL_ERROR "pkg-config: version ${output}")
endif()
run(${root}/bin/mcusim --version)
if(NOT output STREQUAL "mcusim ${version}\n")
    message(FATAL_ERROR "${output}")
endif()
run(pkg-config --cflags --libs mcuservice)
separate_arguments(flags UNIX_COMMAND "${FLAGS} ${output}")
run(${COMPILER} -fPIC ${CMAKE_CURRENT_LIST_DIR}/main.cpp ${flags} -o ${WORK}/pkg-config/consumer)

# qmake and make take a name with a blank for two, so they work in a folder without.
run(mktemp -d)
string(STRIP "${output}" plain)
file(CREATE_LINK ${root} ${plain}/usr SYMBOLIC)
file(COPY ${CMAKE_CURRENT_LIST_DIR}/main.cpp ${CMAKE_CURRENT_LIST_DIR}/consumer.pro
     DESTINATION ${plain})
string(REPLACE ${root} ${plain}/usr package ${package})
set(ENV{PKG_CONFIG_PATH} ${package})
run(${CMAKE_COMMAND} -E chdir ${plain} ${QMAKE}
    QMAKE_CXX=${COMPILER} QMAKE_LINK=${COMPILER} QMAKE_CXXFLAGS+=${FLAGS} QMAKE_LFLAGS+=${FLAGS})
run(make -C ${plain})
file(COPY ${plain}/consumer DESTINATION ${WORK}/qmake)
file(REMOVE_RECURSE ${plain})

find_folder(platform libmcusrv.so.1 ${root})
expect(own ${platform} ${on_substitute})
file(GLOB scenarios ${root}/share/mcusim/scenarios/*)
run(${root}/bin/mcusim play --fast --quiet ${scenarios})

file(WRITE ${WORK}/speed.jsonl "{\"metadata\":{\"version\":1}}
{\"timestamp\":0.1,\"name\":\"reportVehicleSpeedChangedSgl\",\"value\":[42,1,0,0]}\n")
find_folder(library_folder libmcuservice.so.1 ${root})
file(GLOB examples ${root}/share/doc/mcuservice-tools/examples/*)
foreach(example IN LISTS examples)
    get_filename_component(name ${example} NAME)
    run(${CMAKE_COMMAND} -S ${example} -B ${WORK}/examples/${name} -G ${GENERATOR}
        -DCMAKE_PREFIX_PATH=${root} -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_CXX_FLAGS=${FLAGS})
    run(${CMAKE_COMMAND} --build ${WORK}/examples/${name})
    # The probe cannot be loaded before a sanitizer, nor from a path with a blank or colon.
    if(NOT FLAGS AND NOT root MATCHES "[ :]")
        run(${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${library_folder}
            ${root}/bin/mcusim run --quiet --play ${WORK}/speed.jsonl
            -- ${WORK}/examples/${name}/${name})
    endif()
endforeach()
