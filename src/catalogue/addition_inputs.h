// SPDX-License-Identifier: GPL-3.0-or-later
//
// The inputs of the models, each once. Ids never change. Where the same thing is read in several units, each
// unit is an input with an id of its own: mixing them up is the commonest of errors.
#pragma once

#include "catalogue/additions.h"
#include "standards/body_surface.h"
#include "standards/motion.h"
#include "standards/pmv_ashrae.h"
#include "standards/sun_position.h"
#include "standards/wbgt_iso7243.h"
#include "standards/work_rest.h"

#include <array>

namespace comfortics::catalogue::inputs {

using standards::Interval;
using standards::physicalBounds;
using enum InputGroup;
using Of = standards::Quantity;
using formulas::Live;

template <typename Enum>
constexpr double numberOf(Enum value)
{
    return static_cast<double>(value);
}

inline constexpr auto kNoYes = std::to_array<Choice>({{0, "no", "no"}, {1, "yes", "yes"}});
// The postures that models know, in one order; each model knows some.
inline constexpr auto kPostures = std::to_array<Choice>({{0, "standing", "standing"},
                                                         {1, "sitting", "sitting"},
                                                         {2, "crouching", "crouching"},
                                                         {3, "lying", "lying"}});
inline constexpr auto kSexes =
    std::to_array<Choice>({{numberOf(standards::Sex::Male), "male", "male"},
                           {numberOf(standards::Sex::Female), "female", "female"}});
inline constexpr auto kMotions = std::to_array<Choice>(
    {{numberOf(standards::Motion::None), "none", "speed and clothing are the relative and the actual ones"},
     {numberOf(standards::Motion::Ashrae), "ashrae", "in motion by ASHRAE 55 (2020)"},
     {numberOf(standards::Motion::Iso), "iso", "in motion by ISO 9920 (2007)"}});
inline constexpr auto kEditions =
    std::to_array<Choice>({{2020, "2020", "edition of 2020"}, {2017, "2017", "edition of 2017 and before"}});
inline constexpr auto kFormulas = std::to_array<Choice>({
    {numberOf(standards::BodySurfaceFormula::DuBois), "dubois", "DuBois, with 0.202"},
    {numberOf(standards::BodySurfaceFormula::DuBoisOriginal), "dubois_original", "DuBois, with 0.20247"},
    {numberOf(standards::BodySurfaceFormula::Mosteller), "mosteller", "Mosteller"},
    {numberOf(standards::BodySurfaceFormula::Haycock), "haycock", "Haycock"},
    {numberOf(standards::BodySurfaceFormula::GehanGeorge), "gehan_george", "Gehan and George"},
    {numberOf(standards::BodySurfaceFormula::Takahira), "takahira", "Takahira"},
    {numberOf(standards::BodySurfaceFormula::Fujimoto), "fujimoto", "Fujimoto"},
    {numberOf(standards::BodySurfaceFormula::Kurazumi), "kurazumi", "Kurazumi"},
});
inline constexpr auto kWorkClothes = std::to_array<Choice>({
    {numberOf(standards::WorkClothing::WorkClothes), "work_clothes", "work clothes"},
    {numberOf(standards::WorkClothing::ClothCoveralls), "cloth_coveralls", "cloth coveralls"},
    {numberOf(standards::WorkClothing::SmsCoveralls), "sms_coveralls", "SMS non-woven coveralls"},
    {numberOf(standards::WorkClothing::PolyolefinCoveralls), "polyolefin_coveralls",
     "polyolefin non-woven coveralls"},
    {numberOf(standards::WorkClothing::DoubleLayer), "double_layer", "double-layer woven clothing"},
    {numberOf(standards::WorkClothing::VapourBarrierApron), "vapour_barrier_apron",
     "long vapour-barrier apron with long sleeves over coveralls"},
    {numberOf(standards::WorkClothing::VapourBarrier), "vapour_barrier", "vapour-barrier coveralls"},
    {numberOf(standards::WorkClothing::VapourBarrierHooded), "vapour_barrier_hooded",
     "vapour-barrier coveralls with a hood"},
    {numberOf(standards::WorkClothing::VapourBarrierOverCloth), "vapour_barrier_over_cloth",
     "vapour-barrier coveralls over cloth coveralls"},
    {numberOf(standards::WorkClothing::VapourBarrierOverClothHooded), "vapour_barrier_over_cloth_hooded",
     "vapour-barrier coveralls with a hood over cloth coveralls"},
});
inline constexpr auto kReferences = std::to_array<Choice>(
    {{numberOf(standards::Reference::Class), "class", "by the class of the metabolic rate"},
     {numberOf(standards::Reference::Curve), "curve", "by the curve of the metabolic rate"}});
inline constexpr auto kBases =
    std::to_array<Choice>({{0, "twa", "the hour's averages against the limit (ISO 7243, NIOSH 2016-106)"},
                           {1, "capacity", "work capacity (Bröde, Fiala, Lemke, Kjellstrom, 2018)"},
                           {2, "niosh_table", "table of NIOSH 2016-106 and 2017-127"}});
inline constexpr auto kCapacityLimits =
    std::to_array<Choice>({{numberOf(standards::CapacityLimits::Iso), "iso", "34.9 - M / 46"},
                           {numberOf(standards::CapacityLimits::Niosh), "niosh", "56.7 - 11.5 log10 M"}});
inline constexpr auto kSunshines =
    std::to_array<Choice>({{numberOf(standards::Sunshine::Full), "full", "full sun"},
                           {numberOf(standards::Sunshine::PartlyCloudy), "partly_cloudy", "partly cloudy"},
                           {numberOf(standards::Sunshine::None), "none", "no sun"}});
inline constexpr auto kLabours =
    std::to_array<Choice>({{numberOf(standards::Labour::Light), "light", "light work"},
                           {numberOf(standards::Labour::Moderate), "moderate", "moderate work"},
                           {numberOf(standards::Labour::Heavy), "heavy", "heavy work"}});

// clang-format off
// Weather.
inline constexpr InputInfo kTa{"ta", "Ta", "Air temperature", "°C", physicalBounds(Of::Temperature), Weather, {}, Live::Ta};
inline constexpr InputInfo kTr{"tr", "Tmrt", "Mean radiant temperature", "°C", physicalBounds(Of::Temperature), Weather, {}, Live::Tmrt};
inline constexpr InputInfo kTg{"tg", "Tg", "Globe temperature", "°C", physicalBounds(Of::Temperature), Weather, {}, Live::Tg};
inline constexpr InputInfo kTnw{"tnw", "Tnwb", "Natural wet-bulb temperature", "°C", physicalBounds(Of::Temperature), Weather, {}, Live::Tnwb};
inline constexpr InputInfo kV{"v", "v", "Air speed", "m/s", physicalBounds(Of::Speed), Weather, {}, Live::WS};
/// The program has it as a quantity of its own, by its own profile of the wind.
inline constexpr InputInfo kV10{"v10", "v10", "Wind speed at 10 m", "m/s", physicalBounds(Of::Speed), Weather};
inline constexpr InputInfo kRH{"rh", "RH", "Relative humidity", "%", physicalBounds(Of::Humidity), Weather, {}, Live::RH};
inline constexpr InputInfo kEa{"ea", "Ea", "Vapour pressure", "hPa", physicalBounds(Of::Flux), Weather, {}, Live::Ea};
inline constexpr InputInfo kSR{"sr", "SR", "Global solar radiation", "W/m²", physicalBounds(Of::Flux), Weather, {}, Live::SR};
inline constexpr InputInfo kOutdoorPrevailing{"t_outdoor_prevailing", "t_p", "Prevailing mean outdoor temperature", "°C", physicalBounds(Of::Temperature), Weather};
inline constexpr InputInfo kOutdoorRunning{"t_outdoor_running", "t_m", "Running mean outdoor temperature", "°C", physicalBounds(Of::Temperature), Weather};
inline constexpr InputInfo kDirectNormal{"direct_normal", "I", "Direct solar radiation normal to the beam", "W/m²", physicalBounds(Of::Flux), Weather};
inline constexpr InputInfo kDirectHorizontal{"direct_horizontal", "D_h", "Direct solar radiation on the horizontal", "W/m²", physicalBounds(Of::Flux), Weather};
inline constexpr InputInfo kShortNet{"short_net", "", "Net short-wave radiation (downward less upward)", "W/m²", physicalBounds(Of::Any), Weather};
inline constexpr InputInfo kLongDown{"long_down", "L", "Downward long-wave radiation", "W/m²", physicalBounds(Of::Flux), Weather};
inline constexpr InputInfo kLongNet{"long_net", "", "Net long-wave radiation (downward less upward)", "W/m²", physicalBounds(Of::Any), Weather};
inline constexpr std::array<InputInfo, 6> kShortSides{{
    {"short_north", "K", "Short-wave radiation on a surface facing north", "W/m²", physicalBounds(Of::Flux), Weather},
    {"short_east", "K", "Short-wave radiation on a surface facing east", "W/m²", physicalBounds(Of::Flux), Weather},
    {"short_south", "K", "Short-wave radiation on a surface facing south", "W/m²", physicalBounds(Of::Flux), Weather},
    {"short_west", "K", "Short-wave radiation on a surface facing west", "W/m²", physicalBounds(Of::Flux), Weather},
    {"short_up", "K", "Short-wave radiation on a surface facing up", "W/m²", physicalBounds(Of::Flux), Weather},
    {"short_down", "K", "Short-wave radiation on a surface facing down", "W/m²", physicalBounds(Of::Flux), Weather}}};
inline constexpr std::array<InputInfo, 6> kLongSides{{
    {"long_north", "L", "Long-wave radiation on a surface facing north", "W/m²", physicalBounds(Of::Flux), Weather},
    {"long_east", "L", "Long-wave radiation on a surface facing east", "W/m²", physicalBounds(Of::Flux), Weather},
    {"long_south", "L", "Long-wave radiation on a surface facing south", "W/m²", physicalBounds(Of::Flux), Weather},
    {"long_west", "L", "Long-wave radiation on a surface facing west", "W/m²", physicalBounds(Of::Flux), Weather},
    {"long_facing_up", "L", "Long-wave radiation on a surface facing up", "W/m²", physicalBounds(Of::Flux), Weather},
    {"long_facing_down", "L", "Long-wave radiation on a surface facing down", "W/m²", physicalBounds(Of::Flux), Weather}}};
inline constexpr InputInfo kWbgt{"wbgt", "WBGT", "Wet-bulb globe temperature", "°C", physicalBounds(Of::Temperature), Weather};
inline constexpr InputInfo kWbgtEff{"wbgt_eff", "WBGT_eff", "Effective wet-bulb globe temperature (with what the clothing adds)", "°C", physicalBounds(Of::Temperature), Weather};
inline constexpr InputInfo kWbgtEffRest{"wbgt_eff_rest", "", "Effective wet-bulb globe temperature where the rest is taken", "°C", physicalBounds(Of::Temperature), Weather};

// The person. Three units of the metabolic rate and two of the work, see metabolicRateFor and workFor.
inline constexpr InputInfo kMet{"met", "M", "Metabolic rate", "met", physicalBounds(Of::Flux), Person};
inline constexpr InputInfo kMetabolicWm2{"metabolic_w_m2", "M", "Metabolic rate", "W/m²", physicalBounds(Of::Positive), Person};
inline constexpr InputInfo kMetabolicW{"metabolic_w", "M", "Metabolic rate of the whole body", "W", physicalBounds(Of::Positive), Person};
inline constexpr InputInfo kActivityW{"activity_w", "", "Metabolic rate of the whole body above the basal one", "W", physicalBounds(Of::Flux), Person};
inline constexpr InputInfo kRestW{"rest_w", "", "Metabolic rate of the whole body at rest", "W", physicalBounds(Of::Positive), Person};
inline constexpr InputInfo kWorkMet{"work_met", "W", "External work", "met", physicalBounds(Of::Flux), Person};
inline constexpr InputInfo kWorkWm2{"work_w_m2", "W", "External work", "W/m²", physicalBounds(Of::Flux), Person};
inline constexpr InputInfo kClo{"clo", "", "Clothing insulation", "clo", physicalBounds(Of::Clothing), Person};
inline constexpr InputInfo kPosture{"posture", "", "Posture", "", {0, 3}, Person, kPostures};
inline constexpr InputInfo kWeight{"weight", "", "Body weight", "kg", physicalBounds(Of::Positive), Person};
inline constexpr InputInfo kHeight{"height", "", "Body height", "m", physicalBounds(Of::Positive), Person};
inline constexpr InputInfo kArea{"area", "A", "Body surface", "m²", physicalBounds(Of::Positive), Person};
inline constexpr InputInfo kAge{"age", "", "Age", "years", physicalBounds(Of::Positive), Person};
inline constexpr InputInfo kSex{"sex", "", "Sex", "", {0, 1}, Person, kSexes};
inline constexpr InputInfo kAcclimatised{"acclimatised", "", "Acclimatisation to heat", "", {0, 1}, Person, kNoYes};
inline constexpr InputInfo kDrink{"drink", "", "Freedom to drink", "", {0, 1}, Person, kNoYes};
inline constexpr InputInfo kWalking{"walking", "", "Walking speed", "m/s", physicalBounds(Of::Speed), Person};
inline constexpr InputInfo kWalkingAngle{"walking_angle", "", "Angle between walking direction and wind", "°", physicalBounds(Of::Any), Person};
inline constexpr InputInfo kWorkClothing{"work_clothing", "", "Work clothing", "", {0, 9}, Person, kWorkClothes};
inline constexpr InputInfo kLabour{"labour", "", "Labour", "", {0, 2}, Person, kLabours};

// Place and time.
inline constexpr InputInfo kYear{"year", "", "Year", "", {-32767, 32767}, Place};
inline constexpr InputInfo kMonth{"month", "", "Month", "", {1, 12}, Place};
inline constexpr InputInfo kDay{"day", "", "Day of the month", "", {1, 31}, Place};
inline constexpr InputInfo kHour{"hour", "", "Local time of day", "h", {0, 24}, Place};
inline constexpr InputInfo kHourUtc{"hour_utc", "", "Time of day (UTC)", "h", {0, 24}, Place};
inline constexpr InputInfo kUtcOffset{"utc_offset", "", "Local time less UTC", "h", physicalBounds(Of::Any), Place};
inline constexpr InputInfo kInterval{"interval", "", "Interval of averaging (which ends at the time)", "min", physicalBounds(Of::Flux), Place};
inline constexpr InputInfo kLatitude{"latitude", "", "Latitude (north positive)", "°", {-90, 90}, Place};
inline constexpr InputInfo kLongitude{"longitude", "", "Longitude (east positive)", "°", {-180, 360}, Place};
inline constexpr InputInfo kPressure{"pressure", "p", "Air pressure", "hPa", physicalBounds(Of::Hectopascal), Place};
inline constexpr InputInfo kWindHeight{"wind_height", "z", "Height at which the wind is measured", "m", physicalBounds(Of::Positive), Place};
inline constexpr InputInfo kTemperatureDifference{"dt", "dT", "Air temperature above less that below", "K", physicalBounds(Of::Any), Place};
inline constexpr InputInfo kUrban{"urban", "", "Urban site", "", {0, 1}, Place, kNoYes};
inline constexpr InputInfo kSunAltitude{"sun_altitude", "", "Altitude of the sun", "°", {0, 90}, Place};
inline constexpr InputInfo kSunSine{"sun_sine", "mu", "Sine of the altitude of the sun", "", {-1, 1}, Place};

// Of a model alone.
inline constexpr InputInfo kMotion{"motion", "", "Speed and clothing in motion", "", {0, 2}, Own, kMotions};
inline constexpr InputInfo kEdition{"edition", "", "Edition of ASHRAE 55", "", {2017, 2020}, Own, kEditions};
inline constexpr InputInfo kMostWettedness{"w_max", "", "Largest skin wettedness", "", {physicalBounds(Of::Positive).low, physicalBounds(Of::Positive).high}, Own};
inline constexpr InputInfo kMostBlood{"blood_max", "", "Largest skin blood flow", "L/m²h", physicalBounds(Of::Positive), Own};
inline constexpr InputInfo kMostSweat{"sweat_max", "", "Largest sweat rate", "g/m²h", physicalBounds(Of::Flux), Own};
inline constexpr InputInfo kDuration{"duration", "", "Duration", "min", physicalBounds(Of::Positive), Own};
inline constexpr InputInfo kImst{"imst", "i_mst", "Static moisture permeability index", "", physicalBounds(Of::Positive), Own};
inline constexpr InputInfo kAp{"ap", "Ap", "Share of the clothed surface that reflects", "", physicalBounds(Of::Flux), Own};
inline constexpr InputInfo kFr{"fr", "Fr", "Emissivity (2004) or reflectance (2023) of the reflecting share", "", physicalBounds(Of::Flux), Own};
inline constexpr InputInfo kPermeability{"permeability", "", "Air permeability of the outer layer", "l/m²s", physicalBounds(Of::Positive), Own};
inline constexpr InputInfo kSun{"sun", "", "Sunlight on the body", "", {0, 1}, Own, kNoYes};
inline constexpr InputInfo kReference{"reference", "", "Reference value", "", {0, 1}, Own, kReferences};
inline constexpr InputInfo kBasis{"basis", "", "Basis", "", {0, 2}, Own, kBases};
inline constexpr InputInfo kCapacityLimit{"capacity_limits", "", "Choice of limits of the work capacity", "", {0, 1}, Own, kCapacityLimits};
inline constexpr InputInfo kSunshine{"sunshine", "", "Sunshine", "", {0, 2}, Own, kSunshines};
inline constexpr InputInfo kDiameter{"diameter", "D", "Diameter of the globe", "m", physicalBounds(Of::Positive), Own};
inline constexpr InputInfo kEmissivity{"emissivity", "", "Emissivity of the globe", "", physicalBounds(Of::Positive), Own};
inline constexpr InputInfo kShortAbsorptance{"short_absorptance", "", "Short-wave absorptance of the body", "", physicalBounds(Of::Flux), Own};
inline constexpr InputInfo kLongAbsorptance{"long_absorptance", "", "Long-wave absorptance of the body", "", physicalBounds(Of::Positive), Own};
inline constexpr InputInfo kSharp{"sharp", "SHARP", "Horizontal angle of the sun from the front of the person", "°", {0, 180}, Own};
inline constexpr InputInfo kTransmittance{"transmittance", "T", "Solar transmittance of the glazing", "", physicalBounds(Of::Flux), Own};
inline constexpr InputInfo kSkyView{"sky_view", "f_s", "Share of the sky seen through the window", "", physicalBounds(Of::Flux), Own};
inline constexpr InputInfo kExposed{"exposed", "f_b", "Share of the body in the sun", "", physicalBounds(Of::Flux), Own};
inline constexpr InputInfo kFloor{"floor_reflectance", "", "Reflectance of the floor", "", physicalBounds(Of::Flux), Own};
inline constexpr InputInfo kFormula{"formula", "", "Formula", "", {0, 7}, Own, kFormulas};
// clang-format on

} // namespace comfortics::catalogue::inputs
