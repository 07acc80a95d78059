#pragma once

#include "fix/sight_entry.h"

#include <QColor>

/// The colours that tell what became of an entry. Text on them is black.

namespace merov::app
{

constexpr QColor ValidColour(0, 255, 0);        ///< taken
constexpr QColor SuspiciousColour(255, 128, 0); ///< taken, but hardly what was meant
constexpr QColor ResultColour(255, 255, 0);     ///< computed, in a field that could be entered too

/// Background of a field; the window colour is an invalid one.
inline QColor ColourOf(fix::FieldColour colour)
{
    switch (colour) {
    case fix::FieldColour::Green:
        return ValidColour;
    case fix::FieldColour::Orange:
        return SuspiciousColour;
    case fix::FieldColour::Yellow:
        return ResultColour;
    default:
        return {};
    }
}

} // namespace merov::app
