// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/import_desk.h"
#include "workbench/run_desk.h"
#include "workbench/view.h"

#include "station_runs.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <future>

namespace comfortics::workbench {
namespace {

constexpr auto kStationYear = "Time,Station,Air Temperature (°C),RH (%),Wind speed (m/s),Globe (°C),Note\n"
                              "2024-07-01 12:00,B,30,50,2,40,x\n"
                              "2024-07-01 13:00,A,25,60,1,,y\n"
                              "2024-07-01 14:00,A,-5,50,3,-4,z\n"
                              "2024-07-01 15:00,B,28,wet,3,30,\n"
                              "2024-07-01 16:00,B,28,50,3,30,last\n";

RunResult resultOf(RunDesk& desk, std::promise<void>& finished)
{
    finished.get_future().wait();
    finished = {};
    return *desk.takeResult();
}

std::string rowsOf(const std::shared_ptr<const TableStore>& store, std::vector<Condition> conditions,
                   Field by, bool descending = false)
{
    std::string text;
    for (const auto row : makeView({store, std::move(conditions), by, descending}, [] { return true; }).rows)
        text += std::to_string(row);
    return text;
}

TEST(Desks, AGuessedTableIsRunSeenAndCalculatedAgain)
{
    workspace::TransientPreferences preferences;
    ImportDesk import(preferences);
    EXPECT_FALSE(import.take(lookAt({sourceOfText(kStationYear)})));
    ASSERT_EQ(import.whyNot("0.20"), "");
    EXPECT_EQ(import.preview("0.20")[3].mapped.refused, "\"wet\" in the column \"RH (%)\" is no number");

    std::promise<void> finished;
    RunDesk desk(tests::stationLimits(), [&finished] { finished.set_value(); });
    const auto options = tests::stationOptions({195, 211}, classic::Rules::Classic);
    desk.start({import.look().source, import.mapping(), options});
    const auto store = resultOf(desk, finished).store;
    ASSERT_EQ(store->rows(), 5U);
    EXPECT_FALSE(desk.running());

    const Field figure{Field::Kind::Figure, 0};
    const Field ta{Field::Kind::Reading, 0};
    const struct {
        std::vector<Condition> conditions;
        Field by;
        bool descending;
        const char* rows;
    } views[] = {
        {{}, {}, false, "01234"},
        {{}, {}, true, "43210"},
        {{}, ta, false, "21403"}, // a row that is refused has no readings
        {{}, ta, true, "04123"},
        {{}, {Field::Kind::Station, 0}, false, "12034"},
        {{}, figure, false, "24013"},
        {{{.test = Condition::Test::Range, .field = ta, .least = 25, .most = 28}}, {}, false, "14"},
        {{{.test = Condition::Test::Blank, .field = figure}}, {}, false, "13"},
        {{{.test = Condition::Test::Station, .station = "B"},
          {.test = Condition::Test::State, .state = RowState::Refused}},
         {},
         false,
         "3"},
        {{{.test = Condition::Test::Outcome,
           .field = {Field::Kind::Figure, 1},
           .outcome = classic::OutcomeKind::OutsideTemperature}},
         {},
         false,
         "04"},
        {{{.test = Condition::Test::Period, .from = store->time(1)->seconds, .to = store->time(3)->seconds}},
         {},
         false,
         "12"},
    };
    for (const auto& one : views)
        EXPECT_EQ(rowsOf(store, one.conditions, one.by, one.descending), one.rows);
}

TEST(Desks, RowsThatFailedAreCalculatedAgain)
{
    constexpr auto kTable = "Ta,Tg,RH,WS\n30,40,50,2\n-40,57,3,60\n28,30,50,3\n";
    const auto store = tests::storeOf(kTable, "ta=Ta,tg=Tg,rh=RH,ws=WS",
                                      tests::stationOptions({90, 195}, classic::Rules::Classic));
    ASSERT_EQ(failedRows(*store), 1U) << store->status(1);
    std::promise<void> finished;
    RunDesk desk(tests::stationLimits(), [&finished] { finished.set_value(); });
    desk.startAgain(store);
    const auto both = resultOf(desk, finished).store;
    EXPECT_EQ(failedRows(*both), 0U);
    EXPECT_EQ(both->rules(1), classic::Rules::Robust);
    const auto robust = tests::storeOf(kTable, "ta=Ta,tg=Tg,rh=RH,ws=WS",
                                       tests::stationOptions({90, 195}, classic::Rules::Robust));
    for (const std::size_t column : {0U, 1U}) {
        EXPECT_EQ(both->figureText(1, column), robust->figureText(1, column));
        EXPECT_EQ(both->whyBlank(1, column), robust->whyBlank(1, column));
        EXPECT_EQ(both->figureText(2, column), store->figureText(2, column));
    }
}

TEST(Desks, ARunThatDoesNotFitEndsWithASentence)
{
    std::string table = "Ta,Tg,RH,WS\n";
    for (int i = 0; i < 100; ++i)
        table += "30,40,50,2\n";
    workspace::TransientPreferences preferences;
    ImportDesk import(preferences);
    import.take(lookAt({sourceOfText(table)}));
    EXPECT_EQ(import.tooBig(5, 1U << 20), "");
    // 27 bytes and 4 for each of eleven numbers, and about a hundred rows.
    EXPECT_TRUE(import.tooBig(5, 5000).starts_with("The results of about 10")) << import.tooBig(5, 5000);
    std::promise<void> finished;
    RunDesk desk(tests::stationLimits(), [&finished] { finished.set_value(); });
    desk.start({import.look().source, import.mapping(), tests::stationOptions({90}), 5000});
    EXPECT_NE(resultOf(desk, finished).fault.find("do not fit into memory"), std::string::npos);
}

TEST(Views, CarriedColumnsAreSortedAndFilteredByNumbersThenTexts)
{
    const auto store =
        tests::storeOf("Ta,RH,WS,Tg,Note\n1,50,1,2,b-station 10\n1,50,1,2,9\n1,50,1,2,\n"
                       "1,50,1,2,10.5\n1,50,1,2,B-Station 09\n1,50,1,2,b-station 1\n1,50,1,2,9\n",
                       "ta=Ta,rh=RH,ws=WS,tg=Tg", tests::stationOptions({90}));
    const Field note{Field::Kind::Carried, 4};
    const struct {
        std::vector<Condition> conditions;
        bool descending;
        const char* rows;
    } views[] = {
        {{}, false, "1634502"},
        {{}, true, "0543162"},
        {{{.test = Condition::Test::Holds, .field = note, .text = "STATION 1"}}, false, "50"},
        {{{.test = Condition::Test::Is, .field = note, .text = "9"}}, false, "16"},
        {{{.test = Condition::Test::Range, .field = note, .least = 9.5}}, false, "3"},
        {{{.test = Condition::Test::Blank, .field = note}}, false, "2"},
    };
    for (const auto& one : views)
        EXPECT_EQ(rowsOf(store, one.conditions, note, one.descending), one.rows);
}

TEST(ImportDesk, WhatIsToldOfTheShapeIsKeptAndFoundAgain)
{
    const std::string text = "1,2,3,4\n1,2,3,4\n1,2,3,4\nTa,RH,WS,Tg\n20,50,1,30\n21,50,1,30\n";
    workspace::TransientPreferences preferences;
    const tables::Shape told{.header = 4};
    {
        ImportDesk desk(preferences);
        desk.take(lookAt({sourceOfText(text)}));
        EXPECT_EQ(desk.mapping().find("Ta"), nullptr);
        desk.take(lookAt(desk.reshaped(told)));
        EXPECT_EQ(desk.keepAs("Hill"), "");
    }
    ImportDesk desk(preferences);
    auto again = desk.take(lookAt({sourceOfText(text)}));
    ASSERT_TRUE(again);
    EXPECT_EQ(again->told, told);
    EXPECT_FALSE(desk.take(lookAt(*again)));
    EXPECT_EQ(desk.mappingSource(), "kept as \"Hill\"");
    EXPECT_EQ(desk.mapping().find("Ta")->quantity, tables::Quantity::Ta);
    // Read otherwise, and then by the kept one once more.
    desk.take(lookAt(desk.reshaped({.header = 0})));
    EXPECT_EQ(desk.mappingSource(), "guessed");
    again = desk.lookForKept("Hill");
    ASSERT_TRUE(again);
    desk.take(lookAt(*again));
    EXPECT_EQ(desk.mappingSource(), "kept as \"Hill\"");
}

TEST(ImportDesk, ASumWithoutItsTimeTakesThatOfTheRowsWithADoubt)
{
    workspace::TransientPreferences preferences;
    ImportDesk desk(preferences);
    desk.take(lookAt({sourceOfText("Time,Solar (W/m2)\n2024-07-01 12:00,1\n2024-07-01 12:10,2\n")}));
    tables::ColumnUse use = desk.mapping().columns[1];
    use.unit = "kJ/m2";
    desk.setUse(1, use);
    EXPECT_EQ(desk.mapping().columns[1].step, 600);
    EXPECT_NE(desk.mapping().columns[1].doubt, "");
    use = desk.mapping().columns[1];
    use.unit = "J/m2"; // which does not answer it
    desk.setUse(1, use);
    EXPECT_NE(desk.mapping().columns[1].doubt, "");
    use.step = 900;
    desk.setUse(1, use);
    EXPECT_EQ(desk.mapping().columns[1].doubt, "");
}

TEST(ImportDesk, AMappingIsKeptAndFoundAgain)
{
    workspace::TransientPreferences preferences;
    {
        ImportDesk desk(preferences);
        desk.take(lookAt({sourceOfText(kStationYear)}));
        tables::ColumnUse use = desk.mapping().columns[6];
        use.role = tables::Role::Dropped;
        desk.setUse(6, use);
        EXPECT_EQ(desk.mappingSource(), "guessed, then changed");
        EXPECT_EQ(desk.keepAs("  "), "A mapping needs a name.");
        EXPECT_EQ(desk.keepAs("Roof"), "");
    }
    ImportDesk desk(preferences);
    desk.take(lookAt({sourceOfText(std::string(kStationYear) + "2024-07-01 17:00,B,28,50,3,30,\n")}));
    EXPECT_EQ(desk.mappingSource(), "kept as \"Roof\"");
    EXPECT_EQ(desk.mapping().find("Note")->role, tables::Role::Dropped);

    tables::ColumnUse wind = *desk.mapping().find("Wind speed (m/s)");
    wind.role = tables::Role::Carried;
    desk.setUse(4, wind);
    EXPECT_EQ(desk.whyNot("0.20"), "Not enough readings: no column is the wind speed.");
    wind.role = tables::Role::Reading;
    wind.quantity = tables::Quantity::RH;
    wind.unit = "%";
    desk.setUse(4, wind);
    EXPECT_EQ(desk.useKept("Roof"), "");
    EXPECT_EQ(desk.whyNot("0.20"), "");

    // A wrong file leaves all as it was.
    const tests::TemporaryFolder folder;
    const std::string binary("\x7f"
                             "ELF\0\0\1\2\3\0\0\0\xff\xfe\0\0",
                             16);
    for (const std::string& path :
         {folder.write("empty.csv", ""), folder.write("wrong.xlsx", "PK\3\4 and no more"),
          folder.write("binary.csv", binary), folder.file("none.csv"), folder.path().string(),
          folder.write("header.csv", "Ta,Tg\n")}) {
        desk.take(lookAt({sourceOfFile(path)}));
        EXPECT_NE(desk.fault(), "") << path;
        EXPECT_EQ(desk.look().source.name, "Clipboard");
        EXPECT_EQ(desk.mappingSource(), "kept as \"Roof\"");
    }
}

} // namespace
} // namespace comfortics::workbench
