// SPDX-License-Identifier: GPL-3.0-or-later
//
// The rows of a run over a table, and who writes them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::tables {

/// A column of the results.
struct ResultColumn {
    enum class Kind : std::uint8_t { Text, Number, Carried };

    std::string name;
    std::string unit; ///< empty where it has none, or its name tells it
    Kind kind = Kind::Text;

    /// "Name [unit]"
    std::string heading() const { return unit.empty() ? name : name + " [" + unit + "]"; }
};

/// Some rows of results as texts, one behind the other.
class ResultBlock {
public:
    explicit ResultBlock(std::size_t columns) : m_columns(columns) {}

    void add(std::string_view cell)
    {
        m_text += cell;
        m_ends.push_back(m_text.size());
    }
    std::size_t columns() const noexcept { return m_columns; }
    std::size_t rows() const noexcept { return m_ends.size() / m_columns; }
    std::string_view cell(std::size_t row, std::size_t column) const
    {
        const std::size_t place = row * m_columns + column;
        const std::size_t begin = place == 0 ? 0 : m_ends[place - 1];
        return std::string_view(m_text).substr(begin, m_ends[place] - begin);
    }

private:
    std::size_t m_columns;
    std::string m_text;
    std::vector<std::size_t> m_ends;
};

/// Takes bytes; what it throws passes through.
using ByteTaker = std::function<void(std::string_view)>;

/// Writes results in one form.
class ResultWriter {
public:
    virtual ~ResultWriter() = default;
    ResultWriter(const ResultWriter&) = delete;
    ResultWriter& operator=(const ResultWriter&) = delete;

    virtual void begin(const std::vector<ResultColumn>& columns) = 0;
    /// The bytes of a block, made on any thread; none where `write` makes them.
    virtual std::string prepared(const ResultBlock& block) const = 0;
    virtual void write(const ResultBlock& block, const std::string& prepared) = 0;
    virtual void end() = 0;

protected:
    ResultWriter() = default;
};

/// Values separated by commas (RFC 4180) or tabs, in lines that end in CR LF.
class SeparatedWriter final : public ResultWriter {
public:
    SeparatedWriter(char separator, ByteTaker take) : m_separator(separator), m_take(std::move(take)) {}

    void begin(const std::vector<ResultColumn>& columns) override;
    std::string prepared(const ResultBlock& block) const override;
    void write(const ResultBlock&, const std::string& prepared) override { m_take(prepared); }
    void end() override {}

private:
    void append(std::string& line, std::string_view cell) const;

    char m_separator;
    ByteTaker m_take;
};

/// One JSON object for a row and line; a number is one, and null stands where there is nothing.
class JsonLinesWriter final : public ResultWriter {
public:
    explicit JsonLinesWriter(ByteTaker take) : m_take(std::move(take)) {}

    void begin(const std::vector<ResultColumn>& columns) override;
    std::string prepared(const ResultBlock& block) const override;
    void write(const ResultBlock&, const std::string& prepared) override { m_take(prepared); }
    void end() override {}

private:
    ByteTaker m_take;
    std::vector<ResultColumn> m_columns;
    std::vector<std::string> m_keys; // as JSON has them, with the colon
};

/// Whether a cell is a number as JSON writes them.
bool isJsonNumber(std::string_view cell);

} // namespace comfortics::tables
