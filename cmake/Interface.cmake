# The interface as data: krt_plx.api.json, made at build time from the public headers. Bindings for
# other languages are made from it, and the functions of krt_plx_loaded.

option(KRT_PLX_INTERFACE "Make krt_plx.api.json and krt_plx_loaded, which takes clang and Python"
    ${PROJECT_IS_TOP_LEVEL})

set(KRT_PLX_INTERFACE_FILE "${PROJECT_BINARY_DIR}/generated/interface/krt_plx.api.json")

if(KRT_PLX_INTERFACE)
    find_package(Python3 REQUIRED COMPONENTS Interpreter)
endif()

# Makes the target krt_plx_interface. The file is the same for every system.
function(krt_plx_add_interface)
    if(NOT KRT_PLX_INTERFACE)
        return()
    endif()
    find_program(KRT_PLX_CLANG REQUIRED
        NAMES clang clang-19 clang-18 clang-17 clang-16 clang-15 clang-14
        DOC "Reads the public headers for krt_plx.api.json")
    file(GLOB headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/include/korvel/plx/*.h")
    file(GLOB scripts CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/bindings/interface/*.py")
    add_custom_command(OUTPUT "${KRT_PLX_INTERFACE_FILE}"
        COMMAND "${Python3_EXECUTABLE}" -B "${PROJECT_SOURCE_DIR}/bindings/interface/make_api.py"
            "${KRT_PLX_CLANG}" "${PROJECT_SOURCE_DIR}/include" "${KRT_PLX_INTERFACE_FILE}"
        DEPENDS ${headers} "${PROJECT_SOURCE_DIR}/include/korvel/plx.h" ${scripts}
        COMMENT "Making krt_plx.api.json from the public headers"
        VERBATIM)
    add_custom_target(krt_plx_interface ALL DEPENDS "${KRT_PLX_INTERFACE_FILE}")
endfunction()
