# The package that find_package(vantry) finds: the layers as vantry::base to vantry::javaview.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/vantry)
configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/vantryConfig.cmake.in ${PROJECT_BINARY_DIR}/vantryConfig.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/vantryConfigVersion.cmake COMPATIBILITY SameMajorVersion)

install(EXPORT vantry NAMESPACE vantry:: FILE vantryTargets.cmake DESTINATION ${package_dir})
install(FILES
  ${PROJECT_BINARY_DIR}/vantryConfig.cmake ${PROJECT_BINARY_DIR}/vantryConfigVersion.cmake
  DESTINATION ${package_dir})
