# The Debian package, made by packaging/debian/package: what is installed for the whole system.
set(CPACK_GENERATOR DEB)
set(CPACK_INSTALL_CMAKE_PROJECTS "${CMAKE_BINARY_DIR};${PROJECT_NAME};system;/")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
# What a package must have besides goes in by a script, before it is closed.
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_SOURCE_DIR}/packaging/debian/finish.cmake")

set(CPACK_PACKAGE_NAME vesmora)
set(CPACK_PACKAGE_VERSION "${VESMORA_VERSION}")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Vesmora makers <maps@vesmora.example>")
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://vesmora.example/")
set(CPACK_DEBIAN_PACKAGE_SECTION editors)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Windows on Wayland, the manual in a browser, the game itself.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "wine")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor for the maps of the game Soldat")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Edits textured triangles with coloured corners, spawn points, sceneries,
colliders and the waypoints of bots. Fills the game's sectors and starts the
game on the map.
.
vesmora-map checks, compiles, draws and compares maps from a shell.")
include(CPack)
