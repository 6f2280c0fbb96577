# 64-bit Windows, by mingw-w64: cmake --toolchain cmake/mingw.cmake
# The Debian package g++-mingw-w64-x86-64-posix has the compiler.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
# A program needs no library of the compiler beside it.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
