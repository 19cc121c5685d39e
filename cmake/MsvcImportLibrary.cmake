# krt_plx_add_msvc_import_library(<DLL target> <module definition>)
#
# Makes <target>.lib, the import library for Microsoft's linker, beside the one that MinGW makes,
# and stores its path in the target's property KRT_PLX_MSVC_LIBRARY. This needs LLVM's dlltool; if
# that is missing, the DLL is built without it.
function(krt_plx_add_msvc_import_library target definition)
    find_program(KRT_PLX_LLVM_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14 NO_CMAKE_FIND_ROOT_PATH)
    if(NOT KRT_PLX_LLVM_DLLTOOL)
        message(STATUS "No llvm-dlltool: no import library for Microsoft's linker")
        return()
    endif()
    set(machine i386:x86-64)
    if(CMAKE_SIZEOF_VOID_P EQUAL 4)
        set(machine i386)
    endif()
    set(library "${CMAKE_ARCHIVE_OUTPUT_DIRECTORY}/${target}.lib")
    add_custom_command(TARGET ${target} POST_BUILD VERBATIM BYPRODUCTS "${library}"
        COMMAND "${KRT_PLX_LLVM_DLLTOOL}" --machine ${machine} --input-def "${definition}"
            --dllname $<TARGET_FILE_NAME:${target}> --output-lib "${library}")
    set_target_properties(${target} PROPERTIES KRT_PLX_MSVC_LIBRARY "${library}")
endfunction()
