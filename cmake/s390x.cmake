# IBM Z, which stores the highest byte of a number first: cmake --toolchain cmake/s390x.cmake
# The Debian package g++-s390x-linux-gnu has the compiler.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR s390x)
set(CMAKE_C_COMPILER s390x-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER s390x-linux-gnu-g++)
