# SPDX-License-Identifier: GPL-3.0-or-later
# Installed like a desktop application: the program, its manual page, its desktop entry, its
# AppStream metainfo, its icon and the file types of its three file families, in the places a
# desktop looks for them; `cpack -G DEB` turns the same install into a Debian package.

include(GNUInstallDirs)

set(TROUPE_APP_ID org.troupe.Troupe)
set(TROUPE_HOMEPAGE https://troupe.org/)
set(TROUPE_PACKAGING_DIR ${PROJECT_SOURCE_DIR}/packaging)
set(TROUPE_PACKAGING_BINARY_DIR ${PROJECT_BINARY_DIR}/packaging)
# Debian's place for the documentation of package troupe, whatever the project is called.
set(TROUPE_DOC_DIR ${CMAKE_INSTALL_DATADIR}/doc/troupe)

# The Debian changelog is the history of every release. The package is made by the project
# from its own source, which Debian calls a native package: its version is the project's,
# without a Debian revision. The newest entry must be for the project's version, so the
# program, the package, the changelog and the metainfo name one version; that entry dates the
# manual page, and each version in the changelog is one release of the metainfo.
file(STRINGS ${TROUPE_PACKAGING_DIR}/changelog changelog_lines)
set(months Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec)
set(versions "")
foreach(line IN LISTS changelog_lines)
    if(line MATCHES "^troupe \\(([^)]+)\\) ")
        set(version ${CMAKE_MATCH_1})
        list(APPEND versions ${version})
    elseif(line MATCHES "^ -- .+>  [A-Z][a-z][a-z], ([0-9]+) ([A-Z][a-z][a-z]) ([0-9]+) ")
        set(year ${CMAKE_MATCH_3})
        set(day 0${CMAKE_MATCH_1})
        list(FIND months ${CMAKE_MATCH_2} month)
        math(EXPR month "${month} + 101")
        string(SUBSTRING ${month} 1 2 month)
        string(REGEX REPLACE "^0([0-9][0-9])$" "\\1" day ${day})
        set(released_${version} ${year}-${month}-${day})
        if(NOT DEFINED TROUPE_RELEASE_DATE)
            set(TROUPE_RELEASE_DATE ${released_${version}})
        endif()
    endif()
endforeach()
list(GET versions 0 newest)
if(NOT newest STREQUAL PROJECT_VERSION OR NOT DEFINED TROUPE_RELEASE_DATE)
    message(FATAL_ERROR "packaging/changelog: the newest entry is for version '${newest}', "
                        "the project is at ${PROJECT_VERSION}; give the release an entry")
endif()
set(TROUPE_RELEASES "")
foreach(version IN LISTS versions)
    string(APPEND TROUPE_RELEASES
           "    <release version=\"${version}\" date=\"${released_${version}}\"/>\n")
endforeach()

configure_file(${TROUPE_PACKAGING_DIR}/${TROUPE_APP_ID}.metainfo.xml.in
               ${TROUPE_PACKAGING_BINARY_DIR}/${TROUPE_APP_ID}.metainfo.xml @ONLY)
configure_file(${TROUPE_PACKAGING_DIR}/troupe.1.in ${TROUPE_PACKAGING_BINARY_DIR}/troupe.1 @ONLY)

# Debian keeps manual pages and changelogs compressed, without a time stamp in the header so
# that the same source gives the same package.
configure_file(${TROUPE_PACKAGING_DIR}/changelog ${TROUPE_PACKAGING_BINARY_DIR}/changelog
               COPYONLY)
find_program(TROUPE_GZIP gzip REQUIRED)
set(compressed "")
foreach(name IN ITEMS troupe.1 changelog)
    add_custom_command(OUTPUT ${TROUPE_PACKAGING_BINARY_DIR}/${name}.gz
        COMMAND ${TROUPE_GZIP} -9nkf ${name}
        WORKING_DIRECTORY ${TROUPE_PACKAGING_BINARY_DIR}
        DEPENDS ${TROUPE_PACKAGING_BINARY_DIR}/${name} VERBATIM)
    list(APPEND compressed ${TROUPE_PACKAGING_BINARY_DIR}/${name}.gz)
endforeach()
add_custom_target(troupe_compressed_docs ALL DEPENDS ${compressed})

install(FILES ${TROUPE_PACKAGING_BINARY_DIR}/troupe.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${TROUPE_PACKAGING_DIR}/${TROUPE_APP_ID}.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${TROUPE_PACKAGING_BINARY_DIR}/${TROUPE_APP_ID}.metainfo.xml
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
              ${TROUPE_PACKAGING_DIR}/copyright
              ${TROUPE_PACKAGING_BINARY_DIR}/changelog.gz
        DESTINATION ${TROUPE_DOC_DIR})
# The guide links its pictures relatively, as images/NAME.png.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/images DESTINATION ${TROUPE_DOC_DIR})

set(CPACK_PACKAGE_NAME troupe)
set(CPACK_PACKAGE_VENDOR "Troupe")
# A role address of the project, which lintian takes as a real maintainer.
set(CPACK_PACKAGE_CONTACT "Troupe maintainers <maintainers@troupe.org>")
set(CPACK_PACKAGE_HOMEPAGE_URL ${TROUPE_HOMEPAGE})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "authoring suite for the shows of a puppet theatre in LithTech worlds")
# Lines of the long description stay under 80 characters.
string(JOIN "\n" CPACK_PACKAGE_DESCRIPTION
    "Troupe prepares the shows of a puppet theatre that plays in LithTech game"
    "worlds. Three managers share one program:"
    " - rig binding tables (.rbt) bind a LithTech model as a puppet: the nodes"
    "   that act as joints and the animations it offers;"
    " - stage scenes (.ssf) place puppets, sounds, dialog lines and cameras in"
    "   a world;"
    " - show listings (.tsl) list the scenes of a show in playing order."
    "Every path in the files keeps the Windows form the theatre's run-time"
    "reads. An example show comes with the package.")
set(CPACK_PACKAGE_INSTALL_DIRECTORY troupe)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
# The Qt libraries come from dpkg-shlibdeps; the platform plugins that let Qt reach the
# display are loaded at run time, so no library link names them.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins")
include(CPack)
