# The installed package: find_package(qrtVistrelClasses4), then link qrtVistrelClasses4::qrtVistrelClasses4.
include(CMakePackageConfigHelpers)

install(TARGETS qrtVistrelClasses4 EXPORT qrtVistrelClasses4Targets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/qrtVistrelClasses4 DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/qrtVistrelClasses4)
install(EXPORT qrtVistrelClasses4Targets NAMESPACE qrtVistrelClasses4:: DESTINATION ${package_dir})
file(WRITE ${PROJECT_BINARY_DIR}/qrtVistrelClasses4Config.cmake
    "include(\"\${CMAKE_CURRENT_LIST_DIR}/qrtVistrelClasses4Targets.cmake\")\n")
write_basic_package_version_file(${PROJECT_BINARY_DIR}/qrtVistrelClasses4ConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/qrtVistrelClasses4Config.cmake
    ${PROJECT_BINARY_DIR}/qrtVistrelClasses4ConfigVersion.cmake DESTINATION ${package_dir})
if(TARGET vistrel)
    # The program looks for the fonts in "share/vistrel" beside its own folder (platform/posix/PosixFolders.h).
    install(TARGETS vistrel RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT vistrel)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/samples/bin ${PROJECT_SOURCE_DIR}/samples/CustomFonts
        DESTINATION share/vistrel COMPONENT vistrel)
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
