// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/workbook_writer.h"

#include "tables/layout.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <unistd.h>
#include <xlsxwriter.h>

namespace comfortics::tables {

namespace {

constexpr std::size_t kHeaderRows = 2;
constexpr std::size_t kMostRows = 1048576;  // of a sheet
constexpr std::size_t kMostColumns = 16384; // likewise
constexpr std::size_t kLongestText = 32767; // of a cell, in characters

// In the form that the format takes: valid UTF-8 and not too long.
std::string cellText(std::string_view text)
{
    std::string result;
    while (!text.empty() && result.size() < kLongestText) {
        const std::size_t good = utf8Prefix(text, true);
        for (const char c : text.substr(0, good))
            result += static_cast<unsigned char>(c) < ' ' && c != '\n' && c != '\t' ? ' ' : c;
        text.remove_prefix(good);
        if (!text.empty()) {
            result += "?";
            text.remove_prefix(1);
        }
    }
    if (result.size() > kLongestText)
        result.resize(utf8Prefix(std::string_view(result).substr(0, kLongestText), true));
    return result;
}

/// A file of a name of its own, which goes with the object.
class TemporaryFile {
public:
    TemporaryFile() : m_path((std::filesystem::temp_directory_path() / "comfortics-XXXXXX").string())
    {
        m_descriptor = ::mkstemp(m_path.data());
        if (m_descriptor < 0)
            fail();
    }
    ~TemporaryFile()
    {
        ::close(m_descriptor);
        ::unlink(m_path.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& path() const noexcept { return m_path; }

    void giveTo(const ByteTaker& take) const
    {
        std::vector<char> buffer(std::size_t{1} << 16);
        for (off_t at = 0;;) {
            const ssize_t count = ::pread(m_descriptor, buffer.data(), buffer.size(), at);
            if (count < 0 && errno == EINTR)
                continue;
            if (count < 0)
                fail();
            if (count == 0)
                return;
            take({buffer.data(), static_cast<std::size_t>(count)});
            at += count;
        }
    }

private:
    [[noreturn]] static void fail()
    {
        throw TableFault("A temporary file for the workbook cannot be used: " +
                         std::generic_category().message(errno) + ".");
    }

    std::string m_path;
    int m_descriptor = -1;
};

} // namespace

struct WorkbookWriter::Book {
    TemporaryFile file;
    std::string folder = std::filesystem::temp_directory_path().string();
    lxw_workbook* workbook = nullptr;
    lxw_format* bold = nullptr;
    lxw_worksheet* sheet = nullptr;
    std::size_t row = 0;
    int sheets = 0;
    bool failed = false;

    void must(lxw_error error) { failed = failed || error != LXW_NO_ERROR; }
    void text(std::size_t at, std::size_t column, std::string_view text, lxw_format* format = nullptr)
    {
        if (!text.empty())
            must(::worksheet_write_string(sheet, static_cast<lxw_row_t>(at), static_cast<lxw_col_t>(column),
                                          cellText(text).c_str(), format));
    }
};

WorkbookWriter::WorkbookWriter(std::function<Metadata()> metadata, ByteTaker take)
    : m_metadata(std::move(metadata)), m_take(std::move(take)), m_book(std::make_unique<Book>())
{
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = m_book->folder.data();
    options.use_zip64 = LXW_TRUE;
    m_book->workbook = ::workbook_new_opt(m_book->file.path().c_str(), &options);
    if (m_book->workbook == nullptr)
        throw TableFault("The workbook cannot be begun.");
    m_book->bold = ::workbook_add_format(m_book->workbook);
    ::format_set_bold(m_book->bold);
}

WorkbookWriter::~WorkbookWriter()
{
    if (m_book->workbook != nullptr) // given up
        ::lxw_workbook_free(m_book->workbook);
}

void WorkbookWriter::begin(const std::vector<ResultColumn>& columns)
{
    if (columns.size() > kMostColumns)
        throw TableFault("A sheet of a workbook has at most " + std::to_string(kMostColumns) + " columns.");
    m_columns = columns;
    beginSheet();
}

void WorkbookWriter::beginSheet()
{
    Book& book = *m_book;
    ++book.sheets;
    const std::string name =
        "Results" + (book.sheets > 1 ? " " + std::to_string(book.sheets) : std::string());
    book.sheet = ::workbook_add_worksheet(book.workbook, name.c_str());
    if (book.sheet == nullptr)
        throw TableFault("A sheet of the workbook cannot be begun.");
    ::worksheet_freeze_panes(book.sheet, kHeaderRows, 0);
    for (std::size_t column = 0; column < m_columns.size(); ++column)
        book.text(0, column, m_columns[column].name, book.bold);
    for (std::size_t column = 0; column < m_columns.size(); ++column)
        book.text(1, column, m_columns[column].unit);
    book.row = kHeaderRows;
}

void WorkbookWriter::write(const ResultBlock& block, const std::string&)
{
    Book& book = *m_book;
    for (std::size_t row = 0; row < block.rows(); ++row) {
        if (book.row == kMostRows)
            beginSheet();
        for (std::size_t column = 0; column < block.columns(); ++column) {
            const std::string_view cell = block.cell(row, column);
            const auto number =
                m_columns[column].kind == ResultColumn::Kind::Text ? std::nullopt : cellNumber(cell, '.');
            if (number)
                book.must(::worksheet_write_number(book.sheet, static_cast<lxw_row_t>(book.row),
                                                   static_cast<lxw_col_t>(column), *number, nullptr));
            else
                book.text(book.row, column, cell);
        }
        ++book.row;
    }
    if (book.failed)
        throw TableFault("The workbook cannot be written; is the disk of temporary files full?");
}

void WorkbookWriter::end()
{
    Book& book = *m_book;
    book.sheet = ::workbook_add_worksheet(book.workbook, "Metadata");
    if (book.sheet == nullptr)
        throw TableFault("A sheet of the workbook cannot be begun.");
    ::worksheet_set_column(book.sheet, 0, 0, 32, nullptr);
    const Metadata metadata = m_metadata();
    for (std::size_t row = 0; row < metadata.size(); ++row) {
        book.text(row, 0, metadata[row].first, book.bold);
        book.text(row, 1, metadata[row].second);
    }
    const lxw_error error = ::workbook_close(std::exchange(book.workbook, nullptr));
    if (error != LXW_NO_ERROR || book.failed)
        throw TableFault("The workbook cannot be written; is the disk of temporary files full?");
    book.file.giveTo(m_take);
}

} // namespace comfortics::tables
