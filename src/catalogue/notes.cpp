// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/notes.h"

#include "catalogue/catalogue.h"

#include <array>

namespace comfortics::catalogue {

namespace {

struct NoteRow {
    std::size_t firstAbbreviation;
    std::size_t abbreviations;
    std::string_view description;
    std::size_t firstWarning;
    std::size_t warnings;
};

// clang-format off
#include "catalogue/notes.inc"
// clang-format on

constexpr auto kNotes = [] {
    static_assert(std::size(kRows) == kIndexCount);
    std::array<Note, kIndexCount> all{};
    const std::span texts(kTexts);
    for (std::size_t i = 0; i < kIndexCount; ++i) {
        const NoteRow& row = kRows[i];
        all[i] = {texts.subspan(row.firstAbbreviation, row.abbreviations), row.description,
                  texts.subspan(row.firstWarning, row.warnings)};
    }
    return all;
}();

} // namespace

const Note& note(int index)
{
    return kNotes.at(static_cast<std::size_t>(index - 1));
}

} // namespace comfortics::catalogue
