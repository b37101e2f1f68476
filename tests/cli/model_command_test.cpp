// SPDX-License-Identifier: GPL-3.0-or-later
#include "process.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace comfortics::tests {
namespace {

const Arguments kRoom{"model", "pmv_iso", "--tr",  "26",  "--v",   "0.15",
                      "--rh",  "50",      "--met", "1.2", "--clo", "0.5"};

void expectHas(const std::string& text, const std::string& part)
{
    EXPECT_NE(text.find(part), std::string::npos) << part << " in\n" << text;
}

// Figures of ISO 7730 and of the papers; what is typed in one way or the other is the same.
TEST(Model, CalculatesInEachFormat)
{
    expectHas(runTool(with(kRoom, {"--ta", "26", "--format", "csv"})).out, "pmv,Predicted mean vote,0.2546");
    expectHas(runTool(with(kRoom, {"--ta=26", "--format=json"})).out, "\"note\": \"start: no external work");
    const Ending text = runTool(with(kRoom, {"--ta", "26", "--work_met", "0"}));
    EXPECT_EQ(text.status, 0) << text.err;
    expectHas(text.out, "ppd                6.3  %");
    const Ending cold = runTool({"model", "wind_chill", "--ta", "-25", "--v10", "8", "--format", "csv"});
    expectHas(cold.out, "wct,Wind chill temperature,-38.853");
    expectHas(cold.out, ",within_10_min,");
}

TEST(Model, MarksOrBlanksWhatIsOutside)
{
    const std::string reason =
        "Outside the range of the standard: the air temperature is 42 °C, valid from 10 to 30 °C.";
    const Ending mark = runTool(with(kRoom, {"--ta", "42", "--format", "csv"}));
    EXPECT_EQ(mark.status, 0);
    expectHas(mark.out, ",outside,,\"" + reason);
    const Ending blank = runTool(with(kRoom, {"--ta", "42", "--format", "csv", "--limits", "blank"}));
    EXPECT_EQ(blank.status, 0);
    expectHas(blank.out, "pmv,Predicted mean vote,,,none,,\"" + reason);
    // Saturation at 30 °C is 42.4 hPa; 0.0052 (320 - 58) is 1.36 m/s.
    const std::pair<Arguments, std::string> marked[] = {
        {{"model", "pet", "--ta", "30", "--tr", "40", "--v", "1", "--ea", "44"},
         "the vapour pressure is 44 hPa: air of this temperature holds no more than saturation."},
        {{"model", "ireq", "--metabolic-w-m2", "320", "--ta", "-10", "--tr", "-10", "--v", "1", "--clo", "1"},
         "0.0052 (M - 58) m/s, is above 1.2 m/s."},
    };
    for (const auto& [arguments, says] : marked)
        expectHas(runTool(arguments).out, says);
    EXPECT_EQ(runTool({"model", "pet", "--ta", "30", "--tr", "40", "--v", "1", "--ea", "42"})
                  .out.find("saturation"),
              std::string::npos);
}

// 300 W over 58.15 W/m2 times the surface of DuBois with 0.202, 75 kg and 1.8 m; 0.835 (0.08 + 0.15) + 0.161.
TEST(Model, TakesAPersonInOtherWords)
{
    const Arguments air{"model", "pmv_iso", "--ta", "26", "--tr",     "26",
                        "--v",   "0.1",     "--rh", "50", "--format", "csv"};
    const std::pair<Arguments, Arguments> same[] = {
        {{"--activity", "typing", "--garments", "t_shirt, trousers_thin"},
         {"--met", "1.1", "--clo", "0.35305"}},
        {{"--metabolic", "116.3 W/m2", "--ensemble", "summer_indoors"}, {"--met", "2", "--clo", "0.5"}},
        {{"--met", "69.78 W/m²", "--morning-temperature", "86 F"}, {"--met", "1.2", "--clo", "0.46"}},
    };
    for (const auto& [told, typed] : same) {
        const Ending ending = runTool(with(air, told));
        EXPECT_EQ(ending.status, 0) << ending.err;
        EXPECT_EQ(ending.out, runTool(with(air, typed)).out) << told.front();
    }
    expectHas(runTool({"model", "--metabolic", "300 W", "--weight", "75", "--height", "180 cm"}).out,
              "2.66223606862");
    expectHas(runTool({"model", "--days", "20,21,22,23,24,25,26", "--format", "csv"}).out, ",22.1424337150");
    expectHas(runTool({"model", "--work-clothes"}).out, "vapour_barrier_hooded");

    const std::pair<Arguments, std::string> refused[] = {
        {{"--activity", "typing", "--met", "1.2"},
         "--activity and --met are both given, one stands for the other."},
        {{"--metabolic", "300W"},
         "pmv_iso reads met in met, for which it takes the weight of the body, too."},
        {{"--metabolic", "300"},
         "\"300\" is no metabolic rate with its unit, as 2.6 met, 165 W/m2 or 300 W."},
        {{"--garments", "t_shirt,t_shirt"}, "the garment \"t_shirt\" is named twice."},
        {{"--days", "20,21"}, "pmv_iso does not read --days."},
        {{"--weight", "75"}, "pmv_iso has no input --weight"},
    };
    for (const auto& [told, says] : refused) {
        const Ending ending = runTool(with(air, told));
        EXPECT_EQ(ending.out, "");
        expectHas(ending.err, says);
    }
    const Arguments calc{"calc", "--ta", "30",       "--rh",    "50",       "--ws", "0.2",
                         "--tg", "31",   "--models", "pmv_iso", "--format", "csv"};
    EXPECT_EQ(runTool(with(calc, {"--metabolic", "300W", "--with", "clo=0.5,weight=75,height=1.8"})).out,
              runTool(with(calc, {"--with", "clo=0.5,met=2.662236068621"})).out);
    EXPECT_EQ(runTool(with(calc, {"--activity", "typing", "--with", "clo=0.5,met=1"})).status, 2);
    EXPECT_EQ(runTool(with(calc, {"--days", "1,2,3,4,5,6,7", "--with", "clo=0.5,met=1"})).err,
              "comfortics-cli: --days: none of the models reads it.\n");
}

TEST(Model, FollowsTheCourse)
{
    const Ending ending = runTool({"model",
                                   "phs_2004",
                                   "--ta",
                                   "40",
                                   "--tr",
                                   "40",
                                   "--v",
                                   "0.3",
                                   "--ea",
                                   "25",
                                   "--metabolic-w-m2",
                                   "150",
                                   "--clo",
                                   "0.5",
                                   "--posture",
                                   "standing",
                                   "--acclimatised",
                                   "yes",
                                   "--course",
                                   "--format",
                                   "csv"});
    EXPECT_EQ(ending.status, 0) << ending.err;
    expectHas(ending.out, "minute,t_re [°C],t_cr [°C]");
    expectHas(ending.out, "\r\n480,37.52498"); // the standard prints 37.5
}

TEST(Model, TellsOfWorkAndRest)
{
    const Ending ending = runTool({"model", "work_rest", "--wbgt-eff", "30", "--table"});
    EXPECT_EQ(ending.status, 0) << ending.err;
    expectHas(ending.out, "ISO 7243");
    expectHas(ending.out, "moderate        300  yes                   30.7          29.3");
}

TEST(Model, RefusesInOneSentence)
{
    const std::vector<std::tuple<Arguments, int, std::string>> calls{
        {{"model"}, 2, "model needs the ID of a model, or --list."},
        {{"model", "pmw_iso"}, 2, "There is no model \"pmw_iso\""},
        {{"model", "pmv_iso", "--sex", "male"}, 2, "pmv_iso has no input --sex"},
        {{"model", "utci", "--course"}, 2, "utci has no course."},
        {{"model", "pmv_iso", "--table"}, 2, "--table is for work_rest alone."},
        {kRoom, 3, "pmv_iso needs the air temperature in °C (--ta)."},
        {with(kRoom, {"--ta", "2x"}), 3, "\"2x\" is no number for --ta."},
        {with(kRoom, {"--ta", "26", "--motion", "run"}), 3,
         "no word for --motion, which knows none, ashrae, iso."},
        {with(kRoom, {"--ta", "-300"}), 3,
         "the air temperature is -300 °C, possible is from -100 to 150 °C."},
        {{"model", "pet", "--ta", "30", "--tr", "60", "--v", "1", "--rh", "50", "--ea", "21"},
         3,
         "--rh and --ea are both given"},
        {{"model", "tmrt_globe", "--tg", "20", "--ta", "45", "--v", "5"},
         4,
         "less than nothing would be radiated."},
        {{"batch", "-", "--models", "pmv"}, 2, "there is no model \"pmv\""},
        {{"batch", "-", "--models", "utci", "--with", "sex=male"}, 2, "none of the models reads sex"},
        {{"batch", "-", "--models", "utci", "--with", "rh=wet"}, 2, "\"wet\" is no value of rh"},
    };
    for (const auto& [arguments, status, says] : calls) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const Ending ending = runTool(arguments);
        EXPECT_EQ(ending.status, status);
        EXPECT_EQ(ending.out, "");
        expectHas(ending.err, says);
        EXPECT_EQ(ending.err.find('\n'), ending.err.size() - 1) << ending.err;
    }
}

TEST(Model, StandsBesideTheIndicesOfABatch)
{
    const std::string input = "Ta,SR,RH,WS,tr\n"
                              "26,0,50,2,\"26,0\"\n"
                              "26,0,50,2,hot\n";
    const Ending ending = runTool({"batch", "-", "--select", "5", "--models", "pmv_iso", "--with",
                                   "v=0.15,met=1.2,clo=0.5", "--reasons", "--rules", "robust"},
                                  input);
    EXPECT_EQ(ending.status, 0) << ending.err;
    expectHas(ending.out, "Actual Vapor Pressure [hPa],pmv_iso.pmv,pmv_iso.ppd [%],");
    expectHas(ending.out, ",0.2546");
    expectHas(ending.out, ",,,,,,,\"No value: \"\"hot\"\" is no mean radiant temperature.\"\r\n");

    // The wind of the readings stands at 1.1 m: 2 m/s are 2 log(10 / 0.01) / log(1.1 / 0.01) = 2.939 at 10 m.
    for (const char* rules : {"robust", "precise"})
        expectHas(runTool({"batch", "-", "--select", "5", "--models", "utci", "--rules", rules},
                          "Ta,SR,RH,WS\n30,600,50,2\n")
                      .out,
                  ",2.93916993");
    const Ending lacking = runTool({"batch", "-", "--models", "pmv_iso"}, "Ta,SR,RH,WS\n30,600,50,2\n");
    EXPECT_EQ(lacking.status, 5);
    expectHas(lacking.err, "pmv_iso needs met, the metabolic rate: no column and no constant gives it.");
}

} // namespace
} // namespace comfortics::tests
