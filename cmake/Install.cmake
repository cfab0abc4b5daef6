# What is installed: the public headers, the documentation and the worked examples that they name, the library, a CMake
# package, a pkg-config file, and the debugger's printers. The
# components are those that packages are made of: `runtime` is what a program needs to run, `development` what it needs to
# be built, and `compiler_runtime`, on Windows, what both need of the compiler.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

file(GLOB TORVO_PUBLIC_HEADERS CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/Utility/*.h)
install(FILES ${TORVO_PUBLIC_HEADERS} ${PROJECT_BINARY_DIR}/include/Utility/version.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Utility COMPONENT development)
install(FILES ${PROJECT_SOURCE_DIR}/Utility/platform/types.h ${PROJECT_SOURCE_DIR}/Utility/platform/host.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Utility/platform COMPONENT development)

# What the headers point to: the pages, and the worked examples with what they print.
set(TORVO_DOCUMENTS ${CMAKE_INSTALL_DATADIR}/doc/torvo-utility)
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md DESTINATION ${TORVO_DOCUMENTS}
        COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs DESTINATION ${TORVO_DOCUMENTS} COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/families ${PROJECT_SOURCE_DIR}/examples/embedding
        DESTINATION ${TORVO_DOCUMENTS}/examples COMPONENT development)
install(FILES ${PROJECT_SOURCE_DIR}/examples/show.h DESTINATION ${TORVO_DOCUMENTS}/examples COMPONENT development)

install(TARGETS TorvoUtility EXPORT TorvoUtilityTargets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
set_target_properties(TorvoUtility PROPERTIES EXPORT_NAME Utility)
install(EXPORT TorvoUtilityTargets NAMESPACE Torvo:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/TorvoUtility
        COMPONENT development)

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/TorvoUtilityConfig.cmake.in
    ${PROJECT_BINARY_DIR}/TorvoUtilityConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/TorvoUtility)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TorvoUtilityConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/TorvoUtilityConfig.cmake ${PROJECT_BINARY_DIR}/TorvoUtilityConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/TorvoUtility COMPONENT development)

# The way back from the pkg-config file to the root, by which an installed tree can be moved.
file(RELATIVE_PATH TORVO_PREFIX_FROM_PKGCONFIG
     ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(${PROJECT_SOURCE_DIR}/cmake/torvo-utility.pc.in ${PROJECT_BINARY_DIR}/torvo-utility.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/torvo-utility.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT development)

if(WIN32)
    include(${PROJECT_SOURCE_DIR}/cmake/MingwRuntime.cmake)
    torvo_find_mingw_runtime(TORVO_COMPILER_RUNTIME)
    install(FILES ${TORVO_COMPILER_RUNTIME} DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT compiler_runtime)
else()
    install(FILES ${PROJECT_SOURCE_DIR}/tools/gdb/torvo_printers.py
            DESTINATION ${CMAKE_INSTALL_DATADIR}/torvo-utility/gdb COMPONENT development)
endif()
