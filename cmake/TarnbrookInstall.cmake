# The CMake package and the pkg-config file, for programs built against an installed Tarnbrook.
include(CMakePackageConfigHelpers)
set(TARNBROOK_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Tarnbrook)

install(TARGETS tarnbrook EXPORT TarnbrookTargets)
install(EXPORT TarnbrookTargets NAMESPACE Tarnbrook:: DESTINATION ${TARNBROOK_CMAKE_DIR})
configure_file(cmake/TarnbrookConfig.cmake.in TarnbrookConfig.cmake @ONLY)
write_basic_package_version_file(TarnbrookConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/TarnbrookConfig.cmake
              ${PROJECT_BINARY_DIR}/TarnbrookConfigVersion.cmake
        DESTINATION ${TARNBROOK_CMAKE_DIR})

# Each library before the ones it uses: the reverse of the order they were added in.
get_property(libraries GLOBAL PROPERTY TARNBROOK_LIBRARIES)
list(REVERSE libraries)
list(TRANSFORM libraries PREPEND "-l")
list(JOIN libraries " " TARNBROOK_PC_LIBS)
file(RELATIVE_PATH TARNBROOK_PC_TO_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/tarnbrook.pc.in tarnbrook.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/tarnbrook.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
