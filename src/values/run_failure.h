// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exception>
#include <string>
#include <utility>

namespace comfortics::values {

/// A step of a calculation that has no defined result: division by zero, a logarithm or root
/// outside its domain, an overflow, a text where a number is needed, a search without an end.
///
/// It says why in one clause, with the value that did it. Where it happened is known by whoever
/// catches it: the calculation sequence, the batch row, the radiation run.
class RunFailure : public std::exception {
public:
    explicit RunFailure(std::string why) : m_why(std::move(why)) {}

    const std::string& why() const noexcept { return m_why; }
    const char* what() const noexcept override { return m_why.c_str(); }

private:
    std::string m_why;
};

} // namespace comfortics::values
