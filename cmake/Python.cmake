# The package for Python, korvel_plx, made from krt_plx.api.json: in the folder python of the build,
# and in an install component of its own. Only on Linux; on Windows pip installs it.

set(KRT_PLX_PYTHON_FOLDER "${PROJECT_BINARY_DIR}/python")

function(krt_plx_add_python)
    if(NOT TARGET krt_plx_interface OR WIN32)
        return()
    endif()
    set(folder "${PROJECT_SOURCE_DIR}/bindings/python")
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${folder}/korvel_plx/*" "${folder}/making/*.py"
        "${folder}/backend/*.py")
    list(FILTER sources EXCLUDE REGEX "\\.pyc$")
    set(stamp "${KRT_PLX_PYTHON_FOLDER}/korvel_plx/py.typed")
    add_custom_command(OUTPUT "${stamp}"
        COMMAND "${Python3_EXECUTABLE}" -B "${folder}/backend/plx_build.py"
            "${KRT_PLX_PYTHON_FOLDER}" "${KRT_PLX_INTERFACE_FILE}"
        COMMAND "${CMAKE_COMMAND}" -E touch "${stamp}"
        DEPENDS krt_plx_interface "${KRT_PLX_INTERFACE_FILE}" ${sources}
        COMMENT "Making the package for Python"
        VERBATIM)
    add_custom_target(krt_plx_python ALL DEPENDS "${stamp}")
endfunction()
