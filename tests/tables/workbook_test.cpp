// SPDX-License-Identifier: GPL-3.0-or-later
#include "open_tables.h"
#include "tables/open_file.h"
#include "tables/workbook.h"
#include "tables/workbook_writer.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <map>

#include <zip.h>

namespace comfortics::tests {
namespace {

using Parts = std::map<std::string, std::string>;

/// Makes a workbook of its XML files, with what every workbook has beside the sheet.
std::string workbookOf(const TemporaryFolder& folder, const std::string& rows, const Parts& others = {})
{
    Parts parts{
        {"xl/workbook.xml",
         R"(<workbook xmlns:r="r"><sheets><sheet name="A" r:id="r1"/></sheets></workbook>)"},
        {"xl/_rels/workbook.xml.rels",
         R"(<Relationships><Relationship Id="r1" Target="s.xml"/></Relationships>)"},
        {"xl/styles.xml",
         R"(<styleSheet><numFmts><numFmt numFmtId="164" formatCode="[Red]0.0&quot;d&quot;"/>)"
         R"(<numFmt numFmtId="165" formatCode="dd/mm/yyyy"/></numFmts><cellStyleXfs><xf numFmtId="14"/>)"
         R"(</cellStyleXfs><cellXfs><xf numFmtId="0"/><xf numFmtId="165"/><xf numFmtId="164"/>)"
         R"(</cellXfs></styleSheet>)"},
        {"xl/sharedStrings.xml",
         R"(<sst><si><t>Ta</t></si><si><r><t>R</t></r><r><t>H</t></r><rPh><t>x</t></rPh></si></sst>)"},
        {"xl/s.xml", "<worksheet><sheetData>" + rows + "</sheetData></worksheet>"}};
    for (const auto& [name, text] : others)
        parts[name] = text;
    std::string path = folder.file("book.xlsx");
    zip_t* const archive = ::zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    for (const auto& [name, text] : parts)
        ::zip_file_add(archive, name.c_str(), ::zip_source_buffer(archive, text.data(), text.size(), 0), 0);
    EXPECT_EQ(::zip_close(archive), 0);
    return path;
}

TEST(Workbook, ItsCellsComeAsTextsByTheRowsOfTheSheet)
{
    const TemporaryFolder folder;
    const std::string rows =
        R"(<row r="2"><c r="A2" t="s"><v>0</v></c><c r="C2" t="s"><v>1</v></c></row>)"
        R"(<row r="4"><c r="A4"><v>26.410000000000001</v></c><c r="B4" s="1"><v>45474.5</v></c>)"
        R"(<c r="C4" t="inlineStr"><is><t>"a"	b</t></is></c></row>)"
        R"(<row><c><v>1E-3</v></c><c s="1"><v>59</v></c><c t="e"><v>#N/A</v></c></row>)"
        R"(<row><c s="2"><v>7</v></c><c s="1"><v>61</v></c></row>)"
        R"(<row><c><v>1</v></c><c s="1"><v>0.25</v></c><c t="str"><v>f</v></c><c><v>9</v></c></row>)";
    const std::vector<std::string> expected{"4: 26.41|2024-07-01 12:00:00|\"a\" b|",
                                            "5: 0.001|1900-02-28|#N/A|", "6: 7|1900-03-01||",
                                            "7: 1|06:00:00|f|9"};
    tables::OpenTable table = tables::openWorkbook(workbookOf(folder, rows));
    EXPECT_EQ(table.layout.names, (std::vector<std::string>{"Ta", "Column 2", "RH", "Column 4"}));
    EXPECT_EQ(shownRows(*table.rows), expected);
    const std::string since1904 =
        R"(<workbook><workbookPr date1904="1"/><sheets><sheet name="A" id="r1"/></sheets></workbook>)";
    table = tables::openWorkbook(workbookOf(folder, rows, {{"xl/workbook.xml", since1904}}));
    EXPECT_EQ(shownRows(*table.rows).front(), "4: 26.41|2028-07-02 12:00:00|\"a\" b|");
}

TEST(Workbook, AStationsWorkbookIsReadByItsGuess)
{
    const std::string path = COMFORTICS_TABLE_FILES "/roof.xlsx";
    const std::vector<std::string> rows =
        mappedRows(tables::openWorkbook(path), tables::guessMapping(tables::openWorkbook(path)));
    EXPECT_EQ(rows.front(), "2024-07-01T23:40:00 22||0||55.5|1.2693"); // 3.2 mph at 2 m
    EXPECT_EQ(rows.at(3), "2024-07-02T00:10:00 21.3889||5|||1.071");
    EXPECT_EQ(tables::sheetNames(path), (std::vector<std::string>{"Messwerte", "Second"}));
}

TEST(OpenFile, TheKindIsToldByWhatAFileHolds)
{
    using tables::FileKind;
    const std::pair<const char*, FileKind> files[] = {
        {"roof.xlsx", FileKind::Xlsx}, {"two_days.epw", FileKind::Epw}, {"logger.dat", FileKind::Text}};
    for (const auto& [name, kind] : files)
        EXPECT_EQ(tables::openFile(std::string(COMFORTICS_TABLE_FILES "/") + name).layout.kind, kind) << name;
    try {
        tables::openFile(COMFORTICS_TABLE_FILES);
        ADD_FAILURE();
    } catch (const tables::TableFault& fault) {
        EXPECT_STREQ(fault.what(), "The file " COMFORTICS_TABLE_FILES " cannot be read: Is a directory.");
    }
}

TEST(Workbook, WhatIsDamagedOrHostileIsOneSentence)
{
    const std::string damaged = "The workbook is damaged.";
    const std::string row = R"(<row><c><v>1</v></c></row>)";
    std::string deep;
    for (int i = 0; i < 100; ++i)
        deep += "<a>";
    const struct {
        std::string rows;
        Parts others;
        std::string says;
    } cases[] = {
        {"<row>", {}, damaged},
        {R"(<row r="2"/><row r="2"/>)", {}, damaged},
        {R"(<row r="99999999"/>)", {}, damaged},
        {R"(<row><c r="ZZZZ1"><v>1</v></c></row>)", {}, damaged},
        {R"(<row><c t="s"><v>7</v></c></row>)", {}, damaged},
        {deep, {}, damaged},
        {std::string(std::size_t{80} << 20, ' '),
         {},
         "The workbook unpacks to far more than it holds; it is not read."},
        {row,
         {{"xl/sharedStrings.xml", R"(<!DOCTYPE sst [<!ENTITY a "aaaa">]><sst><si><t>&a;</t></si></sst>)"}},
         "The workbook declares entities; it is not read."},
        {row, {{"xl/workbook.xml", "<workbook/>"}}, "The file is no XLSX workbook: it has no sheets."},
        {row, {{"xl/_rels/workbook.xml.rels", "<Relationships/>"}}, "The workbook lacks the sheet \"A\"."},
        {"", {}, "The table is empty."},
    };
    for (const auto& one : cases) {
        const TemporaryFolder folder;
        try {
            shownRows(*tables::openWorkbook(workbookOf(folder, one.rows, one.others)).rows);
            ADD_FAILURE() << one.says;
        } catch (const tables::TableFault& fault) {
            EXPECT_EQ(fault.what(), one.says) << one.rows.substr(0, 60);
        }
    }
    EXPECT_THROW(tables::openWorkbookBytes("PK\x03\x04"), tables::TableFault);
}

TEST(Workbook, WhatIsWrittenIsReadBack)
{
    std::string bytes;
    tables::WorkbookWriter writer(
        [] {
            return tables::Metadata{{"Rules", "classic"}};
        },
        [&bytes](std::string_view more) { bytes += more; });
    using Kind = tables::ResultColumn::Kind;
    writer.begin({{"Id", "", Kind::Text}, {"Ta", "°C", Kind::Number}, {"x", "", Kind::Carried}});
    tables::ResultBlock block(3);
    for (const char* cell : {"007", "-1.25", "<\x01>\xFF", "8", "", "2.50"})
        block.add(cell);
    writer.write(block, {});
    writer.end();
    tables::OpenTable table = tables::openWorkbookBytes(bytes);
    EXPECT_EQ(table.layout.units, (std::vector<std::string>{"", "°C", ""}));
    EXPECT_EQ(shownRows(*table.rows), (std::vector<std::string>{"3: 007|-1.25|< >?", "4: 8||2.5"}));
}

} // namespace
} // namespace comfortics::tests
