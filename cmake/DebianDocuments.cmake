# Debian requires a copyright file in every package, and manual pages that are compressed. CPack runs
# this before it packs; at that time the files of each component are in a folder of their own.

if(NOT CPACK_GENERATOR STREQUAL "DEB")
    return()
endif()

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER "${component}" variable)
    set(package "${CPACK_DEBIAN_${variable}_PACKAGE_NAME}")
    set(documents "${CPACK_TEMPORARY_DIRECTORY}/${component}/usr/share/doc")
    # The file contains the whole text of the licence, so no further file is needed.
    file(GLOB licences "${documents}/*/LICENSE")
    if(licences)
        file(REMOVE ${licences})
    endif()
    file(COPY "${CMAKE_CURRENT_LIST_DIR}/../docs/copyright" DESTINATION "${documents}/${package}"
        FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
    file(GLOB pages "${CPACK_TEMPORARY_DIRECTORY}/${component}/usr/share/man/man1/*.1")
    if(pages)
        execute_process(COMMAND gzip --best --no-name ${pages} COMMAND_ERROR_IS_FATAL ANY)
    endif()
endforeach()
