# The symbols of a binary in a file of their own, so that a crash in what was shipped without them can be read.
#
# krt_plx_install_symbols(<target> <component of the target>) puts them into the component COMPONENT_symbols.
# Debuggers find the file of an ELF binary by its build ID, below lib/debug; that of a Windows binary beside the binary, by a
# link which gets into the binary when it is installed without its symbols.

function(krt_plx_install_symbols target component)
    find_program(KRT_PLX_READELF NAMES readelf)
    set(binary "$<TARGET_FILE:${target}>")
    set(kept "${PROJECT_BINARY_DIR}/symbols/$<TARGET_FILE_NAME:${target}>.debug")
    string(CONFIGURE [=[
set(objcopy "@CMAKE_OBJCOPY@")
set(readelf "@KRT_PLX_READELF@")
set(binary "@binary@")
set(kept "@kept@")
]=] facts @ONLY)
    if(WIN32)
        set(installed "${CMAKE_INSTALL_BINDIR}/$<TARGET_FILE_NAME:${target}>")
        install(CODE "${facts}set(installed \"${installed}\")\nset(work link)
include(\"${KRT_PLX_SYMBOLS_SCRIPT}\")" COMPONENT ${component})
    endif()
    install(CODE "${facts}set(beside \"$<$<PLATFORM_ID:Windows>:${CMAKE_INSTALL_BINDIR}>\")\nset(work keep)
include(\"${KRT_PLX_SYMBOLS_SCRIPT}\")" COMPONENT ${component}_symbols EXCLUDE_FROM_ALL)
endfunction()
set(KRT_PLX_SYMBOLS_SCRIPT "${CMAKE_CURRENT_LIST_DIR}/SplitSymbols.cmake")
