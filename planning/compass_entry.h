#pragma once

#include "fix/entry_rules.h"
#include "fix/sight_entry.h"
#include "planning/compass_check.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace merov::planning
{

/// The masked fields of the check of the compasses.
enum class CompassField { Latitude, Longitude, GyroBearing, GyroHeading, CompassHeading, Variation };
constexpr std::size_t CompassFieldCount = 6;

/// The entry rule of a field.
fix::EntryField RuleOf(CompassField field);

/// Name of its control, such as "mskCourse(0)".
std::string ControlName(CompassField field);

/// The masked entries of the check of the compasses as a screen shows them, and what happens as they are
/// left and erased. Boxes go through the box port. All are blank at first; the variation counts west.
class CompassEntry
{
public:
    CompassEntry();

    const std::string& Text(CompassField field) const { return texts_[Index(field)]; }
    fix::FieldColour Colour(CompassField field) const { return colours_[Index(field)]; }

    /// What counts, degrees, north and east positive; 0 until entered.
    double Value(CompassField field) const { return values_[Index(field)]; }
    CompassReadings Readings() const;

    /// The text of a field changes: it is being entered.
    void SetText(CompassField field, std::string_view text);

    /// A field takes the focus: window colour.
    void EnterField(CompassField field);

    /// A field is left: its rule runs on its text. A valid one counts; a refused one brings its box and keeps
    /// its value. An empty reading or variation keeps its value too, an empty position is 0, as if erased.
    fix::EntryVerdict LeaveField(CompassField field);

    /// Erases an entry, or all: blank text with the decimal separator in force, value 0. The sign of the
    /// variation stays as it is chosen.
    void EraseField(CompassField field);
    void EraseAll();

    /// True while the variation counts east.
    bool VariationEast() const { return east_; }

    /// Chooses the sign of the variation, also of the one that has been entered.
    void SetVariationEast(bool east);

    /// True when both fields of the position are filled; else a box asks for them.
    bool CheckPosition() const;

    /// Asks whether the position 0, 0 is meant, where that is what counts. True: go on.
    bool ConfirmPosition() const;

    /// The variation's text, without its sign, as a computation has taken it.
    void ShowVariation();

private:
    static std::size_t Index(CompassField field) { return static_cast<std::size_t>(field); }

    std::array<std::string, CompassFieldCount> texts_;
    std::array<fix::FieldColour, CompassFieldCount> colours_{};
    std::array<double, CompassFieldCount> values_{};
    bool east_ = false;
};

} // namespace merov::planning
