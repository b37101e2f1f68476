// SPDX-License-Identifier: GPL-3.0-or-later
//
// The unit converter: any text in any box, and any name of a unit.
#include "check.h"
#include "desk.h"
#include "input.h"

#include "converter/frm_converter.h"
#include "texts/number_text.h"
#include "values/run_failure.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

namespace comfortics::fuzz {
namespace {

using converter::Conversion;
using converter::kConversions;

void check(std::size_t place, const std::string& text, const std::string& unit)
{
    static KeptMessages messages;
    static NoWindows windows;
    static classic::Frm_Main main(projectLimits(), messages, windows);
    converter::Frm_Converter form(main);
    const Conversion& conversion = kConversions[place];
    const auto number = texts::numericValue(text);

    form.boxes[place].setText(text);
    require(form.boxes[place].text() == (number ? text : ""), "a box keeps numbers alone", text);
    const std::string label = form.result(conversion.panel).caption();
    // Writing an empty text to an empty box is no change and computes nothing.
    require(label.empty() || texts::isNumeric(label), "a result is a number", label, text);
    if (number) {
        std::string expected;
        try {
            expected = converter::converted(conversion, *number);
        } catch (const values::RunFailure&) {
        }
        requireEqual(label, expected, "the result of a number");
        const values::Number half = *number / 2;
        if (!expected.empty() && std::abs(*number) < 1e9 && half + half == *number) {
            // Linear in the number: the middle between it and 0 is converted to the middle.
            const double whole = conversion.formula(*number).value();
            const double middle = (whole + conversion.formula(0).value()) / 2;
            require(std::abs(conversion.formula(half).value() - middle) <= 1e-6 * (1 + std::abs(whole)),
                    "conversions are linear", text, conversion.name);
        }
    }
    // The first text written to a neighbour clears this box and is itself lost.
    const std::size_t other = place == 0 ? 1 : place - 1;
    if (kConversions[other].panel == conversion.panel) {
        form.boxes[other].setText("1");
        require(form.boxes[place].text().empty(), "a neighbour clears the box", text);
        require(form.boxes[other].text() == (number && !text.empty() ? "" : "1"),
                "and is cleared where the box held a number", text);
    }

    const Conversion* const found = converter::findConversion(unit);
    if (found != nullptr)
        require(converter::findConversion(found->name) == found &&
                    converter::findConversion(converter::unitText(*found)) == found,
                "all names of a unit mean the same", unit);
}

} // namespace
} // namespace comfortics::fuzz

/// The input is a letter for the box, the text in it up to the end of the line, and a unit's name.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    comfortics::fuzz::Input input(data, size);
    const std::size_t place = input.byte() % comfortics::converter::kConversionCount;
    const std::string text = input.line();
    comfortics::fuzz::check(place, text, std::string(input.rest()));
    return 0;
}
