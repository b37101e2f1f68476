// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the models of standards read in the rows of a table: the readings with what follows from them, columns
// and the time of the row, and person and place as they were typed.
#pragma once

#include "batch/model_columns.h"
#include "workbench/table_store.h"
#include "workspace/model_figures.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace comfortics::workbench {

/// Which assumption is the exponent of the wind's profile.
inline constexpr auto kFriction = static_cast<std::size_t>(classic::Assumption::Friction);

/// Tells the inputs of models row by row, as the cards of the main window have them. What a column or the
/// time of the row tells goes before what was typed; in its gaps nothing stands in for it.
class RowInputs final : public batch::ModelInputs {
public:
    /// `friction` is the exponent of the wind's profile. Throws TableFault where two columns give one input.
    RowInputs(const workspace::FieldTexts& person, const tables::Mapping& mapping,
              const tables::Layout& layout, std::string friction);

    std::string tell(const catalogue::Addition& model, const batch::ModelRow& row,
                     std::vector<double>& inputs) const override;

    /// Where each input of a model comes from in a row that has all, in words.
    std::string inWords(const catalogue::Addition& model) const;

private:
    class Source;

    std::vector<std::pair<const catalogue::InputInfo*, std::size_t>> m_columns;
    std::vector<std::pair<const catalogue::InputInfo*, workspace::FieldReading>> m_typed;
    bool m_hasTime = false;
    std::string m_friction;
};

/// The models of some figures, each once, in the order of the catalogue.
std::vector<const catalogue::Addition*> modelsOf(const std::vector<catalogue::Figure>& figures);

/// Where the models of a run have their inputs from, a line for each: "Inputs of pmv_iso" and the words.
std::vector<std::pair<std::string, std::string>> modelFacts(const RunFacts& facts);

/// What a run is to be asked for.
batch::ModelRequest modelRequest(const std::vector<catalogue::Figure>& figures,
                                 const workspace::FieldTexts& person, const tables::Mapping& mapping,
                                 const tables::Layout& layout, const std::string& friction);

} // namespace comfortics::workbench
