# What Windows shows about a binary, and how it runs a program. Elsewhere these functions do nothing.

set(KRT_PLX_WINDOWS_RESOURCES "${CMAKE_CURRENT_LIST_DIR}/windows")

# Compiled on their own, because the resource compiler cannot take all that is defined for C++.
function(krt_plx_compile_resources name source)
    add_library(${name} OBJECT "${source}")
    target_include_directories(${name} PRIVATE "${KRT_PLX_WINDOWS_RESOURCES}")
    # The resource compiler does not say which files it read.
    set_source_files_properties("${source}" PROPERTIES
        OBJECT_DEPENDS "${KRT_PLX_WINDOWS_RESOURCES}/program.manifest")
endfunction()

# krt_plx_describe_binary(<target> <description>): the version resource of a DLL or a program; a program gets
# the manifest too.
function(krt_plx_describe_binary target description)
    if(NOT WIN32)
        return()
    endif()
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "EXECUTABLE")
        set(kind VFT_APP)
        set(name "${target}${CMAKE_EXECUTABLE_SUFFIX}")
        set(manifest "#include \"program.rc\"")
    else()
        set(kind VFT_DLL)
        set(name "${target}${CMAKE_SHARED_LIBRARY_SUFFIX}")
        set(manifest "")
    endif()
    set(source "${PROJECT_BINARY_DIR}/generated/resources/${target}.rc")
    configure_file("${KRT_PLX_WINDOWS_RESOURCES}/binary.rc.in" "${source}" @ONLY)
    krt_plx_compile_resources(${target}_resources "${source}")
    target_sources(${target} PRIVATE $<TARGET_OBJECTS:${target}_resources>)
endfunction()

# krt_plx_allow_long_paths(<program>): only the manifest.
function(krt_plx_allow_long_paths target)
    if(NOT WIN32)
        return()
    endif()
    if(NOT TARGET krt_plx_program_resources)
        krt_plx_compile_resources(krt_plx_program_resources "${KRT_PLX_WINDOWS_RESOURCES}/program.rc")
    endif()
    target_sources(${target} PRIVATE $<TARGET_OBJECTS:krt_plx_program_resources>)
endfunction()
