# libxlsxwriter for the Windows builds: Debian has no MinGW build of it, so
# its Debian source (fetched by scripts/setup into third_party/) is built
# here as the static library telvaro_xlsxwriter, with MinGW's static zlib
# and its bundled minizip, tmpfileplus and md5; no tests, no examples. The
# sources are compiled as Debian ships them, with one header included ahead
# of each that opens files by UTF-8 names (src/sheet/win32/
# xlsxwriter_file_names.h). Linux uses the Debian package (pkg-config).
set(TELVARO_XLSXWRITER_VERSION 1.1.4)
set(TELVARO_XLSXWRITER_SOURCE "${PROJECT_SOURCE_DIR}/third_party/libxlsxwriter-${TELVARO_XLSXWRITER_VERSION}"
    CACHE PATH "The unpacked source of libxlsxwriter ${TELVARO_XLSXWRITER_VERSION} for the Windows builds")
set(lxw "${TELVARO_XLSXWRITER_SOURCE}")
if(NOT EXISTS "${lxw}/include/xlsxwriter.h" OR NOT EXISTS "${lxw}/third_party/minizip/zip.c")
  message(FATAL_ERROR "The source of libxlsxwriter ${TELVARO_XLSXWRITER_VERSION} is not in ${lxw}: "
                      "the Windows builds compile it. Run scripts/setup (make setup), which fetches it "
                      "with apt-get source, or set TELVARO_XLSXWRITER_SOURCE to an unpacked copy.")
endif()
file(STRINGS "${lxw}/include/xlsxwriter.h" lxw_version_line REGEX "#define LXW_VERSION ")
if(NOT lxw_version_line MATCHES "\"${TELVARO_XLSXWRITER_VERSION}\"")
  message(FATAL_ERROR "${lxw} is not libxlsxwriter ${TELVARO_XLSXWRITER_VERSION} (${lxw_version_line})")
endif()

# The static zlib, so that telvaro.dll needs no zlib1.dll beside it.
find_library(TELVARO_MINGW_ZLIB NAMES libz.a REQUIRED)
find_path(TELVARO_MINGW_ZLIB_INCLUDE zlib.h REQUIRED)

file(GLOB lxw_sources "${lxw}/src/*.c")
add_library(telvaro_xlsxwriter STATIC ${lxw_sources}
  "${lxw}/third_party/minizip/ioapi.c" "${lxw}/third_party/minizip/zip.c"
  "${lxw}/third_party/tmpfileplus/tmpfileplus.c" "${lxw}/third_party/md5/md5.c"
  "${PROJECT_SOURCE_DIR}/src/sheet/win32/xlsxwriter_file_names.c")
target_include_directories(telvaro_xlsxwriter SYSTEM PUBLIC "${lxw}/include")
target_include_directories(telvaro_xlsxwriter PRIVATE "${lxw}/include/xlsxwriter" "${TELVARO_MINGW_ZLIB_INCLUDE}")
# As libxlsxwriter's own build for MinGW: no zip encryption, the 32-bit
# file calls (fopen, not fopen64).
target_compile_definitions(telvaro_xlsxwriter PRIVATE NOCRYPT NOUNCRYPT USE_FILE32API)
# Someone else's code: its warnings are not ours to fix.
target_compile_options(telvaro_xlsxwriter PRIVATE -w -include
                       "${PROJECT_SOURCE_DIR}/src/sheet/win32/xlsxwriter_file_names.h")
target_link_libraries(telvaro_xlsxwriter PUBLIC "${TELVARO_MINGW_ZLIB}")
set_target_properties(telvaro_xlsxwriter PROPERTIES C_STANDARD 99)
unset(lxw)
