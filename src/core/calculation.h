// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/controls.h"
#include "controls/dialogs.h"
#include "core/availability.h"
#include "core/driver.h"
#include "core/frm_results.h"
#include "core/limits.h"
#include "core/outcome.h"
#include "core/reading_boxes.h"
#include "core/settings.h"
#include "formulas/live_quantity.h"
#include "models/desk.h"
#include "models/wbgt_utci.h"

#include <array>
#include <optional>
#include <string>

namespace comfortics::core {

/// Texts of the assumption boxes: radiating area, emissivity, pressure, height, weight, friction.
using AssumptionTexts = std::array<std::string, 6>;

/// The assumption boxes, with their texts at start. `txt_Height` stands beside the heading
/// "Body Mass:" and `txt_Weight` beside "Body Stature:"; both are read by box, not by heading.
struct AssumptionBoxes {
    controls::TextBox txt_ArAdu{"0.77"};
    controls::TextBox txt_Emmisivity{"0.97"};
    controls::TextBox txt_Barometric{"1016"};
    controls::TextBox txt_Height{"75"};
    controls::TextBox txt_Weight{"180"};
    controls::TextBox txt_Friction{"0.20"};

    void write(const AssumptionTexts& texts);
    AssumptionTexts texts() const;

    /// The numbers that the texts hold now; nothing validates them.
    formulas::Assumptions read() const;
};

enum class RunStatus {
    Ok,
    Rejected, ///< a needed reading is missing or no number; results are blank, labels as they were
    Failed,   ///< a step had no defined result; results and live quantities are blank. By the robust
              ///< rules no run fails: what depends on the step is blank, with its reason
};

/// Why a run failed.
struct Failure {
    std::string where; ///< the model's name, or "index 96"
    std::string why;   ///< one clause, with the value that did it

    /// The sentence for the user.
    std::string sentence() const;
};

/// One calculation, from the texts of its boxes to the texts of its store.
///
/// It opens no window and shares nothing: any number live side by side, one to a thread. The
/// forms, the batch sheet and the terminal tool all calculate here.
class Calculation final : private models::Desk, private DriverDesk {
public:
    /// Limits and messages must outlive the calculation.
    Calculation(const Limits& limits, controls::Messages& messages);
    Calculation(const Calculation&) = delete;
    Calculation& operator=(const Calculation&) = delete;

    ReadingBoxes readings;
    AssumptionBoxes assumptions;
    Frm_Results results;

    /// Runs the sequence on what the boxes hold.
    RunStatus run(const Settings& settings);

    /// The caption of a live quantity.
    controls::Label& liveLabel(formulas::Live quantity) { return m_live[place(quantity)]; }
    const controls::Label& liveLabel(formulas::Live quantity) const { return m_live[place(quantity)]; }

    /// Why the last run failed; empty unless it did.
    const std::optional<Failure>& failure() const noexcept { return m_failure; }

    /// What became of index 1 to 222 in the last run.
    const Outcome& outcome(int index) const { return m_driver.outcome(index); }

    /// Why the value of index 1 to 222 is blank; empty where a value stands.
    std::string whyBlank(int index) const;

    /// The stored model values [°C]: UTCI as last computed, outdoor and indoor WBGT.
    double UTCI_Value() const noexcept { return m_UTCI_Value; }
    values::Number WBGT_Outdoor_Value() const override { return m_WBGT_Outdoor_Value; }
    double WBGT_Indoor_Value() const noexcept { return m_WBGT_Indoor_Value; }

private:
    static std::size_t place(formulas::Live quantity) { return static_cast<std::size_t>(quantity); }

    void calculate(const Settings& settings);
    template <typename Step, typename Loss>
    void attempt(const char* where, Step step, Loss lose);
    void blankResults();
    void blankLive();
    void writeUnreachableEntries();
    void deriveHumidity(values::Variant& Ta, values::Variant& Td, values::Variant& RH);
    values::Variant copy(Reading reading) const { return readings.text(reading); }
    values::Number taken(const values::Variant& modelResult) const;
    values::Variant runUtciIn(values::Variant WS);
    void keepWbgtOutdoor(values::Number value);

    // formulas::Captions and models::Desk
    void writeCaption(formulas::Live quantity, std::string text) override;
    void writeSolarRadiationResult(std::string text) override;
    void showMessage(const std::string& text) override;
    void explain(std::string why) override;

    // DriverDesk
    values::Number live(formulas::Live quantity) const override { return m_liveValues[place(quantity)]; }
    formulas::Captions& captions() override { return *this; }
    values::Number vapourPressure() override;
    values::Number WBGT_Outdoor_Text() const override { return m_WBGT_Outdoor_Text; }
    values::Variant boxText(Input text) const override;
    values::Variant runMeanRadiantTemperature() override;
    values::Variant runUtci(values::Number wind) override { return runUtciIn(wind); }
    values::Variant runWbgtIndoor() override;
    values::Variant runWbgtOutdoor() override;
    void writeResult(int index, std::string text) override;

    const Limits& m_limits;
    controls::Messages& m_messages;
    models::WBGT_UTCI m_models;
    Driver m_driver;
    Availability m_availability;
    Rules m_rules = Rules::Classic; // of the run

    std::array<controls::Label, formulas::kLiveCount> m_live;
    std::array<values::Number, formulas::kLiveCount> m_liveValues{}; // the captions, read once
    std::optional<values::Number> m_vapourPressure; // of the dew point's caption, until that changes

    double m_UTCI_Value = 0;
    double m_WBGT_Outdoor_Value = 0;
    double m_WBGT_Outdoor_Text = 0; // the same through its number text
    double m_WBGT_Indoor_Value = 0;

    std::string m_where;       // the step of the sequence that is running; empty inside the driver
    std::string m_explanation; // why a model answered with a text
    std::optional<Failure> m_failure;
};

} // namespace comfortics::core
