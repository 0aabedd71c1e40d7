# cmake --install: the library, its headers, what a CMake or a pkg-config project finds it by, and the programs.
# The toolkit and the drivers are the library's own affair: a project that uses it needs none of their packages.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/DoctorZELVO)
file(RELATIVE_PATH to_library /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
file(RELATIVE_PATH to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)

# A toolkit outside of the system's folders is found where it was found for the build.
set_target_properties(DoctorZELVO PROPERTIES INSTALL_RPATH_USE_LINK_PATH ON)
set_target_properties(zelvo zelvo-chart PROPERTIES INSTALL_RPATH "$ORIGIN/${to_library}" INSTALL_RPATH_USE_LINK_PATH ON)

install(TARGETS DoctorZELVO EXPORT DoctorZELVOTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS zelvo zelvo-chart zelvo-pharmacy RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${CMAKE_CURRENT_LIST_DIR}/../include/doctorzelvo DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

install(EXPORT DoctorZELVOTargets NAMESPACE DoctorZELVO:: FILE DoctorZELVOTargets.cmake DESTINATION ${package_folder})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/DoctorZELVOConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/DoctorZELVOConfig.cmake ${CMAKE_BINARY_DIR}/DoctorZELVOConfigVersion.cmake
        DESTINATION ${package_folder})

configure_file(${CMAKE_CURRENT_LIST_DIR}/doctorzelvo.pc.in ${CMAKE_BINARY_DIR}/doctorzelvo.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/doctorzelvo.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
