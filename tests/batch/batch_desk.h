// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the batch tests share: the limits of the project, a main window without a screen, and rows
// of all kinds.
#pragma once

#include "../core/test_desk.h"
#include "no_windows.h"

#include "batch/sheet_rows.h"

#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace comfortics::tests {

using Cells = batch::BoxTexts;

inline const core::Limits& projectLimits()
{
    static const core::Limits limits = core::Limits::Load_Limits(COMFORTICS_DATA_DIR "/Limits.Index");
    return limits;
}

struct MainWindow {
    RecordedMessages messages;
    NoWindows windows;
    core::Frm_Main main{projectLimits(), messages, windows};

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
        std::size_t count = 0;
        for (const controls::MessageBox& box : messages.boxes)
            count += box.text == "No convergence: values too extreme" ? 1U : 0U;
        return count;
    }
};

/// The captions of the store for the selected indices, in order.
inline std::vector<std::string> selectedResults(const core::Frm_Main& main)
{
    std::vector<std::string> texts;
    for (std::size_t index = 1; index <= core::kIndexCount; ++index)
        if (main.List_Indices.selected(index - 1))
            texts.push_back(main.calculation.results.lbl_results[index].caption());
    return texts;
}

inline std::vector<std::string> liveCaptions(const core::Calculation& calculation)
{
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < formulas::kLiveCount; ++i)
        texts.push_back(calculation.liveLabel(static_cast<formulas::Live>(i)).caption());
    return texts;
}

/// Rows as users paste them: most are sound, some lack a cell, give both of a pair, hold letters,
/// commas, lone signs and trailing points, extremes, or what makes a run fail. Many repeat cells
/// of the row before, so that writes that change nothing occur often.
inline std::vector<Cells> randomRows(std::size_t count, std::uint32_t seed)
{
    std::mt19937 random(seed);
    const auto chance = [&random](unsigned percent) { return random() % 100 < percent; };
    const auto between = [&random](int from, int to) {
        return from + static_cast<int>(random() % static_cast<unsigned>(to - from + 1));
    };
    const auto tenths = [](int value) {
        return (value < 0 ? "-" : "") + std::to_string(std::abs(value) / 10) + "." +
               std::to_string(std::abs(value) % 10);
    };
    const std::vector<std::string> odd{"",    "-",   ".",   "abc",  "1,5",  "1,2,3", "5-",
                                       "20.", "0.",  "0",   "58.1", "-999", "100",   "100.1",
                                       " 7 ", "1e1", "-5-", "1.05", "600",  "99-"};
    std::vector<Cells> rows;
    for (std::size_t i = 0; i < count; ++i) {
        const int Ta = between(-350, 450);
        Cells row{tenths(Ta)};
        if (chance(40))
            row[1] = tenths(Ta + between(-30, 200));
        else
            row[2] = std::to_string(between(0, 1200));
        if (chance(30))
            row[3] = tenths(Ta - between(-20, 200));
        else
            row[4] = tenths(between(50, 1000));
        row[5] = tenths(between(0, chance(10) ? 300 : 150));
        for (std::size_t column = 0; column < row.size(); ++column) {
            if (chance(4))
                row[column] = odd[random() % odd.size()];
            if (!rows.empty() && chance(20))
                row[column] = rows.back()[column];
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace comfortics::tests
