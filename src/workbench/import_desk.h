// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/controls.h"
#include "tables/mapping.h"
#include "tables/row_mapper.h"
#include "workbench/kept_mappings.h"
#include "workbench/table_source.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::workbench {

/// A table to be looked at.
struct LookRequest {
    TableSource source;
    tables::Shape told{};
};

/// What a look at a table has shown: its layout and first rows, or one sentence on why there is none.
struct Look {
    TableSource source;
    tables::Shape told{};
    std::string fault{};
    tables::Layout layout{};
    std::vector<tables::Row> rows{}; ///< the first, as they stand
    tables::Mapping guess{};
    std::string guessedFingerprint{};          ///< of the table with nothing told but the sheet
    std::vector<std::string> sheets{};         ///< of a workbook
    std::optional<std::size_t> bytes{};        ///< of the whole table
    std::optional<std::size_t> expectedRows{}; ///< about so many, where the size tells
};

/// Rows that a look shows.
inline constexpr std::size_t kLookRows = 50;

/// Opens a table for a look. On any thread.
Look lookAt(const LookRequest& request);

/// A row as the mapping reads it.
struct PreviewRow {
    std::size_t line = 0;
    std::vector<std::string> cells;
    tables::MappedRow mapped; ///< with the reason where it is refused
};

/// Which table is open, and which of its columns is which reading: guessed, kept from another time, or told.
class ImportDesk {
public:
    /// Preferences must outlive the desk.
    explicit ImportDesk(workspace::Preferences& preferences) : kept(preferences) {}

    /// A table that was looked at takes the place of the one before; one that cannot be opened leaves it as
    /// it was, and fault() tells why. The answer, if any, is how it is to be looked at again, since a kept
    /// mapping tells of its shape.
    std::optional<LookRequest> take(Look look);
    bool isOpen() const noexcept { return m_open; }
    const Look& look() const noexcept { return m_look; }
    /// Why the last table could not be opened; empty where it could.
    const std::string& fault() const noexcept { return m_fault; }

    /// With name, fingerprint and shape.
    const tables::Mapping& mapping() const noexcept { return m_mapping; }
    /// Where it is from: "guessed", "kept as …" or "guessed, then changed".
    std::string mappingSource() const;

    // What the user tells. Columns by their place.

    /// A dose without a step gets that of the rows, or an hour, with a doubt.
    void setUse(std::size_t column, tables::ColumnUse use);
    void setOrder(tables::DateOrder order);
    void setZone(std::optional<int> minutes);
    void setGaps(std::vector<std::string> gaps);
    /// The guess again.
    void forgetChanges();
    /// How the table is to be looked at with another shape.
    LookRequest reshaped(const tables::Shape& told) const { return {m_look.source, told}; }

    /// The mappings that are kept between sessions.
    KeptMappings kept;
    /// How the table is to be looked at before a kept mapping can be taken, which the next take() does then;
    /// none where it stands as that wants it.
    std::optional<LookRequest> lookForKept(const std::string& name);
    /// Takes a kept mapping for this table. One sentence where it does not fit, which changes nothing.
    std::string useKept(const std::string& name);
    /// Keeps the present one. One sentence where it cannot have the name.
    std::string keepAs(const std::string& name);

    /// The first rows, read by the mapping; without readings where that cannot be.
    std::vector<PreviewRow> preview(std::string_view friction) const;
    /// Why the table cannot be calculated, in a sentence; empty where it can.
    std::string whyNot(std::string_view friction) const;
    /// Why its results would not fit into so many bytes [bytes of memory]; empty where they would, or nothing
    /// tells.
    std::string tooBig(std::size_t indices, std::size_t mostBytes) const;
    /// What is to be looked at: doubts of the layout and of the mapping.
    std::vector<std::string> doubts() const;

    /// Table or mapping have changed.
    controls::Event changed;

private:
    void takeMapping(tables::Mapping mapping);
    void assumeStep(tables::ColumnUse& use) const;
    std::optional<double> stepOfRows() const;

    Look m_look;
    bool m_open = false;
    std::string m_fault;
    tables::Mapping m_mapping;
    bool m_touched = false;
    std::string m_wanted; // the kept mapping that waits for a look
};

/// The units that a quantity may stand in.
std::vector<std::string> unitsOf(tables::Quantity quantity);

/// The memory that results may take: most of what the system has to spare [bytes]; 0 where it does not tell.
std::size_t memoryToSpare();

} // namespace comfortics::workbench
