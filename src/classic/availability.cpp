// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/availability.h"

namespace comfortics::classic {

using catalogue::CatalogueRow;
using catalogue::Gate;
using catalogue::Gated;
using catalogue::Input;
using catalogue::InputList;
using catalogue::liveOf;
using formulas::Live;

namespace {

const std::string kNone;

} // namespace

void Availability::reset()
{
    for (std::string& reason : m_reasons)
        reason.clear();
    m_wbgt.clear();
}

void Availability::lose(Live quantity, const std::string& why)
{
    std::string& reason = m_reasons[static_cast<std::size_t>(quantity)];
    if (reason.empty())
        reason = std::string(formulas::kLiveInfo[static_cast<std::size_t>(quantity)].symbol) +
                 " is not available: " + why + ".";
}

void Availability::loseWbgt(const std::string& why)
{
    if (m_wbgt.empty())
        m_wbgt = "The outdoor WBGT is not available: " + why + ".";
}

std::string Availability::whyNot(const CatalogueRow& row, bool ignoreLimits) const
{
    const InputList& inputs = row.robustInputs.size() > 0 ? row.robustInputs : row.inputs;
    for (const Input input : inputs)
        if (const std::string& why = reason(input); !why.empty())
            return why;
    if (row.gate == Gate::None || ignoreLimits)
        return {};
    const auto firstOf = [this](Live one, Live other) {
        return reason(one).empty() ? reason(other) : reason(one);
    };
    switch (row.gated) {
    case Gated::Ta:
        return reason(Live::Ta);
    case Gated::Tnwb:
        return reason(Live::Tnwb);
    case Gated::MeanOfTmrtAndTa:
    case Gated::TmrtLessTa:
        return firstOf(Live::Tmrt, Live::Ta);
    case Gated::WBGT_Outdoor:
        return m_wbgt;
    }
    return {};
}

const std::string& Availability::reason(Input input) const
{
    if (const auto quantity = liveOf(input))
        return reason(*quantity);
    switch (input) {
    case Input::Ea: // computed from the dew point, here and in the block that 174 takes it from
    case Input::StaleEa:
        return reason(reason(Live::Td).empty() ? Live::Ea : Live::Td);
    case Input::Wbgt:
        return m_wbgt;
    default: // the boxes are always there
        return kNone;
    }
}

} // namespace comfortics::classic
