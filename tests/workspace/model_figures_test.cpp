// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/model_figures.h"

#include "workspace_program.h"

#include <gtest/gtest.h>

namespace comfortics::workspace {
namespace {

struct Models : tests::Program {
    /// 22 °C of air and walls, 60 %, 0.1 m/s.
    void typeRoom()
    {
        main.txt_TA.setText("22");
        main.txt_TG.setText("22");
        main.txt_RH.setText("60");
        main.txt_WS.setText("0.1");
    }
    ModelStanding standing(std::string_view id, const FieldTexts& person)
    {
        return modelStanding(*catalogue::additionOfId(id), workspace.present(), person);
    }
    static double input(const ModelStanding& standing, std::string_view id)
    {
        return standing.inputs.at(*standing.model->inputPlace(id)).value;
    }
    static const Figure& figure(const ModelStanding& standing, std::string_view id)
    {
        return standing.figures.at(*standing.model->resultPlace(id));
    }
};

// ISO 7730 prints -0.75 and 17 % for this room.
TEST(ModelFigures, AreThoseOfReadingsAndPerson)
{
    Models models;
    models.typeRoom();
    const ModelStanding vote = models.standing("pmv_iso", {{"met", "1.2"}, {"clo", "0.5"}});
    EXPECT_NEAR(models.figure(vote, "pmv").number.value(), -0.75, 0.01);
    EXPECT_NEAR(models.figure(vote, "ppd").number.value(), 17, 0.5);
    EXPECT_EQ(models.figure(vote, "category").text, "in no category");
    EXPECT_TRUE(models.figure(vote, "pmv").meaning);
    EXPECT_EQ(vote.assumed, "With metabolic rate 1.2 met, clothing insulation 0.5 clo. "
                            "Assumed: external work 0 met, speed and clothing in motion none.");
}

TEST(ModelFigures, TakeOneMetabolicRateInTheUnitOfEachModel)
{
    Models models;
    models.typeRoom();
    const FieldTexts person{{"met", "2"}, {"work_met", "0.5"}, {"weight", "70"}, {"height", "1.75"}};
    EXPECT_DOUBLE_EQ(models.input(models.standing("pmv_iso", person), "met"), 2);
    EXPECT_NEAR(models.input(models.standing("phs_2004", person), "metabolic_w_m2"), 116.3, 1e-9);
    EXPECT_NEAR(models.input(models.standing("phs_2004", person), "work_w_m2"), 29.075, 1e-9);
    // 1.84383 m² by DuBois.
    EXPECT_NEAR(models.input(models.standing("phs_2023", person), "metabolic_w"), 116.3 * 1.84383, 1e-3);
    EXPECT_DOUBLE_EQ(models.input(models.standing("pet", {}), "activity_w"), 80) << "a start value";
}

TEST(ModelFigures, TakeTheTimeToUtc)
{
    struct Case {
        const char* hour;
        const char* offset;
        double year, month, day, utc;
    };
    Models models;
    for (const Case& one : {Case{"0:30", "2", 2023, 12, 31, 22.5},
                            {"22", "-3:30", 2024, 1, 2, 1.5},
                            {"12", "0", 2024, 1, 1, 12}}) {
        const ModelStanding sun = models.standing("sun_position", {{"year", "2024"},
                                                                   {"month", "1"},
                                                                   {"day", "1"},
                                                                   {"hour", one.hour},
                                                                   {"utc_offset", one.offset},
                                                                   {"latitude", "50"},
                                                                   {"longitude", "10"}});
        EXPECT_EQ(models.input(sun, "year"), one.year) << one.hour;
        EXPECT_EQ(models.input(sun, "month"), one.month);
        EXPECT_EQ(models.input(sun, "day"), one.day);
        EXPECT_DOUBLE_EQ(models.input(sun, "hour_utc"), one.utc);
        EXPECT_TRUE(models.figure(sun, "altitude").number);
    }
}

TEST(ModelFigures, TellWhatIsMissingAndWhereItIsTyped)
{
    struct Case {
        const char* model;
        FieldTexts person;
        const char* reason;
        const char* field;
    };
    Models models;
    models.typeRoom();
    for (const Case& one : {
             Case{"pmv_iso", {{"clo", "1"}}, "the metabolic rate is missing.", "met"},
             {"pmv_iso", {{"met", "1"}, {"clo", "x"}}, "Clothing insulation: \"x\" is no number.", "clo"},
             {"wbgt_iso7243",
              {{"met", "2"}, {"height", "1.8"}, {"sun", "no"}, {"acclimatised", "no"}},
              "the body weight is missing.",
              "weight"},
             {"sun_position",
              {{"year", "2024"}, {"month", "1"}, {"day", "1"}, {"hour", "1"}, {"latitude", "0"}},
              "the local time less UTC is missing.",
              "utc_offset"},
             {"two_node",
              {{"met", "1"}, {"clo", "1"}, {"posture", "lying"}},
              "the posture is lying, known are standing, sitting.",
              "posture"},
             {"body_surface", {{"weight", "70"}}, "the body height is missing.", "height"},
         }) {
        const ModelStanding standing = models.standing(one.model, one.person);
        EXPECT_EQ(standing.wantedField, one.field) << one.model;
        EXPECT_FALSE(standing.figures.front().number);
        EXPECT_NE(standing.figures.front().reason.find(one.reason), std::string::npos)
            << standing.figures.front().reason;
    }
}

TEST(ModelFigures, WithoutReadingsHaveNoValueButWhereNoneIsRead)
{
    Models models;
    const FieldTexts person{{"met", "1"}, {"clo", "1"}, {"weight", "70"}, {"height", "1.75"}};
    const ModelStanding vote = models.standing("pmv_iso", person);
    EXPECT_EQ(models.figure(vote, "pmv").reason, models.workspace.present().problem);
    EXPECT_FALSE(models.figure(vote, "pmv").number);
    EXPECT_TRUE(vote.wantedField.empty());
    EXPECT_NEAR(models.figure(models.standing("body_surface", person), "area").number.value(), 1.84383, 1e-5);
}

TEST(ModelFigures, MarkWhatLiesOutside)
{
    Models models;
    models.typeRoom();
    const ModelStanding vote = models.standing("pmv_iso", {{"met", "5"}, {"clo", "0.5"}});
    EXPECT_TRUE(models.figure(vote, "pmv").number);
    EXPECT_FALSE(models.figure(vote, "pmv").meaning);
    EXPECT_NE(models.figure(vote, "pmv").doubt.find("the metabolic rate is 5 met"), std::string::npos)
        << models.figure(vote, "pmv").doubt;
}

// The effective WBGT of one model is what the other reads; clothing of two layers adds 3 K.
TEST(ModelFigures, TakeFiguresOfOneAnother)
{
    Models models;
    models.typeRoom();
    models.main.txt_TA.setText("24");
    models.main.txt_TG.setText("26");
    const FieldTexts person{{"met", "3"},       {"weight", "70"},
                            {"height", "1.75"}, {"acclimatised", "yes"},
                            {"sun", "no"},      {"work_clothing", "double_layer"}};
    const ModelStanding stress = models.standing("wbgt_iso7243", person);
    const double effective = models.figure(stress, "wbgt_eff").number.value();
    EXPECT_NEAR(effective, models.figure(stress, "wbgt").number.value() + 3, 1e-9);
    const ModelStanding rest = models.standing("work_rest", person);
    EXPECT_DOUBLE_EQ(models.input(rest, "wbgt_eff"), effective);
    EXPECT_TRUE(models.figure(rest, "work_min").number);
}

// At the height of the readings' wind, ln(10 / 0.01) / ln(1.1 / 0.01) = 1.46959 times as much at 10 m.
TEST(ModelFigures, KnowAtWhichHeightTheWindIsRead)
{
    Models models;
    models.typeRoom();
    models.main.txt_WS.setText("2");
    EXPECT_NEAR(models.figure(models.standing("utci", {}), "v10").number.value(), 2.93917, 1e-4);
    EXPECT_DOUBLE_EQ(models.figure(models.standing("utci", {{"wind_height", "10"}}), "v10").number.value(),
                     2);
}

} // namespace
} // namespace comfortics::workspace
