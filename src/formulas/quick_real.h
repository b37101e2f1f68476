// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "values/quick_exponential.h"

namespace comfortics::formulas {

/// A double whose exponential is values::quick::exponential(), for blocks of formulas of exponentials and the
/// four operations: their loop is vectorised as a whole. It has the bits of double where that function is
/// available(), and raises the flag of an invalid operation where it has no result.
class QuickReal {
public:
    QuickReal(double value) noexcept : m_value(value) {} // NOLINT: implicit, as between doubles
    double value() const noexcept { return m_value; }

    friend QuickReal operator+(QuickReal a, QuickReal b) noexcept { return a.m_value + b.m_value; }
    friend QuickReal operator-(QuickReal a, QuickReal b) noexcept { return a.m_value - b.m_value; }
    friend QuickReal operator*(QuickReal a, QuickReal b) noexcept { return a.m_value * b.m_value; }
    friend QuickReal operator/(QuickReal a, QuickReal b) noexcept { return a.m_value / b.m_value; }
    friend QuickReal exponential(QuickReal x) noexcept { return values::quick::exponential(x.m_value); }

private:
    double m_value;
};

} // namespace comfortics::formulas
