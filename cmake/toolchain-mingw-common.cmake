# The part the MinGW-w64 toolchain files share: the compilers of the posix
# threading model (std::thread and std::mutex) for TELVARO_MINGW_PREFIX,
# and headers and libraries from that target only.
set(CMAKE_SYSTEM_NAME Windows)

set(CMAKE_C_COMPILER ${TELVARO_MINGW_PREFIX}-gcc-posix)
set(CMAKE_CXX_COMPILER ${TELVARO_MINGW_PREFIX}-g++-posix)
set(CMAKE_RC_COMPILER ${TELVARO_MINGW_PREFIX}-windres)
set(TELVARO_WIDL ${TELVARO_MINGW_PREFIX}-widl)

set(CMAKE_FIND_ROOT_PATH /usr/${TELVARO_MINGW_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
