// SPDX-License-Identifier: GPL-3.0-or-later
//
// The models that work on the texts of the reading boxes: outdoor and indoor wet-bulb globe
// temperature, the Universal Thermal Climate Index and the mean radiant temperature.
//
// How they read their arguments:
//   - a reading that is absent is the empty text or the number -99, as a number or as a text;
//   - a number assigned to an argument that is a text becomes its plain number text, 15 digits,
//     and later steps read it back from there;
//   - "the dew point is above the air temperature" compares two texts by character code, so that
//     9.3 is above 20; deliberate;
//   - arithmetic takes a numeric text for its number and fails on any other.
#pragma once

#include "classic/desk.h"
#include "classic/solve_memory.h"
#include "formulas/rules.h"
#include "models/solvers.h"
#include "texts/variant.h"

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <utility>

namespace comfortics::classic {

using models::Solution;
using texts::Variant;
using values::Number;

/// The floor before both solvers: a wind that is a number below vmin becomes vmin, in the caller's
/// variable too. One that is still a text stands: a number is below every text.
void raiseToMinimumWind(Variant& v, Number vmin);

/// Fails with the sentence where an air, globe or dew point temperature [°C] is below absolute zero.
void mustBeAboveAbsoluteZero(formulas::Live temperature, Number celsius);

/// The module of the iterative heat-balance models. Holds the memory of one calculation's solves:
/// a solve asked for again is answered from there, with the captions and messages of the first.
///
/// The models answer with a double; Empty if both readings of a pair are -99; "" if both are
/// empty; "Error:" if both are given or the dew point is above the air temperature. They explain a
/// text to the desk before they return it. A solver that does not converge shows a message, and
/// its temperature is Empty, so 0 in what follows; by the robust rules the root of its balance takes
/// its place, and where there is none the model fails. Arithmetic without a defined result throws
/// RunFailure.
///
/// Units: Ta, Tg, Td [°C], WS [m/s], SR [W/m²], RH [%].
class WBGT_UTCI {
public:
    explicit WBGT_UTCI(Desk& desk) : m_desk(desk) {}

    /// The rules of the calls that follow; classic at first. By the robust ones the dew point is
    /// compared with the air temperature as a number, the psychrometric search ends in saturated air,
    /// no temperature is below absolute zero, and a globe, wet bulb or radiation that cannot be
    /// derived fails the model instead of counting as 0.
    void setRules(formulas::Rules rules) { m_rules = rules; }

    /// Universal Thermal Climate Index [°C] (Bröde et al., 2009). Overwrites whichever of Td and RH
    /// is absent, Tg if absent, and a WS that is a number below 0.1 where it derives Tg. Writes the
    /// caption of the humidity that it derives.
    Variant UTCI_Regression(Variant& Ta, Variant& Tg, Variant& Td, Variant& WS, Variant& SR, Variant& RH);

    /// Outdoor wet-bulb globe temperature [°C] (Liljegren et al., 2008; weights by Yaglou and
    /// Minard, 1957). Overwrites whichever of Td and RH, of Tg and SR is absent and writes the
    /// captions of what it derives, with entry 159 for SR, and that of Tnwb. SR is an integer, at
    /// most 1376; where that is not enough for Tg, an empty SR fails as a text that is no number.
    Variant WBGT_Outdoor(Variant& Ta, Variant& Tg, Variant& Td, Variant& WS, Variant& SR, Variant& RH);

    /// Indoor wet-bulb globe temperature [°C] (Bernard and Pourmoghani, 1999). Overwrites Td if RH
    /// is given and a WS below 0.1, text or number. Writes the caption of Tpwb, also where the
    /// result is "Error:".
    Variant WBGT_Indoor(Variant& Ta, Variant& Td, Variant& WS, Variant& RH);

    /// Mean radiant temperature [°C]. Overwrites Tg if it is absent and SR is given; the humidity is
    /// not known here and the globe is solved for 60 %. Writes the caption of Tmrt as plain text,
    /// "Error:" included.
    Variant Mean_Radiant_Temperature_Model(Variant& Ta, Variant& Tg, Variant& SR, Variant& WS);

private:
    std::optional<Variant> completeHumidity(const Variant& Ta, const Variant& Tg, Variant& Td,
                                            const Variant& SR, Variant& RH);
    bool isDewPointAbove(const Variant& Td, const Variant& Ta);
    Variant answer(const char* text, std::string why);

    Variant Globe_Temperature_Model(const Variant& Ta, const Variant& RH, Variant& WS, const Variant& SR);
    Variant Natural_Wet_Bulb(const Variant& Ta, const Variant& Td, const Variant& RH, Variant& WS,
                             const Variant& SR);
    std::optional<std::int16_t> searchRadiation(const Variant& Ta, const Variant& RH, Variant& WS,
                                                const Variant& Tg, int last);
    Number psychrometricWetBulb(const Variant& Ta, const Variant& Td);
    Variant told(const Solution& solution);
    void tellNoConvergence();
    void mustExist(std::initializer_list<std::pair<formulas::Live, const Variant*>> temperatures) const;

    struct Search {
        std::optional<std::int16_t> radiation;
        int messages = 0;
    };

    Desk& m_desk;
    formulas::Rules m_rules = formulas::Rules::Classic;
    // One calculation asks for three globes (as measured, at 10 m, at 60 %) and one of the others.
    // The rules are among the arguments.
    SolveMemory<5, Solution, 4> m_globes;
    SolveMemory<6, Solution, 2> m_wetBulbs;
    SolveMemory<6, Search, 2> m_searches;
    SolveMemory<4, Number, 2> m_psychrometrics;
};

} // namespace comfortics::classic
