# The settings of CPack; scripts/pack runs it. One archive contains all components but the symbols, which are in
# an archive of their own. On Debian each component is a package of its own, and so are the symbols of each.

set(CPACK_PACKAGE_NAME "${PROJECT_NAME}")
set(CPACK_PACKAGE_VENDOR "Korvel")
set(CPACK_PACKAGE_CONTACT "The krt_plx maintainers <maintainers@krt-plx.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
string(TOLOWER "${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}" system)
set(CPACK_PACKAGE_FILE_NAME "${PROJECT_NAME}-${PROJECT_VERSION}-${system}")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PROJECT_CONFIG_FILE "${CMAKE_CURRENT_LIST_DIR}/PackageKind.cmake")

set(CPACK_COMPONENTS_ALL runtime development manual runtime_symbols)
if(TARGET plxclip)
    list(APPEND CPACK_COMPONENTS_ALL tools tools_symbols)
endif()

if(TARGET krt_plx_python)
    list(APPEND CPACK_COMPONENTS_ALL python)
endif()

set(CPACK_ARCHIVE_PACKAGE_FILE_NAME "${CPACK_PACKAGE_FILE_NAME}")
set(CPACK_ARCHIVE_SYMBOLS_FILE_NAME "${CPACK_PACKAGE_FILE_NAME}-symbols")

# The library's package is named after its SONAME, so that two incompatible ones can be installed
# side by side.
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/DebianDocuments.cmake")

set(library_package "libkrt-plx${KRT_PLX_COMPATIBLE_VERSION}")
set(this_library "${library_package} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
string(CONCAT about
    "A clip is a short phrase that can be used again: notes to be sung, with\n"
    "lyrics, phonemes and all expression, or a wave file, with a name and\n"
    "search tags. The library gives an editor a catalogue of them: it reads\n"
    "clips from folders, lets the editor look at everything in them, builds\n"
    "new ones and saves, edits and removes the clips of the user.\n\n")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "${library_package}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_MULTIARCH same)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
# What packages of hosts depend on. CPack would look into every file of every package for it.
set(shlibs "${PROJECT_BINARY_DIR}/generated/package/shlibs")
file(CONFIGURE OUTPUT "${shlibs}" @ONLY
    CONTENT "libkrt_plx @KRT_PLX_COMPATIBLE_VERSION@ @library_package@ (>= @PROJECT_VERSION@)\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${shlibs}" "${PROJECT_SOURCE_DIR}/packaging/debian/triggers")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "${about}This package has the shared library.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkrt-plx-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_MULTIARCH same)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${this_library}")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "libkrt-plx-doc, krt-plx-tools")
string(CONCAT CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "${about}"
    "This package has what hosts are built with: the headers for C and C++,\n"
    "the CMake package, the pkg-config files, the kit and examples.")

set(CPACK_DEBIAN_MANUAL_PACKAGE_NAME libkrt-plx-doc)
set(CPACK_DEBIAN_MANUAL_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_MANUAL_PACKAGE_ARCHITECTURE all)
string(CONCAT CPACK_DEBIAN_MANUAL_DESCRIPTION "${about}"
    "This package has the manual, as HTML.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME krt-plx-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${this_library}")
set(CPACK_DEBIAN_TOOLS_PACKAGE_SUGGESTS librsvg2-2) # loaded for PNG and PDF
string(CONCAT CPACK_DEBIAN_TOOLS_DESCRIPTION "${about}"
    "This package has plxclip, which lists, shows, checks and edits clips,\n"
    "and JSON Schemas of their documents.")

set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-korvel-plx)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
    "python3 (>= 3.11), ${library_package} (>= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/packaging/debian/python/postinst"
    "${PROJECT_SOURCE_DIR}/packaging/debian/python/prerm")
set(CPACK_DEBIAN_PYTHON_PACKAGE_RECOMMENDS python3-mido)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS espeak-ng)
string(CONCAT CPACK_DEBIAN_PYTHON_DESCRIPTION "${about}"
    "This package has the library for Python 3: its objects, and plxsong,\n"
    "which turns songs into clips and clips into songs.")

# Debian's own name for what has the symbols of a package.
foreach(component IN ITEMS RUNTIME TOOLS)
    set(package "${CPACK_DEBIAN_${component}_PACKAGE_NAME}")
    set(CPACK_DEBIAN_${component}_SYMBOLS_PACKAGE_NAME "${package}-dbgsym")
    set(CPACK_DEBIAN_${component}_SYMBOLS_PACKAGE_SECTION debug)
    set(CPACK_DEBIAN_${component}_SYMBOLS_PACKAGE_DEPENDS
        "${package} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
    string(CONCAT CPACK_DEBIAN_${component}_SYMBOLS_DESCRIPTION "${about}"
        "This package has the symbols of ${package},\nwith which a debugger can read a crash.")
endforeach()

include(CPack)
