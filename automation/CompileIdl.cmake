# qrt_compile_idl(NAME) compiles the interface definition NAME.idl of this folder. A target that links
# NAME_interfaces can include NAME.h, the interfaces, and NAMEMembers.h, what ForwardMembers.cmake makes of them. A
# target that links NAME_type_library contains the type library, where LoadTypeLib looks for it.
#
# The compiler is widl: that of MinGW-w64 for the target, whatever the toolchain file calls the target's tools, or any
# other. Definitions and type libraries are those of Wine, or on Windows those of MinGW-w64 and of the system.
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -dumpmachine OUTPUT_VARIABLE machine OUTPUT_STRIP_TRAILING_WHITESPACE)
find_program(QRT_IDL_COMPILER NAMES ${machine}-widl widl widl-stable NO_CMAKE_FIND_ROOT_PATH REQUIRED
    DOC "The IDL compiler widl; a build without the server (QRT_BUILD_SERVER=OFF) needs none")
find_path(QRT_IDL_INCLUDES oaidl.idl NO_CMAKE_FIND_ROOT_PATH REQUIRED
    PATHS /usr/include/wine/wine/windows /usr/include/wine/windows /usr/include/wine-development/wine/windows
        ${CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES}
    DOC "Folder of the system's interface definitions")
find_path(QRT_TYPE_LIBRARIES stdole2.tlb NO_CMAKE_FIND_ROOT_PATH REQUIRED
    PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows /usr/lib/i386-linux-gnu/wine/i386-windows
        /usr/lib/wine/x86_64-windows /usr/lib64/wine/x86_64-windows $ENV{SystemRoot}/System32
    DOC "Folder of the system's type libraries")
find_program(QRT_PERL perl NO_CMAKE_FIND_ROOT_PATH DOC "Perl, which changes bytes in files")

function(qrt_compile_idl name)
    set(definition ${CMAKE_CURRENT_SOURCE_DIR}/${name}.idl)
    set(output ${CMAKE_CURRENT_BINARY_DIR}/${name})
    # The header quotes the definition's name as it is given here. The type library contains the time of its
    # compilation, as a text and as the number of seconds; both become 1970 there, so that each build makes the same.
    # Without Perl they stay.
    set(undated "s/(Created by WIDL version [0-9.]+ at ).{24}(\\nW*\\x13\\0).{4}/$1Thu Jan  1 00:00:00 1970$2\\0\\0\\0\\0/s")
    if(QRT_PERL)
        set(make_undated COMMAND ${QRT_PERL} -0777 -pi -e ${undated} ${output}.tlb)
    endif()
    set(compile ${QRT_IDL_COMPILER} --win$<IF:$<EQUAL:${CMAKE_SIZEOF_VOID_P},8>,64,32>)
    add_custom_command(OUTPUT ${output}.h ${output}.tlb
        COMMAND ${compile} -I ${QRT_IDL_INCLUDES} -h -o ${output}.h ${name}.idl
        COMMAND ${compile} -I ${QRT_IDL_INCLUDES} -L ${QRT_TYPE_LIBRARIES} -t -o ${output}.tlb ${name}.idl
        ${make_undated}
        WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} DEPENDS ${definition} VERBATIM)
    set(forward_members ${CMAKE_CURRENT_SOURCE_DIR}/ForwardMembers.cmake)
    add_custom_command(OUTPUT ${output}Members.h
        COMMAND ${CMAKE_COMMAND} -D DEFINITION=${definition} -D HEADER=${output}Members.h -P ${forward_members}
        DEPENDS ${definition} ${forward_members} VERBATIM)
    add_custom_target(${name}_compiled DEPENDS ${output}.h ${output}.tlb ${output}Members.h)

    add_library(${name}_interfaces INTERFACE)
    target_include_directories(${name}_interfaces SYSTEM INTERFACE ${CMAKE_CURRENT_BINARY_DIR})
    add_dependencies(${name}_interfaces ${name}_compiled)

    file(CONFIGURE OUTPUT ${output}.rc CONTENT "1 TYPELIB \"${output}.tlb\"\n")
    set_source_files_properties(${output}.rc PROPERTIES OBJECT_DEPENDS ${output}.tlb)
    add_library(${name}_type_library OBJECT ${output}.rc)
    add_dependencies(${name}_type_library ${name}_compiled)
endfunction()
