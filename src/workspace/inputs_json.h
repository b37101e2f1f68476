// SPDX-License-Identifier: GPL-3.0-or-later
//
// Readings, assumptions and options as JSON, and what reads such files with suspicion. For the room's own
// sources.
#pragma once

#include "classic/calculation.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace comfortics::workspace {

/// More bytes than anyone types into a box.
inline constexpr std::size_t kLongestEntry = 100;

/// Ends the reading of a damaged file; says in a clause what is damaged.
class Damage : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A member of an object, null where it has none of the name. Throws Damage where it is of another type.
const nlohmann::ordered_json& member(const nlohmann::ordered_json& object, std::string_view name,
                                     nlohmann::ordered_json::value_t type);

/// A text of an object, empty where it has none. Throws Damage where it is no text, or a longer one [bytes].
std::string text(const nlohmann::ordered_json& object, std::string_view name, std::size_t longest);

/// Puts readings, assumptions and options into an object.
void putInputs(nlohmann::ordered_json& object, const classic::Inputs& inputs);

/// Reads them from an object; all indices are selected. A reading that is not there is empty, an assumption
/// and an option stand as at the start. Throws Damage.
classic::Inputs readInputs(const nlohmann::ordered_json& object);

} // namespace comfortics::workspace
