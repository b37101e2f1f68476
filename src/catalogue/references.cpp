// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/references.h"

#include "catalogue/catalogue.h"

#include <algorithm>
#include <array>

namespace comfortics::catalogue {

namespace {

// clang-format off
constexpr std::array<Reference, kIndexCount> kReferences{{
#include "catalogue/references.inc"
}};
// clang-format on

} // namespace

std::string Reference::citation() const
{
    std::string result = std::string(authors) + " (" + std::string(year) + ")";
    if (!title.empty())
        result += " " + std::string(title) + ".";
    if (!published.empty())
        result += " " + std::string(published);
    return result;
}

const Reference& reference(int index)
{
    return kReferences.at(static_cast<std::size_t>(index - 1));
}

std::string literatureNote(int index)
{
    const Reference& literature = reference(index);
    std::string note = literature.citation();
    if (literature.confidence != Confidence::Sure)
        note.append(" [").append(confidenceName(literature.confidence)).append("]");
    return note.append("; id ").append(literature.id);
}

int indexOfId(std::string_view id)
{
    const auto* const found =
        std::find_if(kReferences.begin(), kReferences.end(), [id](const Reference& r) { return r.id == id; });
    return found == kReferences.end() ? 0 : static_cast<int>(found - kReferences.begin()) + 1;
}

std::string_view familyName(Family family)
{
    switch (family) {
    case Family::ApparentTemperature:
        return "Apparent temperature";
    case Family::HumidHeat:
        return "Humid heat";
    case Family::CoolingPower:
        return "Cooling power";
    case Family::Cold:
        return "Cold";
    case Family::ComfortVote:
        return "Comfort vote";
    case Family::Physiology:
        return "Physiology";
    case Family::Radiation:
        return "Radiation";
    case Family::Psychrometry:
        return "Psychrometry";
    }
    return {};
}

std::string_view confidenceName(Confidence confidence)
{
    switch (confidence) {
    case Confidence::Sure:
        return "sure";
    case Confidence::Likely:
        return "likely";
    case Confidence::NameOnly:
        return "name only";
    }
    return {};
}

} // namespace comfortics::catalogue
