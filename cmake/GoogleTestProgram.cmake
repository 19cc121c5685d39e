# krt_plx_add_test_program(<name> <library>... [SHARDS <number>])
#
# A GoogleTest program from the sources of the calling folder, linked to tests/support and the
# libraries, and registered with CTest. The regular expression KRT_PLX_TEST_SOURCES can choose among
# the *_test.cpp; a program that is left without any is not made.
function(krt_plx_add_test_program name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "SHARDS" "")
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS "*.cpp" "*.h")
    set(tests ${sources})
    list(FILTER tests INCLUDE REGEX "_test\\.cpp$")
    list(REMOVE_ITEM sources ${tests})
    krt_plx_choose_tests(tests ${tests})
    if(NOT tests)
        return()
    endif()
    add_executable(${name} ${tests} ${sources})
    target_include_directories(${name} PRIVATE "${KRT_PLX_EXPORTS_DIR}")
    target_link_libraries(${name} PRIVATE krt_plx_test_support ${arg_UNPARSED_ARGUMENTS}
        krt_plx_warnings GTest::gmock_main)
    add_dependencies(${name} krt_plx krt_plx_exports)
    krt_plx_compile_fast(${name})
    krt_plx_describe_surroundings(${name})
    krt_plx_register_test_program(${name} ${arg_SHARDS})
endfunction()

# krt_plx_add_host_test_program(<name> [<shards>])
#
# The same for a program that sees nothing but what a host sees. Another build's program then shows as
# much as one of this build, and takes no time to compile: KRT_PLX_HOST_PROGRAMS can be a folder that
# has it.
function(krt_plx_add_host_test_program name)
    if(NOT KRT_PLX_HOST_PROGRAMS)
        krt_plx_add_test_program(${name} krt_plx SHARDS ${ARGN})
        return()
    endif()
    set(runtime "")
    if(KRT_PLX_SANITIZERS)
        # The program does not know that it needs it, and it must come before all other libraries.
        execute_process(COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=libasan.so
            OUTPUT_VARIABLE runtime OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    endif()
    krt_plx_register_test_shards(${name} "${ARGN}"
        "LD_LIBRARY_PATH=$<TARGET_FILE_DIR:krt_plx>;LD_PRELOAD=${runtime};KRT_PLX_TEST_LIBRARY_FILE=$<TARGET_FILE:krt_plx>"
        "${KRT_PLX_HOST_PROGRAMS}/${name}")
endfunction()

# krt_plx_choose_tests(<variable> <source>...): the sources that match KRT_PLX_TEST_SOURCES. Only
# the path within the project is compared: the folders above it may have any names.
function(krt_plx_choose_tests variable)
    set(chosen "")
    foreach(source IN LISTS ARGN)
        file(RELATIVE_PATH place "${PROJECT_SOURCE_DIR}" "${source}")
        if(place MATCHES "${KRT_PLX_TEST_SOURCES}")
            list(APPEND chosen "${source}")
        endif()
    endforeach()
    set(${variable} ${chosen} PARENT_SCOPE)
endfunction()

# The tests take far longer to compile than to run, so what counts is how fast they compile.
function(krt_plx_compile_fast name)
    set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 24)
    target_compile_options(${name} PRIVATE -O0)
    # The library is checked, with everything that its host does to memory; checking each expression
    # of the tests as well would double the time to compile them.
    if(KRT_PLX_SANITIZERS MATCHES "undefined")
        target_compile_options(${name} PRIVATE -fno-sanitize=undefined)
    endif()
    # A test that fails names its line itself.
    target_compile_options(${name} PRIVATE $<$<NOT:$<CONFIG:Debug>>:-g0>)
    if(WIN32)
        krt_plx_link_fast(${name})
    endif()
    # It pays from the third unit on.
    get_target_property(sources ${name} SOURCES)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    list(LENGTH sources count)
    if(count GREATER 48)
        target_precompile_headers(${name} PRIVATE <gmock/gmock.h> <gtest/gtest.h>
            <algorithm> <filesystem> <limits> <map> <string> <string_view> <vector>)
    endif()
endfunction()

# The linker for Windows of Binutils 2.40 compares every inline function of a source with all its
# symbols: a minute for the contract tests, where lld takes a second. The compiler has the linker's path
# built in, so -fuse-ld=lld does nothing.
function(krt_plx_link_fast name)
    find_program(KRT_PLX_LLD ld.lld)
    if(KRT_PLX_LLD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        set(linker_choice "${PROJECT_BINARY_DIR}/lld.txt")
        file(CONFIGURE OUTPUT "${linker_choice}" CONTENT "*linker:\n@KRT_PLX_LLD@\n\n" @ONLY)
        target_link_options(${name} PRIVATE "-specs=${linker_choice}" -fno-use-linker-plugin)
    endif()
endfunction()

# Of a test program, in seconds. An emulator's toolchain can allow more.
if(NOT DEFINED KRT_PLX_TEST_TIMEOUT)
    set(KRT_PLX_TEST_TIMEOUT 600)
endif()

# How to compile, in the calling folder, the source whose definitions replace those of the C library.
function(krt_plx_prepare_allocations)
    set(source "${PROJECT_SOURCE_DIR}/tests/faults/allocations.cpp")
    # They must not be compiled together with other sources.
    set_source_files_properties("${source}" PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    if(KRT_PLX_SANITIZERS MATCHES "address")
        # They are called before the sanitizer is ready.
        set_source_files_properties("${source}" PROPERTIES COMPILE_OPTIONS -fno-sanitize=all
            COMPILE_DEFINITIONS KRT_PLX_WITH_ADDRESS_SANITIZER SKIP_PRECOMPILE_HEADERS ON)
    endif()
endfunction()

# The paths of the shipped library and of the sources' data: in UTF-8, in the form of the system on
# which the program runs.
function(krt_plx_describe_surroundings name)
    target_compile_definitions(${name} PRIVATE
        "KRT_PLX_TEST_LIBRARY_FILE=\"${KRT_PLX_TEST_ROOT}$<TARGET_FILE:krt_plx>\""
        "KRT_PLX_TEST_SOURCE_FOLDER=\"${KRT_PLX_TEST_ROOT}${PROJECT_SOURCE_DIR}\"")
endfunction()

# krt_plx_register_test_program(<name> [<shards>]): registers the program as one test, or as several
# that share its cases, so that they run on several processors.
function(krt_plx_register_test_program name)
    krt_plx_allow_long_paths(${name})
    if(KRT_PLX_SANITIZERS STREQUAL "thread")
        set(launcher "${PROJECT_SOURCE_DIR}/cmake/with-plain-addresses" $<TARGET_FILE:${name}>)
    else()
        set(launcher ${name})
    endif()
    krt_plx_register_test_shards(${name} "${ARGN}" "" ${launcher})
endfunction()

# krt_plx_register_test_shards(<name> <shards or nothing> <environment> <command>...)
function(krt_plx_register_test_shards name shards environment)
    if(NOT shards)
        krt_plx_register_test_run(${name} "${environment}" ${ARGN})
        return()
    endif()
    math(EXPR last "${shards} - 1")
    foreach(shard RANGE ${last})
        krt_plx_register_test_run(${name}.${shard}
            "${environment};GTEST_TOTAL_SHARDS=${shards};GTEST_SHARD_INDEX=${shard}" ${ARGN})
    endforeach()
endfunction()

function(krt_plx_register_test_run name environment)
    list(APPEND environment
        "GTEST_OUTPUT=json:${KRT_PLX_TEST_ROOT}${KRT_PLX_TEST_RESULTS}/${name}.json"
        "ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=1:strict_string_checks=1"
        "UBSAN_OPTIONS=print_stacktrace=1"
        "TSAN_OPTIONS=halt_on_error=1:second_deadlock_stack=1")
    add_test(NAME ${name} COMMAND ${ARGN})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "${environment}" LABELS program TIMEOUT ${KRT_PLX_TEST_TIMEOUT})
    if(KRT_PLX_UNDER_WINE)
        set_tests_properties(${name} PROPERTIES FIXTURES_REQUIRED wine)
    endif()
endfunction()
