// SPDX-License-Identifier: GPL-3.0-or-later
//
// Tables of results to the last bit: CSV files whose numbers are hexadecimal, each with the fingerprint of
// the C library that made it.
#pragma once

#include "texts/variant.h"
#include "values/number.h"
#include "values/run_failure.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace comfortics::tests {

inline double numberOf(const std::string& token)
{
    return std::strtod(token.c_str(), nullptr);
}

/// A number as the tables write it.
inline std::string hexadecimal(double value)
{
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%a", value);
    return buffer;
}

inline std::string written(values::Number value)
{
    return hexadecimal(value.value());
}

inline std::string written(const std::optional<values::Number>& value)
{
    return value ? written(*value) : "empty";
}

inline std::string written(const texts::Variant& value)
{
    return value.isText() ? value.text() : value.isEmpty() ? "empty" : written(value.number());
}

/// What a calculation came to, as the tables write it: the number, "empty" for no value, the text that a
/// model answers with, "fails".
template <typename Compute>
std::string outcomeOf(Compute compute)
{
    try {
        return written(compute());
    } catch (const values::RunFailure&) {
        return "fails";
    }
}

struct BitRow {
    std::vector<std::string> fields;
    std::vector<std::string> inputs; ///< the last field but one, taken apart at its blanks

    const std::string& expected() const { return fields.back(); }
    std::vector<double> numbers() const
    {
        std::vector<double> all;
        std::transform(inputs.begin(), inputs.end(), std::back_inserter(all), numberOf);
        return all;
    }
};

class BitTable {
public:
    explicit BitTable(const std::string& path)
    {
        std::ifstream file(path);
        EXPECT_TRUE(file) << path;
        for (std::string line; std::getline(file, line);) {
            if (line.empty() || line.front() == '#')
                continue;
            BitRow row{split(line, ','), {}};
            row.inputs = split(row.fields.at(row.fields.size() - 2), ' ');
            if (row.fields.front() == "library")
                m_sameLibrary = m_sameLibrary && hasSameBits(libraryResult(row), row.expected());
            else
                m_rows.push_back(std::move(row));
        }
        EXPECT_FALSE(m_rows.empty()) << path;
        if (!m_sameLibrary)
            std::clog << "Another C library than that of " << path << ": compared to 1e-13\n";
    }

    const std::vector<BitRow>& rows() const { return m_rows; }

    /// Bit for bit where the C library is the one that made the table. Its exp, pow and atan differ in the
    /// last bit between processors with and without fused multiply-add: there, to 1e-13 of the value or
    /// of the largest input, which is what cancels where the value is small. Such a difference moves the
    /// end of a walk, a search or an iteration only if that end is near: a row that lies there has a "!"
    /// behind its name, and elsewhere counts for nothing.
    void check(const BitRow& row, const std::string& outcome) const
    {
        if (!m_sameLibrary && row.fields.front().back() == '!')
            return;
        EXPECT_TRUE(outcome == row.expected() || hasSameBits(outcome, row.expected()) ||
                    (!m_sameLibrary && isNear(outcome, row)))
            << testing::PrintToString(row.fields) << "\ncame to " << outcome;
    }

private:
    static std::vector<std::string> split(const std::string& text, char separator)
    {
        std::vector<std::string> parts;
        std::istringstream stream(text);
        for (std::string part; std::getline(stream, part, separator);)
            parts.push_back(part);
        return parts;
    }

    static bool isNumber(const std::string& token) { return token.find("0x") < 2; }

    static bool hasSameBits(const std::string& a, const std::string& b)
    {
        return isNumber(a) && isNumber(b) &&
               std::bit_cast<std::uint64_t>(numberOf(a)) == std::bit_cast<std::uint64_t>(numberOf(b));
    }

    static bool isNear(const std::string& outcome, const BitRow& row)
    {
        if (!isNumber(outcome) || !isNumber(row.expected()))
            return false;
        const double expected = numberOf(row.expected());
        double size = std::abs(expected);
        for (const double input : row.numbers())
            size = std::max(size, std::abs(input));
        return std::abs(numberOf(outcome) - expected) <= 1e-13 * size;
    }

    static std::string libraryResult(const BitRow& row)
    {
        const std::string& function = row.fields.at(1);
        const std::vector<double> x = row.numbers();
        // The checked operations call the library out of line, so that no compiler folds its result.
        if (function == "pow")
            return hexadecimal(values::power(x.at(0), x.at(1)).value());
        if (function == "exp")
            return hexadecimal(values::exponential(x.at(0)).value());
        if (function == "log")
            return hexadecimal(values::logarithm(x.at(0)).value());
        if (function == "atan")
            return hexadecimal(values::arcTangent(x.at(0)).value());
        if (function == "cos")
            return hexadecimal(values::cosine(x.at(0)).value());
        if (function == "tan")
            return hexadecimal(values::tangent(x.at(0)).value());
        ADD_FAILURE() << "no library function " << function;
        return {};
    }

    std::vector<BitRow> m_rows;
    bool m_sameLibrary = true;
};

} // namespace comfortics::tests
