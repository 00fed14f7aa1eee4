# Builds of one commit make the same bytes in every folder, and at any time.
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND PROJECT_IS_TOP_LEVEL)
    # Debuggers and lint need the real paths, programs for users do not.
    add_compile_options(-ffile-prefix-map=${PROJECT_BINARY_DIR}=. -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
endif()

# D: archives without times and users, whatever the tools do by default.
set(CMAKE_CXX_ARCHIVE_CREATE "<CMAKE_AR> qcD <TARGET> <LINK_FLAGS> <OBJECTS>")
set(CMAKE_CXX_ARCHIVE_APPEND "<CMAKE_AR> qD <TARGET> <LINK_FLAGS> <OBJECTS>")
set(CMAKE_CXX_ARCHIVE_FINISH "<CMAKE_RANLIB> -D <TARGET>")

if(MINGW)
    add_link_options(-Wl,--no-insert-timestamp)
endif()
