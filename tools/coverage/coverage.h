#pragma once

#include <array>
#include <cstdint>
#include <vector>

/// How often the true position lies in the ellipse and in the circle that a fix reports, by simulation: ships at
/// random places take sights of random stars with normal errors, the program fixes them, and the fix is held to
/// the truth. The same seed gives the same figures on every machine: the generator and the normal transform are
/// fixed, and the altitudes are read to a tenth of a minute, as from a sextant.

namespace merov::coverage
{

/// The probabilities that the program offers.
constexpr std::array<double, 4> Probabilities{0.5, 0.95, 0.99, 0.999};

/// What is wrong with the sights, minutes of arc, and what the fix is told to look for.
struct Errors {
    double Sigma = 1.0;    ///< standard deviation of the normal error of each altitude
    double GrossLow = 0.0; ///< one sight of a fix is off by GrossLow..GrossHigh, either way; 0 for none
    double GrossHigh = 0.0;
    double Systematic = 0.0; ///< all altitudes are read too high by this
    bool FindSystErr = true;
};

/// What came of the fixes of one case.
struct Tally {
    int Trials = 0;
    std::array<int, 4> InEllipse{}; ///< by probability
    std::array<int, 4> InCircle{};  ///< latitudes and longitudes counted in minutes alike, as the radius is
    std::array<int, 4> InMiles{};   ///< the radius taken for miles on the chart
    int Exact = 0;                  ///< fixes whose deviations are 0, which counts as outside
    int Messages = 0;               ///< fixes that showed a box
    double FarthestSilent = 0.0;    ///< miles off, the largest of the fixes without a box
    int GrossNamed = 0;             ///< fixes in which the sight with the gross error has the lowest weight
    std::vector<double> Miles;      ///< from the true position to the fix, ascending

    friend bool operator==(const Tally&, const Tally&) = default;
};

/// Simulates `trials` fixes of `sights` stars (3..12), 15 to 70 degrees high and as well spread around the horizon
/// as the sky allows from a first one drawn at random; two minutes from sight to sight; latitudes up to 60 degrees,
/// the estimated position up to ten minutes of arc off.
/// The boxes of the fixes are counted and go no further.
Tally Simulate(const Errors& errors, int sights, int trials, std::uint64_t seed);

/// The value below which the part `p` (0..1) of ascending `values` lies; at least one value.
double QuantileOf(const std::vector<double>& values, double p);

/// The 95 % interval of a probability that showed in `hits` of `trials` (1 or more): Wilson's score interval,
/// Journal of the American Statistical Association 22, 209, 1927.
struct Interval {
    double Low, High;
};
Interval WilsonInterval(int hits, int trials);

/// The coverage that theory gives to the ellipse of a plain least-squares fix without systematic error, whose
/// lines are evenly spread and whose scale comes from its own residuals: the F distribution with 2 and sights - 2
/// degrees of freedom at half the factor of the ellipse.
double PlainCoverage(double probability, int sights);

} // namespace merov::coverage
