// SPDX-License-Identifier: GPL-3.0-or-later
//
// A program of a stranger: one formula at one point.
//
// usage: formula ID INPUT...
#include <comfortics/evaluate.h>
#include <comfortics/version.h>

#include <iomanip>
#include <iostream>
#include <string>
#include <vector>

int main(int argc, char** argv)
{
    if (argc == 1) {
        std::cout << comfortics::version() << '\n';
        return 0;
    }
    std::vector<comfortics::Column> inputs;
    for (int i = 2; i < argc; ++i)
        inputs.emplace_back(std::stod(argv[i]));
    double value = 0;
    comfortics::evaluate(*comfortics::findIndex(argv[1]), inputs, 1, {.values = &value});
    std::cout << std::setprecision(9) << value << '\n';
}
