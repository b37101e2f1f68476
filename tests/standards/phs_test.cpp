// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/phs.h"

#include "model_table.h"
#include "standard_cases.h"

#include <cmath>
#include <vector>

namespace comfortics::tests {
namespace {

using namespace standards;
using enum PhsPosture;

constexpr int kNever = 0; // a limit that is not reached

PhsResult predicted(int edition, const PhsInputs& in, Limits limits = Limits::Mark,
                    std::span<PhsMinute> course = {})
{
    return edition == 2004 ? phs2004(in, limits, course) : phs2023(in, limits, course);
}

/// A row's inputs.
PhsInputs phsInputs(GivenInputs& given)
{
    PhsInputs in;
    double RH = kNaN;
    given.choose<PhsPosture>("posture", in.posture, {{"sitting", Sitting}, {"crouching", Crouching}});
    given.take("ta tr v pa M clo RH work acclimatised drink walking angle duration weight height imst Ap Fr",
               in.ta, in.tr, in.v, in.pa, in.M, in.clo, RH, in.work, in.acclimatised, in.drink, in.walking,
               in.angle, in.duration, in.weight, in.height, in.imst, in.Ap, in.Fr);
    if (RH == RH)
        in.pa = phsVapourPressure(in.ta, RH);
    return in;
}

template <int kEdition>
Answer phsOf(GivenInputs& given, Limits limits)
{
    const PhsInputs in = phsInputs(given);
    std::vector<PhsMinute> course(400);
    const PhsResult r = predicted(kEdition, in, limits, course);
    const auto reached = [&](const PhsTime& time) {
        EXPECT_TRUE(time.reached || time.minutes == in.duration || time.minutes != time.minutes);
        return time.reached ? time.minutes : kNaN;
    };
    EXPECT_EQ(std::isnan(r.dLimLossMean.minutes), kEdition == 2023 || !r.verdict.hasValue());
    return {named("loss tre loss95 mean first t_cr1 t_sk1 t_re1 sweat1 loss1 sweat400", r.waterLoss,
                  reached(r.dLimTre), reached(r.dLimLoss), reached(r.dLimLossMean), reached(r.dLim),
                  course[0].tCore, course[0].tSkin, course[0].tRectal, course[0].sweat, course[0].waterLoss,
                  course[399].sweat),
            r.verdict,
            named("t_re t_cr t_sk", r.tRectal, r.tCore, r.tSkin),
            {{"temperatures", r.temperatures}}};
}

TEST(Phs, GivesTheFiguresAndVerdictsOfTheTable)
{
    expectTable(COMFORTICS_STANDARDS_DIR "/phs.csv", {{"phs2004", phsOf<2004>}, {"phs2023", phsOf<2023>}});
}

void expectTime(const PhsTime& time, int minute, double duration)
{
    EXPECT_EQ(time.reached, minute != kNever);
    EXPECT_EQ(time.minutes, minute == kNever ? duration : minute);
}

double shareOfSkin(double tcr)
{
    return std::fmax(0.1, std::fmin(0.3, 0.3 - 0.09 * (tcr - 36.8)));
}

// What the body takes up in each minute is what its temperatures tell, and a limit is reached where the
// course passes it.
TEST(Phs, ClosesItsBalancesMinuteByMinute)
{
    for (const auto& [model, inputs, expected] : tableRows(COMFORTICS_STANDARDS_DIR "/phs.csv")) {
        SCOPED_TRACE(inputs);
        const int edition = model == "phs2004" ? 2004 : 2023;
        GivenInputs given(inputs);
        const PhsInputs in = phsInputs(given);
        if (!predicted(edition, in).verdict.hasValue() || in.duration < 31)
            continue;
        std::vector<PhsMinute> course(static_cast<std::size_t>(in.duration));
        const PhsResult result = predicted(edition, in, Limits::Mark, course);
        const double area = 0.202 * std::pow(in.weight, 0.425) * std::pow(in.height, 0.725);
        const double M = edition == 2004 ? in.M : in.M / area;
        const double capacity = (edition == 2004 ? 57.83 : 3490 / 60.0) * in.weight / area;
        double content = 36.8 * 0.85 + 34.1 * 0.15;
        double loss = 0;
        int hot = kNever;
        int dry = kNever;
        const double Eres = 0.00127 * M * (59.34 + 0.53 * in.ta - 11.63 * in.pa);
        for (std::size_t i = 0; i < course.size(); ++i) {
            const PhsMinute& m = course[i];
            EXPECT_NEAR(std::fmax(0, M - in.work - m.dry - m.breath - m.adaptation), m.required, 1e-9);
            EXPECT_NEAR(m.storage, m.required - m.evaporated + m.adaptation, 1e-9);
            const double beta = shareOfSkin(m.tCore);
            const double now = m.tCore * (1 - beta / 2) + m.tSkin * beta / 2;
            EXPECT_NEAR(capacity * (now - content), m.storage, 1e-5);
            content = now;
            // 0.675 Wh evaporate a gram.
            loss += (m.sweat + Eres) * area / 60 / 0.6742;
            EXPECT_NEAR(m.waterLoss, loss, 2e-4 * loss);
            const int minute = static_cast<int>(i) + 1;
            if (hot == kNever && m.tRectal >= 38)
                hot = minute;
            if (dry == kNever && m.waterLoss >= (in.drink ? 50 : 30) * in.weight)
                dry = minute;
        }
        EXPECT_EQ(course.back().tCore, result.tCore);
        EXPECT_EQ(course.back().tSkin, result.tSkin);
        EXPECT_EQ(course.back().tRectal, result.tRectal);
        EXPECT_EQ(course.back().waterLoss, result.waterLoss);
        expectTime(result.dLimTre, hot, in.duration);
        expectTime(result.dLimLoss, dry, in.duration);

        // A shorter exposure is the beginning of a longer one.
        PhsInputs shorter = in;
        shorter.duration = 31;
        EXPECT_EQ(predicted(edition, shorter).tCore, course[30].tCore);
    }
}

// Only as long as the body can sweat what it has to: beyond, the edition of 2004 grants more sweat to harder
// work.
TEST(Phs, StrainsMoreTheHarderTheWork)
{
    Draw between;
    int bearable = 0;
    for (int i = 0; i < kPoints; ++i) {
        SCOPED_TRACE(testing::Message() << "seed " << Draw::kSeed << ", " << i);
        PhsInputs in{
            .ta = between(25, 45), .v = between(0, 3), .pa = between(0.5, 3), .clo = between(0.1, 1)};
        in.tr = in.ta + between(0, 30);
        in.duration = 120;
        const int edition = i % 2 == 0 ? 2004 : 2023;
        in.M = edition == 2004 ? between(100, 250) : between(200, 450);
        const PhsResult easy = predicted(edition, in);
        if (easy.tRectal > 37.8)
            continue;
        ++bearable;
        in.M += 10;
        const PhsResult harder = predicted(edition, in);
        EXPECT_GT(harder.tRectal, easy.tRectal);
        EXPECT_GT(harder.waterLoss, easy.waterLoss);
        in.work += 10; // leaves that heat to the work
        EXPECT_LT(predicted(edition, in).waterLoss, harder.waterLoss);
    }
    EXPECT_GT(bearable, kPoints / 4);
}

TEST(Phs, MarksTemperaturesThatNoBodyHas)
{
    const PhsInputs in{.ta = 36,
                       .tr = 36,
                       .v = 0.2,
                       .pa = phsVapourPressure(36, 62),
                       .M = 380,
                       .clo = 0.6,
                       .posture = Sitting,
                       .acclimatised = false};
    std::vector<PhsMinute> course(480);
    const PhsResult marked = phs2023(in, Limits::Mark, course);
    EXPECT_EQ(marked.verdict, kOk);
    EXPECT_EQ(marked.temperatures, outside("t_re"));
    const auto from = static_cast<std::size_t>(marked.formalFrom - 1);
    EXPECT_GT(course[from].tRectal, 39);
    EXPECT_LE(course[from - 1].tRectal, 39);

    const PhsResult blank = phs2023(in, Limits::Blank);
    EXPECT_EQ(blank.temperatures, none(Reason::BeyondRange, "t_re"));
    EXPECT_TRUE(std::isnan(blank.tRectal) && std::isnan(blank.tCore) && std::isnan(blank.tSkin));
    EXPECT_EQ(blank.dLim.minutes, 35);
    EXPECT_EQ(blank.waterLoss, marked.waterLoss);
}

TEST(Phs, WithoutClothingTheSkinIsItsSurface)
{
    PhsInputs in{.ta = 38, .tr = 45, .v = 0.5, .pa = 3, .M = 165, .clo = 0};
    const double bare = phs2004(in).tCore;
    in.clo = 1e-9;
    EXPECT_NEAR(bare, phs2004(in).tCore, 1e-6);
    EXPECT_EQ(phs2004(in).formalFrom, 0);
}

} // namespace
} // namespace comfortics::tests
