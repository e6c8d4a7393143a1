# Compiler options shared by every target of the project.
add_library(telvaro_options INTERFACE)
target_compile_options(telvaro_options INTERFACE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor)
# g++ 12 reports false -Wrestrict and -Wstringop-overflow warnings inside
# libstdc++ string concatenation at -O3 (GCC bug 105329), and false
# -Wmaybe-uninitialized ones for std::optional payloads.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(telvaro_options INTERFACE -Wno-restrict -Wno-stringop-overflow -Wno-maybe-uninitialized)
endif()
if(TELVARO_WERROR)
  target_compile_options(telvaro_options INTERFACE -Werror)
endif()
if(TELVARO_SANITIZE)
  target_compile_options(telvaro_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                   -fno-omit-frame-pointer)
  target_link_options(telvaro_options INTERFACE -fsanitize=address,undefined)
endif()
target_include_directories(telvaro_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
