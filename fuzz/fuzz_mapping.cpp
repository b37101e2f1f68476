// SPDX-License-Identifier: GPL-3.0-or-later
//
// Mapping files and the command line's form of a mapping: what is taken is written and read again unchanged.
#include "check.h"
#include "input.h"

#include "tables/mapping.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace comfortics::fuzz {
namespace {

using namespace tables;

void checkFile(std::string_view text)
{
    const MappingRead read = readMapping(text);
    require(read.mapping.has_value() == read.fault.empty(), "a mapping or why it is none");
    if (!read.mapping)
        return;
    const MappingRead again = readMapping(mappingText(*read.mapping));
    require(again.mapping == read.mapping, "a mapping, written and read", mappingText(*read.mapping),
            again.fault);
}

void checkOption(const std::string& line)
{
    const std::string text = line.c_str(); // no word of a command line holds a zero byte
    Layout layout;
    layout.names = {"Ta", "Rel, hum", "Wind:10", "a+b", "Date", "Time"};
    layout.units.resize(layout.names.size());
    try {
        const Mapping mapping = mappingOfText(text, layout);
        for (const ColumnUse& use : mapping.columns)
            if (use.role == Role::Reading)
                require(UnitWay::find(use.quantity, use.unit, use.step).has_value(), "a reading has a unit",
                        use.unit);
        checkFile(mappingText(mapping));
    } catch (const TableFault& fault) {
        require(std::string_view(fault.what()).ends_with('.'), "a fault is a sentence", fault.what());
    }
}

} // namespace
} // namespace comfortics::fuzz

/// The input is the option's text in one line, then the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    comfortics::fuzz::Input input(data, size);
    comfortics::fuzz::checkOption(input.line());
    comfortics::fuzz::checkFile(input.rest());
    return 0;
}
