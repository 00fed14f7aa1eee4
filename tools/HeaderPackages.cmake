# Finds a package that consists of headers, whether CMake knows it or not. Those of the machine that compiles serve every other one, but a folder such
# as /usr/include also holds headers that would replace those of the system compiled for. A cross build that has no
# package of its own therefore gets a folder with nothing but the package in it.
#
# qrt_find_headers(PACKAGE TARGET FOLDER HEADER): programs link TARGET and include <FOLDER/HEADER>.
function(qrt_find_headers package target folder header)
    find_package(${package} QUIET)
    if(TARGET ${target})
        return()
    endif()
    find_path(${package}_INCLUDE_DIR ${folder}/${header} PATHS /usr/include /usr/local/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    set(headers_folder ${${package}_INCLUDE_DIR})
    if(CMAKE_CROSSCOMPILING)
        set(headers ${PROJECT_BINARY_DIR}/headers/${folder})
        cmake_path(GET headers PARENT_PATH headers_folder)
        file(MAKE_DIRECTORY ${headers_folder})
        file(CREATE_LINK ${${package}_INCLUDE_DIR}/${folder} ${headers} COPY_ON_ERROR SYMBOLIC)
    endif()
    add_library(${package}_headers INTERFACE)
    target_include_directories(${package}_headers SYSTEM INTERFACE ${headers_folder})
    add_library(${target} ALIAS ${package}_headers)
endfunction()
