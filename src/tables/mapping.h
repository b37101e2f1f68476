// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/column_units.h"
#include "tables/layout.h"
#include "tables/moment.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::catalogue {
struct InputInfo;
}

namespace comfortics::tables {

/// What a column is used for.
enum class Role : std::uint8_t {
    Carried, ///< goes through to the results as it stands, as all columns do but the dropped ones
    Dropped,
    Reading, ///< one of the quantities
    Time,    ///< a date and time, or a part of them as a text; several are joined in their order
    Year,
    Month,
    Day,       ///< of the month
    DayOfYear, ///< from 1, in place of month and day
    Hour,
    HourMinute, ///< written together: 1330 for half past one, 30 for half past midnight
    Minute,
    Second,
    Station, ///< carried, and told apart in summaries
    Input,   ///< carried, and an input of the models of standards
};

/// "carried", "dropped", "reading", "time", "year" and so on.
std::string_view roleName(Role role);
std::optional<Role> roleOfName(std::string_view name);
/// Whether it tells a date or a time, or a part of them.
bool isTimeRole(Role role);

/// How one column is used.
struct ColumnUse {
    std::string column; ///< its name, as the layout has it
    Role role = Role::Carried;
    Quantity quantity = Quantity::Ta; ///< of a reading
    /// Of a reading a symbol that UnitWay knows; of an input one of catalogue::unitsOfColumns(), or empty for
    /// the one that models have for it.
    std::string unit;
    double height = 0;             ///< of a wind: at which it was measured [m]; 0: at the height of the box
    double step = 0;               ///< of a dose: over which it was summed [s]
    std::string input;             ///< of an input: its id, such as "met"
    std::vector<std::string> gaps; ///< what means a gap here, beside the marks of the whole table
    std::string because;           ///< of a guess: why, in a sentence
    std::string doubt;             ///< of a guess: what is to be looked at, in a sentence; empty: none

    friend bool operator==(const ColumnUse&, const ColumnUse&) = default;
};

/// Which column of a table is which reading.
struct Mapping {
    std::string name{};        ///< as the user calls it; may be empty
    std::string fingerprint{}; ///< of the table that it was made for
    /// Of the same table with nothing told of its shape, where it is another one then.
    std::string guessedFingerprint{};
    Shape shape{}; ///< what is told of the file's shape
    std::vector<ColumnUse> columns{};
    DateOrder order = DateOrder::YearMonthDay;
    std::optional<int> zone{};         ///< of times that tell none [min from UTC]
    std::vector<std::string> gaps{};   ///< what means a gap anywhere, beside the usual marks
    std::vector<std::string> doubts{}; ///< of a guess: what concerns no single column

    /// The use of a column; null where it is not told.
    const ColumnUse* find(std::string_view column) const;

    friend bool operator==(const Mapping&, const Mapping&) = default;
};

/// The mark that a table is recognised by: the same for files of the same kind, names and units, whatever
/// their rows, separators and characters.
std::string fingerprintOf(const Layout& layout);

/// The first mapping that was made for a table of that layout, or for one that has that layout as long as
/// nothing is told of its shape; null where there is none.
const Mapping* recognised(const Layout& layout, const std::vector<Mapping>& known);

/// All doubts of a guess, in sentences that name their column.
std::vector<std::string> doubtsOf(const Mapping& mapping);

/// Guesses which columns of an open table are which readings, from names, units and the first values. What is
/// not sure carries a doubt: a unit that nothing tells, a wind of unknown height, a date that can be read in
/// two ways.
Mapping guessMapping(const OpenTable& table);

/// The mapping of a table whose columns are named as the program names them; none where they make no whole
/// set of readings.
std::optional<Mapping> plainMapping(const OpenTable& table);

/// Reads the command line's form: "ta=Temp:F,ws=Wind:km/h@10m,time=Date+Time,station=Station". Keys: a
/// quantity; time (columns joined by +), year, month, day, day of year, hour, hour and minute, minute,
/// second, station, drop; the id of an input of models that is none of these, as met=Activity:W/m2;
/// order=dmy, zone=+02:00, gap=-99. A dose has its step behind @, as sr=Rad:kJ/m2@10min. A column is called
/// by its name or by "#" and its number; a backslash before a mark takes it for a letter. Throws TableFault.
Mapping mappingOfText(std::string_view text, const Layout& layout);

/// A clause on why a column cannot give an input in a unit; empty where it can.
std::string faultOfInputUnit(const catalogue::InputInfo& input, const std::string& unit);

/// A mapping file: JSON in UTF-8.
std::string mappingText(const Mapping& mapping);

/// A mapping, or one clause on why a text is none.
struct MappingRead {
    std::optional<Mapping> mapping;
    std::string fault;
};
MappingRead readMapping(std::string_view text);

/// Larger files are no mappings [bytes].
inline constexpr std::size_t kLargestMapping = std::size_t{1} << 20;

} // namespace comfortics::tables
