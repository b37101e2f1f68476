// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the models of this room share: how an input is described and looked at, and what stands behind a
// value. A model looks at its inputs in the order of its list and gives its figures with a Verdict; where
// there is none to give, its figures are NaN.
//
// Roots are found by formulas/bracketed_root.h, to 1e-9 in the unit of the unknown.
#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

namespace comfortics::standards {

inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

enum class Standing : std::uint8_t {
    Ok,
    Outside, ///< a value, though an input or the value itself is beyond the range of the model
    None,    ///< no value
};

enum class Reason : std::uint8_t {
    Nothing,       ///< all is well
    BeyondRange,   ///< beyond the range of the model: a mark, or by Limits::Blank no value
    Missing,       ///< an input is NaN
    BeyondPhysics, ///< an input that no air, body or cloth has
    NoRoot,        ///< the balance has no root where it was looked for
    Undefined,     ///< a step has no result, such as the root of a negative number
    HeatToSpare,   ///< no clothing is required
    Unlimited,     ///< no limit within the time that the model looks at
    NoRestHere,    ///< even rest is beyond the limit
    BelowHorizon,  ///< a beam of a sun that is not up
};

/// What becomes of a value beyond the range of its model.
enum class Limits : std::uint8_t { Mark, Blank };

/// What stands behind a figure or a set of them.
struct Verdict {
    Standing standing = Standing::Ok;
    Reason reason = Reason::Nothing;
    /// The name of the input or result concerned, or empty. Of static storage.
    std::string_view about{};

    bool hasValue() const noexcept { return standing != Standing::None; }

    friend bool operator==(const Verdict&, const Verdict&) = default;
};

/// What an input is, which bounds it whatever the model.
enum class Quantity : std::uint8_t {
    Temperature, ///< -100..150 °C
    Humidity,    ///< 0..100 %
    Speed,       ///< 0 m/s and more
    Flux,        ///< 0 and more, in met, W/m² or W; vapour pressures, too
    Clothing,    ///< 0..5 clo
    Pascal,      ///< pressure of the air, 30000..110000 Pa
    Hectopascal, ///< the same in hPa, 300..1100
    Positive,    ///< more than 0: a weight, a length, an age
    Any,         ///< a number of either sign
};

/// More than any quantity is in the units of this room, and little enough that no power of it overflows.
/// Where nothing else bounds a quantity this does.
inline constexpr double kLargest = 1e9;

/// Both ends belong to it.
struct Interval {
    double low = -kInfinity;
    double high = kInfinity;

    /// False for NaN.
    constexpr bool contains(double value) const noexcept { return value >= low && value <= high; }
};

/// The bounds of a quantity. Those of Positive leave out 0.
constexpr Interval physicalBounds(Quantity quantity) noexcept
{
    switch (quantity) {
    case Quantity::Temperature:
        return {-100, 150};
    case Quantity::Humidity:
        return {0, 100};
    case Quantity::Speed:
    case Quantity::Flux:
        return {0, kLargest};
    case Quantity::Clothing:
        return {0, 5};
    case Quantity::Pascal:
        return {30'000, 110'000};
    case Quantity::Hectopascal:
        return {300, 1100};
    case Quantity::Positive:
        return {1 / kLargest, kLargest};
    case Quantity::Any:
        break;
    }
    return {-kLargest, kLargest};
}

/// One input of a model, or a result that has a range: the one place of its name and range.
struct Input {
    std::string_view name;
    Quantity quantity = Quantity::Any;
    Interval range{}; ///< of the model
};

/// The looking at one set of inputs. The first thing that takes the value away stays, or else the first
/// mark.
class Examination {
public:
    explicit Examination(Limits limits = Limits::Mark) noexcept : m_limits(limits) {}

    /// Whether it is a number, within the bounds of its quantity and within the range of the model.
    void look(const Input& input, double value) noexcept
    {
        if (!(physicalBounds(input.quantity).contains(value) && input.range.contains(value)))
            object(input, value);
    }

    /// Beyond a range that depends on more than one input.
    void mark(std::string_view about) noexcept;
    void refuse(Reason reason, std::string_view about = {}) noexcept;

    bool hasValue() const noexcept { return m_verdict.hasValue(); }
    const Verdict& verdict() const noexcept { return m_verdict; }

private:
    void object(const Input& input, double value) noexcept;

    Limits m_limits;
    Verdict m_verdict;
};

} // namespace comfortics::standards
