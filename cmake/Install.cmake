# What is installed: the public headers, the library, a CMake package and a pkg-config file.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

file(GLOB TORVO_PUBLIC_HEADERS CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/Utility/*.h)
install(FILES ${TORVO_PUBLIC_HEADERS} ${PROJECT_BINARY_DIR}/include/Utility/version.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Utility)
install(FILES ${PROJECT_SOURCE_DIR}/Utility/platform/types.h ${PROJECT_SOURCE_DIR}/Utility/platform/host.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Utility/platform)

install(TARGETS TorvoUtility EXPORT TorvoUtilityTargets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
set_target_properties(TorvoUtility PROPERTIES EXPORT_NAME Utility)
install(EXPORT TorvoUtilityTargets NAMESPACE Torvo:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/TorvoUtility)

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/TorvoUtilityConfig.cmake.in
    ${PROJECT_BINARY_DIR}/TorvoUtilityConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/TorvoUtility)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TorvoUtilityConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/TorvoUtilityConfig.cmake ${PROJECT_BINARY_DIR}/TorvoUtilityConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/TorvoUtility)

configure_file(${PROJECT_SOURCE_DIR}/cmake/torvo-utility.pc.in ${PROJECT_BINARY_DIR}/torvo-utility.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/torvo-utility.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
