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
    {"δροσου", Quantity::Td},
    {"punto di rugiada", Quantity::Td},
    {"ponto de orvalho", Quantity::Td},
    {"dauwpunt", Quantity::Td},
    {"duggpunkt", Quantity::Td},
    {"daggpunkt", Quantity::Td},
    {"kastepiste", Quantity::Td},
    {"punkt rosy", Quantity::Td},
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
    {"umidita", Quantity::RH},
    {"umidade", Quantity::RH},
    {"humidade", Quantity::RH},
    {"luchtvochtigheid", Quantity::RH},
    {"vochtigheid", Quantity::RH},
    {"luftfuktighet", Quantity::RH},
    {"luftfugtighed", Quantity::RH},
    {"suhteellinen kosteus", Quantity::RH},
    {"wilgotnosc", Quantity::RH},
    {"vlhkost", Quantity::RH},
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
    {"ανεμου", Quantity::WS},
    {"velviento", Quantity::WS},
    {"velocita del vento", Quantity::WS},
    {"velocita vento", Quantity::WS},
    {"velocidade do vento", Quantity::WS},
    {"vento", Quantity::WS},
    {"windsnelheid", Quantity::WS},
    {"vindhastighet", Quantity::WS},
    {"vindhastighed", Quantity::WS},
    {"middelvind", Quantity::WS},
    {"tuulen nopeus", Quantity::WS},
    {"predkosc wiatru", Quantity::WS},
    {"rychlost vetru", Quantity::WS},
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
    {"globalstr", Quantity::SR},
    {"globalstraling", Quantity::SR},
    {"globale straling", Quantity::SR},
    {"radiazione solare", Quantity::SR},
    {"radiazione globale", Quantity::SR},
    {"radiacao global", Quantity::SR},
    {"radiacao solar", Quantity::SR},
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
    {"lufttemp", Quantity::Ta},
    {"θερμ", Quantity::Ta},
    {"temperatuur", Quantity::Ta},
    {"luchttemperatuur", Quantity::Ta},
    {"lampotila", Quantity::Ta},
    {"lampotilan", Quantity::Ta},
    {"teplota", Quantity::Ta},
    {"tair", Quantity::Ta},
    {"tas", Quantity::Ta},
    {"tt tu", Quantity::Ta},
};

// Words that leave open which of several measurements it is: with a unit of the quantity alone, and doubted.
constexpr Term kVagueTerms[] = {
    {"radiation", Quantity::SR},       {"irradiance", Quantity::SR}, {"strahlung", Quantity::SR},
    {"rayonnement", Quantity::SR},     {"radiacion", Quantity::SR},  {"radiacao", Quantity::SR},
    {"radiazione", Quantity::SR},      {"straling", Quantity::SR},   {"solar", Quantity::SR},
    {"geschwindigkeit", Quantity::WS}, {"velocity", Quantity::WS},   {"speed", Quantity::WS},
    {"vitesse", Quantity::WS},         {"velocidad", Quantity::WS},  {"velocita", Quantity::WS},
};

// Names that mean a quantity where nothing else stands in the name but a unit, a height or a kind of mean.
constexpr Term kShortNames[] = {
    {"ta", Quantity::Ta},     {"t", Quantity::Ta},      {"tl", Quantity::Ta},     {"tt", Quantity::Ta},
    {"tg", Quantity::Tg},     {"sr", Quantity::SR},     {"g", Quantity::SR},      {"rg", Quantity::SR},
    {"rs", Quantity::SR},     {"td", Quantity::Td},     {"dp", Quantity::Td},     {"dpt", Quantity::Td},
    {"rh", Quantity::RH},     {"hr", Quantity::RH},     {"rf", Quantity::RH},     {"ur", Quantity::RH},
    {"ws", Quantity::WS},     {"ff", Quantity::WS},     {"wg", Quantity::WS},     {"va", Quantity::WS},
    {"ea", Quantity::Ea},     {"vp", Quantity::Ea},     {"air tc", Quantity::Ta}, {"air tk", Quantity::Ta},
    {"air tf", Quantity::Ta}, {"t air", Quantity::Ta},  {"airt", Quantity::Ta},   {"atmp", Quantity::Ta},
    {"dewp", Quantity::Td},   {"dew", Quantity::Td},    {"u 2", Quantity::WS},    {"air t", Quantity::Ta},
    {"t luft", Quantity::Ta}, {"luft t", Quantity::Ta},
};

// Words of columns that are none of the quantities: other places, extremes, directions, sums of others.
constexpr std::string_view kOthers[] = {
    // clang-format off
    "soil", "boden", "sol", "suelo", "εδαφουσ", "min", "max", "minimum", "maximum", "wet",
    "surface temperature", "water", "sea", "battery", "panel", "logger", "box", "inside", "indoor", "innen",
    "interieur", "direction", "dir", "richtung", "windrichtung", "direccion", "διευθυνση", "wind deg",
    "gust", "boe", "windboe", "spitze", "windspitze", "rafale", "racha", "ριπη", "chill", "heat", "index",
    "deficit", "saturation", "sattigung", "net", "diffuse", "direct", "diffus", "longwave", "infrared",
    "extraterrestrial", "reflected", "hi", "low", "lo", "high", "std", "stdev", "sd", "flag", "flags",
    "quality", "qc", "qn", "status", "count", "felt", "feels", "apparent", "sea level", "specific",
    "absolute", "mixing", "illuminance", "uv", "par", "θερμοκρασια εδαφουσ", "run", "pressure", "druck",
    "skin", "body", "peak", "lull", "sigma", "sdv", "deviation", "variance", "turbulence", "gusts",
    "rafales", "rachas", "rajada", "raffica", "windstoot", "vindkast", "byvind", "component",
    "wind u", "wind v", "u wind", "v wind", "angle", "bearing", "azimuth", "heading", "sector",
    "windrichting", "vindretning", "vindriktning", "direcao", "direzione", "suunta", "clear", "clearsky",
    "toa", "reflektiert", "ppfd", "terrestrial", "radiant", "mrt", "operative", "equivalent", "effective",
    "perceived", "potential", "virtual", "sonic", "natural", "nwb", "wetb", "wetbulb", "wb", "feucht",
    "utci", "wbgt", "humidex", "gefuhlte", "ressentie", "sensacion", "in temp", "in hum", "innentemperatur",
    "interior", "internal", "intern", "binnen", "enclosure", "housing", "cpu", "pcb", "chip",
    "grass", "leaf", "canopy", "road", "pavement", "wall", "sky", "snow", "schnee", "defizit", "abs",
    "absolut", "absolue", "absoluta", "ratio", "unit", "units", "id", "code", "type", "source", "uncert",
    "uncertainty", "error", "flg", "id type", "minima", "maxima", "minimale", "maximale", "minimo",
    "maximo", "massima", "μεγ", "μεγιστη", "ελαχ", "ελαχιστη", "tmax", "tmin",
    // clang-format on
};

// What may stand beside a short name.
constexpr std::string_view kBeside[] = {
    "avg",  "mean", "mittel", "moy",  "c",   "f",  "k",   "deg",   "degc",      "degf", "m",   "s",
    "ms",   "kmh",  "km",     "h",    "mph", "kn", "kt",  "kts",   "w",         "%",    "hpa", "kpa",
    "mbar", "pct",  "10",     "2",    "1",   "0",  "5",   "wvt",   "wvc",       "smp",  "sec", "kj",
    "j",    "mj",   "wh",     "μεση", "co",  "oc", "med", "media", "mittelwert"};

struct TimeTerm {
    std::string_view words;
    Role role;
};

constexpr TimeTerm kTimeTerms[] = {
    {"mi format", Role::Minute}, // the last of "in YYYY,MM,DD,HH24,MI format"
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
    {"data", Role::Time},
    {"ημ νια", Role::Time},
    {"fecha", Role::Time},
    {"ημερομηνια", Role::Time},
    {"time", Role::Time},
    {"uhrzeit", Role::Time},
    {"zeit", Role::Time},
    {"heure", Role::Time},
    {"hora", Role::Time},
    {"ora", Role::Time},
    {"tijd", Role::Time},
    {"tid", Role::Time},
    {"godzina", Role::Time},
    {"aika", Role::Time},
    {"ωρα", Role::Time},
    {"utc", Role::Time},
    {"day of year", Role::DayOfYear},
    {"julian day", Role::DayOfYear},
    {"doy", Role::DayOfYear},
    {"jday", Role::DayOfYear},
    {"year", Role::Year},
    {"yy", Role::Year},
    {"yyyy", Role::Year},
    {"jahr", Role::Year},
    {"vuosi", Role::Year},
    {"annee", Role::Year},
    {"ano", Role::Year},
    {"ετοσ", Role::Year},
    {"month", Role::Month},
    {"monat", Role::Month},
    {"kuukausi", Role::Month},
    {"mois", Role::Month},
    {"mes", Role::Month},
    {"μηνασ", Role::Month},
    {"day", Role::Day},
    {"tag", Role::Day},
    {"paiva", Role::Day},
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
    {"mo", Role::Month}, {"mm", Role::Month},   {"mm", Role::Minute},       {"dy", Role::Day},
    {"dd", Role::Day},   {"mn", Role::Minute},  {"min", Role::Minute},      {"hr", Role::Hour},
    {"hh", Role::Hour},  {"hh 24", Role::Hour}, {"hrmn", Role::HourMinute},
};

constexpr std::string_view kStations[] = {
    "station",       "stations id", "stationid",    "site",         "standort", "messstelle", "estacion",
    "lieu",          "σταθμοσ",     "location",     "station code", "stn id",   "stazione",   "estacao",
    "havaintoasema", "station id",  "station name", "stn",          "wmo"};

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
        // "wind_avg10m" is of ten minutes
        if (i > 0 && (name[i - 1].ends_with("avg") || name[i - 1].ends_with("mean")))
            continue;
        const bool digits = name[i].find_first_not_of("0123456789") == std::string::npos;
        const bool metres = name[i + 1] == "m" && !(i + 2 < name.size() && name[i + 2] == "s");
        if (digits && metres && name[i].size() <= 2 && name[i] != "0" && name[i] != "1")
            return std::stod(name[i]);
    }
    return 0;
}

constexpr double kMostSun = 1600; // [W/m²] that reach the ground, edges of clouds included
constexpr std::size_t kDayOfHours = 24;
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

/// What readings can be, wherever on the earth and in whichever season, in the units of the quantities.
struct Bounds {
    double least;  ///< that the lowest may be
    double lesser; ///< that the highest is above, if there are readings of a day
    double most;   ///< that the highest may be
};

Bounds boundsOf(Quantity quantity)
{
    constexpr double kAny = -1e9;
    switch (quantity) {
    case Quantity::Ta:
        return {-90, kAny, 58};
    case Quantity::Td:
        return {-100, kAny, 40};
    case Quantity::Tg:
        return {-90, kAny, 100};
    case Quantity::RH:
        return {-1, 1.1, 110};
    case Quantity::WS:
        return {-0.5, kAny, 75};
    case Quantity::SR:
        return {-30, 15, kMostSun};
    case Quantity::Ea:
        return {0, 0.05, 75};
    }
    return {kAny, kAny, -kAny};
}

// What stands in brackets in a name and is no unit that is known, no height and no word on the kind of mean.
std::string otherUnitIn(std::string_view name)
{
    name = withoutSensors(name);
    for (const auto& [open, close] : {std::pair('[', ']'), std::pair('(', ')'), std::pair('{', '}')}) {
        const std::size_t begin = name.rfind(open);
        const std::size_t end = begin == std::string_view::npos ? begin : name.find(close, begin);
        if (end == std::string_view::npos)
            continue;
        const std::string_view inside = trimmed(name.substr(begin + 1, end - begin - 1));
        const std::vector<std::string> told = words(inside);
        const bool beside = std::all_of(told.begin(), told.end(), [](const std::string& word) {
            return word != "g" && word.size() > 1 &&
                   std::find(std::begin(kBeside), std::end(kBeside), word) != std::end(kBeside);
        });
        if (!inside.empty() && unitSymbol(inside).empty() && heightIn(told) == 0 && !beside)
            return std::string(inside);
    }
    return {};
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
            if (m_layout.header && !has(Role::Time) && !has(Role::Year))
                for (std::size_t i = 0; i < m_layout.columns(); ++i)
                    if (m_mapping.columns[i].role == Role::Carried)
                        useByValues(i, m_mapping.columns[i]);
            judgeTimes();
            judgeSteps();
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

    bool has(Role role) const
    {
        return std::any_of(m_mapping.columns.begin(), m_mapping.columns.end(),
                           [role](const ColumnUse& use) { return use.role == role; });
    }

    static void carry(ColumnUse& use)
    {
        ColumnUse plain;
        plain.column = use.column;
        use = std::move(plain);
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
            if (has(Role::Station))
                return;
            use.role = Role::Station;
            use.because = "It is called a station.";
            return;
        }
        if (const TimeTerm* const time = findTerm<kTimeTerms>(name); time != nullptr && isTime(i, *time)) {
            useAsTime(i, time->role, "Its name holds \"" + std::string(time->words) + "\".", use);
            return;
        }
        if (const TimeTerm* const time = shortTime(name); time != nullptr && isTime(i, *time)) {
            useAsTime(i, time->role, "It stands behind a date.", use);
            return;
        }
        const Seen seen = look(m_table, i);
        if (seen.numbers.empty() || seen.texts > seen.numbers.size())
            return;
        bool vague = false;
        const Term* const term = termOf(i, name, vague);
        if (term == nullptr || isOfService(term->quantity) || isSecond(use.column, term->quantity))
            return;
        use.role = Role::Reading;
        use.quantity = term->quantity;
        use.because = term->words.empty() ? "Its name is a unit of it"
                                          : "Its name holds \"" + std::string(term->words) + "\"";
        judgeUnit(i, seen, use);
        if (vague && use.doubt.empty())
            use.doubt = "Its name does not tell which " + std::string(kindOf(use.quantity)) + " it is.";
        if (use.quantity == Quantity::WS)
            judgeHeight(m_layout.names[i], name, use);
        use.because += ".";
    }

    static std::string_view kindOf(Quantity quantity)
    {
        switch (quantity) {
        case Quantity::SR:
            return "radiation";
        case Quantity::WS:
            return "speed";
        case Quantity::RH:
            return "humidity";
        default:
            return "temperature";
        }
    }

    // What the name calls the column; `vague` where it could mean another measurement of that kind.
    const Term* termOf(std::size_t i, const std::vector<std::string>& name, bool& vague) const
    {
        const std::string_view symbol = unitSymbol(m_layout.units[i]);
        if (const Term* const term = findTerm<kTerms>(name))
            return isOther(name, term->quantity) ? nullptr : term;
        if (const Term* const term = shortTerm(name);
            term != nullptr && !isOther(name, term->quantity) && !(term->words == "hr" && highest(i) <= 24))
            return term; // those of an hour are no humidity
        vague = true;
        if (const Term* const term = findTerm<kVagueTerms>(name))
            return !isOther(name, term->quantity) && UnitWay::find(term->quantity, symbol, kSomeStep)
                       ? term
                       : nullptr;
        // A name that is nothing but a unit, "[°C]".
        static constexpr Term kUnitAlone[] = {
            {"", Quantity::Ta}, {"", Quantity::RH}, {"", Quantity::WS}, {"", Quantity::SR}};
        const std::string& written = m_layout.names[i];
        if (!symbol.empty() && unitSymbol(written) == symbol &&
            std::string_view("[({°%").find(written[0]) != std::string_view::npos)
            for (const Term& term : kUnitAlone)
                if (UnitWay::find(term.quantity, symbol, kSomeStep))
                    return &term;
        return nullptr;
    }

    // Another place, an extreme, a direction and the like.
    static bool isOther(const std::vector<std::string>& name, Quantity quantity)
    {
        const auto& all = termWords<kOthers>();
        for (std::size_t i = 0; i < all.size(); ++i) {
            const std::string_view word = kOthers[i];
            // The sun, not a soil; a vapour pressure.
            if ((quantity == Quantity::SR && word == "sol") ||
                (quantity == Quantity::Ea && (word == "pressure" || word == "druck")))
                continue;
            if (contains(name, all[i]))
                return true;
        }
        // Of a radiation that leaves the ground; a place is outdoors.
        return quantity == Quantity::SR && (contains(name, {"out"}) || contains(name, {"up"}));
    }

    void useAsTime(std::size_t i, Role role, std::string because, ColumnUse& use) const
    {
        // Hours and minutes as times of the day, and as numbers under a name that tells a time.
        const auto all = [&](auto&& is) {
            return std::all_of(m_table.look.begin(), m_table.look.end(), [&](const Row& row) {
                const std::string_view cell =
                    row.refused.empty() ? trimmed(row.cells[i]) : std::string_view();
                return cell.empty() || is(cell);
            });
        };
        if ((role == Role::Hour || role == Role::HourMinute) &&
            all([](std::string_view cell) { return cell.find(':') != std::string_view::npos; }))
            role = Role::Time;
        if (role == Role::Time && all([](std::string_view cell) {
                return cell.size() <= 4 && cell.find_first_not_of("0123456789") == std::string_view::npos;
            }))
            role = Role::Hour;
        if (role != Role::Time && has(role))
            return; // the first one is taken
        use.role = role;
        use.because = std::move(because);
        judgeHour(i, use);
    }

    // As the service calls it whose file this is.
    bool useByService(std::size_t i, ColumnUse& use)
    {
        const KnownColumn* const known = m_service ? m_service->column(m_layout.names[i]) : nullptr;
        if (known == nullptr || (known->role == Role::Reading && look(m_table, i).numbers.empty()))
            return false;
        const std::string whose = std::string(m_service->name()) + " calls it so";
        if (known->role != Role::Reading) {
            if (known->role == Role::Station && has(Role::Station))
                return true;
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
        if (!written && !known->unsure.empty())
            use.doubt = known->unsure;
        judgeRange(look(m_table, i), use);
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
        const auto& all = termWords<kShortTimes>();
        for (std::size_t i = 0; i < all.size(); ++i) {
            const Role role = kShortTimes[i].role;
            const bool behindDate = has(Role::Year) || (role >= Role::Hour && dateStands());
            if (all[i] == name && behindDate && !has(role) && (role != Role::Minute || has(Role::Hour)))
                return &kShortTimes[i];
        }
        return nullptr;
    }

    // A column of dates without times stands in front.
    bool dateStands() const
    {
        for (std::size_t i = 0; i < m_mapping.columns.size(); ++i)
            if (m_mapping.columns[i].role == Role::Time &&
                std::all_of(m_table.look.begin(), m_table.look.end(), [i](const Row& row) {
                    return !row.refused.empty() || trimmed(row.cells[i]).size() <= 10;
                }))
                return true;
        return false;
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
            const bool whole = cell.find_first_not_of("0123456789") == std::string_view::npos;
            const bool hour = term.role == Role::Hour || term.role == Role::HourMinute;
            if (term.role == Role::Time)
                times += looksLikeTime(cell) || (whole && (cell.size() == 4 || cell.size() <= 2)) ? 1U : 0U;
            else
                times += (number && *number >= leastOf(term.role) && *number <= highestOf(term.role)) ||
                                 (hour && cell.find(':') != std::string_view::npos && looksLikeTime(cell))
                             ? 1U
                             : 0U;
        }
        return 10 * times >= 9 * all && all > 0;
    }

    static double leastOf(Role part) { return part == Role::Year ? 1700 : part <= Role::DayOfYear ? 1 : 0; }

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

    static const Term* shortTerm(std::vector<std::string> name)
    {
        if (!name.empty()) // "rhmean", "TAAVG"
            for (const std::string_view mean : {"avg", "mean", "med"})
                if (name.front().size() > mean.size() && name.front().ends_with(mean))
                    name.front().resize(name.front().size() - mean.size());
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
        const std::string other = m_layout.units[i].empty() ? otherUnitIn(m_layout.names[i]) : std::string();
        const std::string& written = other.empty() ? m_layout.units[i] : other;
        const std::string_view symbol = unitSymbol(written);
        use.unit = own;
        if (isDose(symbol) && use.quantity == Quantity::SR) {
            judgeDose(symbol, use);
        } else if (UnitWay::find(use.quantity, symbol, 0)) {
            use.unit = symbol;
            use.because += ", and its unit is written as \"" + written + "\"";
        } else if (!written.empty()) {
            use.doubt = "Its unit is written as \"" + written + "\", which is " +
                        (symbol.empty() ? "not known; " + use.unit + " is taken."
                                        : "none of the " + std::string(infoOf(use.quantity).name) + ".");
        } else if (use.quantity == Quantity::RH && seen.highest() > 1.5 && seen.highest() <= 110) {
            use.because += ", and values up to " + plain(seen.highest()) + " are in %";
        } else if (use.unit = likelyUnit(use.quantity, seen); isDose(use.unit)) {
            judgeDose(use.unit, use);
            use.doubt = "No unit is written; J/m2 are taken, summed over " + plain(use.step) + " s.";
        } else {
            use.doubt = "No unit is written; " + use.unit + " is taken for values from " +
                        plain(seen.lowest()) + " to " + plain(seen.highest()) + ".";
        }
        judgeRange(seen, use);
    }

    // Values that nothing on the earth has in that unit.
    static void judgeRange(const Seen& seen, ColumnUse& use)
    {
        const auto way = UnitWay::find(use.quantity, use.unit, use.step);
        if (!way || seen.numbers.empty())
            return;
        const Bounds bounds = boundsOf(use.quantity);
        const double low = (*way)(seen.lowest());
        const double high = (*way)(seen.highest());
        const bool few = seen.numbers.size() < kDayOfHours;
        if (low >= bounds.least && high <= bounds.most && (few || high == 0 || high > bounds.lesser))
            return;
        use.doubt += (use.doubt.empty() ? "" : " ") + std::string("Values from ") + plain(seen.lowest()) +
                     " to " + plain(seen.highest()) + " are hardly those of the " +
                     std::string(infoOf(use.quantity).name) + " in " + use.unit +
                     (use.step > 0 ? " over " + plain(use.step) + " s" : std::string()) + ".";
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

    void judgeHeight(std::string_view written, const std::vector<std::string>& name, ColumnUse& use) const
    {
        use.height = name == words("u2") ? 2 : heightIn(name);
        if (use.height > 0) {
            use.because += ", and " + plain(use.height) + " m stand in its name";
            return;
        }
        const bool own =
            written == "Wind Speed (m/s)" || (name == words("ws") && plainMapping(m_table).has_value());
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
        if (columns.empty()) {
            if (!has(Role::Year))
                for (ColumnUse& use : m_mapping.columns)
                    if (use.role >= Role::Month && use.role <= Role::Second)
                        carry(use);
            return;
        }
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
                    carry(m_mapping.columns[other]);
            for (ColumnUse& use : m_mapping.columns)
                if (use.role >= Role::Year && use.role <= Role::Second)
                    carry(use);
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
        if (dated == columns.end() && !has(Role::Year) && !joinToDates(columns)) {
            for (ColumnUse& use : m_mapping.columns)
                if (use.role == Role::Time || (use.role >= Role::Year && use.role <= Role::Second))
                    carry(use);
            m_mapping.doubts.push_back("\"" + m_mapping.columns[columns.front()].column +
                                       "\" tells no date; it is carried along.");
            return;
        }
        if (dated != columns.end()) // a date of its own needs no parts
            for (ColumnUse& use : m_mapping.columns)
                if (use.role >= Role::Year && use.role <= Role::DayOfYear)
                    carry(use);
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

    bool joinToDates(const std::vector<std::size_t>& columns) const
    {
        return std::any_of(m_table.look.begin(), m_table.look.end(), [&](const Row& row) {
            std::string joined;
            for (const std::size_t i : columns)
                joined += (row.refused.empty() ? row.cells[i] : std::string()) + " ";
            return readMoment(trimmed(joined), DateOrder::DayMonthYear) ||
                   readMoment(trimmed(joined), DateOrder::MonthDayYear);
        });
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

    // Rows of one station that all have the same time tell but a part of it.
    void judgeSteps()
    {
        if (has(Role::Station) || m_mapping.columns.empty())
            return;
        std::vector<std::size_t> columns;
        for (std::size_t i = 0; i < m_mapping.columns.size(); ++i)
            if (const Role role = m_mapping.columns[i].role;
                role == Role::Time || (role >= Role::Year && role <= Role::Second))
                columns.push_back(i);
        std::size_t pairs = 0;
        std::size_t same = 0;
        const Row* before = nullptr;
        for (const Row& row : m_table.look) {
            if (!row.refused.empty() || columns.empty())
                continue;
            if (before != nullptr) {
                ++pairs;
                same += std::all_of(columns.begin(), columns.end(),
                                    [&](std::size_t i) { return row.cells[i] == before->cells[i]; })
                            ? 1U
                            : 0U;
            }
            before = &row;
        }
        if (2 * same > pairs)
            m_mapping.doubts.emplace_back(
                "Most rows have the time of the row before; the hour or the station "
                "may stand in a column that is carried along.");
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
