# The version, read from the public header where it is set.
#
# Sets KRT_PLX_VERSION_MAJOR, _MINOR, _PATCH, and
#
#     KRT_PLX_VERSION              all three, for project()
#     KRT_PLX_COMPATIBLE_VERSION   the part that changes when older hosts may no longer
#                                  run: before 1.0 "0.MINOR", from then on "MAJOR"

block(PROPAGATE KRT_PLX_VERSION_MAJOR KRT_PLX_VERSION_MINOR KRT_PLX_VERSION_PATCH
        KRT_PLX_VERSION KRT_PLX_COMPATIBLE_VERSION)
    set(header "${CMAKE_CURRENT_LIST_DIR}/../include/korvel/plx/version.h")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${header}")
    file(STRINGS "${header}" lines REGEX "^#define KRT_PLX_VERSION_(MAJOR|MINOR|PATCH) [0-9]+$")
    foreach(line IN LISTS lines)
        string(REGEX MATCH "(KRT_PLX_VERSION_[A-Z]+) ([0-9]+)" ignored "${line}")
        set(${CMAKE_MATCH_1} ${CMAKE_MATCH_2})
    endforeach()

    foreach(part IN ITEMS MAJOR MINOR PATCH)
        if(NOT DEFINED KRT_PLX_VERSION_${part})
            message(FATAL_ERROR "${header} defines no KRT_PLX_VERSION_${part}")
        endif()
    endforeach()

    set(KRT_PLX_VERSION
        "${KRT_PLX_VERSION_MAJOR}.${KRT_PLX_VERSION_MINOR}.${KRT_PLX_VERSION_PATCH}")
    set(KRT_PLX_COMPATIBLE_VERSION "${KRT_PLX_VERSION_MAJOR}")
    if(KRT_PLX_VERSION_MAJOR EQUAL 0)
        set(KRT_PLX_COMPATIBLE_VERSION "0.${KRT_PLX_VERSION_MINOR}")
    endif()
endblock()
