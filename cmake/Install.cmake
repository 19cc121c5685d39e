# What `cmake --install` installs, in these components:
#
#     runtime       the shared library
#     development   headers, import libraries, the static libraries for hosts, the CMake package, the
#                   pkg-config files, the examples
#     manual        the manual, if it has been made
#     tools         plxclip, its completion in shells, its manual pages, the schemas
#     python        the package for Python
#     runtime_symbols, tools_symbols
#                   what a debugger needs to read a crash in the library or in plxclip; only when asked for

include(Symbols)

set(KRT_PLX_HTML_MANUAL "${PROJECT_BINARY_DIR}/docs/html" CACHE PATH
    "The manual as scripts/docs has made it; installed when it is there")

set(KRT_PLX_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/krt_plx")
set(KRT_PLX_PKGCONFIG_DIR "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
set(KRT_PLX_PACKAGE_FILES "${PROJECT_BINARY_DIR}/generated/package")

function(krt_plx_install_library)
    install(TARGETS krt_plx EXPORT krt_plxTargets
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime
            NAMELINK_COMPONENT development
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development
        INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
    if(WIN32)
        install(FILES "${KRT_PLX_EXPORTS_DIR}/exports.def" RENAME krt_plx.def
            DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development)
    endif()
    get_target_property(msvc_library krt_plx KRT_PLX_MSVC_LIBRARY)
    if(msvc_library)
        install(FILES "${msvc_library}"
            DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development)
    endif()
endfunction()

function(krt_plx_install_headers)
    install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT development
        FILES_MATCHING PATTERN "*.h" PATTERN "*.hpp")
    # The header and its target are made at build time, for hosts that do not link the library.
    install(FILES "${KRT_PLX_LOADER_INCLUDE}/korvel/plx_loader.h"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/korvel" COMPONENT development)
    set_target_properties(krt_plx_loader PROPERTIES EXPORT_NAME loader)
    install(TARGETS krt_plx_loader EXPORT krt_plxTargets
        INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
endfunction()

# A static library made by one compiler is not always of use to another: its sources, those that are
# generated too, are installed with it.
# krt_plx_install_static_library(<name after krt_plx_>)
function(krt_plx_install_static_library name)
    set(target krt_plx_${name})
    if(NOT TARGET ${target})
        return()
    endif()
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
    install(TARGETS ${target} EXPORT krt_plxTargets
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development
        INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
    get_target_property(sources ${target} SOURCES)
    install(FILES ${sources}
        DESTINATION "${CMAKE_INSTALL_DATADIR}/krt_plx/${name}" COMPONENT development)
endfunction()

function(krt_plx_install_cmake_package)
    include(CMakePackageConfigHelpers)
    set(compatibility SameMajorVersion)
    if(PROJECT_VERSION_MAJOR EQUAL 0)
        set(compatibility SameMinorVersion)
    endif()
    set(config "${KRT_PLX_PACKAGE_FILES}/krt_plxConfig.cmake")
    set(version "${KRT_PLX_PACKAGE_FILES}/krt_plxConfigVersion.cmake")
    configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/krt_plxConfig.cmake.in" "${config}"
        INSTALL_DESTINATION "${KRT_PLX_CMAKE_DIR}" PATH_VARS CMAKE_INSTALL_LIBDIR)
    write_basic_package_version_file("${version}" COMPATIBILITY ${compatibility})
    install(FILES "${config}" "${version}"
        DESTINATION "${KRT_PLX_CMAKE_DIR}" COMPONENT development)
    install(EXPORT krt_plxTargets NAMESPACE krt_plx::
        DESTINATION "${KRT_PLX_CMAKE_DIR}" COMPONENT development)
endfunction()

# krt_plx_install_pkgconfig_file(<name>)
function(krt_plx_install_pkgconfig_file name)
    file(RELATIVE_PATH KRT_PLX_PKGCONFIG_TO_PREFIX "/${KRT_PLX_PKGCONFIG_DIR}" "/")
    string(REGEX REPLACE "/$" "" KRT_PLX_PKGCONFIG_TO_PREFIX "${KRT_PLX_PKGCONFIG_TO_PREFIX}")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in"
        "${KRT_PLX_PACKAGE_FILES}/${name}.pc" @ONLY)
    install(FILES "${KRT_PLX_PACKAGE_FILES}/${name}.pc"
        DESTINATION "${KRT_PLX_PKGCONFIG_DIR}" COMPONENT development)
endfunction()

# A program finds the library of its own installed tree, even if that was moved; on Windows they are
# side by side.
function(krt_plx_install_tools)
    if(NOT TARGET plxclip)
        return()
    endif()
    file(RELATIVE_PATH libraries "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}")
    if(APPLE)
        set(own_folder "@loader_path")
    else()
        set(own_folder "$ORIGIN")
    endif()
    set_target_properties(plxclip PROPERTIES INSTALL_RPATH "${own_folder}/${libraries}")
    install(TARGETS plxclip DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT tools)
endfunction()

set(KRT_PLX_ZSH_COMPLETIONS "${CMAKE_INSTALL_DATADIR}/zsh/site-functions" CACHE STRING
    "Where zsh looks for completion; distributions have folders of their own for it")

# Where the shells and man look for it by themselves. PowerShell looks nowhere.
function(krt_plx_install_help_of_tools)
    if(NOT TARGET plxclip)
        return()
    endif()
    set(completion "${PROJECT_SOURCE_DIR}/tools/plxclip/completion")
    install(FILES "${completion}/plxclip.ps1"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/krt_plx/completion" COMPONENT tools)
    if(WIN32)
        return()
    endif()
    install(FILES "${completion}/plxclip.bash" RENAME plxclip
        DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" COMPONENT tools)
    install(FILES "${completion}/_plxclip"
        DESTINATION "${KRT_PLX_ZSH_COMPLETIONS}" COMPONENT tools)
    install(FILES "${completion}/plxclip.fish"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d" COMPONENT tools)
    get_target_property(pages plxclip KRT_PLX_MANUAL_PAGES)
    if(pages)
        install(DIRECTORY "${pages}/" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT tools)
    endif()
endfunction()

# For those who make clips, so with the tools, which find them there.
function(krt_plx_install_schemas)
    if(TARGET plxclip)
        set(component tools)
    else()
        set(component development)
    endif()
    install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs/schemas"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/krt_plx" COMPONENT ${component})
endfunction()

# The README is that of the package: that of the sources tells how to build what is built here.
function(krt_plx_install_documents)
    install(FILES "${PROJECT_SOURCE_DIR}/docs/package/README.md" "${PROJECT_SOURCE_DIR}/CHANGELOG.md"
            "${PROJECT_SOURCE_DIR}/LICENSE" "${PROJECT_SOURCE_DIR}/docs/copyright"
        DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT development)
    install(DIRECTORY "${PROJECT_SOURCE_DIR}/examples"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/krt_plx" COMPONENT development
        PATTERN ".git*" EXCLUDE)
    install(DIRECTORY "${KRT_PLX_HTML_MANUAL}/"
        DESTINATION "${CMAKE_INSTALL_DOCDIR}/html" COMPONENT manual OPTIONAL)
endfunction()

function(krt_plx_install_interface)
    if(TARGET krt_plx_interface)
        install(FILES "${KRT_PLX_INTERFACE_FILE}"
            DESTINATION "${CMAKE_INSTALL_DATADIR}/krt_plx" COMPONENT development)
    endif()
endfunction()

function(krt_plx_install_python)
    if(NOT TARGET krt_plx_python)
        return()
    endif()
    install(DIRECTORY "${KRT_PLX_PYTHON_FOLDER}/korvel_plx"
        DESTINATION "lib/python3/dist-packages" COMPONENT python
        PATTERN "__pycache__" EXCLUDE)
    install(PROGRAMS "${PROJECT_SOURCE_DIR}/bindings/python/plxsong"
        DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT python)
endfunction()

krt_plx_install_library()
krt_plx_install_headers()
krt_plx_install_static_library(kit)
krt_plx_install_static_library(loaded)
krt_plx_install_cmake_package()
krt_plx_install_pkgconfig_file(krt_plx)
if(TARGET krt_plx_kit)
    krt_plx_install_pkgconfig_file(krt_plx_kit)
endif()
krt_plx_install_tools()
krt_plx_install_help_of_tools()
krt_plx_install_schemas()
krt_plx_install_documents()
krt_plx_install_interface()
krt_plx_install_python()
krt_plx_install_symbols(krt_plx runtime)
if(TARGET plxclip)
    krt_plx_install_symbols(plxclip tools)
endif()
