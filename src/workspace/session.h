// SPDX-License-Identifier: GPL-3.0-or-later
//
// A session file: JSON with the readings, assumptions, options, ticks, index sets, pinned situations and the
// words for the report. Its form has a number; a file of a higher one is refused.
#pragma once

#include "classic/calculation.h"
#include "classic/frm_main.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace comfortics::workspace {

/// All that a session file keeps.
struct Session {
    classic::Inputs inputs; ///< the ticks of the list are its selection
    std::string cardSet;    ///< the set that the cards show; empty where none is told
    std::string ownSets;    ///< JSON as the index sets write it; empty where there are none
    std::string person;     ///< JSON of person and place; empty where nothing of them is typed
    std::string pinned;     ///< JSON as the comparison writes it; empty where nothing is pinned
    std::string heading;    ///< of the report
    std::string notes;      ///< of the report

    friend bool operator==(const Session&, const Session&) = default;
};

/// A session, or one sentence on why a text is none.
struct SessionRead {
    std::optional<Session> session;
    std::string fault; ///< a clause without a point: "it is damaged: ..."
};

/// The text of a session file, UTF-8 with a line feed at its end.
std::string sessionText(const Session& session);

/// Reads the text of a session file. Nothing is taken from a text that is damaged anywhere.
SessionRead readSession(std::string_view text);

/// Larger files are no sessions [bytes].
inline constexpr std::size_t kLargestSession = std::size_t{16} << 20;

/// Writes inputs to the main window as if they were typed: the rules of its boxes apply.
void write(const classic::Inputs& inputs, classic::Frm_Main& form);

} // namespace comfortics::workspace
