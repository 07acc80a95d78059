#pragma once

#include "numeric/math_lib.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace merov::ephemeris
{

/// Cosine and sine of an angle. A product belongs to the sum of the two angles.
struct Phase {
    double Cos = 1.0;
    double Sin = 0.0;
};

/// The phase of an angle in degrees.
inline Phase PhaseOf(double degrees)
{
    const double angle = degrees * numeric::DegToRad;
    return {std::cos(angle), std::sin(angle)};
}

/// The phase of the sum of two angles, by the addition theorems.
constexpr Phase operator*(const Phase& a, const Phase& b)
{
    return {a.Cos * b.Cos - a.Sin * b.Sin, a.Sin * b.Cos + a.Cos * b.Sin};
}

/// The phase of the opposite angle.
constexpr Phase Opposite(const Phase& a)
{
    return {a.Cos, -a.Sin};
}

/// The phases of the whole multiples Lowest..Highest of one angle, Lowest <= 0 <= Highest, from one
/// sine and one cosine. Series in multiples of a few arguments need no further sine. Each multiple is
/// good to about 1e-16 times its number.
template <int Lowest, int Highest>
class AngleMultiples
{
    static_assert(Lowest <= 0 && Highest >= 1 && -Lowest <= Highest);

public:
    /// @param degrees  the angle; a series whose terms are to keep their last digits brings it to 0..360
    explicit AngleMultiples(double degrees)
    {
        At(0) = {};
        At(1) = PhaseOf(degrees);
        for (int k = 2; k <= Highest; ++k)
            At(k) = At(k / 2) * At(k - k / 2);
        for (int k = 1; k <= -Lowest; ++k)
            At(-k) = Opposite(At(k));
    }

    /// The phase of k times the angle, k in Lowest..Highest.
    const Phase& operator[](int k) const { return phases_[static_cast<std::size_t>(k - Lowest)]; }

private:
    Phase& At(int k) { return phases_[static_cast<std::size_t>(k - Lowest)]; }

    std::array<Phase, static_cast<std::size_t>(Highest - Lowest + 1)> phases_;
};

/// The different keys among those of a table's rows, found at compile time: products that several rows
/// of a series share are formed once.
template <class Key, std::size_t Rows>
struct DistinctKeys {
    std::array<Key, Rows> Keys{}; ///< the first Count of them
    std::size_t Count = 0;
    std::array<std::uint8_t, Rows> IndexOf{}; ///< for each row the place of its key

    constexpr explicit DistinctKeys(const std::array<Key, Rows>& keysOfRows)
    {
        static_assert(Rows <= 255);
        for (std::size_t row = 0; row < Rows; ++row) {
            std::size_t place = 0;
            while (place < Count && Keys[place] != keysOfRows[row])
                ++place;
            if (place == Count) Keys[Count++] = keysOfRows[row];
            IndexOf[row] = static_cast<std::uint8_t>(place);
        }
    }
};

} // namespace merov::ephemeris
