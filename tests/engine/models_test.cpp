// SPDX-License-Identifier: GPL-3.0-or-later
#include "plain_point.h"

#include <comfortics/comfortics.h>

#include "standards/pmv_iso.h"
#include "standards/two_node.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace comfortics {
namespace {

using test::kNaN;

void expectSameBits(double one, double other)
{
    EXPECT_EQ(std::bit_cast<std::uint64_t>(one), std::bit_cast<std::uint64_t>(other));
}

/// The inputs of a model by their ids.
std::vector<Column> columnsOf(const Model& model,
                              std::initializer_list<std::pair<std::string_view, Column>> given)
{
    std::vector<Column> columns(model.inputs.size());
    for (const auto& [id, column] : given)
        for (std::size_t i = 0; i < columns.size(); ++i)
            if (model.inputs[i].id == id)
                columns[i] = column;
    return columns;
}

// Columns of all shapes and any number of threads give what the model itself gives, bit for bit.
TEST(Models, AreThePlainOnesOverColumns)
{
    constexpr std::size_t kCount = 500;
    constexpr std::uint64_t kSeed = 11;
    std::mt19937_64 random(kSeed);
    std::uniform_real_distribution<> share(0, 1);
    std::vector<double> ta(kCount), pairs(2 * kCount), clo(kCount);
    for (std::size_t i = 0; i < kCount; ++i) {
        ta[i] = i % 50 == 7 ? kNaN : 5 + 30 * share(random);
        pairs[2 * i] = 5 + 40 * share(random);  // mean radiant temperature
        pairs[2 * i + 1] = 100 * share(random); // humidity
        clo[i] = 2.1 * share(random);
    }
    for (const ModelLimits limits : {ModelLimits::Mark, ModelLimits::Blank})
        for (const unsigned threads : {1U, 3U}) {
            const Model& model = *findModel("pmv_iso");
            const auto inputs = columnsOf(model, {{"ta", ta},
                                                  {"tr", {pairs.data(), 2}},
                                                  {"v", 0.3},
                                                  {"rh", {pairs.data() + 1, 2}},
                                                  {"met", 1.4},
                                                  {"clo", clo},
                                                  {"motion", 1}});
            std::vector<double> votes(kCount), tCl(2 * kCount);
            std::vector<ModelStatus> statuses(kCount);
            const std::array<ModelOutput, 2> outputs{
                {{0, votes.data(), 1, statuses.data()}, {3, tCl.data(), 2, nullptr}}};
            ASSERT_EQ(evaluateModel(model, inputs, kCount, outputs, {.limits = limits, .threads = threads}),
                      kCount);
            for (std::size_t i = 0; i < kCount; ++i) {
                const standards::PmvIso plain =
                    standards::pmvIso({.ta = ta[i],
                                       .tr = pairs[2 * i],
                                       .v = 0.3,
                                       .RH = pairs[2 * i + 1],
                                       .met = 1.4,
                                       .clo = clo[i]},
                                      standards::Motion::Ashrae, static_cast<standards::Limits>(limits));
                expectSameBits(votes[i], plain.pmv);
                expectSameBits(tCl[2 * i], plain.tCl);
                EXPECT_EQ(static_cast<int>(statuses[i]), static_cast<int>(plain.verdict.standing));
                EXPECT_EQ(explainModel(model, inputs, 0, i, limits).empty(), statuses[i] == ModelStatus::Ok);
            }
        }
}

TEST(Models, TakeTheirStartsAndNothingElse)
{
    const Model& model = *findModel("two_node");
    double set = 0;
    const std::array<ModelOutput, 1> outputs{{{0, &set}}};
    auto inputs =
        columnsOf(model, {{"ta", 25}, {"tr", 25}, {"v", 0.1}, {"rh", 50}, {"met", 1}, {"clo", 0.6}});
    evaluateModel(model, inputs, 1, outputs);
    EXPECT_NEAR(set, 24.729, 0.0005);
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        if (model.inputs[i].need != ModelNeed::Required)
            continue;
        auto without = inputs;
        without[i] = {};
        EXPECT_THROW(evaluateModel(model, without, 1, outputs), std::invalid_argument) << model.inputs[i].id;
    }
    EXPECT_THROW(evaluateModel(model, std::span(inputs).first(5), 1, outputs), std::invalid_argument);
    EXPECT_THROW(evaluateModel(model, inputs, 1, std::array{ModelOutput{99, &set}}), std::invalid_argument);
    EXPECT_THROW(evaluateModel(Model{}, inputs, 1, outputs), std::invalid_argument);
}

// The vapour pressure stands for the humidity, the basis tells what is read, a basis of each point all.
TEST(Models, AskForWhatTheyRead)
{
    double value = 0;
    const std::array<ModelOutput, 1> outputs{{{0, &value}}};
    const Model& pet = *findModel("pet");
    evaluateModel(pet, columnsOf(pet, {{"ta", 30}, {"tr", 60}, {"v", 1}, {"ea", 21}}), 1, outputs);
    EXPECT_NEAR(value, 42.748, 0.0005);
    EXPECT_THROW(evaluateModel(pet,
                               columnsOf(pet, {{"ta", 30}, {"tr", 60}, {"v", 1}, {"ea", 21}, {"rh", 50}}), 1,
                               outputs),
                 std::invalid_argument);

    const Model& rest = *findModel("work_rest");
    const auto byCapacity = columnsOf(rest, {{"basis", 1}, {"wbgt_eff", 30}, {"metabolic_w", 300}});
    evaluateModel(rest, byCapacity, 1, outputs);
    EXPECT_NEAR(value, 0.6 * 59.235, 0.0005);
    const std::array<double, 1> bases{1};
    EXPECT_THROW(evaluateModel(rest,
                               columnsOf(rest, {{"basis", bases}, {"wbgt_eff", 30}, {"metabolic_w", 300}}), 1,
                               outputs),
                 std::invalid_argument);
}

TEST(Models, HaveCoursesThatEndAtTheResults)
{
    const Model& model = *findModel("phs_2023");
    const auto inputs = columnsOf(model, {{"ta", 38},
                                          {"tr", 45},
                                          {"v", 0.5},
                                          {"rh", 45},
                                          {"metabolic_w", 330},
                                          {"clo", 0.6},
                                          {"posture", 0},
                                          {"acclimatised", 1},
                                          {"duration", 480}});
    ASSERT_EQ(courseMinutes(model, inputs), 480U);
    const std::size_t width = model.courseFigures.size();
    std::vector<double> course(480 * width);
    EXPECT_EQ(modelCourse(model, inputs, course), ModelStatus::Ok);
    EXPECT_NEAR(course[479 * width], 37.590, 0.0005);
    EXPECT_NEAR(course[479 * width + 3], 8707.1, 0.05);

    auto wrong = inputs;
    wrong[8] = 7; // no posture
    EXPECT_EQ(modelCourse(model, wrong, course), ModelStatus::None);
    EXPECT_TRUE(std::isnan(course.front()));
    EXPECT_EQ(explainModel(model, wrong),
              "No value: the posture is 7, known are standing, sitting, crouching.");
    EXPECT_THROW(modelCourse(*findModel("utci"), {}, course), std::invalid_argument);
}

TEST(Models, AreFoundByIdAndByWords)
{
    EXPECT_EQ(findModel("pmv"), nullptr);
    EXPECT_EQ(searchModels("required clothing").at(0)->id, "ireq");
    const ModelResult& utci = findModel("utci")->results[0];
    EXPECT_EQ(utci.categories.size(), findIndex("utci")->categories.size());
    EXPECT_EQ(findModel("two_node")->inputs[8].choices.size(), 2U);
}

} // namespace
} // namespace comfortics
