// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/finder.h"

#include "catalogue/catalogue.h"
#include "catalogue/categories.h"
#include "catalogue/notes.h"
#include "catalogue/references.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>
#include <utility>

namespace comfortics::catalogue {

namespace {

// What the letters of Latin-1 and Latin Extended-A from U+00C0 to U+017F are without their accents; a space
// is none.
constexpr std::string_view kPlainLetters[] = {
    "a", "a", "a",  "a",  "a", "a", "ae", "c", "e", "e", "e", "e", "i", "i", "i",  "i", // C0
    "d", "n", "o",  "o",  "o", "o", "o",  " ", "o", "u", "u", "u", "u", "y", "th", "ss",
    "a", "a", "a",  "a",  "a", "a", "ae", "c", "e", "e", "e", "e", "i", "i", "i",  "i",
    "d", "n", "o",  "o",  "o", "o", "o",  " ", "o", "u", "u", "u", "u", "y", "th", "y",
    "a", "a", "a",  "a",  "a", "a", "c",  "c", "c", "c", "c", "c", "c", "c", "d",  "d", // 100
    "d", "d", "e",  "e",  "e", "e", "e",  "e", "e", "e", "e", "e", "g", "g", "g",  "g",
    "g", "g", "g",  "g",  "h", "h", "h",  "h", "i", "i", "i", "i", "i", "i", "i",  "i",
    "i", "i", "ij", "ij", "j", "j", "k",  "k", "k", "l", "l", "l", "l", "l", "l",  "l",
    "l", "l", "l",  "n",  "n", "n", "n",  "n", "n", "n", "n", "n", "o", "o", "o",  "o", // 140
    "o", "o", "oe", "oe", "r", "r", "r",  "r", "r", "r", "s", "s", "s", "s", "s",  "s",
    "s", "s", "t",  "t",  "t", "t", "t",  "t", "u", "u", "u", "u", "u", "u", "u",  "u",
    "u", "u", "u",  "u",  "w", "w", "y",  "y", "y", "z", "z", "z", "z", "z", "z",  "s",
};
static_assert(std::size(kPlainLetters) == 0x180 - 0xC0);

/// A character as the words have it: in lower case and without accents; empty where it parts words.
struct Folded {
    std::string text;
    std::size_t bytes; ///< how many of the source it took
};

Folded foldedCharacter(std::string_view text)
{
    const auto first = static_cast<unsigned char>(text.front());
    if (first < 0x80) {
        if (first >= 'A' && first <= 'Z')
            return {std::string(1, static_cast<char>(first - 'A' + 'a')), 1};
        const bool isPart = (first >= 'a' && first <= 'z') || (first >= '0' && first <= '9') || first == '%';
        return {isPart ? std::string(1, text.front()) : std::string(), 1};
    }
    if (first >= 0xC2 && first <= 0xDF && text.size() > 1) {
        const auto second = static_cast<unsigned char>(text[1]);
        const unsigned code = ((first & 0x1FU) << 6U) | (second & 0x3FU);
        if (code >= 0xC0 && code < 0x180) {
            const std::string_view plain = kPlainLetters[code - 0xC0];
            return {plain == " " ? std::string() : std::string(plain), 2};
        }
        if (code == 0xB0) // "°C" and "°F" are no single letters
            return {"deg", 2};
        if (code == 0xB2 || code == 0xB3)
            return {code == 0xB2 ? "2" : "3", 2};
        // An accent that stands for itself belongs to the letter before.
        return {code >= 0x300 && code < 0x370 ? std::string(1, '\0') : std::string(), 2};
    }
    return {{}, 1};
}

struct Token {
    std::string text;
    std::string_view spelling;
};

std::vector<Token> tokens(std::string_view text)
{
    std::vector<Token> all;
    std::string word;
    std::size_t begin = 0;
    const auto close = [&](std::size_t end) {
        if (!word.empty())
            all.push_back({std::move(word), text.substr(begin, end - begin)});
        word.clear();
    };
    std::size_t at = 0;
    while (at < text.size()) {
        const Folded folded = foldedCharacter(text.substr(at));
        if (folded.text.empty()) {
            close(at);
        } else {
            if (word.empty())
                begin = at;
            if (folded.text.front() != '\0')
                word += folded.text;
        }
        at += folded.bytes;
    }
    close(text.size());
    return all;
}

std::vector<std::string> wordsOf(std::string_view text)
{
    std::vector<std::string> words;
    for (Token& token : tokens(text))
        words.push_back(std::move(token.text));
    return words;
}

bool isNumber(std::string_view word)
{
    return std::ranges::all_of(word, [](char c) { return c >= '0' && c <= '9'; });
}

// What a match is worth; the steps leave room for one of each below.
constexpr int kWholeKey = 1000;
constexpr int kWholeName = 500;
constexpr int kWholeOther = 400;
constexpr int kNameBegins = 200;
constexpr int kOtherBegins = 100;
constexpr int kInsideName = 20;
constexpr int kInsideOther = 10;

constexpr std::size_t kLeastInside = 3; ///< letters: fewer stand inside of nearly everything
constexpr std::size_t kLeastJoined = 5;

constexpr std::size_t kMostSuggestions = 3;
constexpr std::size_t kMostTried = 9;   ///< of several words at once: each multiplies the ways
constexpr std::size_t kDroppedWord = 3; ///< a word left out counts as that many slips

/// How many slips a word of that length may have and still be meant.
std::size_t slipsIn(std::size_t length)
{
    return length < 3 ? 0 : length < 6 ? 1 : length < 9 ? 2 : 3;
}

/// Letters to add, to leave out, to change or to swap with a neighbour, from one word to the other; more
/// than `most` where they are more.
std::size_t slipsBetween(std::string_view a, std::string_view b, std::size_t most)
{
    if (a.size() > b.size() + most || b.size() > a.size() + most)
        return most + 1;
    std::vector<std::size_t> before(b.size() + 1);
    std::vector<std::size_t> above(b.size() + 1);
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(above.begin(), above.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        row[0] = i;
        std::size_t least = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            row[j] = std::min({above[j] + 1, row[j - 1] + 1, above[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[j] = std::min(row[j], before[j - 2] + 1);
            least = std::min(least, row[j]);
        }
        if (least > most)
            return most + 1;
        std::swap(before, above);
        std::swap(above, row);
    }
    return above[b.size()];
}

std::string joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

} // namespace

std::span<const Subject> indexSubjects()
{
    static const auto all = [] {
        std::array<Subject, kIndexCount> subjects;
        for (const CatalogueRow& row : rows()) {
            const Reference& literature = reference(row.number);
            const Note& about = note(row.number);
            subjects[static_cast<std::size_t>(row.number - 1)] = {
                .id = literature.id,
                .number = row.number,
                .name = row.name,
                .unit = row.unit,
                .authors = literature.authors,
                .year = literature.year,
                .family = familyName(literature.family),
                .abbreviations = about.abbreviations,
                .description = about.description,
                .hasClasses = !scale(row.number).categories.empty(),
            };
        }
        return subjects;
    }();
    return all;
}

bool admits(const Filters& filters, const Subject& subject, Standing standing) noexcept
{
    return (!filters.withValue || standing.hasValue) && (!filters.ticked || standing.ticked) &&
           (!filters.inCelsius || subject.unit == "°C") && (!filters.withClasses || subject.hasClasses) &&
           (filters.family.empty() || filters.family == subject.family);
}

Finder::Finder(std::span<const Subject> subjects)
{
    m_entries.reserve(subjects.size());
    for (const Subject& subject : subjects) {
        Entry entry;
        if (subject.number != 0)
            learn(std::to_string(subject.number), Field::Key, entry);
        for (const std::string_view abbreviation : subject.abbreviations)
            learn(abbreviation, Field::Key, entry);
        learn(subject.name, Field::Name, entry);
        for (const std::string_view other :
             {subject.authors, subject.year, subject.id, subject.family, subject.unit})
            learn(other, Field::Other, entry);
        entry.joinedName = joined(wordsOf(subject.name));
        std::erase(entry.joinedName, ' ');
        entry.description = wordsOf(subject.description);
        m_entries.push_back(std::move(entry));
    }
    std::ranges::stable_sort(m_vocabulary, {}, &Known::text);
    std::vector<Known> once;
    for (Known& known : m_vocabulary) {
        if (once.empty() || once.back().text != known.text)
            once.push_back(std::move(known));
        ++once.back().count;
    }
    m_vocabulary = std::move(once);
}

void Finder::learn(std::string_view text, Field field, Entry& entry)
{
    for (Token& token : tokens(text)) {
        const bool isNew =
            std::ranges::none_of(entry.words, [&token](const Word& word) { return word.text == token.text; });
        if (!isNew)
            continue;
        m_vocabulary.push_back({token.text, std::string(token.spelling), 0});
        entry.words.push_back({std::move(token.text), field});
    }
}

int Finder::grade(const Entry& entry, std::string_view word, bool wholeOnly)
{
    int best = 0;
    for (const auto& [text, field] : entry.words) {
        const bool isName = field != Field::Other;
        const std::size_t at = text.find(word);
        if (at == std::string::npos)
            continue;
        int worth = 0;
        if (text.size() == word.size())
            worth = field == Field::Key ? kWholeKey : isName ? kWholeName : kWholeOther;
        else if (wholeOnly)
            continue;
        else if (at == 0)
            worth = isName ? kNameBegins : kOtherBegins;
        else if (word.size() >= kLeastInside)
            worth = isName ? kInsideName : kInsideOther;
        best = std::max(best, worth);
    }
    if (best == 0 && !wholeOnly && word.size() >= kLeastJoined &&
        entry.joinedName.find(word) != std::string::npos)
        best = kInsideOther;
    return best;
}

std::vector<std::size_t> Finder::findWords(const std::vector<std::string>& words) const
{
    // A number is meant as a whole, unless nothing bears it: 195 is no begin of a year.
    std::vector<bool> wholeOnly;
    wholeOnly.reserve(words.size());
    for (const std::string& word : words)
        wholeOnly.push_back(isNumber(word) &&
                            std::ranges::binary_search(m_vocabulary, word, {}, &Known::text));

    std::vector<std::pair<int, std::size_t>> graded;
    for (std::size_t place = 0; place < m_entries.size(); ++place) {
        int sum = 0;
        for (std::size_t i = 0; i < words.size() && sum >= 0; ++i) {
            const int worth = grade(m_entries[place], words[i], wholeOnly[i]);
            sum = worth == 0 ? -1 : sum + worth;
        }
        if (sum >= 0)
            graded.emplace_back(sum, place);
    }
    std::ranges::stable_sort(graded, [](const auto& a, const auto& b) { return a.first > b.first; });
    std::vector<std::size_t> places;
    places.reserve(graded.size());
    for (const auto& [sum, place] : graded)
        places.push_back(place);
    return places;
}

std::vector<std::size_t> Finder::find(std::string_view query) const
{
    const std::vector<std::string> words = wordsOf(query);
    std::vector<std::size_t> places = findWords(words);
    if (!places.empty())
        return places;
    for (std::size_t place = 0; place < m_entries.size(); ++place) {
        const Entry& entry = m_entries[place];
        const bool holdsAll = std::ranges::all_of(words, [&](const std::string& word) {
            return grade(entry, word, isNumber(word)) > 0 ||
                   std::ranges::any_of(entry.description,
                                       [&word](const std::string& told) { return told.starts_with(word); });
        });
        if (holdsAll)
            places.push_back(place);
    }
    return places;
}

bool Finder::hasWords(std::string_view query)
{
    return !tokens(query).empty();
}

std::vector<std::string> Finder::didYouMean(std::string_view query) const
{
    const std::vector<Token> typed = tokens(query);
    std::vector<std::string> words;
    std::vector<std::string> spellings;
    for (const Token& token : typed) {
        words.push_back(token.text);
        spellings.emplace_back(token.spelling);
    }

    std::vector<std::size_t> suspects;
    for (std::size_t i = 0; i < words.size(); ++i)
        if (findWords({words[i]}).empty())
            suspects.push_back(i);
    std::vector<Guess> guesses;
    if (suspects.empty()) { // each is known, but nothing has them all
        for (std::size_t i = 0; i < words.size(); ++i)
            for (const Guess& near : nearWords(words[i]))
                guesses.push_back(near.inPlaceOf(i, words, spellings));
        for (std::size_t i = 0; words.size() > 1 && i < words.size(); ++i)
            guesses.push_back(Guess{.slips = kDroppedWord}.inPlaceOf(i, words, spellings));
    } else {
        guesses.push_back({.words = words, .spellings = spellings});
        for (const std::size_t i : suspects) {
            std::vector<Guess> longer;
            for (const Guess& guess : guesses)
                for (const Guess& near : nearWords(words[i])) {
                    longer.push_back(near.inPlaceOf(i, guess.words, guess.spellings));
                    longer.back().slips += guess.slips;
                }
            std::ranges::stable_sort(longer, {}, &Guess::rank);
            longer.resize(std::min(longer.size(), kMostTried));
            guesses = std::move(longer);
        }
    }
    std::erase_if(guesses, [this](const Guess& guess) { return findWords(guess.words).empty(); });
    std::ranges::stable_sort(guesses, {}, &Guess::rank);
    std::vector<std::string> texts;
    for (const Guess& guess : guesses)
        if (texts.size() < kMostSuggestions && guess.slips <= guesses.front().slips + 1)
            texts.push_back(joined(guess.spellings));
    return texts;
}

std::vector<Finder::Guess> Finder::nearWords(const std::string& word) const
{
    std::vector<Guess> near;
    const std::size_t most = slipsIn(word.size());
    if (most == 0 || isNumber(word))
        return near;
    for (const Known& known : m_vocabulary) {
        if (known.text == word || isNumber(known.text))
            continue;
        const std::size_t slips = slipsBetween(word, known.text, most);
        if (slips <= most && slips < known.text.size())
            near.push_back(
                {slips, known.text.size() < word.size(), known.count, {known.text}, {known.spelling}});
    }
    std::ranges::stable_sort(near, {}, &Guess::rank);
    near.resize(std::min(near.size(), kMostSuggestions));
    return near;
}

Finder::Guess Finder::Guess::inPlaceOf(std::size_t place, std::vector<std::string> others,
                                       std::vector<std::string> otherSpellings) const
{
    const auto at = static_cast<std::ptrdiff_t>(place);
    if (words.empty()) {
        others.erase(others.begin() + at);
        otherSpellings.erase(otherSpellings.begin() + at);
    } else {
        others[place] = words.front();
        otherSpellings[place] = spellings.front();
    }
    return {slips, isShorter, count, std::move(others), std::move(otherSpellings)};
}

std::tuple<std::size_t, bool, int> Finder::Guess::rank() const
{
    return {slips, isShorter, -count};
}

const Finder& indexFinder()
{
    static const Finder all{indexSubjects()};
    return all;
}

} // namespace comfortics::catalogue
