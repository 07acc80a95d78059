#include "output/sailing_outline.h"

#include "numeric/inout_lib.h"

#include <cstddef>
#include <string_view>

namespace merov::output
{
namespace
{

using numeric::FormatLat;
using numeric::FormatLong;
using numeric::FormatNumber;

/// Rows by their places.
enum Row : std::size_t {
    DistanceRow,
    TheoreticalRow,
    SumRow,
    VertexRow,
    VertexLatRow,
    VertexLongRow,
    VertexDistanceRow,
    CoursesRow,
    DepartureRow,
    ArrivalRow,
    CompositeRow,
    FirstLegRow
};

constexpr std::size_t RowsPerLeg = 4; // a heading, two positions, the distance

struct StartRow {
    const char* Text;
    int Indent;
};

constexpr StartRow StartRows[] = {
    {"GC Distance", 1},
    {"Theoretical", 0},
    {"Sum of RLs", 0},
    {"Vertex", 1},
    {"Latitude", 2},
    {"Longitude", 2},
    {"Distance", 0},
    {"Courses", 1},
    {"Departure", 2},
    {"Arrival", 2},
    {"Composite Sailing > Lmax", 0},
    {"First GC", 0},
    {", ", 0},
    {", ", 0},
    {"Dist", 0},
    {"Intermediate RL", 0},
    {", ", 0},
    {", ", 0},
    {"Dist", 0},
    {"Second GC", 0},
    {", ", 0},
    {", ", 0},
    {"Dist", 0},
};

void Put(OutlineRow& row, const std::string& text, int indent)
{
    row = {QString::fromStdString(text), indent};
}

void PutVertex(std::vector<OutlineRow>& rows, const sailing::Vertex& vertex, bool sphere)
{
    const std::string lat = FormatLat(vertex.VertexLat);
    Put(rows[VertexLatRow], "Latitude " + lat, 2);
    Put(rows[VertexLongRow], "Longitude " + FormatLong(vertex.VertexLong), 2);
    if (vertex.VertexDistance == -1.0) {
        Put(rows[VertexRow], "Vertex outside the track", 1);
        return;
    }
    Put(rows[VertexRow], "Vertex latitude " + lat, 1);
    Put(rows[VertexDistanceRow],
        "Distance " + SailingDistance(vertex.VertexDistance) + (sphere ? " gmiles" : " nmiles"), 2);
}

void PutDistances(std::vector<OutlineRow>& rows, const sailing::Voyage& voyage)
{
    const std::string total = SailingDistance(voyage.Total);
    if (voyage.Waypoints.empty()) {
        Put(rows[DistanceRow], "GC Distance = " + total, 1);
        return;
    }
    const std::string sum = SailingDistance(voyage.Sum);
    Put(rows[DistanceRow], "GC Dist " + total + " / " + sum, 1);
    Put(rows[TheoreticalRow], "Theoretical = " + total, 2);
    Put(rows[SumRow], "Sum of RLs = " + sum, 2);
}

void PutLegs(std::vector<OutlineRow>& rows, const sailing::Voyage& voyage)
{
    const sailing::CompositeTrack& track = voyage.Composite;
    const std::string positions[] = {
        SailingPosition(voyage.Input.DepLat, voyage.Input.DepLong), SailingPosition(track.LimitLat, track.TouchLong1),
        SailingPosition(track.LimitLat, track.TouchLong2), SailingPosition(voyage.Input.ArrLat, voyage.Input.ArrLong)};
    rows[CompositeRow].Indent = 1;
    for (std::size_t leg = 0; leg < 3; ++leg) {
        OutlineRow* const row = &rows[FirstLegRow + leg * RowsPerLeg];
        row[0].Indent = 2;
        Put(row[1], positions[leg], 3);
        Put(row[2], positions[leg + 1], 3);
        Put(row[3], "Dist = " + SailingDistance(track.LegDist[leg]), 3);
    }
}

} // namespace

std::vector<OutlineRow> EmptySailingOutline()
{
    std::vector<OutlineRow> rows;
    for (const StartRow& row : StartRows)
        rows.push_back({QString::fromUtf8(row.Text), row.Indent});
    return rows;
}

std::vector<OutlineRow> SailingOutline(const sailing::Voyage& voyage, const sailing::EarthModel& earth)
{
    std::vector<OutlineRow> rows = EmptySailingOutline();
    PutVertex(rows, voyage.Track, sailing::IsSphere(earth.InverseFlattening));
    if (voyage.Refusal != sailing::VoyageRefusal::None) return rows;
    PutDistances(rows, voyage);
    if (voyage.Composite.IsComposite) PutLegs(rows, voyage);
    Put(rows[DepartureRow], "Departure = " + FormatNumber(voyage.DepartureCourse, "000°.0"), 2);
    Put(rows[ArrivalRow], "Arrival = " + FormatNumber(voyage.ArrivalCourse, "000°.0"), 2);
    return rows;
}

std::string SailingDistance(double miles)
{
    return FormatNumber(miles, "####0.0");
}

std::string SailingPosition(double lat, double longitude)
{
    return FormatLat(lat) + "; " + FormatLong(longitude);
}

} // namespace merov::output
