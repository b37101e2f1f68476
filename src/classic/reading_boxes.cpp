// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/reading_boxes.h"

#include "texts/number_text.h"
#include "texts/text.h"
#include "values/plain_text.h"

#include <algorithm>
#include <optional>

namespace comfortics::classic {

using controls::TextBox;
using texts::isNumeric;
using texts::numericValue;

namespace {

constexpr double kHighestAirTemperature = 58;
constexpr double kSolarConstant = 1367;
constexpr double kHighestHumidity = 100;
constexpr std::string_view kLowestWindText = "0.1";
constexpr double kLowestWind = 0.1;
constexpr double kGlobeBelowAir = 10;
constexpr const char* kWindAdvice = " For 0.5 type .5, without the 0.";

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

std::string nameOf(Reading reading)
{
    return texts::lowered(kReadingInfo[static_cast<std::size_t>(reading)].heading);
}

std::string quoted(const std::string& text)
{
    return '"' + text + '"';
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
        box(reading).change.handle([this, reading] {
            clean(reading);
            changed.raise();
        });
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

void ReadingBoxes::dropColdGlobe()
{
    m_loss.clear();
    if (texts::val(txt_TG.text()) >= texts::val(txt_TA.text()) - kGlobeBelowAir)
        return;
    const std::string globe = txt_TG.text();
    txt_TG.setText("");
    if (!globe.empty())
        tell("The globe temperature " + globe + " is more than 10 °C below the air temperature " +
             (txt_TA.text().empty() ? "0, as which an empty box counts" : txt_TA.text()) + ": emptied.");
}

void ReadingBoxes::dropUnfinished()
{
    for (const Reading reading : {Reading::TG, Reading::SR, Reading::DP, Reading::RH}) {
        const std::string text = box(reading).text();
        if (isNumeric(text))
            continue;
        box(reading).setText("");
        if (!text.empty())
            tell(quoted(text) + " is no number: the " + nameOf(reading) + " was emptied.");
    }
}

void ReadingBoxes::finishNumbers()
{
    m_loss.clear();
    for (const Reading reading : {Reading::SR, Reading::RH, Reading::WS}) {
        std::string text = box(reading).text();
        if (!isNumeric(text) || text.back() != '.')
            continue;
        text.pop_back();
        box(reading).setText(std::move(text));
    }
}

void ReadingBoxes::round()
{
    m_loss.clear();
    std::string rounded;
    for (const Reading reading :
         {Reading::TA, Reading::TG, Reading::SR, Reading::RH, Reading::DP, Reading::WS}) {
        TextBox& target = box(reading);
        if (const auto number = numericValue(target.text())) {
            const double kept = texts::val(
                texts::format(*number, reading == Reading::SR ? values::kFormat0 : values::kFormat0_0));
            const std::string before = target.text();
            target.setText(values::plainText(kept));
            if (m_listener && kept != *number && !target.text().empty())
                rounded += (rounded.empty() ? "Rounded: " : ", ") + nameOf(reading) + " " + before + " to " +
                           target.text();
        }
    }
    m_loss.clear();
    if (!rounded.empty())
        tell(rounded + ".");
}

// Writing a box raises its change handler again, nested; that is harmless, since an empty text
// stops at once and an unchanged text raises nothing.
void ReadingBoxes::clean(Reading reading)
{
    Verdict verdict;
    if (m_cleaning || !m_listener) {
        applyRules(reading, verdict);
        return;
    }
    const auto other = partner(reading);
    const std::string otherBefore = other ? box(*other).text() : std::string();
    m_cleaning = true;
    applyRules(reading, verdict);
    m_cleaning = false;
    remark(reading, otherBefore, verdict);
}

void ReadingBoxes::applyRules(Reading reading, Verdict& verdict)
{
    TextBox& self = box(reading);
    const std::size_t watched = self.text().find(watchedCharacter(reading));
    const std::size_t position = watched == std::string::npos ? 0 : watched + 1;
    if (position == self.text().size())
        return;

    const std::string written = self.text();
    const auto empty = [&](const std::string& why, const std::string& advice = {}) {
        self.setText("");
        verdict = {.why = why, .advice = advice};
    };
    if (!isNumeric(written))
        empty(quoted(written) + " is no number",
              reading == Reading::WS && (written.starts_with(kLowestWindText) || written == ",") ? kWindAdvice
                                                                                                 : "");

    if (const auto number = numericValue(self.text())) {
        switch (reading) {
        case Reading::TA:
            if (*number > kHighestAirTemperature) {
                empty(written + " is above 58 °C, the highest air temperature",
                      " Is it °F? The converter takes it over.");
                return;
            }
            break;
        case Reading::SR:
            if (*number > kSolarConstant)
                empty(written + " is above 1367 W/m², the highest solar radiation");
            else if (*number < 0)
                empty(written + " is below 0 W/m², the lowest solar radiation");
            break;
        case Reading::DP:
            if (*number > texts::val(txt_TA.text())) {
                if (txt_TA.text().empty())
                    empty(written + " is above 0 °C, as which an empty air temperature counts",
                          " Type the air temperature first.");
                else
                    empty(written + " is above " + txt_TA.text() + " °C, the air temperature",
                          texts::val(txt_TA.text()) < 0
                              ? " In frost type the dew point first, or the humidity in its place."
                              : "");
            }
            break;
        case Reading::RH:
            if (*number > kHighestHumidity)
                empty(written + " is above 100 %, the highest relative humidity");
            break;
        case Reading::WS:
            if (*number < kLowestWind) {
                self.setText(std::string(kLowestWindText));
                verdict = {.why = written + " is below 0.1 m/s, the lowest wind speed",
                           .advice = std::string(kWindAdvice),
                           .replaced = true};
            }
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

void ReadingBoxes::remark(Reading reading, const std::string& partnerBefore, const Verdict& verdict)
{
    const std::string& standing = text(reading);
    if (m_spokenOf != reading) {
        m_loss.clear();
        tell({}); // what was said of another box is over
    }
    m_spokenOf = reading;
    const bool typedOn = !m_loss.empty();
    const auto other = partner(reading);
    const bool partnerEmptied = other && !partnerBefore.empty() && text(*other).empty();
    if (!verdict.why.empty()) {
        std::string sentence = verdict.why + (verdict.replaced ? ": 0.1 stands in its place" : ": emptied");
        if (partnerEmptied)
            sentence += ", and the " + nameOf(*other) + " " + partnerBefore + " with it";
        m_loss = sentence + "." + verdict.advice;
        tell(m_loss);
    } else if (typedOn) {
        tell(standing.empty() ? m_loss : standing + " stands now. " + m_loss);
    } else {
        m_loss.clear();
        if (partnerEmptied)
            tell("The " + nameOf(*other) + " " + partnerBefore + " was emptied: the " + nameOf(reading) +
                 " counts in its place.");
    }
}

} // namespace comfortics::classic
