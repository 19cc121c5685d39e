# Runs while something is installed; Symbols.cmake sets what it works on.
#
#     work       keep: install the symbols of the binary; link: let the installed binary name their file
#     binary     as it was built, with its symbols
#     kept       where the file with its symbols is made
#     beside     for keep: the folder below the prefix; if empty, the file gets its place by the build ID
#     installed  for link: the binary below the prefix

# Installed with its symbols, the binary needs no link to them.
if(work STREQUAL "link" AND NOT CMAKE_INSTALL_DO_STRIP)
    return()
endif()

# For Windows it writes the time into what it makes, which would be another with each call.
set(objcopy "${CMAKE_COMMAND}" -E env SOURCE_DATE_EPOCH=0 "${objcopy}")
get_filename_component(kept_in "${kept}" DIRECTORY)
file(MAKE_DIRECTORY "${kept_in}")
execute_process(COMMAND ${objcopy} --only-keep-debug "${binary}" "${kept}" COMMAND_ERROR_IS_FATAL ANY)

if(work STREQUAL "link")
    execute_process(COMMAND ${objcopy} "--add-gnu-debuglink=${kept}"
        "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/${installed}" COMMAND_ERROR_IS_FATAL ANY)
elseif(beside)
    file(INSTALL "${kept}" DESTINATION "${CMAKE_INSTALL_PREFIX}/${beside}")
else()
    execute_process(COMMAND "${readelf}" --notes "${binary}" OUTPUT_VARIABLE notes COMMAND_ERROR_IS_FATAL ANY)
    if(NOT notes MATCHES "Build ID: ([0-9a-f][0-9a-f])([0-9a-f]+)")
        message(FATAL_ERROR "${binary} has no build ID")
    endif()
    set(place "lib/debug/.build-id/${CMAKE_MATCH_1}")
    set(name "${CMAKE_MATCH_2}.debug")
    file(INSTALL "${kept}" DESTINATION "${CMAKE_INSTALL_PREFIX}/${place}" RENAME "${name}")
endif()
