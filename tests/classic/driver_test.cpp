// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/driver.h"

#include "test_desk.h"
#include "values/run_failure.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace comfortics::classic {
namespace {

using catalogue::CatalogueRow;
using catalogue::Gated;
using catalogue::Input;
using formulas::Live;
using texts::Variant;
using values::Number;

/// A desk with prepared quantities: the driver alone, without models.
class PreparedDesk final : public DriverDesk {
public:
    std::map<Live, double> quantities{{Live::Ta, 24},   {Live::Tg, 31},  {Live::SR, 420},  {Live::Td, 11},
                                      {Live::RH, 44},   {Live::WS, 3},   {Live::Tmrt, 47}, {Live::Tnwb, 17},
                                      {Live::Tpwb, 16}, {Live::Es, 29.8}};
    double wbgt = 21.5;
    std::map<Input, std::string> texts{
        {Input::TextTa, "24"}, {Input::TextSR, "420"}, {Input::TextRH, "44"}, {Input::TextWS, "3"}};
    std::map<int, std::string> results;
    double utciWind = 0;

    Number live(Live quantity) const override
    {
        const auto found = quantities.find(quantity);
        return found == quantities.end() ? 0 : found->second;
    }
    Number vapourPressure() override { return 13.125; }
    Number WBGT_Outdoor_Value() const override { return wbgt; }
    Number WBGT_Outdoor_Text() const override { return wbgt; }
    Variant boxText(Input text) const override { return texts.at(text); }
    Variant runMeanRadiantTemperature() override { return 47.25; }
    Variant runUtci(Number wind) override
    {
        utciWind = wind.value();
        return 26.5;
    }
    Variant runWbgtIndoor() override { return 19.5; }
    Variant runWbgtOutdoor() override { return 21.75; }
    void writeResult(int index, std::string text) override { results[index] = std::move(text); }
    void writeCaption(Live, std::string) override {}
};

std::string t(int index, const std::string& low, const std::string& high, const std::string& stem = "Tair")
{
    const std::string number = std::to_string(index);
    return stem + "_min_" + number + "=" + low + "\r\n" + stem + "_max_" + number + "=" + high + "\r\n";
}

std::string w(int index, const std::string& low, const std::string& high)
{
    return t(index, low, high, "WS");
}

struct Fixture {
    explicit Fixture(const std::string& limitLines = {}) : limits(tests::openLimits(limitLines)) {}
    Limits limits;
    PreparedDesk desk;
    Settings settings;

    Outcome run(int index)
    {
        Driver driver(desk, limits);
        driver.run(settings, {});
        return driver.outcome(index);
    }
};

// Gated values of the desk: Ta 24, Tnwb 17, mean of Tmrt and Ta 35.5, Tmrt less Ta 23, WBGT 21.5, wind 3.
TEST(Driver, GatesAreInclusiveAndTakeTheirOwnQuantity)
{
    using enum OutcomeKind;
    struct Case {
        std::string name;
        int index;
        std::string limits;
        OutcomeKind expected;
    };
    const std::vector<Case> cases{
        {"air temperature at the lower end", 8, t(8, "24", "30"), Value},
        {"below it", 8, t(8, "24.1", "30"), OutsideTemperature},
        {"at the upper end", 8, t(8, "10", "24"), Value},
        {"above it", 8, t(8, "10", "23.9"), OutsideTemperature},
        {"wind at the lower end", 8, w(8, "3", "5"), Value},
        {"below it", 8, w(8, "3.1", "5"), OutsideWind},
        {"wind at the upper end", 8, w(8, "1", "3"), Value},
        {"above it", 8, w(8, "1", "2.9"), OutsideWind},
        {"a highest wind of 0 switches the gate off", 8, w(8, "9", "0"), Value},
        {"the wind never opens a shut gate", 8, t(8, "0", "1") + w(8, "1", "5"), OutsideTemperature},
        {"6 is gated on the natural wet bulb", 6, t(6, "17", "17"), Value},
        {"104 is gated on the outdoor WBGT", 104, t(104, "21.5", "21.5"), Value},
        {"98 compares the mean as text, ends included", 98, t(98, "35.5", "35.5"), Value},
        {"9 sorts above 38", 98, t(98, "9", "38"), OutsideTemperature},
        {"4 sorts above 35.5 and 100 below", 189, t(189, "100", "4"), Value},
        {"111 compares the difference 23 as text", 111, t(111, "-0.001", "99"), Value},
        {"112 too: 3 sorts above 23", 112, t(112, "3", "99"), OutsideTemperature},
        {"195 meets the wind at 10 m, 3 / 0.11 ^ 0.2 = 4.66", 195, w(195, "4", "5"), Value},
        {"not the typed one", 195, w(195, "2", "4"), OutsideWind},
        {"without a gate limits mean nothing", 12, t(12, "0", "1") + w(12, "8", "9"), Value},
    };
    for (const Case& row : cases) {
        Fixture fixture(row.limits);
        const Outcome outcome = fixture.run(row.index);
        EXPECT_EQ(outcome.kind, row.expected) << row.name;
        EXPECT_EQ(fixture.desk.results[row.index].empty(), row.expected != Value) << row.name;
        fixture.settings.ignoreLimits = true;
        EXPECT_EQ(fixture.run(row.index).kind, Value) << row.name << ", limits ignored";
    }
}

TEST(Driver, Index174TakesWhateverVapourPressureAnEarlierBlockOfItsProcedureLeft)
{
    const auto exhaled = [](std::initializer_list<int> unselected) {
        Fixture fixture;
        for (const int index : unselected)
            fixture.settings.selection.set(index, false);
        fixture.run(174);
        return fixture.desk.results[174];
    };
    EXPECT_EQ(exhaled({}), "32.9");                   // 32.6 + 0.0002 * 1312.5
    EXPECT_EQ(exhaled({155, 156, 162}), "32.9");      // one of the four is enough
    EXPECT_EQ(exhaled({155, 156, 162, 163}), "32.6"); // those of earlier procedures do not count
}

TEST(Driver, UnsetInputsCountAsZeroAndFormatsAreTheIndexs)
{
    Fixture fixture;
    fixture.run(1);
    // 100 rounds half away from zero. 179:
    // exp(-1.13 * 3 - 0.23) ... n = 1: (0.0403 ^ 0.61) * exp(-0.441) + exp(-0.23 - 3.39) * 0.054
    const std::map<int, std::string> expected{{5, "13.1"},   {100, "47.3"}, {110, "35.5"},
                                              {179, "0.09"}, {199, "19.5"}, {200, "21.8"}};
    for (const auto& [index, text] : expected)
        EXPECT_EQ(fixture.desk.results[index], text) << index;
    EXPECT_NEAR(fixture.desk.utciWind, 4.665, 0.001);
}

TEST(Driver, SaysWhyAValueIsBlank)
{
    Fixture fixture(t(8, "-60", "10") + t(195, "-50", "50") + w(195, "0.5", "4") + t(98, "10", "30"));
    fixture.settings.selection.set(7, false);
    EXPECT_EQ(fixture.run(91).kind, OutcomeKind::Value);
    fixture.desk.quantities[Live::Td] = 20.2; // between the dew point classes of humisery
    const auto why = [&](int index) { return whyBlank(index, fixture.run(index), fixture.limits, {}); };
    EXPECT_EQ(why(91), "The formula has no value for these readings.");
    EXPECT_EQ(why(7), "The index is not selected in the list.");
    EXPECT_EQ(why(8), "Outside its limits: Ta is 24 °C, valid from -60 to 10 °C.");
    EXPECT_EQ(why(98),
              "Outside its limits: (Tmrt + Ta) / 2 is 35.5 °C, valid from 10 to 30 °C, compared as texts.");
    EXPECT_EQ(why(195).substr(0, 44), "Outside its limits: the wind at 10 m is 4.66");
    EXPECT_EQ(why(5), "");
    EXPECT_EQ(whyBlank(8, {}, fixture.limits, {}), "Nothing has been calculated yet.");
    EXPECT_EQ(whyBlank(8, fixture.run(8), {}, {}), "The limits file holds no limits of this index.");
}

TEST(Driver, SaysWhichLimitAValueLiesOutsideOf)
{
    Fixture fixture(t(8, "-60", "10") + t(195, "-50", "50") + w(195, "0.5", "4") + t(91, "10", "30"));
    const auto doubt = [&](int index) { return whyDoubtful(index, fixture.run(index), fixture.limits); };
    EXPECT_EQ(doubt(8), "") << "it is blank";
    fixture.settings.ignoreLimits = true;
    EXPECT_EQ(doubt(8),
              "Shown since limits are ignored. Outside its limits: Ta is 24 °C, valid from -60 to 10 °C.");
    EXPECT_NE(doubt(195).find("the wind at 10 m is 4.66"), std::string::npos);
    EXPECT_EQ(doubt(91), "");
    fixture.settings.selection.set(8, false);
    EXPECT_EQ(doubt(8), "");
}

TEST(Driver, AFailureStopsAtItsIndexOrByTheRobustRulesCostsItAlone)
{
    Fixture fixture;
    fixture.desk.quantities[Live::WS] = 0;
    Driver driver(fixture.desk, fixture.limits);
    EXPECT_THROW(driver.run(fixture.settings, {}), values::RunFailure);
    EXPECT_EQ(driver.counter(), 19); // 25 * WS ^ 0.4 in the denominator

    fixture.settings.rules = Rules::Robust;
    EXPECT_EQ(whyBlank(19, fixture.run(19), fixture.limits, "not this"),
              "The formula fails: division by zero.");
    EXPECT_EQ(fixture.desk.results[19], "");
    EXPECT_EQ(fixture.desk.results[20], "17.7"); // 0.9 * 17 + 0.1 * 24
}

TEST(Driver, ByTheRobustRulesExactlyTheReadersOfALostQuantityAreBlank)
{
    Fixture fixture;
    fixture.settings.rules = Rules::Robust;
    Availability availability;
    availability.lose(Live::Tnwb, "the wet bulb is gone");
    availability.loseWbgt("the globe is gone");
    Driver driver(fixture.desk, fixture.limits);
    driver.run(fixture.settings, {}, availability);
    for (const CatalogueRow& row : catalogue::rows()) {
        // Index 200 is the outdoor WBGT itself.
        bool reads = row.number == 200 || row.gated == Gated::WBGT_Outdoor || row.gated == Gated::Tnwb;
        for (const Input input : row.inputs)
            reads = reads || input == Input::Tnwb || input == Input::Wbgt;
        EXPECT_EQ(driver.outcome(row.number).kind == OutcomeKind::RunFailed, reads) << row.number;
    }
    EXPECT_EQ(driver.outcome(20).failure, "Tnwb is not available: the wet bulb is gone.");
    EXPECT_EQ(driver.outcome(114).failure, "The outdoor WBGT is not available: the globe is gone.");

    // With limits ignored the gate asks for nothing: 135 reads humidity and air temperature only.
    fixture.settings.ignoreLimits = true;
    driver.run(fixture.settings, {}, availability);
    EXPECT_EQ(driver.outcome(135).kind, OutcomeKind::Value);
}

TEST(Driver, ByTheRobustRulesIndex196ReadsTheLiveQuantities)
{
    Fixture fixture;
    fixture.desk.texts[Input::TextSR] = "";
    fixture.settings.rules = Rules::Robust;
    fixture.run(196);
    // ET = 17.256; ET + (0.9989 * 420) * ((0.0155 - ET * 0.00025) - (0.0043 - ET * 0.00011))
    EXPECT_EQ(fixture.desk.results[196], "20.9");
}

} // namespace
} // namespace comfortics::classic
