# cmake --install: the library, its headers, what a CMake or a pkg-config project finds it by, and the programs.
# The toolkit and the drivers are the library's own affair: a project that uses it needs none of their packages.
# The three components are the three packages that Package.cmake makes.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/DoctorZELVO)
file(RELATIVE_PATH to_library /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
file(RELATIVE_PATH to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)

# A toolkit outside of the system's folders is found where it was found for the build.
set_target_properties(DoctorZELVO PROPERTIES INSTALL_RPATH_USE_LINK_PATH ON)
set(programs zelvo zelvo-pharmacy)
if(ZELVO_WINDOW)
  list(APPEND programs zelvo-chart)
endif()
set_target_properties(${programs} PROPERTIES INSTALL_RPATH "$ORIGIN/${to_library}" INSTALL_RPATH_USE_LINK_PATH ON)

install(TARGETS DoctorZELVO EXPORT DoctorZELVOTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development)

set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME development)
install(DIRECTORY ${CMAKE_CURRENT_LIST_DIR}/../include/doctorzelvo DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT DoctorZELVOTargets NAMESPACE DoctorZELVO:: FILE DoctorZELVOTargets.cmake DESTINATION ${package_folder})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/DoctorZELVOConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/DoctorZELVOConfig.cmake ${CMAKE_BINARY_DIR}/DoctorZELVOConfigVersion.cmake
        DESTINATION ${package_folder})
configure_file(${CMAKE_CURRENT_LIST_DIR}/doctorzelvo.pc.in ${CMAKE_BINARY_DIR}/doctorzelvo.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/doctorzelvo.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME demo)
install(TARGETS ${programs} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(PROGRAMS ${CMAKE_BINARY_DIR}/bin/zelvo-demo DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${CMAKE_SOURCE_DIR}/demo/session.sh DESTINATION share/doctorzelvo)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/demo/values/ DESTINATION share/doctorzelvo)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/demo/scenarios DESTINATION share/doctorzelvo)
if(ZELVO_WINDOW)
  set(packaging ${CMAKE_SOURCE_DIR}/packaging)
  install(FILES ${packaging}/org.doctorzelvo.Chart.desktop DESTINATION share/applications)
  install(FILES ${packaging}/org.doctorzelvo.Chart.svg DESTINATION share/icons/hicolor/scalable/apps)
  install(FILES ${packaging}/org.doctorzelvo.Chart.metainfo.xml DESTINATION share/metainfo)
endif()

# Man pages and completions are what the installed programs say of themselves.
function(install_help program file)
  install(CODE "
    set(prefix \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}\")
    set(page \"\${prefix}/share/man/man1/${program}.1.gz\")
    set(completion \"\${prefix}/share/bash-completion/completions/${program}\")
    message(STATUS \"Installing: \${page}, \${completion}\")
    file(MAKE_DIRECTORY \${prefix}/share/man/man1 \${prefix}/share/bash-completion/completions)
    execute_process(COMMAND ${CMAKE_SOURCE_DIR}/tools/from-help.sh man ${file} COMMAND gzip -9n
                    OUTPUT_FILE \${page} COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND ${CMAKE_SOURCE_DIR}/tools/from-help.sh completion ${file}
                    OUTPUT_FILE \${completion} COMMAND_ERROR_IS_FATAL ANY)")
endfunction()
foreach(program IN LISTS programs)
  install_help(${program} $<TARGET_FILE:${program}>)
endforeach()
install_help(zelvo-demo ${CMAKE_BINARY_DIR}/bin/zelvo-demo)
unset(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME)
