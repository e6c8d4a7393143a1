# Cross-compiling the Windows build with MinGW-w64 (x86_64).
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(TELVARO_MINGW_PREFIX x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-mingw-common.cmake)
