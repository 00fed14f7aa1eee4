# qrt_version_resource(TARGET NAME DESCRIPTION) gives a program or DLL, whose file is called NAME, the project's version
# and a description, which Windows shows and installers compare. On other systems it does nothing.
function(qrt_version_resource target name description)
    if(NOT WIN32)
        return()
    endif()
    get_target_property(type ${target} TYPE)
    set(file_type 1) # a program
    set(file_name ${name}.exe)
    if(type STREQUAL "SHARED_LIBRARY")
        set(file_type 2)
        set(file_name ${name}.dll)
    endif()
    set(resource ${CMAKE_CURRENT_BINARY_DIR}/${name}Version.rc)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/Version.rc.in ${resource} @ONLY)
    target_sources(${target} PRIVATE ${resource})
endfunction()
