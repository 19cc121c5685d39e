# The list of exported functions, read from the public headers, the only place where it is kept.
#
# A function is exported by a declaration of the form
#
#     KRT_PLX_API <type> KRT_PLX_CALL KRT_PLX_<name>(<parameters>) KRT_PLX_NOEXCEPT;
#
# At build time this file, run as a script, writes into the folder of its output
#
#     exports.txt            the names, sorted, one a line
#     exports.map            the version script for the ELF linker
#     exports.def            the module definition for the Windows linker
#     exports.symbols        the list of symbols for the linker of macOS
#     exported_functions.h   for tests: names, signatures and a visitor of all functions
#
# A header that declares a function in any other way fails the build.

cmake_policy(VERSION 3.25)

set(KRT_PLX_EXPORTS_SCRIPT "${CMAKE_CURRENT_LIST_FILE}")
set(KRT_PLX_EXPORTS_DIR "${CMAKE_BINARY_DIR}/generated/exports")

# Makes the target krt_plx_exports, which writes the files into KRT_PLX_EXPORTS_DIR.
function(krt_plx_add_exports)
    file(GLOB headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/include/korvel/plx/*.h")
    set(files exports.txt exports.map exports.def exports.symbols exported_functions.h)
    list(TRANSFORM files PREPEND "${KRT_PLX_EXPORTS_DIR}/")
    add_custom_command(OUTPUT ${files}
        COMMAND "${CMAKE_COMMAND}" "-DHEADERS=${PROJECT_SOURCE_DIR}/include/korvel/plx"
            "-DFOLDER=${KRT_PLX_EXPORTS_DIR}" "-DLIBRARY=krt_plx" -P "${KRT_PLX_EXPORTS_SCRIPT}"
        DEPENDS ${headers} "${KRT_PLX_EXPORTS_SCRIPT}"
        COMMENT "Reading the exported functions from the public headers"
        VERBATIM)
    add_custom_target(krt_plx_exports DEPENDS ${files})
endfunction()

# A comment can contain anything, even a declaration.
function(strip_comments text result)
    string(FIND "${text}" "/*" begin)
    while(NOT begin EQUAL -1)
        string(SUBSTRING "${text}" 0 ${begin} before)
        string(SUBSTRING "${text}" ${begin} -1 rest)
        string(FIND "${rest}" "*/" length)
        if(length EQUAL -1)
            message(FATAL_ERROR "A comment is not closed")
        endif()
        math(EXPR length "${length} + 2")
        string(SUBSTRING "${rest}" ${length} -1 after)
        string(APPEND stripped "${before} ")
        set(text "${after}")
        string(FIND "${text}" "/*" begin)
    endwhile()
    string(REGEX REPLACE "//[^\n]*" "" stripped "${stripped}${text}")
    set(${result} "${stripped}" PARENT_SCOPE)
endfunction()

# Extracts the header's statements, one a line, without comments and directives.
function(read_statements header result)
    file(READ "${header}" text)
    strip_comments("${text}" text)
    string(REGEX REPLACE "\\\\\r?\n" " " text "${text}")
    string(REGEX REPLACE "(^|\n)[ \t]*#[^\n]*" "\n" text "${text}")
    string(REGEX REPLACE "[ \t\r\n]+" " " text "${text}")
    string(REPLACE ";" "\n" text "${text}")
    set(${result} "${text}" PARENT_SCOPE)
endfunction()

function(read_declaration declaration file)
    set(type "[A-Za-z_][A-Za-z0-9_ *]*[ *]")
    set(name "KRT_PLX_[A-Za-z0-9_]+")
    set(parameters "[A-Za-z0-9_ *,]+")
    if(NOT declaration MATCHES
            "^KRT_PLX_API (${type})KRT_PLX_CALL (${name}) ?\\((${parameters})\\) KRT_PLX_NOEXCEPT$")
        message(FATAL_ERROR "${file}: not the form of an exported function: ${declaration}")
    endif()
    string(STRIP "${CMAKE_MATCH_1}" type)
    string(STRIP "${CMAKE_MATCH_3}" parameters)
    set(name "${CMAKE_MATCH_2}" PARENT_SCOPE)
    set(signature "${type} ${CMAKE_MATCH_2}(${parameters})" PARENT_SCOPE)
endfunction()

# Sets names, and for each name signature_<name> and header_<name>.
macro(read_exports folder)
    set(names "")
    file(GLOB headers "${folder}/*.h")
    foreach(header IN LISTS headers)
        read_statements("${header}" statements)
        cmake_path(GET header FILENAME file)
        string(REGEX MATCHALL "KRT_PLX_API [^\n]*" declarations "${statements}")
        foreach(declaration IN LISTS declarations)
            string(STRIP "${declaration}" declaration)
            read_declaration("${declaration}" "${file}")
            if(name IN_LIST names)
                message(FATAL_ERROR "${file}: ${name} is declared twice")
            endif()
            list(APPEND names "${name}")
            set(signature_${name} "${signature}")
            set(header_${name} "${file}")
        endforeach()
    endforeach()
    list(SORT names)
endmacro()

function(write_map names file)
    list(TRANSFORM names PREPEND "        ")
    list(TRANSFORM names APPEND "\\;\n")
    list(JOIN names "" lines)
    set(global "")
    if(lines)
        set(global "    global:\n${lines}")
    endif()
    file(CONFIGURE OUTPUT "${file}" CONTENT "{\n@global@    local:\n        *;\n};\n" @ONLY)
endfunction()

function(write_definition names file)
    list(TRANSFORM names PREPEND "    ")
    list(JOIN names "\n" lines)
    file(CONFIGURE OUTPUT "${file}" CONTENT "LIBRARY @LIBRARY@\nEXPORTS\n@lines@\n" @ONLY)
endfunction()

# There, C names have an underscore before them.
function(write_symbols names file)
    list(TRANSFORM names PREPEND "_")
    write_names("${names}" "${file}")
endfunction()

function(write_test_header names file)
    foreach(name IN LISTS names)
        string(APPEND rows
            "    {\"${name}\", \"${signature_${name}}\", \"${header_${name}}\"},\n")
        string(APPEND visits "    visitor(\"${name}\", &${name})@semicolon@\n")
    endforeach()
    set(semicolon ";")
    list(LENGTH names count)
    string(CONFIGURE "${visits}" visits @ONLY)
    file(CONFIGURE OUTPUT "${file}" @ONLY CONTENT [=[
// Made from the public headers at build time.
#pragma once

#include <array>

#include <korvel/plx.h>

struct ExportedFunction {
    const char* name;
    const char* signature;
    const char* header;
};

inline constexpr std::array<ExportedFunction, @count@> exportedFunctions{{
@rows@}};

// Calls visitor(name, function pointer) for each exported function, with the function's own type.
template <typename Visitor>
void forEachExportedFunction([[maybe_unused]] Visitor&& visitor)
{
@visits@}
]=])
endfunction()

function(write_names names file)
    list(JOIN names "\n" lines)
    if(lines)
        string(APPEND lines "\n")
    endif()
    file(CONFIGURE OUTPUT "${file}" CONTENT "@lines@" @ONLY)
endfunction()

if(CMAKE_SCRIPT_MODE_FILE STREQUAL CMAKE_CURRENT_LIST_FILE)
    read_exports("${HEADERS}")
    write_names("${names}" "${FOLDER}/exports.txt")
    write_map("${names}" "${FOLDER}/exports.map")
    write_definition("${names}" "${FOLDER}/exports.def")
    write_symbols("${names}" "${FOLDER}/exports.symbols")
    write_test_header("${names}" "${FOLDER}/exported_functions.h")
endif()
