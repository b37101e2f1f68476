// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/catalogue.h"
#include "classic/availability.h"
#include "classic/limits.h"
#include "classic/outcome.h"
#include "classic/settings.h"
#include "formulas/assumptions.h"
#include "formulas/live_quantity.h"
#include "texts/variant.h"
#include "values/number.h"

#include <array>
#include <string>

namespace comfortics::classic {

/// What the driver reads and writes; the calculation answers.
class DriverDesk {
public:
    /// A live quantity's caption read as a number.
    virtual values::Number live(formulas::Live quantity) const = 0;
    /// Writes the caption of a live quantity.
    virtual void writeCaption(formulas::Live quantity, std::string text) = 0;
    /// `Vapor_Pressure_Magnus` of the dew point's caption, through its number text [hPa].
    virtual values::Number vapourPressure() = 0;
    /// The outdoor WBGT that the calculation keeps, as it is and through its number text [°C].
    virtual values::Number WBGT_Outdoor_Value() const = 0;
    virtual values::Number WBGT_Outdoor_Text() const = 0;
    /// The text of a reading box, as the models and index 196 take it.
    virtual texts::Variant boxText(catalogue::Input text) const = 0;
    /// The models' blocks. Each stores its value where the calculation keeps it.
    virtual texts::Variant runMeanRadiantTemperature() = 0;
    virtual texts::Variant runUtci(values::Number wind) = 0;
    virtual texts::Variant runWbgtIndoor() = 0;
    virtual texts::Variant runWbgtOutdoor() = 0;
    /// Writes the result entry of an index.
    virtual void writeResult(int index, std::string text) = 0;

protected:
    ~DriverDesk() = default;
};

/// What the blocks of one run share.
struct DriverRun {
    const Settings& settings;
    const formulas::Assumptions& assumptions;
    const Availability& availability;
    values::Number staleEa{}; ///< a variable of each procedure: 0 until a block reads `Ea`
};

/// Evaluates the catalogue: one block per index, in order, in five procedures.
class Driver {
public:
    Driver(DriverDesk& desk, const Limits& limits);

    /// Runs the five procedures. By the classic rules throws RunFailure at the first formula without
    /// a defined result; `counter` then tells the index. By the robust rules such an index, and one
    /// that reads a lost quantity, is blank and keeps the reason.
    void run(const Settings& settings, const formulas::Assumptions& assumptions,
             const Availability& availability = {});

    /// The running index counter: the index being evaluated, kLastIndex after a run.
    int counter() const noexcept { return m_counter; }

    /// What became of index 1 to kLastIndex in the last run.
    const Outcome& outcome(int index) const { return m_outcomes.at(static_cast<std::size_t>(index - 1)); }
    Outcome& outcome(int index) { return m_outcomes.at(static_cast<std::size_t>(index - 1)); }

    /// Forgets all outcomes.
    void reset();

private:
    void Indices_001to050(DriverRun& run);
    void Indices_051to100(DriverRun& run);
    void Indices_101to150(DriverRun& run);
    void Indices_151to200(DriverRun& run);
    void Indices_201to222(DriverRun& run);

    void runProcedure(DriverRun& run, int last);
    void runBlock(DriverRun& run, const catalogue::CatalogueRow& row);
    void runBlockAlone(DriverRun& run, const catalogue::CatalogueRow& row);
    bool passes(const DriverRun& run, const catalogue::CatalogueRow& row, Outcome& outcome) const;

    // Blocks that differ from the template.

    /// Mean radiant temperature: the model on the box texts; it writes its caption again.
    texts::Variant block100(DriverRun& run);
    /// UTCI with the wind at 10 m, a plain number, in place of the typed wind's text.
    texts::Variant block195(DriverRun& run);
    /// Radiative effective temperature on the raw texts of its boxes; by the robust rules on the
    /// live quantities, like all other indices.
    texts::Variant block196(DriverRun& run);
    /// Indoor WBGT on the box texts.
    texts::Variant block199(DriverRun& run);
    /// Outdoor WBGT on the box texts; its captions and entry 159 are written again at this point,
    /// so that indices from 201 on see them and earlier ones do not.
    texts::Variant block200(DriverRun& run);
    /// Wet kata cooling power. Its own dew point becomes the caption of Td, which later indices read.
    texts::Variant block208(DriverRun& run);

    /// By the row's block.
    texts::Variant valueOf(DriverRun& run, const catalogue::CatalogueRow& row);
    texts::Variant evaluate(DriverRun& run, const catalogue::CatalogueRow& row)
    {
        return evaluate(run, row, row.inputs);
    }
    texts::Variant evaluate(DriverRun& run, const catalogue::CatalogueRow& row,
                            const catalogue::InputList& inputs);
    values::Number read(DriverRun& run, catalogue::Input input);
    values::Number windAt10m(const DriverRun& run) const;

    DriverDesk& m_desk;
    const Limits& m_limits;
    int m_counter = 0;
    std::array<Outcome, catalogue::kIndexCount> m_outcomes{};
};

} // namespace comfortics::classic
