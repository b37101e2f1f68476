// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/additions.h"

#include "catalogue/addition_inputs.h"
#include "catalogue/addition_runs.h"
#include "formulas/measured_wind.h"
#include "standards/adaptive_ashrae.h"
#include "standards/adaptive_en.h"
#include "standards/heat_index.h"
#include "standards/ireq.h"
#include "standards/pet.h"
#include "standards/phs.h"
#include "standards/pmv_ashrae.h"
#include "standards/pmv_iso.h"
#include "standards/tmrt_flux.h"
#include "standards/tmrt_globe.h"
#include "standards/tmrt_six.h"
#include "standards/tmrt_solarcal.h"
#include "standards/two_node.h"
#include "standards/utci.h"
#include "standards/wbgt_liljegren.h"
#include "standards/wind_chill.h"

#include <algorithm>
#include <array>

namespace comfortics::catalogue {

namespace {

using namespace inputs;
using namespace std::string_view_literals;
using Core = standards::Input;

/// An input of a model, with the name and the range that the model has for it.
class Read {
public:
    constexpr Read(const InputInfo& info, const Core& core) : m_input{.info = &info, .verdictName = core.name}
    {
        // An open end is that of what there can be.
        m_input.range = {std::max(core.range.low, info.bounds.low),
                         std::min(core.range.high, info.bounds.high)};
    }
    /// An option.
    constexpr explicit Read(const InputInfo& info)
        : m_input{.info = &info, .range = info.bounds, .verdictName = info.id}
    {
    }

    constexpr Read within(double low, double high) const
    {
        Read made = *this;
        made.m_input.range = {low, high};
        return made;
    }
    constexpr Read start(double value, std::string_view source) const
    {
        Read made = *this;
        made.m_input.need = Need::Start;
        made.m_input.start = value;
        made.m_input.startSource = source;
        return made;
    }
    constexpr Read optional(std::string_view without) const
    {
        Read made = *this;
        made.m_input.need = Need::Optional;
        made.m_input.without = without;
        return made;
    }
    constexpr Read beside(std::string_view text) const
    {
        Read made = *this;
        made.m_input.beside = text;
        return made;
    }
    constexpr Read words(std::uint16_t known) const
    {
        Read made = *this;
        made.m_input.words = known;
        return made;
    }
    constexpr Read unless(const InputInfo& other) const
    {
        Read made = *this;
        made.m_input.unless = other.id;
        return made;
    }
    constexpr Read besideReading(const InputInfo& reading, double value) const
    {
        Read made = *this;
        made.m_input.besideReading = reading.id;
        made.m_input.readingValue = value;
        return made;
    }
    constexpr Read onlyFor(const InputInfo& option, std::uint16_t known) const
    {
        Read made = *this;
        made.m_input.onlyFor = option.id;
        made.m_input.onlyForWords = known;
        return made;
    }
    constexpr operator AdditionInput() const { return m_input; } // NOLINT: implicit

private:
    AdditionInput m_input;
};

using Results = AdditionResult;
template <std::size_t N>
using Texts = std::array<std::string_view, N>;

// Postures by their places in kPostures.
constexpr std::uint16_t kStandingOrSitting = 0b0011;
constexpr std::uint16_t kAtWork = 0b0111;
constexpr std::uint16_t kUnderTheSun = 0b1011;
constexpr std::uint16_t kYesWord = 0b10;

constexpr auto kCategories = std::to_array<Choice>(
    {{0, "A", "category A"}, {1, "B", "category B"}, {2, "C", "category C"}, {3, "none", "in no category"}});
constexpr auto kStresses = std::to_array<Choice>({{0, "extreme_cold", "extreme cold stress"},
                                                  {1, "very_strong_cold", "very strong cold stress"},
                                                  {2, "strong_cold", "strong cold stress"},
                                                  {3, "moderate_cold", "moderate cold stress"},
                                                  {4, "slight_cold", "slight cold stress"},
                                                  {5, "none", "no thermal stress"},
                                                  {6, "moderate_heat", "moderate heat stress"},
                                                  {7, "strong_heat", "strong heat stress"},
                                                  {8, "very_strong_heat", "very strong heat stress"},
                                                  {9, "extreme_heat", "extreme heat stress"}});
constexpr auto kWorkClasses = std::to_array<Choice>({{0, "rest", "rest"},
                                                     {1, "low", "low metabolic rate"},
                                                     {2, "moderate", "moderate metabolic rate"},
                                                     {3, "high", "high metabolic rate"},
                                                     {4, "very_high", "very high metabolic rate"}});
constexpr auto kAdvices = std::to_array<Choice>({{0, "normal", "work as usual"},
                                                 {1, "schedule", "work and rest by the minutes"},
                                                 {2, "caution", "high heat stress: no work"}});
constexpr auto kCoolings = std::to_array<Choice>({{0, "none", "no local cooling"},
                                                  {1, "uncomfortably_cold", "uncomfortably cold"},
                                                  {2, "skin_may_freeze", "bare skin may freeze"},
                                                  {3, "within_10_min", "bare skin freezes within 10 minutes"},
                                                  {4, "within_2_min", "bare skin freezes within 2 minutes"}});

constexpr double kReadingsGlobe = 0.05; // diameter [m]

// What several models say.
constexpr auto kNoWork = "no external work, as most activities have"sv;
constexpr auto kTypedMotion = "the standard's own inputs: typed speed and clothing are taken as they are"sv;
constexpr auto kAfterMotion = "with what the motion makes of it, it lies outside the range"sv;
constexpr auto kWorkBeside = "the external work must not exceed the metabolic rate"sv;
constexpr auto kSaturated = "air of this temperature holds no more than saturation"sv;
constexpr auto kInPlaceOfHumidity = "the relative humidity is taken"sv;
constexpr DerivedName kVapourOfPmv{
    "pa", "the vapour pressure, from air temperature and humidity, is above 2700 Pa"};

// clang-format off
namespace pmv_iso {
constexpr const standards::PmvRanges& kRange = standards::kPmvIsoRanges;
constexpr auto kInputs = std::to_array<AdditionInput>({
    Read(inputs::kTa, kRange.ta), Read(inputs::kTr, kRange.tr), Read(inputs::kV, kRange.speed).beside(kAfterMotion), Read(inputs::kRH, kRange.RH),
    Read(inputs::kMet, kRange.met), Read(inputs::kClo, kRange.clo).beside(kAfterMotion),
    Read(kWorkMet, kRange.work).beside(kWorkBeside).start(0, kNoWork), Read(kMotion).start(0, kTypedMotion)});
constexpr auto kResults = std::to_array<Results>({
    {.id = "pmv", .name = "Predicted mean vote", .scaleIndex = 118, .range = kRange.pmv.range},
    {.id = "ppd", .name = "Predicted percentage of dissatisfied", .unit = "%", .decimals = 1},
    {.id = "category", .name = "Category of the thermal environment", .choices = kCategories},
    {.id = "t_cl", .name = "Temperature of the clothing's surface", .unit = "°C"},
    {.id = "v_relative", .name = "Relative air speed, as calculated with", .unit = "m/s", .decimals = 3},
    {.id = "clo_actual", .name = "Actual clothing insulation, as calculated with", .unit = "clo", .decimals = 3}});
constexpr auto kAbbreviations = std::to_array({"PMV"sv, "PPD"sv});
constexpr auto kWarnings = std::to_array({"speed and clothing are relative and actual ones, unless motion derives them"sv,
    "the table of votes printed with the standard differs from its formula by up to 0.09"sv});
constexpr auto kReferences = std::to_array({"ISO 7730:2005 (the edition of 2025 has the same equations)"sv, "Fanger PO (1970) Thermal comfort, Danish Technical Press"sv});
} // namespace pmv_iso

namespace pmv_ashrae {
constexpr const standards::PmvRanges& kRange = standards::kPmvAshraeRanges;
constexpr auto kInputs = std::to_array<AdditionInput>({
    Read(inputs::kTa, kRange.ta), Read(inputs::kTr, kRange.tr), Read(inputs::kV, kRange.speed).beside(kAfterMotion), Read(inputs::kRH, kRange.RH),
    Read(inputs::kMet, kRange.met), Read(inputs::kClo, kRange.clo).beside(kAfterMotion),
    Read(kWorkMet, kRange.work).beside(kWorkBeside).start(0, kNoWork), Read(kMotion).start(0, kTypedMotion),
    Read(kEdition).start(2020, "the newer two-node program")});
constexpr auto kResults = std::to_array<Results>({
    {.id = "pmv", .name = "Predicted mean vote", .scaleIndex = 118, .range = kRange.pmv.range},
    {.id = "ppd", .name = "Predicted percentage of dissatisfied", .unit = "%", .decimals = 1},
    {.id = "cooling_effect", .name = "Cooling effect of moving air", .unit = "K"},
    {.id = "compliant", .name = "Vote within the standard's limits", .choices = kNoYes},
    {.id = "speed_limit", .name = "Highest air speed without occupants' control", .unit = "m/s"},
    {.id = "beyond_speed_limit", .name = "Air speed above that limit", .choices = kNoYes},
    {.id = "v_relative", .name = "Relative air speed, as calculated with", .unit = "m/s", .decimals = 3},
    {.id = "clo_actual", .name = "Actual clothing insulation, as calculated with", .unit = "clo", .decimals = 3}});
constexpr auto kDerived = std::to_array<DerivedName>({
    {"speed_limit", "the standard sets no limit of the air speed from 0.7 clo or 1.3 met on"},
    {"set", "SET, from which the cooling effect follows"}});
constexpr auto kAbbreviations = std::to_array({"PMV"sv, "PPD"sv, "SET"sv});
constexpr auto kWarnings = std::to_array({"speed and clothing are relative and actual ones, unless motion derives them"sv});
constexpr auto kReferences = std::to_array({"ASHRAE Standard 55-2020 and 55-2023"sv});
} // namespace pmv_ashrae

namespace two_node {
namespace range = standards::two_node_range;
constexpr standards::TwoNodeInputs kBody;
constexpr auto kProgram = "ASHRAE 55-2020, Appendix D"sv;
constexpr auto kInputs = std::to_array<AdditionInput>({
    Read(inputs::kTa, range::kTa), Read(inputs::kTr, range::kTr), Read(inputs::kV, range::kSpeed).beside(kAfterMotion), Read(inputs::kRH, range::kRH),
    Read(inputs::kMet, range::kMet), Read(inputs::kClo, range::kClo).beside(kAfterMotion),
    Read(kWorkMet, range::kWork).beside(kWorkBeside).start(0, kNoWork),
    Read(inputs::kPressure, {range::kPressure.name}).start(1013.25, "standard atmosphere"),
    Read(inputs::kPosture).words(kStandingOrSitting).start(0, kProgram), Read(kEdition).start(2020, "the newer program"),
    Read(inputs::kWeight, range::kWeight).optional("70 kg, in the edition of 2017 69.9 kg"),
    Read(inputs::kArea, range::kArea).start(kBody.area, "ASHRAE 55-2020, Appendix D, whatever the weight and height"),
    Read(inputs::kMostWettedness, range::kMostWettedness).optional("what clothing and air speed allow"),
    Read(inputs::kMostBlood, range::kMostBlood).start(kBody.mostBlood, kProgram), Read(inputs::kMostSweat, range::kMostSweat).start(kBody.mostSweat, kProgram),
    Read(kMotion).start(0, kTypedMotion)});
constexpr auto kResults = std::to_array<Results>({
    {.id = "set", .name = "Standard effective temperature SET", .unit = "°C", .decimals = 1},
    {.id = "et", .name = "Effective temperature ET", .unit = "°C", .decimals = 1},
    {.id = "t_skin", .name = "Skin temperature", .unit = "°C"},
    {.id = "t_core", .name = "Core temperature", .unit = "°C"},
    {.id = "wettedness", .name = "Skin wettedness", .decimals = 3},
    {.id = "e_skin", .name = "Evaporation from the skin", .unit = "W/m²", .decimals = 1},
    {.id = "disc", .name = "Thermal discomfort DISC"},
    {.id = "tsens", .name = "Thermal sensation TSENS"},
    {.id = "v_relative", .name = "Relative air speed, as calculated with", .unit = "m/s", .decimals = 3},
    {.id = "clo_actual", .name = "Actual clothing insulation, as calculated with", .unit = "clo", .decimals = 3}});
constexpr auto kCourseFigures = std::to_array<Results>({
    {.id = "t_skin", .name = "Skin temperature", .unit = "°C"}, {.id = "t_core", .name = "Core temperature", .unit = "°C"},
    {.id = "wettedness", .name = "Skin wettedness", .decimals = 3}, {.id = "e_skin", .name = "Evaporation from the skin", .unit = "W/m²", .decimals = 1},
    {.id = "sweat", .name = "Regulated sweat", .unit = "g/m²h", .decimals = 1}, {.id = "blood", .name = "Skin blood flow", .unit = "L/m²h", .decimals = 1}});
constexpr AdditionCourse kCourse{kCourseFigures, standards::kTwoNodeMinutes, runs::twoNodeMinutes, runs::twoNodeCourse};
constexpr auto kDerived = std::to_array<DerivedName>({{"t_cl", "the temperature of the clothing"}});
constexpr auto kAbbreviations = std::to_array({"SET"sv, "SET*"sv, "ET"sv, "ET*"sv, "DISC"sv, "TSENS"sv});
constexpr auto kWarnings = std::to_array({"at 2 to 4 met the editions of 2017 and 2020 differ by 4 to 6 K"sv,
    "programs that make 59 steps in place of 60 differ by up to 0.03 K"sv});
constexpr auto kReferences = std::to_array({"ASHRAE Standard 55-2020, Appendix D"sv,
    "Gagge AP, Fobelets AP, Berglund LG (1986) A standard predictive index of human response to the thermal environment. ASHRAE Trans 92(2B)"sv});
} // namespace two_node

namespace pet {
namespace range = standards::pet_range;
constexpr standards::PetInputs kPerson;
constexpr auto kPaper = "Höppe (1999)"sv;
constexpr auto kAuthors = "Walther and Goestchel (2018)"sv;
constexpr auto kWindless = "0 is a still air, which the model has not"sv;
constexpr auto inputsOf(std::string_view source, double age, double height)
{
    return std::to_array<AdditionInput>({
        Read(inputs::kTa, range::kTa), Read(inputs::kTr, range::kTmrt), Read(inputs::kV, range::kSpeed).beside(kWindless),
        Read(inputs::kRH, range::kRH).unless(kEa), Read(kEa, range::kVapourPressure).beside(kSaturated).optional(kInPlaceOfHumidity),
        Read(inputs::kPressure, range::kPressure).start(kPerson.pressure, "standard atmosphere"),
        Read(inputs::kClo, range::kClo).beside("so little clothing covers nothing").start(kPerson.clo, source),
        Read(kActivityW, range::kWork).start(kPerson.work, source),
        Read(inputs::kAge, range::kAge).start(age, source), Read(kSex).start(0, source),
        Read(inputs::kHeight, range::kHeight).start(height, source), Read(inputs::kWeight, range::kWeight).start(kPerson.weight, source),
        Read(kPosture).words(kStandingOrSitting).start(0, source)});
}
constexpr auto kInputs = inputsOf(kPaper, kPerson.age, kPerson.height);
constexpr auto kWgInputs = inputsOf(kAuthors, 23, 1.80);
constexpr auto kResults = std::to_array<Results>({
    {.id = "pet", .name = "Physiological equivalent temperature", .unit = "°C", .decimals = 1},
    {.id = "t_core", .name = "Core temperature", .unit = "°C"},
    {.id = "t_skin", .name = "Skin temperature", .unit = "°C"},
    {.id = "t_clothing", .name = "Clothing temperature", .unit = "°C"},
    {.id = "wettedness", .name = "Skin wettedness", .decimals = 3}});
constexpr auto kAbbreviations = std::to_array({"PET"sv, "MEMI"sv});
constexpr auto kWarnings = std::to_array({"differs by several K from pet_wg in heat and cold: never mix the two in one series"sv,
    "the activity is that above the basal rate, in W of the whole body"sv, "the air speed is that at 1.1 m"sv});
constexpr auto kWgWarnings = std::to_array({"differs by several K from pet in heat and cold: never mix the two in one series"sv,
    "the published thresholds rest on pet"sv, "the activity is that above the basal rate, in W of the whole body"sv});
constexpr auto kReferences = std::to_array({"Höppe P (1999) The physiological equivalent temperature. Int J Biometeorol 43:71-75"sv, "VDI 3787-2 (2008)"sv});
constexpr auto kWgReferences = std::to_array({"Walther E, Goestchel Q (2018) The P.E.T. comfort index: Questioning the model. Build Environ 137:1-10"sv});
} // namespace pet

namespace phs {
namespace range = standards::phs_range;
constexpr standards::PhsInputs kPerson;
constexpr auto kStandard = "ISO 7933"sv;
constexpr auto kRadiantBeside = "it must be 0 to 60 K above the air temperature"sv;
constexpr Core hectopascals(const Core& kilopascals)
{
    return {kilopascals.name, kilopascals.quantity, {10 * kilopascals.range.low, 10 * kilopascals.range.high}};
}
constexpr auto inputsOf(const Core& vapour, const AdditionInput& metabolic, std::string_view ap, std::string_view fr)
{
    return std::to_array<AdditionInput>({
        Read(inputs::kTa, range::kTa), Read(inputs::kTr, range::kTr).beside(kRadiantBeside), Read(inputs::kV, range::kV),
        Read(kRH, {"rh"}).unless(kEa), Read(kEa, hectopascals(vapour)).beside(kSaturated).optional(kInPlaceOfHumidity),
        metabolic, Read(kWorkWm2, range::kWork).beside(kWorkBeside).start(0, kNoWork), Read(inputs::kClo, range::kClo).beside("with this motion of air and body there is no clothing left"),
        Read(kPosture).words(kAtWork), Read(kAcclimatised), Read(kDrink).start(1, "ISO 7933: water at hand"),
        Read(inputs::kWalking, range::kWalking).optional("a motion as the metabolic rate has it"),
        Read(kWalkingAngle, range::kAngle).optional("the faster of wind and walking"),
        Read(inputs::kDuration, range::kDuration).beside("it is to be a whole number of minutes").start(kPerson.duration, "ISO 7933: a shift of 8 hours"),
        Read(inputs::kWeight, range::kWeight).start(kPerson.weight, kStandard), Read(inputs::kHeight, range::kHeight).start(kPerson.height, kStandard),
        Read(inputs::kImst, range::kImst).start(kPerson.imst, kStandard), Read(inputs::kAp, range::kAp).optional(ap), Read(inputs::kFr, range::kFr).optional(fr)});
}
constexpr auto kInputs2004 = inputsOf(range::kPa2004, Read(kMetabolicWm2, {range::kM.name, range::kM.quantity, range::kM2004}), "0.54", "0.97");
constexpr auto kInputs2023 = inputsOf(range::kPa2023, Read(kMetabolicW, range::kM).beside("it must be 56 to 250 W for each m² of the body"), "0", "0");
constexpr Results kTRe{.id = "t_re", .name = "Rectal temperature at the end", .unit = "°C", .range = {-standards::kInfinity, standards::kPhsFormal}};
constexpr Results kTCr{.id = "t_cr", .name = "Core temperature at the end", .unit = "°C"};
constexpr Results kTSk{.id = "t_sk", .name = "Skin temperature at the end", .unit = "°C"};
constexpr Results kLoss{.id = "water_loss", .name = "Water loss", .unit = "g", .decimals = 0};
constexpr Results kLimit{.id = "d_lim", .name = "Longest exposure", .unit = "min", .decimals = 0, .reachedBy = "reached"};
constexpr Results kLimitTre{.id = "d_lim_tre", .name = "Longest exposure by the rectal temperature of 38 °C", .unit = "min", .decimals = 0, .reachedBy = "reached_tre"};
constexpr Results kReached{.id = "reached", .name = "A limit is reached within the duration", .choices = kNoYes};
constexpr Results kReachedTre{.id = "reached_tre", .name = "The limit of the rectal temperature is reached", .choices = kNoYes};
constexpr auto kResults2004 = std::to_array<Results>({kTRe, kTCr, kTSk, kLoss, kLimit, kLimitTre,
    {.id = "d_lim_loss", .name = "Longest exposure by the water loss, for 95 % of workers", .unit = "min", .decimals = 0, .reachedBy = "reached_loss"},
    {.id = "d_lim_loss_mean", .name = "Longest exposure by the water loss, for the mean worker", .unit = "min", .decimals = 0, .reachedBy = "reached_loss_mean"},
    kReached, kReachedTre,
    {.id = "reached_loss", .name = "The limit of the water loss for 95 % of workers is reached", .choices = kNoYes},
    {.id = "reached_loss_mean", .name = "The limit of the water loss for the mean worker is reached", .choices = kNoYes}});
constexpr auto kResults2023 = std::to_array<Results>({kTRe, kTCr, kTSk, kLoss, kLimit, kLimitTre,
    {.id = "d_lim_loss", .name = "Longest exposure by the water loss", .unit = "min", .decimals = 0, .reachedBy = "reached_loss"},
    kReached, kReachedTre,
    {.id = "reached_loss", .name = "The limit of the water loss is reached", .choices = kNoYes}});
constexpr auto kCourseFigures = std::to_array<Results>({
    {.id = "t_re", .name = "Rectal temperature", .unit = "°C"}, {.id = "t_cr", .name = "Core temperature", .unit = "°C"},
    {.id = "t_sk", .name = "Skin temperature", .unit = "°C"}, {.id = "water_loss", .name = "Water loss since the start", .unit = "g", .decimals = 0},
    {.id = "sweat", .name = "Predicted sweat rate", .unit = "W/m²", .decimals = 1}, {.id = "e_required", .name = "Required evaporation", .unit = "W/m²", .decimals = 1},
    {.id = "e_predicted", .name = "Predicted evaporation", .unit = "W/m²", .decimals = 1}, {.id = "dry", .name = "Heat loss by convection and radiation", .unit = "W/m²", .decimals = 1},
    {.id = "breath", .name = "Heat loss by breathing", .unit = "W/m²", .decimals = 1}, {.id = "ds_eq", .name = "Heat storage by the metabolic rate", .unit = "W/m²", .decimals = 1},
    {.id = "ds", .name = "Heat storage", .unit = "W/m²", .decimals = 1}});
constexpr AdditionCourse kCourse2004{kCourseFigures, standards::kPhsMostMinutes, runs::phsMinutes, runs::phs2004Course};
constexpr AdditionCourse kCourse2023{kCourseFigures, standards::kPhsMostMinutes, runs::phsMinutes, runs::phs2023Course};
constexpr auto kDerived = std::to_array<DerivedName>({{"pa", "the vapour pressure, from air temperature and humidity, is above 4.5 kPa"}});
constexpr auto kDerived2023 = std::to_array<DerivedName>({{"pa", "the vapour pressure, from air temperature and humidity, is not from 0.5 to 4.5 kPa"}});
constexpr auto kAbbreviations = std::to_array({"PHS"sv});
constexpr auto kWarnings2004 = std::to_array({"the metabolic rate is in W/m², in the edition of 2023 in W"sv,
    "a rectal temperature above 39 °C is a formal value, no prediction"sv, "the limit without drink rests on one source"sv});
constexpr auto kWarnings2023 = std::to_array({"the metabolic rate is in W of the whole body, in the edition of 2004 in W/m²"sv,
    "a rectal temperature above 39 °C is a formal value, no prediction"sv});
constexpr auto kReferences2004 = std::to_array({"ISO 7933:2004"sv, "Malchaire J, Piette A, Kampmann B, et al. (2001) Development and validation of the predicted heat strain model. Ann Occup Hyg 45:123-135"sv});
constexpr auto kReferences2023 = std::to_array({"ISO 7933:2023"sv});
} // namespace phs

namespace ireq {
namespace range = standards::ireq_range;
constexpr standards::IreqInputs kPerson;
constexpr auto kInputs = std::to_array<AdditionInput>({
    Read(kMetabolicWm2, range::kM), Read(kWorkWm2, range::kWork).beside(kWorkBeside).start(0, kNoWork), Read(inputs::kTa, range::kTa), Read(inputs::kTr, range::kTr),
    Read(inputs::kPermeability, range::kPermeability).start(kPerson.permeability, "ISO 11079"),
    Read(inputs::kWalking, range::kWalking).beside("it must be 0.0052 (M - 58) m/s at least").optional("the least that goes with the metabolic rate"),
    Read(inputs::kV, range::kV), Read(inputs::kRH, range::kRH).start(kPerson.RH, "ISO 11079"), Read(inputs::kClo, range::kClo)});
constexpr auto kResults = std::to_array<Results>({
    {.id = "ireq_min", .name = "Required insulation IREQ, minimal", .unit = "clo"},
    {.id = "ireq_neutral", .name = "Required insulation IREQ, neutral", .unit = "clo"},
    {.id = "icl_min", .name = "Required basic insulation of the clothing, minimal", .unit = "clo"},
    {.id = "icl_neutral", .name = "Required basic insulation of the clothing, neutral", .unit = "clo"},
    {.id = "dle_min", .name = "Longest exposure in the available clothing, minimal", .unit = "h"},
    {.id = "dle_neutral", .name = "Longest exposure in the available clothing, neutral", .unit = "h"},
    {.id = "metabolic_used", .name = "Metabolic rate, as calculated with", .unit = "W/m²", .decimals = 1},
    {.id = "walking_used", .name = "Walking speed, as calculated with", .unit = "m/s", .decimals = 3},
    {.id = "v_used", .name = "Air speed, as calculated with", .unit = "m/s"}});
constexpr auto kDerived = std::to_array<DerivedName>({{"ireq", "the required insulation"}, {"dle", "the exposure"},
    {range::kWalking.name, "the walking speed that goes with the metabolic rate, 0.0052 (M - 58) m/s, is above 1.2 m/s"}});
constexpr auto kAbbreviations = std::to_array({"IREQ"sv, "DLE"sv});
constexpr auto kWarnings = std::to_array({"the insulation to put on is the basic one, not IREQ"sv,
    "metabolic rate, air speed and walking are raised or lowered to the bounds of the standard, with a mark"sv});
constexpr auto kReferences = std::to_array({"ISO 11079:2007"sv, "Holmér I (1984) Required clothing insulation (IREQ) as an analytical index of the cold stress. ASHRAE Trans 90(1B)"sv});
} // namespace ireq

namespace sun_position {
namespace range = standards::sun_range;
constexpr auto kYears = "this date does not exist"sv;
constexpr auto kInputs = std::to_array<AdditionInput>({
    Read(kYear, {"date"}).within(1950, 2049).beside(kYears), Read(kMonth, {"month"}), Read(kDay, {"day"}),
    Read(kHourUtc, range::kHour), Read(inputs::kLatitude, range::kLatitude), Read(inputs::kLongitude, range::kLongitude)});
constexpr auto kResults = std::to_array<Results>({
    {.id = "altitude", .name = "Altitude of the sun as it appears", .unit = "°"},
    {.id = "azimuth", .name = "Azimuth of the sun, from north by east", .unit = "°"},
    {.id = "distance_au", .name = "Distance of the sun", .unit = "AU", .decimals = 4},
    {.id = "cos_zenith", .name = "Cosine of the sun's zenith angle", .decimals = 4}});
constexpr auto kAbbreviations = std::to_array({"solar position"sv});
constexpr auto kWarnings = std::to_array({"date and time are UTC"sv});
constexpr auto kReferences = std::to_array({"Astronomical Almanac, low-precision formulas"sv, "Michalsky JJ (1988) The Astronomical Almanac's algorithm for approximate solar position (1950-2050). Sol Energy 40:227-235"sv});
} // namespace sun_position

namespace wbgt_liljegren {
namespace range = standards::liljegren_range;
constexpr auto kInputs = std::to_array<AdditionInput>({
    Read(kYear, {"date"}).within(1950, 2049).beside("this date does not exist"), Read(kMonth, {"month"}), Read(kDay, {"day"}),
    Read(inputs::kHour, range::kHour), Read(inputs::kUtcOffset, range::kUtcOffset), Read(inputs::kInterval, range::kInterval),
    Read(inputs::kLatitude, standards::sun_range::kLatitude), Read(inputs::kLongitude, standards::sun_range::kLongitude),
    Read(kSR, range::kS).beside("it is more than arrives outside of the air"), Read(inputs::kPressure, range::kP), Read(inputs::kTa, range::kTa),
    Read(inputs::kRH, range::kRH).beside("the wet bulb has no value in this air"), Read(inputs::kV, range::kV), Read(inputs::kWindHeight, range::kZ).besideReading(inputs::kV, formulas::kWindHeight),
    Read(kTemperatureDifference, range::kDT).optional("nothing by day or with the wind of 2 m, else no value"), Read(kUrban)});
constexpr auto kResults = std::to_array<Results>({
    {.id = "wbgt", .name = "Wet-bulb globe temperature outdoors", .unit = "°C", .decimals = 1, .scaleIndex = 200},
    {.id = "tg", .name = "Globe temperature, of 50.8 mm", .unit = "°C", .decimals = 1},
    {.id = "tnw", .name = "Natural wet-bulb temperature", .unit = "°C", .decimals = 1},
    {.id = "tpsy", .name = "Psychrometric wet-bulb temperature", .unit = "°C", .decimals = 1},
    {.id = "v_2m", .name = "Wind speed at 2 m", .unit = "m/s"},
    {.id = "direct_fraction", .name = "Direct share of the solar radiation", .decimals = 3}});
constexpr auto kDerived = std::to_array<DerivedName>({{"tg", "the globe temperature"}, {"tnw", "the wet-bulb temperature"}});
constexpr auto kAbbreviations = std::to_array({"WBGT"sv});
constexpr auto kWarnings = std::to_array({"the time is the end of the interval that the radiation was averaged over"sv,
    "differs from the program's own WBGT outdoor, which knows no place and time"sv});
constexpr auto kReferences = std::to_array({"Liljegren JC, Carhart RA, Lawday P, Tschopp S, Sharp R (2008) Modeling the wet bulb globe temperature using standard meteorological measurements. J Occup Environ Hyg 5:645-655"sv});
} // namespace wbgt_liljegren

namespace wbgt_7243 {
namespace range = standards::wbgt_7243_range;
constexpr auto kInputs = std::to_array<AdditionInput>({
    Read(inputs::kTnw, range::kTnw).unless(inputs::kWbgt), Read(inputs::kTg, range::kTg).unless(inputs::kWbgt),
    Read(inputs::kTa, range::kTa).unless(inputs::kWbgt).onlyFor(kSun, kYesWord), Read(kSun).unless(inputs::kWbgt),
    Read(inputs::kWbgt, range::kWbgt).optional("it follows from the temperatures"),
    Read(kMetabolicW, range::kM), Read(kWorkClothing).start(0, "ISO 7243: the clothing of its reference values"), Read(kAcclimatised),
    Read(kReference).start(0, "ISO 7243: reference values by class")});
constexpr auto kResults = std::to_array<Results>({
    {.id = "wbgt", .name = "Wet-bulb globe temperature", .unit = "°C", .decimals = 1, .scaleIndex = 199},
    {.id = "wbgt_eff", .name = "Effective wet-bulb globe temperature, with the clothing", .unit = "°C", .decimals = 1},
    {.id = "ref_class", .name = "Class of the metabolic rate", .choices = kWorkClasses},
    {.id = "wbgt_ref", .name = "Reference value", .unit = "°C", .decimals = 1},
    {.id = "exceeds", .name = "Reference value exceeded", .choices = kNoYes}});
constexpr auto kAbbreviations = std::to_array({"WBGT"sv, "WBGT_eff"sv});
constexpr auto kWarnings = std::to_array({"all temperatures are averages over 60 minutes, of a globe of 150 mm"sv,
    "the bounds between the classes rest on one source"sv, "the adjustments for clothing of other bodies differ"sv});
constexpr auto kReferences = std::to_array({"ISO 7243:2017"sv, "NIOSH 2016-106, for the curve"sv});
} // namespace wbgt_7243

namespace work_rest {
namespace range = standards::work_rest_range;
constexpr std::uint16_t kTwa = 0b001, kCapacity = 0b010, kTable = 0b100;
constexpr auto kInputs = std::to_array<AdditionInput>({
    Read(kBasis).start(0, "ISO 7243 and NIOSH 2016-106"),
    Read(inputs::kWbgtEff, range::kWbgtWork).onlyFor(kBasis, kTwa | kCapacity),
    Read(inputs::kWbgtEffRest, range::kWbgtRest).onlyFor(kBasis, kTwa).optional("that of the place of work"),
    Read(kMetabolicW, range::kWork).onlyFor(kBasis, kTwa | kCapacity).beside("it must be above the metabolic rate at rest"),
    Read(kRestW, range::kRest).onlyFor(kBasis, kTwa | kCapacity).optional("115 W, by the work capacity 117 W"),
    Read(kAcclimatised).onlyFor(kBasis, kTwa),
    Read(kCapacityLimit).onlyFor(kBasis, kCapacity).start(0, "ISO 7243"),
    Read(inputs::kTa, range::kTa).onlyFor(kBasis, kTable), Read(inputs::kRH, range::kRH).onlyFor(kBasis, kTable),
    Read(kSunshine).onlyFor(kBasis, kTable), Read(kLabour).onlyFor(kBasis, kTable)});
constexpr auto kResults = std::to_array<Results>({
    {.id = "work_min", .name = "Work in an hour", .unit = "min", .decimals = 1},
    {.id = "rest_min", .name = "Rest in an hour", .unit = "min", .decimals = 1},
    {.id = "work_min_5", .name = "Work in an hour, rounded down to 5 minutes", .unit = "min", .decimals = 0},
    {.id = "share", .name = "Work capacity", .unit = "%", .decimals = 1},
    {.id = "adjusted", .name = "Adjusted temperature of the table", .unit = "°F", .decimals = 1},
    {.id = "advice", .name = "Advice of the table", .choices = kAdvices}});
constexpr auto kDerived = std::to_array<DerivedName>({{"wbgt", "the effective wet-bulb globe temperature"}, {"work_min", "the minutes of work"},
    {"share", "the work capacity belongs to the basis capacity"}, {"table", "this belongs to the basis niosh_table"}});
constexpr auto kAbbreviations = std::to_array({"work rest"sv, "NIOSH"sv});
constexpr auto kWarnings = std::to_array({"the three bases do not agree, each has its own assumptions"sv,
    "the table's additions for humidity were not seen in print"sv, "the table is for ordinary clothing and acclimatised people who drink"sv});
constexpr auto kReferences = std::to_array({"ISO 7243:2017"sv, "NIOSH 2016-106 and 2017-127"sv, "Bröde P, Fiala D, Lemke B, Kjellstrom T (2018) Estimated work ability in warm outdoor environments depends on the chosen heat stress assessment metric. Int J Biometeorol 62:331-345"sv});
} // namespace work_rest

namespace adaptive_ashrae {
namespace range = standards::adaptive_ashrae_range;
constexpr auto kInputs = std::to_array<AdditionInput>({
    Read(inputs::kTa, range::kTa), Read(inputs::kTr, range::kTr), Read(inputs::kV, range::kSpeed), Read(kOutdoorPrevailing, range::kOutdoor)});
constexpr auto kResults = std::to_array<Results>({
    {.id = "t_neutral", .name = "Neutral operative temperature", .unit = "°C", .decimals = 1},
    {.id = "operative", .name = "Operative temperature", .unit = "°C", .decimals = 1},
    {.id = "low_80", .name = "Lower limit for 80 % acceptability", .unit = "°C", .decimals = 1},
    {.id = "up_80", .name = "Upper limit for 80 % acceptability", .unit = "°C", .decimals = 1},
    {.id = "accept_80", .name = "Acceptable to 80 %", .choices = kNoYes},
    {.id = "low_90", .name = "Lower limit for 90 % acceptability", .unit = "°C", .decimals = 1},
    {.id = "up_90", .name = "Upper limit for 90 % acceptability", .unit = "°C", .decimals = 1},
    {.id = "accept_90", .name = "Acceptable to 90 %", .choices = kNoYes}});
constexpr auto kAbbreviations = std::to_array({"adaptive comfort"sv});
constexpr auto kWarnings = std::to_array({"holds for 1 to 1.3 met, 0.5 to 1 clo as people choose, and no mechanical cooling"sv});
constexpr auto kReferences = std::to_array({"ASHRAE Standard 55-2020"sv, "de Dear RJ, Brager GS (1998) Developing an adaptive model of thermal comfort and preference. ASHRAE Trans 104(1A)"sv});
} // namespace adaptive_ashrae

namespace adaptive_en {
namespace range = standards::adaptive_en_range;
constexpr auto kInputs = std::to_array<AdditionInput>({
    Read(inputs::kTa, range::kTa), Read(inputs::kTr, range::kTr), Read(inputs::kV, range::kSpeed), Read(kOutdoorRunning, range::kOutdoor)});
constexpr auto kResults = std::to_array<Results>({
    {.id = "t_neutral", .name = "Neutral operative temperature", .unit = "°C", .decimals = 1},
    {.id = "operative", .name = "Operative temperature", .unit = "°C", .decimals = 1},
    {.id = "low_1", .name = "Lower limit of category I", .unit = "°C", .decimals = 1},
    {.id = "up_1", .name = "Upper limit of category I", .unit = "°C", .decimals = 1},
    {.id = "accept_1", .name = "In category I", .choices = kNoYes},
    {.id = "low_2", .name = "Lower limit of category II", .unit = "°C", .decimals = 1},
    {.id = "up_2", .name = "Upper limit of category II", .unit = "°C", .decimals = 1},
    {.id = "accept_2", .name = "In category II", .choices = kNoYes},
    {.id = "low_3", .name = "Lower limit of category III", .unit = "°C", .decimals = 1},
    {.id = "up_3", .name = "Upper limit of category III", .unit = "°C", .decimals = 1},
    {.id = "accept_3", .name = "In category III", .choices = kNoYes}});
constexpr auto kAbbreviations = std::to_array({"adaptive comfort"sv});
constexpr auto kWarnings = std::to_array({"holds for 1 to 1.3 met, 0.5 to 1 clo as people choose, and no mechanical cooling"sv,
    "some readings of the standard want a running mean above 12.73 °C before moving air raises the limits"sv});
constexpr auto kReferences = std::to_array({"EN 16798-1:2019"sv});
} // namespace adaptive_en

namespace tmrt {
namespace globe {
namespace range = standards::tmrt_globe_range;
constexpr standards::TmrtGlobeInputs kStart;
constexpr auto kInputs = std::to_array<AdditionInput>({
    Read(inputs::kTg, range::kTg), Read(inputs::kTa, range::kTa), Read(inputs::kV, range::kV),
    Read(kDiameter, range::kD).start(kStart.D, "ISO 7726: the standard globe").besideReading(inputs::kTg, kReadingsGlobe), Read(inputs::kEmissivity, range::kEmissivity).start(kStart.emissivity, "ISO 7726: black paint")});
constexpr auto kAbbreviations = std::to_array({"Tmrt"sv, "MRT"sv});
constexpr auto kWarnings = std::to_array({"the globe of the readings has 50 mm, the standard's 150 mm"sv, "the standard's printed factors are rounded"sv});
constexpr auto kReferences = std::to_array({"ISO 7726:1998"sv});
} // namespace globe
namespace six {
namespace range = standards::tmrt_six_range;
constexpr standards::TmrtSixInputs kStart;
constexpr auto kInputs = [] {
    return std::to_array<AdditionInput>({
        Read(kShortSides[0], range::kK[0]), Read(kShortSides[1], range::kK[1]), Read(kShortSides[2], range::kK[2]), Read(kShortSides[3], range::kK[3]), Read(kShortSides[4], range::kK[4]), Read(kShortSides[5], range::kK[5]),
        Read(kLongSides[0], range::kL[0]), Read(kLongSides[1], range::kL[1]), Read(kLongSides[2], range::kL[2]), Read(kLongSides[3], range::kL[3]), Read(kLongSides[4], range::kL[4]), Read(kLongSides[5], range::kL[5]),
        Read(kPosture).words(kStandingOrSitting), Read(kShortAbsorptance, range::kShort).start(kStart.shortAbsorptance, "VDI 3787-2"),
        Read(kLongAbsorptance, range::kLong).start(kStart.longAbsorptance, "VDI 3787-2")});
}();
constexpr auto kWarnings = std::to_array({"a sphere weighs the sides as a person who sits"sv});
constexpr auto kReferences = std::to_array({"Höppe P (1992) A new procedure to determine the mean radiant temperature outdoors. Wetter und Leben 44:147-151"sv, "VDI 3787-2"sv});
} // namespace six
namespace flux {
namespace range = standards::tmrt_flux_range;
constexpr auto kNetBeside = "it must not exceed the downward radiation"sv;
constexpr auto kInputs = std::to_array<AdditionInput>({
    Read(kSR, range::kS), Read(kShortNet, range::kNetS).beside(kNetBeside), Read(kDirectNormal, range::kI).beside("a beam from below the horizon"),
    Read(kDirectHorizontal, range::kDh).beside("it must not exceed the global radiation"), Read(kLongDown, range::kL), Read(kLongNet, range::kNetL).beside(kNetBeside), Read(kSunSine, range::kMu)});
constexpr auto kWarnings = std::to_array({"net fluxes are downward less upward: that of the long waves is mostly negative"sv});
constexpr auto kReferences = std::to_array({"Di Napoli C, Hogan RJ, Pappenberger F (2020) Mean radiant temperature from global-scale numerical weather prediction models. Int J Biometeorol 64:1233-1245"sv});
} // namespace flux
namespace solarcal {
namespace range = standards::solarcal_range;
constexpr standards::SolarCalInputs kStart;
constexpr auto kInputs = std::to_array<AdditionInput>({
    Read(kTr, range::kTmrt).optional("the sun's share alone"), Read(kSunAltitude, range::kAltitude), Read(inputs::kSharp, range::kSharp), Read(kDirectNormal, range::kI),
    Read(inputs::kTransmittance, range::kTransmittance), Read(inputs::kSkyView, range::kSkyView), Read(inputs::kExposed, range::kExposed),
    Read(kShortAbsorptance, range::kAbsorptance).start(kStart.absorptance, "ASHRAE 55, Appendix C"), Read(inputs::kFloor, range::kFloor).start(kStart.floor, "ASHRAE 55, Appendix C"),
    Read(kPosture).words(kUnderTheSun)});
constexpr auto kResults = std::to_array<Results>({
    {.id = "erf", .name = "Effective radiant field of the sun", .unit = "W/m²", .decimals = 1},
    {.id = "delta_mrt", .name = "What the sun adds to the mean radiant temperature", .unit = "K"},
    {.id = "tmrt", .name = "Mean radiant temperature with the sun", .unit = "°C"}});
constexpr auto kDerived = std::to_array<DerivedName>({{"tmrt", "the mean radiant temperature without the sun is not given"}});
constexpr auto kAbbreviations = std::to_array({"SolarCal"sv, "ERF"sv, "Tmrt"sv, "MRT"sv});
constexpr auto kWarnings = std::to_array({"the diffuse sky counts as 0.2 of the direct beam; older texts have it otherwise"sv, "the lying posture rests on one source"sv});
constexpr auto kReferences = std::to_array({"ASHRAE Standard 55-2017 to 55-2023, Appendix C"sv, "Arens E, Hoyt T, Zhou X, Huang L, Zhang H, Schiavon S (2015) Modeling the comfort effects of short-wave solar radiation indoors. Build Environ 88:3-9"sv});
} // namespace solarcal
constexpr auto kResults = std::to_array<Results>({{.id = "tmrt", .name = "Mean radiant temperature", .unit = "°C"}});
constexpr auto kDerived = std::to_array<DerivedName>({{"tmrt", "less than nothing would be radiated"}});
constexpr auto kAbbreviations = std::to_array({"Tmrt"sv, "MRT"sv});
} // namespace tmrt

namespace utci {
namespace range = standards::utci_range;
constexpr auto kInputs = std::to_array<AdditionInput>({
    Read(inputs::kTa, range::kTa), Read(kTr, range::kTmrt), Read(inputs::kV, range::kSpeed).beside("taken to 10 m it lies outside 0.5 to 17 m/s"),
    Read(inputs::kRH, range::kRH).beside("its vapour pressure must be below 5 kPa"),
    Read(kWindHeight, range::kHeight).beside("there is no wind so near to the ground").start(standards::kUtciWindHeight, "UTCI: the wind at 10 m").besideReading(inputs::kV, formulas::kWindHeight)});
constexpr auto kResults = std::to_array<Results>({
    {.id = "utci", .name = "Universal Thermal Climate Index", .unit = "°C", .decimals = 1, .scaleIndex = 195},
    {.id = "stress", .name = "Category of thermal stress", .choices = kStresses},
    {.id = "v10", .name = "Wind speed at 10 m, as calculated with", .unit = "m/s"}});
constexpr auto kDerived = std::to_array<DerivedName>({{"tmrt - ta", "the mean radiant temperature must be 30 K below to 70 K above the air temperature"}});
constexpr auto kAbbreviations = std::to_array({"UTCI"sv});
constexpr auto kWarnings = std::to_array({"index 195 has the id utci, too: unlike it, this model takes radiation and wind as typed and rounds nothing; its figures are utci.utci and so on"sv});
constexpr auto kReferences = std::to_array({"Bröde P, Fiala D, Błażejczyk K, et al. (2012) Deriving the operational procedure for the Universal Thermal Climate Index (UTCI). Int J Biometeorol 56:481-494"sv});
} // namespace utci

namespace heat_index {
namespace range = standards::heat_index_range;
constexpr auto kInputs = std::to_array<AdditionInput>({
    Read(inputs::kTa, range::kTa).within(physicalBounds(Of::Temperature).low, (range::kRegression.high - 32) / 1.8).beside("the regression begins at 80 °F, 26.7 °C"), Read(inputs::kRH, range::kRH)});
constexpr auto kResults = std::to_array<Results>({{.id = "heat_index", .name = "Heat index", .unit = "°C", .decimals = 1, .scaleIndex = 86}});
constexpr auto kAbbreviations = std::to_array({"HI"sv, "NWS"sv});
constexpr auto kWarnings = std::to_array({"for shade and a light wind"sv});
constexpr auto kReferences = std::to_array({"Rothfusz LP (1990) The heat index equation. NWS Technical Attachment SR 90-23"sv, "National Weather Service, Weather Prediction Center"sv});
} // namespace heat_index

namespace wind_chill {
namespace range = standards::wind_chill_range;
constexpr auto kInputs = std::to_array<AdditionInput>({Read(inputs::kTa, range::kTemperatureTa), Read(kV10, range::kTemperatureSpeed).within(0, range::kLossSpeed.range.high).beside("the wind chill temperature wants 1.333 m/s (4.8 km/h) or more")});
constexpr auto kResults = std::to_array<Results>({
    {.id = "wct", .name = "Wind chill temperature", .unit = "°C", .decimals = 1, .scaleIndex = 211},
    {.id = "wci", .name = "Wind chill index, a heat loss", .unit = "W/m²", .decimals = 0},
    {.id = "local_cooling", .name = "Local cooling of bare skin (ISO 11079)", .choices = kCoolings}});
constexpr auto kAbbreviations = std::to_array({"WCT"sv, "WCI"sv});
constexpr auto kWarnings = std::to_array({"the wind is that at 10 m"sv});
constexpr auto kReferences = std::to_array({"Osczevski R, Bluestein M (2005) The new wind chill equivalent temperature chart. Bull Am Meteorol Soc 86:1453-1458"sv, "ISO 11079:2007, Annex D"sv,
    "Siple PA, Passel CF (1945) Measurements of dry atmospheric cooling in subfreezing temperatures. Proc Am Philos Soc 89:177-199"sv});
} // namespace wind_chill

namespace body_surface {
namespace range = standards::body_surface_range;
constexpr auto kInputs = std::to_array<AdditionInput>({Read(inputs::kWeight, range::kWeight), Read(inputs::kHeight, range::kHeight), Read(kFormula).start(0, "as most models have it")});
constexpr auto kResults = std::to_array<Results>({{.id = "area", .name = "Body surface", .unit = "m²", .decimals = 3}});
constexpr auto kAbbreviations = std::to_array({"BSA"sv});
constexpr auto kReferences = std::to_array({"DuBois D, DuBois EF (1916) A formula to estimate the approximate surface area if height and weight be known. Arch Intern Med 17:863-871"sv});
} // namespace body_surface

constexpr auto kAdditions = std::to_array<Addition>({
    {.id = "pmv_iso", .name = "Predicted mean vote (ISO 7730)", .authors = "ISO 7730", .year = "2005", .family = Family::ComfortVote, .isStandard = true, .abbreviations = pmv_iso::kAbbreviations,
     .description = "The mean vote of a large group of people on the seven-point scale from cold (-3) to hot (3), and the share that is dissatisfied, by the heat balance of the body. It holds for people at rest or light work in moderate rooms.",
     .warnings = pmv_iso::kWarnings, .references = pmv_iso::kReferences, .inputs = pmv_iso::kInputs, .results = pmv_iso::kResults, .derived = {&kVapourOfPmv, 1}, .calculate = runs::pmvIso},
    {.id = "pmv_ashrae", .name = "Predicted mean vote with elevated air speed (ASHRAE 55)", .authors = "ASHRAE 55", .year = "2020", .family = Family::ComfortVote, .isStandard = true, .abbreviations = pmv_ashrae::kAbbreviations,
     .description = "The mean vote where the air moves: that of still air which is cooler by the cooling effect, at which the standard effective temperature is the same. It tells whether the vote complies with the standard and which air speed is allowed.",
     .warnings = pmv_ashrae::kWarnings, .references = pmv_ashrae::kReferences, .inputs = pmv_ashrae::kInputs, .results = pmv_ashrae::kResults, .derived = pmv_ashrae::kDerived, .calculate = runs::pmvAshrae},
    {.id = "two_node", .name = "Two-node model and SET (Gagge; ASHRAE 55)", .authors = "Gagge AP, Fobelets AP, Berglund LG", .year = "1986", .family = Family::Physiology, .isStandard = true, .abbreviations = two_node::kAbbreviations,
     .description = "A body of core and skin over 60 minutes, and the temperature of standard surroundings in which it would lose the same heat (SET). Skin and core temperature, wettedness, sensation and discomfort stand beside it.",
     .warnings = two_node::kWarnings, .references = two_node::kReferences, .inputs = two_node::kInputs, .results = two_node::kResults, .derived = two_node::kDerived, .course = &two_node::kCourse, .calculate = runs::twoNode},
    {.id = "pet", .name = "Physiological equivalent temperature (Höppe; 1999)", .authors = "Höppe P", .year = "1999", .family = Family::Physiology, .abbreviations = pet::kAbbreviations,
     .description = "The temperature of a room in which core and skin of a person outdoors would be balanced as they are, by the Munich energy balance model. The published thresholds rest on this form.",
     .warnings = pet::kWarnings, .references = pet::kReferences, .inputs = pet::kInputs, .results = pet::kResults, .calculate = runs::pet},
    {.id = "pet_wg", .name = "Physiological equivalent temperature, corrected (Walther and Goestchel; 2018)", .authors = "Walther E, Goestchel Q", .year = "2018", .family = Family::Physiology, .abbreviations = pet::kAbbreviations,
     .description = "The physiological equivalent temperature with evaporation and clothing of the reference mended. It differs from the form of 1999 by several kelvins in heat and cold.",
     .warnings = pet::kWgWarnings, .references = pet::kWgReferences, .inputs = pet::kWgInputs, .results = pet::kResults, .calculate = runs::petWg},
    {.id = "phs_2004", .name = "Predicted heat strain (ISO 7933; 2004)", .authors = "ISO 7933", .year = "2004", .family = Family::Physiology, .isStandard = true, .abbreviations = phs::kAbbreviations,
     .description = "Rectal temperature, sweat and loss of water of a worker in the heat, minute by minute. It tells after how many minutes the rectal temperature or the loss of water reaches its limit.",
     .warnings = phs::kWarnings2004, .references = phs::kReferences2004, .inputs = phs::kInputs2004, .results = phs::kResults2004, .derived = phs::kDerived, .course = &phs::kCourse2004, .calculate = runs::phs2004},
    {.id = "phs_2023", .name = "Predicted heat strain (ISO 7933; 2023)", .authors = "ISO 7933", .year = "2023", .family = Family::Physiology, .isStandard = true, .abbreviations = phs::kAbbreviations,
     .description = "Rectal temperature, sweat and loss of water of a worker in the heat, minute by minute, by the edition of 2023. It tells after how many minutes the rectal temperature or the loss of water reaches its limit.",
     .warnings = phs::kWarnings2023, .references = phs::kReferences2023, .inputs = phs::kInputs2023, .results = phs::kResults2023, .derived = phs::kDerived2023, .course = &phs::kCourse2023, .calculate = runs::phs2023},
    {.id = "ireq", .name = "Required clothing insulation (ISO 11079)", .authors = "ISO 11079", .year = "2007", .family = Family::Cold, .isStandard = true, .abbreviations = ireq::kAbbreviations,
     .description = "The clothing insulation that keeps the heat balance in the cold, for minimal strain and for comfort. For the clothing at hand it tells how long an exposure can last.",
     .warnings = ireq::kWarnings, .references = ireq::kReferences, .inputs = ireq::kInputs, .results = ireq::kResults, .derived = ireq::kDerived, .calculate = runs::ireq},
    {.id = "sun_position", .name = "Position of the sun (Astronomical Almanac)", .authors = "Astronomical Almanac; Michalsky JJ", .year = "1988", .family = Family::Radiation, .abbreviations = sun_position::kAbbreviations,
     .description = "Where the sun appears to be at a place and time, to 0.01 degrees, refraction included. Distance and the cosine of the zenith angle are for models of radiation.",
     .warnings = sun_position::kWarnings, .references = sun_position::kReferences, .inputs = sun_position::kInputs, .results = sun_position::kResults, .calculate = runs::sunPosition},
    {.id = "wbgt_liljegren", .name = "Wet-bulb globe temperature outdoors (Liljegren; 2008)", .authors = "Liljegren JC, Carhart RA, Lawday P, Tschopp S, Sharp R", .year = "2008", .family = Family::Radiation, .abbreviations = wbgt_liljegren::kAbbreviations,
     .description = "The wet-bulb globe temperature from a weather station's readings, by the heat balances of globe and wick under the sun of place and time. Globe, natural and psychrometric wet-bulb temperature stand beside it.",
     .warnings = wbgt_liljegren::kWarnings, .references = wbgt_liljegren::kReferences, .inputs = wbgt_liljegren::kInputs, .results = wbgt_liljegren::kResults, .derived = wbgt_liljegren::kDerived, .calculate = runs::wbgtLiljegren},
    {.id = "wbgt_iso7243", .name = "Heat stress by WBGT (ISO 7243)", .authors = "ISO 7243", .year = "2017", .family = Family::HumidHeat, .isStandard = true, .abbreviations = wbgt_7243::kAbbreviations,
     .description = "The wet-bulb globe temperature with what the clothing adds, held against the reference value for the metabolic rate and acclimatisation. Above the reference value the work needs to be changed.",
     .warnings = wbgt_7243::kWarnings, .references = wbgt_7243::kReferences, .inputs = wbgt_7243::kInputs, .results = wbgt_7243::kResults, .calculate = runs::wbgt7243},
    {.id = "work_rest", .name = "Work and rest in the heat (ISO 7243, NIOSH)", .authors = "ISO 7243; NIOSH; Bröde P, Fiala D, Lemke B, Kjellstrom T", .year = "2018", .family = Family::HumidHeat, .isStandard = true, .abbreviations = work_rest::kAbbreviations,
     .description = "How many minutes of an hour can be worked in the heat, on one of three bases. The rest of the hour is for resting.",
     .warnings = work_rest::kWarnings, .references = work_rest::kReferences, .inputs = work_rest::kInputs, .results = work_rest::kResults, .derived = work_rest::kDerived, .calculate = runs::workRest},
    {.id = "adaptive_ashrae", .name = "Adaptive comfort (ASHRAE 55)", .authors = "ASHRAE 55", .year = "2020", .family = Family::ComfortVote, .isStandard = true, .abbreviations = adaptive_ashrae::kAbbreviations,
     .description = "The operative temperatures that people accept in rooms which they cool by windows, by the weather of the last days. The limits are for 80 and for 90 % of people.",
     .warnings = adaptive_ashrae::kWarnings, .references = adaptive_ashrae::kReferences, .inputs = adaptive_ashrae::kInputs, .results = adaptive_ashrae::kResults, .calculate = runs::adaptiveAshrae},
    {.id = "adaptive_en", .name = "Adaptive comfort (EN 16798-1)", .authors = "EN 16798-1", .year = "2019", .family = Family::ComfortVote, .isStandard = true, .abbreviations = adaptive_en::kAbbreviations,
     .description = "The operative temperatures that people accept in buildings without mechanical cooling, by the running mean of the outdoor temperature. The limits are those of categories I, II and III.",
     .warnings = adaptive_en::kWarnings, .references = adaptive_en::kReferences, .inputs = adaptive_en::kInputs, .results = adaptive_en::kResults, .calculate = runs::adaptiveEn},
    {.id = "tmrt_globe", .name = "Mean radiant temperature from a globe (ISO 7726)", .authors = "ISO 7726", .year = "1998", .family = Family::Radiation, .isStandard = true, .abbreviations = tmrt::globe::kAbbreviations,
     .description = "The mean radiant temperature from the temperature of a globe of any size. What the globe gets by radiation it gives to the air, by natural or forced convection.",
     .warnings = tmrt::globe::kWarnings, .references = tmrt::globe::kReferences, .inputs = tmrt::globe::kInputs, .results = tmrt::kResults, .derived = tmrt::kDerived, .calculate = runs::tmrtGlobe},
    {.id = "tmrt_six", .name = "Mean radiant temperature from six sides (VDI 3787-2)", .authors = "Höppe P; VDI 3787-2", .year = "1992", .family = Family::Radiation, .isStandard = true, .abbreviations = tmrt::kAbbreviations,
     .description = "The mean radiant temperature from the short-wave and long-wave radiation on six sides of a body. The sides weigh by the posture.",
     .warnings = tmrt::six::kWarnings, .references = tmrt::six::kReferences, .inputs = tmrt::six::kInputs, .results = tmrt::kResults, .derived = tmrt::kDerived, .calculate = runs::tmrtSix},
    {.id = "tmrt_flux", .name = "Mean radiant temperature from fluxes (Di Napoli; 2020)", .authors = "Di Napoli C, Hogan RJ, Pappenberger F", .year = "2020", .family = Family::Radiation, .abbreviations = tmrt::kAbbreviations,
     .description = "The mean radiant temperature outdoors from the radiation that weather models give. Direct radiation is read both normal to the beam and on the horizontal.",
     .warnings = tmrt::flux::kWarnings, .references = tmrt::flux::kReferences, .inputs = tmrt::flux::kInputs, .results = tmrt::kResults, .derived = tmrt::kDerived, .calculate = runs::tmrtFlux},
    {.id = "tmrt_solarcal", .name = "Sun through a window, SolarCal (ASHRAE 55)", .authors = "Arens E, Hoyt T, Zhou X, Huang L, Zhang H, Schiavon S", .year = "2015", .family = Family::Radiation, .isStandard = true, .abbreviations = tmrt::solarcal::kAbbreviations,
     .description = "What the sun through a window adds to the mean radiant temperature of a person in a room. The effective radiant field is the same as a flux.",
     .warnings = tmrt::solarcal::kWarnings, .references = tmrt::solarcal::kReferences, .inputs = tmrt::solarcal::kInputs, .results = tmrt::solarcal::kResults, .derived = tmrt::solarcal::kDerived, .calculate = runs::tmrtSolarCal},
    {.id = "utci", .name = "Universal Thermal Climate Index (Bröde; 2012)", .authors = "Bröde P, Fiala D, Błażejczyk K", .year = "2012", .family = Family::Radiation, .abbreviations = utci::kAbbreviations,
     .description = "The air temperature of a reference outdoors that strains the body alike, by the published regression. Mean radiant temperature and wind are inputs of their own.",
     .warnings = utci::kWarnings, .references = utci::kReferences, .inputs = utci::kInputs, .results = utci::kResults, .derived = utci::kDerived, .calculate = runs::utci},
    {.id = "heat_index", .name = "Heat index (National Weather Service)", .authors = "National Weather Service; Rothfusz LP", .year = "1990", .family = Family::HumidHeat, .abbreviations = heat_index::kAbbreviations,
     .description = "How warm humid air feels in the shade, as the weather service of the United States calculates it. Below 80 °F a simple average, above it the regression of Rothfusz with two adjustments.",
     .warnings = heat_index::kWarnings, .references = heat_index::kReferences, .inputs = heat_index::kInputs, .results = heat_index::kResults, .calculate = runs::heatIndex},
    {.id = "wind_chill", .name = "Wind chill (2001; ISO 11079)", .authors = "Osczevski R, Bluestein M; Siple PA, Passel CF", .year = "2001", .family = Family::Cold, .isStandard = true, .abbreviations = wind_chill::kAbbreviations,
     .description = "The wind chill temperature of 2001 with what it does to bare skin. The wind chill index of Siple and Passel, a heat loss, stands beside it.",
     .warnings = wind_chill::kWarnings, .references = wind_chill::kReferences, .inputs = wind_chill::kInputs, .results = wind_chill::kResults, .calculate = runs::windChill},
    {.id = "body_surface", .name = "Body surface (DuBois and others)", .authors = "DuBois D, DuBois EF", .year = "1916", .family = Family::Physiology, .abbreviations = body_surface::kAbbreviations,
     .description = "The surface of the body from weight and height, by one of eight formulas. Most models take that of DuBois with the factor 0.202.",
     .references = body_surface::kReferences, .inputs = body_surface::kInputs, .results = body_surface::kResults, .calculate = runs::bodySurface},
});
// clang-format on

constexpr bool fits(const Addition& model)
{
    return model.inputs.size() <= kMostAdditionInputs && model.results.size() <= kMostAdditionResults &&
           (model.course == nullptr || model.course->figures.size() <= kMostCourseFigures);
}
static_assert(std::ranges::all_of(kAdditions, fits));
static_assert(phs::kInputs2004[runs::kPhsDuration].info == &kDuration);
static_assert(phs::kCourseFigures.size() == runs::kPhsFigures);
static_assert(two_node::kCourseFigures.size() == runs::kTwoNodeFigures);

} // namespace

std::span<const Addition> additions()
{
    return kAdditions;
}

} // namespace comfortics::catalogue
