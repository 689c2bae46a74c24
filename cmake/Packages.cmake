# cpack -G DEB | TGZ | ZIP; tools/release makes and tries them.
set(TOLVANE_CONTACT "The Tolvane developers <developers@tolvane.example>" CACHE STRING "Who answers for the packages")

set(CPACK_PACKAGE_NAME tolvane)
set(CPACK_PACKAGE_VENDOR "The Tolvane developers")
set(CPACK_PACKAGE_CONTACT "${TOLVANE_CONTACT}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "assembler, linker and simulator for learners of CASL II")
set(CPACK_PACKAGE_DESCRIPTION_FILE ${CMAKE_SOURCE_DIR}/packaging/description.txt)
string(TOLOWER "${PROJECT_NAME}-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}" CPACK_PACKAGE_FILE_NAME)
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_VERBATIM_VARIABLES ON)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
else()
  set(CPACK_GENERATOR TGZ)
endif()

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION education)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS xdg-utils)
# What Debian alone wants in a package; see the script.
string(TIMESTAMP TOLVANE_BUILD_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(packaging/changelog.Debian.in packaging/changelog.Debian @ONLY)
configure_file(packaging/copyright.in packaging/copyright @ONLY)
configure_file(cmake/DebianFiles.cmake.in DebianFiles.cmake @ONLY)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_BINARY_DIR}/DebianFiles.cmake)

include(CPack)
