// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/answer.h"

#include <cmath>

namespace comfortics::standards {

void Examination::mark(std::string_view about) noexcept
{
    if (m_limits == Limits::Blank)
        refuse(Reason::BeyondRange, about);
    else if (m_verdict.standing == Standing::Ok)
        m_verdict = {Standing::Outside, Reason::BeyondRange, about};
}

void Examination::refuse(Reason reason, std::string_view about) noexcept
{
    if (m_verdict.hasValue())
        m_verdict = {Standing::None, reason, about};
}

void Examination::object(const Input& input, double value) noexcept
{
    if (std::isnan(value))
        refuse(Reason::Missing, input.name);
    else if (!physicalBounds(input.quantity).contains(value))
        refuse(Reason::BeyondPhysics, input.name);
    else
        mark(input.name);
}

} // namespace comfortics::standards
