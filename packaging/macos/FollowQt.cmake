# Two things follow from the Qt that CMake found: the processors that the program is built for, which are those that
# Qt's own library has, and the oldest macOS that it starts on. The second is CMAKE_OSX_DEPLOYMENT_TARGET, from which the
# compiler's flag and the LSMinimumSystemVersion of Info.plist are made. Neither is asked of the library when it is set.
include("${CMAKE_CURRENT_LIST_DIR}/MinimumSystems.cmake")

# vexa_architectures_in(library result): "arm64", "x86_64", or both.
function(vexa_architectures_in library result)
  execute_process(COMMAND lipo -archs "${library}" OUTPUT_VARIABLE listed COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL "[^ \n]+" architectures "${listed}")
  set(${result}
      "${architectures}"
      PARENT_SCOPE)
endfunction()

# vexa_minimum_of(library architectures result): the oldest system that has the processors and takes the library.
function(vexa_minimum_of library architectures result)
  execute_process(COMMAND otool -l "${library}" OUTPUT_VARIABLE listed COMMAND_ERROR_IS_FATAL ANY)
  # A newer linker writes "minos 11.0" under LC_BUILD_VERSION, an older one "version 10.13" under LC_VERSION_MIN_MACOSX.
  string(REGEX MATCHALL "minos [0-9.]+|LC_VERSION_MIN_MACOSX[^a-z]*cmdsize [0-9]+[^a-z]*version [0-9.]+" found
               "${listed}")
  list(TRANSFORM found REPLACE ".* " "")
  foreach(architecture IN LISTS architectures)
    list(APPEND found ${VEXA_OLDEST_MACOS_${architecture}})
  endforeach()
  list(
    SORT found
    COMPARE NATURAL
    ORDER DESCENDING)
  list(GET found 0 newest)
  set(${result}
      ${newest}
      PARENT_SCOPE)
endfunction()

# Sets both in the caller's folder, and below it.
macro(vexa_follow_qt)
  get_target_property(vexa_qt_library Qt5::Core LOCATION)
  if(NOT CMAKE_OSX_ARCHITECTURES)
    vexa_architectures_in("${vexa_qt_library}" CMAKE_OSX_ARCHITECTURES)
  endif()
  if(NOT CMAKE_OSX_DEPLOYMENT_TARGET)
    vexa_minimum_of("${vexa_qt_library}" "${CMAKE_OSX_ARCHITECTURES}" CMAKE_OSX_DEPLOYMENT_TARGET)
  endif()
  message(STATUS "For macOS ${CMAKE_OSX_DEPLOYMENT_TARGET} on ${CMAKE_OSX_ARCHITECTURES}, as Qt's own library")
  # macdeployqt has to be the one of this Qt, wherever another may be on the path: it lies beside qmake.
  get_target_property(vexa_qmake Qt5::qmake IMPORTED_LOCATION)
  file(WRITE "${PROJECT_BINARY_DIR}/qmake-in-use" "${vexa_qmake}\n")
endmacro()
