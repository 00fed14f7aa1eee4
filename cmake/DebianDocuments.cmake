# CPack runs this script when the files of all packages are in place. It adds the documents that every Debian package has,
# and compresses manual pages. Its date is that of SOURCE_DATE_EPOCH.
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)

function(compress)
    execute_process(COMMAND gzip -9 -n -f ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER ${component} upper)
    set(package ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
    set(root ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${component}${CPACK_PACKAGING_INSTALL_PREFIX}/share)
    configure_file(${CMAKE_CURRENT_LIST_DIR}/../packaging/linux/copyright ${root}/doc/${package}/copyright COPYONLY)
    file(WRITE ${root}/doc/${package}/changelog "${package} (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium

  * Built from the sources of this version.

 -- ${CPACK_DEBIAN_PACKAGE_MAINTAINER}  ${date}
")
    file(GLOB_RECURSE pages ${root}/man/*.1)
    compress(${root}/doc/${package}/changelog ${pages})
endforeach()
