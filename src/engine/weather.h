// SPDX-License-Identifier: GPL-3.0-or-later
//
// The quantities of a block of points: the readings, and what is derived from them.
#pragma once

#include "engine/point_runner.h"
#include "engine/recipe.h"

#include <comfortics/calculation.h>

#include <array>
#include <cstddef>
#include <initializer_list>

namespace comfortics::engine {

/// Figures of a block of points.
struct Figures {
    const double* values = nullptr;   ///< defined where the status is Value
    const Status* statuses = nullptr; ///< defined unless all are Value
    bool allValues = false;
};

/// The quantities of one block, each derived when it is first asked for.
class Weather {
public:
    /// Both must outlive it.
    Weather(const Readings& readings, const Assumptions& assumptions);

    /// Goes to the points first to first + count - 1; count is no more than kBlockPoints.
    void begin(std::size_t first, std::size_t count);
    std::size_t first() const noexcept { return m_first; }
    std::size_t count() const noexcept { return m_count; }

    const Figures& of(Quantity quantity);

    /// The air that a heat balance can be made of: Undefined where the dew point lies above the air
    /// temperature. It has statuses alone.
    const Figures& air();

    PointRunner& runner() noexcept { return m_runner; }

    /// Puts the first status of the sources that is none of a value into `statuses`, or Value. Returns
    /// whether all are Value; `statuses` are written in any case.
    bool combine(std::initializer_list<const Figures*> sources, Status* statuses) const;
    bool combine(std::span<const std::optional<Quantity>> sources, Status* statuses);

    /// Leaves out the points where one source more has no value. Returns whether it has all.
    bool alsoOf(const Figures& source, Status* statuses) const;

    /// The values of a formula's inputs.
    InputPointers inputs(const Recipe& recipe);

private:
    struct Place { // NOLINT(cppcoreguidelines-pro-type-member-init): written before it is read
        BlockValues values;
        BlockStatuses statuses;
        Figures figures;
        bool known = false;
    };

    void read(Quantity quantity, const Column& column);
    void derive(Quantity quantity);
    void derive(const Recipe& recipe, Place& place);
    template <typename Root>
    void solve(Place& place, std::initializer_list<const Figures*> inputs, Root root);
    void loseImpossible(Place& dewPoint);
    void judgeAir();
    Place& at(Quantity quantity) { return m_places[place(quantity)]; }

    const Readings& m_readings;
    std::size_t m_first = 0;
    std::size_t m_count = 0;
    std::array<Place, kQuantityCount> m_places;
    Place m_air;
    PointRunner m_runner;
};

/// The column of the readings that is a quantity; null for derived ones.
const Column* reading(const Readings& readings, Quantity quantity) noexcept;

} // namespace comfortics::engine
