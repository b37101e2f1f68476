# SPDX-License-Identifier: GPL-3.0-or-later
# Gives the target Comfortics::comfortics. It needs nothing but C++20. The way to the headers is told from the real
# folder, not from a link to it such as /lib.
get_filename_component(comforticsFolder "${CMAKE_CURRENT_LIST_DIR}" REALPATH)
include("${comforticsFolder}/ComforticsTargets.cmake")
unset(comforticsFolder)
