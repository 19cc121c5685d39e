# Builds for Windows with mingw-w64; programs run under Wine.
#
#   KRT_PLX_WINDOWS_PROCESSOR   x86_64; or i686 for 32-bit programs
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KRT_PLX_WINDOWS_PROCESSOR)
if(NOT KRT_PLX_WINDOWS_PROCESSOR)
    set(KRT_PLX_WINDOWS_PROCESSOR x86_64)
endif()

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${KRT_PLX_WINDOWS_PROCESSOR})

set(triple ${KRT_PLX_WINDOWS_PROCESSOR}-w64-mingw32)
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)

if(KRT_PLX_WINDOWS_PROCESSOR STREQUAL "i686")
    # Numbers with a fraction are then computed as on all other processors. Windows 8 and later run only on
    # processors that can. Hosts of other compilers align their stack to four bytes.
    set(for_i686 "-msse2 -mfpmath=sse -mstackrealign")
    set(CMAKE_C_FLAGS_INIT "${for_i686}")
    set(CMAKE_CXX_FLAGS_INIT "${for_i686}")
endif()

set(CMAKE_FIND_ROOT_PATH /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR
    "${CMAKE_CURRENT_LIST_DIR}/run-under-wine;${CMAKE_BINARY_DIR}/wine")
# The tests start Wine's server before the programs, and end it after them.
set(KRT_PLX_UNDER_WINE ON)
