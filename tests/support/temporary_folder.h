// SPDX-License-Identifier: GPL-3.0-or-later
//
// Files of a test.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <stdlib.h> // mkdtemp

namespace comfortics::tests {

/// A folder that goes with all it holds.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "comfortics-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("no temporary folder");
        m_path = name;
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    std::string file(const std::string& name) const { return (m_path / name).string(); }
    std::string write(const std::string& name, std::string_view text) const
    {
        std::ofstream(m_path / name, std::ios::binary) << text;
        return file(name);
    }
    std::vector<std::string> names() const
    {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(m_path))
            found.push_back(entry.path().filename().string());
        return found;
    }

private:
    std::filesystem::path m_path;
};

/// "missing" where there is no such file.
inline std::string readFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "missing";
}

} // namespace comfortics::tests
