# The Debian package, made by "cpack -G DEB"; scripts/package does it all.
netrove_install_packed(${CMAKE_SOURCE_DIR}/CHANGELOG.md changelog ${doc})
execute_process(COMMAND date -u -R -d ${NETROVE_RELEASED}
    OUTPUT_VARIABLE NETROVE_RELEASED_RFC OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
configure_file(debian/changelog.in changelog.debian @ONLY)
netrove_install_packed(${CMAKE_CURRENT_BINARY_DIR}/changelog.debian changelog.Debian ${doc})
install(FILES debian/copyright DESTINATION ${doc})
install(FILES debian/lintian-overrides RENAME netrove
    DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME netrove)
set(CPACK_PACKAGE_VENDOR "Netrove")
set(CPACK_PACKAGE_CONTACT "Netrove Maintainers <netrove@example.com>")
set(CPACK_PACKAGE_HOMEPAGE_URL ${NETROVE_WEB_ADDRESS})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "find files on a local area network")
set(CPACK_PACKAGE_DESCRIPTION_FILE ${CMAKE_CURRENT_SOURCE_DIR}/debian/description)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
    GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# The libraries, as dpkg-shlibdeps finds them, and what is loaded at run time: pictures are SVG.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6")
# Finding computers by DNS-SD, keeping logons, opening files, the desktop's icons and dialogs, and
# the translations of those that are Qt's own.
string(JOIN ", " CPACK_DEBIAN_PACKAGE_RECOMMENDS avahi-daemon
    "gnome-keyring | kwalletmanager | keepassxc" xdg-utils adwaita-icon-theme fonts-liberation
    qt6-wayland qt6-xdgdesktopportal-platformtheme qt6-translations-l10n)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "wsdd, cifs-utils")
include(CPack)
