# vexa_test(name SOURCES ... LINK ... [ARGUMENTS ...] [LABELS ...] [TIMEOUT s] [RESOURCES] [OWN_FOLDER] [OPTIMIZED]
#           [DISPLAY [SCREEN 1920x1080] [WITHOUT extension] [WM] [COMPOSITOR] [BUS]])
#           [OFFSCREEN]
#
# A Qt Test program. It is named after its folder and its file: overlays_Grab is tests/overlays/GrabTest.cpp.
# DISPLAY runs it on an X server of its own (see scripts/with-display), so tests that need a screen can run side
# by side; RESOURCES links the program's compiled-in resources. OWN_FOLDER keeps the program in a folder of its own
# (name.dir): the settings file lies beside the executable, and tests that read or write it must not share it.
# OPTIMIZED is for a test that itself looks at many pixels.
#
# OFFSCREEN is for a test that any system with Qt can run, a Mac too, and without a display server: it is run on Qt's
# offscreen platform, beside its own display if it has one, and bears the label by which the preset macos selects it.
#
# vexa_test(name PROGRAM other ...): the program of another test once more, on another display or with an
# ENVIRONMENT of its own.

# The optimizer took two fifths of the time that a test's compilation takes in a release, and more under the sanitizers.
# What the tests are about, and what they share, is compiled as the preset says.
if(VEXA_SANITIZE)
  set(vexa_test_effort -O0)
else()
  set(vexa_test_effort $<$<CONFIG:Release>:-O0>)
endif()

# What tests include, parsed once for all of them, and no more than most include: the templates that a header uses are
# instantiated for each test anew. QTest's own header holds more for a test that has widgets.
function(vexa_test_headers name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINK;HEADERS")
  add_library(${name} OBJECT "${PROJECT_SOURCE_DIR}/tests/support/PrecompiledHeaders.cpp")
  target_link_libraries(${name} PRIVATE vexa_options ${arg_LINK} Qt5::Test)
  target_compile_options(${name} PRIVATE ${vexa_test_effort})
  target_precompile_headers(
    ${name}
    PRIVATE
    <QTest>
    <QElapsedTimer>
    <QPointer>
    <QProcess>
    <QSignalSpy>
    <QTemporaryDir>
    <algorithm>
    <functional>
    <memory>
    <vector>
    ${arg_HEADERS})
endfunction()
vexa_test_headers(vexa_test_headers)
vexa_test_headers(vexa_test_headers_of_widgets LINK Qt5::Widgets HEADERS <QLabel> <QPainter> <QScreen>)

# vexa_test_reuse(name WHAT ...): gives a test that links WHAT the precompiled headers that fit. A compiler takes them
# only where what QTest's header asks for is defined as it was for them; of Gui alone and of the network no test uses
# anything there.
function(vexa_test_reuse name)
  set(headers vexa_test_headers)
  set(links ${ARGN})
  while(links)
    list(POP_FRONT links link)
    if(link STREQUAL "Qt5::Widgets")
      set(headers vexa_test_headers_of_widgets)
    elseif(TARGET ${link})
      get_property(
        further
        TARGET ${link}
        PROPERTY INTERFACE_LINK_LIBRARIES)
      list(APPEND links ${further})
    endif()
  endwhile()
  if(headers STREQUAL "vexa_test_headers")
    target_compile_options(${name} PRIVATE -UQT_GUI_LIB)
  endif()
  target_compile_options(${name} PRIVATE -UQT_NETWORK_LIB)
  target_precompile_headers(${name} REUSE_FROM ${headers})
endfunction()

# LLVM's linker takes an eighth of the time that the system's own takes for a test.
if(NOT APPLE)
  find_program(VEXA_LLD ld.lld DOC "LLVM's linker, for the tests; without it they are linked by the compiler's own")
endif()

if(VEXA_SANITIZE)
  add_library(vexa_keep_loaded OBJECT "${PROJECT_SOURCE_DIR}/tests/support/KeepLoaded.cpp")
  target_link_libraries(vexa_keep_loaded PRIVATE vexa_options)
endif()

# A test's class stands in its source, so moc has one file to read and no headers to look into. AUTOMOC would start a
# program of CMake's for each test and compile one more file with the precompiled headers, which takes as long as the test.
function(vexa_test_moc name)
  set(folder "${CMAKE_CURRENT_BINARY_DIR}/${name}.moc")
  file(MAKE_DIRECTORY "${folder}")
  foreach(source ${ARGN})
    if(source MATCHES "Test\\.cpp$")
      get_filename_component(base ${source} NAME_WE)
      add_custom_command(
        OUTPUT "${folder}/${base}.moc"
        COMMAND Qt5::moc -o "${folder}/${base}.moc" "${CMAKE_CURRENT_SOURCE_DIR}/${source}"
        DEPENDS "${source}"
        VERBATIM)
      target_sources(${name} PRIVATE "${folder}/${base}.moc")
    endif()
  endforeach()
  target_include_directories(${name} PRIVATE "${folder}")
endfunction()

function(vexa_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "OFFSCREEN;DISPLAY;WM;COMPOSITOR;BUS;RESOURCES;OWN_FOLDER;OPTIMIZED"
                        "SCREEN;WITHOUT;TIMEOUT;PROGRAM" "SOURCES;LINK;LABELS;ENVIRONMENT;ARGUMENTS")
  if(APPLE AND NOT arg_OFFSCREEN)
    return() # it brings an X server, or fakes of what a Mac has
  endif()
  if(NOT arg_PROGRAM)
    set(arg_PROGRAM ${name})
    add_executable(${name} ${arg_SOURCES})
    vexa_test_moc(${name} ${arg_SOURCES})
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    target_link_libraries(${name} PRIVATE vexa_options ${arg_LINK} Qt5::Test)
    if(NOT arg_OPTIMIZED)
      target_compile_options(${name} PRIVATE ${vexa_test_effort})
      vexa_test_reuse(${name} ${arg_LINK})
    endif()
    if(VEXA_LLD)
      target_link_options(${name} PRIVATE -fuse-ld=lld)
    endif()
    if(VEXA_SANITIZE)
      target_sources(${name} PRIVATE $<TARGET_OBJECTS:vexa_keep_loaded>)
    endif()
    if(arg_RESOURCES)
      target_link_libraries(${name} PRIVATE vexa_resources)
    endif()
    if(arg_OWN_FOLDER)
      set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/${name}.dir")
    endif()
  endif()

  set(command $<TARGET_FILE:${arg_PROGRAM}> ${arg_ARGUMENTS})
  set(labels ${arg_LABELS})
  set(offscreen QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software)
  if(arg_DISPLAY AND NOT APPLE)
    list(APPEND labels display)
    set(screen 1920x1080)
    if(arg_SCREEN)
      set(screen ${arg_SCREEN})
    endif()
    set(with "${PROJECT_SOURCE_DIR}/scripts/with-display" --screen ${screen})
    if(arg_WITHOUT)
      list(APPEND with --without ${arg_WITHOUT})
    endif()
    if(arg_WM)
      list(APPEND with --wm)
    endif()
    if(arg_COMPOSITOR)
      list(APPEND with --compositor)
    endif()
    if(arg_BUS)
      list(APPEND with --bus)
    endif()
    list(PREPEND command ${with} --)
  else()
    list(APPEND labels logic)
    if(arg_OFFSCREEN)
      list(APPEND labels offscreen)
      list(APPEND arg_ENVIRONMENT ${offscreen})
    endif()
  endif()

  add_test(NAME ${name} COMMAND ${command})
  set(timeout 120)
  if(arg_TIMEOUT)
    set(timeout ${arg_TIMEOUT})
  endif()
  # Freed memory is kept back for a while to catch late uses; for the usual while the pictures of a screen add up to
  # what looks like a leak. The slow unwinder would name more of a leak's frames, but locks itself out when a driver
  # registers code it has just compiled.
  set(environment
      "ASAN_OPTIONS=quarantine_size_mb=16"
      "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0"
      "UBSAN_OPTIONS=print_stacktrace=1" ${arg_ENVIRONMENT})
  # What may take long begins early, so that it does not run alone in the end.
  set_tests_properties(${name} PROPERTIES LABELS "${labels}" ENVIRONMENT "${environment}")
  set_tests_properties(${name} PROPERTIES TIMEOUT ${timeout} COST ${timeout})
  # Under the sanitizers once is enough.
  if(arg_OFFSCREEN
     AND arg_DISPLAY
     AND NOT APPLE
     AND NOT VEXA_SANITIZE)
    add_test(NAME ${name}Offscreen COMMAND $<TARGET_FILE:${arg_PROGRAM}>)
    set_tests_properties(${name}Offscreen PROPERTIES LABELS offscreen ENVIRONMENT "${environment};${offscreen}")
    set_tests_properties(${name}Offscreen PROPERTIES TIMEOUT ${timeout} COST ${timeout})
    if(arg_OWN_FOLDER)
      set_tests_properties(${name} ${name}Offscreen PROPERTIES RESOURCE_LOCK ${name}) # one settings file for both
    endif()
  endif()
endfunction()

# vexa_script_test(name COMMAND ... [LABELS ...]): a test that is a script.
function(vexa_script_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "COMMAND;LABELS")
  add_test(NAME ${name} COMMAND ${arg_COMMAND})
  set_tests_properties(${name} PROPERTIES LABELS "${arg_LABELS}" TIMEOUT 3600 COST 3600)
endfunction()
