# What is installed besides the programs and the libraries, and the packages of both for Debian.

# The package that find_package(vantry) finds: the layers as vantry::base to vantry::page.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/vantry)
configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/vantryConfig.cmake.in ${PROJECT_BINARY_DIR}/vantryConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vantryConfigVersion.cmake
  VERSION ${vantry_release} COMPATIBILITY SameMajorVersion)

install(EXPORT vantry NAMESPACE vantry:: FILE vantryTargets.cmake DESTINATION ${package_dir}
  COMPONENT development)
install(FILES
  ${PROJECT_BINARY_DIR}/vantryConfig.cmake ${PROJECT_BINARY_DIR}/vantryConfigVersion.cmake
  DESTINATION ${package_dir} COMPONENT development)

# The same for pkg-config. A library comes before those it is linked to.
get_property(libraries GLOBAL PROPERTY vantry_libraries)
list(REVERSE libraries)
list(TRANSFORM libraries PREPEND -l)
list(JOIN libraries " " pkgconfig_libraries)
file(RELATIVE_PATH pkgconfig_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${CMAKE_CURRENT_LIST_DIR}/vantry.pc.in ${PROJECT_BINARY_DIR}/vantry.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/vantry.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT development)

install(FILES README.md CHANGELOG.md SECURITY.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs examples DESTINATION ${CMAKE_INSTALL_DOCDIR})

# cpack -G DEB
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VERSION ${vantry_release})
set(CPACK_PACKAGE_VENDOR vantry)
set(CPACK_PACKAGE_CONTACT "The developers of vantry <vantry@localhost.localdomain>")
set(CPACK_COMPONENTS_ALL programs development)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/debian/finish.cmake)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_NAME vantry)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SHLIBDEPS ON)
set(CPACK_COMPONENT_PROGRAMS_DESCRIPTION
  "converter of plot documents to JavaView XML
vantry converts mathematical graphics in the XML language ZRD to the files
of JavaView: geometry, animations and displays. zrd converts many of them
at once.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libvantry-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libexpat1-dev (>= 2.5.0), zlib1g-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "model of plot documents - development files
Static libraries and headers to read, change and write plot documents in
the XML language ZRD in programs of one's own, and to convert them to the
files of JavaView. They are found by CMake and by pkg-config.")
include(CPack)
