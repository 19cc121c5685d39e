# krt_plx_add_program_checks(<prefix> <script> <label> <case>...)
#
# Registers each case of a Python script in the calling folder as the test <prefix>.<case>. The
# script runs this build's programs as a user does.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

function(krt_plx_add_program_checks prefix script label)
    foreach(case IN LISTS ARGN)
        set(name "${prefix}.${case}")
        add_test(NAME ${name} COMMAND "${Python3_EXECUTABLE}" -B
            "${CMAKE_CURRENT_SOURCE_DIR}/${script}" ${case} "${PROJECT_SOURCE_DIR}"
            "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}" "${CMAKE_EXECUTABLE_SUFFIX}"
            "${KRT_PLX_TEST_ROOT}" ${CMAKE_CROSSCOMPILING_EMULATOR})
        set_tests_properties(${name} PROPERTIES LABELS ${label} TIMEOUT 300)
        if(KRT_PLX_UNDER_WINE)
            set_tests_properties(${name} PROPERTIES FIXTURES_REQUIRED wine)
        endif()
    endforeach()
endfunction()
