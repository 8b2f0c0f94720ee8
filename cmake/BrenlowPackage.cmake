# The Debian package (`make package`, from a build configured for /usr).
# Its dependencies come from the programs' shared libraries (dpkg-shlibdeps),
# plus what is started or loaded by name rather than linked.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME brenlow)
set(CPACK_PACKAGE_VENDOR Orrimay)
set(CPACK_PACKAGE_CONTACT "${BRENLOW_MAINTAINER}")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "disk cleaner for the desktop and the command line")
# The long description; CPack puts the summary before it and indents it.
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Brenlow scans the home folder and the system's caches, logs and
leftovers, duplicate files, large and old files and browser traces,
shows what it found with its size, and removes exactly the items the user
leaves ticked. A status panel in the system tray shows CPU, memory, disk,
battery and network figures. brenlow-cli does the same without a display.
.
Files that need administrator rights are removed by a small helper that
polkit starts after asking for a password.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${BRENLOW_HOMEPAGE}")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# pkexec starts the helper; Qt loads its display and SVG plugins by name;
# 7-Zip and unar open encrypted archives.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "pkexec, qt6-qpa-plugins, libqt6svg6")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "7zip, unar, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_STRIP_FILES ON)
# The files go where this build was configured to install them, since the
# polkit action and the resource fallback name those paths.
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_SET_DESTDIR OFF)

# Debian's own documents of the package.
execute_process(COMMAND date -R -u -d "${BRENLOW_RELEASE_DATE} 12:00"
                OUTPUT_VARIABLE BRENLOW_RELEASE_DATE_RFC2822 OUTPUT_STRIP_TRAILING_WHITESPACE)
configure_file(resources/debian/copyright ${BRENLOW_INSTALL_GENERATED}/copyright @ONLY)
configure_file(resources/debian/changelog.in ${BRENLOW_INSTALL_GENERATED}/changelog @ONLY)
add_custom_command(OUTPUT ${BRENLOW_INSTALL_GENERATED}/changelog.gz
  COMMAND ${BRENLOW_GZIP} -9n -f -k ${BRENLOW_INSTALL_GENERATED}/changelog
  DEPENDS ${BRENLOW_INSTALL_GENERATED}/changelog VERBATIM)
add_custom_target(brenlow-package-docs ALL DEPENDS ${BRENLOW_INSTALL_GENERATED}/changelog.gz)
install(FILES ${BRENLOW_INSTALL_GENERATED}/copyright ${BRENLOW_INSTALL_GENERATED}/changelog.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/brenlow)

include(CPack)
