// SPDX-License-Identifier: GPL-3.0-or-later
//
// Which column is which reading, from the words that stations, loggers and climate files call them by.
#include "tables/mapping.h"

#include "tables/known_columns.h"
#include "tables/words.h"
#include "texts/text.h"
#include "values/plain_text.h"

#include <algorithm>
#include <array>
#include <type_traits>
#include <utility>

namespace comfortics::tables {

using texts::trimmed;

namespace {

/// Words that stand one behind the other in a column's name, and what they tell.
struct Term {
    std::string_view words;
    Quantity quantity;
};

// Longer terms come before those that they hold.
constexpr Term kTerms[] = {
    {"water vapor partial pressure in air", Quantity::Ea},
    {"vapour pressure", Quantity::Ea},
    {"vapor pressure", Quantity::Ea},
    {"dampfdruck", Quantity::Ea},
    {"pression de vapeur", Quantity::Ea},
    {"presion de vapor", Quantity::Ea},
    {"πιεση υδρατμων", Quantity::Ea},
    {"ταση υδρατμων", Quantity::Ea},
    {"dew point", Quantity::Td},
    {"dewpoint", Quantity::Td},
    {"taupunkt", Quantity::Td},
    {"taupunkttemperatur", Quantity::Td},
    {"point de rosee", Quantity::Td},
    {"punto de rocio", Quantity::Td},
    {"σημειο δροσου", Quantity::Td},
    {"dew pt", Quantity::Td},
    {"tdew", Quantity::Td},
    {"tdps", Quantity::Td},
    {"dwpt", Quantity::Td},
    {"dewpt", Quantity::Td},
    {"black globe", Quantity::Tg},
    {"globe temperature", Quantity::Tg},
    {"globe temp", Quantity::Tg},
    {"globe", Quantity::Tg},
    {"globetemperatur", Quantity::Tg},
    {"globus", Quantity::Tg},
    {"globustemperatur", Quantity::Tg},
    {"globo", Quantity::Tg},
    {"μαυρη σφαιρα", Quantity::Tg},
    {"σφαιρα", Quantity::Tg},
    {"bgt", Quantity::Tg},
    {"relative humidity", Quantity::RH},
    {"rel humidity", Quantity::RH},
    {"humidity", Quantity::RH},
    {"hum", Quantity::RH},
    {"relative feuchte", Quantity::RH},
    {"rel feuchte", Quantity::RH},
    {"relative luftfeuchte", Quantity::RH},
    {"relative luftfeuchtigkeit", Quantity::RH},
    {"luftfeuchte", Quantity::RH},
    {"luftfeuchtigkeit", Quantity::RH},
    {"feuchte", Quantity::RH},
    {"humidite", Quantity::RH},
    {"humedad", Quantity::RH},
    {"υγρασια", Quantity::RH},
    {"relhum", Quantity::RH},
    {"rhum", Quantity::RH},
    {"relh", Quantity::RH},
    {"hurs", Quantity::RH},
    {"rf tu", Quantity::RH},
    {"rel f", Quantity::RH},
    {"rel hum", Quantity::RH},
    {"wind speed", Quantity::WS},
    {"windspeed", Quantity::WS},
    {"wind spd", Quantity::WS},
    {"air velocity", Quantity::WS},
    {"air speed", Quantity::WS},
    {"windgeschwindigkeit", Quantity::WS},
    {"windgeschw", Quantity::WS},
    {"luftgeschwindigkeit", Quantity::WS},
    {"vitesse du vent", Quantity::WS},
    {"vitesse vent", Quantity::WS},
    {"velocidad del viento", Quantity::WS},
    {"velocidad viento", Quantity::WS},
    {"ταχυτητα ανεμου", Quantity::WS},
    {"ταχυτητα του ανεμου", Quantity::WS},
    {"ανεμοσ", Quantity::WS},
    {"sfc wind", Quantity::WS},
    {"wspd", Quantity::WS},
    {"wind", Quantity::WS},
    {"vent", Quantity::WS},
    {"viento", Quantity::WS},
    {"surface downwelling shortwave flux in air", Quantity::SR},
    {"global horizontal radiation", Quantity::SR},
    {"global horizontal irradiance", Quantity::SR},
    {"global radiation", Quantity::SR},
    {"solar radiation", Quantity::SR},
    {"solar rad", Quantity::SR},
    {"solar irradiance", Quantity::SR},
    {"globalstrahlung", Quantity::SR},
    {"sonnenstrahlung", Quantity::SR},
    {"rayonnement global", Quantity::SR},
    {"rayonnement solaire", Quantity::SR},
    {"radiacion global", Quantity::SR},
    {"radiacion solar", Quantity::SR},
    {"ηλιακη ακτινοβολια", Quantity::SR},
    {"ολικη ακτινοβολια", Quantity::SR},
    {"ακτινοβολια", Quantity::SR},
    {"pyranometer", Quantity::SR},
    {"ghi", Quantity::SR},
    {"rsds", Quantity::SR},
    {"ssrd", Quantity::SR},
    {"solrad", Quantity::SR},
    {"solarradiation", Quantity::SR},
    {"sol rad", Quantity::SR},
    {"shortwave radiation", Quantity::SR},
    {"srad", Quantity::SR},
    {"slr", Quantity::SR},
    {"sw in", Quantity::SR},
    {"air temperature", Quantity::Ta},
    {"air temp", Quantity::Ta},
    {"temp air", Quantity::Ta},
    {"dry bulb", Quantity::Ta},
    {"drybulb", Quantity::Ta},
    {"lufttemperatur", Quantity::Ta},
    {"temperature de l air", Quantity::Ta},
    {"temperatura del aire", Quantity::Ta},
    {"temperatura aire", Quantity::Ta},
    {"θερμοκρασια αερα", Quantity::Ta},
    {"θερμοκρασια", Quantity::Ta},
    {"temperature", Quantity::Ta},
    {"temperatur", Quantity::Ta},
    {"temperatura", Quantity::Ta},
    {"temp", Quantity::Ta},
    {"tair", Quantity::Ta},
    {"tas", Quantity::Ta},
    {"tt tu", Quantity::Ta},
};

// Names that mean a quantity where nothing else stands in the name but a unit, a height or a kind of mean.
constexpr Term kShortNames[] = {
    {"ta", Quantity::Ta},     {"t", Quantity::Ta},     {"tl", Quantity::Ta},     {"tt", Quantity::Ta},
    {"tg", Quantity::Tg},     {"sr", Quantity::SR},    {"g", Quantity::SR},      {"rg", Quantity::SR},
    {"rs", Quantity::SR},     {"td", Quantity::Td},    {"dp", Quantity::Td},     {"dpt", Quantity::Td},
    {"rh", Quantity::RH},     {"hr", Quantity::RH},    {"rf", Quantity::RH},     {"ur", Quantity::RH},
    {"ws", Quantity::WS},     {"ff", Quantity::WS},    {"wg", Quantity::WS},     {"va", Quantity::WS},
    {"ea", Quantity::Ea},     {"vp", Quantity::Ea},    {"air tc", Quantity::Ta}, {"air tk", Quantity::Ta},
    {"air tf", Quantity::Ta}, {"t air", Quantity::Ta}, {"airt", Quantity::Ta},   {"dew", Quantity::Td},
    {"u 2", Quantity::WS},    {"air t", Quantity::Ta}, {"t luft", Quantity::Ta}, {"luft t", Quantity::Ta},
};

// Words of columns that are none of the quantities: other places, extremes, directions, sums of others.
constexpr std::string_view kOthers[] = {
    "soil",
    "boden",
    "sol",
    "suelo",
    "εδαφουσ",
    "min",
    "max",
    "minimum",
    "maximum",
    "wet",
    "surface temperature",
    "water",
    "sea",
    "battery",
    "panel",
    "logger",
    "box",
    "inside",
    "indoor",
    "innen",
    "interieur",
    "direction",
    "dir",
    "richtung",
    "windrichtung",
    "direccion",
    "διευθυνση",
    "wind deg",
    "gust",
    "boe",
    "windboe",
    "spitze",
    "windspitze",
    "rafale",
    "racha",
    "ριπη",
    "chill",
    "heat",
    "index",
    "deficit",
    "saturation",
    "sattigung",
    "net",
    "diffuse",
    "direct",
    "diffus",
    "longwave",
    "infrared",
    "extraterrestrial",
    "reflected",

    "hi",
    "low",
    "lo",
    "high",
    "std",
    "stdev",
    "sd",
    "flag",
    "flags",
    "quality",
    "qc",
    "qn",
    "status",
    "count",
    "felt",
    "feels",
    "apparent",
    "sea level",
    "specific",
    "absolute",
    "mixing",
    "illuminance",
    "uv",
    "par",
    "θερμοκρασια εδαφουσ",
    "run",
    "pressure",
    "druck",
    "skin",
    "body",
};

// What may stand beside a short name.
constexpr std::string_view kBeside[] = {
    "avg", "mean", "mittel", "moy", "c",   "f",   "k",   "deg", "degc", "degf", "m",    "s",    "ms", "kmh",
    "km",  "h",    "mph",    "kn",  "kt",  "kts", "w",   "%",   "hpa",  "kpa",  "mbar", "pct",  "10", "2",
    "1",   "0",    "5",      "wvt", "wvc", "smp", "sec", "kj",  "j",    "mj",   "wh",   "μεση", "co", "oc"};

struct TimeTerm {
    std::string_view words;
    Role role;
};

constexpr TimeTerm kTimeTerms[] = {
    {"timestamp", Role::Time},
    {"time stamp", Role::Time},
    {"datetime", Role::Time},
    {"date time", Role::Time},
    {"dt iso", Role::Time},
    {"zeitstempel", Role::Time},
    {"mess datum", Role::Time},
    {"datum uhrzeit", Role::Time},
    {"datum zeit", Role::Time},
    {"date", Role::Time},
    {"datum", Role::Time},
    {"fecha", Role::Time},
    {"ημερομηνια", Role::Time},
    {"time", Role::Time},
    {"uhrzeit", Role::Time},
    {"zeit", Role::Time},
    {"heure", Role::Time},
    {"hora", Role::Time},
    {"ωρα", Role::Time},
    {"utc", Role::Time},
    {"day of year", Role::DayOfYear},
    {"julian day", Role::DayOfYear},
    {"doy", Role::DayOfYear},
    {"jday", Role::DayOfYear},
    {"year", Role::Year},
    {"jahr", Role::Year},
    {"annee", Role::Year},
    {"ano", Role::Year},
    {"ετοσ", Role::Year},
    {"month", Role::Month},
    {"monat", Role::Month},
    {"mois", Role::Month},
    {"mes", Role::Month},
    {"μηνασ", Role::Month},
    {"day", Role::Day},
    {"tag", Role::Day},
    {"jour", Role::Day},
    {"dia", Role::Day},
    {"ημερα", Role::Day},
    {"hour minute", Role::HourMinute},
    {"hhmm", Role::HourMinute},
    {"hour", Role::Hour},
    {"stunde", Role::Hour},
    {"minute", Role::Minute},
    {"second", Role::Second},
    {"sekunde", Role::Second},
};

// What tells a time where it is all of the name and stands behind a year.
constexpr TimeTerm kShortTimes[] = {
    {"mo", Role::Month}, {"mm", Role::Month}, {"dy", Role::Day},     {"dd", Role::Day},
    {"hr", Role::Hour},  {"hh", Role::Hour},  {"hh 24", Role::Hour}, {"hrmn", Role::HourMinute},
};

constexpr std::string_view kStations[] = {"station",    "stations id",  "stationid", "site",    "standort",
                                          "messstelle", "estacion",     "lieu",      "σταθμοσ", "location",
                                          "station id", "station name", "stn",       "wmo"};

// The words of a term, which may stand alone or with what they tell.
template <class Term>
std::string_view textOf(const Term& term)
{
    if constexpr (std::is_convertible_v<Term, std::string_view>)
        return term;
    else
        return term.words;
}

// Terms taken apart as names are.
template <const auto& terms>
const std::vector<std::vector<std::string>>& termWords()
{
    static const std::vector<std::vector<std::string>> all = [] {
        std::vector<std::vector<std::string>> made;
        for (const auto& term : terms)
            made.push_back(words(textOf(term)));
        return made;
    }();
    return all;
}

// The first term that stands in a name; null where none does.
template <const auto& terms>
const auto* findTerm(const std::vector<std::string>& name)
{
    const auto& all = termWords<terms>();
    const auto found = std::find_if(all.begin(), all.end(), [&name](const std::vector<std::string>& term) {
        return contains(name, term);
    });
    return found == all.end() ? nullptr : &terms[found - all.begin()];
}

// A number that the text tells of: a height in metres, as in "10m", "@10 m", "wind_10m".
double heightIn(const std::vector<std::string>& name)
{
    for (std::size_t i = 0; i + 1 < name.size(); ++i) {
        const bool digits = name[i].find_first_not_of("0123456789") == std::string::npos;
        const bool metres = name[i + 1] == "m" && !(i + 2 < name.size() && name[i + 2] == "s");
        if (digits && metres && name[i].size() <= 2 && name[i] != "0" && name[i] != "1")
            return std::stod(name[i]);
    }
    return 0;
}

constexpr double kMostSun = 1600;  // [W/m²] that reach the ground, edges of clouds included
constexpr double kSomeStep = 3600; // [s], where it matters not which

// The first values of a column.
struct Seen {
    std::vector<double> numbers;
    std::size_t texts = 0; // neither number nor gap

    double lowest() const { return *std::min_element(numbers.begin(), numbers.end()); }
    double highest() const { return *std::max_element(numbers.begin(), numbers.end()); }
};

Seen look(const OpenTable& table, std::size_t column)
{
    Seen seen;
    for (const Row& row : table.look) {
        if (!row.refused.empty() || isUsualGap(trimmed(row.cells[column])))
            continue;
        if (const auto number = cellNumber(row.cells[column], table.layout.decimal))
            seen.numbers.push_back(*number);
        else
            ++seen.texts;
    }
    return seen;
}

std::string plain(double value)
{
    return values::plainText(value);
}

class Guesser {
public:
    explicit Guesser(const OpenTable& table) : m_table(table), m_layout(table.layout) {}

    Mapping run()
    {
        m_mapping.fingerprint = fingerprintOf(m_layout);
        m_mapping.zone = m_layout.zone;
        m_service = KnownService::of(m_layout);
        for (std::size_t i = 0; i < m_layout.columns(); ++i) {
            ColumnUse use;
            use.column = m_layout.names[i];
            if (m_layout.kind == FileKind::Epw)
                useOfEpw(i, use);
            else if (m_layout.header)
                useByName(i, use);
            else
                useByValues(i, use);
            m_mapping.columns.push_back(std::move(use));
        }
        if (m_layout.kind != FileKind::Epw) {
            judgeTimes();
            judgeOtherTemperatures();
            judgePairs();
        }
        judgeWhole();
        return std::move(m_mapping);
    }

private:
    bool taken(Quantity quantity) const
    {
        return std::any_of(m_mapping.columns.begin(), m_mapping.columns.end(),
                           [quantity](const ColumnUse& use) {
                               return use.role == Role::Reading && use.quantity == quantity;
                           });
    }

    static void useOfEpw(std::size_t i, ColumnUse& use)
    {
        struct Known {
            std::size_t column;
            Quantity quantity;
            std::string_view missing;
        };
        static constexpr Known kReadings[] = {{6, Quantity::Ta, "99.9"},
                                              {7, Quantity::Td, "99.9"},
                                              {8, Quantity::RH, "999"},
                                              {13, Quantity::SR, "9999"},
                                              {21, Quantity::WS, "999"}};
        static constexpr Role kTimes[] = {Role::Year, Role::Month, Role::Day, Role::Hour, Role::Minute};
        if (i < std::size(kTimes)) {
            use.role = kTimes[i];
            use.because = "Weather files have it in this place; an hour is told by its end.";
        }
        for (const Known& known : kReadings) {
            if (known.column != i)
                continue;
            use.role = Role::Reading;
            use.quantity = known.quantity;
            use.unit = infoOf(known.quantity).unit;
            use.height = known.quantity == Quantity::WS ? 10 : 0;
            use.gaps = {std::string(known.missing)};
            use.because = "Weather files have it in this place, with " + std::string(known.missing) +
                          " where it is missing.";
            if (known.quantity == Quantity::SR)
                use.because += " The sum of an hour in Wh/m2 is its mean in W/m2.";
            if (known.quantity == Quantity::WS)
                use.because += " The wind is that at 10 m.";
        }
    }

    void useByName(std::size_t i, ColumnUse& use)
    {
        if (useByService(i, use))
            return;
        const std::vector<std::string> name = words(withoutSensors(m_layout.names[i]));
        const auto& stations = termWords<kStations>();
        if (std::find(stations.begin(), stations.end(), name) != stations.end()) {
            use.role = Role::Station;
            use.because = "It is called a station.";
            return;
        }
        if (const TimeTerm* const time = findTerm<kTimeTerms>(name); time != nullptr && isTime(i, *time)) {
            use.role = time->role;
            use.because = "Its name holds \"" + std::string(time->words) + "\".";
            judgeHour(i, use);
            return;
        }
        if (const TimeTerm* const time = shortTime(name); time != nullptr && isTime(i, *time)) {
            use.role = time->role;
            use.because = "It stands behind a year.";
            judgeHour(i, use);
            return;
        }
        const bool other = findTerm<kOthers>(name) != nullptr;
        const Term* term = findTerm<kTerms>(name);
        const bool leaves =
            contains(name, {"out"}) || contains(name, {"up"}); // of radiation; of a place, outdoors
        if (term != nullptr &&
            ((other && term->quantity != Quantity::Ea) || (leaves && term->quantity == Quantity::SR)))
            return;
        if (term == nullptr && !other)
            term = shortTerm(name);
        const Seen seen = look(m_table, i);
        if (term == nullptr || seen.numbers.empty() || seen.texts > seen.numbers.size())
            return;
        if (isOfService(term->quantity) || isSecond(use.column, term->quantity))
            return;
        use.role = Role::Reading;
        use.quantity = term->quantity;
        use.because = "Its name holds \"" + std::string(term->words) + "\"";
        judgeUnit(i, seen, use);
        if (use.quantity == Quantity::WS)
            judgeHeight(m_layout.names[i], name, use);
        use.because += ".";
    }

    // As the service calls it whose file this is.
    bool useByService(std::size_t i, ColumnUse& use)
    {
        const KnownColumn* const known = m_service ? m_service->column(m_layout.names[i]) : nullptr;
        if (known == nullptr || (known->role == Role::Reading && look(m_table, i).numbers.empty()))
            return false;
        const std::string whose = std::string(m_service->name()) + " calls it so";
        if (known->role != Role::Reading) {
            use.role = known->role;
            use.because = upper(whose) + ".";
            return true;
        }
        if (isSecond(use.column, known->quantity))
            return true;
        use.role = Role::Reading;
        use.quantity = known->quantity;
        use.unit = unitSymbol(m_layout.units[i]);
        const bool written = UnitWay::find(use.quantity, use.unit, kSomeStep).has_value();
        if (!written)
            use.unit = known->unit;
        use.height = known->height;
        use.because = upper(whose) + ", in " + use.unit;
        if (use.height > 0)
            use.because += ", at " + plain(use.height) + " m";
        use.because += ".";
        if (isDose(use.unit)) {
            const double step = stepOfRows();
            use.step = step > 0 ? step : known->step;
            use.because += " It is a sum over " + plain(use.step) + " s.";
            if (known->step > 0 && use.step != known->step)
                use.doubt = "The service sums it over " + plain(known->step) + " s; the rows are " +
                            plain(use.step) + " s apart, over which it is taken for summed.";
        }
        return true;
    }

    // The service has a column of its own for it.
    bool isOfService(Quantity quantity) const
    {
        return m_service &&
               std::any_of(m_layout.names.begin(), m_layout.names.end(), [&](const std::string& name) {
                   const KnownColumn* const known = m_service->column(name);
                   return known != nullptr && known->role == Role::Reading && known->quantity == quantity;
               });
    }

    static std::string upper(std::string text)
    {
        text[0] = static_cast<char>(text[0] - 'a' + 'A');
        return text;
    }

    // Another column is that quantity already.
    bool isSecond(const std::string& column, Quantity quantity)
    {
        if (!taken(quantity))
            return false;
        m_mapping.doubts.push_back("\"" + column + "\" could be the " + std::string(infoOf(quantity).name) +
                                   ", too; the first one is taken.");
        return true;
    }

    const TimeTerm* shortTime(const std::vector<std::string>& name) const
    {
        const auto has = [this](Role role) {
            return std::any_of(m_mapping.columns.begin(), m_mapping.columns.end(),
                               [role](const ColumnUse& use) { return use.role == role; });
        };
        const auto& all = termWords<kShortTimes>();
        const auto found = std::find(all.begin(), all.end(), name);
        if (found == all.end() || !has(Role::Year))
            return nullptr;
        const TimeTerm& term = kShortTimes[found - all.begin()];
        return has(term.role) ? nullptr : &term;
    }

    void judgeHour(std::size_t i, ColumnUse& use) const
    {
        if (use.role != Role::Hour || highest(i) <= 24)
            return;
        use.role = Role::HourMinute;
        use.because += " Hours and minutes are written together.";
    }

    double highest(std::size_t i) const
    {
        const Seen seen = look(m_table, i);
        return seen.numbers.empty() ? 0 : seen.highest();
    }

    bool isTime(std::size_t i, const TimeTerm& term) const
    {
        std::size_t times = 0;
        std::size_t all = 0;
        for (const Row& row : m_table.look) {
            if (!row.refused.empty() || trimmed(row.cells[i]).empty())
                continue;
            ++all;
            const std::string_view cell = trimmed(row.cells[i]);
            const auto number = cellNumber(cell, m_layout.decimal);
            if (term.role == Role::Time)
                times += looksLikeTime(cell) || (number && (cell.size() == 4 || cell.size() <= 2)) ? 1U : 0U;
            else
                times += number && *number >= 0 && *number <= highestOf(term.role) ? 1U : 0U;
        }
        return 10 * times >= 9 * all && all > 0;
    }

    static double highestOf(Role part)
    {
        switch (part) {
        case Role::Year:
            return 9999;
        case Role::Month:
            return 12;
        case Role::Day:
            return 31;
        case Role::DayOfYear:
            return 366;
        case Role::Hour: // or hours and minutes
        case Role::HourMinute:
            return 2400;
        default:
            return 60;
        }
    }

    static const Term* shortTerm(const std::vector<std::string>& name)
    {
        for (std::size_t i = 0; i < std::size(kShortNames); ++i) {
            const std::vector<std::string>& wanted = termWords<kShortNames>()[i];
            if (name.size() < wanted.size() || !std::equal(wanted.begin(), wanted.end(), name.begin()))
                continue;
            if (std::all_of(name.begin() + static_cast<std::ptrdiff_t>(wanted.size()), name.end(),
                            [](const std::string& word) {
                                return std::find(std::begin(kBeside), std::end(kBeside), word) !=
                                       std::end(kBeside);
                            }))
                return &kShortNames[i];
        }
        return nullptr;
    }

    void judgeUnit(std::size_t i, const Seen& seen, ColumnUse& use) const
    {
        const std::string_view own = infoOf(use.quantity).unit;
        const std::string& written = m_layout.units[i];
        const std::string_view symbol = unitSymbol(written);
        use.unit = own;
        if (isDose(symbol) && use.quantity == Quantity::SR) {
            judgeDose(symbol, use);
            return;
        }
        if (UnitWay::find(use.quantity, symbol, 0)) {
            use.unit = symbol;
            use.because += ", and its unit is written as \"" + written + "\"";
            if (use.quantity == Quantity::Ta && symbol == "°C" && seen.highest() > 58)
                use.doubt = "Values up to " + plain(seen.highest()) + " are no air temperatures in °C.";
            return;
        }
        if (!symbol.empty()) {
            use.doubt = "Its unit is written as \"" + written + "\", which is none of the " +
                        std::string(infoOf(use.quantity).name) + ".";
            return;
        }
        if (use.quantity == Quantity::RH && seen.highest() > 1.5 && seen.highest() <= 110) {
            use.because += ", and values up to " + plain(seen.highest()) + " are in %";
            return;
        }
        use.unit = likelyUnit(use.quantity, seen);
        if (isDose(use.unit)) {
            judgeDose(use.unit, use);
            use.doubt = "No unit is written; J/m2 are taken, summed over " + plain(use.step) + " s.";
            return;
        }
        use.doubt = "No unit is written; " + use.unit + " is taken for values from " + plain(seen.lowest()) +
                    " to " + plain(seen.highest()) + ".";
        if (use.quantity == Quantity::SR && seen.highest() > kMostSun)
            use.doubt += " That is more than the sun gives.";
    }

    // The unit in which such values can stand on the earth.
    static std::string_view likelyUnit(Quantity quantity, const Seen& seen)
    {
        const double low = seen.lowest();
        const double high = seen.highest();
        switch (quantity) {
        case Quantity::Ta:
            if (low > 180 && high < 340)
                return "K";
            if (high > 58 && high < 140)
                return "F";
            break;
        case Quantity::RH:
            if (low >= 0 && high <= 1.1 && high > 0)
                return "1";
            break;
        case Quantity::SR:
            if (high > 1e4)
                return "J/m2";
            break;
        default:
            break;
        }
        return infoOf(quantity).unit;
    }

    // Globe and dew point without a unit come in that of the air temperature.
    void judgeOtherTemperatures()
    {
        const auto air =
            std::find_if(m_mapping.columns.begin(), m_mapping.columns.end(), [](const ColumnUse& use) {
                return use.role == Role::Reading && use.quantity == Quantity::Ta;
            });
        if (air == m_mapping.columns.end())
            return;
        for (ColumnUse& use : m_mapping.columns)
            if (use.role == Role::Reading && (use.quantity == Quantity::Tg || use.quantity == Quantity::Td) &&
                use.unit != air->unit && use.doubt.starts_with("No unit")) {
                use.unit = air->unit;
                use.doubt = "No unit is written; that of the air temperature is taken.";
            }
    }

    // Of a globe and the sun, one is read.
    void judgePairs()
    {
        if (!taken(Quantity::Tg))
            return;
        for (ColumnUse& use : m_mapping.columns)
            if (use.role == Role::Reading && use.quantity == Quantity::SR) {
                const std::string column = use.column;
                use = ColumnUse();
                use.column = column;
                m_mapping.doubts.push_back("\"" + column +
                                           "\" is the solar radiation, which goes unused beside a measured "
                                           "globe temperature.");
            }
    }

    void judgeDose(std::string_view symbol, ColumnUse& use) const
    {
        use.unit = symbol;
        use.step = stepOfRows();
        use.because += ", and its unit " + std::string(symbol) + " is a sum over the step of the rows";
        if (use.step > 0) {
            use.because += ", which is " + plain(use.step) + " s";
        } else {
            use.step = 3600;
            use.doubt = "The step over which it is summed is not known; an hour is taken.";
        }
    }

    // The difference of the times of the first rows, where one column alone tells them.
    double stepOfRows() const
    {
        for (std::size_t column = 0; column < m_layout.columns(); ++column) {
            std::optional<Moment> before;
            std::int64_t step = 0;
            bool same = true;
            for (const Row& row : m_table.look) {
                if (!row.refused.empty())
                    continue;
                const std::string_view cell = trimmed(row.cells[column]);
                const auto now = looksLikeTime(cell) && possibleOrders(cell) == 0
                                     ? readMoment(cell, DateOrder::YearMonthDay)
                                     : readMoment(cell, DateOrder::DayMonthYear);
                if (now && before) {
                    same = same && (step == 0 || now->seconds - before->seconds == step);
                    step = now->seconds - before->seconds;
                }
                same = same && now.has_value();
                before = now;
            }
            if (same && step > 0 && step < 86400)
                return static_cast<double>(step);
        }
        return 0;
    }

    static void judgeHeight(std::string_view written, const std::vector<std::string>& name, ColumnUse& use)
    {
        use.height = name == words("u2") ? 2 : heightIn(name);
        if (use.height > 0) {
            use.because += ", and " + plain(use.height) + " m stand in its name";
            return;
        }
        const bool own = name == words("ws") || written == "Wind Speed (m/s)";
        if (own)
            use.because += ", as this program calls it";
        else if (use.doubt.empty())
            use.doubt =
                "The height at which it was measured is not written; that of the box, 1.1 m, is taken.";
        else
            use.doubt +=
                " The height at which it was measured is not written; that of the box, 1.1 m, is taken.";
    }

    // A table without names: the time alone can be told by its values.
    void useByValues(std::size_t i, ColumnUse& use) const
    {
        std::size_t times = 0;
        std::size_t all = 0;
        for (const Row& row : m_table.look) {
            if (!row.refused.empty())
                continue;
            ++all;
            times +=
                looksLikeTime(trimmed(row.cells[i])) && !cellNumber(row.cells[i], m_layout.decimal) ? 1U : 0U;
        }
        if (all == 0 || times < all)
            return;
        use.role = Role::Time;
        use.because = "All of its values are dates or times.";
    }

    // Whether the date can be read, and in which order.
    void judgeTimes()
    {
        std::vector<std::size_t> columns;
        for (std::size_t i = 0; i < m_mapping.columns.size(); ++i)
            if (m_mapping.columns[i].role == Role::Time)
                columns.push_back(i);
        if (columns.empty())
            return;
        // A whole date and time stands in one column: what else tells a time is carried.
        for (const std::size_t i : columns) {
            const bool whole = std::all_of(m_table.look.begin(), m_table.look.end(), [&](const Row& row) {
                const std::string_view cell =
                    row.refused.empty() ? trimmed(row.cells[i]) : std::string_view();
                return cell.empty() || (cell.size() > 10 && looksLikeTime(cell));
            });
            if (!whole)
                continue;
            for (const std::size_t other : columns)
                if (other != i)
                    m_mapping.columns[other].role = Role::Carried;
            columns = {i};
            break;
        }
        const auto dated = std::find_if(columns.begin(), columns.end(), [this](std::size_t i) {
            return std::any_of(m_table.look.begin(), m_table.look.end(), [i](const Row& row) {
                return row.refused.empty() && readMoment(trimmed(row.cells[i]), DateOrder::YearMonthDay)
                                                      .value_or(Moment{-1, 0})
                                                      .seconds != -1;
            });
        });
        const unsigned yearFirst = 1U << static_cast<unsigned>(DateOrder::YearMonthDay);
        unsigned orders = 7;
        bool mattered = false;
        bool points = false;
        const std::size_t column = dated == columns.end() ? columns.front() : *dated;
        judgeZone(columns);
        for (const std::size_t i : columns)
            for (const Row& row : m_table.look) {
                const std::string_view cell =
                    row.refused.empty() ? trimmed(row.cells[i]) : std::string_view();
                if (const unsigned possible = possibleOrders(cell)) {
                    orders &= possible;
                    mattered = true;
                    points = cell.find('.') < 3;
                }
            }
        if (!mattered)
            return;
        if ((orders & ~yearFirst) != 0)
            orders &= ~yearFirst; // a year of two digits stands behind
        const std::vector<std::string> named = words(m_mapping.columns[column].column);
        const bool dayNamed = contains(named, {"dd", "mm"}) || contains(named, {"jj", "mm"});
        const bool monthNamed = contains(named, {"mm", "dd"});
        const auto allows = [&orders](DateOrder order) {
            return (orders & 1U << static_cast<unsigned>(order)) != 0;
        };
        ColumnUse& use = m_mapping.columns[column];
        if (points && allows(DateOrder::DayMonthYear)) {
            m_mapping.order = DateOrder::DayMonthYear;
            use.because += " Dates with points begin with the day.";
        } else if ((dayNamed && allows(DateOrder::DayMonthYear)) ||
                   (monthNamed && allows(DateOrder::MonthDayYear))) {
            m_mapping.order = dayNamed ? DateOrder::DayMonthYear : DateOrder::MonthDayYear;
            use.because += " It tells the order of the date.";
        } else if (orders == 1U << static_cast<unsigned>(DateOrder::DayMonthYear)) {
            m_mapping.order = DateOrder::DayMonthYear;
            use.because += " Dates begin with the day: some have a number above 12 there.";
        } else if (orders == 1U << static_cast<unsigned>(DateOrder::MonthDayYear)) {
            m_mapping.order = DateOrder::MonthDayYear;
            use.because += " Dates begin with the month: some have a number above 12 behind it.";
        } else if (orders == 1U << static_cast<unsigned>(DateOrder::YearMonthDay)) {
            m_mapping.order = DateOrder::YearMonthDay;
        } else {
            m_mapping.order = allows(DateOrder::DayMonthYear) && !isAmerican() ? DateOrder::DayMonthYear
                                                                               : DateOrder::MonthDayYear;
            use.doubt = "Its dates can be read with the day or with the month in front; " +
                        std::string(m_mapping.order == DateOrder::DayMonthYear ? "the day" : "the month") +
                        " is taken.";
        }
    }

    // Where degrees Fahrenheit are read, the month stands in front more often than not.
    bool isAmerican() const
    {
        return std::any_of(m_mapping.columns.begin(), m_mapping.columns.end(),
                           [](const ColumnUse& use) { return use.role == Role::Reading && use.unit == "F"; });
    }

    // "Date Time, GMT+02:00", "time(UTC)"
    void judgeZone(const std::vector<std::size_t>& columns)
    {
        for (const std::size_t i : columns) {
            const std::string name = folded(m_layout.names[i]);
            for (const std::string_view clock : {"utc", "gmt"}) {
                const std::size_t at = name.find(clock);
                if (at == std::string::npos || m_mapping.zone)
                    continue;
                const std::size_t end = name.find_first_not_of("0123456789:+-", at + clock.size());
                m_mapping.zone = readOffset(std::string_view(name).substr(at, end - at));
                if (m_mapping.zone)
                    m_mapping.columns[i].because += " It tells the zone of the clock.";
            }
        }
    }

    void judgeWhole()
    {
        const std::vector<std::string>& doubts = m_layout.doubts;
        m_mapping.doubts.insert(m_mapping.doubts.begin(), doubts.begin(), doubts.end());
        const auto need = [this](std::initializer_list<Quantity> anyOf, const char* what) {
            if (std::none_of(anyOf.begin(), anyOf.end(), [this](Quantity one) { return taken(one); }))
                m_mapping.doubts.push_back(std::string("No column was found for the ") + what + ".");
        };
        need({Quantity::Ta}, "air temperature");
        need({Quantity::Tg, Quantity::SR}, "globe temperature or solar radiation");
        need({Quantity::Td, Quantity::RH, Quantity::Ea}, "dew point or relative humidity");
        need({Quantity::WS}, "wind speed");
    }

    const OpenTable& m_table;
    const Layout& m_layout;
    std::optional<KnownService> m_service;
    Mapping m_mapping;
};

} // namespace

Mapping guessMapping(const OpenTable& table)
{
    return Guesser(table).run();
}

} // namespace comfortics::tables
