# Compiler options shared by every target of the project.
add_library(telvaro_options INTERFACE)
if(MSVC)
  target_compile_options(telvaro_options INTERFACE "$<BUILD_INTERFACE:/W4;/utf-8;/permissive-;/EHsc>")
else()
  target_compile_options(telvaro_options INTERFACE "$<BUILD_INTERFACE:-Wall;-Wextra;-Wpedantic>")
  # COM interfaces are released, never deleted through a base pointer, and
  # have no virtual destructors by design.
  if(NOT WIN32)
    target_compile_options(telvaro_options INTERFACE $<BUILD_INTERFACE:-Wnon-virtual-dtor>)
  endif()
endif()
# g++ 12 reports false -Wrestrict and -Wstringop-overflow warnings inside
# libstdc++ string concatenation at -O3 (GCC bug 105329), and false
# -Wmaybe-uninitialized ones for std::optional payloads.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(telvaro_options INTERFACE "$<BUILD_INTERFACE:-Wno-restrict;-Wno-stringop-overflow;-Wno-maybe-uninitialized>")
endif()
if(TELVARO_WERROR)
  target_compile_options(telvaro_options INTERFACE $<BUILD_INTERFACE:$<IF:$<BOOL:${MSVC}>,/WX,-Werror>>)
endif()
if(WIN32)
  # Win32 headers without the min/max macros, for Windows 7 and later.
  target_compile_definitions(telvaro_options INTERFACE NOMINMAX _WIN32_WINNT=0x0601 WINVER=0x0601)
endif()
if(MINGW)
  # One self-contained DLL: the C++ runtime and the threads library are
  # linked in, so a client needs nothing beside telvaro.dll.
  target_link_options(telvaro_options INTERFACE -static -static-libgcc -static-libstdc++)
endif()
if(TELVARO_SANITIZE)
  target_compile_options(telvaro_options INTERFACE
    "$<BUILD_INTERFACE:-fsanitize=address,undefined;-fno-sanitize-recover=all;-fno-omit-frame-pointer>")
  target_link_options(telvaro_options INTERFACE $<BUILD_INTERFACE:-fsanitize=address,undefined>)
endif()
# Inside the tree the sources are the headers; an installed tree keeps them
# under include/telvaro, with the same folders.
target_include_directories(telvaro_options INTERFACE $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>
                                                     $<INSTALL_INTERFACE:include/telvaro>)
