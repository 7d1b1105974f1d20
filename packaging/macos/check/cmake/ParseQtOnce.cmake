# Has Qt's headers parsed once for all sources of a check, which is most of its time. Included at the end of project().
# What QWidget's header brings along is thus known in every source; --apart does without.
function(check_targets_below folder result)
  get_property(
    targets
    DIRECTORY "${folder}"
    PROPERTY BUILDSYSTEM_TARGETS)
  get_property(
    subfolders
    DIRECTORY "${folder}"
    PROPERTY SUBDIRECTORIES)
  foreach(subfolder IN LISTS subfolders)
    check_targets_below("${subfolder}" further)
    list(APPEND targets ${further})
  endforeach()
  set(${result}
      ${targets}
      PARENT_SCOPE)
endfunction()

function(check_parse_qt_once)
  check_targets_below("${PROJECT_SOURCE_DIR}" targets)
  file(WRITE "${PROJECT_BINARY_DIR}/parsed.cpp" "")
  add_library(check_parsed_qt OBJECT "${PROJECT_BINARY_DIR}/parsed.cpp")
  target_link_libraries(check_parsed_qt PRIVATE vexa_options Qt5::Widgets)
  target_precompile_headers(check_parsed_qt PRIVATE <QApplication> <QWidget>)
  foreach(target IN LISTS targets)
    get_target_property(type ${target} TYPE)
    if(type MATCHES "EXECUTABLE|STATIC_LIBRARY|OBJECT_LIBRARY")
      target_precompile_headers(${target} REUSE_FROM check_parsed_qt)
    endif()
  endforeach()
endfunction()

cmake_language(DEFER DIRECTORY "${CMAKE_SOURCE_DIR}" CALL check_parse_qt_once)
