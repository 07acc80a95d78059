#pragma once

#include <QtGlobal>

/// Twips, 1/1440 inch: the unit in which the screens of the program are laid out and its window's place
/// and size are stored. A pixel here is a device-independent one, 96 to the inch; Qt itself turns it into
/// the dots of a screen of higher density.

namespace merov::platform
{

constexpr double TwipsPerPixel = 15.0; // 1440 / 96

/// The nearest whole number of pixels.
inline int Pixels(double twips)
{
    return qRound(twips / TwipsPerPixel);
}

inline double Twips(double pixels)
{
    return pixels * TwipsPerPixel;
}

} // namespace merov::platform
