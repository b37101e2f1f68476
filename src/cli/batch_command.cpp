// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/row_pipeline.h"
#include "cli/commands.h"
#include "cli/exit_status.h"
#include "cli/interruption.h"
#include "cli/model_options.h"
#include "cli/reading_options.h"
#include "output/whole_file.h"
#include "tables/mapping.h"
#include "tables/table_run.h"
#include "tables/workbook.h"
#include "tables/workbook_writer.h"
#include "texts/bounded_file.h"
#include "texts/text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <functional>
#include <iostream>
#include <optional>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace comfortics::cli {

namespace {

constexpr const char* kNone = "none";
constexpr std::size_t kLastLine = 1'000'000;

std::string lineOrNone(const std::string& text)
{
    std::string copy = text;
    return text == kNone ? std::string() : CLI::Range(std::size_t{1}, kLastLine)(copy);
}

/// The input file, or standard input for "-".
class InputFile {
public:
    explicit InputFile(const std::string& path) : m_path(path)
    {
        if (path == "-") {
            m_descriptor = STDIN_FILENO;
            return;
        }
        do { // a pipe is open once somebody writes to it
            m_descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        } while (m_descriptor < 0 && errno == EINTR && !Interruption::requested());
        if (m_descriptor < 0)
            fail();
        struct stat status {};
        if (::fstat(m_descriptor, &status) == 0 && S_ISREG(status.st_mode))
            m_size = static_cast<std::size_t>(status.st_size);
    }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile()
    {
        if (m_descriptor > STDERR_FILENO)
            ::close(m_descriptor);
    }

    /// Nothing more after an interruption.
    std::size_t read(char* buffer, std::size_t size)
    {
        while (!Interruption::requested()) {
            const ssize_t count = ::read(m_descriptor, buffer, size);
            if (count >= 0) {
                m_read += static_cast<std::size_t>(count);
                return static_cast<std::size_t>(count);
            }
            if (errno != EINTR)
                fail();
        }
        return 0;
    }

    /// The share that is read, where the size is known.
    std::optional<double> share() const
    {
        if (m_size == 0)
            return std::nullopt;
        return static_cast<double>(m_read) / static_cast<double>(m_size);
    }

private:
    [[noreturn]] void fail() const
    {
        throw FileFailure("The file " + m_path +
                          " cannot be read: " + std::generic_category().message(errno) + ".");
    }

    std::string m_path;
    int m_descriptor = -1;
    std::size_t m_size = 0;
    std::size_t m_read = 0;
};

/// Tells rows, rows per second and time left, a few times a second, on a terminal only.
class Progress {
public:
    explicit Progress(const InputFile& input) : m_input(input) {}
    /// Clears the line for what is said at the end.
    ~Progress()
    {
        if (m_terminal)
            std::cerr << "\r\033[K" << std::flush;
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void show(std::size_t rows)
    {
        using namespace std::chrono;
        const auto now = steady_clock::now();
        if (!m_terminal || now - m_shown < milliseconds(200))
            return;
        m_shown = now;
        const double seconds = duration<double>(now - m_start).count();
        std::string line = std::to_string(rows) + " rows, " +
                           std::to_string(static_cast<long>(static_cast<double>(rows) / seconds)) +
                           " rows per second";
        if (const auto share = m_input.share(); share && *share > 0)
            line += ", " + std::to_string(std::lround(seconds / *share - seconds)) + " s left";
        std::cerr << "\r" << line << "\033[K" << std::flush;
    }

private:
    const InputFile& m_input;
    bool m_terminal = ::isatty(STDERR_FILENO) == 1;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    std::chrono::steady_clock::time_point m_shown = m_start;
};

class BatchCommand final : public Command {
public:
    CLI::App* addTo(CLI::App& tool) override
    {
        CLI::App* const command = tool.add_subcommand("batch", "Calculate the rows of a CSV or TSV table");
        const auto named = [](const std::string& file) {
            return file.empty() ? std::string("the name of the file is empty") : std::string();
        };
        command->add_option("INPUT", m_input, "CSV or TSV file, - for standard input")
            ->required()
            ->check(named);
        command->add_option("-o,--output", m_output, "Write to FILE instead of standard output")
            ->type_name("FILE")
            ->check(named);
        command->add_flag("--live", m_live, "Write the eleven live quantities too");
        command->add_flag("--reasons", m_options.reasons,
                          "Write a column that tells which indices of a row failed, and why");
        command->add_flag("--categories", m_options.categories,
                          "Write the published class of each value, in words and as a severity from -4 to 4");
        command->add_flag("--provenance", m_options.provenance,
                          "Write two columns that tell the rules, and whether limits were kept or ignored");
        command->add_option("--threads", m_threads, "Number of threads; default: all cores")
            ->type_name("N")
            ->check(CLI::Range(1, 1024));
        m_models.addTo(*command, "Inputs of the models that all rows share");
        addTableOptions(*command, named);
        m_options.addTo(*command);
        command->footer(
            "With a header row the columns are found by name (Ta Tg SR Td RH WS) in any order, and other\n"
            "columns are carried through; without one the six columns stand in that order.\n"
            "Each row starts from empty boxes.\n"
            "Other tables want --columns or --map; weather files (.epw) want neither.\n"
            "Columns named by the ids of inputs are inputs of the models, and others by --columns, as\n"
            "met=Activity; a required input that neither a column nor --with gives is the live quantity of\n"
            "the row that it is, such as Tmrt for tr.");
        return command;
    }

    int run() override
    {
        const classic::Limits limits = m_options.limits();
        batch::BatchOptions options;
        options.settings = m_options.settings();
        options.assumptions = m_options.assumptions();
        options.live = m_live;
        options.reasons = m_options.reasons;
        options.provenance = m_options.provenance;
        options.categories = m_options.categories;
        options.threads = m_threads > 0 ? m_threads : std::max(1U, std::thread::hardware_concurrency());
        options.stopped = Interruption::requested;
        if (const std::string fault = m_models.fault(); !fault.empty()) {
            std::cerr << "comfortics-cli: " << fault << "\n";
            return kUsage;
        }
        options.models = m_models.request();

        const Interruption interruption;
        std::optional<tables::RunCounts> counts;
        try {
            counts = isForeign() ? calculateForeign(limits, options) : calculate(limits, options);
        } catch (const FileFailure&) {
            // An interruption can end the input in the middle of a row, or an output that waits.
            if (!Interruption::requested())
                throw;
        }
        if (!counts) {
            std::cerr << "comfortics-cli: Interrupted"
                      << (m_output.empty() ? "" : "; no output file was written") << ".\n";
            return kInterrupted;
        }
        if (!m_guess)
            tell(*counts);
        return kDone;
    }

private:
    template <class Check>
    void addTableOptions(CLI::App& command, const Check& named)
    {
        CLI::Option* const map =
            command.add_option("--map", m_map, "Read from the mapping FILE which column is which reading")
                ->type_name("FILE")
                ->check(named);
        command
            .add_option("--columns", m_columns,
                        "Say which column is which reading, for instance\n"
                        "ta=Temp:F,ws=Wind:km/h@10m,time=Date+Time,station=Station")
            ->type_name("LIST")
            ->excludes(map);
        command.add_flag("--guess", m_guess,
                         "Print the guessed mapping of the table as JSON; calculate nothing");
        CLI::Option* const format =
            command
                .add_option("--format", m_format,
                            "Write csv, tsv, ndjson (one JSON object for a row) or xlsx")
                ->check(CLI::IsMember({"csv", "tsv", "ndjson", "xlsx"}));
        command
            .add_option("--summary", m_summary,
                        "Write in place of the rows what they come to for each index: csv or json, or the "
                        "hours in each class by month as CSV: classes")
            ->check(CLI::IsMember({"csv", "json", "classes"}))
            ->excludes(format);
        command
            .add_option("--sheet", m_sheet, "Read the sheet NAME of an XLSX workbook instead of the first")
            ->type_name("NAME")
            ->check(named);
        command
            .add_option("--header-line", m_headerLine,
                        "The line that has the names of the columns, or none; default: found by the program")
            ->type_name("N|none")
            ->check(lineOrNone);
        command
            .add_option("--unit-lines", m_shape.unitLines,
                        "How many lines behind the names have units and the like")
            ->type_name("N")
            ->check(CLI::Range(std::size_t{0}, std::size_t{100}));
        command.add_option("--data-line", m_shape.dataLine, "The line on which the readings begin")
            ->type_name("N")
            ->check(CLI::Range(std::size_t{1}, kLastLine));
        command
            .add_option("--comment", m_comment,
                        "What lines begin with that are passed over, or none; default: found by the program")
            ->type_name("MARK|none")
            ->check(named);
        command.add_flag("--inputs", m_inputs,
                         "Write the time and the six readings as they were taken, in their units");
        command.add_flag(
            "--status", m_status,
            "Write the line of each row, and behind each index why its value stands or is blank");
    }

    // A table of others, or results that the plain batch does not write.
    bool isForeign() const
    {
        const std::string name = texts::lowered(m_input);
        return !m_map.empty() || !m_columns.empty() || m_guess || !m_format.empty() || m_inputs || m_status ||
               !m_sheet.empty() || !m_summary.empty() || !(toldShape({}) == tables::Shape()) ||
               name.ends_with(".epw") || tables::isWorkbook(m_input);
    }

    // The options go before what a mapping tells.
    tables::Shape toldShape(tables::Shape shape) const
    {
        if (!m_sheet.empty())
            shape.sheet = m_sheet;
        if (!m_headerLine.empty())
            shape.header = m_headerLine == kNone ? 0 : std::stoul(m_headerLine);
        if (m_shape.unitLines)
            shape.unitLines = m_shape.unitLines;
        if (m_shape.dataLine)
            shape.dataLine = m_shape.dataLine;
        if (!m_comment.empty())
            shape.comment = m_comment == kNone ? std::string() : m_comment;
        return shape;
    }

    static void tell(const tables::RunCounts& counts)
    {
        const batch::RowCounts& rows = counts.rows;
        std::cerr << "Rows: " << rows.calculated << " calculated, " << rows.skipped << " skipped, "
                  << rows.failed << " failed.";
        if (counts.refused > 0)
            std::cerr << " Refused: " << counts.refused << ".";
        if (rows.lostValues > 0)
            std::cerr << " Values blank for a failure: " << rows.lostValues << ".";
        if (counts.messages > 0)
            std::cerr << " Solvers without convergence: " << counts.messages << ".";
        std::cerr << "\n";
    }

    // Nothing where it was interrupted. Whatever goes wrong with a file comes as a FileFailure.
    std::optional<tables::RunCounts> calculate(const classic::Limits& limits,
                                               const batch::BatchOptions& options) const
    {
        InputFile input(m_input);
        Progress progress(input);
        batch::TableReader reader(
            [&input](char* buffer, std::size_t size) { return input.read(buffer, size); });
        return toOutput([&](const tables::ByteTaker& take) -> tables::RunCounts {
            const batch::BatchSummary summary =
                batch::runBatch(reader, limits, options, take,
                                [&progress](const batch::RowCounts& rows) { progress.show(rows.total()); });
            return {summary.rows, 0, summary.messages, summary.stopped};
        });
    }

    std::optional<tables::RunCounts> calculateForeign(const classic::Limits& limits,
                                                      const batch::BatchOptions& options) const
    {
        InputFile input(m_input);
        Progress progress(input);
        return toOutput([&](const tables::ByteTaker& take) -> tables::RunCounts {
            std::optional<tables::Mapping> mapping;
            if (!m_map.empty())
                mapping = mappingOfFile();
            const tables::Shape shape = toldShape(mapping ? mapping->shape : tables::Shape());
            tables::OpenTable table =
                tables::isWorkbook(m_input)
                    ? tables::openWorkbook(m_input, shape)
                    : tables::openText(
                          [&input](char* buffer, std::size_t size) { return input.read(buffer, size); },
                          shape);
            if (m_guess) {
                tables::Mapping guess = tables::guessMapping(table);
                guess.shape = shape;
                take(tables::mappingText(guess));
                return {};
            }
            if (!m_columns.empty())
                mapping = tables::mappingOfText(m_columns, table.layout);
            if (!mapping)
                mapping = untoldMapping(table);
            const tables::RowMapper mapper(
                *mapping, table.layout,
                options.assumptions[static_cast<std::size_t>(classic::Assumption::Friction)]);
            tables::RunOptions run;
            run.settings = options.settings;
            run.assumptions = options.assumptions;
            run.inputs = m_inputs;
            run.status = m_status;
            run.live = options.live;
            run.reasons = options.reasons;
            run.categories = options.categories;
            run.provenance = options.provenance;
            run.models = options.models;
            run.threads = options.threads;
            run.stopped = options.stopped;
            tables::RunCounts done;
            const auto metadata = [&] {
                tables::Metadata lines = tables::runMetadata(*mapping, table.layout, run, done);
                lines.insert(lines.begin(),
                             {{"Program", "Comfortics " COMFORTICS_VERSION}, {"Source file", m_input}});
                return lines;
            };
            const auto writer = m_summary.empty() ? makeWriter(take, metadata) : nullptr;
            tables::TableSummary summary;
            const tables::RunCounts counts = tables::runTable(
                *table.rows, mapper, table.layout, limits, run, writer.get(),
                [&](const tables::RunCounts& soFar) {
                    done = soFar;
                    progress.show(soFar.total());
                },
                m_summary.empty() ? nullptr : &summary);
            if (!m_summary.empty() && !counts.stopped)
                take(m_summary == "json"      ? tables::summaryJson(summary)
                     : m_summary == "classes" ? tables::classesCsv(summary)
                                              : tables::summaryCsv(summary));
            return counts;
        });
    }

    // Whatever goes wrong with a file comes as a FileFailure, and leaves no output.
    template <class Run>
    std::optional<tables::RunCounts> toOutput(const Run& run) const
    {
        try {
            std::optional<output::WholeFile> file;
            if (!m_output.empty())
                mustSucceed(file.emplace(m_output, Interruption::requested).result());
            const tables::RunCounts counts = run([&file](std::string_view bytes) {
                if (!file)
                    print(bytes);
                else if (!file->write(bytes))
                    mustSucceed(file->result());
            });
            if (Interruption::requested())
                return std::nullopt;
            if (file)
                mustSucceed(file->commit());
            return counts;
        } catch (const batch::MalformedTable& error) {
            fail(error.what());
        } catch (const tables::TableFault& error) {
            fail(error.what());
        }
    }

    [[noreturn]] void fail(const std::string& sentence) const
    {
        throw FileFailure(m_input == "-" ? sentence : m_input + ": " + sentence);
    }

    tables::Mapping mappingOfFile() const
    {
        const texts::FileText file = texts::readFile(m_map, tables::kLargestMapping);
        if (file.state != texts::FileText::State::Read)
            throw FileFailure("The mapping " + m_map + " cannot be read: " + file.problem + ".");
        tables::MappingRead read = tables::readMapping(file.text);
        if (!read.mapping)
            throw FileFailure("The mapping " + m_map + " cannot be used: " + read.fault + ".");
        return std::move(*read.mapping);
    }

    // Of a table that nothing is told of: only what is sure.
    static tables::Mapping untoldMapping(const tables::OpenTable& table)
    {
        if (auto plain = tables::plainMapping(table))
            return std::move(*plain);
        tables::Mapping guess = tables::guessMapping(table);
        const std::vector<std::string> doubts = tables::doubtsOf(guess);
        if (!doubts.empty())
            throw tables::TableFault("What its columns are is not sure (" + doubts.front() +
                                     "); say it with --columns, or look at --guess and use it with --map.");
        return guess;
    }

    std::unique_ptr<tables::ResultWriter> makeWriter(const tables::ByteTaker& take,
                                                     const std::function<tables::Metadata()>& metadata) const
    {
        if (m_format == "xlsx")
            return std::make_unique<tables::WorkbookWriter>(metadata, take);
        if (m_format == "ndjson")
            return std::make_unique<tables::JsonLinesWriter>(take);
        return std::make_unique<tables::SeparatedWriter>(m_format == "tsv" ? '\t' : ',', take);
    }

    static void mustSucceed(const output::WriteResult& result)
    {
        if (!result.succeeded())
            throw FileFailure(result.error);
    }

    std::string m_input;
    std::string m_output;
    std::string m_map;
    std::string m_columns;
    std::string m_format;
    std::string m_sheet;
    std::string m_summary;
    std::string m_headerLine;
    std::string m_comment;
    tables::Shape m_shape; // the lines that are told
    bool m_guess = false;
    bool m_inputs = false;
    bool m_status = false;
    bool m_live = false;
    unsigned m_threads = 0;
    ModelOptions m_models;
    CalculationOptions m_options;
};

} // namespace

std::unique_ptr<Command> makeBatchCommand()
{
    return std::make_unique<BatchCommand>();
}

} // namespace comfortics::cli
