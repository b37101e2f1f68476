// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the values of an index mean: its published classes, from data/categories.csv.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace comfortics::catalogue {

/// One class of values, from `lower` up to but without `upper`, in the index's unit.
struct Category {
    double lower; ///< minus infinity for the first
    double upper; ///< infinity for the last
    std::string_view label;
    /// From -4 to 4: no thermal stress, slight, moderate, strong, extreme; minus for cold. A judgement made
    /// for all indices together, not that of the source.
    int severity;
    std::string_view note; ///< what to do or to know; often empty
};

/// The classes of one index.
struct Scale {
    std::span<const Category> categories; ///< ascending, without gaps; empty where no scale is published
    std::string_view source;
    bool fromStandardLiterature = false; ///< as commonly printed; not read in the source itself

    /// The class of a value; null for NaN and where there is no scale.
    const Category* of(double value) const noexcept;
};

/// Of index 1 to kLastIndex.
const Scale& scale(int index);

/// What a value means: its class, and the severity with its sign.
struct Meaning {
    const Category* category;
    int severity;
};

/// What the meaning of a value depends on besides.
struct Surroundings {
    double Ta = 0; ///< air temperature [°C]
    double Ea = 0; ///< vapour pressure [hPa]
    /// The mean vote of voteBeside(), for a scale that tells how many are dissatisfied and not why.
    std::optional<double> vote{};
};

/// What a value inside its limits means. None where no scale is published, beyond the poles of indices 19,
/// 136 and 137, where damp heat turns their sign, and where the sign of a percentage of dissatisfied is not
/// known.
std::optional<Meaning> meaning(int index, double value, const Surroundings& surroundings);

/// "+3", "0", "-2".
std::string signedSeverity(int severity);

/// "danger (+3)": the class and its severity with the sign.
std::string inWords(const Meaning& meaning);

/// The values of a class of an index: "from 27.8 to below 29.4 °C", "below 0" for a number without a unit.
std::string boundsInWords(int index, const Category& category);

/// What a value means in a few lines: class, severity and bounds, what to do, and where the classes are from.
std::string meaningNote(int index, const Meaning& meaning);

/// The mean vote with the same activity as a percentage of dissatisfied (118 for 123 to 122 for 127); 0 for
/// any other index.
int voteBeside(int index);

/// Whether damp heat can turn the sign of an index.
bool hasPole(int index);

/// Whether it has. Ta in °C, Ea in hPa.
bool isBeyondPole(int index, double Ta, double Ea);

} // namespace comfortics::catalogue
