// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/limits.h"

#include "texts/number_text.h"
#include "values/plain_text.h"

#include <algorithm>
#include <cstddef>

namespace comfortics::classic {

namespace {

constexpr std::string_view kSection = "INDICES";

Bound bound(const std::string& text)
{
    const std::string kept = values::plainText(texts::val(text));
    return {kept, texts::val(kept)};
}

} // namespace

Limits Limits::Load_Limits(const std::string& path)
{
    return from(IniFile::read(path));
}

Limits Limits::fromText(std::string_view iniText)
{
    return from(IniFile(iniText));
}

Limits Limits::from(const IniFile& file)
{
    Limits limits;
    limits.m_fileState = file.state();
    limits.m_fileProblem = file.problem();
    for (std::size_t i = 0; i < limits.m_rows.size(); ++i) {
        const std::string number = std::to_string(i + 1);
        const auto setting = [&](const char* stem) {
            return file.Read_Index_Setting(kSection, stem + number);
        };
        const auto boundOf = [&](const char* stem) {
            const std::string text = setting(stem);
            Bound result = bound(text);
            // The boxes would take a comma for a point; here it ends the number.
            if (!text.empty() && texts::numericValue(text) != texts::val(text))
                limits.m_doubts.push_back(std::string(stem).append(number) + "=" + text +
                                          " is no number and counts as " + result.text + ".");
            return result;
        };
        IndexLimits& row = limits.m_rows[i];
        row.Name = setting("Name_");
        row.TA_Cat = setting("TA_Cat_");
        row.Tair_min = boundOf("Tair_min_");
        row.Tair_max = boundOf("Tair_max_");
        row.WS_min = boundOf("WS_min_");
        row.WS_max = boundOf("WS_max_");
        row.Active = texts::val(setting("Active_"));
        row.Categories = setting("Categories_");
    }
    return limits;
}

bool Limits::anyGiven() const
{
    return std::any_of(m_rows.begin(), m_rows.end(), [](const IndexLimits& row) { return row.given(); });
}

std::string limitsWarning(const Limits& limits, const std::string& file)
{
    constexpr std::size_t kDoubtsTold = 3;
    const std::string own = "Limits.Index, which belongs beside the program,";
    const std::string consequence = "Indices with limits stay blank: "; // first, where a line is cut
    if (limits.fileState() == IniFile::State::Unreadable)
        return consequence + (file.empty() ? own : file) + " cannot be read (" + limits.fileProblem() + ").";

    std::string warning;
    if (!limits.anyGiven())
        warning = consequence + (file.empty() ? own + " is missing or" : file) + " holds no limits.";
    const std::vector<std::string>& doubts = limits.doubts();
    for (std::size_t i = 0; i < std::min(doubts.size(), kDoubtsTold); ++i)
        warning +=
            (warning.empty() ? "In " : " In ") + (file.empty() ? "Limits.Index" : file) + " " + doubts[i];
    if (doubts.size() > kDoubtsTold)
        warning += " There are " + std::to_string(doubts.size() - kDoubtsTold) + " more such bounds.";
    return warning;
}

} // namespace comfortics::classic
