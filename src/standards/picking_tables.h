// SPDX-License-Identifier: GPL-3.0-or-later
//
// What metabolic rate and clothing are picked from: the activities, ensembles and garments of ASHRAE 55, the
// insulation of garments worn together by ISO 9920 (2007), and the clothing that people choose by the weather
// of the morning (Schiavon and Lee, 2013). Ids never change; the names are for people.
#pragma once

#include "standards/answer.h"

#include <array>
#include <span>
#include <string_view>

namespace comfortics::standards {

struct Activity {
    std::string_view id;
    std::string_view name;
    double met = 0;
};

/// A set of clothes or one of them, a chair's share in the clothing included.
struct Garment {
    std::string_view id;
    std::string_view name;
    double clo = 0;
};

// clang-format off
inline constexpr std::array kActivities = std::to_array<Activity>({
    {"sleeping",             "Sleeping",                                       0.7},
    {"reclining",            "Reclining",                                      0.8},
    {"seated_quiet",         "Seated, quiet",                                  1.0},
    {"reading",              "Reading, seated",                                1.0},
    {"writing",              "Writing",                                        1.0},
    {"typing",               "Typing",                                         1.1},
    {"standing_relaxed",     "Standing, relaxed",                              1.2},
    {"filing_seated",        "Filing, seated",                                 1.2},
    {"filing_standing",      "Filing, standing",                               1.4},
    {"driving_car",          "Driving a car",                                  1.5},
    {"walking_about",        "Walking about",                                  1.7},
    {"cooking",              "Cooking",                                        1.8},
    {"table_sawing",         "Table sawing",                                   1.8},
    {"walking_3_2",          "Walking at 3.2 km/h",                            2.0},
    {"lifting_packing",      "Lifting, packing",                               2.1},
    {"light_machine_work",   "Light machine work",                             2.2},
    {"seated_heavy_limbs",   "Seated, heavy movement of the limbs",            2.2},
    {"walking_4_8",          "Walking at 4.8 km/h",                            2.6},
    {"house_cleaning",       "House cleaning",                                 2.7},
    {"driving_heavy",        "Driving a heavy vehicle",                        3.2},
    {"dancing",              "Dancing",                                        3.4},
    {"calisthenics",         "Calisthenics",                                   3.5},
    {"walking_6_4",          "Walking at 6.4 km/h",                            3.8},
    {"tennis",               "Tennis",                                         3.8},
    {"heavy_machine_work",   "Heavy machine work",                             4.0},
    {"bags_45_kg",           "Handling bags of 45 kg",                         4.0},
    {"pick_and_shovel",      "Pick and shovel work",                           4.4},
    {"basketball",           "Basketball",                                     6.3},
    {"wrestling",            "Wrestling",                                      7.8},
});

inline constexpr std::array kEnsembles = std::to_array<Garment>({
    {"shorts_short_sleeves",   "Walking shorts, short-sleeved shirt",            0.36},
    {"summer_indoors",         "Typical summer clothing indoors",                0.5},
    {"skirt_short_sleeves",    "Knee-length skirt, short sleeves, sandals",      0.54},
    {"trousers_short_sleeves", "Trousers, short-sleeved shirt",                  0.57},
    {"trousers_long_sleeves",  "Trousers, long-sleeved shirt",                   0.61},
    {"skirt_long_sleeves",     "Knee-length skirt, long sleeves, full slip",     0.67},
    {"sweat_suit",             "Sweat suit",                                     0.74},
    {"jacket_trousers",        "Jacket, trousers, long-sleeved shirt",           0.96},
    {"winter_indoors",         "Typical winter clothing indoors",                1.0},
});

inline constexpr std::array kGarments = std::to_array<Garment>({
    {"bra",                    "Bra",                                            0.01},
    {"underwear_women",        "Women's underwear",                              0.03},
    {"underwear_men",          "Men's underwear",                                0.04},
    {"t_shirt",                "T-shirt",                                        0.08},
    {"long_underwear_top",     "Long underwear, top",                            0.20},
    {"long_underwear_bottoms", "Long underwear, bottoms",                        0.15},
    {"half_slip",              "Half slip",                                      0.14},
    {"full_slip",              "Full slip",                                      0.16},
    {"ankle_socks",            "Ankle socks",                                    0.02},
    {"calf_socks",             "Calf-length socks",                              0.03},
    {"knee_socks",             "Knee socks, thick",                              0.06},
    {"panty_hose",             "Panty hose",                                     0.02},
    {"shoes",                  "Shoes",                                          0.02},
    {"sandals",                "Sandals",                                        0.02},
    {"slippers",               "Slippers",                                       0.03},
    {"boots",                  "Boots",                                          0.10},
    {"shorts",                 "Shorts",                                         0.06},
    {"walking_shorts",         "Walking shorts",                                 0.08},
    {"trousers_thin",          "Trousers, thin",                                 0.15},
    {"trousers_thick",         "Trousers, thick",                                0.24},
    {"sweatpants",             "Sweatpants",                                     0.28},
    {"overalls",               "Overalls",                                       0.30},
    {"coveralls",              "Coveralls",                                      0.49},
    {"blouse_sleeveless",      "Sleeveless blouse",                              0.12},
    {"knit_short",             "Short-sleeved knit shirt",                       0.17},
    {"dress_shirt_short",      "Short-sleeved dress shirt",                      0.19},
    {"dress_shirt_long",       "Long-sleeved dress shirt",                       0.25},
    {"flannel_shirt",          "Long-sleeved flannel shirt or sweat shirt",      0.34},
    {"skirt_thin",             "Skirt, thin",                                    0.14},
    {"skirt_thick",            "Skirt, thick",                                   0.23},
    {"dress_short",            "Short-sleeved dress",                            0.29},
    {"dress_long_thin",        "Long-sleeved dress, thin",                       0.33},
    {"dress_long_thick",       "Long-sleeved dress, thick",                      0.47},
    {"vest_thin",              "Sleeveless vest, thin",                          0.10},
    {"vest_thick",             "Sleeveless vest, thick",                         0.17},
    {"sweater_thin",           "Sweater, thin",                                  0.25},
    {"sweater_thick",          "Sweater, thick",                                 0.36},
    {"coat_single_thin",       "Single-breasted coat, thin",                     0.36},
    {"coat_single_thick",      "Single-breasted coat, thick",                    0.44},
    {"coat_double_thin",       "Double-breasted coat, thin",                     0.42},
    {"coat_double_thick",      "Double-breasted coat, thick",                    0.48},
});

/// What one sits on; added to the insulation of what one wears.
inline constexpr std::array kChairs = std::to_array<Garment>({
    {"chair_office",           "Office chair",                                   0.10},
    {"chair_executive",        "Executive chair",                                0.15},
});
// clang-format on

struct Clothing {
    Verdict verdict{};
    double clo = kNaN;
};

/// Insulation of garments worn together, from that of each, and of the chair [clo]. Without garments that of
/// the chair alone: the regression is one over the clothed.
Clothing ensembleOf(std::span<const double> garments, double chair = 0) noexcept;

/// The clothing [clo] that people in offices choose by the outdoor temperature [°C] at six in the morning.
Clothing clothingByWeather(double tAtSix) noexcept;

} // namespace comfortics::standards
