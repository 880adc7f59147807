# Installed like a desktop application: the program, its desktop entry, its AppStream
# metainfo, its icon and the file types of its three file families, in the places a desktop
# looks for them; `cpack -G DEB` turns the same install into a Debian package.

include(GNUInstallDirs)

set(TROUPE_APP_ID org.troupe.Troupe)
set(TROUPE_RELEASE_DATE 2026-11-22)
set(TROUPE_PACKAGING_DIR ${PROJECT_SOURCE_DIR}/packaging)

configure_file(${TROUPE_PACKAGING_DIR}/${TROUPE_APP_ID}.metainfo.xml.in
               ${PROJECT_BINARY_DIR}/packaging/${TROUPE_APP_ID}.metainfo.xml @ONLY)

install(FILES ${TROUPE_PACKAGING_DIR}/${TROUPE_APP_ID}.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_BINARY_DIR}/packaging/${TROUPE_APP_ID}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${TROUPE_PACKAGING_DIR}/${TROUPE_APP_ID}.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
# shared-mime-info builds its database from the packages in mime/packages; Debian's
# triggers run update-mime-database and update-desktop-database after the install.
install(FILES ${TROUPE_PACKAGING_DIR}/${TROUPE_APP_ID}.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
# The example show is data the program opens, so it is no documentation that a minimal
# system may leave out. Its folder keeps the name `rez` that the run-time resolves.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/rez
        DESTINATION ${CMAKE_INSTALL_DATADIR}/troupe/examples)
install(FILES ${PROJECT_SOURCE_DIR}/docs/guide.md ${PROJECT_SOURCE_DIR}/docs/formats.md
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/troupe)

set(CPACK_PACKAGE_NAME troupe)
set(CPACK_PACKAGE_VENDOR "Troupe")
set(CPACK_PACKAGE_CONTACT "Troupe authors <troupe@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "Authoring suite for the shows of a puppet theatre in LithTech worlds")
set(CPACK_PACKAGE_DESCRIPTION
    "Three managers in one program: rig binding tables (.rbt) that bind a LithTech model as a\
 puppet, stage scenes (.ssf) with puppets, sounds and cameras, and show listings (.tsl).")
set(CPACK_PACKAGE_INSTALL_DIRECTORY troupe)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
# The Qt libraries come from dpkg-shlibdeps; the platform plugins that let Qt reach the
# display are loaded at run time, so no library link names them.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins")
include(CPack)
