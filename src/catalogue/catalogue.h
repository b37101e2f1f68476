// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formulas/formula_call.h"
#include "formulas/live_quantity.h"
#include "values/format.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <string_view>

namespace comfortics::catalogue {

using formulas::FormulaCall;
using formulas::FormulaInputs;
using formulas::kMostInputs;

inline constexpr std::size_t kIndexCount = 222;
inline constexpr int kLastIndex = static_cast<int>(kIndexCount); ///< they are numbered from 1

/// Where an input of an index comes from.
enum class Input : std::uint8_t {
    // The captions of the live quantities, read as numbers; in the order of formulas::Live.
    Ta,
    Tg,
    SR,
    Td,
    RH,
    WS,
    Tmrt,
    Tnwb,
    Tpwb,
    Es,
    Ea,      ///< computed from the dew point's caption for each index that needs it [hPa]
    Wbgt,    ///< the outdoor WBGT that the calculation kept, through its number text [°C]
    StaleEa, ///< whatever an earlier block of the same procedure left in its vapour pressure
    Unset,   ///< a variable that nothing assigns: counts as 0
    // The raw texts of the reading boxes, in the order of Reading.
    TextTa,
    TextTg,
    TextSR,
    TextTd,
    TextRH,
    TextWS,
    WindAt10m, ///< wind of the box's text taken to 10 m, a plain number [m/s]
};

/// The live quantity whose caption an input reads; none for the other inputs, `Ea` among them.
constexpr std::optional<formulas::Live> liveOf(Input input)
{
    return input < Input::Ea ? std::optional(static_cast<formulas::Live>(input)) : std::nullopt;
}

/// Name of an input for tables and documents, for instance "Ta" or "text of Ta".
std::string_view inputName(Input input);

/// The inputs of an index in calling order.
class InputList {
public:
    constexpr InputList() = default;
    constexpr InputList(std::initializer_list<Input> inputs)
    {
        for (const Input input : inputs)
            m_inputs[m_size++] = input;
    }
    constexpr const Input* begin() const { return m_inputs.data(); }
    constexpr const Input* end() const { return m_inputs.data() + m_size; }
    constexpr std::size_t size() const { return m_size; }

private:
    std::array<Input, kMostInputs> m_inputs{};
    std::size_t m_size = 0;
};

/// What decides whether a selected index is evaluated.
enum class Gate : std::uint8_t {
    None,   ///< nothing
    Number, ///< temperature and wind limits, compared as numbers
    Text,   ///< as Number, but the temperature test compares texts character by character
};

/// The quantity that the temperature limits bound [°C].
enum class Gated : std::uint8_t { Ta, Tnwb, MeanOfTmrtAndTa, TmrtLessTa, WBGT_Outdoor };

/// Name of a gated quantity, for instance "(Tmrt + Ta) / 2".
std::string_view gatedName(Gated gated);

/// The wind that the wind limits bound [m/s].
enum class GateWind : std::uint8_t { AsMeasured, At10m };

/// How an index is evaluated: by the template, its inputs given to its formula, or by a block of its own
/// that runs a model or takes its inputs in another way.
enum class Block : std::uint8_t {
    Template,
    MeanRadiantTemperature,        ///< 100
    Utci,                          ///< 195
    RadiativeEffectiveTemperature, ///< 196
    WbgtIndoor,                    ///< 199
    WbgtOutdoor,                   ///< 200
    WetKata,                       ///< 208
};

/// One index: everything the driver and the tables know of it.
struct CatalogueRow {
    int number = 0;
    std::string_view name;
    std::string_view unit;
    Gate gate = Gate::Number;
    Gated gated = Gated::Ta;
    GateWind gateWind = GateWind::AsMeasured;
    InputList inputs;
    InputList robustInputs{}; ///< what the row reads in their place by the robust rules, where that differs
    FormulaCall formula{};
    Block block = Block::Template;
    values::Format format = values::kFormat0_0;

    /// Author and year of the published formula, from the end of the name; empty for read-outs
    /// whose name gives none.
    std::string_view source() const;

    /// The unit beside a value; empty where the index has none, which lists tell as "[-]".
    constexpr std::string_view shownUnit() const { return unit == "[-]" ? std::string_view() : unit; }
};

/// The indices; row i - 1 is index i.
std::span<const CatalogueRow, kIndexCount> rows();

/// Row of index 1 to kLastIndex.
const CatalogueRow& row(int index);

} // namespace comfortics::catalogue
