# SPDX-License-Identifier: GPL-3.0-or-later
# What was compiled once is taken from ccache, where that is installed. Whoever names another launcher gets that.
option(COMFORTICS_CCACHE "Compile through ccache where it is installed" ON)
find_program(COMFORTICS_CCACHE_PROGRAM ccache)
mark_as_advanced(COMFORTICS_CCACHE_PROGRAM)
if(COMFORTICS_CCACHE AND COMFORTICS_CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${COMFORTICS_CCACHE_PROGRAM})
endif()
