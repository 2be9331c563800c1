# Installs the library, its headers and the package that find_package(rytree_Utils CONFIG) finds. The host installs its
# own libraries and headers, into the same export set.
include(CMakePackageConfigHelpers)
set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/rytree_Utils")

install(TARGETS rytree_Utils EXPORT rytree_UtilsTargets ${RYTREE_INSTALL_LIBRARY})
install(DIRECTORY include/ TYPE INCLUDE FILES_MATCHING PATTERN "*.h")
install(EXPORT rytree_UtilsTargets NAMESPACE rytree_Utils:: DESTINATION "${package_folder}")

configure_file(cmake/rytree_UtilsConfig.cmake.in rytree_UtilsConfig.cmake @ONLY)
write_basic_package_version_file(rytree_UtilsConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
  "${CMAKE_CURRENT_BINARY_DIR}/rytree_UtilsConfig.cmake"
  "${CMAKE_CURRENT_BINARY_DIR}/rytree_UtilsConfigVersion.cmake"
  DESTINATION "${package_folder}")

# For pkg-config: found from where the file is, so that the package can be moved. A static library needs what the host
# needs too.
file(RELATIVE_PATH to_prefix "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" /prefix)
string(REGEX REPLACE "/$" "" to_prefix "${to_prefix}")
foreach(folder IN ITEMS libdir includedir)
  string(TOUPPER "CMAKE_INSTALL_${folder}" installed)
  cmake_path(APPEND pc_${folder} "\${prefix}" "${${installed}}")
endforeach()
get_target_property(pc_libraries rytree_host INTERFACE_LINK_LIBRARIES)
list(TRANSFORM pc_libraries PREPEND "-l")
list(JOIN pc_libraries " " pc_libraries)
string(PREPEND pc_libraries "-lrytree_Utils ")
string(TOLOWER "${RYTREE_HOST_PACKAGES}" pc_requires)
set(pc_flags)
if(WIN32 AND NOT BUILD_SHARED_LIBS)
  set(pc_flags " -DRYTREE_STATIC")
  string(APPEND pc_libraries " -loleaut32")
endif()
configure_file(cmake/rytree_Utils.pc.in rytree_Utils.pc @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/rytree_Utils.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
