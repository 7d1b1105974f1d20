# Stands for Qt's own package, which Debian does not have: the header alone, nothing to link.
if(NOT TARGET Qt5::MacExtras)
  add_library(Qt5::MacExtras INTERFACE IMPORTED)
  set_target_properties(
    Qt5::MacExtras PROPERTIES INTERFACE_INCLUDE_DIRECTORIES "${CMAKE_CURRENT_LIST_DIR}/../sdk/QtMacExtras"
                              INTERFACE_LINK_LIBRARIES Qt5::Gui)
endif()
set(Qt5MacExtras_FOUND TRUE)
set(Qt5MacExtras_VERSION ${Qt5_VERSION})
