# The shared library, made of the objects of the static one. Programs see only what the public headers declare
# (include/qrtVistrelClasses4/Export.h). The program `vistrel` and the tests use inner parts, and link the static library.
set_target_properties(qrtVistrelClasses4 PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)

set(symbols ${PROJECT_SOURCE_DIR}/cmake/SharedLibrary.map)
add_library(qrtVistrelClasses4_shared SHARED $<TARGET_OBJECTS:qrtVistrelClasses4>)
set_target_properties(qrtVistrelClasses4_shared PROPERTIES
    OUTPUT_NAME qrtVistrelClasses4
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    LINKER_LANGUAGE CXX
    LINK_DEPENDS ${symbols})
target_compile_features(qrtVistrelClasses4_shared INTERFACE cxx_std_20)
target_include_directories(qrtVistrelClasses4_shared INTERFACE
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
    $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/generated/include>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
target_link_libraries(qrtVistrelClasses4_shared PRIVATE ${CMAKE_DL_LIBS})
target_link_options(qrtVistrelClasses4_shared PRIVATE -Wl,--version-script=${symbols})

add_library(qrtVistrelClasses4::qrtVistrelClasses4 ALIAS qrtVistrelClasses4_shared)
add_library(qrtVistrelClasses4::static ALIAS qrtVistrelClasses4)
# The package has them under the same two names.
set_target_properties(qrtVistrelClasses4_shared PROPERTIES EXPORT_NAME qrtVistrelClasses4)
set_target_properties(qrtVistrelClasses4 PROPERTIES EXPORT_NAME static)
