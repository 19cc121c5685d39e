# How every target of this build is compiled. Nothing here reaches the targets of a project that takes this
# one in: no cached setting of CMake's own is changed, and options of directories hold in this one and below.

option(KRT_PLX_TESTS "Build the tests" ${PROJECT_IS_TOP_LEVEL})
option(KRT_PLX_EXAMPLES "Build the example hosts" ${PROJECT_IS_TOP_LEVEL})
option(KRT_PLX_INSTALL "Install the library with the project that takes it in" ${PROJECT_IS_TOP_LEVEL})
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    set(file_layer linux)
else()
    set(file_layer posix)
endif()
set(KRT_PLX_FS ${file_layer} CACHE STRING "Which system's calls the file layer uses, but on Windows: linux, or posix for those that any POSIX system has")
set_property(CACHE KRT_PLX_FS PROPERTY STRINGS linux posix)
option(KRT_PLX_BENCHMARKS "Build the benchmarks" OFF)
option(KRT_PLX_COVERAGE "Count which lines run" OFF)
set(KRT_PLX_SANITIZERS "" CACHE STRING "Arguments of -fsanitize=, for instance address,undefined")
set(KRT_PLX_HOST_PROGRAMS "" CACHE PATH "Has the contract tests of another build, to be run with the library of this one")
set(KRT_PLX_TEST_SOURCES ".*" CACHE STRING "Build only the *_test.cpp whose path matches this")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 99)
set(CMAKE_C_STANDARD_REQUIRED ON)
set(CMAKE_C_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# Only what the public headers declare is exported.
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
include(CheckPIESupported)
check_pie_supported()
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

# One folder for programs and library, because on Windows a program finds the DLL beside itself. A project
# that takes this one in may have set its own.
foreach(kind IN ITEMS RUNTIME LIBRARY)
    if(PROJECT_IS_TOP_LEVEL OR NOT CMAKE_${kind}_OUTPUT_DIRECTORY)
        set(CMAKE_${kind}_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
    endif()
endforeach()
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")

# The same sources give the same bytes, wherever and whenever they are built: no path of this build, no time.
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
if(WIN32)
    add_link_options(-Wl,--no-insert-timestamp)
elseif(NOT APPLE)
    # By this number a debugger finds the symbols of a binary.
    add_link_options(-Wl,--build-id=sha1)
endif()

# Without this, systems of 32 bits say nothing about files of 2 GiB and more, or dated after 2038.
if(NOT WIN32 AND CMAKE_SIZEOF_VOID_P EQUAL 4)
    add_compile_definitions(_FILE_OFFSET_BITS=64 _TIME_BITS=64)
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # A unique symbol would keep the library mapped after the host has closed it.
    add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-fno-gnu-unique>)
endif()

# Units of many sources take a fifth less time if the compiler does not look for memory to free before
# it has used this much (KB). A host that adds this project to its own chooses for itself.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND PROJECT_IS_TOP_LEVEL)
    add_compile_options("SHELL:--param ggc-min-heapsize=500000")
endif()

if(KRT_PLX_SANITIZERS)
    add_compile_options(-fsanitize=${KRT_PLX_SANITIZERS} -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${KRT_PLX_SANITIZERS})
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

if(KRT_PLX_COVERAGE)
    # Some tests have threads; if two count at once, the counts can become values that their reader
    # rejects.
    add_compile_options(--coverage -fprofile-update=atomic)
    add_link_options(--coverage)
endif()

# For what is installed, which must not show where it was built.
set(KRT_PLX_HIDING_WHEREABOUTS "")
if(NOT KRT_PLX_COVERAGE)
    set(KRT_PLX_HIDING_WHEREABOUTS "-ffile-prefix-map=${PROJECT_SOURCE_DIR}=."
        "-ffile-prefix-map=${PROJECT_BINARY_DIR}=build")
endif()

if(WIN32)
    add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX)
    # The compiler's runtime goes into the binaries, so that they need nothing but Windows.
    add_link_options(-static)
endif()

add_library(krt_plx_warnings INTERFACE)
target_compile_options(krt_plx_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    # Other compilers warn of other things, which must not stop somebody else's build.
    $<$<BOOL:${PROJECT_IS_TOP_LEVEL}>:-Werror>
    # Where several sources are compiled at once, a local name in one may hide one in another.
    $<$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>:-Wno-shadow>)

# Hardening of the shipped binaries, which makes faults harder to exploit. Tests are not hardened:
# they would only take longer to compile.
add_library(krt_plx_hardening INTERFACE)
if(WIN32)
    # No stack protector: on this system the compiler's protector calls other libraries while the
    # loader still holds its lock.
    target_link_options(krt_plx_hardening INTERFACE -Wl,--dynamicbase,--nxcompat)
    if(CMAKE_SIZEOF_VOID_P EQUAL 8)
        target_link_options(krt_plx_hardening INTERFACE -Wl,--high-entropy-va)
    endif()
else()
    target_compile_options(krt_plx_hardening INTERFACE -fstack-protector-strong)
    if(NOT APPLE)
        target_link_options(krt_plx_hardening INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)
    endif()
    # Without optimisation it only warns, and sanitizers check the same calls themselves.
    if(NOT KRT_PLX_SANITIZERS)
        target_compile_options(krt_plx_hardening INTERFACE
            $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE$<SEMICOLON>-D_FORTIFY_SOURCE=2>)
    endif()
    # Only for the shadow stack: marking valid jump targets as well would slow down a getter by a
    # tenth, and no system checks these marks in programs. The linker must be asked for the note,
    # because the C library's start files may lack it. The note only says that functions return to
    # their callers, which those files do.
    include(CheckCXXCompilerFlag)
    check_cxx_compiler_flag(-fcf-protection=return KRT_PLX_HAS_CF_PROTECTION)
    if(KRT_PLX_HAS_CF_PROTECTION AND NOT APPLE)
        target_compile_options(krt_plx_hardening INTERFACE -fcf-protection=return)
        target_link_options(krt_plx_hardening INTERFACE -Wl,-z,shstk)
    endif()
endif()
