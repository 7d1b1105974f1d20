# How every target of this project is made: one place for warnings, include root and Qt's code generators.

option(VEXA_WERROR "Treat compiler warnings as errors" OFF)
set(VEXA_SANITIZE
    ""
    CACHE STRING "Sanitizers to build with, for example address,undefined or thread")
option(VEXA_JOINED
       "Compile the sources of the toolkit's rooms joined, several at a time; any other build shows that each can \
be compiled by itself" OFF)

add_library(vexa_options INTERFACE)
target_compile_options(vexa_options INTERFACE -Wall -Wextra -Wshadow -Wconversion -Wnon-virtual-dtor
                                              $<$<BOOL:${VEXA_WERROR}>:-Werror>)
target_compile_definitions(vexa_options INTERFACE QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH
                                                  QT_DEPRECATED_WARNINGS)
target_include_directories(vexa_options INTERFACE "${PROJECT_SOURCE_DIR}/src")
if(VEXA_SANITIZE)
  target_compile_options(vexa_options INTERFACE -fsanitize=${VEXA_SANITIZE} -fno-omit-frame-pointer
                                                -fno-sanitize-recover=all)
  target_link_options(vexa_options INTERFACE -fsanitize=${VEXA_SANITIZE})
  if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
    # An Objective-C runtime, the fake one too, calls methods by their encoding and not by their C type.
    target_compile_options(vexa_options INTERFACE -fno-sanitize=function)
  endif()
endif()

# vexa_library(name SOURCES ... [PUBLIC ...] [PRIVATE ...] [QT]): a static library. PUBLIC is what its headers need,
# PRIVATE what its sources use beside that; QT turns on moc and uic for it.
function(vexa_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "QT" "" "SOURCES;PUBLIC;PRIVATE")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "vexa_library(${name}): what is ${arg_UNPARSED_ARGUMENTS}?")
  endif()
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(
    ${name}
    PUBLIC vexa_options ${arg_PUBLIC}
    PRIVATE ${arg_PRIVATE})
  if(arg_QT)
    set_target_properties(
      ${name}
      PROPERTIES AUTOMOC ON
                 AUTOUIC ON
                 UNITY_BUILD ${VEXA_JOINED})
  endif()
endfunction()
