# SPDX-License-Identifier: GPL-3.0-or-later
# Read by cpack: there is one archive, of an ordinary installation, and a Debian package for each group of components,
# which take their own files in place of those of an ordinary installation.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(CPACK_DEB_COMPONENT_INSTALL ON)
  set(CPACK_COMPONENTS_ALL Unspecified debian debian_library debian_development)
  set(CPACK_COMPONENT_UNSPECIFIED_GROUP programs)
  set(CPACK_COMPONENT_DEBIAN_GROUP programs)
  set(CPACK_COMPONENT_DEBIAN_LIBRARY_GROUP library)
  set(CPACK_COMPONENT_DEBIAN_DEVELOPMENT_GROUP development)
  if(CPACK_COMFORTICS_PYTHON)
    list(APPEND CPACK_COMPONENTS_ALL debian_python)
    set(CPACK_COMPONENT_DEBIAN_PYTHON_GROUP python)
  endif()
  # Each description begins with its own summary.
  unset(CPACK_PACKAGE_DESCRIPTION_SUMMARY)
endif()
