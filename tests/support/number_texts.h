#pragma once

#include "ephemeris/time_lib.h"
#include "fix/entry_rules.h"
#include "fix/entry_twins.h"
#include "fix/observation_file.h"
#include "numeric/fault.h"
#include "numeric/inout_lib.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <string>
#include <string_view>

/// What must hold for any bytes that come as the text of a number, an angle, a date or an entry; the fuzz target and
/// the replay of its finds share it. Each check gives what is wrong, empty when all holds.

namespace merov::test
{

constexpr auto LastEntryField = fix::EntryField::Variation;

inline std::string Wrong(std::string_view rule, std::string_view text)
{
    return std::string(rule) + ": \"" + std::string(text) + "\"";
}

/// The parsers give a number, within its range for what the mask of a position holds, or one of their codes.
inline std::string CheckParsers(std::string_view text)
{
    const auto good = [](double value, double low, double high) {
        return (value >= low && value <= high) || value == 997.0 || value == 998.0 || value == 999.0;
    };
    const bool latitude = fix::FitToMask(fix::EntryField::Latitude, text).has_value();
    const bool longitude = fix::FitToMask(fix::EntryField::Longitude, text).has_value();
    const double wide = 1e3; // for other texts
    if (!good(numeric::ParseLat(text), latitude ? -90 : -wide, latitude ? 90 : wide) ||
        !good(numeric::ParseLong(text, false), longitude ? -180 : -wide, longitude ? 180 : wide) ||
        !good(numeric::ParseLong(text, true), longitude ? 0 : -wide, longitude ? 360 : wide) ||
        !good(numeric::ParseCourse(text), 0, 360))
        return Wrong("an angle is out of its range", text);
    const double least = numeric::ParseUnsigned(text);
    if (!(least >= 0.0 || least == -1.0) || !std::isfinite(least + numeric::ParseNumber(text)))
        return Wrong("a number is none", text);
    return {};
}

/// What an entry takes, it takes again from its own text, as the same value; and a load of that value shows it to
/// the field's last place.
inline std::string CheckEntryRule(fix::EntryField field, std::string_view text)
{
    const fix::EntryResult first = fix::CheckEntry(field, text);
    const std::string name(fix::ControlName(field));
    const bool refused = first.Verdict == fix::EntryVerdict::Refused;
    if (refused != (first.Box && first.Value == 0.0)) return Wrong(name + " refuses without a box", text);
    if (refused || first.Verdict == fix::EntryVerdict::Empty) return {};
    if (fix::FitToMask(field, first.Text) != first.Text) return Wrong(name + " shows what it cannot hold", text);
    const fix::EntryResult again = fix::CheckEntry(field, first.Text);
    if (again.Verdict != first.Verdict || again.Value != first.Value || again.Text != first.Text)
        return Wrong(name + " reads its own text otherwise", text);
    if (static_cast<std::size_t>(field) >= fix::EntryFieldCount) return {};
    const fix::EntryResult loaded = fix::CheckValue(field, first.Value);
    const bool position = field == fix::EntryField::Latitude || field == fix::EntryField::Longitude;
    if (loaded.Verdict == fix::EntryVerdict::Refused ||
        std::fabs(loaded.Value - first.Value) > (position ? 0.0 : 0.501))
        return Wrong(name + " refuses or moves its own value", text);
    if (const auto twin = fix::TwinOf(field, first.Value); twin && !std::isfinite(twin->Value))
        return Wrong(name + " gives its twin no number", text);
    return {};
}

/// The cells of the grid: what is taken is shown so that it reads the same, a correction to the two decimals of its
/// column.
inline std::string CheckCells(std::string_view text)
{
    const fix::EntryResult altitude = fix::CheckAltitudeCell(text);
    if (altitude.Verdict == fix::EntryVerdict::Valid && fix::ReadAltitudeCell(altitude.Text) != altitude.Value)
        return Wrong("an altitude changes", text);
    const fix::EntryResult correction = fix::CheckCorrectionCell(text);
    if (correction.Verdict == fix::EntryVerdict::Empty) return {};
    const auto read = fix::ReadCorrectionCell(correction.Text);
    if (!read || !(std::fabs(*read - correction.Value) < 0.00501)) return Wrong("a correction changes", text);
    return {};
}

/// A date that is read is shown in texts that give it again.
inline std::string CheckDate(std::string_view text)
{
    const auto time = ephemeris::ParseDateTime(text);
    if (!time) return ephemeris::ParseIsoDateTime(text) ? Wrong("a date of files is none", text) : std::string();
    const std::string shown = ephemeris::FormatDateTime(*time, fix::GridTimePicture);
    if (ephemeris::ParseDateTime(shown) != time) return Wrong("a date changes to " + shown, text);
    if (ephemeris::ParseIsoDateTime(ephemeris::FormatIsoDateTime(*time)) != time)
        return Wrong("a date changes in files", text);
    return {};
}

/// Texts of any number: minutes below 60, and what is shown reads as the number to the last place.
inline std::string CheckNumber(double x)
{
    const std::string text = fix::FileNumber(std::isfinite(x) ? x : 0.0);
    if (std::isfinite(x) && std::fabs(x) < 1e300 && std::fabs(x) > 1e-300) {
        double read = 0.0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), read);
        if (error != std::errc() || end != text.data() + text.size() || !(std::fabs(read - x) <= 1e-14 * std::fabs(x)))
            return Wrong("a number of files changes", text);
    }
    for (const char* pattern : {"000.0", "##0.0", "+00.00;-00.00", "0000", "##0"})
        if (const std::string shown = numeric::FormatNumber(x, pattern);
            std::fabs(x) < 1e9 && !(std::fabs(numeric::ParseNumber(shown) - x) < 0.501))
            return Wrong("a pattern shows " + shown + " for", text);
    if (!(std::fabs(x) <= 1e6)) return {};
    const double latitude = std::remainder(x, 180.0);
    const std::string angles[] = {numeric::FormatLat(latitude), numeric::FormatLong(x),
                                  numeric::FormatDegMin(latitude, "+0°00'.0;-0°00'.0"), fix::AltitudeCellText(x)};
    for (const std::string& angle : angles)
        if (angle.find("°6") != std::string::npos) return Wrong(angle + " has 60 minutes or more", text);
    constexpr double HalfPlace = 0.0501 / 60.0;
    if (!(std::fabs(numeric::ParseLat(angles[0]) - latitude) < HalfPlace) ||
        !(std::fabs(std::remainder(numeric::ParseLong(angles[1], false) - x, 360.0)) < HalfPlace))
        return Wrong("a position changes", text);
    return {};
}

/// Times by their number: shown and read to the second, or refused by a fault.
inline std::string CheckTime(double x)
{
    try {
        const auto read = ephemeris::ParseDateTime(ephemeris::FormatDateTime(x, fix::GridTimePicture));
        if (!read || !(std::fabs(*read - x) < 0.501 / 86400.0)) return Wrong("a time changes", fix::FileNumber(x));
    } catch (const numeric::Fault&) {
        if (x >= -657434.0 && x < 2958465.0) return Wrong("a time is refused", fix::FileNumber(x));
    }
    return {};
}

/// All of it, with three separators; the first bytes also count as a number and as a time.
inline std::string CheckNumberTexts(std::string_view bytes)
{
    double x = 0.0;
    std::memcpy(&x, bytes.data(), std::min(bytes.size(), sizeof x));
    std::string wrong;
    const auto add = [&wrong](const std::string& what) {
        if (wrong.empty()) wrong = what;
    };
    for (const char* separator : {".", ",", "\u066B"}) {
        numeric::SetDecimalSeparator(separator);
        add(CheckParsers(bytes));
        add(CheckCells(bytes));
        add(CheckNumber(x));
        for (int field = 0; field <= static_cast<int>(LastEntryField); ++field)
            if (fix::EntryField{field} != fix::EntryField::CellAltitude &&
                fix::EntryField{field} != fix::EntryField::CellCorrection)
                add(CheckEntryRule(fix::EntryField{field}, bytes));
    }
    numeric::SetDecimalSeparator(".");
    add(CheckDate(bytes));
    add(CheckTime(x));
    return wrong;
}

} // namespace merov::test
