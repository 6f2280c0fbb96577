# 32-bit x86 with SSE2, by the compilers of a 64-bit machine: cmake --toolchain cmake/i686.cmake
# The Debian package g++-multilib has what it links with.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_CXX_FLAGS_INIT "-m32 -msse2")
