# Makes a C++ source that holds the page's sources, so that the program needs no other file.

set(KRT_PLX_GALLERY_SCRIPT "${CMAKE_CURRENT_LIST_FILE}")

# The scripts in the order in which the page runs them.
set(gallery_scripts data search roll cards sound player tables clip page)

# Sets the variable to the C++ source.
function(krt_plx_embed_gallery variable)
    set(folder "${CMAKE_CURRENT_SOURCE_DIR}/gallery")
    set(output "${PROJECT_BINARY_DIR}/generated/plxclip/page_source.cpp")
    file(GLOB inputs CONFIGURE_DEPENDS "${folder}/*.html" "${folder}/*.css" "${folder}/*.js")
    add_custom_command(OUTPUT "${output}"
        COMMAND "${CMAKE_COMMAND}" "-DFOLDER=${folder}" "-DOUTPUT=${output}"
            -P "${KRT_PLX_GALLERY_SCRIPT}"
        DEPENDS ${inputs} "${KRT_PLX_GALLERY_SCRIPT}"
        COMMENT "Putting the gallery's page into plxclip"
        VERBATIM)
    set(${variable} "${output}" PARENT_SCOPE)
endfunction()

# A source in which the page would end too early, or the C++ string, must not get in.
function(read_source name result)
    file(READ "${FOLDER}/${name}" text)
    string(TOLOWER "${text}" lower)
    if(NOT name MATCHES "html$" AND lower MATCHES "</(script|style)|<!--")
        message(FATAL_ERROR "${name} has \"${CMAKE_MATCH_0}\" in it, which would end it in the page")
    endif()
    string(FIND "${text}" ")~" end)
    if(NOT end EQUAL -1)
        message(FATAL_ERROR "${name} has \")~\" in it, which would end it in the program")
    endif()
    set(${result} "${text}" PARENT_SCOPE)
endfunction()

if(CMAKE_SCRIPT_MODE_FILE STREQUAL CMAKE_CURRENT_LIST_FILE)
    read_source(page.html page)
    read_source(style.css style)
    foreach(name IN LISTS gallery_scripts)
        read_source("${name}.js" script)
        string(APPEND scripts "${script}\n")
    endforeach()
    file(WRITE "${OUTPUT}" "#include \"gallery/page.h\"\n\nnamespace plxclip::gallery {\n\n"
        "const std::string_view pageSource = R\"~(${page})~\";\n"
        "const std::string_view styleSource = R\"~(${style})~\";\n"
        "const std::string_view scriptSource = R\"~(${scripts})~\";\n\n"
        "} // namespace plxclip::gallery\n")
endif()
