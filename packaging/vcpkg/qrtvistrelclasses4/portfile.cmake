# Builds the library from the sources that this port lies in:
#     vcpkg install qrtvistrelclasses4 --overlay-ports=packaging/vcpkg
# A registry takes a source archive instead, by vcpkg_download_distfile and vcpkg_extract_source_archive.
get_filename_component(SOURCE_PATH "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)

if(VCPKG_TARGET_IS_WINDOWS)
    vcpkg_check_linkage(ONLY_STATIC_LIBRARY)
endif()
vcpkg_cmake_configure(
    SOURCE_PATH "${SOURCE_PATH}"
    OPTIONS -DQRT_BUILD_TOOLS=OFF -DQRT_BUILD_TESTS=OFF -DQRT_BUILD_SERVER=OFF)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(PACKAGE_NAME qrtVistrelClasses4 CONFIG_PATH lib/cmake/qrtVistrelClasses4)
file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include")
vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/packaging/linux/copyright")
