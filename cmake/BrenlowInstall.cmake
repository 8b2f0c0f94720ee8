# Where an installed Brenlow puts its files, as the freedesktop and Debian
# conventions say: programs in bin, the service and the helper in
# libexec/brenlow (their own CMakeLists), resources in share/brenlow, and the
# desktop's own places for the entry, icons, metainfo, manuals and completion.
set(BRENLOW_HOMEPAGE "https://orrimay.com/brenlow" CACHE STRING "The product's web page")
set(BRENLOW_SCREENSHOTS_URL "${BRENLOW_HOMEPAGE}/screenshots" CACHE STRING
    "Where the published copies of docs/screenshots are")
set(BRENLOW_MAINTAINER "Orrimay <brenlow@orrimay.com>" CACHE STRING "The package's maintainer")
set(BRENLOW_DESKTOP_DIR "${CMAKE_CURRENT_SOURCE_DIR}/resources/desktop")
set(BRENLOW_INSTALL_GENERATED "${CMAKE_CURRENT_BINARY_DIR}/install")

# Manual pages, with the version and installed paths written in, compressed
# as Debian wants them.
find_program(BRENLOW_GZIP gzip REQUIRED)
set(BRENLOW_MAN_PAGES brenlow-cli)
if(BRENLOW_BUILD_GUI)
  list(APPEND BRENLOW_MAN_PAGES brenlow)
endif()
set(BRENLOW_MAN_FILES)
foreach(page ${BRENLOW_MAN_PAGES})
  configure_file(resources/man/${page}.1 ${BRENLOW_INSTALL_GENERATED}/${page}.1 @ONLY)
  add_custom_command(OUTPUT ${BRENLOW_INSTALL_GENERATED}/${page}.1.gz
    COMMAND ${BRENLOW_GZIP} -9n -f -k ${BRENLOW_INSTALL_GENERATED}/${page}.1
    DEPENDS ${BRENLOW_INSTALL_GENERATED}/${page}.1 VERBATIM)
  list(APPEND BRENLOW_MAN_FILES ${BRENLOW_INSTALL_GENERATED}/${page}.1.gz)
endforeach()
add_custom_target(brenlow-manuals ALL DEPENDS ${BRENLOW_MAN_FILES})
install(FILES ${BRENLOW_MAN_FILES} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

install(FILES resources/completion/brenlow-cli.bash RENAME brenlow-cli
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES resources/completion/_brenlow-cli
        DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)

if(BRENLOW_BUILD_GUI)
  install(FILES ${BRENLOW_DESKTOP_DIR}/${BRENLOW_APP_ID}.desktop
          DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  configure_file(${BRENLOW_DESKTOP_DIR}/${BRENLOW_APP_ID}.metainfo.xml.in
                 ${BRENLOW_INSTALL_GENERATED}/${BRENLOW_APP_ID}.metainfo.xml @ONLY)
  install(FILES ${BRENLOW_INSTALL_GENERATED}/${BRENLOW_APP_ID}.metainfo.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES resources/icons/app/Brenlow.svg RENAME ${BRENLOW_APP_ID}.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  # The PNG sizes are rendered from the SVG by cleaner/shell.
  install(DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/icons/hicolor
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons)
endif()
