# Builds for another processor under Linux, with Debian's cross compilers. Programs run in an emulator,
# or directly where this computer's processor understands them.
#
#   KRT_PLX_TRIPLE      of the compiler, for instance s390x-linux-gnu
#   KRT_PLX_EMULATOR    the emulator's program, for instance qemu-s390x; empty to run programs directly
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KRT_PLX_TRIPLE KRT_PLX_EMULATOR)

set(CMAKE_SYSTEM_NAME Linux)
string(REGEX MATCH "^[^-]+" CMAKE_SYSTEM_PROCESSOR "${KRT_PLX_TRIPLE}")

set(CMAKE_C_COMPILER ${KRT_PLX_TRIPLE}-gcc)
set(CMAKE_CXX_COMPILER ${KRT_PLX_TRIPLE}-g++)

set(root "/usr/${KRT_PLX_TRIPLE}")
set(CMAKE_FIND_ROOT_PATH "${root}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

if(KRT_PLX_EMULATOR)
    set(CMAKE_CROSSCOMPILING_EMULATOR "${KRT_PLX_EMULATOR};-L;${root}")
    set(KRT_PLX_TEST_TIMEOUT 3600)
else()
    # The loader and the libraries are not where programs look for them by themselves.
    file(GLOB loader "${root}/lib/ld-linux*.so.*")
    set(CMAKE_EXE_LINKER_FLAGS_INIT "-Wl,--dynamic-linker=${loader},-rpath,${root}/lib")
    set(CMAKE_SHARED_LINKER_FLAGS_INIT "-Wl,-rpath,${root}/lib")
endif()
