# Compiler settings of all targets: C++17, warnings are errors, symbols are hidden unless exported,
# file names in log lines are relative to the source root.
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTOMOC ON)

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE RelWithDebInfo)
endif()

option(MCUSERVICE_COVERAGE "Count which lines and branches of the library the tests reach" OFF)
set(MCUSERVICE_SANITIZE "" CACHE STRING "Sanitizers for -fsanitize, such as address,undefined")

add_library(mcuservice_rules INTERFACE)
target_compile_options(mcuservice_rules INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-align -Wold-style-cast -Werror
    -fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=)
if(MCUSERVICE_SANITIZE)
    # All but what is loaded into programs without the sanitizer's library.
    set(sanitize $<$<NOT:$<BOOL:$<TARGET_PROPERTY:UNSANITIZED>>>:-fsanitize=${MCUSERVICE_SANITIZE}>)
    target_compile_options(mcuservice_rules INTERFACE
        ${sanitize} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(mcuservice_rules INTERFACE ${sanitize})
    target_compile_definitions(mcuservice_rules INTERFACE QT_FORCE_ASSERTS)
endif()

# All sources of the library, compiled once. The shared library and the tests link the same objects.
# So the tests reach symbols that the library hides, and test the code that ships.
add_library(mcuservice_objects INTERFACE)
# All headers of the library and the platform, for tests and tools.
add_library(mcuservice_includes INTERFACE)
target_include_directories(mcuservice_includes INTERFACE
    ${PROJECT_SOURCE_DIR}/platform/contract/link ${PROJECT_SOURCE_DIR}/platform/contract/services)
target_link_libraries(mcuservice_objects INTERFACE mcuservice_includes mcuservice_rules Qt5::Core)

if(MCUSERVICE_COVERAGE)
    target_link_options(mcuservice_objects INTERFACE --coverage)
endif()

# mcuservice_layer(folder [SEES folder...]): compiles the sources of a folder. They can include only
# the headers of this folder and of the folders that SEES names.
function(mcuservice_layer folder)
    cmake_parse_arguments(layer "" "" "SEES" ${ARGN})
    set(target mcuservice_${folder})
    add_library(${target} OBJECT)
    add_subdirectory(${folder})
    set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    target_compile_definitions(${target} PRIVATE MCUSERVICE_BUILD QT_NO_KEYWORDS)
    # Else the debug information has a class only beside its virtual table, and the check of the binary
    # interface misses the functions that are defined elsewhere.
    target_compile_options(${target} PRIVATE
        $<$<CXX_COMPILER_ID:GNU>:-femit-class-debug-always>)
    list(TRANSFORM layer_SEES PREPEND ${PROJECT_SOURCE_DIR}/)
    if(MCUSERVICE_COVERAGE) # the tests have several threads
        target_compile_options(${target} PRIVATE --coverage -fprofile-update=atomic)
    endif()
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/${folder} ${layer_SEES})
    target_link_libraries(${target} PRIVATE mcuservice_rules Qt5::Core)
    target_sources(mcuservice_objects INTERFACE $<TARGET_OBJECTS:${target}>)
    target_include_directories(mcuservice_includes INTERFACE ${PROJECT_SOURCE_DIR}/${folder})
endfunction()
