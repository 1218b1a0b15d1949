# What an application needs to build against the library and to run with it.
include(CMakePackageConfigHelpers)

set(config_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Tavex)
install(TARGETS tavex EXPORT TavexTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    FILE_SET forwarding DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT TavexTargets NAMESPACE Tavex:: DESTINATION ${config_dir})
# The build folder serves as a package, too.
export(EXPORT TavexTargets NAMESPACE Tavex:: FILE ${PROJECT_BINARY_DIR}/TavexTargets.cmake)

configure_package_config_file(cmake/TavexConfig.cmake.in TavexConfig.cmake
    INSTALL_DESTINATION ${config_dir}
    NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(TavexConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/TavexConfig.cmake
    ${PROJECT_BINARY_DIR}/TavexConfigVersion.cmake
    DESTINATION ${config_dir})

# One or two folders deeper where the library folder names the processor.
file(RELATIVE_PATH to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/tavex.pc.in tavex.pc @ONLY)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${PROJECT_BINARY_DIR}/tavex.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
