// SPDX-License-Identifier: GPL-3.0-or-later
//
// What tests of several rooms share: prepared answers to what forms ask, texts of grids, and a
// folder that goes with its test.
#pragma once

#include "controls/dialogs.h"
#include "controls/grid.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace comfortics::tests {

struct RecordedMessages final : controls::Messages {
    std::vector<controls::MessageBox> boxes;
    controls::Answer answer = controls::Answer::Ok;
    controls::Answer show(const controls::MessageBox& box) override
    {
        boxes.push_back(box);
        return answer;
    }
};

struct PreparedFiles final : controls::FileDialogs {
    std::optional<std::string> answer;
    std::vector<controls::SaveRequest> asked;
    std::optional<std::string> askSave(const controls::SaveRequest& request) override
    {
        asked.push_back(request);
        return answer;
    }
};

struct RecordedClipboard final : controls::Clipboard {
    std::vector<std::string> calls;
    void clear() override { calls.push_back("clear"); }
    void setText(const std::string& text) override { calls.push_back(text); }
    std::string text() override { return calls.empty() ? "" : calls.back(); }
};

/// Fills a whole grid by its clip text; everything stays selected.
inline void fill(controls::Grid& grid, std::string_view text)
{
    grid.select(0, 0, grid.rows() - 1, grid.cols() - 1);
    grid.setClip(text);
}

inline std::string column(const controls::Grid& grid, std::size_t col)
{
    std::string texts;
    for (std::size_t row = 0; row < grid.rows(); ++row)
        texts += (row ? "|" : "") + std::string(grid.textMatrix(row, col));
    return texts;
}

class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "comfortics-XXXXXX").string();
        EXPECT_NE(::mkdtemp(name.data()), nullptr);
        m_path = name;
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string file(const std::string& name) const { return (m_path / name).string(); }
    std::size_t count() const
    {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(m_path), {}));
    }

private:
    std::filesystem::path m_path;
};

inline void writeFile(const std::string& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

/// "missing" where there is no such file.
inline std::string readFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "missing";
}

} // namespace comfortics::tests
