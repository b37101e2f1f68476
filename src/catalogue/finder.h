// SPDX-License-Identifier: GPL-3.0-or-later
//
// One search over what the catalogue holds: by name, number, id, author, year, abbreviation, family and unit.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace comfortics::catalogue {

/// Something that can be found: an index, or whatever else has an id and a name.
struct Subject {
    std::string_view id;
    int number = 0; ///< 0: it has none
    std::string_view name;
    std::string_view unit{};
    std::string_view authors{};
    std::string_view year{};
    std::string_view family{}; ///< as familyName() tells it
    std::span<const std::string_view> abbreviations{};
    std::string_view description{}; ///< searched only where nothing else holds the words
    bool hasClasses = false;
};

/// The indices; place i - 1 is index i.
std::span<const Subject> indexSubjects();

/// What a search leaves out besides.
struct Filters {
    bool withValue = false;
    bool ticked = false;
    bool inCelsius = false;
    bool withClasses = false;
    std::string_view family{}; ///< empty: all

    bool any() const noexcept { return *this != Filters(); }
    bool operator==(const Filters&) const = default;
};

/// What of a subject changes with the readings and the ticks.
struct Standing {
    bool hasValue = false;
    bool ticked = false;
};

/// Whether the filters let a subject through.
bool admits(const Filters& filters, const Subject& subject, Standing standing) noexcept;

/// Finds subjects by words in any order; case, accents and punctuation make no difference. Takes some
/// hundredths of a millisecond for the indices. Any number of threads may search at once.
class Finder {
public:
    /// Keeps no view of the subjects' texts.
    explicit Finder(std::span<const Subject> subjects);

    /// The places of the subjects that hold all words of the query, best first: a number or an abbreviation
    /// as a whole, then whole words, then how a word begins, then what stands inside of one; among equals as
    /// they came. Where no subject does, those whose description does. Without a word, all of them.
    std::vector<std::size_t> find(std::string_view query) const;

    /// Whether anything of a query can be looked for.
    static bool hasWords(std::string_view query);

    /// What the query may have meant, at most three, best first; each finds something. Worth asking where
    /// nothing is found.
    std::vector<std::string> didYouMean(std::string_view query) const;

private:
    enum class Field : std::uint8_t { Key, Name, Other };

    struct Word {
        std::string text;
        Field field;
    };

    struct Entry {
        std::vector<Word> words;
        std::string joinedName; ///< without the gaps: "windchill" is a way to write it
        std::vector<std::string> description;
    };

    struct Known {
        std::string text;
        std::string spelling; ///< as it stands in the catalogue
        int count = 0;        ///< of subjects
    };

    /// What a word or all words may have been meant to be.
    struct Guess {
        std::size_t slips = 0;
        bool isShorter = false; ///< a letter is forgotten more often than one too many is typed
        int count = 0;
        std::vector<std::string> words{};
        std::vector<std::string> spellings{};

        /// With its only word among others; without any, these lose one.
        Guess inPlaceOf(std::size_t place, std::vector<std::string> others,
                        std::vector<std::string> otherSpellings) const;
        std::tuple<std::size_t, bool, int> rank() const;
    };

    void learn(std::string_view text, Field field, Entry& entry);
    static int grade(const Entry& entry, std::string_view word, bool wholeOnly);
    std::vector<std::size_t> findWords(const std::vector<std::string>& words) const;
    std::vector<Guess> nearWords(const std::string& word) const;

    std::vector<Entry> m_entries;
    std::vector<Known> m_vocabulary; ///< sorted by text, each once
};

/// Over the indices.
const Finder& indexFinder();

} // namespace comfortics::catalogue
