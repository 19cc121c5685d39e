# What Debian asks of every package: its copyright file. CPack runs this before it packs; then the files
# of each component lie in a folder of their own.

if(NOT CPACK_GENERATOR STREQUAL "DEB")
    return()
endif()

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER "${component}" variable)
    set(package "${CPACK_DEBIAN_${variable}_PACKAGE_NAME}")
    set(documents "${CPACK_TEMPORARY_DIRECTORY}/${component}/usr/share/doc")
    # It has the whole text of the licence: no further file is wanted.
    file(GLOB licences "${documents}/*/LICENSE")
    if(licences)
        file(REMOVE ${licences})
    endif()
    file(COPY "${CMAKE_CURRENT_LIST_DIR}/../docs/copyright" DESTINATION "${documents}/${package}"
        FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
endforeach()
