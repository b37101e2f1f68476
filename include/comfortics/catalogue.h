// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#pragma GCC visibility push(default)
namespace comfortics {

/// What is read or derived before any index: the inputs of the indices, and the targets of calculate() beside
/// them.
enum class Quantity : std::uint8_t {
    AirTemperature,                  ///< Ta [°C]
    GlobeTemperature,                ///< Tg, of a black globe of 50 mm [°C]
    SolarRadiation,                  ///< SR, global, on a horizontal plane [W/m²]
    DewPoint,                        ///< Td [°C]
    RelativeHumidity,                ///< RH, over water [%]
    WindSpeed,                       ///< WS, as measured, taken to stand 1.1 m above ground [m/s]
    MeanRadiantTemperature,          ///< Tmrt [°C]
    NaturalWetBulbTemperature,       ///< Tnwb [°C]
    PsychrometricWetBulbTemperature, ///< Tpwb [°C]
    SaturationVapourPressure,        ///< Es, over water at the air temperature [hPa]
    VapourPressure,                  ///< Ea [hPa]
    WbgtOutdoor,                     ///< 0.7 Tnwb + 0.2 Tg + 0.1 Ta [°C]
    WindSpeedAt10m,                  ///< the wind taken to 10 m by the power law [m/s]
};

/// How many quantities there are.
inline constexpr std::size_t kQuantityCount = 13;

/// The names of a quantity.
struct QuantityInfo {
    std::string_view id;     ///< in lower_snake_case, for instance "mean_radiant_temperature"
    std::string_view symbol; ///< for instance "Tmrt"
    std::string_view name;   ///< for instance "Mean radiant temperature"
    std::string_view unit;   ///< for instance "°C"
};

/// What a quantity is called.
const QuantityInfo& info(Quantity quantity) noexcept;

/// The quantity of an id or a symbol, whatever its case.
std::optional<Quantity> findQuantity(std::string_view idOrSymbol) noexcept;

/// What kind of index it is.
enum class Family : std::uint8_t {
    ApparentTemperature,
    HumidHeat,
    CoolingPower,
    Cold,
    ComfortVote,
    Physiology,
    Radiation,
    Psychrometry,
};

/// For instance "Cooling power".
std::string_view familyName(Family family) noexcept;

/// What the temperature limits of an index bound [°C].
enum class Judged : std::uint8_t {
    AirTemperature,
    NaturalWetBulbTemperature,
    MeanOfRadiantAndAir, ///< (Tmrt + Ta) / 2
    RadiantLessAir,      ///< Tmrt - Ta [K]
    WbgtOutdoor,
};

/// The range in which an index is taken to be valid; all ends are inside.
struct Limits {
    bool bounded = false;                   ///< whether there are any
    Judged judged = Judged::AirTemperature; ///< what the temperature limits bound
    double temperatureLow = 0;              ///< [°C]
    double temperatureHigh = 0;             ///< [°C]
    bool windBounded = false;               ///< whether there are limits of the wind
    bool windAt10m = false;                 ///< the wind limits bound the wind at 10 m, not the measured one
    double windLow = 0;                     ///< [m/s]
    double windHigh = 0;                    ///< [m/s]
};

/// How well the literature of an index is known.
enum class Confidence : std::uint8_t {
    Sure,     ///< title and place are those of the publication
    Likely,   ///< from memory; a detail may be off
    NameOnly, ///< author and year as in the name of the index, nothing more
};

/// Where an index was published.
struct Reference {
    std::string_view authors;                     ///< for instance "Yaglou CP, Minard D"
    std::string_view year;                        ///< of the publication
    std::string_view title;                       ///< empty where only the name is known
    std::string_view published;                   ///< journal, publisher or page
    std::string_view where;                       ///< equation, table, or what differs from the publication
    Confidence confidence = Confidence::NameOnly; ///< how sure all this is

    /// Authors, year, title and place in one line.
    std::string citation() const;
};

/// A class of values of an index, as published: from `lower` up to but without `upper`, in the index's unit.
struct Category {
    double lower = 0;       ///< minus infinity for the first
    double upper = 0;       ///< infinity for the last
    std::string_view label; ///< in words
    /// 0 no thermal stress, 1 slight, 2 moderate, 3 strong, 4 extreme; minus for cold. A judgement made for
    /// all indices together, not that of the source. Of the percentages of dissatisfied (123 to 127) it is a
    /// magnitude, whose sign is that of the vote with the same activity (118 to 122).
    int severity = 0;
    std::string_view note; ///< what to do or to know; often empty
};

/// One of the 222 indices.
struct Index {
    int number = 0;        ///< from 1, never changed
    std::string_view id;   ///< in lower_snake_case, for instance "humidex_masterson"; never changed
    std::string_view name; ///< as published and as all outputs have it, author and year included
    std::string_view unit; ///< "[-]" where there is none
    Family family = Family::ApparentTemperature; ///< what kind it is
    std::span<const Quantity> inputs;            ///< of its formula, in order
    bool readsAssumptions = false;               ///< its formula reads site and body, see Assumptions
    Limits limits;                               ///< in which it is taken to be valid
    Reference reference;                         ///< where it was published
    std::span<const Category> categories; ///< ascending, without gaps; empty where no scale is published
    std::string_view categorySource;      ///< where the classes are from
};

/// How many indices there are.
inline constexpr std::size_t kIndexCount = 222;

/// All indices by number: index 1 comes first.
std::span<const Index, kIndexCount> indices() noexcept;

/// The index of a number. Throws std::out_of_range unless it is from 1 to 222.
const Index& index(int number);

/// The index of an id, null where there is none.
const Index* findIndex(std::string_view id) noexcept;

/// The indices that hold all words of a text in their name, number, abbreviation (WBGT, UTCI, PMV), authors,
/// year, id, family or unit, the best first; where none does, those whose description holds them. The order
/// of the words, case, accents and punctuation make no difference. Without a word, all. Any number of threads
/// may search at once.
std::vector<const Index*> searchIndices(std::string_view words);

/// The class of a value; null for NaN and where no scale is published.
///
/// A class means something only inside the limits of the index, and for 19, 136 and 137 only below the vapour
/// pressure where their sign turns: calculate() heeds both.
const Category* categoryOf(const Index& index, double value) noexcept;

} // namespace comfortics
#pragma GCC visibility pop
