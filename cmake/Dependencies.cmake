# What the build uses from the system's packages: RapidJSON and, for the tests, GoogleTest.

# The host's include folder must never reach a cross compiler, so a folder of its own has a link to
# RapidJSON and to nothing else.
find_path(KRT_PLX_RAPIDJSON_PARENT rapidjson/document.h NO_CMAKE_FIND_ROOT_PATH REQUIRED
    PATHS /usr/include /usr/local/include)
set(KRT_PLX_RAPIDJSON_INCLUDE "${PROJECT_BINARY_DIR}/rapidjson-only")
file(MAKE_DIRECTORY "${KRT_PLX_RAPIDJSON_INCLUDE}")
file(CREATE_LINK "${KRT_PLX_RAPIDJSON_PARENT}/rapidjson" "${KRT_PLX_RAPIDJSON_INCLUDE}/rapidjson"
    SYMBOLIC)

# GoogleTest as it is packaged serves the builds for this system. A cross build, a build with another
# C++ library and one in which each access to memory is watched compile its packaged source.
if(KRT_PLX_TESTS AND NOT CMAKE_CROSSCOMPILING AND NOT CMAKE_CXX_FLAGS MATCHES "-stdlib=libc\\+\\+"
        AND NOT KRT_PLX_SANITIZERS MATCHES "thread|fuzzer")
    find_package(GTest CONFIG QUIET)
endif()
if(KRT_PLX_TESTS AND NOT TARGET GTest::gmock_main)
    find_path(KRT_PLX_GOOGLETEST googlemock/CMakeLists.txt NO_CMAKE_FIND_ROOT_PATH REQUIRED
        PATHS /usr/src/googletest NO_DEFAULT_PATH)
    set(INSTALL_GTEST OFF)
    set(BUILD_GMOCK ON)
    add_subdirectory("${KRT_PLX_GOOGLETEST}" googletest EXCLUDE_FROM_ALL SYSTEM)
    foreach(target IN ITEMS gtest gmock gmock_main)
        target_compile_options(${target} PRIVATE -O0)
    endforeach()
endif()
