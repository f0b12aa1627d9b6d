# The Debian package, made by CPack out of what is installed (scripts/package). Releases name and count
# their libraries differently: each gets a package that was built on it, and is named by it.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME glimmet)
set(CPACK_PACKAGE_VENDOR glimmet)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "${GLIMMET_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "One line of text in the menu bar")
# The lines as they stand here are those of the control file, which must be short.
set(CPACK_PACKAGE_DESCRIPTION "glimmet keeps one short line of text in the menu bar: the time, a quote that
changes every half minute, words of the user's own, prices in rotation, what
the user's software earns, or the time left until a deadline. A click on the
text drops down a small panel in which all of this is chosen and edited.

The text is an item of the notification area, or stands in a thin strip at the
upper edge of the screen where there is none; glimmet-feed brings it into bars
that read text. It needs X11 or XWayland.")
set(CPACK_STRIP_FILES ON)
# The prefix is the system's, and the apt source lies outside of it.
set(CPACK_SET_DESTDIR ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${GLIMMET_PACKAGE_RELEASE})
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)

# Libraries are found by what is linked. What is only loaded while it runs is named here: the authorities behind TLS,
# the time zones and the QML modules. Those are what the panel imports and what these import in turn: a QtQml without
# its WorkerScript, as another program may have left it, keeps the panel from loading.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(GLIMMET_QML_PACKAGES qml6-module-qtqml qml6-module-qtqml-workerscript qml6-module-qtquick
  qml6-module-qtquick-templates)
list(JOIN GLIMMET_QML_PACKAGES ", " qmlPackages)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "${qmlPackages}, ca-certificates, tzdata")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "default-dbus-session-bus | dbus-session-bus, fonts-inter, \
fonts-noto-color-emoji, gnome-keyring | keepassxc | libkf5wallet-bin, packagekit")
# For a Wayland compositor without an X server.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qt6-wayland")

# A source that the administrator has edited or removed stays so.
set(conffiles "")
if(GLIMMET_APT_SOURCE)
  string(APPEND conffiles "/etc/apt/sources.list.d/glimmet.sources\n")
endif()
if(GLIMMET_APT_KEY)
  string(APPEND conffiles "/etc/apt/keyrings/glimmet.gpg\n")
endif()
if(conffiles)
  file(WRITE ${CMAKE_BINARY_DIR}/conffiles "${conffiles}")
  set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${CMAKE_BINARY_DIR}/conffiles)
endif()
include(CPack)
