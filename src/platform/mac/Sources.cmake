# The sources of the macOS side, by their place under src/platform; the tests build them too, on any system.
set(vexa_mac_sources
    Activation.cpp
    ScreenPlace.cpp
    Screens.cpp
    mac/AppNap.cpp
    mac/AutoStart.cpp
    mac/Consent.cpp
    mac/CursorBitmap.cpp
    mac/CursorPicture.cpp
    mac/DisplayImage.cpp
    mac/DockClick.cpp
    mac/GraphicsCard.cpp
    mac/OverlayWindow.cpp
    mac/PictureMemory.cpp
    mac/PointerSamples.cpp
    mac/PrimaryScreen.cpp
    mac/PrivacyPane.cpp
    mac/ProgramIcon.cpp
    mac/RefusedStart.cpp
    mac/ScreenCapture.cpp
    mac/Screens.cpp
    mac/Session.cpp
    mac/SessionInput.cpp)
list(TRANSFORM vexa_mac_sources PREPEND "${PROJECT_SOURCE_DIR}/src/platform/")
