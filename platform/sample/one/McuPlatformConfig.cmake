set(folder ${CMAKE_CURRENT_LIST_DIR}/../lib)

add_library(McuPlatform::link SHARED IMPORTED)
set_target_properties(McuPlatform::link PROPERTIES IMPORTED_LOCATION ${folder}/libmcusrv.so.1)

add_library(McuPlatform::services SHARED IMPORTED)
set_target_properties(McuPlatform::services PROPERTIES
    IMPORTED_LOCATION ${folder}/libsampleservices.so.1)
