# The oldest macOS that the sources are meant for, by processor; what the Qt in use needs may raise it (FollowQt.cmake).
# Apple silicon starts with 11.0.
set(VEXA_OLDEST_MACOS_x86_64 10.13)
set(VEXA_OLDEST_MACOS_arm64 11.0)
