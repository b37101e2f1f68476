// SPDX-License-Identifier: GPL-3.0-or-later
//
// The limits reader on any bytes, against a search of the whole text for each setting.
#include "check.h"
#include "input.h"

#include "classic/limits.h"
#include "classic/load_indices.h"
#include "classic/outcome.h"
#include "texts/number_text.h"
#include "texts/text.h"
#include "values/plain_text.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace comfortics::fuzz {
namespace {

using classic::Limits;

constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kMark = "\xEF\xBB\xBF";

std::string_view trim(std::string_view text)
{
    while (!text.empty() && kBlanks.find(text.front()) != std::string_view::npos)
        text.remove_prefix(1);
    while (!text.empty() && kBlanks.find(text.back()) != std::string_view::npos)
        text.remove_suffix(1);
    return text;
}

// The first line of the first section of that name which gives the key.
std::string slowSetting(std::string_view text, std::string_view wantedSection, std::string_view wantedKey)
{
    if (text.substr(0, kMark.size()) == kMark)
        text.remove_prefix(kMark.size());
    bool inside = false;
    bool over = false;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::string_view line = trim(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (line.substr(0, 1) == "[") {
            const std::string_view name = trim(line.substr(1, line.find(']') - 1));
            over = over || inside;
            inside = texts::lowered(name) == texts::lowered(wantedSection);
        } else if (inside && !over && line.substr(0, 1) != ";" && line.find('=') != std::string_view::npos) {
            const std::string_view key = trim(line.substr(0, line.find('=')));
            std::string_view value = trim(line.substr(line.find('=') + 1));
            if (texts::lowered(key) != texts::lowered(wantedKey))
                continue;
            for (const char quote : {'"', '\''})
                if (value.size() >= 2 && value.front() == quote && value.back() == quote) {
                    value = value.substr(1, value.size() - 2);
                    break;
                }
            return std::string(value.substr(0, 149));
        }
    }
    return {};
}

void checkBound(const classic::Bound& bound, std::string_view text, const std::string& key)
{
    const std::string kept = values::plainText(texts::val(slowSetting(text, "INDICES", key)));
    requireEqual(bound.text, kept, "the text of a bound");
    require(bound.number == texts::val(kept), "a bound compares as its text", key);
}

// A rewritten text must give the same limits.
std::string withCarriageReturns(std::string_view text)
{
    std::string result;
    for (const char c : text)
        result += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return result;
}

void requireSetting(std::string_view text, std::string_view section, std::string_view key)
{
    const std::string value = classic::IniFile(text).Read_Index_Setting(section, key);
    requireEqual(value, slowSetting(text, section, key), "any setting");
    if (text.starts_with(kMark))
        return;
    const classic::IniFile marked(std::string(kMark) + std::string(text));
    requireEqual(marked.Read_Index_Setting(section, key), value, "a byte-order mark changes nothing");
    const classic::IniFile returned(withCarriageReturns(text));
    requireEqual(returned.Read_Index_Setting(section, key), value, "the ends of lines change nothing");
}

void check(std::string_view text)
{
    const Limits limits = Limits::fromText(text);
    for (const int index : {1, 2, 9, 42, 150, 222}) {
        const classic::IndexLimits& row = limits.of(index);
        const std::string number = std::to_string(index);
        requireEqual(row.Name, slowSetting(text, "INDICES", "Name_" + number), "a name");
        requireEqual(row.TA_Cat, slowSetting(text, "INDICES", "TA_Cat_" + number), "a category");
        requireEqual(row.Categories, slowSetting(text, "INDICES", "Categories_" + number), "categories");
        checkBound(row.Tair_min, text, "Tair_min_" + number);
        checkBound(row.Tair_max, text, "Tair_max_" + number);
        checkBound(row.WS_min, text, "WS_min_" + number);
        checkBound(row.WS_max, text, "WS_max_" + number);
        require(row.Name.size() <= 149 && row.Name.find('\n') == std::string::npos, "a value is one line",
                row.Name);
        for (const auto kind : {classic::OutcomeKind::OutsideTemperature, classic::OutcomeKind::OutsideWind})
            require(!classic::whyBlank(index, {.kind = kind}, limits, {}).empty(), "why an index is blank");
    }
    // Sections and keys of any name.
    Input names(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()); // NOLINT: bytes are bytes
    names.upTo('[');
    const std::string_view section = trim(names.upTo(']'));
    const std::string_view key = trim(names.upTo('='));
    if (section.find('\n') == std::string_view::npos && key.find('\n') == std::string_view::npos)
        requireSetting(text, section, key);
}

} // namespace
} // namespace comfortics::fuzz

/// The input is the text of a limits file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    comfortics::fuzz::check({reinterpret_cast<const char*>(data), size}); // NOLINT: bytes are bytes
    return 0;
}
