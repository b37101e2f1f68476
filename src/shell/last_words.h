// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace comfortics::shell {

/// The exception in flight as one sentence for the user. Only in a catch block.
std::string lastWords();

/// Writes that sentence to standard error, behind the name of the program. Takes no memory.
void sayLastWords(const char* program) noexcept;

/// What would end the program without a word (an exception that nobody can catch) says its sentence
/// and ends it with this status.
void speakBeforeTheEnd(const char* program, int status) noexcept;

} // namespace comfortics::shell
