#pragma once

#include "ephemeris/cosine_series.h"
#include "numeric/message_box.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <string>

/// Saturn from its series: VSOP87D of P. Bretagnon and G. Francou (A&A 202, 309, 1988), heliocentric
/// ecliptic coordinates of the date, the first terms of each sum.

namespace merov::ephemeris
{

/// Terms of the blocks of the series file: L0..L5, B0..B5, R0..R5.
constexpr std::array<int, 18> SaturnBlockTerms{500, 350, 321, 148, 68,  27,  300, 260, 111,
                                               58,  26,  11,  500, 350, 342, 157, 64,  28};

/// Places that a block takes in memory: its terms in whole groups of lanes.
constexpr int SaturnBlockPlaces(int terms)
{
    return (terms + CosineLanes - 1) / CosineLanes * CosineLanes;
}

/// Places that all blocks take.
constexpr std::size_t SaturnPlaces = [] {
    int places = 0;
    for (const int terms : SaturnBlockTerms)
        places += SaturnBlockPlaces(terms);
    return static_cast<std::size_t>(places);
}();

/// The series of Saturn in memory, unread until a file has been read.
///
/// The file holds little-endian 64-bit floats without any marks: 18 blocks of terms, each term the three
/// floats A, B, C of A cos(B + C tau), tau being thousands of Julian years from J2000.0. Blocks L0..L5 are
/// the factors of tau^0..tau^5 of the longitude, B0..B5 of the latitude (A in radians), R0..R5 of the
/// radius vector (A in astronomical units). What follows behind the last block is not looked at.
class SaturnSeries
{
public:
    /// True once a file has been read whose first float is not 0.
    bool IsRead() const { return a_[0] != 0.0; }

    /// Reads all blocks of `file`. A failure, a file that is too short included, shows the box of
    /// SaturnFileBox, leaves the series as they were and gives false.
    bool Read(const std::filesystem::path& file);

    /// Heliocentric place for the mean ecliptic and equinox of date, in the FK5 frame.
    /// @param T          Julian centuries from J2000.0; the series are meant for -20 to 40
    /// @param Latitude   out: degrees
    /// @param Longitude  out: degrees, not reduced to one turn
    /// @param Radius     out: astronomical units
    void Heliocentric(double T, double& Latitude, double& Longitude, double& Radius) const;

private:
    using Column = std::array<double, SaturnPlaces>;

    /// The polynomial in tau whose coefficients are the sums of the six blocks from `block` on, which
    /// begin at term `start` of the columns; both are moved behind them.
    double SumCoordinate(int& block, int& start, double tau) const;

    // The terms of all blocks by columns, each block filled up with zeros to whole groups.
    alignas(64) Column a_{};
    alignas(64) Column b_{};
    alignas(64) Column c_{};
};

/// The box that tells of a failure with the series file.
/// @param file   the file's full path
/// @param error  error number (errno) of the failure, 0 for a file that doesn't exist
numeric::Box SaturnFileBox(const std::string& file, int error);

/// The file that SaturnHeliocentric reads. Set at start-up; it has no effect once a file has been read.
void SetSaturnFile(const std::filesystem::path& file);

/// Saturn's heliocentric place by the series of the file set with SetSaturnFile, which is read at the
/// first call that finds it and kept for the rest of the run; arguments as SaturnSeries::Heliocentric.
/// As long as the file cannot be read, each call shows its box and gives latitude and longitude 0 and a
/// radius of 1e-11, which is not 0 since the reduction divides by it. Allocates nothing once read.
void SaturnHeliocentric(double T, double& Latitude, double& Longitude, double& Radius);

} // namespace merov::ephemeris
