// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/known_columns.h"

#include "tables/words.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <vector>

namespace comfortics::tables {

namespace {

using enum Quantity;

constexpr double kHour = 3600; // [s]
constexpr double kTenMinutes = 600;
constexpr double kDay = 86400;

constexpr KnownColumn read(std::string_view words, Quantity quantity, std::string_view unit,
                           double height = 0, double step = 0)
{
    return {words, Role::Reading, quantity, unit, height, step};
}

constexpr KnownColumn unsure(std::string_view words, Quantity quantity, std::string_view unit, double height,
                             std::string_view doubt)
{
    return {words, Role::Reading, quantity, unit, height, 0, doubt};
}

constexpr KnownColumn as(std::string_view words, Role role)
{
    return {words, role};
}

constexpr auto kGermany = std::to_array<KnownColumn>(
    {read("TT_TU", Ta, "°C"), read("RF_TU", RH, "%"), read("TT_10", Ta, "°C"), read("RF_10", RH, "%"),
     read("TD_10", Td, "°C"), read("FF_10", WS, "m/s", 10), read("FF", WS, "m/s", 10),
     read("F", WS, "m/s", 10), read("FG_LBERG", SR, "J/cm2", 0, kHour),
     read("GS_10", SR, "J/cm2", 0, kTenMinutes), read("TT", Ta, "°C"), read("TD", Td, "°C"),
     read("TT_STD", Ta, "°C"), read("RF_STD", RH, "%"), read("TD_STD", Td, "°C"), read("VP_STD", Ea, "hPa"),
     // of days
     read("TMK", Ta, "°C"), read("UPM", RH, "%"), read("VPM", Ea, "hPa"), read("FM", WS, "m/s", 10),
     read("FG_STRAHL", SR, "J/cm2", 0, kDay), as("STATIONS_ID", Role::Station),
     as("MESS_DATUM", Role::Time)});
constexpr auto kFrance = std::to_array<KnownColumn>(
    {read("T", Ta, "°C"), read("TD", Td, "°C"), read("U", RH, "%"), read("FF", WS, "m/s", 10),
     read("GLO", SR, "J/cm2", 0, kHour), as("AAAAMMJJHH", Role::Time), as("POSTE", Role::Station),
     // of days
     read("TM", Ta, "°C"), read("UM", RH, "%"), read("TSVM", Ea, "hPa"), read("FFM", WS, "m/s", 10),
     read("GLOT", SR, "J/cm2", 0, kDay), as("AAAAMMJJ", Role::Time), as("NUM_POSTE", Role::Station)});
constexpr auto kFranceReports = std::to_array<KnownColumn>(
    {read("t", Ta, "K"), read("td", Td, "K"), read("u", RH, "%"), read("ff", WS, "m/s", 10),
     as("date", Role::Time), as("numer_sta", Role::Station)});
constexpr auto kSwitzerland = std::to_array<KnownColumn>(
    {read("tre200", Ta, "°C"), read("tde200", Td, "°C"), read("ure200", RH, "%"),
     read("fkl010", WS, "m/s", 10), read("fu3010", WS, "km/h", 10), read("gre000", SR, "W/m2"),
     as("stn", Role::Station), as("station_abbr", Role::Station), as("time", Role::Time),
     as("reference_timestamp", Role::Time)});
constexpr auto kAustria = std::to_array<KnownColumn>({read("tl", Ta, "°C"), read("tp", Td, "°C"),
                                                      read("rf", RH, "%"), read("ff", WS, "m/s", 10),
                                                      read("ffam", WS, "m/s", 10), read("cglo", SR, "W/m2"),
                                                      as("time", Role::Time), as("station", Role::Station)});
constexpr auto kNetherlands =
    std::to_array<KnownColumn>({read("T", Ta, "0.1 °C"), read("TD", Td, "0.1 °C"), read("U", RH, "%"),
                                read("FH", WS, "0.1 m/s", 10), read("Q", SR, "J/cm2", 0, kHour),
                                as("STN", Role::Station), as("YYYYMMDD", Role::Time), as("HH", Role::Time)});
constexpr auto kNetherlandsDays = std::to_array<KnownColumn>(
    {read("TG", Ta, "0.1 °C"), read("UG", RH, "%"), read("FG", WS, "0.1 m/s", 10),
     read("Q", SR, "J/cm2", 0, kDay), as("STN", Role::Station), as("YYYYMMDD", Role::Time)});
constexpr auto kSpain = std::to_array<KnownColumn>({read("ta", Ta, "°C"), read("tpr", Td, "°C"),
                                                    read("hr", RH, "%"), read("vv", WS, "m/s", 10),
                                                    as("fint", Role::Time), as("idema", Role::Station)});
constexpr auto kAirports =
    std::to_array<KnownColumn>({read("tmpf", Ta, "F"), read("dwpf", Td, "F"), read("tmpc", Ta, "°C"),
                                read("dwpc", Td, "°C"), read("relh", RH, "%"), read("sknt", WS, "kn", 10),
                                as("valid", Role::Time), as("station", Role::Station)});
constexpr std::string_view kOldOrNew =
    "Older files of the service have it in F and mph, newer ones in °C and m/s.";
constexpr auto kLocalData = std::to_array<KnownColumn>(
    {unsure("HourlyDryBulbTemperature", Ta, "F", 0, kOldOrNew),
     unsure("HourlyDewPointTemperature", Td, "F", 0, kOldOrNew), read("HourlyRelativeHumidity", RH, "%"),
     unsure("HourlyWindSpeed", WS, "mph", 10, kOldOrNew), as("DATE", Role::Time),
     as("STATION", Role::Station)});
constexpr auto kGlobalHourly = std::to_array<KnownColumn>(
    {read("temperature", Ta, "°C"), read("dew_point_temperature", Td, "°C"),
     read("relative_humidity", RH, "%"), read("wind_speed", WS, "m/s", 10), as("STATION", Role::Station),
     as("Station_ID", Role::Station), as("DATE", Role::Time)});
constexpr auto kAustralia =
    std::to_array<KnownColumn>({read("air_temp", Ta, "°C"), read("dewpt", Td, "°C"), read("rel_hum", RH, "%"),
                                read("wind_spd_kmh", WS, "km/h", 10),
                                as("local_date_time_full[80]", Role::Time), as("wmo", Role::Station)});
constexpr auto kTypicalYear = std::to_array<KnownColumn>(
    {read("T2m", Ta, "°C"), read("RH", RH, "%"), read("G(h)", SR, "W/m2"), read("WS10m", WS, "m/s", 10)});
constexpr auto kAmateurs = std::to_array<KnownColumn>(
    {read("tempf", Ta, "F"), read("dewptf", Td, "F"), read("humidity", RH, "%"),
     read("solarradiation", SR, "W/m2"), read("windspeedmph", WS, "mph"), as("dateutc", Role::Time)});
constexpr auto kMonitor = std::to_array<KnownColumn>({read("temp", Ta, "°C"), read("dwpt", Td, "°C"),
                                                      read("rhum", RH, "%"), read("wspd", WS, "km/h", 10),
                                                      as("date", Role::Time), as("hour", Role::Hour)});
constexpr auto kReanalysis = std::to_array<KnownColumn>(
    {read("t2m", Ta, "K"), read("d2m", Td, "K"), read("si10", WS, "m/s", 10),
     read("ssrd", SR, "J/m2", 0, kHour), as("time", Role::Time), as("valid_time", Role::Time)});
constexpr auto kPower = std::to_array<KnownColumn>(
    {read("T2M", Ta, "°C"), read("T2MDEW", Td, "°C"), read("RH2M", RH, "%"), read("WS2M", WS, "m/s", 2),
     read("WS10M", WS, "m/s", 10), read("ALLSKY_SFC_SW_DWN", SR, "Wh/m2", 0, kHour), as("YEAR", Role::Year),
     as("MO", Role::Month), as("DY", Role::Day), as("HR", Role::Hour)});

struct Service {
    std::string_view name;
    std::array<std::string_view, 3> mark; // names that stand together in no other's files; some may be empty
    std::span<const KnownColumn> columns;
};

constexpr Service kServices[] = {
    {"the German weather service", {"MESS_DATUM", "STATIONS_ID", ""}, kGermany},
    {"the French weather service", {"AAAAMMJJHH", "", ""}, kFrance},
    {"the French weather service", {"AAAAMMJJ", "", ""}, kFrance},
    {"the French weather service", {"numer_sta", "pmer", "niv_bar"}, kFranceReports},
    {"the Swiss weather service", {"tre200", "", ""}, kSwitzerland},
    {"the Austrian weather service", {"cglo", "tl", ""}, kAustria},
    {"the weather service of the Netherlands", {"YYYYMMDD", "STN", "FH"}, kNetherlands},
    {"the weather service of the Netherlands", {"YYYYMMDD", "STN", "FG"}, kNetherlandsDays},
    {"the Spanish weather service", {"fint", "idema", "vv"}, kSpain},
    {"the archive of airports' reports", {"tmpf", "sknt", ""}, kAirports},
    {"the archive of airports' reports", {"tmpc", "sknt", ""}, kAirports},
    {"the climatological data of the United States",
     {"HourlyDryBulbTemperature", "REPORT_TYPE", ""},
     kLocalData},
    {"the archive of hourly reports",
     {"temperature", "dew_point_temperature", "wet_bulb_temperature"},
     kGlobalHourly},
    {"the archive of hourly reports",
     {"dew_point_temperature", "temperature_Measurement_Code", ""},
     kGlobalHourly},
    {"the Australian weather service", {"aifstime_utc[80]", "air_temp", "wind_spd_kmh"}, kAustralia},
    {"the European solar data", {"T2m", "G(h)", "WS10m"}, kTypicalYear},
    {"the network of amateurs", {"tempf", "windspeedmph", ""}, kAmateurs},
    {"an archive of hourly observations", {"dwpt", "rhum", "wspd"}, kMonitor},
    {"the European reanalysis", {"t2m", "d2m", ""}, kReanalysis},
    {"the satellite data for energy and agriculture", {"T2M", "RH2M", "YEAR"}, kPower},
};

// Some services end the names of a measurement with a mark of the interval and of what of it is meant, as
// "tre200h0": 0 for the mean, others for extremes.
bool isCalled(const std::vector<std::string>& name, std::string_view called)
{
    const std::vector<std::string> wanted = words(called);
    const bool measured = wanted.size() == 2 && wanted[1].size() >= 3;
    return name == wanted || (measured && name.size() == 4 && name.back() == "0" &&
                              std::equal(wanted.begin(), wanted.end(), name.begin()));
}

} // namespace

std::optional<KnownService> KnownService::of(const Layout& layout)
{
    std::vector<std::vector<std::string>> names;
    for (const std::string& name : layout.names)
        names.push_back(words(name));
    const auto stands = [&names](std::string_view called) {
        return called.empty() || std::any_of(names.begin(), names.end(),
                                             [called](const auto& name) { return isCalled(name, called); });
    };
    for (std::size_t place = 0; place < std::size(kServices); ++place)
        if (std::all_of(kServices[place].mark.begin(), kServices[place].mark.end(), stands))
            return KnownService(place);
    return std::nullopt;
}

std::string_view KnownService::name() const noexcept
{
    return kServices[m_place].name;
}

const KnownColumn* KnownService::column(std::string_view name) const
{
    const std::vector<std::string> all = words(name);
    for (const KnownColumn& column : kServices[m_place].columns)
        if (isCalled(all, column.words))
            return &column;
    return nullptr;
}

} // namespace comfortics::tables
