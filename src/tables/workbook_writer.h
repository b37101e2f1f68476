// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/results.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace comfortics::tables {

/// What a sheet of metadata tells, line by line: a name, and what there is to it.
using Metadata = std::vector<std::pair<std::string, std::string>>;

/// Writes results as an XLSX workbook: numbers as numbers, names and units in two rows on top, more sheets
/// where one is full, and a sheet of metadata. Rows go to temporary files; the bytes of the workbook are
/// given at the end. Throws TableFault where those files cannot be written.
class WorkbookWriter final : public ResultWriter {
public:
    /// `metadata` is asked at the end.
    WorkbookWriter(std::function<Metadata()> metadata, ByteTaker take);
    ~WorkbookWriter() override;

    void begin(const std::vector<ResultColumn>& columns) override;
    std::string prepared(const ResultBlock&) const override { return {}; }
    void write(const ResultBlock& block, const std::string& prepared) override;
    void end() override;

private:
    struct Book;

    void beginSheet();

    std::function<Metadata()> m_metadata;
    ByteTaker m_take;
    std::vector<ResultColumn> m_columns;
    std::unique_ptr<Book> m_book;
};

} // namespace comfortics::tables
