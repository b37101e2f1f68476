// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/csv_writer.h"

#include "output/code_page.h"

#include <cstddef>

namespace comfortics::output {

bool writeCsv(const controls::Grid& grid, CsvForm form, ByteSink& sink,
              const std::vector<std::string>& headers)
{
    std::string line;
    for (std::size_t row = 0; row < grid.rows(); ++row) {
        line.clear();
        for (std::size_t col = 0; col < grid.cols(); ++col) {
            if (form == CsvForm::Separated && col > 0)
                line += ',';
            appendWindows1252(line,
                              row == 0 && col < headers.size() ? headers[col] : grid.textMatrix(row, col));
            if (form == CsvForm::Terminated)
                line += ',';
        }
        line += "\r\n";
        if (!sink.write(line))
            return false;
    }
    return true;
}

WriteResult writeCsvFile(const controls::Grid& grid, CsvForm form, const std::string& path,
                         const std::vector<std::string>& headers)
{
    WholeFile file(path);
    writeCsv(grid, form, file, headers);
    return file.commit();
}

} // namespace comfortics::output
