// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/categories.h"
#include "classic/availability.h"
#include "classic/desk.h"
#include "classic/driver.h"
#include "classic/frm_results.h"
#include "classic/limits.h"
#include "classic/outcome.h"
#include "classic/precise_rows.h"
#include "classic/reading_boxes.h"
#include "classic/settings.h"
#include "classic/wbgt_utci.h"
#include "controls/controls.h"
#include "controls/dialogs.h"
#include "formulas/live_quantity.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace comfortics::classic {

/// The assumptions, in the order of the options.
enum class Assumption { ArAdu, Emmisivity, Barometric, Height, Weight, Friction };

inline constexpr std::size_t kAssumptionCount = 6;

/// What an assumption is called, in the options and by the tool.
struct AssumptionInfo {
    std::string_view key; ///< its box is `txt_` and this
    std::string_view heading;
    std::string_view start; ///< text of the box at start
    std::string_view unit;  ///< what stands behind the box
    std::string_view hint;  ///< what the formulas take the number for
    std::string_view option;
    std::string_view optionHelp;
};

// The headings of height and weight tell the reverse of what the formulas read, deliberately.
inline constexpr std::array<AssumptionInfo, kAssumptionCount> kAssumptionInfo{{
    {"ArAdu", "Effective Radiating Area:", "0.77", "",
     "Share of the body's surface that takes part in radiation, no unit", "--aradu",
     "Effective radiating area [-]"},
    {"Emmisivity", "Emissivity:", "0.97", "", "Emissivity of the body's surface, no unit", "--emissivity",
     "Emissivity of the clothed body [-]"},
    {"Barometric", "Barometric Pressure:", "1016", "hPa", "Barometric pressure in hPa", "--barometric",
     "Barometric pressure [hPa]"},
    {"Height", "Body Mass:", "75", "", "The formulas take this number as the stature in cm", "--height",
     "The box beside \"Body Mass:\""},
    {"Weight", "Body Stature:", "180", "", "The formulas take this number as the body mass in kg", "--weight",
     "The box beside \"Body Stature:\""},
    {"Friction", "Air Friction Coefficient:", "0.20", "", "Exponent of the wind profile, no unit",
     "--friction", "Exponent of the wind profile [-]"},
}};

constexpr const AssumptionInfo& infoOf(Assumption assumption)
{
    return kAssumptionInfo[static_cast<std::size_t>(assumption)];
}

/// Texts of the assumption boxes, in their order.
using AssumptionTexts = std::array<std::string, kAssumptionCount>;

/// The assumption boxes, with their texts at start; the formulas read them by box, not by heading.
struct AssumptionBoxes {
    controls::TextBox txt_ArAdu{start(Assumption::ArAdu)};
    controls::TextBox txt_Emmisivity{start(Assumption::Emmisivity)};
    controls::TextBox txt_Barometric{start(Assumption::Barometric)};
    controls::TextBox txt_Height{start(Assumption::Height)};
    controls::TextBox txt_Weight{start(Assumption::Weight)};
    controls::TextBox txt_Friction{start(Assumption::Friction)};

    /// In the order of Assumption.
    std::array<controls::TextBox*, kAssumptionCount> all();

    void write(const AssumptionTexts& texts);
    AssumptionTexts texts() const;

    /// The numbers that the texts hold now; nothing validates them.
    formulas::Assumptions read() const;

private:
    static std::string start(Assumption assumption) { return std::string(infoOf(assumption).start); }
};

/// All that the texts of a calculation depend on.
struct Inputs {
    std::array<std::string, kReadingCount> readings;
    AssumptionTexts assumptions;
    Settings settings;

    friend bool operator==(const Inputs&, const Inputs&) = default;
};

enum class RunStatus {
    Ok,
    Rejected, ///< a needed reading is missing or no number; results are blank, labels as they were
    Failed,   ///< a step had no defined result; results and live quantities are blank. By the robust
              ///< rules no run fails: what depends on the step is blank, with its reason
};

/// How a failure tells of the robust rules, in the windows and on a terminal.
inline constexpr std::string_view kAdvice = "By the robust rules (in the options) it would go on.";
inline constexpr std::string_view kTerminalAdvice =
    "By the robust rules (in the options or with --rules robust) it would go on.";

/// The same where it would not: the dew point is above the air temperature, as numbers, too.
inline constexpr std::string_view kContradictionAdvice = "One of the two is wrong: type it anew.";

/// Why a run failed.
struct Failure {
    std::string where; ///< the model's name, or "index 96"
    std::string why;   ///< one clause, with the value that did it
    std::string_view advice = kAdvice;

    /// The sentence for the user.
    std::string sentence() const;
};

/// One calculation, from the texts of its boxes to the texts of its store: by the classic and robust rules
/// along the sequence, by the precise rules through the engine.
///
/// It opens no window and shares nothing: any number live side by side, one to a thread. The
/// forms, the batch sheet and the terminal tool all calculate here.
class Calculation final : private Desk, private DriverDesk {
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

    /// How its failures tell of the robust rules.
    std::string_view advice = kAdvice;

    /// What the boxes hold now, and these settings.
    Inputs inputs(const Settings& settings) const;
    /// What the results, and the live quantities, were calculated from, rounded as the run left it;
    /// empty before the first run. A rejected run leaves the live quantities to those of an earlier one.
    const std::optional<Inputs>& resultInputs() const noexcept { return m_resultInputs; }
    const std::optional<Inputs>& liveInputs() const noexcept { return m_liveInputs; }
    /// How many runs there were.
    std::size_t runs() const noexcept { return m_runs; }

    /// The caption of a live quantity.
    controls::Label& liveLabel(formulas::Live quantity) { return m_live[place(quantity)]; }
    const controls::Label& liveLabel(formulas::Live quantity) const { return m_live[place(quantity)]; }

    /// The number of a live quantity's caption; 0 where there is none.
    double liveNumber(formulas::Live quantity) const { return m_liveValues[place(quantity)].value(); }

    /// Why the last run failed; empty unless it did.
    const std::optional<Failure>& failure() const noexcept { return m_failure; }

    /// What became of index 1 to kLastIndex in the last run.
    const Outcome& outcome(int index) const { return m_driver.outcome(index); }

    /// Why the value of index 1 to kLastIndex is blank; empty where a value stands.
    std::string whyBlank(int index) const;

    /// What the value of index 1 to kLastIndex means; none where it has no published scale or lies outside
    /// its limits. Of the number before it was rounded to its text.
    std::optional<catalogue::Meaning> meaning(int index) const;

    /// Which limit the value lies outside of that is shown since limits are ignored; else empty.
    std::string whyDoubtful(int index) const;

    /// The stored model values [°C]: UTCI as last computed, outdoor and indoor WBGT.
    double UTCI_Value() const noexcept { return m_UTCI_Value; }
    values::Number WBGT_Outdoor_Value() const override { return m_WBGT_Outdoor_Value; }
    double WBGT_Indoor_Value() const noexcept { return m_WBGT_Indoor_Value; }

private:
    static std::size_t place(formulas::Live quantity) { return static_cast<std::size_t>(quantity); }

    RunStatus runSequence(const Settings& settings);
    void calculate(const Settings& settings);
    bool calculatePrecisely(const Settings& settings);
    static Outcome preciseOutcome(PreciseRows& row, std::size_t place, int index, bool ignoreLimits);
    template <typename Step, typename Loss>
    void attempt(const char* where, Step step, Loss lose);
    void loseImpossibleReadings();
    void mustExist(formulas::Live temperature, const texts::Variant& value) const;
    void blankResults();
    void blankLive();
    void writeUnreachableEntries();
    void deriveHumidity(texts::Variant& Ta, texts::Variant& Td, texts::Variant& RH);
    texts::Variant copy(Reading reading) const { return readings.text(reading); }
    values::Number taken(const texts::Variant& modelResult) const;
    texts::Variant runUtciIn(texts::Variant WS);
    void keepWbgtOutdoor(values::Number value);

    // Desk, and DriverDesk for the captions
    void writeCaption(formulas::Live quantity, std::string text) override;
    void writeSolarRadiationResult(std::string text) override;
    void showMessage(const std::string& text) override;
    void explain(std::string why) override;

    // DriverDesk
    values::Number live(formulas::Live quantity) const override { return m_liveValues[place(quantity)]; }
    values::Number vapourPressure() override;
    values::Number WBGT_Outdoor_Text() const override { return m_WBGT_Outdoor_Text; }
    texts::Variant boxText(catalogue::Input text) const override;
    texts::Variant runMeanRadiantTemperature() override;
    texts::Variant runUtci(values::Number wind) override { return runUtciIn(wind); }
    texts::Variant runWbgtIndoor() override;
    texts::Variant runWbgtOutdoor() override;
    void writeResult(int index, std::string text) override;

    const Limits& m_limits;
    controls::Messages& m_messages;
    WBGT_UTCI m_models;
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

    std::string m_where;           // the step of the sequence that is running; empty inside the driver
    std::string m_explanation;     // why a model answered with a text
    int m_messagesShown = 0;       // in this run
    bool m_messagesHidden = false; // the user has seen enough of them
    std::optional<Failure> m_failure;
    std::optional<Inputs> m_resultInputs;
    std::optional<Inputs> m_liveInputs;
    std::size_t m_runs = 0;
};

} // namespace comfortics::classic
