// SPDX-License-Identifier: GPL-3.0-or-later
//
// A locale with a decimal comma, for tests that must not notice it.
#pragma once

#include "temporary_folder.h"

#include <clocale>
#include <cstdlib>
#include <string>

namespace comfortics::tests {

/// Compiles a locale with a decimal comma into a temporary folder, where the system brings the sources
/// (`LOCPATH` points there while this lives). If it does not, `name` is empty and the test has to skip.
class CommaLocale {
public:
    CommaLocale()
    {
        // Warnings give it a status of their own; what counts is whether the locale works.
        [[maybe_unused]] const int status = std::system(
            ("localedef -i de_DE -f UTF-8 '" + m_folder.file(m_name) + "' >/dev/null 2>&1").c_str());
        ::setenv("LOCPATH", m_folder.file("").c_str(), 1);
        if (!enter() || std::localeconv()->decimal_point != std::string(","))
            m_name.clear();
        std::setlocale(LC_ALL, "C");
    }
    ~CommaLocale()
    {
        std::setlocale(LC_ALL, "C");
        ::unsetenv("LOCPATH");
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    const std::string& name() const noexcept { return m_name; }
    bool enter() const { return std::setlocale(LC_ALL, m_name.c_str()) != nullptr; }

private:
    std::string m_name = "de_DE.UTF-8";
    TemporaryFolder m_folder;
};

} // namespace comfortics::tests
