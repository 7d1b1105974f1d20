# Configures this project for macOS on a machine that has no development kit of Apple's: real compilation by clang for
# the real target, against Debian's Qt headers and the declarations beside this file. The linker's place is taken by a
# script that first looks for symbols nobody defines. See docs/macos.md for what that proves.
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_VERSION 20)
if(NOT VEXA_CHECK_ARCH)
  set(VEXA_CHECK_ARCH arm64)
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VEXA_CHECK_ARCH VEXA_CHECK_HEADERS)
set(CMAKE_SYSTEM_PROCESSOR ${VEXA_CHECK_ARCH})
set(CMAKE_OSX_SYSROOT
    ""
    CACHE STRING "")
include("${CMAKE_CURRENT_LIST_DIR}/../MinimumSystems.cmake")
set(CMAKE_OSX_ARCHITECTURES
    ${VEXA_CHECK_ARCH}
    CACHE STRING "" FORCE)
set(CMAKE_OSX_DEPLOYMENT_TARGET
    ${VEXA_OLDEST_MACOS_${VEXA_CHECK_ARCH}}
    CACHE STRING "" FORCE)

set(check_llvm /usr/lib/llvm-14)
set(check_folder "${CMAKE_CURRENT_LIST_DIR}")
set(CMAKE_CXX_COMPILER "${check_llvm}/bin/clang++")
set(CMAKE_CXX_COMPILER_TARGET ${VEXA_CHECK_ARCH}-apple-macos) # which macOS, CMake tells the compiler by a flag
set(CMAKE_CXX_COMPILER_WORKS TRUE)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
set(CMAKE_AR
    "${check_llvm}/bin/llvm-ar"
    CACHE FILEPATH "")
set(CMAKE_RANLIB
    "${check_llvm}/bin/llvm-ranlib"
    CACHE FILEPATH "")
set(CMAKE_INSTALL_NAME_TOOL
    "${check_llvm}/bin/llvm-install-name-tool"
    CACHE FILEPATH "")

# The C library's headers are Apple's own where these have been fetched (fetch-headers), musl's where not.
set(check_cxx "-isystem ${check_folder}/libcxx -isystem ${check_llvm}/include/c++/v1")
if(VEXA_CHECK_HEADERS)
  set(check_c "-isystem ${VEXA_CHECK_HEADERS}/include -isystem ${check_folder}/sdk")
  if(VEXA_CHECK_ARCH STREQUAL x86_64)
    string(APPEND check_c " -D_Float16=short") # a type that this clang does not know there, in functions nobody calls
  endif()
  set(check_system "\"${VEXA_CHECK_HEADERS}/libSystem.tbd\"")
else()
  set(check_c "-D_GNU_SOURCE -isystem ${check_folder}/sdk -isystem ${check_folder}/libc")
  set(check_musl "-isystem /usr/include/x86_64-linux-musl")
endif()
set(CMAKE_CXX_FLAGS
    "-nostdinc++ -nostdlibinc ${check_cxx} ${check_c} ${check_musl}"
    CACHE STRING "" FORCE)
string(CONCAT CMAKE_CXX_LINK_EXECUTABLE "\"${check_folder}/stand-in-linker\" ${VEXA_CHECK_ARCH}"
              " ${CMAKE_OSX_DEPLOYMENT_TARGET} <TARGET> <OBJECTS> <LINK_LIBRARIES> ${check_system}")

set(CMAKE_PREFIX_PATH /usr/lib/x86_64-linux-gnu/cmake)
set(Qt5MacExtras_DIR
    "${check_folder}/cmake"
    CACHE PATH "")
set(CMAKE_HAVE_LIBC_PTHREAD
    TRUE
    CACHE BOOL "") # part of the system's library, which cannot be linked here
