#pragma once

#include "fix/sight_entry.h"

#include <QColor>

/// The colours that tell what became of an entry. Text on them is black.

namespace merov::app
{

constexpr QColor ValidColour(0, 255, 0);        ///< taken
constexpr QColor SuspiciousColour(255, 128, 0); ///< taken, but hardly what was meant

/// Background of a field; the window colour is an invalid one.
inline QColor ColourOf(fix::FieldColour colour)
{
    switch (colour) {
    case fix::FieldColour::Green:
        return ValidColour;
    case fix::FieldColour::Orange:
        return SuspiciousColour;
    default:
        return {};
    }
}

} // namespace merov::app
