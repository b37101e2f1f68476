// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the batch tests share: the limits of the project, a main window without a screen, and rows
// of all kinds.
#pragma once

#include "../core/test_desk.h"

#include "core/frm_main.h"

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace comfortics::tests {

using Cells = std::array<std::string, core::kReadingCount>;

inline core::Limits projectLimits()
{
    return core::Limits::Load_Limits(COMFORTICS_DATA_DIR "/Limits.Index");
}

struct NoWindows final : core::Windows {
    void showResults() override {}
    void showRawData() override {}
    void showRadiation() override {}
    void showConverter() override {}
    std::string converter_lbl_C() override { return {}; }
    std::string converter_lbl_WS() override { return {}; }
    std::string converter_lbl_SR() override { return {}; }
    void unloadAll() override {}
};

inline void writeCells(core::Frm_Main& main, const Cells& cells)
{
    main.txt_TA.setText(cells[0]);
    main.txt_TG.setText(cells[1]);
    main.txt_SR.setText(cells[2]);
    main.txt_DP.setText(cells[3]);
    main.txt_RH.setText(cells[4]);
    main.txt_WS.setText(cells[5]);
}

/// The row test of the sheet.
inline bool isComplete(const core::Frm_Main& main)
{
    const auto full = [](const controls::TextBox& box) { return !box.text().empty(); };
    return full(main.txt_TA) && (full(main.txt_RH) || full(main.txt_DP)) &&
           (full(main.txt_TG) || full(main.txt_SR)) && full(main.txt_WS);
}

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

inline Cells boxTexts(const core::ReadingBoxes& boxes)
{
    Cells texts;
    for (std::size_t i = 0; i < texts.size(); ++i)
        texts[i] = boxes.text(static_cast<core::Reading>(i));
    return texts;
}

/// Rows as users paste them: most are sound, some lack a cell, give both of a pair, hold letters,
/// commas, lone signs and trailing points, extremes, or what makes a run fail. Many repeat cells
/// of the row before, so that writes that change nothing occur often.
inline std::vector<Cells> randomRows(std::size_t count, std::uint32_t seed)
{
    std::mt19937 random(seed);
    const auto chance = [&random](unsigned percent) { return random() % 100 < percent; };
    const auto tenth = [&random](int from, int to) {
        const int value =
            from * 10 + static_cast<int>(random() % static_cast<unsigned>((to - from) * 10 + 1));
        return (value < 0 ? "-" : "") + std::to_string(std::abs(value) / 10) + "." +
               std::to_string(std::abs(value) % 10);
    };
    const std::array<const char*, 22> odd{"",    "-",    ".",    "abc",  "1,5",  "1,2,3", "5-",    "20.",
                                          "0.",  "0",    "58.1", "-999", "1368", "100",   "100.1", " 7 ",
                                          "1e1", "20,0", "-5-",  "1.05", "600",  "99-"};
    std::vector<Cells> rows;
    for (std::size_t i = 0; i < count; ++i) {
        Cells row;
        row[0] = tenth(-20, 45);
        if (chance(40))
            row[1] = tenth(-15, 60);
        else
            row[2] = std::to_string(random() % 1200);
        if (chance(30))
            row[3] = tenth(-25, 25);
        else
            row[4] = tenth(5, 100);
        row[5] = tenth(0, 15);
        for (std::string& cell : row)
            if (chance(4))
                cell = odd[random() % odd.size()];
        if (!rows.empty())
            for (std::size_t column = 0; column < row.size(); ++column)
                if (chance(20))
                    row[column] = rows.back()[column];
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace comfortics::tests
