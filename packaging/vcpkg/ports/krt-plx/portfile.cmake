# An overlay port, which builds the sources that it lies in:
#
#     vcpkg install krt-plx --overlay-ports=packaging/vcpkg/ports

vcpkg_check_linkage(ONLY_DYNAMIC_LIBRARY)

get_filename_component(SOURCE_PATH "${CMAKE_CURRENT_LIST_DIR}/../../../.." ABSOLUTE)

# What hosts link to or load. The kit, its table and the tools are made with Python and files of the system.
vcpkg_cmake_configure(
    SOURCE_PATH "${SOURCE_PATH}"
    OPTIONS
        -DKRT_PLX_TESTS=OFF
        -DKRT_PLX_EXAMPLES=OFF
        -DKRT_PLX_TOOLS=OFF
        -DKRT_PLX_KIT=OFF
        -DKRT_PLX_INTERFACE=OFF
        -DKRT_PLX_INSTALL=ON
)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(PACKAGE_NAME krt_plx CONFIG_PATH lib/cmake/krt_plx)
vcpkg_fixup_pkgconfig()

# Where vcpkg has no place for them, or takes them only once.
file(REMOVE_RECURSE
    "${CURRENT_PACKAGES_DIR}/debug/include"
    "${CURRENT_PACKAGES_DIR}/debug/share"
    "${CURRENT_PACKAGES_DIR}/share/doc"
)
vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/docs/copyright")
