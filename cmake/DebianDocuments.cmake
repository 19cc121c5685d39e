# Debian requires a copyright file and a changelog in every package, and pages and changelogs that are compressed.
# CPack runs this before it packs; at that time the files of each component are in a folder of their own.

if(NOT CPACK_GENERATOR STREQUAL "DEB")
    return()
endif()

set(sources "${CMAKE_CURRENT_LIST_DIR}/..")
set(permissions FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)

# Its time is SOURCE_DATE_EPOCH, if that is set.
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(changes "${CPACK_TEMPORARY_DIRECTORY}/changelog.Debian")
file(CONFIGURE OUTPUT "${changes}" @ONLY CONTENT [=[
krt-plx (@CPACK_PACKAGE_VERSION@-@CPACK_DEBIAN_PACKAGE_RELEASE@) unstable; urgency=medium

  * Version @CPACK_PACKAGE_VERSION@; changelog.gz of libkrt-plx-dev tells what is new.

 -- @CPACK_PACKAGE_CONTACT@  @date@
]=])

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER "${component}" variable)
    set(package "${CPACK_DEBIAN_${variable}_PACKAGE_NAME}")
    set(root "${CPACK_TEMPORARY_DIRECTORY}/${component}/usr/share")
    set(documents "${root}/doc/${package}")
    # The copyright file contains the whole text of the licence, so no further file is needed.
    file(GLOB licences "${root}/doc/*/LICENSE")
    if(licences)
        file(REMOVE ${licences})
    endif()
    file(COPY "${sources}/docs/copyright" "${changes}" DESTINATION "${documents}" ${permissions})
    if(EXISTS "${documents}/CHANGELOG.md")
        file(RENAME "${documents}/CHANGELOG.md" "${documents}/changelog")
    endif()
    file(GLOB pages "${root}/man/man1/*.1" "${documents}/changelog" "${documents}/changelog.Debian")
    execute_process(COMMAND gzip --best --no-name ${pages} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
file(REMOVE "${changes}")
