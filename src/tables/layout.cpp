// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/layout.h"

#include "tables/column_units.h"
#include "tables/moment.h"
#include "tables/words.h"
#include "texts/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <map>
#include <set>
#include <utility>

namespace comfortics::tables {

using texts::trimmed;

namespace {

constexpr std::size_t kMostLines = 300; // that are looked at
constexpr std::size_t kLookRows = 200;
constexpr std::array<char, 5> kSeparators{'\t', ';', ',', '|', ' '};
constexpr std::string_view kCommentMarks[] = {"#", "%", "!", "//"};

std::string separatorName(char separator)
{
    switch (separator) {
    case '\t':
        return "tabs";
    case ' ':
        return "blanks";
    case kFixedWidth:
        return "their fixed widths";
    default:
        return std::string("\"") + separator + "\"";
    }
}

// One line of the sample, or several that a quoted cell reaches over.
struct Line {
    std::string_view text;
    std::size_t number = 0;
    std::string_view comment; // the mark that it begins with
};

bool opensQuote(std::string_view line)
{
    return std::count(line.begin(), line.end(), '"') % 2 != 0;
}

// To the end of the line, or of the one, not far below, that closes a quote.
std::size_t endOfCells(std::string_view text)
{
    constexpr int kMostTogether = 6;
    const std::size_t first = text.find_first_of("\r\n");
    std::size_t end = first;
    for (int i = 0; end != std::string_view::npos && opensQuote(text.substr(0, end)); ++i) {
        if (i == kMostTogether)
            return first;
        end = text.find_first_of("\r\n", text.substr(end, 2) == "\r\n" ? end + 2 : end + 1);
    }
    return end == std::string_view::npos ? first : end;
}

std::size_t lineEnds(std::string_view text)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        count += text[i] == '\n' || (text[i] == '\r' && text.substr(i + 1, 1) != "\n") ? 1U : 0U;
    return count;
}

std::vector<Line> linesOf(std::string_view text, bool whole, const std::optional<std::string>& comment)
{
    std::vector<Line> lines;
    std::size_t number = 1;
    while (!text.empty() && lines.size() < kMostLines) {
        const std::size_t end = endOfCells(text);
        if (end == std::string_view::npos && !whole && !lines.empty())
            break; // cut off
        const std::string_view line = text.substr(0, end);
        if (!trimmed(line).empty()) {
            Line& added = lines.emplace_back(Line{line, number, {}});
            if (comment) {
                if (!comment->empty() && line.starts_with(*comment))
                    added.comment = line.substr(0, comment->size());
            } else {
                for (const std::string_view mark : kCommentMarks)
                    if (line.starts_with(mark))
                        added.comment = mark;
            }
        }
        if (end == std::string_view::npos)
            break;
        text.remove_prefix(text.substr(end, 2) == "\r\n" ? end + 2 : end + 1);
        number += 1 + lineEnds(line);
    }
    return lines;
}

enum class CellKind { Gap, Point, Comma, Whole, Time, Text };

CellKind kindOf(std::string_view written)
{
    const std::string_view cell = trimmed(written);
    if (isUsualGap(cell))
        return CellKind::Gap;
    if (const bool point = cellNumber(cell, '.').has_value(); point || cellNumber(cell, ',')) {
        if (cell.find('.') != std::string_view::npos)
            return CellKind::Point;
        return cell.find(',') != std::string_view::npos ? CellKind::Comma : CellKind::Whole;
    }
    return looksLikeTime(cell) ? CellKind::Time : CellKind::Text;
}

// The lines as one separator divides them.
struct Division {
    char separator = ',';
    std::vector<std::size_t> edges;              // of fixed columns
    std::vector<std::vector<std::string>> cells; // of each line
    std::size_t columns = 1;                     // of most lines with readings
    double score = 0;
    std::size_t points = 0;
    std::size_t commas = 0;

    bool isData(std::size_t line) const
    {
        const auto& row = cells[line];
        if (row.size() != columns)
            return false;
        std::size_t readings = 0;
        std::size_t numbers = 0;
        std::size_t used = 0;
        for (const std::string& cell : row) {
            const CellKind kind = kindOf(cell);
            used += trimmed(cell).empty() ? 0U : 1U;
            readings += kind != CellKind::Text && !trimmed(cell).empty() ? 1U : 0U;
            numbers +=
                kind == CellKind::Point || kind == CellKind::Comma || kind == CellKind::Whole ? 1U : 0U;
        }
        return numbers > 0 && 2 * readings >= used;
    }

    /// Texts alone, one for each column.
    bool isNames(std::size_t line) const
    {
        const auto& row = cells[line];
        return row.size() == columns && std::all_of(row.begin(), row.end(), [](const std::string& cell) {
                   return kindOf(cell) == CellKind::Text;
               });
    }
};

// Half of the cells at least are readings.
bool holdsReadings(const std::vector<std::string>& cells)
{
    std::size_t readings = 0;
    for (const std::string& cell : cells)
        readings += kindOf(cell) != CellKind::Text ? 1U : 0U;
    return readings > 0 && 2 * readings >= cells.size();
}

// The characters that lines of readings all leave blank part columns of fixed width: where each but the last
// of these ends.
std::vector<std::size_t> edgesOf(const std::vector<Line>& lines)
{
    std::vector<bool> used;
    std::vector<std::string> cells;
    for (const Line& line : lines) {
        if (!line.comment.empty() || !splitLine(line.text, ' ', cells) || !holdsReadings(cells))
            continue;
        std::size_t character = 0;
        for (const char c : line.text) {
            if ((static_cast<unsigned char>(c) & 0xC0U) == 0x80)
                continue;
            if (used.size() <= character)
                used.resize(character + 1);
            used[character] = used[character] || (c != ' ' && c != '\t');
            ++character;
        }
    }
    std::vector<std::size_t> edges;
    for (std::size_t i = 1; i < used.size(); ++i)
        if (used[i - 1] && !used[i])
            edges.push_back(i);
    if (!edges.empty() &&
        std::find(used.begin() + static_cast<std::ptrdiff_t>(edges.back()), used.end(), true) == used.end())
        edges.pop_back(); // blanks behind the last column
    return edges;
}

Division divide(const std::vector<Line>& lines, char separator)
{
    Division division;
    division.separator = separator;
    if (separator == kFixedWidth)
        division.edges = edgesOf(lines);
    std::map<std::size_t, std::size_t> widths;
    double goodCells = 0;
    std::map<std::size_t, double> good;
    for (const Line& line : lines) {
        auto& row = division.cells.emplace_back();
        if (!(separator == kFixedWidth ? splitAtEdges(line.text, division.edges, row)
                                       : splitLine(line.text, separator, row)))
            row.assign(1, std::string(line.text));
        if (!line.comment.empty())
            continue;
        std::size_t readings = 0;
        for (const std::string& cell : row) {
            const CellKind kind = kindOf(cell);
            readings += kind != CellKind::Text ? 1U : 0U;
            division.points += kind == CellKind::Point ? 1U : 0U;
            division.commas += kind == CellKind::Comma ? 1U : 0U;
        }
        if (readings * 2 < row.size() || readings == 0)
            continue;
        ++widths[row.size()];
        good[row.size()] += static_cast<double>(readings) / static_cast<double>(row.size());
    }
    for (const auto& [width, count] : widths)
        if (good[width] > goodCells) {
            goodCells = good[width];
            division.columns = width;
        }
    std::size_t counted = 0;
    for (const Line& line : lines)
        counted += line.comment.empty() ? 1U : 0U;
    division.score = counted > 0 && division.columns > 1 ? goodCells / static_cast<double>(counted) : 0;
    return division;
}

// Rows of readings with other numbers of cells: some may be blank, which runs of blanks do not tell.
bool variesInCells(const std::vector<Line>& lines, const Division& division)
{
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (lines[i].comment.empty() && division.cells[i].size() != division.columns &&
            division.cells[i].size() > 1 && holdsReadings(division.cells[i]))
            return true;
    return false;
}

Division bestDivision(const std::vector<Line>& lines, const Shape& told)
{
    if (told.separator)
        return divide(lines, *told.separator);
    Division best;
    bool any = false;
    for (const char separator : kSeparators) {
        Division division = divide(lines, separator);
        // The earlier one of two that are as good; blanks stand within cells of the others.
        if (!any || division.score > best.score + 1e-9) {
            best = std::move(division);
            any = true;
        }
    }
    if (best.score <= 0)
        return divide(lines, ',');
    if (best.separator == ' ' && variesInCells(lines, best))
        if (Division fixed = divide(lines, kFixedWidth); fixed.columns >= best.columns)
            return fixed;
    return best;
}

// A unit in brackets or behind a blank or an underscore at the end of a name.
std::string unitInName(std::string_view name)
{
    const std::string_view text = trimmed(withoutSensors(name));
    for (const auto& [open, close] : {std::pair('[', ']'), std::pair('(', ')'), std::pair('{', '}')}) {
        const std::size_t begin = text.rfind(open);
        const std::size_t end = begin == std::string_view::npos ? begin : text.find(close, begin);
        if (end != std::string_view::npos) {
            const std::string_view inside = text.substr(begin + 1, end - begin - 1);
            // "(10 m)" tells a height, no unit
            if (!unitSymbol(inside).empty())
                return std::string(inside);
        }
    }
    for (const std::string_view mark : {",", " in ", " ", "_"}) {
        const std::size_t at = text.rfind(mark);
        if (at == std::string_view::npos || at == 0)
            continue;
        const std::string_view last = trimmed(text.substr(at + mark.size()));
        if (last != "1" && !unitSymbol(last).empty())
            return std::string(last);
    }
    // "WindSpeedKMH", "TemperatureC"
    for (std::size_t i = 1; i < text.size(); ++i)
        if (text[i - 1] >= 'a' && text[i - 1] <= 'z' && text[i] >= 'A' && text[i] <= 'Z' &&
            !unitSymbol(text.substr(i)).empty())
            return std::string(text.substr(i));
    return {};
}

bool isUnitLine(const std::vector<std::string>& cells)
{
    std::size_t used = 0;
    std::size_t units = 0;
    for (const std::string& cell : cells) {
        used += trimmed(cell).empty() ? 0U : 1U;
        units += unitSymbol(trimmed(cell)).empty() ? 0U : 1U;
    }
    // Loggers call the units of time and number TS and RN, and some units nobody calculates with.
    return units > 0 && 3 * units >= used;
}

// What Campbell's loggers put in front of names and units, which may have as many cells as these.
bool isStationLine(const std::vector<std::string>& cells)
{
    return cells.front() == "TOA5" || cells.front() == "TOACI1";
}

// What two blanks or a tab part in a line, and the characters from and to which it stands.
struct Name {
    std::string text;
    std::size_t begin = 0;
    std::size_t end = 0;
};

std::vector<Name> namesIn(std::string_view line)
{
    std::vector<Name> names;
    std::size_t character = 0;
    std::size_t blanks = 2;
    for (const char c : line) {
        if (c == ' ' || c == '\t') {
            blanks += c == '\t' ? 2U : 1U;
        } else {
            if (blanks > 1)
                names.push_back({{}, character, character});
            else if (blanks == 1)
                names.back().text += ' ';
            blanks = 0;
            names.back().text += c;
            names.back().end = character + 1;
        }
        character += (static_cast<unsigned char>(c) & 0xC0U) == 0x80 ? 0U : 1U;
    }
    return names;
}

// The names that a line has above columns of fixed width; none where it has too few of them.
std::vector<std::string> namesAbove(std::string_view line, const std::vector<std::size_t>& edges)
{
    const std::vector<Name> names = namesIn(line);
    std::vector<std::string> cells(edges.size() + 1);
    if (2 * names.size() < cells.size())
        return {};
    const auto columnAt = [&edges](std::size_t character) {
        return static_cast<std::size_t>(std::upper_bound(edges.begin(), edges.end(), character) -
                                        edges.begin());
    };
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::size_t first = columnAt(names[i].begin);
        const std::size_t last = columnAt(names[i].end - 1);
        std::vector<std::string> parts;
        const bool several = last > first && splitLine(names[i].text, ' ', parts) &&
                             parts.size() == last - first + 1; // a word above each
        std::size_t column = last;                             // numbers stand at the right of their columns
        if (names.size() == cells.size() || !several)
            parts = {names[i].text};
        else
            column = first;
        if (names.size() == cells.size())
            column = i;
        for (const std::string& part : parts) {
            cells[column] += (cells[column].empty() ? "" : " ") + part;
            ++column;
        }
    }
    return cells;
}

// The cells of a line as names or units of the columns, whatever it begins with.
std::vector<std::string> headOf(const Line& line, std::size_t place, const Division& division,
                                const std::vector<std::size_t>& edges)
{
    std::vector<std::string> cells = division.cells[place];
    const bool fixed = division.separator == kFixedWidth;
    if (!line.comment.empty()) {
        std::string_view text = line.text;
        text.remove_prefix(line.comment.size());
        splitLine(trimmed(text), fixed ? ' ' : division.separator, cells);
    } else if (edges.size() + 1 == division.columns && (fixed || cells.size() != division.columns)) {
        if (fixed)
            splitLine(line.text, ' ', cells);
        if (cells.size() != division.columns)
            cells = namesAbove(line.text, edges);
    }
    return cells;
}

// Where names, units and readings stand, as indices of the lines.
struct Places {
    std::vector<std::size_t> names;
    std::vector<std::size_t> units; // the first of them has the units
    std::size_t data = 0;
};

// Lines of names, units and the like above the readings, from `first` on.
Places guessPlaces(const std::vector<Line>& lines, const Division& division,
                   const std::vector<std::size_t>& edges, std::size_t first, std::size_t data)
{
    std::vector<std::size_t> above; // nearest last
    for (std::size_t i = first; i < data; ++i)
        if (isStationLine(division.cells[i]))
            continue;
        else if (lines[i].comment.empty() && headOf(lines[i], i, division, edges).size() == division.columns)
            above.push_back(i);
        else if (lines[i].comment.empty() && !above.empty())
            above.clear(); // a line between them ends what stands above
    Places places;
    places.data = data;
    for (const std::size_t i : above) {
        const std::vector<std::string> cells = headOf(lines[i], i, division, edges);
        const auto used = std::count_if(cells.begin(), cells.end(),
                                        [](const std::string& cell) { return !trimmed(cell).empty(); });
        if (places.names.empty() && used <= 1 && division.columns >= 3)
            continue; // a cell alone is a title
        // Behind the units stand "Avg", "Smp" and the like.
        const bool unit = !places.units.empty() || (!places.names.empty() && isUnitLine(cells));
        (unit ? places.units : places.names).push_back(i);
    }
    const auto isHead = [&](std::size_t i) {
        return !lines[i].comment.empty() && headOf(lines[i], i, division, edges).size() == division.columns;
    };
    if (places.names.empty() && data > 0 && isHead(data - 1)) { // in the last comments
        const bool units =
            data > 1 && isHead(data - 2) && isUnitLine(headOf(lines[data - 1], data - 1, division, edges));
        places.names.push_back(units ? data - 2 : data - 1);
        if (units)
            places.units.push_back(data - 1);
    }
    return places;
}

[[noreturn]] void failAtLine(std::size_t line)
{
    throw TableFault("Line " + std::to_string(line) + " is empty or not among the first " +
                     std::to_string(kMostLines) + " lines with text, where names, units and readings begin.");
}

// What is told of the places goes before what is guessed.
void takeToldPlaces(Places& places, const std::vector<Line>& lines, const Division& division,
                    const std::vector<std::size_t>& edges, const Shape& told)
{
    if (told.header && *told.header == 0) {
        places.names.clear();
        places.units.clear();
        return;
    }
    if (told.header) {
        const auto line = std::find_if(lines.begin(), lines.end(),
                                       [&](const Line& one) { return one.number == *told.header; });
        if (line == lines.end())
            failAtLine(*told.header);
        places.names = {static_cast<std::size_t>(line - lines.begin())};
        places.units.clear();
    }
    if (!places.names.empty() && (told.header || told.unitLines)) {
        const std::size_t below = places.names.back() + 1;
        places.units.clear();
        const bool guessed = !told.unitLines && below < places.data &&
                             isUnitLine(headOf(lines[below], below, division, edges));
        const std::size_t count = told.unitLines.value_or(guessed ? places.data - below : 0);
        const std::size_t end = guessed ? places.data : lines.size();
        for (std::size_t i = below; i < end && places.units.size() < count; ++i)
            if (lines[i].comment.empty())
                places.units.push_back(i);
    }
    const std::vector<std::size_t>& last = places.units.empty() ? places.names : places.units;
    if (!last.empty() && places.data <= last.back())
        throw TableFault("The readings begin in line " + std::to_string(lines[places.data].number) +
                         ", where names and units are told to stand; they must begin below.");
}

void nameColumns(Layout& layout, const Places& places, const std::vector<Line>& lines,
                 const Division& division, const std::vector<std::size_t>& edges)
{
    layout.names.assign(division.columns, "");
    layout.units.assign(division.columns, "");
    layout.header = !places.names.empty();
    layout.nameLine = places.names.empty() ? 0 : lines[places.names.front()].number;
    layout.unitLines = places.units.size();
    for (const std::size_t line : places.names) {
        const std::vector<std::string> head = headOf(lines[line], line, division, edges);
        for (std::size_t i = 0; i < std::min(head.size(), layout.names.size()); ++i) {
            std::string name;
            for (const char c : trimmed(head[i]))
                name += c == '\n' || c == '\r' ? ' ' : c;
            if (!name.empty())
                layout.names[i] += (layout.names[i].empty() ? "" : " ") + name;
        }
    }
    if (!places.units.empty()) {
        const std::size_t line = places.units.front();
        const std::vector<std::string> head = headOf(lines[line], line, division, edges);
        for (std::size_t i = 0; i < std::min(head.size(), layout.units.size()); ++i)
            layout.units[i] = trimmed(head[i]);
        layout.because.emplace_back("A line of units stands below the names.");
    }
    for (std::size_t i = 0; i < layout.names.size(); ++i)
        if (layout.units[i].empty())
            layout.units[i] = unitInName(layout.names[i]);
    makeNamesDiffer(layout.names);
}

// The columns of an EPW file, with the unit of those that have one.
struct EpwColumn {
    std::string_view name;
    std::string_view unit;
};
constexpr std::array<EpwColumn, 35> kEpwColumns{{
    {"Year", ""},
    {"Month", ""},
    {"Day", ""},
    {"Hour", ""},
    {"Minute", ""},
    {"Uncertainty Flags", ""},
    {"Dry Bulb Temperature", "°C"},
    {"Dew Point Temperature", "°C"},
    {"Relative Humidity", "%"},
    {"Atmospheric Pressure", "Pa"},
    {"Extraterrestrial Horizontal Radiation", "Wh/m2"},
    {"Extraterrestrial Direct Normal Radiation", "Wh/m2"},
    {"Horizontal Infrared Radiation", "Wh/m2"},
    {"Global Horizontal Radiation", "Wh/m2"},
    {"Direct Normal Radiation", "Wh/m2"},
    {"Diffuse Horizontal Radiation", "Wh/m2"},
    {"Global Horizontal Illuminance", "lux"},
    {"Direct Normal Illuminance", "lux"},
    {"Diffuse Horizontal Illuminance", "lux"},
    {"Zenith Luminance", "Cd/m2"},
    {"Wind Direction", "°"},
    {"Wind Speed", "m/s"},
    {"Total Sky Cover", ""},
    {"Opaque Sky Cover", ""},
    {"Visibility", "km"},
    {"Ceiling Height", "m"},
    {"Present Weather Observation", ""},
    {"Present Weather Codes", ""},
    {"Precipitable Water", "mm"},
    {"Aerosol Optical Depth", ""},
    {"Snow Depth", "cm"},
    {"Days Since Last Snowfall", ""},
    {"Albedo", ""},
    {"Liquid Precipitation Depth", "mm"},
    {"Liquid Precipitation Quantity", "hr"},
}};

constexpr std::size_t kEpwHeaderLines = 8;
constexpr std::size_t kEpwNeeded = 22; // columns, up to the wind speed

bool isEpw(std::string_view sample)
{
    return texts::lowered(sample.substr(0, 9)) == "location,";
}

Layout epwLayout(const std::vector<Line>& lines)
{
    constexpr std::size_t kPlaceCells = 10;
    std::vector<std::string> location;
    if (lines.size() <= kEpwHeaderLines || !splitLine(lines.front().text, ',', location) ||
        location.size() < kPlaceCells)
        throw TableFault("The weather file has no eight header lines with a place in the first.");
    Layout layout;
    layout.kind = FileKind::Epw;
    layout.header = true;
    // The last header line is that of the periods, of which some files have comments in front.
    std::size_t data = kEpwHeaderLines;
    for (std::size_t i = 0; i + 1 < lines.size(); ++i)
        if (texts::lowered(lines[i].text.substr(0, 12)) == "data periods")
            data = i + 1;
    layout.dataLine = lines[data].number;
    std::vector<std::string> first;
    splitLine(lines[data].text, ',', first);
    if (first.size() < kEpwNeeded)
        throw TableFault("Line " + std::to_string(layout.dataLine) + ": the row has " +
                         std::to_string(first.size()) + " cells where a weather file has 35.");
    for (std::size_t i = 0; i < first.size(); ++i) {
        layout.names.emplace_back(i < kEpwColumns.size() ? kEpwColumns[i].name : "");
        layout.units.emplace_back(i < kEpwColumns.size() ? kEpwColumns[i].unit : "");
    }
    makeNamesDiffer(layout.names);
    for (const std::size_t i : {1U, 2U, 3U})
        if (const std::string_view part = trimmed(location[i]); !part.empty() && part != "-")
            layout.place += (layout.place.empty() ? "" : ", ") + std::string(part);
    const auto zone = cellNumber(trimmed(location[8]), '.');
    if (zone && std::abs(*zone) <= 14)
        layout.zone = static_cast<int>(std::lround(*zone * 60));
    else
        layout.doubts.emplace_back("The first line tells no zone of time.");
    layout.because.emplace_back("The file begins as EPW weather files do.");
    return layout;
}

/// The rows of a table from its first row of readings on. A row of another length is refused.
class DataRows final : public RowSource {
public:
    DataRows(std::unique_ptr<TextRows> rows, std::size_t firstLine, std::size_t columns)
        : m_rows(std::move(rows)), m_firstLine(firstLine), m_columns(columns)
    {
    }

    bool next(Row& row) override
    {
        // A quote above the readings opens no cell of theirs.
        for (; m_line < m_firstLine; ++m_line)
            if (std::string above; !m_rows->nextLine(above))
                return false;
        if (!m_rows->next(row))
            return false;
        if (!row.refused.empty())
            return true;
        while (row.cells.size() > m_columns && row.cells.back().empty())
            row.cells.pop_back(); // separators behind the last cell
        if (row.cells.size() != m_columns)
            row.refused = "the row has " + std::to_string(row.cells.size()) + " cells where the table has " +
                          std::to_string(m_columns) + " columns";
        return true;
    }

private:
    std::unique_ptr<TextRows> m_rows;
    std::size_t m_firstLine;
    std::size_t m_columns;
    std::size_t m_line = 1;
};

std::string decoded(std::string_view sample, Coding coding)
{
    std::string text;
    std::size_t at = 0;
    Decoder decoder(
        [&](char* buffer, std::size_t size) {
            const std::size_t count = sample.copy(buffer, size, at);
            at += count;
            return count;
        },
        coding);
    while (decoder.more(text)) {
    }
    return text;
}

} // namespace

bool isUsualGap(std::string_view cell)
{
    static constexpr std::string_view kMarks[] = {
        "",      "na",     "n/a",    "nan",  "null",    "none", "-",  "--", "---",  "-999", "-9999", "9999",
        "99999", "-99999", "-999.9", "#n/a", "missing", "m",    "mm", "mq", "----", "////", "///"};
    if (cell.size() > 8)
        return false;
    const std::string word = texts::lowered(cell);
    if (std::find(std::begin(kMarks), std::end(kMarks), word) != std::end(kMarks))
        return true;
    const auto number = cellNumber(cell, '.');
    return number && (*number == -99 || *number == -99.9 || *number == -999 || *number == -6999 ||
                      *number == -9999 || *number == 9999 || *number == -99999 || *number == 99999);
}

std::optional<double> cellNumber(std::string_view cell, char decimal)
{
    cell = trimmed(cell);
    std::string plain;
    if (decimal == ',' && cell.find(',') != std::string_view::npos) {
        if (cell.find('.') != std::string_view::npos)
            return std::nullopt;
        plain = cell;
        plain[plain.find(',')] = '.';
        cell = plain;
    }
    if (cell.starts_with('+'))
        cell.remove_prefix(1);
    const std::size_t digits = cell.starts_with('-') ? 1 : 0;
    if (cell.size() <= digits || !((cell[digits] >= '0' && cell[digits] <= '9') || cell[digits] == '.'))
        return std::nullopt; // no words such as "inf"
    double value = 0;
    const auto [end, error] = std::from_chars(cell.data(), cell.data() + cell.size(), value);
    if (error != std::errc() || end != cell.data() + cell.size())
        return std::nullopt;
    return value;
}

void makeNamesDiffer(std::vector<std::string>& names)
{
    std::set<std::string> taken;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (names[i].empty())
            names[i] = "Column " + std::to_string(i + 1);
        const std::string name = names[i];
        for (std::size_t n = 2; !taken.insert(names[i]).second; ++n)
            names[i] = name + " (" + std::to_string(n) + ")";
    }
}

Layout guessLayout(std::string_view sample, bool whole, const Shape& told)
{
    if (sample.starts_with("\xD0\xCF\x11\xE0\xA1\xB1"))
        throw TableFault(
            "The file is a workbook of the older form (XLS), or one that a password locks; save it as "
            "XLSX or CSV.");
    CodingGuess coding;
    if (told.coding)
        coding.coding = *told.coding;
    else
        coding = guessCoding(sample, whole);
    const std::string text = decoded(sample, coding.coding);
    const std::vector<Line> lines = linesOf(text, whole, told.comment);
    if (lines.empty())
        throw TableFault("The table is empty.");
    if (text.find('\0') != std::string::npos)
        throw TableFault("The file is no text: it holds zero bytes.");
    if (isEpw(text)) {
        Layout layout = epwLayout(lines);
        layout.coding = coding.coding;
        return layout;
    }
    const Division division = bestDivision(lines, told);
    const auto isData = [&](std::size_t i) { return lines[i].comment.empty() && division.isData(i); };
    const auto runFrom = [&](std::size_t i, bool data) {
        const std::size_t begin = i;
        while (i < lines.size() && isData(i) == data)
            ++i;
        return i - begin;
    };
    std::size_t begin = 0;
    std::size_t data = runFrom(0, false);
    if (told.dataLine || told.header.value_or(0) > 0) {
        if (told.header.value_or(0) > lines.back().number)
            failAtLine(*told.header);
        // Below the names and what is told to stand there, too.
        data = 0;
        const std::size_t first = told.dataLine ? *told.dataLine : *told.header + 1;
        while (data < lines.size() && lines[data].number < first)
            ++data;
        if (told.dataLine && data == lines.size())
            failAtLine(*told.dataLine);
        std::size_t units = told.unitLines.value_or(0);
        for (; !told.dataLine && data < lines.size() && (units > 0 || !lines[data].comment.empty()); ++data)
            units -= lines[data].comment.empty() ? 1U : 0U;
        if (!told.dataLine && !told.unitLines)
            data += runFrom(data, false);
    } else if (const std::size_t above = runFrom(data, true), names = data + above;
               above <= 2 && names < lines.size() && division.isNames(names) &&
               runFrom(names + 1, true) > above) {
        // A line or two on the place, as wide as the table, with names of their own can stand above the
        // table's.
        begin = names;
        data = names + 1;
    }
    if (data == lines.size())
        throw TableFault("No row of numbers was found in the first " + std::to_string(lines.size()) +
                         " lines.");

    if (division.columns >= kMostCells)
        throw TableFault("The table has more columns than can be read.");

    Layout layout;
    layout.coding = coding.coding;
    layout.form.separator = division.separator;
    layout.form.edges = division.edges;
    // A mark that first stands among the readings may belong to them: nothing is left out without a word.
    for (std::size_t i = 0; i < data && layout.form.comment.empty(); ++i)
        layout.form.comment = lines[i].comment;
    if (told.comment)
        layout.form.comment = *told.comment;
    layout.dataLine = lines[data].number;
    layout.decimal = told.decimal ? *told.decimal : division.commas > division.points ? ',' : '.';
    const bool blanks = division.separator == ' ' || division.separator == kFixedWidth;
    const std::vector<std::size_t> edges = blanks ? edgesOf(lines) : std::vector<std::size_t>();
    Places places = guessPlaces(lines, division, edges, begin, data);
    takeToldPlaces(places, lines, division, edges, told);
    nameColumns(layout, places, lines, division, edges);

    if (!coding.because.empty())
        layout.because.push_back("Read as " + std::string(codingName(coding.coding)) + ": " + coding.because +
                                 ".");
    if (!coding.sure)
        layout.doubts.push_back("The characters could be of another code page than " +
                                std::string(codingName(coding.coding)) + ".");
    layout.because.push_back("Divided by " + separatorName(division.separator) + " into " +
                             std::to_string(division.columns) + " columns.");
    if (division.points > 0 && division.commas > 0 && !told.decimal)
        layout.doubts.emplace_back("Some numbers have a decimal point and others a comma.");
    if (layout.decimal == ',')
        layout.because.emplace_back("Numbers have a decimal comma.");
    return layout;
}

OpenTable openText(ByteSource source, const Shape& told)
{
    auto input = std::make_shared<SampledSource>(std::move(source));
    OpenTable table;
    table.layout = guessLayout(input->sample(), input->whole(), told);
    const Layout& layout = table.layout;
    const auto rowsOf = [&layout](ByteSource bytes) {
        return std::make_unique<DataRows>(
            std::make_unique<TextRows>(std::move(bytes), layout.coding, layout.form), layout.dataLine,
            layout.columns());
    };
    std::size_t at = 0;
    const auto look = rowsOf([&](char* buffer, std::size_t size) {
        const std::size_t count = input->sample().copy(buffer, size, at);
        at += count;
        return count;
    });
    Row row;
    while (table.look.size() < kLookRows && look->next(row))
        table.look.push_back(row);
    if (!input->whole() && !table.look.empty() && table.look.size() < kLookRows)
        table.look.pop_back(); // perhaps cut off
    table.rows = rowsOf([input](char* buffer, std::size_t size) { return input->read(buffer, size); });
    return table;
}

} // namespace comfortics::tables
