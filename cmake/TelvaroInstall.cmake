# The installed tree (Linux):
#   bin/telvaro                              the command line
#   lib/libtelvaro_<layer>.a                 one static library per layer
#   include/telvaro/<layer>/*.h              the headers, in the source folders
#   lib/cmake/Telvaro/                       find_package(Telvaro): Telvaro::<layer>, Telvaro::telvaro
#   lib/pkgconfig/telvaro.pc                 the same libraries for pkg-config
#   share/doc/telvaro/                       README and the method reference
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(TELVARO_LAYERS telvaro_runtime telvaro_platform telvaro_callers telvaro_context telvaro_methods telvaro_frame
                   telvaro_objects telvaro_data telvaro_sheet telvaro_host)
set(TELVARO_HEADER_FOLDERS runtime platform callers context text dates ident system messages db grid forms frame
                           objects data sheet host)

# One target a consumer links for the whole library.
add_library(telvaro_library INTERFACE)
target_link_libraries(telvaro_library INTERFACE ${TELVARO_LAYERS})
set_target_properties(telvaro_library PROPERTIES EXPORT_NAME telvaro)

install(TARGETS telvaro RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT cli)
install(TARGETS telvaro_options telvaro_library ${TELVARO_LAYERS}
        EXPORT TelvaroTargets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/telvaro)
foreach(folder IN LISTS TELVARO_HEADER_FOLDERS)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/${folder}/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/telvaro/${folder}
          COMPONENT library FILES_MATCHING PATTERN "*.h" PATTERN "win32" EXCLUDE)
endforeach()
install(EXPORT TelvaroTargets NAMESPACE Telvaro:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Telvaro COMPONENT library)

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/install/TelvaroConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/TelvaroConfig.cmake
                              INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Telvaro)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TelvaroConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/TelvaroConfig.cmake ${PROJECT_BINARY_DIR}/TelvaroConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Telvaro COMPONENT library)

# pkg-config: the layers from the top down, then what they are built on.
set(TELVARO_PC_LIBS "")
foreach(layer telvaro_host telvaro_sheet telvaro_data telvaro_objects telvaro_frame telvaro_methods telvaro_context
              telvaro_callers telvaro_platform telvaro_runtime)
  string(APPEND TELVARO_PC_LIBS " -l${layer}")
endforeach()
set(TELVARO_PC_REQUIRES "icu-uc icu-i18n sqlite3 odbc libpng xlsxwriter x11 pangocairo cairo-pdf")
# CUPS ships no pkg-config file here.
string(APPEND TELVARO_PC_LIBS " -lcups")
if(ALSA_FOUND)
  string(APPEND TELVARO_PC_REQUIRES " alsa")
endif()
configure_file(${PROJECT_SOURCE_DIR}/cmake/install/telvaro.pc.in ${PROJECT_BINARY_DIR}/telvaro.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/telvaro.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT library)
install(FILES ${PROJECT_SOURCE_DIR}/README.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT cli)
if(EXISTS ${PROJECT_SOURCE_DIR}/docs/methods.md)
  install(FILES ${PROJECT_SOURCE_DIR}/docs/methods.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT cli)
endif()

# make package: a Debian package of the command line and the library.
set(CPACK_PACKAGE_NAME telvaro)
set(CPACK_PACKAGE_VENDOR "Telvaro")
set(CPACK_PACKAGE_CONTACT "Telvaro <telvaro@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "The Fun library of the data-entry applications, with its command line")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libicu-dev, libsqlite3-dev, unixodbc-dev, libpng-dev, libxlsxwriter-dev")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "libasound2")
set(CPACK_GENERATOR DEB)
include(CPack)
