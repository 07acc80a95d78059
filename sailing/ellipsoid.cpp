#include "sailing/ellipsoid.h"

#include "numeric/fault.h"
#include "numeric/inout_lib.h"
#include "numeric/math_lib.h"

#include <array>
#include <cassert>
#include <charconv>
#include <cmath>
#include <string_view>

namespace merov::sailing
{
namespace
{

constexpr double MetresPerMile = 1852.0;
constexpr std::size_t WholeDigits = 3; // of an inverse flattening in a list text
constexpr std::size_t DecimalDigits = 12;

struct Row {
    std::string_view Head;   // list text up to the whole part of the inverse flattening
    std::string_view Digits; // its decimals; none for the sphere
    int Code;                // (semi-major axis in metres - 6300000) * 10000
};

// Axes as in the handbooks (Snyder, Map Projections: A Working Manual, USGS 1987, table 1; DMA TR
// 8350.2). An inverse flattening is a / (a - b) with the semi-minor axis b to the micrometre, which is
// why its last digits differ from the rounder published ones.
constexpr std::array<Row, EllipsoidCount> Rows{{
    {"Airy 1830 - 1/299", "324975315032", 775633960},
    {"Australian Nat. 1965 - 1/298", "249997276159", 781600000},
    {"Bessel 1841 - 1/299", "152813106079", 773971550},
    {"Clarke 1866 - 1/294", "978698213901", 782064000},
    {"Clarke 1880 - 1/293", "465000003029", 782491450},
    {"Everest 1830 - 1/300", "801699438499", 772763452},
    {"GRS 1980 - 1/298", "257222096042", 781370000},
    {"Hough - 1/297", "000000617588", 782700000},
    {"International 1924 - 1/297", "000000028402", 783880000},
    {"Krassovsky 1940 - 1/298", "300000376016", 782450000},
    {"Mercury 1960 - 1/298", "300000821622", 781660000},
    {"Modified Airy - 1/299", "324965463531", 773401890},
    {"Modified Everest - 1/300", "801700097121", 773040630},
    {"Modified Mercury 1968 - 1/298", "300000817750", 781500000},
    {"New Internat. 1967 - 1/298", "249615390012", 781575000},
    {"Normal Sphere - 0", "", 667070190},
    {"Southeast Asia - 1/298", "300000240870", 781550000},
    {"WGS 1966 - 1/298", "249998149523", 781450000},
    {"WGS 1972 - 1/298", "259998589995", 781350000},
    {"WGS 1984 - 1/298", "257223560493", 781370000},
}};

const Row& RowAt(int index)
{
    assert(index >= 0 && index < EllipsoidCount);
    return Rows[static_cast<std::size_t>(index)];
}

// The number in the last 16 characters of a list text: 3 digits, the separator in force, 12 digits.
double ReadInverseFlattening(std::string_view text)
{
    const std::size_t separator = numeric::DecimalSeparator().size(); // one character, one byte or more
    const std::string_view tail = text.substr(text.size() - (WholeDigits + separator + DecimalDigits));
    std::string number(tail.substr(0, WholeDigits));
    number += '.';
    number += tail.substr(WholeDigits + separator);
    double value = 0.0;
    [[maybe_unused]] const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
    assert(read.ec == std::errc() && read.ptr == number.data() + number.size());
    return value;
}

struct Selection {
    int Index = DefaultEllipsoidIndex;
    EarthModel Model = EllipsoidAt(DefaultEllipsoidIndex);
};

Selection& Active()
{
    static Selection active;
    return active;
}

} // namespace

std::string EllipsoidText(int index)
{
    const Row& row = RowAt(index);
    std::string text(row.Head);
    if (!row.Digits.empty()) (text += numeric::DecimalSeparator()) += row.Digits;
    return text;
}

std::string EllipsoidName(int index)
{
    const std::string_view head = RowAt(index).Head;
    return std::string(head.substr(0, head.find('-')));
}

int EllipsoidCode(int index)
{
    return RowAt(index).Code;
}

EarthModel EllipsoidAt(int index)
{
    const std::string text = EllipsoidText(index);
    EarthModel model;
    model.InverseFlattening = text.ends_with("- 0") ? SphereInverseFlattening : ReadInverseFlattening(text);
    model.SemiMajorAxisNm = (EllipsoidCode(index) / 10000.0 + 6300000.0) / MetresPerMile;
    return model;
}

const EarthModel& ActiveEllipsoid()
{
    return Active().Model;
}

int ActiveEllipsoidIndex()
{
    return Active().Index;
}

void SelectEllipsoid(int index)
{
    Active() = {index, EllipsoidAt(index)};
}

double Eccentricity(double r)
{
    const double e = std::sqrt(2.0 / r - (1.0 / r) / r);
    return e < 1e-11 ? 0.0 : e;
}

double MeridionalParts(double latitudeDeg)
{
    constexpr double axis = (21600.0 / 2.0) / numeric::Pi; // minutes of arc in a radian
    constexpr double f = 1.0 / 293.465000003029;           // Clarke 1880
    static const double e = std::sqrt(f + f - f * f);
    static const double e2 = e * e;

    const double phi = latitudeDeg * numeric::DegToRad;
    const double s = std::sin(phi);
    const double s2 = s * s;
    return std::log(10.0) * axis * numeric::Log10(std::tan(phi / 2.0 + numeric::QuarterPi)) - e2 * axis * s -
           (e2 * e2 * axis / 3.0) * s2 * s - (e2 * e2 * e2 * axis / 5.0) * s2 * s2 * s;
}

} // namespace merov::sailing
