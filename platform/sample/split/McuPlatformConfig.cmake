set(folder ${CMAKE_CURRENT_LIST_DIR}/../lib)

add_library(McuPlatform::link SHARED IMPORTED)
set_target_properties(McuPlatform::link PROPERTIES IMPORTED_LOCATION ${folder}/libmcusrv.so.1)

add_library(McuPlatform::services INTERFACE IMPORTED)
foreach(name media settings)
    add_library(McuPlatform::${name} SHARED IMPORTED)
    set_target_properties(McuPlatform::${name} PROPERTIES
        IMPORTED_LOCATION ${folder}/libsample${name}.so.1)
    target_link_libraries(McuPlatform::services INTERFACE McuPlatform::${name})
endforeach()
