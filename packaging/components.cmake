# SPDX-License-Identifier: GPL-3.0-or-later
# Read by cpack: the Debian package takes its own files in place of those of an ordinary installation.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(build "${CPACK_BUILD_FOLDER};Comfortics")
  set(CPACK_INSTALL_CMAKE_PROJECTS "${build};Unspecified;/;${build};debian;/")
endif()
