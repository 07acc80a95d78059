#include "tools/sample_voyages.h"

#include "ephemeris/time_lib.h"

#include <stdexcept>

namespace merov::samples
{
namespace
{

/// Degrees and minutes, to type positions as they are entered. The sign goes with both.
constexpr double DegMin(double degrees, double minutes)
{
    return degrees < 0.0 ? degrees - minutes / 60.0 : degrees + minutes / 60.0;
}

} // namespace

const std::vector<PublishedSet>& PublishedSets()
{
    static const std::vector<PublishedSet> sets{
        // G. H. Kaplan, "Determining the Position and Motion of a Vessel from Celestial Observations",
        // Navigation 42(4), 1995.
        {"kaplan_1995.obs",
         "1995-04-10 23:00:00",
         {"1995-04-10 14:00:00", {45.4, -49.5}, 332.0, 18.5, {0.0, 10.0, 10.0, 1010.0}, 0.0},
         {{"1995-04-10 15:19:22", "SUNLOW", 52.2903},
          {"1995-04-10 18:45:06", "MOONUPP", 19.1563},
          {"1995-04-10 20:01:14", "SUNLOW", 20.2358},
          {"1995-04-10 21:01:10", "MOONUPP", 39.4857},
          {"1995-04-10 22:30:16", "MARS", 59.3888},
          {"1995-04-10 22:46:28", "KOCHAB", 44.0681},
          {"1995-04-10 23:02:39", "CAPELLA", 54.3544},
          {"1995-04-10 23:20:28", "RIGEL", 14.3925}},
         {47.5954, -52.1737},
         0.3},
        // Worked example of the open-source program Capella.
        {"six_bodies_1993.obs",
         "1993-05-13 07:44:00",
         {"1993-05-13 07:30:00", {DegMin(40, 10.0), DegMin(-50, 15.0)}, 90.0, 5.5, {2.1, 10.0, 10.0, 1010.0}, -1.2},
         {{"1993-05-13 07:33:45", "KOCHAB", DegMin(43, 23.8)},
          {"1993-05-13 07:35:16", "RASALHAGUE", DegMin(51, 5.2)},
          {"1993-05-13 07:37:15", "ALKAID", DegMin(30, 15.9)},
          {"1993-05-13 07:39:02", "ALTAIR", DegMin(58, 38.0)},
          {"1993-05-13 07:41:24", "VENUS", DegMin(15, 15.3)},
          {"1993-05-13 07:44:08", "MOONLOW", DegMin(34, 5.6)}},
         {DegMin(40, 14.0), DegMin(-49, 58.0)},
         0.5},
    };
    return sets;
}

const std::vector<Voyage>& Voyages()
{
    static const std::vector<Voyage> voyages{
        // West of Portugal, evening twilight.
        {"evening_stars.obs",
         "2024-09-14 19:40:00",
         {38.4712, -12.0385},
         212.0,
         13.5,
         0.0,
         {"2024-09-14 19:00:00", {DegMin(38, 43.0), DegMin(-11, 55.0)}, 212.0, 13.5, {8.5, 21.0, 20.0, 1018.0}, -1.8},
         {{"2024-09-14 19:31:42", "ARCTURUS"},
          {"2024-09-14 19:33:55", "ALTAIR"},
          {"2024-09-14 19:36:20", "ANTARES"},
          {"2024-09-14 19:38:37", "DENEB"},
          {"2024-09-14 19:41:06", "ALKAID"},
          {"2024-09-14 19:43:29", "POLARIS"},
          {"2024-09-14 19:46:14", "SCHEDAR"}}},
        // The first two of them alone.
        {"two_sights.obs",
         "2024-09-14 19:40:00",
         {38.4712, -12.0385},
         212.0,
         13.5,
         0.0,
         {"2024-09-14 19:00:00", {DegMin(38, 43.0), DegMin(-11, 55.0)}, 212.0, 13.5, {8.5, 21.0, 20.0, 1018.0}, -1.8},
         {{"2024-09-14 19:31:42", "ARCTURUS"}, {"2024-09-14 19:33:55", "ALTAIR"}}},
        // South of Crete, the Sun from the forenoon to the afternoon.
        {"sun_run_sun.obs",
         "2023-04-03 14:00:00",
         {33.9420, 24.6155},
         283.0,
         11.0,
         0.0,
         {"2023-04-03 06:00:00", {DegMin(33, 34.0), DegMin(26, 10.0)}, 283.0, 11.0, {5.2, 18.0, 17.0, 1021.0}, 2.4},
         {{"2023-04-03 06:12:18", "SUNLOW"},
          {"2023-04-03 08:03:51", "SUNLOW"},
          {"2023-04-03 10:22:30", "SUNLOW"},
          {"2023-04-03 12:31:07", "SUNUPP"},
          {"2023-04-03 13:58:44", "SUNLOW"}}},
        // North-east of Hawaii, afternoon to sunset.
        {"moon_planets_day.obs",
         "2025-01-11 03:30:00",
         {22.1834, -150.2671},
         74.0,
         15.0,
         0.0,
         {"2025-01-11 02:00:00", {DegMin(22, 2.0), DegMin(-150, 44.0)}, 74.0, 15.0, {12.0, 24.0, 25.0, 1016.0}, 0.6},
         {{"2025-01-11 01:52:09", "SUNLOW"},
          {"2025-01-11 01:58:33", "MOONUPP"},
          {"2025-01-11 02:06:47", "VENUS"},
          {"2025-01-11 03:02:21", "VENUS"},
          {"2025-01-11 03:09:50", "MOONUPP"},
          {"2025-01-11 03:41:36", "JUPITER"}}},
        // Mid-Atlantic in a current, afternoon to dusk.
        {"twelve_sights.obs",
         "2023-05-27 22:30:00",
         {36.1268, -40.4183},
         246.5,
         15.2,
         0.0,
         {"2023-05-27 18:00:00", {DegMin(36, 38.0), DegMin(-39, 3.0)}, 251.0, 14.4, {14.5, 20.0, 19.0, 1023.0}, -0.5},
         {{"2023-05-27 18:02:40", "SUNLOW"},
          {"2023-05-27 18:31:15", "MOONUPP"},
          {"2023-05-27 19:40:52", "VENUS"},
          {"2023-05-27 20:06:28", "SUNLOW"},
          {"2023-05-27 20:41:03", "MOONUPP"},
          {"2023-05-27 22:14:22", "ARCTURUS"},
          {"2023-05-27 22:17:05", "SPICA"},
          {"2023-05-27 22:19:48", "CAPELLA"},
          {"2023-05-27 22:22:31", "REGULUS"},
          {"2023-05-27 22:25:56", "VEGA"},
          {"2023-05-27 22:29:10", "KOCHAB"},
          {"2023-05-27 22:33:24", "ALPHECCA"}}},
        // Indian Ocean, morning twilight; one reading a quarter of a degree off.
        {"gross_error.obs",
         "2022-11-20 00:40:00",
         {-15.2157, 60.3320},
         32.0,
         17.0,
         0.0,
         {"2022-11-20 00:00:00", {DegMin(-15, 28.0), DegMin(60, 19.0)}, 32.0, 17.0, {18.0, 27.0, 28.0, 1012.0}, 1.0},
         {{"2022-11-20 00:28:31", "GACRUX"},
          {"2022-11-20 00:30:44", "MIAPLACIDUS"},
          {"2022-11-20 00:32:58", "DENEBOLA"},
          {"2022-11-20 00:35:10", "REGULUS"},
          {"2022-11-20 00:37:25", "SPICA"},
          {"2022-11-20 00:39:37", "ALDEBARAN", 15.0},
          {"2022-11-20 00:41:50", "POLLUX"},
          {"2022-11-20 00:44:06", "RIGEL"},
          {"2022-11-20 00:46:19", "CANOPUS"},
          {"2022-11-20 00:48:32", "SIRIUS"}}},
        // East of Martinique, evening twilight; one reading a whole degree off.
        {"misread_degree.obs",
         "2022-03-08 22:50:00",
         {14.2963, -59.8742},
         265.0,
         9.0,
         0.0,
         {"2022-03-08 22:30:00", {DegMin(14, 14.0), DegMin(-59, 44.0)}, 265.0, 9.0, {3.0, 26.0, 27.0, 1014.0}, -2.2},
         {{"2022-03-08 22:33:12", "CAPELLA"},
          {"2022-03-08 22:35:40", "SIRIUS"},
          {"2022-03-08 22:37:58", "CANOPUS"},
          {"2022-03-08 22:40:33", "REGULUS", -60.0},
          {"2022-03-08 22:42:47", "POLLUX"},
          {"2022-03-08 22:45:05", "MIRFAK"},
          {"2022-03-08 22:47:36", "HAMAL"},
          {"2022-03-08 22:50:14", "MENKAR"}}},
        // Off Cape Finisterre, evening twilight; the horizon mirror was knocked and nobody noticed.
        {"systematic_error.obs",
         "2004-05-21 21:00:00",
         {43.6125, -9.7440},
         20.0,
         12.0,
         2.0,
         {"2004-05-21 20:30:00", {DegMin(43, 27.0), DegMin(-9, 55.0)}, 20.0, 12.0, {10.0, 16.0, 15.0, 1019.0}, -1.5},
         {{"2004-05-21 20:51:20", "ARCTURUS"},
          {"2004-05-21 20:53:38", "VEGA"},
          {"2004-05-21 20:55:51", "CAPELLA"},
          {"2004-05-21 20:58:09", "SPICA"},
          {"2004-05-21 21:00:22", "REGULUS"},
          {"2004-05-21 21:02:40", "POLLUX"},
          {"2004-05-21 21:04:57", "DENEBOLA"},
          {"2004-05-21 21:07:15", "KOCHAB"}}},
        // East of New Zealand, over the meridian of 180 degrees.
        {"date_line_south.obs",
         "2024-02-18 08:00:00",
         {-42.8346, -179.4628},
         78.0,
         18.0,
         0.0,
         {"2024-02-18 04:00:00", {DegMin(-43, 1.0), DegMin(178, 50.0)}, 78.0, 18.0, {16.0, 15.0, 14.0, 1009.0}, 0.3},
         {{"2024-02-18 04:10:37", "SUNLOW"},
          {"2024-02-18 05:14:05", "SUNLOW"},
          {"2024-02-18 06:48:12", "MOONUPP"},
          {"2024-02-18 07:47:25", "SIRIUS"},
          {"2024-02-18 07:51:49", "ACHERNAR"},
          {"2024-02-18 07:56:10", "ACRUX"},
          {"2024-02-18 08:00:33", "ALPHARD"}}},
    };
    return voyages;
}

const Voyage& VoyageOf(const std::string& file)
{
    for (const Voyage& voyage : Voyages())
        if (file == voyage.File) return voyage;
    throw std::out_of_range(file);
}

double TimeOf(const char* text)
{
    return ephemeris::ParseIsoDateTime(text).value();
}

} // namespace merov::samples
