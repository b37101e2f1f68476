// SPDX-License-Identifier: GPL-3.0-or-later
//
// An XLSX workbook is a ZIP archive of XML files: the workbook with the names of its sheets, the texts that
// cells share, the styles, which alone tell a date from a number, and a file for each sheet.
#include "tables/workbook.h"

#include "tables/moment.h"
#include "texts/text.h"
#include "values/plain_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <deque>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <utility>

#include <expat.h>
#include <sys/stat.h>
#include <zip.h>

namespace comfortics::tables {

namespace {

constexpr std::size_t kBlock = std::size_t{1} << 16;
constexpr std::size_t kMostSharedText = std::size_t{128} << 20; // [bytes]
constexpr std::size_t kMostSharedTexts = std::size_t{4} << 20;
constexpr std::size_t kMostInfo = std::size_t{16} << 20;    // of the files about the workbook [bytes]
constexpr std::size_t kLongestCell = std::size_t{1} << 18;  // [bytes]
constexpr std::size_t kLongestToken = std::size_t{1} << 24; // of XML [bytes]
constexpr std::size_t kMostColumns = 16384;
constexpr std::size_t kMostRows = 1048576;
constexpr int kDeepest = 64;
// Sheets pack to a twentieth or so; what packs to far less is made to fill a memory or a disk.
constexpr std::size_t kUnsuspected = std::size_t{64} << 20; // [bytes]
constexpr std::size_t kMostRatio = 400;

constexpr const char* kDamaged = "The workbook is damaged.";

/// An archive that is open.
class Archive {
public:
    explicit Archive(const std::string& path)
    {
        int error = 0;
        m_zip = ::zip_open(path.c_str(), ZIP_RDONLY, &error);
        if (m_zip == nullptr)
            throw TableFault("The workbook cannot be opened: it is no whole ZIP archive.");
    }
    explicit Archive(std::string_view bytes) : m_bytes(bytes)
    {
        zip_error_t error;
        ::zip_error_init(&error);
        zip_source_t* const source = ::zip_source_buffer_create(m_bytes.data(), m_bytes.size(), 0, &error);
        m_zip = source == nullptr ? nullptr : ::zip_open_from_source(source, ZIP_RDONLY, &error);
        ::zip_error_fini(&error);
        if (m_zip == nullptr) {
            ::zip_source_free(source);
            throw TableFault("The workbook cannot be opened: it is no whole ZIP archive.");
        }
    }
    ~Archive() { ::zip_discard(m_zip); }
    Archive(const Archive&) = delete;
    Archive& operator=(const Archive&) = delete;

    zip_t* get() const noexcept { return m_zip; }

private:
    std::string m_bytes;
    zip_t* m_zip = nullptr;
};

/// One file of an archive, unpacked piece by piece.
class Entry {
public:
    Entry(std::shared_ptr<Archive> archive, const std::string& name) : m_archive(std::move(archive))
    {
        zip_stat_t status;
        ::zip_stat_init(&status);
        if (::zip_stat(m_archive->get(), name.c_str(), ZIP_FL_NOCASE, &status) == 0 &&
            (status.valid & ZIP_STAT_COMP_SIZE) != 0) {
            m_packed = status.comp_size;
            m_file = ::zip_fopen(m_archive->get(), name.c_str(), ZIP_FL_NOCASE);
        }
    }
    ~Entry()
    {
        if (m_file != nullptr)
            ::zip_fclose(m_file);
    }
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;

    bool there() const noexcept { return m_file != nullptr; }

    std::size_t read(char* buffer, std::size_t size)
    {
        const zip_int64_t count = ::zip_fread(m_file, buffer, size);
        if (count < 0)
            throw TableFault(kDamaged);
        m_unpacked += static_cast<std::size_t>(count);
        if (m_unpacked > kUnsuspected && m_unpacked / kMostRatio > m_packed)
            throw TableFault("The workbook unpacks to far more than it holds; it is not read.");
        return static_cast<std::size_t>(count);
    }
    std::size_t unpacked() const noexcept { return m_unpacked; }

private:
    std::shared_ptr<Archive> m_archive;
    zip_file_t* m_file = nullptr;
    std::size_t m_packed = 0;
    std::size_t m_unpacked = 0;
};

std::string_view localName(const char* name)
{
    const char* const colon = std::strrchr(name, ':');
    return colon == nullptr ? name : colon + 1;
}

/// The attributes of an element.
class Attributes {
public:
    explicit Attributes(const char** all) : m_all(all) {}
    /// Empty where there is none.
    std::string_view get(std::string_view name) const
    {
        for (const char** at = m_all; *at != nullptr; at += 2)
            if (localName(*at) == name)
                return at[1];
        return {};
    }

private:
    const char** m_all;
};

/// Who hears what an XML file holds.
class XmlListener {
public:
    virtual ~XmlListener() = default;
    virtual void begin(std::string_view element, const Attributes& attributes) = 0;
    virtual void end(std::string_view element) = 0;
    virtual void text(std::string_view text) = 0;

protected:
    XmlListener() = default;
    XmlListener(const XmlListener&) = default;
    XmlListener& operator=(const XmlListener&) = default;
};

/// Reads an XML file piece by piece. What it declares of itself, entities above all, is no part of a
/// workbook.
class XmlStream {
public:
    XmlStream(std::unique_ptr<Entry> entry, XmlListener& listener)
        : m_entry(std::move(entry)), m_listener(listener), m_parser(::XML_ParserCreate(nullptr))
    {
        if (m_parser == nullptr)
            throw std::bad_alloc();
        ::XML_SetUserData(m_parser, this);
        ::XML_SetElementHandler(m_parser, &XmlStream::onBegin, &XmlStream::onEnd);
        ::XML_SetCharacterDataHandler(m_parser, &XmlStream::onText);
        ::XML_SetStartDoctypeDeclHandler(m_parser, &XmlStream::onDoctype);
    }
    ~XmlStream() { ::XML_ParserFree(m_parser); }
    XmlStream(const XmlStream&) = delete;
    XmlStream& operator=(const XmlStream&) = delete;

    /// Reads a piece; false at the end.
    bool more()
    {
        if (m_ended)
            return false;
        void* const buffer = ::XML_GetBuffer(m_parser, static_cast<int>(kBlock));
        if (buffer == nullptr)
            throw std::bad_alloc();
        const std::size_t count = m_entry->read(static_cast<char*>(buffer), kBlock);
        m_ended = count == 0;
        m_silent += count;
        const bool sound =
            ::XML_ParseBuffer(m_parser, static_cast<int>(count), m_ended ? 1 : 0) == XML_STATUS_OK;
        if (!m_fault.empty())
            throw TableFault(m_fault);
        if (!sound || m_silent > kLongestToken)
            throw TableFault(kDamaged);
        return !m_ended;
    }
    const Entry& entry() const noexcept { return *m_entry; }

private:
    // No exception passes through the parser.
    template <class Call>
    void guarded(const Call& call)
    {
        m_silent = 0;
        if (!m_fault.empty())
            return;
        try {
            call();
        } catch (const TableFault& fault) {
            stop(fault.what());
        } catch (const std::bad_alloc&) {
            stop("There is not enough memory for the workbook.");
        }
    }
    void stop(const char* why)
    {
        m_fault = why;
        ::XML_StopParser(m_parser, XML_FALSE);
    }
    static void XMLCALL onBegin(void* self, const char* name, const char** attributes)
    {
        auto& stream = *static_cast<XmlStream*>(self);
        stream.guarded([&] {
            if (++stream.m_depth > kDeepest)
                throw TableFault(kDamaged);
            stream.m_listener.begin(localName(name), Attributes(attributes));
        });
    }
    static void XMLCALL onEnd(void* self, const char* name)
    {
        auto& stream = *static_cast<XmlStream*>(self);
        stream.guarded([&] {
            --stream.m_depth;
            stream.m_listener.end(localName(name));
        });
    }
    static void XMLCALL onText(void* self, const char* text, int length)
    {
        auto& stream = *static_cast<XmlStream*>(self);
        stream.guarded([&] { stream.m_listener.text({text, static_cast<std::size_t>(length)}); });
    }
    static void XMLCALL onDoctype(void* self, const char*, const char*, const char*, int)
    {
        auto& stream = *static_cast<XmlStream*>(self);
        stream.guarded([] { throw TableFault("The workbook declares entities; it is not read."); });
    }

    std::unique_ptr<Entry> m_entry;
    XmlListener& m_listener;
    XML_Parser m_parser;
    std::string m_fault;
    std::size_t m_silent = 0; // bytes since something was heard
    int m_depth = 0;
    bool m_ended = false;
};

/// Hears the beginnings of elements alone.
class BeginListener final : public XmlListener {
public:
    using Heard = std::function<void(std::string_view element, const Attributes& attributes)>;
    explicit BeginListener(Heard heard) : m_heard(std::move(heard)) {}

private:
    void begin(std::string_view element, const Attributes& attributes) override
    {
        m_heard(element, attributes);
    }
    void end(std::string_view) override {}
    void text(std::string_view) override {}

    Heard m_heard;
};

/// The texts that cells share.
class SharedTexts final : public XmlListener {
public:
    std::string_view get(std::size_t place) const
    {
        if (place >= m_ends.size())
            throw TableFault(kDamaged);
        const std::size_t begin = place == 0 ? 0 : m_ends[place - 1];
        return std::string_view(m_text).substr(begin, m_ends[place] - begin);
    }

private:
    void begin(std::string_view element, const Attributes&) override
    {
        m_inText = element == "t" && !m_inSound;
        m_inSound = m_inSound || element == "rPh"; // how it is read aloud
    }
    void end(std::string_view element) override
    {
        m_inText = false;
        if (element == "rPh")
            m_inSound = false;
        if (element == "si")
            m_ends.push_back(m_text.size());
    }
    void text(std::string_view text) override
    {
        if (m_inText)
            m_text += text;
        if (m_text.size() > kMostSharedText || m_ends.size() > kMostSharedTexts)
            throw TableFault("The workbook holds too many different texts.");
    }

    std::string m_text;
    std::vector<std::size_t> m_ends;
    bool m_inText = false;
    bool m_inSound = false;
};

template <class Number>
std::optional<Number> numberOf(std::string_view text)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

// Whether a format of numbers shows dates or times.
bool isDateFormat(std::string_view code)
{
    char closing = 0;
    for (std::size_t i = 0; i < code.size(); ++i) {
        const char c = code[i];
        if (closing != 0) {
            // "[h]" counts hours
            if (closing == ']' && (c == 'h' || c == 'H') && code[i - 1] == '[')
                return true;
            closing = c == closing ? '\0' : closing;
        } else if (c == '"' || c == '[') {
            closing = c == '[' ? ']' : '"';
        } else if (c == '\\' || c == '_' || c == '*') {
            ++i;
        } else if (std::string_view("yYdDhHsS").find(c) != std::string_view::npos) {
            return texts::lowered(code) != "standard"; // "General" in another language
        }
    }
    return false;
}

/// What is told of a workbook before its sheets.
struct Book {
    struct Sheet {
        std::string name;
        std::string id;
    };
    std::shared_ptr<Archive> archive;
    std::vector<Sheet> sheets;
    std::map<std::string, std::string> targets; // of the relations, by id
    bool from1904 = false;
    SharedTexts texts;
    std::vector<bool> dates; // by the style of a cell
};

bool readInfo(const Book& book, const std::string& name, XmlListener& listener, std::size_t most)
{
    auto entry = std::make_unique<Entry>(book.archive, name);
    if (!entry->there())
        return false;
    XmlStream stream(std::move(entry), listener);
    while (stream.more())
        if (stream.entry().unpacked() > most)
            throw TableFault("The workbook tells more of itself than can be read.");
    return true;
}

void readSheets(Book& book)
{
    BeginListener sheets([&book](std::string_view element, const Attributes& attributes) {
        if (element == "sheet")
            book.sheets.push_back({std::string(attributes.get("name")), std::string(attributes.get("id"))});
        if (element == "workbookPr")
            book.from1904 = attributes.get("date1904") == "1" || attributes.get("date1904") == "true";
    });
    BeginListener relations([&book](std::string_view element, const Attributes& attributes) {
        if (element == "Relationship")
            book.targets[std::string(attributes.get("Id"))] = attributes.get("Target");
    });
    if (!readInfo(book, "xl/workbook.xml", sheets, kMostInfo) ||
        !readInfo(book, "xl/_rels/workbook.xml.rels", relations, kMostInfo) || book.sheets.empty())
        throw TableFault("The file is no XLSX workbook: it has no sheets.");
}

void readStyles(Book& book)
{
    std::set<std::string> dateFormats;
    bool inCells = false;
    BeginListener styles([&](std::string_view element, const Attributes& attributes) {
        if (element == "numFmt" && isDateFormat(attributes.get("formatCode")))
            dateFormats.insert(std::string(attributes.get("numFmtId")));
        inCells = element == "cellXfs" || (inCells && element != "cellStyles" && element != "dxfs");
        if (!inCells || element != "xf")
            return;
        const std::string id(attributes.get("numFmtId"));
        const int number = numberOf<int>(id).value_or(0);
        // The formats that need no telling.
        const bool known = (number >= 14 && number <= 22) || (number >= 27 && number <= 36) ||
                           (number >= 45 && number <= 47) || (number >= 50 && number <= 58);
        book.dates.push_back(known || dateFormats.count(id) != 0);
    });
    readInfo(book, "xl/styles.xml", styles, kMostInfo);
}

// A number of days as the date and time that it means.
std::string dateText(double days, bool from1904)
{
    constexpr double kDay = 86400;
    constexpr double kMostDays = 2958466; // the year 10000
    if (!(days >= 0) || days >= kMostDays)
        return values::plainText(days);
    const std::int64_t seconds = std::llround(days * kDay);
    const std::int64_t whole = seconds / 86400;
    // The other count takes 1900 for a leap year.
    const std::int64_t before = from1904 ? 24107 : whole < 61 ? 25568 : 25569; // to 1970 [days]
    const std::string text = momentText({seconds - before * 86400, std::nullopt});
    if (whole == 0 && !from1904)
        return text.substr(11);
    return seconds % 86400 == 0 ? text.substr(0, 10) : text.substr(0, 10) + " " + text.substr(11);
}

/// The rows of a sheet as lines of cells that tabs part, so that line and row have one number.
class SheetText final : private XmlListener {
public:
    SheetText(std::shared_ptr<Book> book, std::unique_ptr<Entry> entry)
        : m_book(std::move(book)), m_stream(std::move(entry), *this)
    {
    }

    std::size_t read(char* buffer, std::size_t size)
    {
        // The widest of the first rows tells the columns.
        while (!m_released) {
            const bool more = m_stream.more();
            if (!more || m_waiting.size() >= kLook)
                release();
        }
        while (m_given == m_text.size()) {
            m_text.clear();
            m_given = 0;
            if (!m_stream.more())
                break;
        }
        const std::size_t count = m_text.copy(buffer, size, m_given);
        m_given += count;
        return count;
    }

private:
    static constexpr std::size_t kLook = 300; // rows

    void begin(std::string_view element, const Attributes& attributes) override
    {
        if (element == "row") {
            const auto number = numberOf<std::size_t>(attributes.get("r"));
            m_row = number ? *number : m_row + 1;
            if (m_row <= m_written || m_row > kMostRows)
                throw TableFault(kDamaged);
            m_cells.clear();
            m_column = 0;
            m_inRow = true;
        } else if (element == "c" && m_inRow) {
            m_column = columnOf(attributes.get("r"));
            m_type = attributes.get("t");
            m_style = numberOf<std::size_t>(attributes.get("s")).value_or(0);
            m_value.clear();
            m_inCell = true;
        }
        m_inValue = m_inCell && (element == "v" || (element == "t" && m_type == "inlineStr" && !m_inSound));
        m_inSound = m_inSound || element == "rPh";
    }

    void end(std::string_view element) override
    {
        m_inValue = false;
        if (element == "rPh")
            m_inSound = false;
        if (element == "c" && m_inCell) {
            m_cells.resize(std::max(m_cells.size(), m_column));
            m_cells[m_column - 1] = cellText();
            m_inCell = false;
        }
        if (element == "row" && m_inRow) {
            m_inRow = false;
            m_written = m_row;
            while (!m_cells.empty() && m_cells.back().empty())
                m_cells.pop_back();
            if (m_released)
                append(m_row, m_cells);
            else
                m_waiting.emplace_back(m_row, m_cells);
        }
    }

    void text(std::string_view text) override
    {
        if (!m_inValue)
            return;
        m_value += text;
        if (m_value.size() > kLongestCell)
            throw TableFault("A cell of the workbook is too long.");
    }

    std::size_t columnOf(std::string_view reference) const
    {
        std::size_t column = 0;
        for (const char c : reference) {
            if (c < 'A' || c > 'Z')
                break;
            column = column * 26 + static_cast<std::size_t>(c - 'A') + 1;
            if (column > kMostColumns)
                throw TableFault(kDamaged);
        }
        column = column == 0 ? m_column + 1 : column;
        if (column > kMostColumns)
            throw TableFault(kDamaged);
        return column;
    }

    std::string cellText() const
    {
        if (m_type == "s")
            return std::string(
                m_book->texts.get(numberOf<std::size_t>(m_value).value_or(kMostSharedTexts + 1)));
        if (!m_type.empty() && m_type != "n")
            return m_value;
        const auto number = numberOf<double>(m_value);
        if (!number)
            return m_value;
        return m_style < m_book->dates.size() && m_book->dates[m_style] ? dateText(*number, m_book->from1904)
                                                                        : values::plainText(*number);
    }

    void release()
    {
        m_released = true;
        for (const auto& [row, cells] : m_waiting)
            m_width = std::max(m_width, cells.size());
        for (const auto& [row, cells] : m_waiting)
            append(row, cells);
        m_waiting.clear();
    }

    void append(std::size_t row, const std::vector<std::string>& cells)
    {
        m_text.append(row - m_line - 1, '\n'); // rows that are not there are empty
        m_line = row;
        for (std::size_t i = 0; !cells.empty() && i < std::max(m_width, cells.size()); ++i) {
            if (i > 0)
                m_text += '\t';
            if (i >= cells.size())
                continue;
            const bool quoted = cells[i].starts_with('"');
            m_text += quoted ? "\"" : "";
            for (const char c : cells[i]) {
                m_text += c == '\t' || c == '\n' || c == '\r' || c == '\0' ? ' ' : c;
                if (quoted && c == '"')
                    m_text += '"';
            }
            m_text += quoted ? "\"" : "";
        }
        m_text += '\n';
    }

    std::shared_ptr<Book> m_book;
    XmlStream m_stream;
    std::vector<std::pair<std::size_t, std::vector<std::string>>> m_waiting;
    std::vector<std::string> m_cells;
    std::size_t m_row = 0;
    std::size_t m_written = 0; // the last row that was complete
    std::size_t m_line = 0;    // the last one in the text
    std::size_t m_column = 0;
    std::size_t m_style = 0;
    std::size_t m_width = 0;
    std::string m_type;
    std::string m_value;
    std::string m_text;
    std::size_t m_given = 0; // of it
    bool m_released = false;
    bool m_inRow = false;
    bool m_inCell = false;
    bool m_inValue = false;
    bool m_inSound = false;
};

OpenTable openArchive(std::shared_ptr<Archive> archive, const Shape& told)
{
    auto book = std::make_shared<Book>();
    book->archive = std::move(archive);
    readSheets(*book);
    const auto sheet = told.sheet.empty()
                           ? book->sheets.begin()
                           : std::find_if(book->sheets.begin(), book->sheets.end(),
                                          [&told](const Book::Sheet& one) { return one.name == told.sheet; });
    if (sheet == book->sheets.end())
        throw TableFault("The workbook has no sheet \"" + told.sheet + "\".");
    std::string target = book->targets[sheet->id];
    target = target.starts_with('/') ? target.substr(1) : "xl/" + target;
    auto entry = std::make_unique<Entry>(book->archive, target);
    if (!entry->there())
        throw TableFault("The workbook lacks the sheet \"" + sheet->name + "\".");
    readInfo(*book, "xl/sharedStrings.xml", book->texts, 4 * kMostSharedText);
    readStyles(*book);
    const std::string name = sheet->name;
    auto text = std::make_shared<SheetText>(book, std::move(entry));
    Shape shape = told;
    shape.coding = Coding::Utf8;
    shape.separator = '\t';
    shape.decimal = '.';
    OpenTable table =
        openText([text](char* buffer, std::size_t size) { return text->read(buffer, size); }, shape);
    table.layout.kind = FileKind::Xlsx;
    table.layout.because.clear();
    table.layout.because.push_back("The sheet \"" + name + "\" of a workbook.");
    return table;
}

} // namespace

bool isWorkbook(const std::string& path)
{
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return false;
    std::ifstream file(path, std::ios::binary);
    char begin[4]{};
    file.read(begin, sizeof begin);
    return file && std::string_view(begin, sizeof begin) == "PK\x03\x04";
}

std::vector<std::string> sheetNames(const std::string& path)
{
    Book book;
    book.archive = std::make_shared<Archive>(path);
    readSheets(book);
    std::vector<std::string> names;
    for (const Book::Sheet& sheet : book.sheets)
        names.push_back(sheet.name);
    return names;
}

OpenTable openWorkbook(const std::string& path, const Shape& told)
{
    return openArchive(std::make_shared<Archive>(path), told);
}

OpenTable openWorkbookBytes(std::string_view bytes, const Shape& told)
{
    return openArchive(std::make_shared<Archive>(bytes), told);
}

} // namespace comfortics::tables
