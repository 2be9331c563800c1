# Installs the library, its headers and the package that find_package(rytree_Utils CONFIG) finds. The host installs its
# own libraries and headers, into the same export set.
include(CMakePackageConfigHelpers)
set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/rytree_Utils")

install(TARGETS rytree_Utils EXPORT rytree_UtilsTargets)
install(DIRECTORY include/ TYPE INCLUDE FILES_MATCHING PATTERN "*.h")
install(EXPORT rytree_UtilsTargets NAMESPACE rytree_Utils:: DESTINATION "${package_folder}")

configure_file(cmake/rytree_UtilsConfig.cmake.in rytree_UtilsConfig.cmake @ONLY)
write_basic_package_version_file(rytree_UtilsConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
  "${CMAKE_CURRENT_BINARY_DIR}/rytree_UtilsConfig.cmake"
  "${CMAKE_CURRENT_BINARY_DIR}/rytree_UtilsConfigVersion.cmake"
  DESTINATION "${package_folder}")
