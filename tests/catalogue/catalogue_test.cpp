// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/catalogue.h"

#include "catalogue/references.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace comfortics::catalogue {
namespace {

std::vector<int> numbersWhere(bool (*holds)(const CatalogueRow&))
{
    std::vector<int> numbers;
    for (const CatalogueRow& row : rows())
        if (holds(row))
            numbers.push_back(row.number);
    return numbers;
}

TEST(Catalogue, GatesFormatsAndBlocksAreWhereTheyBelong)
{
    EXPECT_EQ(numbersWhere([](const CatalogueRow& row) { return row.format.decimals != 1; }),
              (std::vector{179, 180, 181, 182}));
    EXPECT_EQ(numbersWhere([](const CatalogueRow& row) { return row.block != Block::Template; }),
              (std::vector{100, 195, 196, 199, 200, 208}));
    EXPECT_EQ(numbersWhere([](const CatalogueRow& row) { return row.gate == Gate::None; }).size(), 60U);
    EXPECT_EQ(numbersWhere([](const CatalogueRow& row) { return row.gate == Gate::Text; }),
              (std::vector{98, 111, 112, 128, 189}));
    EXPECT_EQ(numbersWhere([](const CatalogueRow& row) { return row.gated != Gated::Ta; }),
              (std::vector{6, 98, 104, 111, 112, 114, 128, 135, 189, 210}));
    EXPECT_EQ(numbersWhere([](const CatalogueRow& row) { return row.gateWind == GateWind::At10m; }),
              std::vector{195});
}

TEST(Catalogue, HasNamesUnitsAndSources)
{
    EXPECT_EQ(row(104).name, "Modified Discomfort Index (Moran; 1988) ");
    EXPECT_EQ(row(6).unit, "Kcal/kg");
    EXPECT_EQ(row(111).source(), "ISO 7726:1998");
    EXPECT_EQ(row(134).source(), "");
}

// What other programs call an index by stays: a change here breaks theirs.
TEST(References, BelongToTheIndexOfTheirNumber)
{
    for (const auto& [index, id] : {std::pair{90, "humidex_masterson"},
                                    {195, "utci"},
                                    {199, "wbgt_indoor"},
                                    {200, "wbgt_outdoor"},
                                    {211, "wind_chill_noaa"}}) {
        EXPECT_EQ(reference(index).id, id);
        EXPECT_EQ(indexOfId(id), index);
    }
    EXPECT_EQ(indexOfId("humidex"), 0);
    // The year in a name is that of its reference, but for those whose note tells of another.
    for (const CatalogueRow& row : rows()) {
        const Reference& literature = reference(row.number);
        const std::string source(row.source());
        if (source.empty() || source.find(literature.year) != std::string::npos)
            continue;
        EXPECT_NE(literature.where.find("printed " + std::string(literature.year)), std::string::npos)
            << row.number << " " << source << " " << literature.year;
    }
    EXPECT_EQ(reference(90).citation(),
              "Masterton JM, Richardson FA (1979) Humidex: a method of quantifying human discomfort due to "
              "excessive heat and humidity. CLI 1-79, Environment Canada, Atmospheric Environment Service, "
              "Downsview");
    EXPECT_EQ(literatureNote(90), reference(90).citation() + "; id humidex_masterson");
    // Less sure is said to be so.
    EXPECT_EQ(literatureNote(1), "Błażejczyk K (2010) [name only]; id physical_activity_level_blazejczyk");
    EXPECT_NE(literatureNote(154).find("275-283 [likely]; id utci_simplified"), std::string::npos);
}

} // namespace
} // namespace comfortics::catalogue
