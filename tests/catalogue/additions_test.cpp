// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/additions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace comfortics::catalogue {
namespace {

using standards::Reason;

struct Answer {
    std::vector<double> inputs;
    std::vector<double> results;
    std::vector<standards::Verdict> verdicts;

    std::string words(const Addition& model, std::size_t result = 0) const
    {
        return verdictInWords(model, verdicts[result], inputs);
    }
};

void calculate(const Addition& model, Answer& answer, standards::Limits limits = standards::Limits::Mark)
{
    answer.results.assign(model.results.size(), 0);
    answer.verdicts.assign(model.results.size(), {});
    model.run(answer.inputs, answer.results, answer.verdicts, limits);
}

/// Inputs as "ta=22 posture=sitting"; the start values stand for the others.
Answer answerTo(const Addition& model, const std::string& text,
                standards::Limits limits = standards::Limits::Mark)
{
    Answer answer;
    for (const AdditionInput& input : model.inputs)
        answer.inputs.push_back(input.start);
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        const std::size_t sign = word.find('=');
        const auto place = model.inputPlace(word.substr(0, sign));
        EXPECT_TRUE(place) << word;
        if (!place)
            continue;
        const auto choice = choiceOf(model.inputs[*place].info->choices, word.substr(sign + 1));
        answer.inputs[*place] = choice ? *choice : std::stod(word.substr(sign + 1));
    }
    calculate(model, answer, limits);
    return answer;
}

struct Example {
    const char* model;
    const char* inputs;
    const char* results; ///< to the digits that they have
};

// Of the standards and papers, or calculated apart from their text. The first of each model has all inputs
// that are required.
// clang-format off
constexpr Example kExamples[] = {
    {"pmv_iso", "ta=24 tr=30 v=0.3 rh=45 met=1.6 clo=0.7 work_met=0.2", "pmv=0.5579 ppd=11.517 category=2"},
    {"pmv_iso", "ta=23 tr=23 v=0.2 rh=50 met=2 clo=0.8 motion=iso", "pmv=0.5337 v_relative=0.5 clo_actual=0.67153"},
    {"pmv_ashrae", "ta=28 tr=29 v=0.8 rh=60 met=1.1 clo=0.6", "cooling_effect=3.3804 pmv=0.1673 ppd=5.58 compliant=1"},
    {"two_node", "ta=16 tr=14 v=0.5 rh=40 met=1.2 clo=1.2 posture=sitting", "set=19.039 t_skin=31.727 t_core=36.845 wettedness=0.060 e_skin=7.049 disc=-0.229"},
    {"two_node", "ta=25 tr=25 v=0.1 rh=50 met=1 clo=0.6 pressure=800", "set=25.130 e_skin=13.374 disc=0.262"},
    {"two_node", "ta=28 tr=28 v=0.8 rh=50 met=1.6 clo=0.5 edition=2017", "set=26.201 t_skin=34.400 e_skin=44.244"},
    {"pet", "ta=25 tr=40 v=0.5 ea=15 clo=0.5 activity_w=150 sex=female age=70 height=1.65 weight=60", "pet=30.606 t_core=37.274 t_skin=35.549 wettedness=0.294"},
    {"pet", "ta=15 tr=20 v=1 ea=9 posture=sitting clo=1.2", "pet=13.286 t_core=36.782 t_skin=31.198"},
    {"pet", "ta=20 tr=30 v=1 ea=12 pressure=850", "pet=20.744"},
    {"pet_wg", "ta=12 tr=25 v=0.3 rh=60 activity_w=120 clo=0.7 sex=female age=60 height=1.64 weight=62", "pet=16.852 t_core=36.730 t_skin=24.313 t_clothing=20.644"},
    {"pet_wg", "ta=30 tr=45 v=1 rh=40", "pet=34.122"},
    {"phs_2004", "ta=33 tr=33 v=1 ea=25 metabolic_w_m2=250 clo=0.7 posture=crouching acclimatised=no duration=120 weight=62 height=1.68", "t_re=38.092 t_cr=38.024 t_sk=35.368 water_loss=1295.9 d_lim_tre=37 d_lim=37 reached_loss=0"},
    {"phs_2004", "ta=42 tr=42 v=0.3 ea=20 metabolic_w_m2=150 clo=0.4 posture=standing acclimatised=yes walking=1 walking_angle=90", "t_re=37.651 water_loss=5238.4 d_lim_loss=347 reached_loss=1 reached_loss_mean=0"},
    {"phs_2004", "ta=38 tr=45 v=0.5 ea=30 metabolic_w_m2=165 clo=0.6 posture=standing acclimatised=yes drink=no", "d_lim_tre=160 d_lim_loss=154"},
    {"phs_2023", "ta=36 tr=36 v=0.2 rh=62 metabolic_w=380 clo=0.6 posture=sitting acclimatised=no", "t_re=43.835 t_cr=43.667 t_sk=38.643 water_loss=8011.1 d_lim_tre=35 d_lim_loss=203"},
    {"phs_2023", "ta=33 tr=60 v=0.3 rh=40 metabolic_w=280 clo=0.9 posture=standing acclimatised=yes ap=0.4 fr=0.85", "t_re=37.416 water_loss=7849.8 d_lim_loss=238 reached_tre=0"},
    {"ireq", "metabolic_w_m2=140 work_w_m2=20 ta=-10 tr=-10 permeability=20 walking=0.5 v=3 rh=85 clo=2.2", "ireq_min=2.228 ireq_neutral=2.595 icl_min=3.076 icl_neutral=3.599 dle_min=1.190 dle_neutral=0.744"},
    {"sun_position", "year=2024 month=2 day=29 hour_utc=6.5 latitude=-35.3 longitude=149.1", "altitude=26.0721 azimuth=279.3171"},
    {"wbgt_liljegren", "year=2024 month=4 day=15 hour=14.5 utc_offset=8 interval=60 latitude=1.3521 longitude=103.8198 sr=742 pressure=1008.4 ta=32.1 rh=68 v=2.8 wind_height=10 dt=-0.4 urban=yes",
     "wbgt=32.494 tg=45.790 tnw=28.751 tpsy=26.941 v_2m=2.199 direct_fraction=0.516"},
    {"wbgt_iso7243", "tnw=25 tg=40 ta=30 sun=yes metabolic_w=300 acclimatised=no work_clothing=double_layer", "wbgt=28.50 wbgt_eff=31.50 ref_class=2 wbgt_ref=26 exceeds=1"},
    {"wbgt_iso7243", "tnw=20 tg=30 sun=no metabolic_w=300 acclimatised=yes reference=curve", "wbgt=23.00 wbgt_ref=28.21 exceeds=0"},
    {"wbgt_iso7243", "wbgt=31 metabolic_w=180 acclimatised=yes", "wbgt_eff=31 wbgt_ref=30 exceeds=1"},
    {"work_rest", "wbgt_eff=28 metabolic_w=415 acclimatised=yes", "work_min=39.62 rest_min=20.38 work_min_5=35"},
    {"work_rest", "basis=capacity wbgt_eff=30 metabolic_w=300 capacity_limits=niosh", "share=62.003"},
    {"work_rest", "basis=niosh_table ta=30 rh=50 sunshine=full labour=moderate", "adjusted=105 work_min=25 advice=1"},
    {"adaptive_ashrae", "ta=28 tr=29 v=0.7 t_outdoor_prevailing=20", "operative=28.3 t_neutral=24.0 low_80=20.5 up_80=28.7 low_90=21.5 up_90=27.7 accept_80=1 accept_90=0"},
    {"adaptive_en", "ta=27 tr=28 v=0.1 t_outdoor_running=18", "operative=27.5 t_neutral=24.74 low_1=21.74 up_1=26.74 accept_1=0 up_2=27.74 accept_2=1 up_3=28.74 accept_3=1"},
    {"tmrt_globe", "tg=45 ta=35 v=2 diameter=0.04 emissivity=0.9", "tmrt=88.08"},
    {"tmrt_six", "short_north=100 short_east=150 short_south=300 short_west=200 short_up=700 short_down=120 long_north=420 long_east=430 long_south=440 long_west=425 long_facing_up=360 long_facing_down=500 posture=standing", "tmrt=45.351"},
    {"tmrt_flux", "sr=300 short_net=240 direct_normal=200 direct_horizontal=40 long_down=350 long_net=-60 sun_sine=0.2", "tmrt=39.103"},
    {"tmrt_solarcal", "sun_altitude=70 sharp=90 direct_normal=900 transmittance=0.6 sky_view=0.3 exposed=0.3 posture=lying", "erf=67.495 delta_mrt=15.516"},
    {"tmrt_solarcal", "tr=20 sun_altitude=10 sharp=20 direct_normal=300 transmittance=0.5 sky_view=0.5 exposed=0.5 short_absorptance=0.6 posture=sitting", "erf=17.425 tmrt=24.173"},
    {"tmrt_solarcal", "sun_altitude=52 sharp=137 direct_normal=850 transmittance=1 sky_view=1 exposed=1 floor_reflectance=0.25 posture=standing", "erf=192.343"},
    {"utci", "ta=10 tr=30 v=3 rh=60", "utci=11.686 stress=5"},
    {"heat_index", "ta=29 rh=92", "heat_index=37.799"},
    {"wind_chill", "ta=-25 v10=8", "wct=-38.853 wci=2073.1 local_cooling=3"},
    {"body_surface", "weight=70 height=1.75 formula=kurazumi", "area=1.83015"},
};
// clang-format on

TEST(Additions, GiveTheFiguresOfTheirExamples)
{
    std::set<std::string_view> tried;
    for (const Example& example : kExamples) {
        SCOPED_TRACE(std::string(example.model) + " " + example.inputs);
        const Addition* const model = additionOfId(example.model);
        ASSERT_NE(model, nullptr);
        tried.insert(model->id);
        const Answer answer = answerTo(*model, example.inputs);
        std::istringstream words(example.results);
        for (std::string word; words >> word;) {
            const std::size_t sign = word.find('=');
            const auto place = model->resultPlace(word.substr(0, sign));
            ASSERT_TRUE(place) << word;
            const std::size_t point = word.find('.', sign);
            const auto digits = point == std::string::npos ? 0 : word.size() - point - 1;
            EXPECT_NEAR(answer.results[*place], std::stod(word.substr(sign + 1)),
                        0.51 * std::pow(10.0, -static_cast<double>(digits)))
                << word << ": " << answer.words(*model, *place);
        }
    }
    EXPECT_EQ(tried.size(), additions().size());
}

TEST(Additions, HaveIdsOfTheirOwnAndStartsWithinTheirRanges)
{
    std::set<std::string> figures;
    std::set<std::string_view> inputIds;
    for (const InputInfo* info : additionInputs())
        EXPECT_TRUE(inputIds.insert(info->id).second) << info->id;
    for (const Addition& model : additions()) {
        SCOPED_TRACE(model.id);
        EXPECT_EQ(additionOfId(model.id), &model);
        EXPECT_FALSE(model.description.empty() || model.references.empty());
        for (std::size_t i = 0; i < model.results.size(); ++i) {
            const Figure figure{&model, i};
            EXPECT_TRUE(figures.insert(figure.id()).second) << figure.id();
            EXPECT_EQ(indexOfId(figure.id()), 0);
            EXPECT_EQ(figureOfId(figure.id())->result, i);
            const std::string_view flag = figure.info().reachedBy;
            EXPECT_TRUE(flag.empty() || model.resultPlace(flag)) << flag;
        }
        std::set<std::string_view> read;
        for (const AdditionInput& input : model.inputs) {
            SCOPED_TRACE(input.info->id);
            EXPECT_TRUE(read.insert(input.info->id).second);
            EXPECT_TRUE(input.info->bounds.contains(input.range.low) &&
                        input.info->bounds.contains(input.range.high));
            EXPECT_EQ(input.need == Need::Start, input.range.contains(input.start));
            EXPECT_EQ(input.need == Need::Start, !input.startSource.empty());
            EXPECT_EQ(input.need == Need::Optional, !input.without.empty());
            for (const std::string_view other : {input.unless, input.onlyFor})
                EXPECT_TRUE(other.empty() || model.inputPlace(other)) << other;
        }
    }
}

// What is missing, or what no air or body has, is named: so every verdict's name is that of an input.
TEST(Additions, NameWhatTakesTheValueAway)
{
    std::set<std::string_view> tried;
    for (const Example& example : kExamples) {
        const Addition& model = *additionOfId(example.model);
        if (!tried.insert(model.id).second)
            continue;
        const Answer whole = answerTo(model, example.inputs);
        // The wet-bulb globe temperature, a first figure, needs no metabolic rate.
        const std::size_t figure = std::min<std::size_t>(1, model.results.size() - 1);
        for (std::size_t i = 0; i < model.inputs.size(); ++i) {
            const AdditionInput& input = model.inputs[i];
            SCOPED_TRACE(std::string(model.id) + " " + std::string(input.info->id));
            if (model.isRequired(i, whole.inputs)) {
                Answer without = whole;
                without.inputs[i] = standards::kNaN;
                calculate(model, without);
                EXPECT_TRUE(std::isnan(without.results[figure]));
                EXPECT_EQ(without.verdicts[figure].reason, Reason::Missing);
                EXPECT_EQ(without.verdicts[figure].about, input.verdictName);
                EXPECT_TRUE(without.words(model, figure).ends_with(" is missing."));
            }
            const bool isForTheNight = input.info->id == "dt";
            if (std::isnan(whole.inputs[i]) || !model.isRead(i, whole.inputs) || isForTheNight)
                continue;
            Answer beyond = whole;
            beyond.inputs[i] = 2e10;
            calculate(model, beyond);
            EXPECT_FALSE(beyond.verdicts[figure].hasValue());
            EXPECT_NE(beyond.words(model, figure).find("is 20000000000"), std::string::npos)
                << beyond.words(model, figure);
        }
    }
}

struct Told {
    const char* model;
    const char* inputs;
    std::size_t result;
    const char* words;
};

// clang-format off
constexpr Told kTold[] = {
    {"pmv_iso", "ta=42 tr=25 v=0.1 rh=30 met=1.2 clo=0.5", 0, "Outside the range of the standard: the air temperature is 42 °C, valid from 10 to 30 °C."},
    {"pmv_iso", "ta=42.123456789 tr=25 v=0.1 rh=30 met=1.2 clo=0.5", 0, "Outside the range of the standard: the air temperature is 42.1235 °C, valid from 10 to 30 °C."},
    {"pmv_iso", "ta=30.0000001 tr=25 v=0.1 rh=30 met=1.2 clo=0.5", 0, "Outside the range of the standard: the air temperature is 30.0000001 °C, valid from 10 to 30 °C."},
    {"pmv_iso", "ta=29 tr=25 v=0.1 rh=90 met=1.2 clo=0.5", 0, "Outside the range of the standard: the vapour pressure, from air temperature and humidity, is above 2700 Pa."},
    {"pmv_iso", "ta=25 tr=25 v=0.9 rh=50 met=3 clo=0.5 motion=iso", 0, "Outside the range of the standard: the air speed is 0.9 m/s: with what the motion makes of it, it lies outside the range."},
    {"pmv_iso", "ta=11 tr=10 v=0.9 rh=50 met=0.9 clo=0.1", 0, "Outside the range of the standard: the result, predicted mean vote, is valid from -2 to 2."},
    {"pmv_iso", "ta=25 tr=25 v=0.1 rh=120 met=1.2 clo=0.5", 0, "No value: the relative humidity is 120 %, possible is from 0 to 100 %."},
    {"pet", "ta=20 tr=20 v=1 rh=50 clo=0", 0, "No value: the clothing insulation is 0 clo: so little clothing covers nothing."},
    {"two_node", "ta=20 tr=20 v=1 rh=50 met=1 clo=1 posture=lying", 0, "No value: the posture is lying, known are standing, sitting."},
    {"sun_position", "year=2023 month=2 day=30 hour_utc=6 latitude=0 longitude=0", 0, "No value: the year is 2023: this date does not exist."},
    {"sun_position", "year=2060 month=2 day=3 hour_utc=6 latitude=0 longitude=0", 0, "Outside the range of the model: the year is 2060, valid from 1950 to 2049."},
    {"utci", "ta=20 tr=95 v=2 rh=50", 0, "Outside the range of the model: the mean radiant temperature must be 30 K below to 70 K above the air temperature."},
    {"ireq", "metabolic_w_m2=230 ta=5 tr=5 walking=1 v=0.4 clo=1", 4, "No limit: the exposure can last more than 8 h."},
    {"phs_2023", "ta=40 tr=40 v=0.3 rh=5 metabolic_w=300 clo=0.5 posture=standing acclimatised=yes", 3, "Outside the range of the standard: the vapour pressure, from air temperature and humidity, is not from 0.5 to 4.5 kPa."},
    {"work_rest", "wbgt_eff=40 metabolic_w=300 acclimatised=yes", 0, "No work, no rest here: even an hour of rest is above the limit."},
    {"work_rest", "wbgt_eff=28 metabolic_w=300 acclimatised=yes", 3, "No value: the work capacity belongs to the basis capacity."},
    {"tmrt_globe", "tg=20 ta=45 v=5 diameter=0.04", 0, "No value: less than nothing would be radiated."},
    {"work_rest", "basis=capacity wbgt_eff=500 metabolic_w=300", 0, "No value: the effective wet-bulb globe temperature is beyond what there can be."},
    {"wind_chill", "ta=5 v10=1", 0, "Outside the range of the standard: the wind speed at 10 m is 1 m/s: the wind chill temperature wants 1.333 m/s (4.8 km/h) or more."},
};
// clang-format on

TEST(Additions, SayWhyInOneSentence)
{
    for (const Told& told : kTold) {
        const Addition& model = *additionOfId(told.model);
        EXPECT_EQ(answerTo(model, told.inputs).words(model, told.result), told.words) << told.inputs;
    }
}

TEST(Additions, BlankWhatIsOutside)
{
    const Addition& model = *additionOfId("pmv_iso");
    const Answer blank = answerTo(model, "ta=42 tr=25 v=0.1 rh=30 met=1.2 clo=0.5", standards::Limits::Blank);
    for (std::size_t i = 0; i < blank.results.size(); ++i) {
        EXPECT_TRUE(std::isnan(blank.results[i]));
        EXPECT_EQ(resultText(model, i, blank.results), "");
    }
    EXPECT_EQ(blank.words(model),
              "Outside the range of the standard: the air temperature is 42 °C, valid from 10 to 30 °C.");
}

// The course ends where the figures are.
TEST(Additions, FollowTheBodyToItsFigures)
{
    for (const Example& example : kExamples) {
        const Addition& model = *additionOfId(example.model);
        if (model.course == nullptr)
            continue;
        SCOPED_TRACE(example.inputs);
        const Answer answer = answerTo(model, example.inputs);
        const std::size_t minutes = model.course->minutes(answer.inputs);
        const std::size_t width = model.course->figures.size();
        std::vector<double> rows(minutes * width);
        EXPECT_TRUE(model.runCourse(answer.inputs, rows).hasValue());
        for (std::size_t i = 0; i < 4; ++i) {
            const auto place = model.resultPlace(model.course->figures[i].id);
            ASSERT_TRUE(place);
            EXPECT_EQ(rows[(minutes - 1) * width + i], answer.results[*place]) << i;
        }
    }
}

TEST(Additions, AreFoundAsTheIndicesAre)
{
    const auto first = [](std::string_view query) {
        const auto places = additionFinder().find(query);
        return places.empty() ? std::string_view() : additions()[places.front()].id;
    };
    EXPECT_EQ(first("SET"), "pmv_ashrae") << "the abbreviation of two";
    EXPECT_EQ(first("ireq"), "ireq");
    EXPECT_EQ(first("heat strain 2023"), "phs_2023");
    EXPECT_EQ(first("Höppe 1999"), "pet");
    EXPECT_EQ(additionFinder().didYouMean("utcy"), std::vector<std::string>{"UTCI"});
    EXPECT_EQ(figureOfId("pmv_iso")->id(), "pmv_iso.pmv");
    EXPECT_FALSE(figureOfId("pmv_iso.utci"));
}

// 1.2 met on the body of 75 kg and 1.8 m, 1.9379 m² (DuBois with 0.202).
TEST(Additions, HaveOnePersonInTheUnitOfEach)
{
    const Body body{.weight = 75, .height = 1.8, .age = 35, .sex = standards::Sex::Male};
    const auto inUnit = [&](const char* id) { return metabolicRateFor(*additionInputOfId(id), 1.2, body); };
    EXPECT_EQ(inUnit("met"), 1.2);
    EXPECT_NEAR(inUnit("metabolic_w_m2"), 69.78, 1e-12);
    EXPECT_NEAR(inUnit("metabolic_w"), 135.22, 0.01);
    // The basal rate is 3.45 * 75^0.75 * (1 + 0.004 * -5 + 0.01 * (180 / 75^(1/3) - 43.4)) = 85.54 W.
    EXPECT_NEAR(inUnit("activity_w"), 135.22 - 85.54, 0.02);
    EXPECT_TRUE(std::isnan(inUnit("clo")));
}

} // namespace
} // namespace comfortics::catalogue
