// SPDX-License-Identifier: GPL-3.0-or-later
//
// What tests of several rooms share: prepared answers to what forms ask, and texts of grids.
#pragma once

#include "controls/dialogs.h"
#include "controls/grid.h"

#include <optional>
#include <string>
#include <vector>

namespace comfortics::tests {

struct RecordedMessages final : controls::Messages {
    std::vector<controls::MessageBox> boxes;
    controls::Answer answer = controls::Answer::Ok;
    bool tickBoxes = false; ///< tick the check box of every message that has one
    controls::Answer show(const controls::MessageBox& box) override
    {
        boxes.push_back(box);
        if (tickBoxes && box.checked != nullptr)
            *box.checked = true;
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

} // namespace comfortics::tests
