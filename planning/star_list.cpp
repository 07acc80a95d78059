#include "planning/star_list.h"

#include "ephemeris/astro_lib.h"
#include "ephemeris/magnitudes.h"
#include "fix/nautical_lib.h"
#include "numeric/inout_lib.h"
#include "numeric/math_lib.h"

#include <algorithm>
#include <utility>

namespace merov::planning
{
namespace
{

/// Below it a body counts as set, whatever the refraction formula gives near its poles. A centre of that
/// altitude is seen from no height of eye below 5000 metres.
constexpr double LowestCentre = -3.0;

constexpr double DimmestPick = 1.3;
constexpr double LowestPick = 10.0;
constexpr double HighestPick = 70.0;
constexpr double NearAzimuth = 3.6;
constexpr double NotInUse = 999.0; // magnitude of a row that holds no body

bool IsSun(std::string_view bodyCode)
{
    return bodyCode == "SUNLOW" || bodyCode == "SUNUPP";
}

/// Puts the body's place into `row`, all but the magnitude; true when it stands above the visible horizon.
bool Sight(std::string_view bodyCode, const Observer& observer, double instant, ListedBody& row)
{
    ephemeris::BodyPosition position;
    ephemeris::ComputeBodyPosition(bodyCode, instant, position);
    const double hc = fix::ComputedAltitude(observer.Lat, observer.Long, position.Declination, position.GHA);
    row.Body = bodyCode;
    row.Altitude = SextantAltitude(hc, observer.Height, position.Distance, bodyCode);
    row.Azimuth = fix::ComputeAzimuth(observer.Lat, observer.Long, position.GHA, position.Declination);
    row.Picked = false;
    return !(row.Altitude < 0.0) && hc > LowestCentre;
}

/// Calls `take` with each body above the horizon, in the order of the codes.
template <class Taker>
void ForVisible(const Observer& observer, double instant, bool withSun, Taker take)
{
    for (const std::string_view code : ephemeris::BodyCodes()) {
        ListedBody row;
        if ((IsSun(code) && !withSun) || !Sight(code, observer, instant, row)) continue;
        row.Magnitude = ephemeris::ComputeMagnitude(code, instant);
        take(row);
    }
}

/// True when azimuth b lies within the near range of `a`, its limits excluded; `turn` is 180 for the opposite.
bool IsNear(double b, double a, double turn)
{
    return numeric::AngleSide(b, a + (turn - NearAzimuth)) == 1 &&
           numeric::AngleSide(b, a + (turn + NearAzimuth)) == -1;
}

std::string AzimuthText(double azimuth)
{
    return numeric::FormatNumber(azimuth, "000°");
}

std::string AltitudeText(double altitude)
{
    return numeric::FormatDegMin(altitude, "00°00'");
}

std::string MagnitudeText(double magnitude)
{
    return numeric::FormatNumber(magnitude, magnitude == 0.0 ? " 0.0" : "+0.0;-0.0");
}

/// The number with which a text begins, 0 where there is none.
double LeadingNumber(std::string_view text)
{
    const std::string_view number = numeric::TrimBlanks(text);
    return number.starts_with('-') ? -numeric::ParseUnsigned(number.substr(1)) : numeric::ParseUnsigned(number);
}

/// Sorts rows ascending by a number that each is asked for once; those of the same number keep their order.
template <class Row, class Number>
void SortByNumber(std::vector<Row>& rows, Number numberOf)
{
    std::vector<std::pair<double, Row>> numbered;
    numbered.reserve(rows.size());
    for (Row& row : rows) {
        const double number = numberOf(row);
        numbered.emplace_back(number, std::move(row));
    }
    std::ranges::stable_sort(numbered, {}, [](const auto& entry) { return entry.first; });
    std::ranges::transform(numbered, rows.begin(), [](auto& entry) { return std::move(entry.second); });
}

constexpr auto AzimuthColumn = static_cast<std::size_t>(StarColumn::Azimuth);

} // namespace

double SextantAltitude(double hc, double height, double distance, std::string_view bodyCode)
{
    const double a = hc - fix::SemiDiameter(bodyCode, distance);
    const double b = a - fix::Parallax(a, distance);
    return b + fix::MeanRefraction(b) + fix::Dip(height);
}

ListedBody ObserveBody(std::string_view bodyCode, const Observer& observer, double instant)
{
    ListedBody row;
    Sight(bodyCode, observer, instant, row);
    row.Magnitude = ephemeris::ComputeMagnitude(bodyCode, instant);
    return row;
}

void SortByMagnitude(std::span<ListedBody> rows)
{
    for (auto place = rows.begin(); place != rows.end(); ++place)
        std::swap(*place, *std::min_element(place, rows.end(), [](const ListedBody& a, const ListedBody& b) {
            return a.Magnitude < b.Magnitude;
        }));
}

void PickBright(std::span<ListedBody> rows)
{
    for (ListedBody& row : rows)
        row.Picked = row.Magnitude <= DimmestPick && row.Altitude >= LowestPick && row.Altitude <= HighestPick;
}

void DropSameAzimuths(std::span<ListedBody> rows)
{
    for (std::size_t i = 0; i < rows.size(); ++i)
        for (std::size_t j = i + 1; j < rows.size() && rows[i].Picked; ++j) {
            if (!rows[j].Picked) continue;
            if (!IsNear(rows[j].Azimuth, rows[i].Azimuth, 0.0) && !IsNear(rows[j].Azimuth, rows[i].Azimuth, 180.0))
                continue;
            (rows[j].Magnitude < rows[i].Magnitude ? rows[i] : rows[j]).Picked = false;
        }
}

void StarList::Build(const Observer& observer, double instant)
{
    Clear();
    std::size_t count = 0;
    ForVisible(observer, instant, false, [&](const ListedBody& row) { rows_[count++] = row; });
    for (std::size_t i = count; i < rows_.size(); ++i)
        rows_[i].Magnitude = NotInUse;
    SortByMagnitude(rows_);
    count_ = static_cast<int>(count);
    PickBright(Rows());
    DropSameAzimuths(Rows());
}

std::vector<ListedBody> VisibleBodies(const Observer& observer, double instant)
{
    std::vector<ListedBody> bodies;
    ForVisible(observer, instant, true, [&](const ListedBody& row) { bodies.push_back(row); });
    return bodies;
}

std::string ListLine(const ListedBody& body)
{
    return MagnitudeText(body.Magnitude) + " " + std::string(body.Body) + ": " + AzimuthText(body.Azimuth) + " / " +
           AltitudeText(body.Altitude);
}

StarRow TableRow(const ListedBody& body)
{
    return {std::string(body.Body), AzimuthText(body.Azimuth), AltitudeText(body.Altitude),
            MagnitudeText(body.Magnitude)};
}

void SortByAzimuth(std::vector<StarRow>& rows)
{
    SortByNumber(rows, [](const StarRow& row) { return LeadingNumber(row[AzimuthColumn]); });
}

void SortByAzimuth(std::vector<ListedBody>& bodies)
{
    SortByNumber(bodies, [](const ListedBody& body) { return LeadingNumber(AzimuthText(body.Azimuth)); });
}

void SortByColumns(std::vector<StarRow>& rows, std::span<const int> columnsInView)
{
    if (columnsInView.empty()) return;
    const bool inNumbers = columnsInView.front() == static_cast<int>(StarColumn::Magnitude);
    std::ranges::stable_sort(rows, [&](const StarRow& a, const StarRow& b) {
        for (const int column : columnsInView) {
            const std::string& left = a[static_cast<std::size_t>(column)];
            const std::string& right = b[static_cast<std::size_t>(column)];
            if (inNumbers) {
                const double l = LeadingNumber(left), r = LeadingNumber(right);
                if (l != r) return l < r;
            } else if (left != right) {
                return left < right;
            }
        }
        return false;
    });
}

} // namespace merov::planning
