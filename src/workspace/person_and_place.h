// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the models of standards read besides the readings: one person, one place and time, and the options of
// single models. Each thing is typed once, for all models; what is not typed has no value here, and each
// model does then as its own table tells.
#pragma once

#include "catalogue/additions.h"
#include "controls/controls.h"
#include "formulas/measured_wind.h"
#include "workspace/session_part.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::workspace {

enum class FieldSection : std::uint8_t {
    Person,
    Place,    ///< and the time
    Models,   ///< options of single models
    Readings, ///< weather that the readings do not have
};

/// What is typed into a box: an input as the table has it. Of the metabolic rate, the external work and the
/// time, which models read in several units, it is the one in met, in met, and the local one in hours.
struct Field {
    const catalogue::InputInfo* info = nullptr;
    FieldSection section = FieldSection::Person;
};

/// All fields, by section, in the order in which they are shown.
std::span<const Field> fields();

/// The id of the field that an input of a model comes from; empty where the readings have it.
std::string_view fieldIdOf(const catalogue::InputInfo& input);

/// What the text of a field comes to.
struct FieldReading {
    std::optional<double> value; ///< none where the text is empty, or there is a problem
    std::string problem;         ///< one sentence that names the input
};

/// Numbers with a point or a comma, times of day also as 14:30, options by their words.
FieldReading readField(const catalogue::InputInfo& info, std::string_view text);

/// What an empty field stands for, in sentences: the start values of the models with their sources, which
/// models need it, and what others do without it.
std::string emptyInWords(const catalogue::InputInfo& info);

/// The value with its unit, or the word of an option without underscores.
std::string valueInWords(const catalogue::InputInfo& info, double value);

/// The height of the wind in the readings [m], where no other is typed.
inline constexpr double kReadingsWindHeight = formulas::kWindHeight;
inline constexpr std::string_view kWindHeightField = "wind_height";

/// A value to pick in place of typing it.
struct Pick {
    std::string_view name;
    std::string text; ///< that goes into the box
};

/// Activities for the metabolic rate, ensembles for the clothing, words for an option; else none.
std::vector<Pick> picksOf(const catalogue::InputInfo& info);

/// The clothing of garments worn together and of a chair, as text of its field [clo]; empty where there is
/// neither. The places are those of standards::kGarments and kChairs.
std::string clothingOf(std::span<const std::size_t> garments,
                       std::optional<std::size_t> chair = std::nullopt);

/// What was typed, by id of its field; none for the empty ones.
using FieldTexts = std::map<std::string, std::string, std::less<>>;

/// The boxes of all fields.
class PersonAndPlace final : public SessionPart {
public:
    PersonAndPlace();
    PersonAndPlace(const PersonAndPlace&) = delete;
    PersonAndPlace& operator=(const PersonAndPlace&) = delete;

    /// Throws std::out_of_range where there is no such field.
    controls::TextBox& box(std::string_view id) const;
    const std::vector<std::unique_ptr<controls::TextBox>>& boxes() const noexcept { return m_boxes; }

    FieldTexts texts() const;
    /// In place of all that stands; ids of later versions are left out.
    void write(const FieldTexts& texts);

    /// A text has changed; once where several are written together.
    controls::Event changed;

    /// A field is wanted in view, such as one that a card misses.
    void lookAt(std::string_view id);
    const std::string& lookedAt() const noexcept { return m_lookedAt; }
    controls::Event looked;

    void save(Session& session) const override;
    std::string fault(const Session& session) const override;
    void open(const Session& session) override;

private:
    std::vector<std::unique_ptr<controls::TextBox>> m_boxes; // in the order of fields()
    std::string m_lookedAt;
    bool m_writing = false;
};

/// The texts as JSON, with a version; empty without any.
std::string textOfFields(const FieldTexts& texts);
/// A clause on what is damaged in such a text, empty where nothing is.
std::string faultOfFields(std::string_view json);
/// Of a text without a fault.
FieldTexts fieldsOfText(std::string_view json);

} // namespace comfortics::workspace
