// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/catalogue.h"
#include "formulas/live_quantity.h"

#include <array>
#include <string>

namespace comfortics::classic {

/// Which quantities a calculation by the robust rules had to do without, and why.
class Availability {
public:
    void reset();

    /// The first reason stays.
    void lose(formulas::Live quantity, const std::string& why);
    void loseWbgt(const std::string& why);

    bool has(formulas::Live quantity) const { return reason(quantity).empty(); }

    /// Why the row cannot be evaluated: the reason of the first of its inputs, or of its gated
    /// quantity where limits count, that is lost. Empty if none is.
    std::string whyNot(const catalogue::CatalogueRow& row, bool ignoreLimits) const;

private:
    const std::string& reason(formulas::Live quantity) const
    {
        return m_reasons[static_cast<std::size_t>(quantity)];
    }
    const std::string& reason(catalogue::Input input) const;

    std::array<std::string, formulas::kLiveCount> m_reasons;
    std::string m_wbgt;
};

} // namespace comfortics::classic
