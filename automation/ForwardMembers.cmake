# cmake -D DEFINITION=file.idl -D HEADER=file.h -P ForwardMembers.cmake
#
# Writes a header with a class template XMembers<CoreClass> for each interface _X of an interface definition. The
# template has the members that only call the library's member of the same name: properties, and methods without
# arguments. Properties with an index and methods with arguments are left to the adaptors. The script fails if an
# interface holds anything else, so that no member is overlooked.
cmake_minimum_required(VERSION 3.22)

set(name "([A-Za-z_][A-Za-z_0-9]*)")
set(id "id\\([0-9]+\\)")
set(result "\\[out, retval\\] ${name}\\* ${name}")
set(value "\\[in\\] ${name} ${name}")

# Sets `members` to the C++ for the members that the interface `interface` declares in `declarations`.
function(forward_members interface declarations)
    set(members "${declarations}")
    string(REGEX REPLACE "PROPERTY\\(([0-9]+), ${name}, ${name}\\);"
        "[propget, id(\\1)] HRESULT \\3([out, retval] \\2* result); [propput, id(\\1)] HRESULT \\3([in] \\2 vData);"
        members "${members}")
    string(REGEX REPLACE "\\[propget, ${id}\\] HRESULT ${name}\\(${result}\\);"
        "STDMETHODIMP get_\\1(\\2* \\3) override { return this->get(&CoreClass::\\1, \\3); }\n" members "${members}")
    string(REGEX REPLACE "\\[propput, ${id}\\] HRESULT ${name}\\(${value}\\);"
        "STDMETHODIMP put_\\1(\\2 \\3) override { return this->put(&CoreClass::\\1, \\3); }\n" members "${members}")
    string(REGEX REPLACE "\\[${id}\\] HRESULT ${name}\\(${result}\\);"
        "STDMETHODIMP \\1(\\2* \\3) override { return this->get(&CoreClass::\\1, \\3); }\n" members "${members}")
    string(REGEX REPLACE "\\[${id}\\] HRESULT ${name}\\(\\);"
        "STDMETHODIMP \\1() override { return this->call(&CoreClass::\\1); }\n" members "${members}")
    # The library may have another setter of the same name for another enumeration. This one takes what is got.
    string(REGEX REPLACE "\\(([A-Z]+_TYPES vData\\)[^\n]*)this->put\\(&CoreClass::${name}"
        "(\\1this->template put<decltype(this->core_->\\2())>(&CoreClass::\\2" members "${members}")
    # What is left to the adaptors.
    string(REGEX REPLACE "\\[(propget, |propput, )?${id}\\] HRESULT ${name}\\(\\[in[^;]*\\);" "" members "${members}")

    string(REGEX REPLACE "STDMETHODIMP [^\n]*\n" "" unread "${members}")
    if(unread MATCHES "[^ ]")
        message(FATAL_ERROR "${DEFINITION}: ForwardMembers.cmake cannot read this in ${interface}: ${unread}")
    endif()
    # The library has types of its own by some of these names.
    string(REGEX REPLACE "\\(([A-Z])" "(::\\1" members "${members}")
    string(REGEX REPLACE " *(STDMETHODIMP [^\n]*\n) *" "    \\1" members "${members}")
    set(members "${members}" PARENT_SCOPE)
endfunction()

file(READ ${DEFINITION} definition)
string(REGEX REPLACE "//[^\n]*" "" definition "${definition}")
string(REGEX REPLACE "[ \t\r\n]+" " " definition "${definition}")
# Help is for people.
string(REGEX REPLACE ", helpstring\\(\"[^\"]*\"\\)" "" definition "${definition}")
string(REGEX REPLACE "(PROPERTY\\([^\"]*), \"[^\"]*\"" "\\1" definition "${definition}")

set(classes "")
while(definition MATCHES "interface _${name} : IDispatch {([^}]*)};")
    set(class ${CMAKE_MATCH_1})
    string(REPLACE "${CMAKE_MATCH_0}" "" definition "${definition}")
    forward_members(_${class} "${CMAKE_MATCH_2}")
    string(APPEND classes "
template <class CoreClass>
class ${class}Members : public DispatchObject<_${class}, ::${class}, CoreClass> {
public:
    using ${class}Members::DispatchObject::DispatchObject;

${members}};
")
endwhile()
if(NOT classes OR definition MATCHES "interface [^;]*{")
    message(FATAL_ERROR "${DEFINITION}: ForwardMembers.cmake cannot read the interface ${CMAKE_MATCH_0}")
endif()

cmake_path(GET DEFINITION FILENAME source)
cmake_path(GET DEFINITION STEM library)
file(WRITE ${HEADER} "// Made from ${source}: the members of its interfaces that only call the library.
#pragma once

#include \"automation/DispatchObject.h\"

#include <${library}.h>

namespace ${library} {
${classes}
} // namespace ${library}
")
