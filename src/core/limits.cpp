// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/limits.h"

#include "core/load_indices.h"
#include "values/number_text.h"

namespace comfortics::core {

namespace {

constexpr std::string_view kSection = "INDICES";

Bound bound(const std::string& text)
{
    const double number = values::val(text);
    return {values::plainText(number), number};
}

void fill(const IniFile& file, std::array<IndexLimits, kIndexCount>& rows)
{
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::string number = std::to_string(i + 1);
        const auto setting = [&](const char* stem) {
            return file.Read_Index_Setting(kSection, stem + number);
        };
        IndexLimits& row = rows[i];
        row.Name = setting("Name_");
        row.TA_Cat = setting("TA_Cat_");
        row.Tair_min = bound(setting("Tair_min_"));
        row.Tair_max = bound(setting("Tair_max_"));
        row.WS_min = bound(setting("WS_min_"));
        row.WS_max = bound(setting("WS_max_"));
        row.Active = values::val(setting("Active_"));
        row.Categories = setting("Categories_");
    }
}

} // namespace

Limits Limits::Load_Limits(const std::string& path)
{
    Limits limits;
    fill(IniFile::read(path), limits.m_rows);
    return limits;
}

Limits Limits::fromText(std::string_view iniText)
{
    Limits limits;
    fill(IniFile(iniText), limits.m_rows);
    return limits;
}

} // namespace comfortics::core
