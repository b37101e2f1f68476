// SPDX-License-Identifier: GPL-3.0-or-later
//
// Walks in equal steps, without walking them.
//
// Two indices look for their answer by adding a constant step again and again, hundreds of
// thousands of times. Their result hangs on the last bits of the points they meet, and these are
// not start + n * step: each addition rounds. The classes below give the same points at once, so
// that a search can skip the points at which it is certain to go on.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace comfortics::formulas {

/// The points start, start + step, (start + step) + step, ... of repeated rounded addition.
///
/// Between two powers of two the representable numbers lie at equal distances, so each addition
/// moves by the same amount there. Only the steps across a power of two, across zero and into a new
/// such stretch are made one by one: the whole walk, up to the point at which the step no longer
/// moves it, is a short table. Immutable once built, so any number of threads may share one.
class SteppedWalk {
public:
    /// A walk from `start` by `step`, both finite, the step not 0.
    SteppedWalk(double start, double step);

    /// The number of steps after which the walk stands still: a further addition of the step gives
    /// the same point again (or, with an enormous step, no finite one).
    std::uint64_t length() const noexcept { return m_length; }

    /// The point after n steps, n <= length(), bit for bit that of n additions.
    double at(std::uint64_t n) const noexcept;

    /// The number of steps to the last point that does not lie beyond `value`; 0 where even the
    /// start does.
    std::uint64_t stepsTo(double value) const noexcept;

private:
    /// Points origin + k * stride for k = 0, 1, ... up to the next stretch; every product and sum is exact.
    struct Stretch {
        std::uint64_t first;
        double origin;
        double stride;
    };

    double m_step;
    std::uint64_t m_length = 0;
    std::vector<Stretch> m_stretches;
};

/// What a search sees from one point of its walk.
struct Outlook {
    /// The search certainly goes on in the walk's direction, here and at every earlier point from
    /// which it has not looked yet.
    bool certain;
    /// Where the search is expected to end. A guess: a bad one costs time, never the result.
    double target;
};

/// The number of a point that a search along `walk` certainly passes, given that it passes point
/// `from`: the last such point, or one at most two steps before the expected end. `look` takes a
/// point of the walk to its Outlook.
template <typename Look>
std::uint64_t lastCertainStep(const SteppedWalk& walk, std::uint64_t from, Look look)
{
    // Guesses that converge at all have done so by then; halving ends every search.
    constexpr int kGuesses = 16;
    std::uint64_t passed = from;
    std::uint64_t open = walk.length() + 1;
    Outlook outlook = look(walk.at(from));
    for (int guesses = 0; open - passed > 1; ++guesses) {
        const std::uint64_t target = walk.stepsTo(outlook.target);
        if (outlook.certain && target <= passed + 2)
            break; // walking the rest is cheaper than looking for it
        const std::uint64_t next =
            guesses < kGuesses ? std::clamp(target, passed + 2, open) - 1 : passed + (open - passed) / 2;
        outlook = look(walk.at(next));
        (outlook.certain ? passed : open) = next;
    }
    return passed;
}

} // namespace comfortics::formulas
