// SPDX-License-Identifier: GPL-3.0-or-later
//
// Physiological models in closed form: heart rate, strain, skin temperature and wettedness. Every
// formula fails (RunFailure) where a step has no defined result; none gives an Empty result.
#pragma once

#include "formulas/assumptions.h"
#include "values/variant.h"

namespace comfortics::formulas {

using values::Variant;

/// Index 19, Belding-Hatch index [-], Belding and Hatch (1955).
/// Tg globe temperature [°C], WS wind speed [m/s], Ea vapour pressure [hPa].
/// Fails in still air and at a vapour pressure of 42 mmHg.
Variant Index_019(Number Tg, Number WS, Number Ea);

/// Index 81, heart rate at high intensity (230 W/m²) [beats/min], Fuller and Brouha (1966).
/// Ta air temperature [°C], Ea vapour pressure [hPa]. Fails at a negative height or weight.
Variant Index_081(const Assumptions& assumptions, Number Ta, Number Ea);

/// Index 82, heart rate at low intensity (100 W/m²) [beats/min], Fuller and Brouha (1966).
/// Ta air temperature [°C], Ea vapour pressure [hPa]. Fails at a negative height or weight.
Variant Index_082(const Assumptions& assumptions, Number Ta, Number Ea);

/// Index 83, heart rate at moderate intensity (165 W/m²) [beats/min], Fuller and Brouha (1966).
/// Ta air temperature [°C], Ea vapour pressure [hPa]. Fails at a negative height or weight.
Variant Index_083(const Assumptions& assumptions, Number Ta, Number Ea);

/// Index 84, safe limit of the heart rate [beats/min], LaFleur (1971).
/// Ta air temperature [°C], Ea vapour pressure [hPa].
Variant Index_084(Number Ta, Number Ea);

/// Index 101, mean skin temperature [°C], McPherson (1993).
/// Ta air temperature [°C].
Variant Index_101(Number Ta);

/// Index 128, predicted percentage of dissatisfied [%], Xavier and Lamberts (2000), at the thermal
/// sensation of index 189; 100 where that is above 2 or below -2.
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C], RH relative humidity [%], WS wind
/// speed [m/s].
Variant Index_128(Number Ta, Number Tmrt, Number RH, Number WS);

/// Index 136, relative strain index [-], Kyle (1992).
/// Ta air temperature [°C], Ea vapour pressure [hPa]. Fails at 58 hPa.
Variant Index_136(Number Ta, Number Ea);

/// Index 137, relative strain index [-], Lee and Henschel (1966).
/// Ta air temperature [°C], Ea vapour pressure [hPa]. Fails at 44 mmHg.
Variant Index_137(Number Ta, Number Ea);

/// Index 157, skin temperature [°C], Blazejczyk (2005).
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C], RH relative humidity [%], WS wind
/// speed [m/s].
Variant Index_157(Number Ta, Number Tmrt, Number RH, Number WS);

/// Index 158, skin wettedness [-], Blazejczyk (2005): 1 above a skin temperature of 36.5 °C, 0.001
/// below 22 °C. Its skin temperature takes the clothing's resistance, where index 157 does not.
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C], RH relative humidity [%], WS wind
/// speed [m/s]. Fails at a skin temperature of 37.5 °C.
Variant Index_158(Number Ta, Number Tmrt, Number RH, Number WS);

} // namespace comfortics::formulas
