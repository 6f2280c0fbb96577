# 32-bit x86 with SSE2, by a compiler of another processor: cmake --toolchain cmake/i686.cmake
# The Debian package g++-i686-linux-gnu has the compiler. A 64-bit machine runs the programs with the libraries beside it.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_COMPILER i686-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER i686-linux-gnu-g++)
set(CMAKE_CXX_FLAGS_INIT -msse2)
set(libraries /usr/i686-linux-gnu/lib)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-Wl,--dynamic-linker=${libraries}/ld-linux.so.2 -Wl,-rpath,${libraries}")
