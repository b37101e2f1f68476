// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the library itself gives, for the tests of the Python package: reads records of doubles from standard
// input (number of an index, count of points, then the columns of its inputs), and writes the figures of
// each, point by point.
#include <comfortics/comfortics.h>

#include <array>
#include <cstdio>
#include <vector>

namespace {

std::vector<double> next(std::size_t count)
{
    std::vector<double> values(count);
    values.resize(std::fread(values.data(), sizeof(double), count, stdin));
    return values;
}

} // namespace

int main()
{
    for (auto head = next(2); head.size() == 2; head = next(2)) {
        const comfortics::Index& index = comfortics::index(static_cast<int>(head[0]));
        const auto count = static_cast<std::size_t>(head[1]);
        const std::vector<double> columns = next(count * index.inputs.size());
        if (columns.size() != count * index.inputs.size())
            return 1;
        for (std::size_t point = 0; point < count; ++point) {
            std::vector<comfortics::Column> inputs;
            for (std::size_t i = 0; i < index.inputs.size(); ++i)
                inputs.emplace_back(columns[i * count + point]);
            double value = 0;
            comfortics::evaluate(index, inputs, 1, {.values = &value});
            std::fwrite(&value, sizeof value, 1, stdout);
        }
    }
    return 0;
}
