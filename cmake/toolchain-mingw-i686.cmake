# Cross-compiling the Windows build with MinGW-w64 (i686).
set(CMAKE_SYSTEM_PROCESSOR i686)
set(TELVARO_MINGW_PREFIX i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-mingw-common.cmake)
