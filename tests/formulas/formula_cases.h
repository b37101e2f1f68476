// SPDX-License-Identifier: GPL-3.0-or-later
//
// How the formula tests state their rows: what is computed, and the text it must show.
#pragma once

#include "formulas/assumptions.h"
#include "formulas/live_quantity.h"
#include "values/run_failure.h"
#include "values/variant.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace comfortics::tests {

using formulas::Assumptions;
using values::Number;
using values::Variant;

/// Assumptions that differ from the defaults, from one another, and from 0 and 1, so that a swap
/// of two of them shows.
inline Assumptions unusualAssumptions()
{
    return {.Friction = 0.27,
            .Height = 0.62,
            .Weight = 171,
            .Barometric = 987,
            .Emissivity = 0.91,
            .ArAdu = 0.71};
}

/// One row: the result of `compute` must read `expected` with nine significant digits ("empty" for
/// an Empty result, "fails" for a run failure).
struct FormulaCase {
    std::string name;
    std::function<Variant()> compute;
    std::string expected;
};

inline std::string shown(const std::function<Variant()>& compute)
{
    try {
        const Variant result = compute();
        if (result.isEmpty())
            return "empty";
        if (result.isText())
            return "text \"" + result.text() + "\"";
        char buffer[40];
        std::snprintf(buffer, sizeof buffer, "%.9g", result.number().value());
        return buffer;
    } catch (const values::RunFailure&) {
        return "fails";
    }
}

inline void expectAll(const std::vector<FormulaCase>& cases)
{
    for (const FormulaCase& row : cases)
        EXPECT_EQ(shown(row.compute), row.expected) << row.name;
}

/// Keeps the captions that a primitive or formula writes.
struct RecordedCaptions final : formulas::Captions {
    std::map<formulas::Live, std::string> written;
    void writeCaption(formulas::Live quantity, std::string text) override
    {
        written[quantity] = std::move(text);
    }
};

} // namespace comfortics::tests
