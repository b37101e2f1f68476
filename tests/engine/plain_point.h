// SPDX-License-Identifier: GPL-3.0-or-later
//
// One point by the precise rules, one checked step after the other: what the engine is held against.
#pragma once

#include <comfortics/catalogue.h>

#include "catalogue/catalogue.h"
#include "catalogue/validity.h"
#include "formulas/primitives.h"
#include "models/precise_roots.h"
#include "models/quantity_formulas.h"
#include "models/utci_polynomial.h"
#include "values/run_failure.h"

#include <limits>
#include <optional>

namespace comfortics::test {

inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

using Value = std::optional<double>; ///< none where there is no value, for whatever reason

/// What is typed; exactly one of Tg and SR, and of Td and RH.
struct Typed {
    double Ta = 20;
    Value Tg;
    Value SR;
    Value Td;
    Value RH;
    double WS = 1;
};

class PlainPoint {
public:
    explicit PlainPoint(const Typed& typed)
        : Ta(typed.Ta), WS(typed.WS), Tg(typed.Tg), SR(typed.SR), Td(typed.Td), RH(typed.RH)
    {
        if (typed.RH)
            Td = tried([&] { return formulas::Dew_Point_Magnus(Number(*Ta), Number(*RH)); });
        else
            RH = tried([&] { return formulas::Relative_Humidity_Magnus(Number(*Ta), Number(*Td)); });
        const bool possible = !Td || *Td - *Ta <= 1e-9;
        if (possible && typed.SR)
            Tg = found(models::preciseGlobeTemperature(*Ta, *RH, *WS, *SR));
        if (typed.Tg)
            SR = possible ? found(models::preciseRadiation(*Ta, *RH, *WS, *Tg)) : Value();
        if (possible && SR)
            Tnwb = found(models::preciseNaturalWetBulb(*Ta, *RH, *WS, *SR));
        if (possible && Td)
            Tpwb = found(models::precisePsychrometricWetBulb(*Ta, *Td));
        if (Tg)
            Tmrt = tried([&] { return models::MRT_From_Globe(Number(*Ta), Number(*Tg), Number(*WS)); });
        Es = tried([&] { return formulas::Saturation_Pressure_Hardy(Number(*Ta)); });
        if (Td)
            Ea = tried([&] { return formulas::Vapor_Pressure_Magnus(Number(*Td)); });
        if (Tnwb && Tg)
            Wbgt = (0.7 * *Tnwb + 0.2 * *Tg) + 0.1 * *Ta;
        WS10 = tried([&] { return formulas::Wind_At_10m(formulas::Assumptions(), Number(*WS)); });
        m_possible = possible;
    }

    Value index(int number, bool limits) const
    {
        const catalogue::CatalogueRow& row = catalogue::row(number);
        if (limits && !passes(row))
            return {};
        switch (row.block) {
        case catalogue::Block::MeanRadiantTemperature:
            return Tmrt;
        case catalogue::Block::WbgtOutdoor:
            return Wbgt;
        case catalogue::Block::WbgtIndoor: {
            if (!Tpwb)
                return {};
            const double wind = *WS < 0.1 ? 0.1 : *WS;
            return tried([&] {
                return ((0.67 * Number(*Tpwb)) + (0.33 * Number(*Ta))) -
                       (((logarithm(Number(wind)) * 0.048) / logarithm(Number(10))) *
                        (Number(*Ta) - Number(*Tpwb)));
            });
        }
        case catalogue::Block::Utci:
            if (!Tmrt || !Td || !m_possible)
                return {};
            return tried([&] {
                return models::UTCI_Polynomial(*Ta, *WS10, Number(*Tmrt) - Number(*Ta),
                                               models::UTCI_Vapour_Pressure(Number(*Td)));
            });
        default:
            break;
        }
        formulas::FormulaInputs inputs;
        std::size_t count = 0;
        for (const catalogue::Input input : row.inputs) {
            const Value value = of(input);
            if (!value)
                return {};
            inputs[count++] = *value;
        }
        try {
            const auto value =
                row.formula.function({formulas::Assumptions(), formulas::Rules::Precise}, inputs);
            return value ? Value(value->value()) : Value();
        } catch (const values::RunFailure&) {
            return {};
        }
    }

    Value Ta, WS, Tg, SR, Td, RH, Tmrt, Tnwb, Tpwb, Es, Ea, Wbgt, WS10;

private:
    using Number = values::Number;

    template <typename Compute>
    static Value tried(Compute compute)
    {
        try {
            return compute().value();
        } catch (const values::RunFailure&) {
            return {};
        }
    }

    static Value found(const models::Root& root)
    {
        return root.status == models::RootStatus::Found ? Value(root.value) : Value();
    }

    Value of(catalogue::Input input) const
    {
        using enum catalogue::Input;
        switch (input) {
        case catalogue::Input::Ta:
        case TextTa:
            return this->Ta;
        case catalogue::Input::Tg:
            return this->Tg;
        case catalogue::Input::SR:
        case TextSR:
            return this->SR;
        case catalogue::Input::Td:
            return this->Td;
        case catalogue::Input::RH:
        case TextRH:
            return this->RH;
        case catalogue::Input::WS:
        case TextWS:
            return this->WS;
        case catalogue::Input::Tmrt:
            return this->Tmrt;
        case catalogue::Input::Tnwb:
            return this->Tnwb;
        case catalogue::Input::Tpwb:
            return this->Tpwb;
        case catalogue::Input::Es:
            return this->Es;
        case catalogue::Input::Ea:
        case StaleEa:
            return this->Ea;
        case catalogue::Input::Wbgt:
            return this->Wbgt;
        case Unset:
            return 0;
        default:
            return {};
        }
    }

    bool passes(const catalogue::CatalogueRow& row) const
    {
        using catalogue::Gated;
        if (row.gate == catalogue::Gate::None)
            return true;
        const catalogue::Validity& validity = catalogue::validity(row.number);
        Value judged = Ta;
        if (row.gated == Gated::Tnwb)
            judged = Tnwb;
        else if (row.gated == Gated::WBGT_Outdoor)
            judged = Wbgt;
        else if (row.gated == Gated::MeanOfTmrtAndTa)
            judged = Tmrt ? Value((*Tmrt + *Ta) / 2) : Value();
        else if (row.gated == Gated::TmrtLessTa)
            judged = Tmrt ? Value(*Tmrt - *Ta) : Value();
        if (!judged || *judged < validity.temperatureMin || *judged > validity.temperatureMax)
            return false;
        const Value& wind = row.gateWind == catalogue::GateWind::At10m ? WS10 : WS;
        return !(validity.windMax > 0) || (*wind >= validity.windMin && *wind <= validity.windMax);
    }

    bool m_possible = true;
};

} // namespace comfortics::test
