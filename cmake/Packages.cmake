# Debian packages, one for each component of Install.cmake. packaging/linux/make makes them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME qrtvistrelclasses4)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PACKAGE_VENDOR "qrtVistrelClasses4 developers")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL library development vistrel)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/DebianDocuments.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${CPACK_PACKAGE_VENDOR} <developers@qrtvistrelclasses4.invalid>")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

set(library_package libqrtvistrelclasses4-${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/linux/triggers)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SUGGESTS vistrel) # which has fonts
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION "class library for LED message signs (shared library)
The library opens, edits, saves, exports and draws playfiles: the lists of
frames that an LED message sign shows one after another.

This package has the library that programs load.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libqrtvistrelclasses4-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS library)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "class library for LED message signs (development files)
The library opens, edits, saves, exports and draws playfiles: the lists of
frames that an LED message sign shows one after another.

This package has what C++ programs are built with: headers, the static
library, and the packages that CMake and pkg-config look for.")

set(CPACK_DEBIAN_VISTREL_PACKAGE_NAME vistrel)
set(CPACK_DEBIAN_VISTREL_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_VISTREL_DESCRIPTION "command-line program for playfiles of LED message signs
vistrel shows, edits, converts, exports and previews playfiles: the lists of
frames that an LED message sign shows one after another. It also keeps the
list of a site's signs, their commands and their fonts.

This package has fonts and samples, too.")

include(CPack)
