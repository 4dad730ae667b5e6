# SPDX-License-Identifier: MIT
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# The custom for packages from outside Debian: one of Debian's own would be newer.
set(CPACK_DEBIAN_PACKAGE_RELEASE 0tarnwick1)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Tarnwick client authors <client@tarnwick.example>")
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"One icon in the status area that shows whether this machine is connected
to its Tarnwick mesh network. Its panel shows this machine's name and
address, the other devices and the networks that you can switch to, and
logs in with an auth key.
.
It starts when you log in, and stays out of the way.")

# The libraries that the client links; dpkg knows their packages. Qt's plug-ins for X and TLS come
# with these packages on Debian.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Beyond those: the theme that icons are installed into.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "hicolor-icon-theme")
# Wayland sessions without X; the prompt for the administrator's password; TLS roots.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "pkexec, polkitd, qt6-wayland, ca-certificates")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_SOURCE_DIR}/linux/conffiles)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
