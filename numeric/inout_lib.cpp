#include "numeric/inout_lib.h"

#include "numeric/math_lib.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <utility>

namespace merov::numeric
{
namespace
{

std::string Separator = ".";

/// Bytes of the UTF-8 character that begins with `lead`.
std::size_t CharacterLength(char lead)
{
    const auto byte = static_cast<unsigned char>(lead);
    return byte < 0x80 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

/// Characters first..last of a UTF-8 text, counted from 1; what lies beyond its end is left out.
std::string_view Characters(std::string_view text, std::size_t first, std::size_t last)
{
    std::size_t begin = text.size();
    std::size_t place = 0;
    for (std::size_t number = 1; place < text.size() && number <= last; ++number) {
        if (number == first) begin = place;
        place = std::min(text.size(), place + CharacterLength(text[place]));
    }
    return begin < place ? text.substr(begin, place - begin) : std::string_view();
}

/// `text` with every `from` replaced by `to`; an empty `to` drops it.
std::string Replaced(std::string_view text, std::string_view from, std::string_view to)
{
    std::string result;
    std::size_t place = 0;
    for (std::size_t hit; (hit = text.find(from, place)) != std::string_view::npos; place = hit + from.size())
        result.append(text.substr(place, hit - place)).append(to);
    return result.append(text.substr(place));
}

/// The number at the start of a text, blanks left out; 0 if there is none.
double LeadingNumber(std::string_view text)
{
    std::string digits = Replaced(text, " ", "");
    digits = Replaced(digits, Separator, ".");
    const char* begin = digits.c_str() + (digits.starts_with('+') ? 1 : 0);
    double value = 0.0;
    std::from_chars(begin, digits.c_str() + digits.size(), value, std::chars_format::fixed);
    return std::isfinite(value) ? value : 0.0;
}

/// The number that a text as a whole stands for: sign, digits, decimal separator, blanks around it.
std::optional<double> WholeNumber(std::string_view text)
{
    std::string digits(TrimBlanks(Replaced(text, Separator, ".")));
    if (digits.starts_with('+') && digits.size() > 1 && digits[1] != '-') digits.erase(0, 1);
    double value = 0.0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, std::chars_format::fixed);
    if (error != std::errc() || stop != end || !std::isfinite(value)) return std::nullopt;
    return value;
}

/// The hemisphere letter of a position entry in capitals, 0 for an empty text.
char HemisphereOf(std::string_view text)
{
    if (text.empty()) return 0;
    const char last = text.back();
    return last >= 'a' && last <= 'z' ? static_cast<char>(last - 'a' + 'A') : last;
}

/// What a position entry holds, once its hemisphere is known to be good: DM form to degrees or a code.
/// `digits` is the number of degree digits, which fixes the places of the others.
double ParsePacked(std::string_view text, std::size_t digits, double limit)
{
    const double degrees = LeadingNumber(Characters(text, 1, digits));
    const double minutes = LeadingNumber(Characters(text, digits + 2, digits + 3));
    const double tenths = LeadingNumber(Characters(text, digits + 6, digits + 6));
    if (minutes > 59.0) return BadMinutes;
    const double packed = degrees + minutes / 100.0 + tenths / 1000.0;
    return packed > limit ? BeyondRange : DMToDeg(packed);
}

/// A non-negative number in decimal: whole digits, without leading zeros, and `places` decimals,
/// rounded half away from zero on the form with 15 significant digits.
struct Decimal {
    std::string whole;
    std::string fraction;
    bool IsZero() const { return whole.empty() && fraction.find_first_not_of('0') == std::string::npos; }
};

Decimal RoundedDecimal(double value, std::size_t places)
{
    // 15 significant digits in scientific form: d.dddddddddddddde±xx
    std::array<char, 40> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::scientific, 14);
    const std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
    const std::size_t mark = text.find('e');
    int exponent = 0;
    const std::size_t sign = text[mark + 1] == '+' ? 1 : 0;
    std::from_chars(text.data() + mark + 1 + sign, text.data() + text.size(), exponent);

    std::string digits = Replaced(text.substr(0, mark), ".", "");
    long pointAt = exponent + 1L; // digits before the point
    if (pointAt < 0) {
        digits.insert(0, static_cast<std::size_t>(-pointAt), '0');
        pointAt = 0;
    }
    const std::size_t keep = static_cast<std::size_t>(pointAt) + places;
    const bool up = keep < digits.size() && digits[keep] >= '5';
    digits.resize(keep, '0');
    if (up) {
        std::size_t i = keep;
        while (i > 0 && digits[i - 1] == '9')
            digits[--i] = '0';
        if (i > 0) {
            ++digits[i - 1];
        } else {
            digits.insert(0, 1, '1');
            ++pointAt;
        }
    }
    Decimal result{digits.substr(0, static_cast<std::size_t>(pointAt)),
                   digits.substr(static_cast<std::size_t>(pointAt))};
    result.whole.erase(0, std::min(result.whole.find_first_not_of('0'), result.whole.size()));
    return result;
}

bool IsPlace(char c)
{
    return c == '0' || c == '#';
}

/// The part of a pattern before the point, filled with the digits of `whole` from the right.
std::string FilledWhole(std::string_view pattern, const std::string& whole)
{
    const auto places = static_cast<std::size_t>(std::count_if(pattern.begin(), pattern.end(), IsPlace));
    std::size_t used = whole.size() > places ? whole.size() - places : 0; // digits already written
    std::string result;
    std::size_t place = 0; // places passed so far
    bool zeros = false;    // a "0" has been passed, so that digits show from here on
    for (const char c : pattern) {
        if (!IsPlace(c)) {
            result += c;
            continue;
        }
        if (place == 0) result += whole.substr(0, used);
        zeros = zeros || c == '0';
        if (places - place <= whole.size())
            result += whole[used++];
        else if (zeros)
            result += '0';
        ++place;
    }
    return result;
}

/// The part of a pattern behind the point, filled with `fraction`; "#" drops the zeros at the end.
std::string FilledFraction(std::string_view pattern, const std::string& fraction)
{
    std::size_t shown = fraction.size();
    std::string kinds;
    std::copy_if(pattern.begin(), pattern.end(), std::back_inserter(kinds), IsPlace);
    while (shown > 0 && kinds[shown - 1] == '#' && fraction[shown - 1] == '0')
        --shown;
    std::string result;
    std::size_t place = 0;
    for (const char c : pattern) {
        if (!IsPlace(c))
            result += c;
        else if (place++ < shown)
            result += fraction[place - 1];
    }
    return result;
}

std::size_t DecimalPlaces(std::string_view section)
{
    const std::size_t point = section.find('.');
    if (point == std::string_view::npos) return 0;
    return static_cast<std::size_t>(
        std::count_if(section.begin() + static_cast<std::ptrdiff_t>(point), section.end(), IsPlace));
}

/// The sections of a pattern: for positive numbers and zero, and, where given, for negative ones.
std::pair<std::string_view, std::string_view> Sections(std::string_view pattern)
{
    const std::size_t divide = pattern.find(';');
    if (divide == std::string_view::npos) return {pattern, {}};
    return {pattern.substr(0, divide), pattern.substr(divide + 1)};
}

/// A rounded decimal through a pattern; `negative` tells the sign of the value.
std::string FormatDecimal(const Decimal& decimal, bool negative, std::string_view pattern)
{
    const auto [positiveSection, negativeSection] = Sections(pattern);
    const std::string_view section = negative && !negativeSection.empty() ? negativeSection : positiveSection;
    const std::size_t point = section.find('.');
    std::string result = negative && negativeSection.empty() && !decimal.IsZero() ? "-" : "";
    result += FilledWhole(section.substr(0, point), decimal.whole);
    if (point != std::string_view::npos)
        result += Separator + FilledFraction(section.substr(point + 1), decimal.fraction);
    return result;
}

} // namespace

const std::string& DecimalSeparator()
{
    return Separator;
}

void SetDecimalSeparator(std::string separator)
{
    if (!separator.empty()) Separator = std::move(separator);
}

double ParseLat(std::string_view text)
{
    const char hemisphere = HemisphereOf(text);
    if (hemisphere != 'N' && hemisphere != 'S') return BadHemisphere;
    const double value = ParsePacked(Replaced(text, "_", " "), 2, 90.0);
    return hemisphere == 'S' && value <= 90.0 ? -value : value;
}

double ParseLong(std::string_view text, bool eastPositive)
{
    const char hemisphere = HemisphereOf(text);
    if (hemisphere != 'W' && hemisphere != 'E') return BadHemisphere;
    const double value = ParsePacked(Replaced(text, "_", "0"), 3, 180.0);
    if (hemisphere == 'E' || value > 180.0) return value;
    return eastPositive ? 360.0 - value : -value;
}

double ParseCourse(std::string_view text)
{
    const double value = LeadingNumber(Replaced(Replaced(text, "°", ""), "_", ""));
    if (value > 360.0) return CourseAbove360;
    return value < 0.0 ? NegativeCourse : value;
}

double ParseUnsigned(std::string_view text)
{
    const double value = LeadingNumber(Replaced(text, "_", ""));
    return value < 0.0 ? -1.0 : value;
}

double ParseNumber(std::string_view text)
{
    return WholeNumber(Replaced(text, "_", "")).value_or(NotNumeric);
}

std::string FormatNumber(double value, std::string_view pattern)
{
    if (!std::isfinite(value)) value = 0.0;
    return FormatDecimal(RoundedDecimal(std::fabs(value), DecimalPlaces(Sections(pattern).first)), value < 0.0,
                         pattern);
}

std::string FormatDegMin(double x, std::string_view pattern)
{
    if (!std::isfinite(x)) x = 0.0;
    const std::string_view section = Sections(pattern).first;
    Decimal packed = RoundedDecimal(std::fabs(DegToDM(x)) * 100.0, DecimalPlaces(section));
    // Whole digits are degrees and two digits of minutes, and the minutes may have been rounded to 60.
    long whole = packed.whole.empty() ? 0 : std::strtol(packed.whole.c_str(), nullptr, 10);
    if (whole % 100 >= 60) whole += 40;
    if (section.starts_with("000°") && whole >= 36000) whole -= 36000;
    packed.whole = whole == 0 ? "" : std::to_string(whole);
    return FormatDecimal(packed, x < 0.0, pattern);
}

std::string FormatLat(double x)
{
    return FormatDegMin(std::fabs(x), "00°00'.0") + (x < 0.0 ? " S" : " N");
}

std::string FormatLong(double x)
{
    if (x < -180.0 || x > 360.0) x = NormalizeLongitude(x);
    if (x > 180.0) return FormatDegMin(360.0 - x, "000°00'.0") + " W";
    return FormatDegMin(std::fabs(x), "000°00'.0") + (x < 0.0 ? " W" : " E");
}

std::size_t CountCharacters(std::string_view text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

std::string_view TrimBlanks(std::string_view text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string WithSeparator(std::string_view layout)
{
    std::string text(layout);
    const std::size_t place = text.find('s');
    if (place != std::string::npos) text.replace(place, 1, DecimalSeparator());
    return text;
}

std::string PadPrompt(std::string_view text, std::size_t width)
{
    const std::size_t length = CountCharacters(text);
    return std::string(length < width ? width - length : 0, '_') + std::string(text);
}

} // namespace merov::numeric
