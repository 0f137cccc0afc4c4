# Builds for 64-bit Windows with Debian's mingw-w64 cross compiler and runs what it built under Wine.
#
# Packages are searched for below CMAKE_FIND_ROOT_PATH alone: packages.sh, beside this file, makes such a directory. What
# is installed for the machine that compiles stays out of sight, its headers above all.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# The one with POSIX threads: the other's standard library has neither std::thread nor std::mutex.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine.sh ${CMAKE_BINARY_DIR}/wine run)
