# What the examples take from the project of the library, when they are built without it.

find_package(krt_plx CONFIG REQUIRED)

set(CMAKE_C_STANDARD 99)
set(CMAKE_C_EXTENSIONS OFF)
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
add_library(krt_plx_warnings INTERFACE)

if(WIN32)
    add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX)
    if(MINGW)
        add_link_options(-static)
    endif()
    # A program finds the DLL beside itself.
    get_target_property(configurations krt_plx::krt_plx IMPORTED_CONFIGURATIONS)
    list(GET configurations 0 configuration)
    get_target_property(library krt_plx::krt_plx IMPORTED_LOCATION_${configuration})
    file(COPY "${library}" DESTINATION "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
endif()
