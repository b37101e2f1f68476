// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/wbgt_utci.h"

#include "../models/model_cases.h"
#include "values/plain_text.h"

#include <gtest/gtest.h>

#include <array>
#include <sstream>

namespace comfortics::tests {
namespace {

using namespace classic;
using formulas::Live;
using formulas::Rules;
using texts::Variant;

/// A number with more than nine digits is cut to nine, anything else stands.
std::string shortened(const std::string& text)
{
    return text.size() > 10 && texts::isNumeric(text) ? digits(texts::val(text), 9) : text;
}

/// Keeps what the models write and say.
class RecordingDesk final : public Desk {
public:
    void writeCaption(Live quantity, std::string text) override
    {
        const auto& info = formulas::kLiveInfo[static_cast<std::size_t>(quantity)];
        said += std::string(info.symbol) + " " + shortened(text) + ", ";
    }
    void writeSolarRadiationResult(std::string text) override { said += "159 " + text + ", "; }
    void showMessage(const std::string& text) override { said += "message " + text + ", "; }
    void explain(std::string why) override { said += "because " + why + ", "; }

    std::string said;
};

enum class Model { Utci, Outdoor, Indoor, Radiant };

/// The arguments in the order Ta, Tg, Td, WS, SR, RH.
using Readings = std::array<Variant, 6>;

Variant run(WBGT_UTCI& models, Model model, Readings& readings)
{
    auto& [Ta, Tg, Td, WS, SR, RH] = readings;
    switch (model) {
    case Model::Utci:
        return models.UTCI_Regression(Ta, Tg, Td, WS, SR, RH);
    case Model::Outdoor:
        return models.WBGT_Outdoor(Ta, Tg, Td, WS, SR, RH);
    case Model::Indoor:
        return models.WBGT_Indoor(Ta, Td, WS, RH);
    default:
        return models.Mean_Radiant_Temperature_Model(Ta, Tg, SR, WS);
    }
}

std::string shownValue(const Variant& value)
{
    if (value.isEmpty())
        return "Empty";
    return value.isText() ? "\"" + shortened(value.text()) + "\"" : shortened(value.text());
}

/// All that a model does: captions, messages and reasons as they come, the arguments that it
/// changed, the result. Texts stand in quotes.
std::string transcript(WBGT_UTCI& models, RecordingDesk& desk, Model model, Readings readings)
{
    constexpr std::array names{"Ta", "Tg", "Td", "WS", "SR", "RH"};
    const Readings before = readings;
    desk.said.clear();
    try {
        const Variant result = run(models, model, readings);
        for (std::size_t i = 0; i < names.size(); ++i)
            if (readings[i] != before[i])
                desk.said += std::string(names[i]) + " := " + shownValue(readings[i]) + ", ";
        return desk.said + "= " + shownValue(result);
    } catch (const values::RunFailure& failure) {
        return desk.said + "fails: " + failure.why();
    }
}

struct Case {
    Model model;
    const char* readings; // a dot for nothing typed, ~ before a number that is no text
    const char* end;      // of the transcript
};

Readings readingsOf(const std::string& text)
{
    std::istringstream words(text);
    Readings readings;
    for (Variant& reading : readings) {
        std::string word;
        words >> word;
        if (word[0] == '~')
            reading = texts::val(word.substr(1));
        else
            reading = word == "." ? "" : word;
    }
    return readings;
}

// Expected texts from a separate evaluation of the models in Python. Each case with models of its own, and
// with common ones three times in a row, then from their memory.
TEST(Models, DoAsDescribed)
{
    using enum Model;
    const Case cases[] = {
        {Utci, "25 . . 2 500 50", "Td 13.85757, Tg := \"32.2333031\", Td := \"13.8575692\", = 31.4678741"},
        {Outdoor, "25 . . 2 500 50",
         "Tg 32.23330, Tnwb 18.96659, Tg := \"32.2333031\", Td := \"13.8575692\", = 22.2232709"},
        {Indoor, "25 . . 2 . 50", "Td 13.85757, Tpwb 17.95757, Td := \"13.8575692\", = 20.1798122"},
        {Radiant, "25 . . 2 500 50", "Tmrt 54.4985235, Tg := \"32.4009817\", = 54.4985235"},
        {Utci, "30 . 18.4 3.1 600 .", "RH 49.92847, Tg := \"37.615709\", RH := \"49.9284674\", = 36.9874713"},
        {Indoor, "30 . 18.4 3.1 600 .", "Tpwb 22.10000, = 24.5206756"},
        {Outdoor, "27.5 35.2 . 1.3 . 41",
         "159 469, Tnwb 19.65241, Td := \"13.0758734\", SR := \"469\", = 23.5466892"},
        {Radiant, "27.5 35.2 . 1.3 . 41", "Tmrt 52.8640553, = 52.8640553"},
        // -99 counts as nothing typed, but a dew point of -99 beside an empty humidity is read
        {Utci, "27.5 35.2 -99 1.3 -99.0 41", "= 33.3809787"},
        {Outdoor, "31 ~-99 12.2 0.7 700 ~-99", "Tg := 45.5683929, RH := 31.6848398, = 27.5416008"},
        {Radiant, "31 -99 . 0.7 700 .", "= 68.0942422"},
        {Radiant, "31 44 . 0.7 ~-99 .", "= 62.8443648"},
        {Utci, "25 . -99 2 500 -99", "= Empty"},
        {Utci, "25 -99 12 2 -99 .", "= Empty"},
        {Outdoor, "31 . -99 2 700 .", "= 18.7044672"},
        {Outdoor, "31 . . 2 700 -99", "fails: type mismatch: the text \"\" is no number"},
        // too little and too much
        {Utci, "25 . . 2 500 .", "because neither the dew point nor the relative humidity is given, = \"\""},
        {Utci, "25 . . 2 . 50", "neither the globe temperature nor the solar radiation is given, = \"\""},
        {Utci, "25 . 12 2 500 50",
         "because both the dew point and the relative humidity are given, = \"Error:\""},
        {Outdoor, "25 30 12 2 500 .",
         "both the globe temperature and the solar radiation are given, RH := \"44.3279953\", = \"Error:\""},
        {Radiant, "25 30 . 2 500 50",
         "the globe temperature and the solar radiation are given, Tmrt Error:, = \"Error:\""},
        // a dew point above the air: a computed one passes indoors
        {Utci, "20 . . 1 300 50", "(the two are compared as texts), Td := \"9.26962864\", = \"Error:\""},
        {Outdoor, "25 . 9.5 1 300 .", "(the two are compared as texts), RH := \"37.5380034\", = \"Error:\""},
        {Indoor, "20 . . 1 . 50", "= 15.8256512"},
        {Indoor, "20 . 9 1 . 50", "(the two are compared as texts), Tpwb , = \"Error:\""},
        {Indoor, "20 . 12 0.6 . 50", "= 15.8919968"},
        // the wet bulb's search ends otherwise for a text than for a number
        {Indoor, "12.5 . 12.4 2 . .", "Tpwb 12.50000, = 12.5"},
        {Indoor, "~12.5 . ~12.4 2 . .", "Tpwb 12.40000, = 12.4315551"},
        // a low wind rises as a number, and indoors as a text
        {Outdoor, "31 . 12 0.05 700 .", "= 35.1018464"},
        {Utci, "31 . 12 ~0.05 700 .", "WS := 0.1, RH := \"31.2706834\", = 39.44239"},
        {Outdoor, "31 44 12 ~0.05 . .", "WS := 0.1, SR := \"416\", RH := \"31.2706834\", = 28.7755636"},
        {Utci, "31 44 12 ~0.05 . .", "RH 31.27068, RH := \"31.2706834\", = 35.2041554"},
        {Indoor, "31 . 12 0.05 . .", "WS := \"0.1\", = 23.4738"},
        {Outdoor, "31 . 12 0 700 .", "Tg 66.68960, fails: division by zero"},
        // no convergence of the wick and of the globe
        {Outdoor, "52.7 . . 0.9 370 91", "extreme, Tg := \"62.2527126\", Td := \"50.7774482\", = 17.7205425"},
        {Radiant, "0 . . 30 600 50", "message No convergence: values too extreme, Tmrt 0, Tg := Empty, = 0"},
        {Outdoor, "0 . . 30 600 50",
         "Tg , Tnwb -02.42147, Tg := Empty, Td := \"-9.15673764\", = -1.69502835"},
        // a search that finds candidate 0, which fails and counts as 0 °C, and vain ones
        {Outdoor, "0 -1.5 . 30 . 50",
         "SR 0, 159 0, Tnwb -02.97200, Td := \"-9.15673764\", SR := \"0\", = -2.38039726"},
        {Outdoor, "25 90 12 2 -99 .", "= 32.1359991"},
        {Outdoor, "25 90 12 2 . .", "(no solar radiation up to 1376 W/m² brings the globe to 90)"},
    };
    RecordingDesk desk;
    WBGT_UTCI common(desk);
    for (int round = 0; round < 2; ++round)
        for (const auto& [model, readings, end] : cases) {
            SCOPED_TRACE(std::string("model ") + std::to_string(static_cast<int>(model)) + ": " + readings);
            WBGT_UTCI fresh(desk);
            const std::string whole = transcript(fresh, desk, model, readingsOf(readings));
            EXPECT_TRUE(whole.ends_with(end)) << whole;
            for (int again = 0; again < 3; ++again)
                EXPECT_EQ(transcript(common, desk, model, readingsOf(readings)), whole);
        }
}

// In this gale candidates go by without convergence until one reaches 0.5 °C: one message each, from the
// search and from its repetition.
TEST(Models, ShowAMessageForEachCandidateWithoutConvergence)
{
    RecordingDesk desk;
    WBGT_UTCI models(desk);
    const Readings readings{"0", "0.5", "", "30", "", "50"};
    const std::string first = transcript(models, desk, Model::Outdoor, readings);
    EXPECT_GT(first.size(), 500 * std::string("message No convergence: values too extreme, ").size());
    EXPECT_EQ(transcript(models, desk, Model::Outdoor, readings), first);
}

// By the robust rules nothing that could not be derived goes on as 0.
TEST(Models, FailByTheRobustRulesWhereAQuantityHasNoValue)
{
    using enum Model;
    const Case cases[] = {
        {Radiant, "0 . . 30 600 50", "Tmrt 49.7548457, Tg := \"2.63975893\", = 49.7548457"},
        {Outdoor, "52.7 . . 0.9 370 91",
         "Tnwb 51.39189, Tg := \"62.2527126\", Td := \"50.7774482\", = 53.6948672"},
        {Outdoor, "31 . 12 0 700 .", "fails: division by zero"},
        {Outdoor, "25 90 12 2 . .", "fails: no solar radiation up to 1376 W/m² brings the globe to 90 °C"},
        {Outdoor, "25 90 12 2 -99 .", "fails: no solar radiation up to 1376 W/m² brings the globe to 90 °C"},
        {Utci, "20 . -300 2 500 .", "fails: the dew point -300 °C is below absolute zero, -273.15 °C"},
        {Indoor, "-273.2 . . 2 . 50",
         "fails: the air temperature -273.2 °C is below absolute zero, -273.15 °C"},
        {Indoor, "-273 . . 2 . 0.1", "fails: the dew point -275.29 °C is below absolute zero, -273.15 °C"},
        {Radiant, "-270 -280 . 2 . .",
         "fails: the globe temperature -280 °C is below absolute zero, -273.15 °C"},
    };
    RecordingDesk desk;
    WBGT_UTCI models(desk);
    for (const auto& [model, readings, end] : cases) {
        models.setRules(Rules::Classic); // what is remembered of these is no answer of the others
        transcript(models, desk, model, readingsOf(readings));
        models.setRules(Rules::Robust);
        const std::string whole = transcript(models, desk, model, readingsOf(readings));
        EXPECT_TRUE(whole.ends_with(end)) << whole;
        EXPECT_EQ(whole.find("message"), std::string::npos) << whole;
    }
}

// By the robust rules dew points are compared as numbers, and one that rounding alone lifts above the air is
// not above it; the search from saturated air ends at the dew point.
TEST(Models, CompareDewPoints)
{
    const struct {
        Rules rules;
        const char *Ta, *Td, *says;
    } rows[] = {
        {Rules::Classic, "20", "9.26962863712491",
         "because the dew point 9.27 reads above the air temperature 20 (the two are compared as texts)"},
        {Rules::Classic, "20", "20.0004",
         "because the dew point 20.0004 reads above the air temperature 20 "},
        {Rules::Classic, "11", "5.5004", "because the dew point 5.5 reads above the air temperature 11 "},
        {Rules::Classic, "11", "x", "because the dew point x reads above the air temperature 11 "},
        {Rules::Robust, "20", "9.5", "Tpwb 14.00000"},
        {Rules::Robust, "20", "20.0000000001", "Tpwb 20.00000"},
        {Rules::Robust, "20", "20.5", "because the dew point 20.5 is above the air temperature 20,"},
        {Rules::Robust, "-3", "-2", "because the dew point -2 is above the air temperature -3,"},
        {Rules::Robust, "0", "0", "Tpwb 00.00000"},
    };
    for (const auto& row : rows) {
        RecordingDesk desk;
        WBGT_UTCI models(desk);
        models.setRules(row.rules);
        const std::string said = transcript(models, desk, Model::Indoor, {row.Ta, "", row.Td, "1", "", ""});
        EXPECT_TRUE(said.starts_with(row.says)) << said;
    }
}

// What a model assigns to a text is read back from its 15 digits: the value of the text, not the
// value that was assigned, goes on.
TEST(Models, ReadAssignedTextsBack)
{
    RecordingDesk desk;
    WBGT_UTCI module(desk);
    int textsThatDiffer = 0;
    for (int RH = 31; RH < 71; ++RH) {
        Readings sunny{"30", "", "", "1.3", "500", Variant(std::to_string(RH))};
        const Variant outdoor = run(module, Model::Outdoor, sunny);
        const double Tg = models::Globe_Temperature_Model(30, RH, 1.3, 500).celsius;
        EXPECT_EQ(sunny[1], Variant(values::plainText(Tg)));
        const Solution Tnwb = models::Natural_Wet_Bulb(30, sunny[2].number(), RH, 1.3, 500);
        EXPECT_EQ(outdoor,
                  Variant(((0.7 * Number(Tnwb.celsius)) + (0.2 * sunny[1].number())) + (0.1 * Number(30))));
        textsThatDiffer += sunny[1].number() == Tg ? 0 : 1;
    }
    EXPECT_GT(textsThatDiffer, 10);
}

TEST(MinimumWind, RaisesAWindThatIsANumber)
{
    const std::pair<Variant, Variant> rows[] = {
        {1.7, 1.7},
        {0.04, 0.1},
        {"0.04", "0.04"}, // a text is above every number
        {Variant(), 0.1}, // Empty counts as 0
    };
    for (const auto& [before, after] : rows) {
        Variant wind = before;
        raiseToMinimumWind(wind, models::kMinimumWind);
        EXPECT_EQ(wind, after);
    }
}

} // namespace
} // namespace comfortics::tests
