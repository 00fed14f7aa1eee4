# The target qrt_lint holds every source to .clang-tidy, but for the analyzer, which follows paths file by file wherever
# it is compiled in. Most of lint's time goes into headers, so the sources of a room are read as one: names in
# their unnamed namespaces must differ.
add_library(qrt_lint OBJECT EXCLUDE_FROM_ALL)
foreach(target qrtVistrelClasses4 qrt_memory_platform vistrel_commands vistrel)
    foreach(property INCLUDE_DIRECTORIES COMPILE_DEFINITIONS COMPILE_OPTIONS)
        set_property(TARGET qrt_lint APPEND PROPERTY ${property} $<TARGET_PROPERTY:${target},${property}>)
    endforeach()
    get_target_property(folder ${target} SOURCE_DIR)
    get_target_property(sources ${target} SOURCES)
    foreach(source IN LISTS sources)
        cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${folder})
        target_sources(qrt_lint PRIVATE ${source})
    endforeach()
endforeach()
target_link_libraries(qrt_lint PRIVATE qrt_warnings)

qrt_rooms_as_one(qrt_lint)
set(checks "--config-file=${PROJECT_SOURCE_DIR}/.clang-tidy;--checks=-clang-analyzer-*")
set_target_properties(qrt_lint PROPERTIES
    UNITY_BUILD ON
    UNITY_BUILD_CODE_BEFORE_INCLUDE "// NOLINTNEXTLINE(bugprone-suspicious-include)"
    CXX_CLANG_TIDY "clang-tidy;--quiet;${checks};--extra-arg=-Wno-unknown-warning-option")
