# cpack: the Debian packages, one for each component of Install.cmake, and one with each one's debug symbols.
# tools/package.sh builds, makes and checks them.
set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL library development demo)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_NAME doctorzelvo)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "DoctorZELVO <packages@doctorzelvo.example>")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_DEBUGINFO_PACKAGE ON)
# tools/package.sh packs them once more, and then tightly.
set(CPACK_DEBIAN_COMPRESSION_TYPE none)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)
set(same_version "(= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")

# What a binary needs is read from it; what is loaded or looked for at run time stands here.
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libdoctorzelvo${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SHLIBDEPS ON)
# tools/package.sh takes the scripts away that cpack makes to call ldconfig: this does it, once for an installation.
file(WRITE ${CMAKE_BINARY_DIR}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${CMAKE_BINARY_DIR}/triggers)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
# A chart's package lives with every later release of the library; ours name the one that they were made with.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_RECOMMENDS "ca-certificates, fonts-nanum | fonts-noto-cjk, qt6-translations-l10n, tdsodbc")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SUGGESTS "qt6-wayland")
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION "order client between a clinic's chart and a herbal pharmacy
A clinic's chart program loads this library and makes one call; a window
opens in which a doctor composes a prescription, has it priced line by line
and sends it to the pharmacy's database.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libdoctorzelvo-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libdoctorzelvo${PROJECT_VERSION_MAJOR} ${same_version}")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "order client between a clinic's chart and a herbal pharmacy (headers)
What a chart in C++ or C is built with that calls DoctorZELVO: headers, a
package for CMake and one for pkg-config.")

set(CPACK_DEBIAN_DEMO_PACKAGE_NAME doctorzelvo-demo)
set(CPACK_DEBIAN_DEMO_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_DEMO_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_DEMO_PACKAGE_DEPENDS
    "libdoctorzelvo${PROJECT_VERSION_MAJOR} ${same_version}, fonts-nanum | fonts-noto-cjk, hicolor-icon-theme")
set(CPACK_DEBIAN_DEMO_DESCRIPTION "sample chart and demo pharmacy for DoctorZELVO
A chart with a few patients, a pharmacy on this machine that prices and keeps
what it orders, and a program that works the order window in a terminal, with
scenarios for it.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})

# What each package says of its rights and its changes.
string(TIMESTAMP package_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/changelog.Debian CONTENT
"doctorzelvo (@PROJECT_VERSION@-@CPACK_DEBIAN_PACKAGE_RELEASE@) bookworm; urgency=medium

  * The release @PROJECT_VERSION@: see changelog.gz.

 -- @CPACK_PACKAGE_CONTACT@  @package_date@
" @ONLY)
configure_file(${CMAKE_SOURCE_DIR}/CHANGELOG.md ${CMAKE_BINARY_DIR}/changelog COPYONLY)
foreach(text changelog changelog.Debian)
  execute_process(COMMAND gzip -9nc ${CMAKE_BINARY_DIR}/${text} OUTPUT_FILE ${CMAKE_BINARY_DIR}/${text}.gz
                  COMMAND_ERROR_IS_FATAL ANY)
endforeach()
foreach(component LIBRARY DEVELOPMENT DEMO)
  string(TOLOWER ${component} name)
  install(FILES ${CMAKE_BINARY_DIR}/changelog.gz ${CMAKE_BINARY_DIR}/changelog.Debian.gz ${packaging}/copyright
          DESTINATION share/doc/${CPACK_DEBIAN_${component}_PACKAGE_NAME} COMPONENT ${name} EXCLUDE_FROM_ALL)
endforeach()

include(CPack)
