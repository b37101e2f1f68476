// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/reading_boxes.h"

#include "values/number_text.h"

#include <algorithm>
#include <optional>

namespace comfortics::core {

using controls::TextBox;
using values::isNumeric;
using values::numericValue;

namespace {

constexpr double kHighestAirTemperature = 58;
constexpr double kSolarConstant = 1367;
constexpr double kHighestHumidity = 100;
constexpr std::string_view kLowestWindText = "0.1";
constexpr double kLowestWind = 0.1;

// The character whose place at the end of a text tells that a number is still being typed.
char watchedCharacter(Reading reading)
{
    switch (reading) {
    case Reading::TA:
    case Reading::TG:
    case Reading::DP:
        return '-';
    default:
        return '.';
    }
}

std::optional<Reading> partner(Reading reading)
{
    switch (reading) {
    case Reading::TG:
        return Reading::SR;
    case Reading::SR:
        return Reading::TG;
    case Reading::DP:
        return Reading::RH;
    case Reading::RH:
        return Reading::DP;
    default:
        return std::nullopt;
    }
}

} // namespace

ReadingBoxes::ReadingBoxes()
{
    for (std::size_t i = 0; i < kReadingCount; ++i) {
        const auto reading = static_cast<Reading>(i);
        box(reading).change.handle([this, reading] { clean(reading); });
    }
}

TextBox& ReadingBoxes::box(Reading reading)
{
    switch (reading) {
    case Reading::TA:
        return txt_TA;
    case Reading::TG:
        return txt_TG;
    case Reading::SR:
        return txt_SR;
    case Reading::DP:
        return txt_DP;
    case Reading::RH:
        return txt_RH;
    case Reading::WS:
        break;
    }
    return txt_WS;
}

const TextBox& ReadingBoxes::box(Reading reading) const
{
    return const_cast<ReadingBoxes*>(this)->box(reading);
}

void ReadingBoxes::write(const std::array<std::string_view, kReadingCount>& texts)
{
    for (std::size_t i = 0; i < kReadingCount; ++i)
        box(static_cast<Reading>(i)).setText(std::string(texts[i]));
}

void ReadingBoxes::clear()
{
    write({});
}

bool ReadingBoxes::complete() const
{
    return !txt_TA.text().empty() && !txt_WS.text().empty() &&
           !(txt_TG.text().empty() && txt_SR.text().empty()) &&
           !(txt_DP.text().empty() && txt_RH.text().empty());
}

bool ReadingBoxes::valid() const
{
    return (isNumeric(txt_RH.text()) || isNumeric(txt_DP.text())) &&
           (isNumeric(txt_SR.text()) || isNumeric(txt_TG.text())) && isNumeric(txt_WS.text()) &&
           isNumeric(txt_TA.text());
}

std::string ReadingBoxes::whatIsWrong() const
{
    const auto judge = [](std::initializer_list<const TextBox*> alternatives,
                          const std::string& name) -> std::string {
        const bool empty = std::all_of(alternatives.begin(), alternatives.end(),
                                       [](const TextBox* one) { return one->text().empty(); });
        if (empty)
            return name + " is missing";
        const bool number = std::any_of(alternatives.begin(), alternatives.end(),
                                        [](const TextBox* one) { return isNumeric(one->text()); });
        return number ? std::string() : name + " is no number";
    };
    for (const std::string& wrong :
         {judge({&txt_TA}, "the air temperature"), judge({&txt_WS}, "the wind speed"),
          judge({&txt_TG, &txt_SR}, "globe temperature or solar radiation"),
          judge({&txt_DP, &txt_RH}, "dew point or relative humidity")})
        if (!wrong.empty())
            return wrong;
    return {};
}

void ReadingBoxes::dropUnfinished()
{
    for (TextBox* const box : {&txt_TG, &txt_SR, &txt_DP, &txt_RH})
        if (!isNumeric(box->text()))
            box->setText("");
}

void ReadingBoxes::round()
{
    for (const Reading reading :
         {Reading::TA, Reading::TG, Reading::SR, Reading::RH, Reading::DP, Reading::WS}) {
        TextBox& target = box(reading);
        if (const auto number = numericValue(target.text())) {
            const auto rounded =
                values::format(*number, reading == Reading::SR ? values::kFormat0 : values::kFormat0_0);
            target.setText(values::plainText(values::val(rounded)));
        }
    }
}

// Writing a box raises its change handler again, nested; that is harmless, since an empty text
// stops at once and an unchanged text raises nothing.
void ReadingBoxes::clean(Reading reading)
{
    TextBox& self = box(reading);
    const std::size_t watched = self.text().find(watchedCharacter(reading));
    const std::size_t position = watched == std::string::npos ? 0 : watched + 1;
    if (position == self.text().size())
        return;

    if (!isNumeric(self.text()))
        self.setText("");

    if (const auto number = numericValue(self.text())) {
        switch (reading) {
        case Reading::TA:
            if (*number > kHighestAirTemperature) {
                self.setText("");
                return;
            }
            break;
        case Reading::SR:
            if (*number > kSolarConstant || *number < 0)
                self.setText("");
            break;
        case Reading::DP:
            if (*number > values::val(txt_TA.text()))
                self.setText("");
            break;
        case Reading::RH:
            if (*number > kHighestHumidity)
                self.setText("");
            break;
        case Reading::WS:
            if (*number < kLowestWind)
                self.setText(std::string(kLowestWindText));
            break;
        case Reading::TG:
            break;
        }
    }

    std::string text = self.text();
    std::replace(text.begin(), text.end(), ',', '.');
    self.setText(std::move(text));
    self.setCaretToEnd();

    if (const auto other = partner(reading))
        box(*other).setText("");
}

} // namespace comfortics::core
