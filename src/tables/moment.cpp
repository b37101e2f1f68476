// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/moment.h"

#include "tables/names.h"
#include "tables/words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <utility>

namespace comfortics::tables {

namespace {

constexpr std::array<std::string_view, 3> kOrderNames{"ymd", "dmy", "mdy"};
constexpr std::int64_t kDay = 86400;
constexpr std::size_t kLongestText = 64;

// The first letters of the months' names, folded.
struct MonthName {
    std::string_view begin;
    int month;
};
constexpr MonthName kMonths[] = {
    {"jan", 1},  {"ene", 1},  {"ιαν", 1},  {"feb", 2},  {"fev", 2},  {"φεβ", 2},  {"mar", 3},  {"mrz", 3},
    {"marz", 3}, {"μαρ", 3},  {"apr", 4},  {"avr", 4},  {"abr", 4},  {"απρ", 4},  {"may", 5},  {"mai", 5},
    {"μαι", 5},  {"μαη", 5},  {"juin", 6}, {"jun", 6},  {"ιουν", 6}, {"juil", 7}, {"jul", 7},  {"ιουλ", 7},
    {"aug", 8},  {"aou", 8},  {"ago", 8},  {"αυγ", 8},  {"sep", 9},  {"set", 9},  {"σεπ", 9},  {"oct", 10},
    {"okt", 10}, {"οκτ", 10}, {"nov", 11}, {"νοε", 11}, {"dec", 12}, {"dez", 12}, {"dic", 12}, {"δεκ", 12},
};

int monthOf(std::string_view word)
{
    for (const MonthName& name : kMonths)
        if (word.starts_with(name.begin))
            return name.month;
    return 0;
}

struct NumberPiece {
    int value = 0;
    std::size_t digits = 0;
    char before = ' '; // the mark in front of it
};

constexpr std::size_t kMostNumbers = 8;

/// A text taken apart.
struct Pieces {
    std::array<NumberPiece, kMostNumbers> numbers{};
    std::size_t count = 0;
    int month = 0;               // by its name
    std::size_t monthBefore = 0; // how many numbers stand before it
    int half = 0;                // 1 for am, 2 for pm
    std::optional<int> offset;   // from UTC [min]
    bool sound = true;
};

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool addNumber(Pieces& pieces, std::string_view digits, char before)
{
    if (pieces.count == kMostNumbers || digits.size() > 9)
        return false;
    NumberPiece& number = pieces.numbers[pieces.count++];
    number = {0, digits.size(), before};
    std::from_chars(digits.data(), digits.data() + digits.size(), number.value);
    return true;
}

bool addWord(Pieces& pieces, std::string_view text)
{
    const std::string word = folded(text);
    if (word == "t" || word == "h" || word == "uhr")
        return pieces.count > 0;
    if (word == "z" || word == "utc" || word == "gmt") {
        pieces.offset = 0;
        return true;
    }
    if (word == "am" || word == "pm" || word == "a" || word == "p" || word == "πμ" || word == "μμ") {
        pieces.half = word.starts_with("a") || word == "πμ" ? 1 : 2;
        return pieces.count > 0;
    }
    if (const int month = monthOf(word); month != 0 && pieces.month == 0) {
        pieces.month = month;
        pieces.monthBefore = pieces.count;
        return true;
    }
    return false;
}

// Digits written together: a date, or a date and a time.
bool addTogether(Pieces& pieces, std::string_view digits)
{
    static constexpr std::size_t kWidths[] = {4, 2, 2, 2, 2, 2};
    std::size_t at = 0;
    for (const std::size_t width : kWidths) {
        if (at == digits.size())
            break;
        const bool time = at >= 8;
        if (!addNumber(pieces, digits.substr(at, width), at == 0 ? ' ' : time ? ':' : '-'))
            return false;
        at += width;
    }
    return at == digits.size();
}

Pieces takenApart(std::string_view text)
{
    Pieces pieces;
    if (text.size() > kLongestText) {
        pieces.sound = false;
        return pieces;
    }
    char mark = ' ';
    std::size_t colons = 0;
    for (std::size_t at = 0; at < text.size() && pieces.sound;) {
        const char c = text[at];
        if (isDigit(c)) {
            std::size_t end = at;
            while (end < text.size() && isDigit(text[end]))
                ++end;
            const std::string_view digits = text.substr(at, end - at);
            const bool sign = mark == '+' || mark == '-';
            // Behind a time of day, a sign begins the offset.
            if (sign && colons > 0 && pieces.count >= 4) {
                pieces.offset = readOffset(text.substr(at - 1));
                pieces.sound = pieces.offset.has_value();
                return pieces;
            }
            if (pieces.count == 0 &&
                (digits.size() == 8 || digits.size() == 10 || digits.size() == 12 || digits.size() == 14))
                pieces.sound = addTogether(pieces, digits);
            else if (pieces.count == (pieces.month == 0 ? 3U : 2U) && digits.size() == 4 && mark != '.')
                pieces.sound = addNumber(pieces, digits.substr(0, 2), ':') &&
                               addNumber(pieces, digits.substr(2), ':'); // "20240301:1530", "1/3/2024 1530"
            else
                pieces.sound = addNumber(pieces, digits, mark);
            at = end;
            mark = ' ';
            continue;
        }
        if (static_cast<unsigned char>(c) >= 0x80 || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')) {
            std::size_t end = at;
            while (end < text.size() &&
                   (static_cast<unsigned char>(text[end]) >= 0x80 || (text[end] >= 'A' && text[end] <= 'Z') ||
                    (text[end] >= 'a' && text[end] <= 'z') || text[end] == '.'))
                ++end;
            std::string word;
            for (const char letter : text.substr(at, end - at))
                if (letter != '.')
                    word += letter;
            pieces.sound = addWord(pieces, word);
            at = end;
            mark =
                (word == "h" || word == "H") && at < text.size() && isDigit(text[at]) ? ':' : ' '; // "15h30"
            colons += mark == ':' ? 1U : 0U;
            continue;
        }
        if (std::string_view(" \t,-/.:+").find(c) == std::string_view::npos) {
            pieces.sound = false;
            break;
        }
        colons += c == ':' ? 1U : 0U;
        if (c != ' ' && c != '\t')
            mark = c;
        ++at;
    }
    return pieces;
}

struct DateParts {
    std::size_t used = 0; // of the numbers
    int year = 0;
    int month = 0;
    int day = 0;
    bool ordered = false; // the order made a difference
};

int wholeYear(const NumberPiece& number)
{
    if (number.digits > 2)
        return number.value;
    return number.value < 70 ? 2000 + number.value : 1900 + number.value;
}

std::optional<DateParts> dateOf(const Pieces& pieces, DateOrder order)
{
    const auto& n = pieces.numbers;
    if (pieces.month != 0) {
        if (pieces.count < 2)
            return std::nullopt;
        const bool yearFirst = n[0].digits == 4;
        // "1 March 2024" and "March 1, 2024"
        return DateParts{2, wholeYear(n[yearFirst ? 0 : 1]), pieces.month, n[yearFirst ? 1 : 0].value, false};
    }
    if (pieces.count < 3)
        return std::nullopt;
    if (n[0].digits == 4)
        return DateParts{3, n[0].value, n[1].value, n[2].value, false};
    if (n[1].before == ':')
        return std::nullopt; // a time of day
    switch (order) {
    case DateOrder::YearMonthDay:
        if (n[2].digits > 2)
            return std::nullopt;
        return DateParts{3, wholeYear(n[0]), n[1].value, n[2].value, true};
    case DateOrder::DayMonthYear:
        return DateParts{3, wholeYear(n[2]), n[1].value, n[0].value, true};
    case DateOrder::MonthDayYear:
        return DateParts{3, wholeYear(n[2]), n[0].value, n[1].value, true};
    }
    return std::nullopt;
}

} // namespace

std::optional<Moment> momentOf(const ClockTime& time)
{
    using namespace std::chrono;
    const year_month_day date(year(time.year), month(static_cast<unsigned>(time.month)),
                              day(static_cast<unsigned>(time.day)));
    const bool midnight = time.hour == 24 && time.minute == 0 && time.second == 0;
    if (time.month < 1 || time.day < 1 || time.year < 1 || time.year > 9999 || !date.ok() || time.hour < 0 ||
        (time.hour > 23 && !midnight) || time.minute < 0 || time.minute > 59 || time.second < 0 ||
        time.second > 60)
        return std::nullopt;
    const std::int64_t days = sys_days(date).time_since_epoch().count();
    return Moment{days * kDay + std::int64_t{time.hour} * 3600 + std::int64_t{time.minute} * 60 + time.second,
                  std::nullopt};
}

ClockTime clockTime(const Moment& moment)
{
    using namespace std::chrono;
    const std::int64_t inDay = ((moment.seconds % kDay) + kDay) % kDay;
    const year_month_day date(sys_days(days((moment.seconds - inDay) / kDay)));
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(inDay / 3600),
            static_cast<int>(inDay / 60 % 60),
            static_cast<int>(inDay % 60)};
}

std::string_view orderName(DateOrder order)
{
    return kOrderNames[static_cast<std::size_t>(order)];
}

std::optional<DateOrder> orderOfName(std::string_view name)
{
    return valueOfName<DateOrder>(kOrderNames, name);
}

std::optional<Moment> readMoment(std::string_view text, DateOrder order)
{
    const Pieces pieces = takenApart(text);
    if (!pieces.sound)
        return std::nullopt;
    const auto date = dateOf(pieces, order);
    if (!date)
        return std::nullopt;
    ClockTime time{date->year, date->month, date->day};
    const std::size_t left = pieces.count - date->used;
    if (left > 4 || (left == 4 && pieces.numbers[date->used + 3].before != '.' &&
                     pieces.numbers[date->used + 3].before != ','))
        return std::nullopt;
    const auto field = [&](std::size_t i) { return left > i ? pieces.numbers[date->used + i].value : 0; };
    time.hour = field(0);
    time.minute = field(1);
    time.second = field(2);
    if (pieces.half != 0) {
        if (left == 0 || time.hour < 1 || time.hour > 12)
            return std::nullopt;
        time.hour = time.hour % 12 + (pieces.half == 2 ? 12 : 0);
    }
    auto moment = momentOf(time);
    if (moment)
        moment->offset = pieces.offset;
    return moment;
}

bool looksLikeTime(std::string_view text)
{
    for (const DateOrder order : {DateOrder::YearMonthDay, DateOrder::DayMonthYear, DateOrder::MonthDayYear})
        if (readMoment(text, order))
            return text.find_first_of("-/.: ") != std::string_view::npos || text.size() >= 8;
    const Pieces pieces = takenApart(text);
    if (pieces.sound && pieces.count == 1 && pieces.numbers[0].digits == 4 && pieces.offset)
        return pieces.numbers[0].value <= 2400; // "0130 UTC"
    return pieces.sound && pieces.count >= 2 && pieces.count <= 4 && pieces.numbers[1].before == ':' &&
           pieces.numbers[0].value <= 24 && pieces.numbers[1].value < 60;
}

unsigned possibleOrders(std::string_view text)
{
    unsigned orders = 0;
    const Pieces pieces = takenApart(text);
    if (!pieces.sound)
        return 0;
    for (const DateOrder order :
         {DateOrder::YearMonthDay, DateOrder::DayMonthYear, DateOrder::MonthDayYear}) {
        const auto date = dateOf(pieces, order);
        if (date && date->ordered && readMoment(text, order))
            orders |= 1U << static_cast<unsigned>(order);
    }
    return orders;
}

std::optional<int> readOffset(std::string_view text)
{
    const std::string word = folded(text);
    if (word == "z" || word == "utc" || word == "gmt")
        return 0;
    std::string_view rest = word;
    for (const std::string_view name : {" utc", " gmt"}) // "+0000 UTC"
        if (rest.ends_with(name))
            rest.remove_suffix(name.size());
    if (rest.starts_with("utc") || rest.starts_with("gmt"))
        rest.remove_prefix(3);
    if (rest.empty() || (rest.front() != '+' && rest.front() != '-'))
        return std::nullopt;
    const int sign = rest.front() == '-' ? -1 : 1;
    std::string digits;
    for (const char c : rest.substr(1)) {
        if (!isDigit(c) && c != ':')
            return std::nullopt;
        if (c == ':' && digits.size() == 1)
            digits.insert(0, 1, '0');
        if (c != ':')
            digits += c;
    }
    if (digits.empty() || digits.size() == 3 || digits.size() > 4)
        return std::nullopt;
    int hours = 0;
    int minutes = 0;
    const std::string_view all = digits;
    const std::string_view head = all.substr(0, 2);
    const std::string_view tail = all.size() > 2 ? all.substr(2) : std::string_view("0");
    std::from_chars(head.data(), head.data() + head.size(), hours);
    std::from_chars(tail.data(), tail.data() + tail.size(), minutes);
    if (hours > 14 || minutes > 59)
        return std::nullopt;
    return sign * (hours * 60 + minutes);
}

std::string momentText(const Moment& moment)
{
    const ClockTime time = clockTime(moment);
    std::string text;
    const auto add = [&text](int value, int width, std::string_view before) {
        const std::string digits = std::to_string(value);
        text += before;
        text.append(static_cast<std::size_t>(std::max(0, width - static_cast<int>(digits.size()))), '0');
        text += digits;
    };
    add(time.year, 4, "");
    add(time.month, 2, "-");
    add(time.day, 2, "-");
    add(time.hour, 2, "T");
    add(time.minute, 2, ":");
    add(time.second, 2, ":");
    if (moment.offset == 0) {
        text += 'Z';
    } else if (moment.offset) {
        add(std::abs(*moment.offset) / 60, 2, *moment.offset < 0 ? "-" : "+");
        add(std::abs(*moment.offset) % 60, 2, ":");
    }
    return text;
}

} // namespace comfortics::tables
