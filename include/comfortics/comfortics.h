// SPDX-License-Identifier: GPL-3.0-or-later
//
// All of the library. No call changes the caller's floating-point flags, and none springs a trap.
#pragma once

#include <comfortics/calculation.h>
#include <comfortics/catalogue.h>
#include <comfortics/column.h>
#include <comfortics/evaluate.h>
#include <comfortics/models.h>
#include <comfortics/person.h>
#include <comfortics/radiation.h>
#include <comfortics/status.h>
#include <comfortics/units.h>
#include <comfortics/version.h>

/// Indices of bioclimatology and of heat and cold stress: the whole of the library.
namespace comfortics {
}
