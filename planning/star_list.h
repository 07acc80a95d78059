#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The bodies above the horizon at a moment, which of them are best for a fix, and the texts in which a
/// list and a table show them.
///
/// Places and altitudes allocate nothing; texts do. Two faults of arithmetic are possible, at single
/// points that hardly any data meet: a body whose limb stands exactly -4.4 degrees high, and one due east
/// or west on the equator's horizon (fix/nautical_lib.h).

namespace merov::planning
{

/// Where the sky is seen from.
struct Observer {
    double Lat = 0.0;    ///< degrees, -90..90, north positive
    double Long = 0.0;   ///< degrees, -180..360, east positive
    double Height = 0.0; ///< height of eye, metres, 0 or more
};

/// A body as it stands in the sky.
struct ListedBody {
    std::string_view Body;  ///< one of the 66 codes
    double Magnitude = 0.0; ///< apparent visual magnitude
    double Altitude = 0.0;  ///< sextant altitude, degrees
    double Azimuth = 0.0;   ///< degrees, 0 up to 360, clockwise from north
    bool Picked = false;    ///< proposed for a fix, or marked by the user
};

/// What a sextant without errors reads for a geocentric altitude: the corrections of a sight run
/// backwards, semi-diameter, parallax, refraction and dip in this order, for 10 degrees Celsius and
/// 1010 millibars.
///
/// @param hc        altitude of the body's centre from the Earth's centre, degrees, -90..90
/// @param height    height of eye, metres; fault 5 for a negative one
/// @param distance  astronomical units; the Moon's: km / 149565800. 0 is a division by zero, fault 11
/// @param bodyCode  "SUNLOW", "SUNUPP", "MOONLOW" and "MOONUPP" name the limb; others have none
/// @return degrees, altitude of the limb above the visible horizon
///
/// Refraction is Bennett's (fix/nautical_lib.h), here at the altitude without air. So the reduction of what the
/// sextant reads comes back to `hc` within 0.05' from 10 degrees up and 0.5' from 4 degrees up, for the Moon,
/// whose parallax is taken at another altitude too, within 0.55' and 0.9'; at the horizon it is some minutes
/// off. The formula has poles near -4.4 degrees, where the result means nothing.
double SextantAltitude(double hc, double height, double distance, std::string_view bodyCode);

/// A body as the observer sees it, also below the horizon; not picked.
/// @param bodyCode  one of the 66 codes, a text that outlives the result
/// @param instant   date-time, GMT, taken in whole seconds
/// Without its series Saturn's place and magnitude show their boxes (ephemeris/astro_lib.h).
ListedBody ObserveBody(std::string_view bodyCode, const Observer& observer, double instant);

/// Sorts rows ascending by magnitude, by selection: the first smallest of the rows left is exchanged with
/// the row in its place. So rows of equal magnitude don't always keep their order.
void SortByMagnitude(std::span<ListedBody> rows);

/// Picks the rows that are bright enough and well placed for a sextant: magnitude 1.3 or less, altitude 10
/// to 70 degrees, limits included. The others are not picked.
void PickBright(std::span<ListedBody> rows);

/// Of two picked rows that stand less than 3.6 degrees from the same or from opposite azimuths, and so give
/// position lines that run together, drops the fainter one, of equal ones the latter.
void DropSameAzimuths(std::span<ListedBody> rows);

/// The bodies for a star fix.
class StarList
{
public:
    static constexpr int LastRow = 65;

    /// Builds the list for a moment: all bodies but the Sun above the horizon, by magnitude, with those
    /// picked that both filters leave. A fault leaves no list.
    void Build(const Observer& observer, double instant);

    /// Last row in use; 0 while no list has been built.
    int ListLast() const { return count_ > 0 ? count_ - 1 : 0; }

    /// Forgets the list.
    void Clear() { count_ = 0; }

    /// Rows 0..ListLast(), empty while there is none. The user's marks are set in them.
    std::span<ListedBody> Rows() { return {rows_.data(), static_cast<std::size_t>(count_)}; }
    std::span<const ListedBody> Rows() const { return {rows_.data(), static_cast<std::size_t>(count_)}; }

private:
    std::array<ListedBody, LastRow + 1> rows_;
    int count_ = 0;
};

/// All bodies above the horizon, the Sun among them, in the order of the codes, none picked. Arguments as
/// ObserveBody's.
std::vector<ListedBody> VisibleBodies(const Observer& observer, double instant);

/// A line of the list: "-1.6 SIRIUS: 183° / 32°14'".
std::string ListLine(const ListedBody& body);

/// Columns of the table, by their numbers.
enum class StarColumn { Name, Azimuth, Altitude, Magnitude };
constexpr int StarColumnCount = 4;

/// Headers of the table, blanks at their ends included.
constexpr std::array<std::string_view, StarColumnCount> StarHeaders{"Name of the Star  ", "Azimuth  ", "Altitude",
                                                                    "Magn. "};

/// A row of the table, texts by column: "SIRIUS", "183°", "32°14'", "-1.6". A magnitude above 0 has the sign
/// "+", one of exactly 0 a blank; an azimuth of 359.5 degrees or more is "360°".
using StarRow = std::array<std::string, StarColumnCount>;
StarRow TableRow(const ListedBody& body);

/// Sorts rows ascending by the number in their azimuth. Rows of the same number keep their order.
void SortByAzimuth(std::vector<StarRow>& rows);

/// Sorts bodies as their rows in the table are sorted by azimuth: by whole degrees.
void SortByAzimuth(std::vector<ListedBody>& bodies);

/// Sorts rows ascending by columns from left to right: when the magnitude is leftmost by the numbers with
/// which the texts begin (0 for a name, the degrees alone of an altitude), else by the texts, character
/// code by character code, whatever the language. Rows that are the same in all columns keep their order.
/// @param columnsInView  the numbers of the columns as they stand from left to right
void SortByColumns(std::vector<StarRow>& rows, std::span<const int> columnsInView);

} // namespace merov::planning
