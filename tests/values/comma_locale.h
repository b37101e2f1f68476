// SPDX-License-Identifier: GPL-3.0-or-later
//
// A locale with a decimal comma, for tests that must not notice it.
#pragma once

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include <unistd.h>

namespace comfortics::tests {

/// Finds an installed locale with a decimal comma, or compiles one into a temporary folder where
/// the system brings the sources (`LOCPATH` points there while this lives). Without either, `name`
/// is empty and the test has to skip.
class CommaLocale {
public:
    CommaLocale()
    {
        for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "es_ES.UTF-8", "pt_BR.UTF-8", "el_GR.UTF-8"})
            if (speaksComma(name)) {
                m_name = name;
                return;
            }
        m_folder =
            (std::filesystem::temp_directory_path() / ("comfortics-locale-" + std::to_string(::getpid())))
                .string();
        std::filesystem::create_directories(m_folder);
        const std::string command =
            "localedef -i de_DE -f UTF-8 '" + m_folder + "/de_DE.UTF-8' >'" + m_folder + "/log' 2>&1";
        // Warnings give it a status of their own; what counts is whether the locale works.
        [[maybe_unused]] const int status = std::system(command.c_str());
        ::setenv("LOCPATH", m_folder.c_str(), 1);
        if (speaksComma("de_DE.UTF-8"))
            m_name = "de_DE.UTF-8";
    }
    ~CommaLocale()
    {
        std::setlocale(LC_ALL, "C");
        if (!m_folder.empty()) {
            ::unsetenv("LOCPATH");
            std::error_code ignored;
            std::filesystem::remove_all(m_folder, ignored);
        }
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    const std::string& name() const noexcept { return m_name; }
    bool enter() const { return std::setlocale(LC_ALL, m_name.c_str()) != nullptr; }

private:
    static bool speaksComma(const char* name)
    {
        const bool known = std::setlocale(LC_ALL, name) != nullptr;
        const bool comma = known && std::string(std::localeconv()->decimal_point) == ",";
        std::setlocale(LC_ALL, "C");
        return comma;
    }

    std::string m_name;
    std::string m_folder;
};

} // namespace comfortics::tests
