// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/index_sheet.h"

#include "workspace_program.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace comfortics::workspace {
namespace {

using tests::projectLimits;

classic::Inputs readings(const char* Ta, const char* SR, const char* RH, const char* WS)
{
    return {{Ta, "", SR, "", RH, WS}, tests::kUsualAssumptions, {}};
}

std::string joined(const IndexSheet& sheet)
{
    std::string text;
    for (const SheetInput& input : sheet.inputs)
        text += (text.empty() ? "" : " ") + input.symbol;
    return text;
}

// What the tables of data/ say of these indices.
TEST(IndexSheet, SaysWhatTheCatalogueKnows)
{
    struct Row {
        int index;
        const char* id;
        const char* unit;
        const char* inputs;
        std::vector<std::string> bounds;
        std::size_t classes;
        const char* confidence;
        const char* author;
    };
    const Row rows[] = {
        {90, "humidex_masterson", "°C", "Ta Td", {"20 to 55 °C"}, 5, "sure", "Masterton"},
        {195, "utci", "°C", "Ta Tmrt WS10 RH", {"-50 to 50 °C", "0.5 to 17 m/s"}, 10, "sure", "Bröde"},
        {98,
         "internal_comfort_temperature_xavier",
         "°C",
         "Ta Tmrt RH WS",
         {"10 to 38 °C"},
         0,
         "sure",
         "Xavier"},
        {104, "modified_discomfort_index_moran", "°C", "Tnwb Ta", {"10 to 45 °C"}, 6, "sure", "Moran"},
        {19, "heat_stress_index_belding", "", "Tg WS Ea", {"20 to 50 °C"}, 6, "sure", "Belding"},
        {123,
         "predicted_dissatisfied_high_da_silva",
         "% of dissatisfied people",
         "Ta Tmrt Ea WS",
         {},
         6,
         "name only",
         "da Silva"},
        {72, "equivalent_temperature_brundl", "°C", "Ta RH", {}, 0, "sure", "Bründl"},
    };
    const Situation situation = evaluate(projectLimits(), readings("33", "600", "50", "2"));
    for (const Row& row : rows) {
        SCOPED_TRACE(row.id);
        const IndexSheet sheet = indexSheet(situation, projectLimits(), row.index);
        EXPECT_EQ(sheet.id, row.id);
        EXPECT_EQ(sheet.unit, row.unit);
        EXPECT_EQ(joined(sheet), row.inputs);
        std::vector<std::string> bounds;
        for (const SheetLimit& limit : sheet.limits)
            bounds.push_back(limit.bounds());
        EXPECT_EQ(bounds, row.bounds);
        EXPECT_EQ(sheet.limitsNote.empty(), !row.bounds.empty());
        EXPECT_EQ(sheet.classes.size(), row.classes);
        EXPECT_EQ(sheet.classSource.empty(), row.classes == 0);
        EXPECT_EQ(sheet.confidence, row.confidence);
        EXPECT_NE(sheet.citation.find(row.author), std::string::npos) << sheet.citation;
        for (const SheetInput& input : sheet.inputs)
            EXPECT_FALSE(input.text.empty()) << input.symbol;
    }
}

TEST(IndexSheet, TellsOnWhichSideOfTheLimitsTheReadingsLie)
{
    struct Row {
        int index;
        const char* Ta;
        const char* RH;
        const char* WS;
        std::size_t limit;
        Side side;
        const char* standing;
    };
    const Row rows[] = {
        {90, "19.9", "80", "2", 0, Side::Below, "Now 19.9 °C, below."},
        {90, "20", "80", "2", 0, Side::Inside, "Now 20 °C, inside."},
        {90, "55", "40", "2", 0, Side::Inside, "Now 55 °C, inside."},
        {90, "55.1", "40", "2", 0, Side::Above, "Now 55.1 °C, above."},
        // 10.9 and 11 m/s at 1.1 m are 16.95 and 17.1 m/s at 10 m, by a profile with the exponent 0.2.
        {195, "25", "40", "10.9", 1, Side::Inside, "Now 16.95 m/s, inside."},
        {195, "25", "40", "11", 1, Side::Above, "Now 17.1 m/s, above."},
    };
    for (const Row& row : rows)
        for (const classic::Rules rules : classic::kAllRules)
            for (const bool ignored : {false, true}) {
                if (ignored && rules == classic::Rules::Classic)
                    continue; // elsewhere a formula may end the run
                classic::Inputs inputs = readings(row.Ta, "300", row.RH, row.WS);
                inputs.settings.rules = rules;
                inputs.settings.ignoreLimits = ignored;
                const IndexSheet sheet =
                    indexSheet(evaluate(projectLimits(), inputs), projectLimits(), row.index);
                ASSERT_GT(sheet.limits.size(), row.limit);
                EXPECT_EQ(sheet.limits[row.limit].side, row.side) << row.Ta;
                EXPECT_EQ(sheet.limits[row.limit].standing(), row.standing);
            }

    // Compared character by character 9 comes behind 38.
    classic::Inputs inputs = readings("9", "0", "40", "1");
    const IndexSheet byText = indexSheet(evaluate(projectLimits(), inputs), projectLimits(), 98);
    EXPECT_TRUE(byText.figure.text.empty());
    EXPECT_EQ(byText.limits[0].side, Side::Below);
    inputs = readings("3", "0", "40", "1");
    inputs.readings[1] = "3.5";
    inputs.readings[2].clear();
    const IndexSheet accepted = indexSheet(evaluate(projectLimits(), inputs), projectLimits(), 98);
    EXPECT_FALSE(accepted.figure.text.empty());
    EXPECT_EQ(accepted.limits[0].side, Side::Inside) << "3.4 lies between 10 and 38 as a text";
}

TEST(IndexSheet, MarksTheClassOfTheValueAndSaysWhyThereIsNone)
{
    // At 33 °C and a dew point of 23 °C humidex is 43: "great discomfort", from 40 to below 46.
    classic::Inputs inputs = readings("33", "300", "", "2");
    inputs.readings[3] = "23";
    inputs.settings.rules = classic::Rules::Robust;
    const IndexSheet warm = indexSheet(evaluate(projectLimits(), inputs), projectLimits(), 90);
    std::string marked;
    for (const SheetClass& one : warm.classes)
        if (one.isPresent)
            marked += one.bounds;
    EXPECT_EQ(marked, "from 40 to below 46 °C");
    EXPECT_EQ(warm.classNote, "");

    inputs.readings[0] = "15";
    inputs.readings[3] = "12";
    inputs.settings.ignoreLimits = true;
    const IndexSheet cold = indexSheet(evaluate(projectLimits(), inputs), projectLimits(), 90);
    EXPECT_TRUE(cold.figure.number);
    for (const SheetClass& one : cold.classes)
        EXPECT_FALSE(one.isPresent);
    EXPECT_NE(cold.classNote.find("outside of the limits"), std::string::npos);

    const IndexSheet without =
        indexSheet(evaluate(projectLimits(), readings("", "", "", "")), projectLimits(), 90);
    EXPECT_NE(without.figure.reason.find("air temperature"), std::string::npos);
    EXPECT_EQ(without.limits[0].side, Side::Unknown);
    for (const SheetInput& input : without.inputs)
        EXPECT_EQ(input.text, "") << "a quantity without a value is never 0";
}

TEST(IndexSheet, WritesNumbersBriefly)
{
    EXPECT_EQ(briefly("33.40000"), "33.4");
    EXPECT_EQ(briefly("64.1264567890123"), "64.13");
    EXPECT_EQ(briefly("-0.00400"), "0");
    EXPECT_EQ(briefly(""), "");
}

} // namespace
} // namespace comfortics::workspace
