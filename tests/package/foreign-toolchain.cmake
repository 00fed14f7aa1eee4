# A toolchain file of somebody else, who names no more than the compiler: the library must find the rest.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++)
