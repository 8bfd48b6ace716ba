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

set(MCUSERVICE_SANITIZE "" CACHE STRING "Sanitizers for -fsanitize, such as address,undefined")

add_library(mcuservice_rules INTERFACE)
target_compile_options(mcuservice_rules INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-align -Wold-style-cast -Werror
    -fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=)
if(MCUSERVICE_SANITIZE)
    target_compile_options(mcuservice_rules INTERFACE
        -fsanitize=${MCUSERVICE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(mcuservice_rules INTERFACE -fsanitize=${MCUSERVICE_SANITIZE})
    target_compile_definitions(mcuservice_rules INTERFACE QT_FORCE_ASSERTS)
endif()

add_library(mcuservice_includes INTERFACE)
foreach(folder include vehicle radio service autotest manager)
    target_include_directories(mcuservice_includes INTERFACE ${PROJECT_SOURCE_DIR}/${folder})
endforeach()
target_include_directories(mcuservice_includes INTERFACE ${PROJECT_SOURCE_DIR}/platform/contract)
