// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/row_source.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace comfortics::tables {

/// How the characters of a text file are written.
enum class Coding : std::uint8_t { Utf8, Utf16Le, Utf16Be, Windows1252, Windows1253 };

/// The names in mapping files: "utf-8", "utf-16le", "utf-16be", "windows-1252", "windows-1253".
std::string_view codingName(Coding coding);
std::optional<Coding> codingOfName(std::string_view name);

struct CodingGuess {
    Coding coding = Coding::Utf8;
    bool sure = true; ///< false where bytes of one code page could be those of another
    std::string because;
};

/// The coding of a text from its first bytes: by its mark, by the zeros of UTF-16, by whether the bytes
/// are UTF-8; otherwise Greek where most of the foreign letters make words without any of A to Z, else
/// Western. `whole`: the sample is all of the text.
CodingGuess guessCoding(std::string_view sample, bool whole);

/// The bytes of UTF-8 that a text begins with; the last character may be cut off if it is not `whole`.
std::size_t utf8Prefix(std::string_view text, bool whole);

/// The first bytes of a source, which are read again with the rest.
class SampledSource {
public:
    explicit SampledSource(ByteSource source);

    std::string_view sample() const noexcept { return m_sample; }
    /// The sample is all that the source has.
    bool whole() const noexcept { return m_ended; }
    std::size_t read(char* buffer, std::size_t size);

private:
    ByteSource m_source;
    std::string m_sample;
    std::size_t m_given = 0;
    bool m_ended = false;
};

/// Turns a text into UTF-8 piece by piece. Its mark is passed over.
class Decoder {
public:
    Decoder(ByteSource source, Coding coding);

    /// Appends the next piece; false at the end. UTF-8 goes through unchecked; of the others what is no
    /// character becomes U+FFFD.
    bool more(std::string& text);

private:
    void appendUtf16(std::string& text, bool atEnd);

    ByteSource m_source;
    Coding m_coding;
    std::string m_raw; // bytes not decoded yet
    bool m_begun = false;
    bool m_ended = false;
};

/// Appends a character in UTF-8.
void appendUtf8(std::string& text, char32_t character);

} // namespace comfortics::tables
