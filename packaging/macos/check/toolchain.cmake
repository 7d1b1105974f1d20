# Configures this project for macOS on a machine that has no development kit of Apple's: real compilation by clang for
# the real target, against Debian's Qt headers and the declarations beside this file. The linker's place is taken by a
# script that first looks for symbols nobody defines. See docs/macos.md for what that proves.
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_VERSION 20)
if(NOT VEXA_CHECK_ARCH)
  set(VEXA_CHECK_ARCH arm64)
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VEXA_CHECK_ARCH)
set(CMAKE_SYSTEM_PROCESSOR ${VEXA_CHECK_ARCH})
set(CMAKE_OSX_SYSROOT "" CACHE STRING "")
include("${CMAKE_CURRENT_LIST_DIR}/../MinimumSystems.cmake")
set(CMAKE_OSX_ARCHITECTURES ${VEXA_CHECK_ARCH} CACHE STRING "" FORCE)
set(CMAKE_OSX_DEPLOYMENT_TARGET ${VEXA_OLDEST_MACOS_${VEXA_CHECK_ARCH}} CACHE STRING "" FORCE)

set(check_llvm /usr/lib/llvm-14)
set(check_folder "${CMAKE_CURRENT_LIST_DIR}")
set(CMAKE_CXX_COMPILER "${check_llvm}/bin/clang++")
set(CMAKE_CXX_COMPILER_TARGET ${VEXA_CHECK_ARCH}-apple-macos) # which macOS, CMake tells the compiler by a flag
set(CMAKE_CXX_COMPILER_WORKS TRUE)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
set(CMAKE_AR "${check_llvm}/bin/llvm-ar" CACHE FILEPATH "")
set(CMAKE_RANLIB "${check_llvm}/bin/llvm-ranlib" CACHE FILEPATH "")
set(CMAKE_INSTALL_NAME_TOOL "${check_llvm}/bin/llvm-install-name-tool" CACHE FILEPATH "")

string(CONCAT check_flags
  "-D_GNU_SOURCE -nostdinc++ -nostdlibinc"
  " -isystem ${check_folder}/sdk -isystem ${check_folder}/libc"
  " -isystem ${check_llvm}/include/c++/v1 -isystem /usr/include/x86_64-linux-musl")
set(CMAKE_CXX_FLAGS_INIT "${check_flags}")
set(CMAKE_CXX_LINK_EXECUTABLE
    "\"${check_folder}/stand-in-linker\" ${VEXA_CHECK_ARCH} ${CMAKE_OSX_DEPLOYMENT_TARGET} <TARGET> <OBJECTS> <LINK_LIBRARIES>")

set(CMAKE_PREFIX_PATH /usr/lib/x86_64-linux-gnu/cmake)
set(Qt5MacExtras_DIR "${check_folder}/cmake" CACHE PATH "")
set(CMAKE_HAVE_LIBC_PTHREAD TRUE CACHE BOOL "") # part of the system's library, which cannot be linked here
