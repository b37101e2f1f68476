// SPDX-License-Identifier: GPL-3.0-or-later
//
// A shift in the heat by ISO 7933:2023: how long it may last for several metabolic rates, and how the rectal
// temperature rises.
#include <comfortics/comfortics.h>

#include <array>
#include <exception>
#include <iomanip>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace cf = comfortics;

int main()
try {
    const cf::Model& strain = *cf::findModel("phs_2023");
    const std::array<double, 3> watts{250, 330, 600};

    // What is left out has the start value of the standard, or the model does without it.
    std::vector<cf::Column> inputs(strain.inputs.size());
    const auto give = [&](std::string_view id, cf::Column column) {
        for (std::size_t i = 0; i < inputs.size(); ++i)
            if (strain.inputs[i].id == id)
                inputs[i] = column;
    };
    give("ta", 38);
    give("tr", 45);
    give("v", 0.5);
    give("rh", 45);
    give("metabolic_w", watts);
    give("clo", 0.6);
    give("posture", 0); // standing
    give("acclimatised", 1);

    std::array<double, 3> minutes{};
    std::array<cf::ModelStatus, 3> statuses{};
    constexpr std::size_t longestExposure = 4; // among strain.results
    cf::evaluateModel(strain, inputs, watts.size(),
                      std::array{cf::ModelOutput{longestExposure, minutes.data(), 1, statuses.data()}});
    for (std::size_t i = 0; i < watts.size(); ++i) {
        const std::string why = cf::explainModel(strain, inputs, longestExposure, i);
        std::cout << watts[i] << " W: " << minutes[i] << " min" << (why.empty() ? "" : ". " + why) << '\n';
    }

    std::vector<double> course(cf::courseMinutes(strain, inputs, 1) * strain.courseFigures.size());
    cf::modelCourse(strain, inputs, course, 1);
    std::cout << "Rectal temperature at 330 W after 15, 30, 60 and 480 minutes:" << std::fixed
              << std::setprecision(1);
    for (const std::size_t minute : {15U, 30U, 60U, 480U})
        std::cout << ' ' << course[(minute - 1) * strain.courseFigures.size()];
    std::cout << " °C\n";
} catch (const std::exception& error) {
    std::cerr << "shift: " << error.what() << '\n';
    return 1;
}
