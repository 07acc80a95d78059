#include "ephemeris/cosine_series.h"

#include <cassert>
#include <cstdint>
#include <cstring>

// The vectors of this file are an extension of the compilers in use; an operation on them is the same
// operation on each of their four doubles, in the processor's own vectors where it has them.

namespace merov::ephemeris
{

namespace
{

using Four [[gnu::vector_size(32)]] = double;
using FourBits [[gnu::vector_size(32)]] = std::uint64_t;
constexpr int LanesOfFour = 4;

// Vectors go by reference: by value their passing would depend on the processor.
[[gnu::always_inline]] inline void Load(const double* from, Four& vector)
{
    std::memcpy(&vector, from, sizeof vector);
}

/// Replaces each x by its cosine. With k the whole number nearest to x/pi and r = x - k pi,
/// cos x = (-1)^k cos r, and the Taylor series of cos r up to r^18 is within 4e-15 for |r| <= pi/2.
[[gnu::always_inline]] inline void TakeCosine(Four& x)
{
    // Adding 1.5 * 2^52 leaves no place for a fraction: it rounds to a whole number, whose parity
    // stands in the lowest bit.
    constexpr double Rounder = 6755399441055744.0;
    // 1/pi and pi in full precision, the program's own shortened pi being too coarse for thousands of
    // turns. The first part of pi has 35 bits, so that k times it is exact for k below 2^18.
    constexpr double InversePi = 0.31830988618379067;
    constexpr double PiHigh = 0x1.921fb5444p+1;
    constexpr double PiLow = 0x1.68c234c4c6629p-38;

    const Four shifted = x * InversePi + Rounder;
    const Four k = shifted - Rounder;
    const Four r = (x - k * PiHigh) - k * PiLow;
    const Four y = r * r;
    // 1 / (2n)! with alternating sign, n = 9..0
    Four cosine = y * (-1.0 / 6402373705728000.0) + 1.0 / 20922789888000.0;
    cosine = cosine * y + -1.0 / 87178291200.0;
    cosine = cosine * y + 1.0 / 479001600.0;
    cosine = cosine * y + -1.0 / 3628800.0;
    cosine = cosine * y + 1.0 / 40320.0;
    cosine = cosine * y + -1.0 / 720.0;
    cosine = cosine * y + 1.0 / 24.0;
    cosine = cosine * y + -0.5;
    cosine = cosine * y + 1.0;
    // An odd k turns the sign, the highest bit.
    FourBits bits, parity;
    std::memcpy(&bits, &cosine, sizeof bits);
    std::memcpy(&parity, &shifted, sizeof parity);
    bits ^= parity << 63;
    std::memcpy(&x, &bits, sizeof x);
}

[[gnu::always_inline]] inline double SumByGroups(const CosineTerms& terms, double t)
{
    assert(terms.Count % CosineLanes == 0);
    Four sums[CosineLanes / LanesOfFour] = {};
    for (int i = 0; i < terms.Count; i += CosineLanes) {
        for (int half = 0; half < CosineLanes / LanesOfFour; ++half) {
            const int first = i + half * LanesOfFour;
            Four amplitude, argument, frequency;
            Load(terms.B + first, argument);
            Load(terms.C + first, frequency);
            argument += frequency * t;
            TakeCosine(argument);
            Load(terms.A + first, amplitude);
            sums[half] += amplitude * argument;
        }
    }
    const Four sum = sums[0] + sums[1];
    return (sum[0] + sum[1]) + (sum[2] + sum[3]);
}

#if defined(__x86_64__)
[[gnu::target("avx2")]] double SumWide(const CosineTerms& terms, double t)
{
    return SumByGroups(terms, t);
}
#endif

using Summation = double (*)(const CosineTerms&, double);

Summation WidestSummation()
{
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2")) return SumWide;
#endif
    return SumCosineSeriesPortable;
}

} // namespace

double SumCosineSeriesPortable(const CosineTerms& terms, double t)
{
    return SumByGroups(terms, t);
}

double SumCosineSeries(const CosineTerms& terms, double t)
{
    static const Summation Sum = WidestSummation();
    return Sum(terms, t);
}

} // namespace merov::ephemeris
