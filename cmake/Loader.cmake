# The header for hosts that load the library at run time, made from the public headers:
# korvel/plx_loader.h with a table of all exported functions; and that table of a linked library.

set(KRT_PLX_LOADER_SCRIPT "${CMAKE_CURRENT_LIST_FILE}")
set(KRT_PLX_LOADER_TEMPLATE "${CMAKE_CURRENT_LIST_DIR}/plx_loader.h.in")
set(KRT_PLX_LINKED_TEMPLATE "${CMAKE_CURRENT_LIST_DIR}/linked.c.in")
set(KRT_PLX_LOADER_INCLUDE "${PROJECT_BINARY_DIR}/generated/include")

# Makes the target krt_plx_loader: linking it adds the include folders and the system libraries that
# loading needs, but does not link the library.
function(krt_plx_add_loader)
    file(GLOB headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/include/korvel/plx/*.h")
    set(loader "${KRT_PLX_LOADER_INCLUDE}/korvel/plx_loader.h")
    add_custom_command(OUTPUT "${loader}"
        COMMAND "${CMAKE_COMMAND}" "-DHEADERS=${PROJECT_SOURCE_DIR}/include/korvel/plx"
            "-DTEMPLATE=${KRT_PLX_LOADER_TEMPLATE}" "-DLOADER=${loader}"
            -P "${KRT_PLX_LOADER_SCRIPT}"
        DEPENDS ${headers} "${KRT_PLX_LOADER_SCRIPT}" "${KRT_PLX_LOADER_TEMPLATE}"
            "${KRT_PLX_EXPORTS_SCRIPT}"
        COMMENT "Making the loader from the public headers"
        VERBATIM)
    add_custom_target(krt_plx_loader_header ALL DEPENDS "${loader}")

    add_library(krt_plx_loader INTERFACE)
    add_library(krt_plx::loader ALIAS krt_plx_loader)
    add_dependencies(krt_plx_loader krt_plx_loader_header)
    target_include_directories(krt_plx_loader INTERFACE
        "$<BUILD_INTERFACE:${KRT_PLX_LOADER_INCLUDE}>"
        "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>")
    target_link_libraries(krt_plx_loader INTERFACE ${CMAKE_DL_LIBS})
endfunction()

# Sets the variable to a source that makes KRT_PLX_Kit_linked().
function(krt_plx_write_linked_table table variable)
    file(GLOB headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/include/korvel/plx/*.h")
    add_custom_command(OUTPUT "${table}"
        COMMAND "${CMAKE_COMMAND}" "-DHEADERS=${PROJECT_SOURCE_DIR}/include/korvel/plx"
            "-DTEMPLATE=${KRT_PLX_LINKED_TEMPLATE}" "-DLOADER=${table}"
            -P "${KRT_PLX_LOADER_SCRIPT}"
        DEPENDS ${headers} "${KRT_PLX_LOADER_SCRIPT}" "${KRT_PLX_LINKED_TEMPLATE}"
            "${KRT_PLX_EXPORTS_SCRIPT}"
        COMMENT "Making the table of the linked library from the public headers"
        VERBATIM)
    set(${variable} "${table}" PARENT_SCOPE)
endfunction()

# A function's signature as a member of the table: a pointer of the same name and type.
function(write_member name signature result)
    string(REPLACE " ${name}(" " (KRT_PLX_CALL *${name})(" member " ${signature}")
    if(NOT member MATCHES "\\(KRT_PLX_CALL \\*${name}\\)\\(")
        message(FATAL_ERROR "${name}: no place for a pointer in ${signature}")
    endif()
    string(STRIP "${member}" member)
    set(${result} "    ${member} KRT_PLX_NOEXCEPT" PARENT_SCOPE)
endfunction()

if(CMAKE_SCRIPT_MODE_FILE STREQUAL CMAKE_CURRENT_LIST_FILE)
    include("${CMAKE_CURRENT_LIST_DIR}/Exports.cmake")
    read_exports("${HEADERS}")
    foreach(name IN LISTS names)
        write_member("${name}" "${signature_${name}}" member)
        string(APPEND members "${member};\n")
        string(APPEND entries "        {\"${name}\", offsetof(KRT_PLX_Api, ${name})},\n")
        string(APPEND functions "    .${name} = ${name},\n")
    endforeach()
    list(LENGTH names count)
    configure_file("${TEMPLATE}" "${LOADER}" @ONLY NEWLINE_STYLE UNIX)
endif()
