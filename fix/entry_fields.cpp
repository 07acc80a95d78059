#include "fix/entry_fields.h"

#include "numeric/inout_lib.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace merov::fix
{
namespace
{

/// One field. In masks and blank texts "s" is the place of the decimal separator.
struct FieldLayout {
    std::string_view Control;
    std::string_view Name; ///< as messages call its content
    std::string_view Mask;
    std::string_view Blank;
};

/// By EntryField.
constexpr std::array<FieldLayout, static_cast<std::size_t>(EntryField::Variation) + 1> Layouts = {{
    {"mskLat(5)", "latitude", "9#°##'s# ?", "__°__'s_ _"},
    {"mskLong(5)", "longitude", "99#°##'s# ?", "___°__'s_ _"},
    {"mskCourse(0)", "course", "99#°s#", "___°s_"},
    {"mskSpeed", "speed", "###s#", "___s_"},
    {"mskHeightM", "eye height", "##s#", "__s_"},
    {"mskHeightF", "eye height", "###s#", "___s_"},
    {"mskInstErr(0)", "instrumental correction", "99#s##", "___s__"},
    {"mskTempCelcius(0)", "temperature", "&&#", "_20"},
    {"mskTempFahr(0)", "temperature", "&&#", "_68"},
    {"mskTempCelcius(1)", "temperature", "&&#", "_20"},
    {"mskTempFahr(1)", "temperature", "&&#", "_68"},
    {"mskPress_mBars", "atmospheric pressure", "####", "1013"},
    {"mskPressHg", "atmospheric pressure", "##s##", "29s91"},
    {"mskHeightInst", "altitude", "9#°##'s#", "__°__'s_"},
    {"mskInstErr(1)", "instrumental correction", "99#s##", "___s__"},
    {"mskLat(4)", "maximum latitude", "9#°##'", "__°__'"},
    {"mskLong(4)", "longitude interval", "9#°#0'", "__°_0'"},
    {"mskCourse(1)", "course", "99#°s#", "___°s_"},
    {"mskDist", "distance", "#####s##", "_____s__"},
    {"mskCourse", "bearing or heading", "99#°s#", "___°s_"},
    {"mskVariation", "magnetic variation", "99#°s#", "___°s_"},
}};

// Positions of keys that are mapped.
constexpr int LatitudeHemisphere = 9;
constexpr int LongitudeHemisphere = 10;
constexpr int AltitudeFirstDigit = 0;
constexpr int AltitudeFirstMinute = 3;

const FieldLayout& LayoutOf(EntryField field)
{
    return Layouts[static_cast<std::size_t>(field)];
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsAngle(EntryField field)
{
    return field == EntryField::Latitude || field == EntryField::Longitude || field == EntryField::CellAltitude ||
           field == EntryField::MaxLatitude || field == EntryField::LongInterval;
}

/// True when a place of a mask holds `c`, a character of one byte.
bool PlaceTakes(char place, char c, bool signs)
{
    switch (place) {
    case '#':
        return IsDigit(c) || c == '_';
    case '9':
        return IsDigit(c) || c == '_' || (signs && (c == '+' || c == '-'));
    case '?':
        return c == '_' || std::isalpha(static_cast<unsigned char>(c)) != 0;
    case '&':
        return static_cast<unsigned char>(c) < 0x80;
    default:
        return place == c;
    }
}

} // namespace

std::string_view ControlName(EntryField field)
{
    return LayoutOf(field).Control;
}

std::string_view EntryName(EntryField field)
{
    return LayoutOf(field).Name;
}

std::string EntryMask(EntryField field)
{
    return numeric::WithSeparator(LayoutOf(field).Mask);
}

std::string EntryBlank(EntryField field)
{
    return numeric::WithSeparator(LayoutOf(field).Blank);
}

bool HasDigit(EntryField field, std::string_view text)
{
    const std::string_view mask = LayoutOf(field).Mask;
    return std::count_if(text.begin(), text.end(), IsDigit) > std::count(mask.begin(), mask.end(), '0');
}

std::optional<std::string> FitToMask(EntryField field, std::string_view text)
{
    const std::string_view mask = LayoutOf(field).Mask;
    const std::string padded = numeric::PadPrompt(text, numeric::CountCharacters(mask));
    const std::string& separator = numeric::DecimalSeparator();
    std::string_view rest = padded;
    std::string fitted;
    for (const char place : mask) {
        if (rest.empty()) return std::nullopt;
        std::size_t taken = 1;
        if (place == 's') {
            if (rest.starts_with(separator))
                taken = separator.size();
            else if (rest.front() != '.' && rest.front() != ',')
                return std::nullopt;
            fitted += separator;
        } else {
            if (!PlaceTakes(place, rest.front(), !IsAngle(field))) return std::nullopt;
            fitted += rest.front();
        }
        rest.remove_prefix(taken);
    }
    if (!rest.empty()) return std::nullopt;
    return fitted;
}

char MapKey(EntryField field, int position, char key)
{
    const auto hemisphere = [key](char positive, char negative) {
        const char capital = static_cast<char>(std::toupper(static_cast<unsigned char>(key)));
        if (key == '+' || capital == positive) return positive;
        if (key == '-' || capital == negative) return negative;
        return key;
    };
    if (field == EntryField::Latitude && position == LatitudeHemisphere) return hemisphere('N', 'S');
    if (field == EntryField::Longitude && position == LongitudeHemisphere) return hemisphere('E', 'W');
    if (field != EntryField::CellAltitude) return key;
    const bool dropped =
        (position == AltitudeFirstDigit && key == '9') || (position == AltitudeFirstMinute && key >= '6' && key <= '9');
    return dropped ? '\0' : key;
}

} // namespace merov::fix
