# What is installed, each part in a component of its own: `library` is the shared library, `development` what C++ programs
# are built with, `vistrel` the program with its fonts, samples and documents. The library is found by
# find_package(qrtVistrelClasses4).
include(CMakePackageConfigHelpers)

set(libraries qrtVistrelClasses4)
if(TARGET qrtVistrelClasses4_shared)
    list(APPEND libraries qrtVistrelClasses4_shared)
endif()
install(TARGETS ${libraries} EXPORT qrtVistrelClasses4Targets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/qrtVistrelClasses4 DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    COMPONENT development)
install(FILES ${PROJECT_BINARY_DIR}/generated/include/qrtVistrelClasses4/Version.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/qrtVistrelClasses4 COMPONENT development)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/qrtVistrelClasses4)
install(EXPORT qrtVistrelClasses4Targets NAMESPACE qrtVistrelClasses4:: DESTINATION ${package_dir} COMPONENT development)
file(WRITE ${PROJECT_BINARY_DIR}/qrtVistrelClasses4Config.cmake
    "include(\"\${CMAKE_CURRENT_LIST_DIR}/qrtVistrelClasses4Targets.cmake\")\n")
write_basic_package_version_file(${PROJECT_BINARY_DIR}/qrtVistrelClasses4ConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/qrtVistrelClasses4Config.cmake
    ${PROJECT_BINARY_DIR}/qrtVistrelClasses4ConfigVersion.cmake DESTINATION ${package_dir} COMPONENT development)

# For pkg-config. What the library needs is for static links only, if there is a shared library.
get_target_property(needed qrtVistrelClasses4 INTERFACE_LINK_LIBRARIES)
list(FILTER needed INCLUDE REGEX "^[a-z0-9]+$") # others are of the build only
list(TRANSFORM needed PREPEND " -l")
string(CONCAT needed ${needed})
if(TARGET qrtVistrelClasses4_shared)
    set(private_libraries "${needed}")
    set(needed "")
endif()
get_target_property(library qrtVistrelClasses4 OUTPUT_NAME)
if(NOT library)
    set(library qrtVistrelClasses4)
endif()
# The installed package may be moved: its prefix is found from the folder that the file is in, unless that is absolute.
set(prefix ${CMAKE_INSTALL_PREFIX})
if(NOT IS_ABSOLUTE ${CMAKE_INSTALL_LIBDIR})
    file(RELATIVE_PATH prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
    string(REGEX REPLACE "/$" "" prefix "\${pcfiledir}/${prefix}")
endif()
cmake_path(APPEND libdir "\${prefix}" ${CMAKE_INSTALL_LIBDIR}) # which is the latter alone if that is absolute
cmake_path(APPEND includedir "\${prefix}" ${CMAKE_INSTALL_INCLUDEDIR})
configure_file(${PROJECT_SOURCE_DIR}/cmake/qrtVistrelClasses4.pc.in ${PROJECT_BINARY_DIR}/qrtVistrelClasses4.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/qrtVistrelClasses4.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT development)

if(TARGET vistrel)
    # The program looks for the fonts in "share/vistrel" beside its own folder (platform/posix/PosixFolders.h).
    install(TARGETS vistrel RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT vistrel)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/samples/bin ${PROJECT_SOURCE_DIR}/samples/CustomFonts ${PROJECT_SOURCE_DIR}/samples/Extended
        DESTINATION share/vistrel COMPONENT vistrel)
    # With fonts of their own, because users copy them and try changes.
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/samples DESTINATION share/vistrel COMPONENT vistrel
        PATTERN CMakeLists.txt EXCLUDE)
    file(GLOB pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/*.md)
    install(FILES ${pages} DESTINATION share/doc/vistrel COMPONENT vistrel)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs DESTINATION share/doc/vistrel COMPONENT vistrel)
endif()
if(TARGET command_documents)
    # Where shells look for completions: those of zsh in a folder that its Debian package adds, elsewhere site-functions.
    set(QRT_ZSH_COMPLETIONS share/zsh/site-functions CACHE STRING "Folder of the prefix for completions of zsh")
    set(documents ${PROJECT_BINARY_DIR}/documents)
    install(DIRECTORY ${documents}/man/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT vistrel)
    install(FILES ${documents}/vistrel.bash DESTINATION share/bash-completion/completions RENAME vistrel COMPONENT vistrel)
    install(FILES ${documents}/_vistrel DESTINATION ${QRT_ZSH_COMPLETIONS} COMPONENT vistrel)
    install(FILES ${documents}/vistrel.fish DESTINATION share/fish/vendor_completions.d COMPONENT vistrel)
    install(FILES ${documents}/vistrel.ps1 DESTINATION share/vistrel COMPONENT vistrel)
endif()
if(TARGET qrtVistrelClasses4_server)
    install(TARGETS qrtVistrelClasses4_server RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
