# What other programs find after `cmake --install`: headers, libraries, package files. Components: Runtime (the
# shared libraries), Development (headers, static libraries, package files), Tool (the command and its data).

include(CMakePackageConfigHelpers)

set(QSX_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/QsxReport)

# qsx_install_library(target output HEADERS file...): the static and the shared library of a layer, its pkg-config
# file, and its headers below include/<output>, under the paths by which they include each other.
function(qsx_install_library target output)
  cmake_parse_arguments(ARG "" "" "HEADERS" ${ARGN})
  install(TARGETS ${target} EXPORT QsxReportStatic
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development)
  install(TARGETS ${target}_shared EXPORT QsxReport
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Runtime NAMELINK_COMPONENT Development)
  foreach(header IN LISTS ARG_HEADERS)
    get_filename_component(folder ${header} DIRECTORY)
    install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${output}/${folder} COMPONENT Development)
  endforeach()
  # Relative, so that the tree may be installed below any prefix.
  file(RELATIVE_PATH QSX_PREFIX_FROM_PKGCONFIG ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
  configure_file(${PROJECT_SOURCE_DIR}/packaging/${output}.pc.in ${PROJECT_BINARY_DIR}/${output}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${output}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT Development)
endfunction()

# The package files: find_package(QsxReport) gives QsxReport::qsxreport, QsxReport::qsxcore and QsxReport::contract;
# with the component "static" also both libraries as _static.
function(qsx_install_package)
  install(TARGETS qsx_contract EXPORT QsxReport)
  install(EXPORT QsxReport NAMESPACE QsxReport:: FILE QsxReportTargets.cmake DESTINATION ${QSX_PACKAGE_DIR}
    COMPONENT Development)
  install(EXPORT QsxReportStatic NAMESPACE QsxReport:: FILE QsxReportStaticTargets.cmake
    DESTINATION ${QSX_PACKAGE_DIR} COMPONENT Development)
  configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/QsxReportConfig.cmake.in
    ${PROJECT_BINARY_DIR}/QsxReportConfig.cmake INSTALL_DESTINATION ${QSX_PACKAGE_DIR})
  write_basic_package_version_file(${PROJECT_BINARY_DIR}/QsxReportConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
  install(FILES ${PROJECT_BINARY_DIR}/QsxReportConfig.cmake ${PROJECT_BINARY_DIR}/QsxReportConfigVersion.cmake
    DESTINATION ${QSX_PACKAGE_DIR} COMPONENT Development)
endfunction()
