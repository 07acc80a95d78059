#include "ephemeris/time_lib.h"

#include <algorithm>

/// Text forms of date-times.

namespace merov::ephemeris
{
namespace
{

constexpr std::array<std::string_view, 12> EnglishMonths = {"january",   "february", "march",    "april",
                                                            "may",       "june",     "july",     "august",
                                                            "september", "october",  "november", "december"};

std::array<std::string, 12> MonthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

/// Small letters for capitals of the Latin, Greek and Cyrillic alphabets, as the months' names of a
/// system may have; all else stands as it is.
std::string SmallLetters(std::string_view text)
{
    std::string result(text);
    for (std::size_t i = 0; i < result.size(); ++i) {
        const auto byte = static_cast<unsigned char>(result[i]);
        if (byte >= 'A' && byte <= 'Z') result[i] = static_cast<char>(byte + ('a' - 'A'));
        if (byte < 0xC2 || byte > 0xDF || i + 1 == result.size()) continue;
        // A character of two bytes.
        unsigned code = (byte & 0x1Fu) << 6 | (static_cast<unsigned char>(result[i + 1]) & 0x3Fu);
        if ((code >= 0xC0 && code <= 0xDE && code != 0xD7) || (code >= 0x391 && code <= 0x3A9) ||
            (code >= 0x410 && code <= 0x42F))
            code += 0x20;
        else if (code >= 0x400 && code <= 0x40F)
            code += 0x50;
        result[i] = static_cast<char>(0xC0u | code >> 6);
        result[++i] = static_cast<char>(0x80u | (code & 0x3Fu));
    }
    return result;
}

/// Reads a text of a date from its start, piece by piece. A piece that isn't there leaves the place as
/// it was.
class DateReader
{
public:
    explicit DateReader(std::string_view text) : text_(SmallLetters(text)) { SkipBlanks(); }

    bool AtEnd() const { return place_ == text_.size(); }

    bool SkipBlanks()
    {
        const std::size_t start = place_;
        while (!AtEnd() && text_[place_] == ' ')
            ++place_;
        return place_ > start;
    }

    bool Skip(char c)
    {
        if (AtEnd() || text_[place_] != c) return false;
        ++place_;
        return true;
    }

    /// A whole number of fewest..most digits and no more.
    std::optional<int> Number(std::size_t fewest, std::size_t most)
    {
        std::size_t end = place_;
        int value = 0;
        while (end < text_.size() && text_[end] >= '0' && text_[end] <= '9' && end - place_ <= most)
            value = value * 10 + (text_[end++] - '0');
        if (end - place_ < fewest || end - place_ > most) return std::nullopt;
        place_ = end;
        return value;
    }

    /// A month by name, 1..12: the longest of the system's and the English names that stands here.
    std::optional<int> MonthByName()
    {
        std::size_t length = 0;
        int month = 0;
        const auto offer = [&](std::string_view name, int number) {
            if (name.size() > length && std::string_view(text_).substr(place_).starts_with(name)) {
                length = name.size();
                month = number;
            }
        };
        for (int i = 0; i < 12; ++i) {
            const auto index = static_cast<std::size_t>(i);
            offer(SmallLetters(MonthNames[index]), i + 1);
            offer(EnglishMonths[index], i + 1);
            offer(EnglishMonths[index].substr(0, 3), i + 1);
        }
        if (length == 0) return std::nullopt;
        place_ += length;
        return month;
    }

    /// What stands between the parts of a date: blanks, and at most one mark among them.
    bool Divider()
    {
        const bool blanks = SkipBlanks();
        const bool mark = Skip('-') || Skip('/') || Skip('.') || Skip(',');
        SkipBlanks();
        return blanks || mark;
    }

    /// Day, month and year in one of the orders that can be told apart.
    bool ReadDate(CivilTime& civil)
    {
        if (!AtDigit()) return Month(MonthByName(), civil) && Divider() && Day(civil) && Divider() && Year(civil);
        if (Year(civil)) return Divider() && Month(AnyMonth(), civil) && Divider() && Day(civil);
        return Day(civil) && Divider() && Month(AnyMonth(), civil) && Divider() && Year(civil);
    }

    /// Hours, minutes and, where they are there, seconds and the half of the day.
    bool ReadTime(CivilTime& civil)
    {
        const auto hour = Number(1, 2);
        if (!hour || !Skip(':')) return false;
        const auto minute = Number(1, 2);
        const auto second = minute && Skip(':') ? Number(1, 2) : 0;
        if (!minute || !second) return false;
        civil.Hour = *hour;
        civil.Minute = *minute;
        civil.Second = *second;
        SkipBlanks();
        return ReadHalfOfDay(civil.Hour);
    }

private:
    bool AtDigit() const { return !AtEnd() && text_[place_] >= '0' && text_[place_] <= '9'; }

    bool ReadHalfOfDay(int& hour)
    {
        const bool afternoon = Skip('p');
        if (!afternoon && !Skip('a')) return true;
        if (!Skip('m') || hour < 1 || hour > 12) return false;
        hour = hour % 12 + (afternoon ? 12 : 0);
        SkipBlanks();
        return true;
    }

    std::optional<int> AnyMonth()
    {
        const auto named = MonthByName();
        return named ? named : Number(1, 2);
    }

    static bool Assign(std::optional<int> value, int& target)
    {
        if (value) target = *value;
        return value.has_value();
    }
    bool Day(CivilTime& civil) { return Assign(Number(1, 2), civil.Day); }
    bool Year(CivilTime& civil) { return Assign(Number(3, 4), civil.Year); }
    static bool Month(std::optional<int> month, CivilTime& civil) { return Assign(month, civil.Month); }

    std::string text_;
    std::size_t place_ = 0;
};

std::string Digits(int value, std::size_t width)
{
    std::string text = std::to_string(value);
    return text.size() < width ? std::string(width - text.size(), '0') + text : text;
}

/// One element of a picture: a letter so many times.
std::string PictureElement(char letter, std::size_t count, bool hoursBefore, const CivilTime& civil)
{
    const std::size_t width = std::min<std::size_t>(count, 2);
    switch (letter) {
    case 'd':
        return Digits(civil.Day, width);
    case 'm':
        if (count >= 3) return MonthName(civil.Month);
        return Digits(hoursBefore ? civil.Minute : civil.Month, width);
    case 'y':
        return count <= 2 ? Digits(civil.Year % 100, 2) : Digits(civil.Year, 4);
    case 'h':
        return Digits(civil.Hour, width);
    default:
        return Digits(civil.Second, width);
    }
}

/// The civil parts as a picture shows them: without seconds in it, the whole minute.
CivilTime SplitForPicture(double dateTime, std::string_view picture)
{
    const CivilTime civil = SplitDateTime(dateTime);
    const bool showsTime = picture.find('h') != std::string_view::npos;
    const bool showsSeconds = picture.find('s') != std::string_view::npos;
    if (!showsTime || showsSeconds || civil.Second < 30) return civil;
    return SplitDateTime(JoinDateTime(civil) + (60 - civil.Second) / 86400.0);
}

/// The number in text[first..first + count), digits alone; -1 otherwise.
int FixedNumber(std::string_view text, std::size_t first, std::size_t count)
{
    int value = 0;
    for (const char c : text.substr(first, count)) {
        if (c < '0' || c > '9') return -1;
        value = value * 10 + (c - '0');
    }
    return value;
}

} // namespace

void SetMonthNames(const std::array<std::string, 12>& names)
{
    MonthNames = names;
    for (std::string& name : MonthNames)
        while (name.ends_with('.'))
            name.pop_back();
}

const std::string& MonthName(int month)
{
    return MonthNames.at(static_cast<std::size_t>(month - 1));
}

std::string FormatDateTime(double dateTime, std::string_view picture)
{
    const CivilTime civil = SplitForPicture(dateTime, picture);
    std::string text;
    bool hoursBefore = false;
    for (std::size_t i = 0; i < picture.size();) {
        const char letter = picture[i];
        const std::size_t end = std::min(picture.find_first_not_of(letter, i), picture.size());
        const std::size_t count = end - i;
        if (std::string_view("dmyhs").find(letter) == std::string_view::npos)
            text.append(count, letter);
        else
            text += PictureElement(letter, count, hoursBefore, civil);
        hoursBefore = hoursBefore || letter == 'h';
        i = end;
    }
    return text;
}

std::optional<double> ParseDateTime(std::string_view text)
{
    DateReader reader(text);
    CivilTime civil;
    if (!reader.ReadDate(civil)) return std::nullopt;
    const bool blanks = reader.SkipBlanks();
    if (!reader.AtEnd() && !(blanks && reader.ReadTime(civil))) return std::nullopt;
    if (!reader.AtEnd() || !IsValidCivil(civil)) return std::nullopt;
    return JoinDateTime(civil);
}

std::optional<double> ParseIsoDateTime(std::string_view text, bool dateOnly)
{
    constexpr std::string_view Layout = "0000-00-00 00:00:00";
    if (text.size() != (dateOnly ? 10 : Layout.size())) return std::nullopt;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (Layout[i] != '0' && text[i] != Layout[i]) return std::nullopt;
    CivilTime civil{FixedNumber(text, 0, 4), FixedNumber(text, 5, 2), FixedNumber(text, 8, 2)};
    if (!dateOnly) {
        civil.Hour = FixedNumber(text, 11, 2);
        civil.Minute = FixedNumber(text, 14, 2);
        civil.Second = FixedNumber(text, 17, 2);
    }
    if (!IsValidCivil(civil)) return std::nullopt;
    return JoinDateTime(civil);
}

std::string FormatIsoDateTime(double dateTime)
{
    return FormatDateTime(dateTime, "yyyy-mm-dd hh:mm:ss");
}

} // namespace merov::ephemeris
