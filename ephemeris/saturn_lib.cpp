#include "ephemeris/saturn_lib.h"

#include "numeric/math_lib.h"

#include <bit>
#include <cerrno>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <numeric>
#include <system_error>
#include <vector>

namespace merov::ephemeris
{

namespace
{

constexpr int FloatsOfTerm = 3;
constexpr std::size_t BytesOfFloat = 8;
constexpr std::size_t FileSize =
    std::accumulate(SaturnBlockTerms.begin(), SaturnBlockTerms.end(), std::size_t{0}) * FloatsOfTerm * BytesOfFloat;

/// Reads the first `bytes.size()` bytes of a file; gives the error number, 0 when all were read.
/// `found` tells whether there is such a file.
int ReadBytes(const std::filesystem::path& path, std::vector<unsigned char>& bytes, bool& found)
{
    errno = 0;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.string().c_str(), "rb"), std::fclose);
    found = file != nullptr || errno != ENOENT;
    if (file == nullptr) return errno != 0 ? errno : EIO;
    errno = 0;
    if (std::fread(bytes.data(), 1, bytes.size(), file.get()) == bytes.size()) return 0;
    // The end of the file came before that of the last block.
    if (std::feof(file.get()) != 0) return ENODATA;
    return errno != 0 ? errno : EIO;
}

double LittleEndianDouble(const unsigned char* bytes)
{
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < BytesOfFloat; ++i)
        bits |= std::uint64_t{bytes[i]} << (8 * i);
    return std::bit_cast<double>(bits);
}

/// The file in force.
std::filesystem::path& SaturnFile()
{
    static std::filesystem::path file = "Planet.dat";
    return file;
}

} // namespace

numeric::Box SaturnFileBox(const std::string& file, int error)
{
    std::vector<std::string> lines;
    switch (error) {
    case EINVAL: // a name that no file can have
    case ENAMETOOLONG:
    case ENOTDIR:
    case ELOOP:
        lines = {"Saturn file specification invalid:", file + "."};
        break;
    case ENODEV: // a drive that isn't there
    case ENXIO:
        lines = {"The drive specified is not found:", file + "."};
        break;
    case EBUSY: // a drive without a medium, or one that is just being changed
#ifdef ENOMEDIUM
    case ENOMEDIUM:
#endif
        lines = {"Close the disk drive door and try again."};
        break;
    default:
        lines = {"An error occured during file access:", file + ".", "Please report the following error:",
                 "Error " + std::to_string(error) + ": " +
                     (error == 0 ? std::string() : std::generic_category().message(error))};
    }
    return {" Saturn data file access error", lines, numeric::BoxIcon::Warning, numeric::BoxButtons::Ok};
}

bool SaturnSeries::Read(const std::filesystem::path& file)
{
    // All bytes first: a file that fails half way must leave no half-filled series.
    std::vector<unsigned char> bytes(FileSize);
    bool found = false;
    const int error = ReadBytes(file, bytes, found);
    if (error != 0) {
        numeric::ShowBox(SaturnFileBox(file.string(), found ? error : 0));
        return false;
    }
    const unsigned char* place = bytes.data();
    std::size_t start = 0;
    for (const int terms : SaturnBlockTerms) {
        for (std::size_t i = start; i < start + static_cast<std::size_t>(terms); ++i) {
            a_[i] = LittleEndianDouble(place);
            b_[i] = LittleEndianDouble(place + BytesOfFloat);
            c_[i] = LittleEndianDouble(place + 2 * BytesOfFloat);
            place += FloatsOfTerm * BytesOfFloat;
        }
        start += static_cast<std::size_t>(SaturnBlockPlaces(terms));
    }
    return true;
}

double SaturnSeries::SumCoordinate(int& block, int& start, double tau) const
{
    double sum = 0.0;
    double power = 1.0;
    for (int p = 0; p <= 5; ++p) {
        const int count = SaturnBlockPlaces(SaturnBlockTerms[static_cast<std::size_t>(block)]);
        sum += SumCosineSeries({a_.data() + start, b_.data() + start, c_.data() + start, count}, tau) * power;
        power *= tau;
        start += count;
        ++block;
    }
    return sum;
}

void SaturnSeries::Heliocentric(double T, double& Latitude, double& Longitude, double& Radius) const
{
    const double tau = T / 10.0;
    int block = 0;
    int start = 0;
    const double L = SumCoordinate(block, start, tau);
    const double B = SumCoordinate(block, start, tau);
    Radius = SumCoordinate(block, start, tau);

    // From the dynamical frame of the series to the FK5 (J. Meeus, Astronomical Algorithms, chapter
    // 31): 1.397 and 0.00031 degrees, here in radians.
    const double shifted = L - 0.02438224965035463 * T - 5.410520681181056e-06 * T * T;
    const double sine = std::sin(shifted);
    const double cosine = std::cos(shifted);
    const double latitudeShift = (cosine - sine) * 0.03916 / 3600.0;
    const double longitudeShift = ((sine + cosine) * 0.03916 * std::tan(B) - 0.09033) / 3600.0;
    Latitude = (B + latitudeShift * numeric::DegToRad) * numeric::RadToDeg;
    Longitude = (L + longitudeShift * numeric::DegToRad) * numeric::RadToDeg;
}

void SetSaturnFile(const std::filesystem::path& file)
{
    SaturnFile() = file;
}

void SaturnHeliocentric(double T, double& Latitude, double& Longitude, double& Radius)
{
    static SaturnSeries series;
    if (!series.IsRead() && !series.Read(SaturnFile())) {
        Latitude = 0.0;
        Longitude = 0.0;
        Radius = 1e-11;
        return;
    }
    series.Heliocentric(T, Latitude, Longitude, Radius);
}

} // namespace merov::ephemeris
