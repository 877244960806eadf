# `cpack` in the build folder makes Debian packages of the components: libraries, development files, tool.
# packaging/make-packages builds, makes and checks them.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME qsxreport)
set(CPACK_PACKAGE_VENDOR "The qsxreport maintainers")
set(CPACK_PACKAGE_CONTACT "The qsxreport maintainers <maintainers@qsxreport.invalid>")
# Each component describes itself.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL Runtime Development Tool)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# Of each library which package holds it, found in the packages themselves.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src ${PROJECT_BINARY_DIR}/host)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libqsxreport${QSX_ABI})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/triggers)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
"reports from collected CIM data - shared libraries
The report library turns a store organised by the Common Information Model
into reports, through a writer class that the program supplies. The reference
host is a store in memory, with readers for MOF and CIM-XML.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libqsxreport-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "libqsxreport${QSX_ABI} (= ${PROJECT_VERSION}-1), libboost-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
"reports from collected CIM data - development files
Headers, static libraries, and package files for CMake and pkg-config, to
embed the report library in a program with a writer or a store of its own.")

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME qsxreport)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION admin)
# What collect asks where it is there.
set(CPACK_DEBIAN_TOOL_PACKAGE_RECOMMENDS "dmidecode, iproute2, pciutils, smartmontools")
set(CPACK_COMPONENT_TOOL_DESCRIPTION
"reports from collected CIM data of servers
Turns the collected state of a server into pages: software, network, hardware,
firmware, sensors, storage and logs, with what is wrong on top. Compares
several servers, or one over time, and collects the Linux machine it runs on.")

# What every package holds: copyright and the list of changes.
find_program(QSX_GZIP gzip)
foreach(component IN ITEMS RUNTIME DEVELOPMENT TOOL)
  set(doc ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${component}_PACKAGE_NAME})
  string(SUBSTRING ${component} 0 1 first)
  string(SUBSTRING ${component} 1 -1 rest)
  string(TOLOWER ${rest} rest)
  set(changes ${PROJECT_BINARY_DIR}/packaging/${component}/changelog.Debian)
  set(package ${CPACK_DEBIAN_${component}_PACKAGE_NAME})
  configure_file(${PROJECT_SOURCE_DIR}/packaging/debian/changelog.in ${changes} @ONLY)
  if(QSX_GZIP)
    execute_process(COMMAND ${QSX_GZIP} -9 -n -f ${changes})
    set(changes ${changes}.gz)
  endif()
  install(FILES ${changes} DESTINATION ${doc} COMPONENT ${first}${rest})
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/debian/copyright DESTINATION ${doc} COMPONENT ${first}${rest})
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/packaging/debian/libqsxreport.lintian-overrides
  DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME ${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME}
  COMPONENT Runtime)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/debian/qsxreport.lintian-overrides
  DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME ${CPACK_DEBIAN_TOOL_PACKAGE_NAME}
  COMPONENT Tool)

# The documents, as they name each other and the examples.
set(doc ${CMAKE_INSTALL_DATADIR}/doc)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/embedding/
  DESTINATION ${doc}/${CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME}/examples COMPONENT Development)
install(FILES ${PROJECT_SOURCE_DIR}/docs/embedding.md
  DESTINATION ${doc}/${CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME} COMPONENT Development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs ${PROJECT_SOURCE_DIR}/examples
  DESTINATION ${doc}/${CPACK_DEBIAN_TOOL_PACKAGE_NAME} USE_SOURCE_PERMISSIONS COMPONENT Tool
  PATTERN docs/man EXCLUDE PATTERN examples/embedding EXCLUDE)
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CONTRIBUTING.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md
  DESTINATION ${doc}/${CPACK_DEBIAN_TOOL_PACKAGE_NAME} COMPONENT Tool)

include(CPack)
