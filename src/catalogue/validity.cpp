// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/validity.h"

#include "catalogue/catalogue.h"

#include <array>

namespace comfortics::catalogue {

namespace {

// clang-format off
constexpr std::array<Validity, kIndexCount> kValidity{{
#include "catalogue/validity.inc"
}};
// clang-format on

} // namespace

const Validity& validity(int index)
{
    return kValidity.at(static_cast<std::size_t>(index - 1));
}

} // namespace comfortics::catalogue
