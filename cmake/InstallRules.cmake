# Three components: Runtime (what a program needs to run), Development (what is needed to build one)
# and Tool (the program ktrcl).

include(CMakePackageConfigHelpers)

set(ktrcl_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/KTRCL_Geometry")

install(
  TARGETS KTRCL_DataTypes KTRCL_Geometry
  EXPORT KTRCL_GeometryTargets
  LIBRARY COMPONENT Runtime NAMELINK_COMPONENT Development
  FILE_SET HEADERS COMPONENT Development)
# The libraries lie side by side and find each other there.
set_target_properties(KTRCL_Geometry PROPERTIES INSTALL_RPATH "$ORIGIN")

install(
  EXPORT KTRCL_GeometryTargets
  NAMESPACE KTRCL::
  DESTINATION "${ktrcl_package_dir}"
  COMPONENT Development)

configure_package_config_file(
  "${PROJECT_SOURCE_DIR}/cmake/KTRCL_GeometryConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/KTRCL_GeometryConfig.cmake"
  INSTALL_DESTINATION "${ktrcl_package_dir}"
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/KTRCL_GeometryConfigVersion.cmake"
                                 COMPATIBILITY SameMinorVersion)
install(
  FILES "${PROJECT_BINARY_DIR}/KTRCL_GeometryConfig.cmake"
        "${PROJECT_BINARY_DIR}/KTRCL_GeometryConfigVersion.cmake"
  DESTINATION "${ktrcl_package_dir}"
  COMPONENT Development)

# The pkg-config files reckon their prefix from where they lie, so that an installation may be moved
# and `cmake --install --prefix` need not be known when the project is configured.
file(RELATIVE_PATH ktrcl_prefix_from_pc "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
string(REGEX REPLACE "/$" "" ktrcl_prefix_from_pc "${ktrcl_prefix_from_pc}")
foreach(package KTRCL_DataTypes KTRCL_Geometry)
  configure_file("${PROJECT_SOURCE_DIR}/cmake/${package}.pc.in"
                 "${PROJECT_BINARY_DIR}/${package}.pc" @ONLY)
  install(
    FILES "${PROJECT_BINARY_DIR}/${package}.pc"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
    COMPONENT Development)
endforeach()

if(TARGET ktrcl)
  install(TARGETS ktrcl RUNTIME COMPONENT Tool)
endif()
