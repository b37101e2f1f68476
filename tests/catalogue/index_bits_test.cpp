// SPDX-License-Identifier: GPL-3.0-or-later
//
// Every formula of the catalogue to the last bit, called as the driver calls it.
#include "catalogue/catalogue.h"

#include "bit_table.h"

#include <algorithm>
#include <array>
#include <map>

namespace comfortics::tests {
namespace {

using catalogue::CatalogueRow;
using formulas::Assumptions;

TEST(IndexBits, AreThoseOfTheTable)
{
    const BitTable table(COMFORTICS_BITS_DIR "/indices.csv");
    std::map<std::string, Assumptions> sites;
    std::array<int, catalogue::kIndexCount> counts{};
    for (const BitRow& row : table.rows()) {
        const std::vector<double> numbers = row.numbers();
        if (row.fields.front() == "assumptions") {
            sites[row.expected()] = {.Friction = numbers.at(0),
                                     .Height = numbers.at(1) / 100,
                                     .Weight = numbers.at(2),
                                     .Barometric = numbers.at(3),
                                     .Emissivity = numbers.at(4),
                                     .ArAdu = numbers.at(5)};
            continue;
        }
        const CatalogueRow& index = catalogue::row(std::stoi(row.fields.at(0)));
        ++counts.at(static_cast<std::size_t>(index.number - 1));
        ASSERT_EQ(numbers.size(), index.inputs.size()) << index.number;
        ASSERT_NE(index.formula.function, nullptr) << index.number;
        formulas::FormulaInputs inputs;
        std::copy(numbers.begin(), numbers.end(), inputs.begin());
        for (const auto rules : {formulas::Rules::Classic, formulas::Rules::Robust})
            if (rules == formulas::Rules::Classic || row.expected() != "fails")
                table.check(row, outcomeOf([&] {
                                return index.formula.function({sites.at(row.fields.at(1)), rules}, inputs);
                            }));
    }
    for (const CatalogueRow& row : catalogue::rows())
        EXPECT_TRUE(row.formula.function == nullptr ||
                    counts.at(static_cast<std::size_t>(row.number - 1)) >= 16)
            << row.number;
}

} // namespace
} // namespace comfortics::tests
