set(HOST_INCLUDED_Version ON)
if(NOT PROJECT_NAME STREQUAL "host")
    message(FATAL_ERROR "the library has taken the host's module Version for its own")
endif()
