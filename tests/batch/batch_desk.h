// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the batch tests share: the limits of the project, a main window without a screen, and rows
// of all kinds.
#pragma once

#include "../classic/test_desk.h"
#include "no_windows.h"

#include "batch/sheet_rows.h"

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace comfortics::tests {

using Cells = batch::BoxTexts;

inline const classic::Limits& projectLimits()
{
    static const classic::Limits limits = classic::Limits::Load_Limits(COMFORTICS_DATA_DIR "/Limits.Index");
    return limits;
}

struct MainWindow {
    RecordedMessages messages;
    NoWindows windows;
    classic::Frm_Main main{projectLimits(), messages, windows};

    /// Writes a row into the boxes and calculates it if it passes the row test.
    bool calculate(const Cells& cells)
    {
        main.calculation.readings.write({cells[0], cells[1], cells[2], cells[3], cells[4], cells[5]});
        const bool complete = main.calculation.readings.complete();
        if (complete)
            main.cmd_Calculate.setValue(true);
        return complete;
    }
    std::size_t solverMessages() const
    {
        return static_cast<std::size_t>(
            std::count_if(messages.boxes.begin(), messages.boxes.end(), [](const controls::MessageBox& box) {
                return box.text == "No convergence: values too extreme";
            }));
    }
};

/// The captions of the store for the selected indices, in order.
inline std::vector<std::string> selectedResults(const classic::Frm_Main& main)
{
    std::vector<std::string> texts;
    for (std::size_t index = 1; index <= catalogue::kIndexCount; ++index)
        if (main.List_Indices.selected(index - 1))
            texts.push_back(main.calculation.results.lbl_results[index].caption());
    return texts;
}

inline std::vector<std::string> liveCaptions(const classic::Calculation& calculation)
{
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < formulas::kLiveCount; ++i)
        texts.push_back(calculation.liveLabel(static_cast<formulas::Live>(i)).caption());
    return texts;
}

/// Rows as users paste them, each cell one of a few: many are sound, others lack a cell, give both
/// of a pair, hold letters, commas, lone signs and trailing points, or what makes a run fail. Cells
/// often repeat those of the row before. Where a cell equals what its box holds, the box is not
/// cleaned again, and what a row gives depends on the rows before it.
inline std::vector<Cells> randomRows(std::size_t count, std::uint32_t seed)
{
    const std::vector<std::string> choices[] = {
        {"30", "9.5", "9", "-7.25", "20", "41.3", "25", "53", "", "12-"},
        {"", "", "", "", "", "25", "12", "-", "9-", "45.0"},
        {"", "600", "616", "5", "1049.5", "600.", "x", "20.5", "1,5"},
        {"", "", "", "", "8.5", "20", "9.3", "-", "7-"},
        {"", "50", "78.2", "31.4", "100", "100.1", "50.", "1,2,3"},
        {"2", "5.5", "0.1", "12.5", "0.", "0", " 7 ", ""},
    };
    std::mt19937 random(seed);
    std::vector<Cells> rows(count);
    for (Cells& row : rows)
        for (std::size_t column = 0; column < row.size(); ++column)
            row[column] = choices[column][random() % choices[column].size()];
    return rows;
}

/// The radiant and the wet bulb solver do not converge.
inline const Cells kExtreme{"53", "", "616", "", "78.2", "0.1"};

} // namespace comfortics::tests
