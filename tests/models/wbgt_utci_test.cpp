// SPDX-License-Identifier: GPL-3.0-or-later
#include "models/wbgt_utci.h"

#include "model_cases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <utility>

namespace comfortics::tests {
namespace {

using namespace models;
using formulas::Live;
using formulas::Rules;

/// A number with more than nine digits is cut to nine, anything else stands.
std::string shortened(const std::string& text)
{
    return text.size() > 10 && values::isNumeric(text) ? digits(values::val(text), 9) : text;
}

/// Keeps what the models write and say, one line each.
class RecordingDesk final : public Desk {
public:
    void writeCaption(Live quantity, std::string text) override
    {
        lines.push_back(std::string(formulas::kLiveInfo[static_cast<std::size_t>(quantity)].symbol) + " " +
                        shortened(text));
        lastCaption = std::move(text);
    }
    void writeSolarRadiationResult(std::string text) override { lines.push_back("159 " + text); }
    void showMessage(const std::string& text) override { lines.push_back("message " + text); }
    void explain(std::string why) override { lines.push_back("because " + why); }

    std::vector<std::string> lines;
    std::string lastCaption;
};

enum class Model { Utci, Outdoor, Indoor, Radiant };

std::ostream& operator<<(std::ostream& out, Model model)
{
    constexpr std::array names{"UTCI", "outdoor WBGT", "indoor WBGT", "mean radiant temperature"};
    return out << names[static_cast<std::size_t>(model)];
}

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
std::vector<std::string> transcript(WBGT_UTCI& models, RecordingDesk& desk, Model model, Readings readings)
{
    constexpr std::array names{"Ta", "Tg", "Td", "WS", "SR", "RH"};
    const Readings before = readings;
    desk.lines.clear();
    std::string end;
    try {
        end = "= " + shownValue(run(models, model, readings));
    } catch (const values::RunFailure& failure) {
        desk.lines.push_back("fails: " + failure.why());
        return desk.lines;
    }
    for (std::size_t i = 0; i < names.size(); ++i)
        if (readings[i] != before[i])
            desk.lines.push_back(std::string(names[i]) + " := " + shownValue(readings[i]));
    desk.lines.push_back(end);
    return desk.lines;
}

struct Case {
    const char* name;
    Model model;
    Readings readings;
    std::vector<std::string> expected;
};

// Expected transcripts from a separate evaluation of the models in Python, texts included.
const std::vector<Case>& cases()
{
    // clang-format off
    static const std::vector<Case> all = {
        {"radiation and humidity", Model::Utci, {"25", "", "", "2", "500", "50"},
         {"Td 13.85757", "Tg := \"32.2333031\"", "Td := \"13.8575692\"", "= 31.4678741"}},
        {"radiation and humidity", Model::Outdoor, {"25", "", "", "2", "500", "50"},
         {"Td 13.85757", "Tg 32.23330", "Tnwb 18.96659", "Tg := \"32.2333031\"", "Td := \"13.8575692\"",
          "= 22.2232709"}},
        {"radiation and humidity", Model::Indoor, {"25", "", "", "2", "500", "50"},
         {"Td 13.85757", "Tpwb 17.95757", "Td := \"13.8575692\"", "= 20.1798122"}},
        {"radiation and humidity", Model::Radiant, {"25", "", "", "2", "500", "50"},
         {"Tmrt 54.4985235", "Tg := \"32.4009817\"", "= 54.4985235"}},
        {"radiation and dew point", Model::Utci, {"30", "", "18.4", "3.1", "600", ""},
         {"RH 49.92847", "Tg := \"37.615709\"", "RH := \"49.9284674\"", "= 36.9874713"}},
        {"dew point", Model::Indoor, {"30", "", "18.4", "3.1", "600", ""},
         {"Tpwb 22.10000", "= 24.5206756"}},
        {"globe and humidity", Model::Outdoor, {"27.5", "35.2", "", "1.3", "", "41"},
         {"Td 13.07587", "SR 469", "159 469", "Tnwb 19.65241", "Td := \"13.0758734\"", "SR := \"469\"",
          "= 23.5466892"}},
        {"globe", Model::Radiant, {"27.5", "35.2", "", "1.3", "", "41"},
         {"Tmrt 52.8640553", "= 52.8640553"}},
        {"globe that no sun explains", Model::Outdoor, {"20.6", "12", "", "1", "", "77"},
         {"Td 16.42675", "SR 0", "159 0", "Tnwb 17.73873", "Td := \"16.4267485\"", "SR := \"0\"",
          "= 16.8771092"}},
        {"-99 as text, globe", Model::Utci, {"27.5", "35.2", "-99", "1.3", "-99.0", "41"},
         {"Td 13.07587", "Td := \"13.0758734\"", "= 33.3809787"}},
        {"-99 as number, radiation", Model::Outdoor, {"31", -99.0, "12.2", "0.7", "700", -99.0},
         {"RH 31.68484", "Tg 45.56839", "Tnwb 21.89703", "Tg := 45.5683929", "RH := 31.6848398",
          "= 27.5416008"}},
        {"-99, radiation", Model::Radiant, {"31", "-99", "", "0.7", "700", ""},
         {"Tmrt 68.0942422", "Tg := \"46.4620424\"", "= 68.0942422"}},
        {"-99, globe", Model::Radiant, {"31", "44", "", "0.7", -99.0, ""},
         {"Tmrt 62.8443648", "= 62.8443648"}},
        {"both humidities -99", Model::Utci, {"25", "", "-99", "2", "500", "-99"},
         {"= Empty"}},
        {"both globes -99", Model::Utci, {"25", "-99", "12", "2", "-99", ""},
         {"= Empty"}},
        {"no humidity", Model::Utci, {"25", "", "", "2", "500", ""},
         {"because neither the dew point nor the relative humidity is given", "= \"\""}},
        {"no globe", Model::Utci, {"25", "", "", "2", "", "50"},
         {"because neither the globe temperature nor the solar radiation is given", "= \"\""}},
        {"a dew point of -99 beside an empty humidity is read", Model::Outdoor, {"31", "", "-99", "2", "700", ""},
         {"RH 00.00006", "Tg 35.56811", "Tnwb 12.12978", "Tg := \"35.5681067\"", "RH := \"6.04257393e-05\"",
          "= 18.7044672"}},
        {"an empty dew point beside a humidity of -99 is no number", Model::Outdoor, {"31", "", "", "2", "700", "-99"},
         {"fails: type mismatch: the text \"\" is no number"}},
        {"both humidities", Model::Utci, {"25", "", "12", "2", "500", "50"},
         {"because both the dew point and the relative humidity are given", "= \"Error:\""}},
        {"both globes", Model::Utci, {"25", "30", "", "2", "500", "50"},
         {"Td 13.85757", "because both the globe temperature and the solar radiation are given",
          "Td := \"13.8575692\"", "= \"Error:\""}},
        {"both globes", Model::Outdoor, {"25", "30", "", "2", "500", "50"},
         {"Td 13.85757", "because both the globe temperature and the solar radiation are given",
          "Td := \"13.8575692\"", "= \"Error:\""}},
        {"both globes", Model::Radiant, {"25", "30", "", "2", "500", "50"},
         {"because both the globe temperature and the solar radiation are given", "Tmrt Error:",
          "= \"Error:\""}},
        {"computed dew point above", Model::Utci, {"20", "", "", "1", "300", "50"},
         {"Td 09.26963",
          "because the dew point 9.27 reads above the air temperature 20 (the two are compared as texts)",
          "Td := \"9.26962864\"", "= \"Error:\""}},
        {"typed dew point above", Model::Outdoor, {"25", "", "9.5", "1", "300", ""},
         {"RH 37.53800",
          "because the dew point 9.5 reads above the air temperature 25 (the two are compared as texts)",
          "RH := \"37.5380034\"", "= \"Error:\""}},
        {"computed dew point not looked at", Model::Indoor, {"20", "", "", "1", "", "50"},
         {"Td 09.26963", "Tpwb 13.76963", "Td := \"9.26962864\"", "= 15.8256512"}},
        {"typed dew point above", Model::Indoor, {"25", "", "9.5", "1", "", ""},
         {"because the dew point 9.5 reads above the air temperature 25 (the two are compared as texts)",
          "Tpwb ", "= \"Error:\""}},
        {"typed dew point above, though humidity would replace it", Model::Indoor, {"20", "", "9", "1", "", "50"},
         {"because the dew point 9 reads above the air temperature 20 (the two are compared as texts)",
          "Tpwb ", "= \"Error:\""}},
        {"humidity replaces the dew point", Model::Indoor, {"20", "", "12", "0.6", "", "50"},
         {"Td 09.26963", "Tpwb 13.76963", "Td := \"9.26962864\"", "= 15.8919968"}},
        {"below zero", Model::Outdoor, {"-3", "", "-2", "1", "300", ""},
         {"RH 107.70305", "Tg 02.00852", "Tnwb -01.29821", "Tg := \"2.0085159\"", "RH := \"107.703046\"",
          "= -0.807043678"}},
        {"wind text below the floor stands", Model::Outdoor, {"31", "", "12", "0.05", "700", ""},
         {"RH 31.27068", "Tg 57.04600", "Tnwb 29.41807", "Tg := \"57.0460036\"", "RH := \"31.2706834\"",
          "= 35.1018464"}},
        {"wind number below the floor rises", Model::Utci, {"31", "", "12", 0.05, "700", ""},
         {"RH 31.27068", "Tg := \"54.3342792\"", "WS := 0.1", "RH := \"31.2706834\"", "= 39.44239"}},
        {"wind number below the floor rises", Model::Outdoor, {"31", "44", "12", 0.05, "", ""},
         {"RH 31.27068", "SR 416", "159 416", "Tnwb 24.10795", "WS := 0.1", "SR := \"416\"",
          "RH := \"31.2706834\"", "= 28.7755636"}},
        {"no globe solve, no floor", Model::Utci, {"31", "44", "12", 0.05, "", ""},
         {"RH 31.27068", "RH := \"31.2706834\"", "= 35.2041554"}},
        {"wind text below 0.1 rises indoors", Model::Indoor, {"31", "", "12", "0.05", "", ""},
         {"Tpwb 18.90000", "WS := \"0.1\"", "= 23.4738"}},
        {"still air", Model::Outdoor, {"31", "", "12", "0", "700", ""},
         {"RH 31.27068", "Tg 66.68960", "fails: division by zero"}},
        {"wick without convergence", Model::Outdoor, {"52.7", "", "", "0.9", "370", "91"},
         {"Td 50.77745", "Tg 62.25271", "message No convergence: values too extreme",
          "Tg := \"62.2527126\"", "Td := \"50.7774482\"", "= 17.7205425"}},
        {"globe without convergence", Model::Radiant, {"0", "", "", "30", "600", "50"},
         {"message No convergence: values too extreme", "Tmrt 0", "Tg := Empty", "= 0"}},
        {"-99 is what a search that runs out leaves", Model::Outdoor, {"25", "90", "12", "2", "-99", ""},
         {"RH 44.32800", "Tnwb 16.62286", "RH := \"44.3279953\"", "= 32.1359991"}},
        {"globe without convergence", Model::Outdoor, {"0", "", "", "30", "600", "50"},
         {"Td -09.15674", "message No convergence: values too extreme", "Tg ", "Tnwb -02.42147",
          "Tg := Empty", "Td := \"-9.15673764\"", "= -1.69502835"}},
        {"candidate 0 without convergence counts as 0 degrees", Model::Outdoor, {"0", "-1.5", "", "30", "", "50"},
         {"Td -09.15674", "message No convergence: values too extreme", "SR 0", "159 0", "Tnwb -02.97200",
          "Td := \"-9.15673764\"", "SR := \"0\"", "= -2.38039726"}},
        {"a search that runs out leaves an empty radiation", Model::Outdoor, {"25", "90", "12", "2", "", ""},
         {"RH 44.32800",
          "fails: type mismatch: the text \"\" is no number (no solar radiation up to 1376 W/m² brings the globe to 90)"}},
    };
    // clang-format on
    return all;
}

// Each case with models of its own, and with common ones three times in a row, then from their memory.
TEST(Models, DoAsDescribed)
{
    RecordingDesk desk;
    WBGT_UTCI common(desk);
    for (int round = 0; round < 2; ++round)
        for (const Case& c : cases()) {
            WBGT_UTCI fresh(desk);
            for (WBGT_UTCI* models : {&fresh, &common, &common, &common})
                EXPECT_EQ(transcript(*models, desk, c.model, c.readings), c.expected)
                    << c.model << ", " << c.name;
        }
}

TEST(Models, RememberWhetherTheAirTemperatureIsAText)
{
    RecordingDesk desk;
    WBGT_UTCI models(desk);
    EXPECT_EQ(transcript(models, desk, Model::Indoor, {"12.5", "", "12.4", "2", "", ""})[0], "Tpwb 12.50000");
    EXPECT_EQ(transcript(models, desk, Model::Indoor, {12.5, "", 12.4, "2", "", ""})[0], "Tpwb 12.40000");
}

// In this gale candidates go by without convergence until one reaches 0.5 °C: one message each, from the
// search and from its repetition.
TEST(Models, ShowAMessageForEachCandidateWithoutConvergence)
{
    RecordingDesk desk;
    WBGT_UTCI models(desk);
    const Readings readings{"0", "0.5", "", "30", "", "50"};
    const auto first = transcript(models, desk, Model::Outdoor, readings);
    EXPECT_GT(std::count(first.begin(), first.end(), "message No convergence: values too extreme"), 500);
    EXPECT_EQ(transcript(models, desk, Model::Outdoor, readings), first);
}

TEST(Models, SayWhyTheDewPointStops)
{
    const std::array<const char*, 3> rows[] = {{"9.26962863712491", "20", "9.27"},
                                               {"20.0004", "20", "20.0004"},
                                               {"5.5004", "11", "5.5"},
                                               {"x", "11", "x"}};
    for (const auto& [Td, Ta, said] : rows) {
        RecordingDesk desk;
        WBGT_UTCI models(desk);
        Readings readings{Ta, "", Td, "1", "300", ""};
        run(models, Model::Indoor, readings);
        EXPECT_EQ(desk.lines.front(), "because the dew point " + std::string(said) +
                                          " reads above the air temperature " + Ta +
                                          " (the two are compared as texts)");
    }
}

// By the robust rules dew points are compared as numbers, and one that rounding alone lifts above the air is
// not above it; the search from saturated air ends at the dew point.
TEST(Models, CompareDewPointsAsNumbersByTheRobustRules)
{
    const std::pair<std::array<const char*, 2>, const char*> rows[] = {
        {{"20", "9.5"}, "Tpwb 14.00000"},
        {{"20", "20.0000000001"}, "Tpwb 20.00000"},
        {{"20", "20.5"}, "because the dew point 20.5 is above the air temperature 20"},
        {{"-3", "-2"}, "because the dew point -2 is above the air temperature -3"},
        {{"0", "0"}, "Tpwb 00.00000"},
    };
    for (const auto& [air, expected] : rows) {
        RecordingDesk desk;
        WBGT_UTCI models(desk);
        models.setRules(Rules::Robust);
        EXPECT_EQ(transcript(models, desk, Model::Indoor, {air[0], "", air[1], "1", "", ""})[0], expected);
    }
}

// What a model assigns to a text is read back from its 15 digits: the value of the text, not the
// value that was assigned, goes on.
TEST(Models, ReadAssignedTextsBack)
{
    RecordingDesk desk;
    WBGT_UTCI models(desk);
    int textsThatDiffer = 0;
    for (int RH = 31; RH < 71; ++RH) {
        SCOPED_TRACE(RH);
        const std::string humidity = std::to_string(RH);
        Readings derived{"30", "36.5", "", "1.3", "", Variant(humidity)};
        const Variant first = run(models, Model::Utci, derived);
        ASSERT_TRUE(derived[2].isText());
        Readings typed{"30", "36.5", derived[2], "1.3", "", ""};
        EXPECT_EQ(run(models, Model::Utci, typed), first);

        Readings sunny{"30", "", "", "1.3", "500", Variant(humidity)};
        const Variant outdoor = run(models, Model::Outdoor, sunny);
        const double Tg = Globe_Temperature_Model(30, RH, 1.3, 500).celsius;
        ASSERT_TRUE(sunny[1].isText());
        EXPECT_EQ(sunny[1].text(), values::plainText(Tg));
        const Solution Tnwb = Natural_Wet_Bulb(30, sunny[2].number(), RH, 1.3, 500);
        EXPECT_EQ(outdoor,
                  Variant(((0.7 * Number(Tnwb.celsius)) + (0.2 * sunny[1].number())) + (0.1 * Number(30))));
        textsThatDiffer += sunny[1].number() == Tg ? 0 : 1;
    }
    EXPECT_GT(textsThatDiffer, 10);
}

TEST(Models, CaptionOfTmrtIsPlainText)
{
    RecordingDesk desk;
    WBGT_UTCI models(desk);
    Readings readings{"27.5", "35.2", "", "1.3", "", ""};
    const Variant Tmrt = run(models, Model::Radiant, readings);
    EXPECT_EQ(desk.lastCaption, Tmrt.text());
    EXPECT_GT(desk.lastCaption.size(), 13U) << "not rounded";
}

} // namespace
} // namespace comfortics::tests
