# The Debian package, made by cpack.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME textcfg)
set(CPACK_PACKAGE_VENDOR "textcfg developers")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/debian.cmake)

set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "textcfg developers <textcfg@example.org>")
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Loaded where it is needed, so that nothing else shows it.
set(CPACK_DEBIAN_PACKAGE_DEPENDS libcrypt1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "text form of a managed switch's stored configuration")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
  "textcfg reads a configuration image of a 28-port managed switch and writes it
as the command lines that would recreate it: all of them, or those that differ
from the default configuration.
.
The images are read from a folder. Another program, textcfg-store, writes an
example of one. With textcfg-inspect every field of an image can be shown,
compared and checked, and passed on without passwords.")
include(CPack)
