# What `cmake --install` puts under a prefix: the versioned shared object with
# its development link, the public headers, the optkw tool with its manual page
# and bash completion, a CMake package (optkw::optkw) and a pkg-config file.
# The Python package is installed by python/CMakeLists.txt.
include(CMakePackageConfigHelpers)

set(OPTKW_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/optkw)

install(TARGETS optkw EXPORT optkwTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  FILES_MATCHING PATTERN "optkw*")
if(OPTKW_BUILD_TOOL)
  install(TARGETS optkw_tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${PROJECT_SOURCE_DIR}/docs/optkw.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${PROJECT_SOURCE_DIR}/tools/optkw/optkw.bash
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME optkw)
endif()

install(EXPORT optkwTargets NAMESPACE optkw:: DESTINATION ${OPTKW_CMAKE_DIR})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/optkwConfig.cmake.in
  ${PROJECT_BINARY_DIR}/optkwConfig.cmake INSTALL_DESTINATION ${OPTKW_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/optkwConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/optkwConfig.cmake ${PROJECT_BINARY_DIR}/optkwConfigVersion.cmake
  DESTINATION ${OPTKW_CMAKE_DIR})

file(RELATIVE_PATH OPTKW_PC_TO_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
configure_file(${PROJECT_SOURCE_DIR}/cmake/optkw.pc.in ${PROJECT_BINARY_DIR}/optkw.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/optkw.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
