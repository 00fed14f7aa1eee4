# cmake -D DEFINITION=file.idl -D VERSION=4.0.0 -D PROCESSOR=amd64 -D MANIFEST=name.manifest -P SideBySide.cmake
#
# Writes the manifest of the side-by-side assembly `name`, with which programs use the server without its
# registration. The assembly needs another name than the server: Windows would look for its manifest inside the DLL.
cmake_minimum_required(VERSION 3.22)

set(name "([A-Za-z_][A-Za-z_0-9]*)")
set(id "uuid\\(([0-9a-f-]+)\\)[^>]*>")

# Appends to `elements` what REGEX REPLACE makes of each match in `definition`.
function(add_each pattern element)
    string(REGEX MATCHALL "${pattern}" found "${definition}")
    if(NOT found)
        message(FATAL_ERROR "${DEFINITION}: SideBySide.cmake finds nothing like ${pattern}")
    endif()
    foreach(text IN LISTS found)
        string(REGEX REPLACE "${pattern}" "${element}" text "${text}")
        string(APPEND elements "${text}")
    endforeach()
    set(elements "${elements}" PARENT_SCOPE)
endfunction()

file(READ ${DEFINITION} definition)
string(REGEX REPLACE "//[^\n]*" "" definition "${definition}")
string(REGEX REPLACE "[ \t\r\n]+" " " definition "${definition}")
# CMake takes a list with brackets in it for a shorter one.
string(REPLACE "[" "<" definition "${definition}")
string(REPLACE "]" ">" definition "${definition}")
if(NOT definition MATCHES "<${id} library ${name} {")
    message(FATAL_ERROR "${DEFINITION}: SideBySide.cmake finds no library")
endif()
set(library_id ${CMAKE_MATCH_1})
set(library ${CMAKE_MATCH_2})
string(REGEX MATCH "version\\(([0-9.]+)\\)" library_version "${CMAKE_MATCH_0}")
set(library_version ${CMAKE_MATCH_1})
cmake_path(GET MANIFEST STEM LAST_ONLY assembly)

set(elements "    <file name=\"${library}.dll\">\n")
add_each("<${id} coclass ${name}" "        <comClass clsid=\"{\\1}\" progid=\"${library}.\\2\"
            threadingModel=\"Apartment\" tlbid=\"{${library_id}}\"/>\n")
string(APPEND elements "        <typelib tlbid=\"{${library_id}}\" version=\"${library_version}\" helpdir=\"\"/>
    </file>\n")
# The system's own proxy makes calls between threads with what the type library says.
add_each("${id} interface ${name}" "    <comInterfaceExternalProxyStub name=\"\\2\" iid=\"{\\1}\"
        proxyStubClsid32=\"{00020424-0000-0000-C000-000000000046}\" tlbid=\"{${library_id}}\"/>\n")

file(WRITE ${MANIFEST} "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>
<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">
    <assemblyIdentity type=\"win32\" name=\"${assembly}\" version=\"${VERSION}.0\" processorArchitecture=\"${PROCESSOR}\"/>
${elements}</assembly>
")
