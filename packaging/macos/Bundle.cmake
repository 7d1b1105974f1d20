# vexa_macos_bundle(target): turns the program into VexaOrbilo.app. The names inside are fixed: the program runs the two
# login scripts by their path under /Applications.
function(vexa_macos_bundle target)
  set(folder "${PROJECT_SOURCE_DIR}/packaging/macos")
  set(icon "${folder}/VexaOrbilo.icns")
  set(scripts "${folder}/setAutoStartOpen.scpt" "${folder}/setAutoStartClose.scpt")
  target_sources(${target} PRIVATE ${icon} ${scripts})
  set_source_files_properties(${icon} PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
  set_source_files_properties(${scripts} PROPERTIES MACOSX_PACKAGE_LOCATION MacOS)
  set_target_properties(
    ${target}
    PROPERTIES MACOSX_BUNDLE ON
               OUTPUT_NAME VexaOrbilo
               MACOSX_BUNDLE_INFO_PLIST "${folder}/Info.plist.in"
               MACOSX_BUNDLE_BUNDLE_NAME VexaOrbilo
               MACOSX_BUNDLE_GUI_IDENTIFIER example.vexa.VexaOrbilo
               MACOSX_BUNDLE_ICON_FILE VexaOrbilo
               MACOSX_BUNDLE_SHORT_VERSION_STRING ${PROJECT_VERSION}
               MACOSX_BUNDLE_BUNDLE_VERSION ${PROJECT_VERSION})
endfunction()
