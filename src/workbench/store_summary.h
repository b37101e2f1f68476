// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/summary.h"
#include "workbench/view.h"

#include <functional>

namespace comfortics::workbench {

/// What the rows in sight come to, by station and index; of equal extremes the first in the file. Empty where
/// `goOn`, which is told the share that is counted, has ended it.
tables::TableSummary summaryOf(const TableStore& store, const View& view,
                               const std::function<bool(double share)>& goOn);

/// What a summary is of.
workspace::Item itemOf(const tables::IndexSummary& summary);

} // namespace comfortics::workbench
