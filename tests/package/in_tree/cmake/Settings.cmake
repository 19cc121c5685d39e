set(HOST_INCLUDED_Settings ON)
if(NOT PROJECT_NAME STREQUAL "host")
    message(FATAL_ERROR "the library has taken the host's module Settings for its own")
endif()
