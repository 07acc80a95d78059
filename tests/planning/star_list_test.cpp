#include "planning/star_list.h"

#include "ephemeris/astro_lib.h"
#include "fix/nautical_lib.h"
#include "numeric/math_lib.h"
#include "support/erfa_places.h"
#include "support/expect.h"

namespace merov::planning
{
namespace
{

TEST(StarList, SextantAltitudeRunsTheCorrectionsBackwards)
{
    using test::VectorOf;
    const struct {
        const char* Body;
        double Distance, Hc, Height, Altitude; // worked out by hand from the corrections
        double From10, From4;                  // what the way there and back may leave, minutes
    } cases[] = {
        {"SIRIUS", 272000, 30, 10, 30.12060379, 0.05, 0.45}, {"VENUS", 0.3, 5, 4, 5.21502032, 0.05, 0.45},
        {"SUNLOW", 0.9833, 20, 16, 19.88861822, 0.05, 0.5},  {"SUNUPP", 1.0163, 20, 16, 20.42081915, 0.05, 0.5},
        {"MOONLOW", 0.00257, 45, 0, 44.08242968, 0.55, 0.9}, {"MOONUPP", 0.00245, 12, 20, 11.50744962, 0.55, 0.9},
    };
    numeric::BoundedArray<std::string> body(1, 1);
    numeric::Vector zero = VectorOf({0}), ho(1, 1), hc(1, 1), intercept(1, 1);
    for (const auto& c : cases) {
        EXPECT_NEAR(SextantAltitude(c.Hc, c.Height, c.Distance, c.Body), c.Altitude, 1e-8) << c.Body;
        body[1] = c.Body;
        for (double altitude = 4; altitude <= 89.5; altitude += 0.5) {
            const double read = SextantAltitude(altitude, c.Height, c.Distance, c.Body);
            fix::CorrectAltitudes(1, c.Height, 10, 10, 1010.16, zero, zero, body, VectorOf({read}), zero,
                                  VectorOf({c.Distance}), zero, zero, ho, hc, intercept);
            EXPECT_NEAR(ho[1], altitude, (altitude < 10 ? c.From4 : c.From10) / 60) << c.Body;
        }
    }
}

/// The names of rows that are picked, or of all.
std::string Names(std::span<const ListedBody> rows, bool pickedOnly = false)
{
    std::string names;
    for (const ListedBody& row : rows)
        if (row.Picked || !pickedOnly) names += std::string(row.Body) + " ";
    return names;
}

TEST(StarList, SelectionExchangesRowsAndFiltersKeepTheirLimits)
{
    ListedBody rows[] = {{"A", 2}, {"B", 2}, {"C", -1}};
    SortByMagnitude(rows);
    EXPECT_EQ(Names(rows), "C B A ");
    ListedBody reach[] = {{"A", 1.3, 10}, {"B", 1.31, 10},  {"C", 1.3, 9.9},
                          {"D", -1, 70},  {"E", -1, 70.01}, {"F", 1.4, 40, 0, true}};
    PickBright(reach);
    EXPECT_EQ(Names(reach, true), "A D ");

    const struct {
        std::vector<ListedBody> Rows;
        const char* Left;
    } cases[] = {
        {{{"A", 0, 0, 100}, {"B", 1, 0, 103.5}, {"C", 1, 0, 283.5}}, "A "},
        {{{"A", 0, 0, 100}, {"B", 1, 0, 103.6}}, "A B "},
        {{{"A", 0, 0, 100}, {"B", 1, 0, 283.7}}, "A B "},
        {{{"A", 0, 0, 358}, {"B", 1, 0, 1.5}, {"C", 1, 0, 178.5}, {"D", 1, 0, 1.7}}, "A D "},
        {{{"A", 0, 0, 2}, {"B", 1, 0, 358.5}, {"C", 1, 0, 180.5}, {"D", 1, 0, 358.3}}, "A D "},
        {{{"A", 2, 0, 100}, {"B", 1, 0, 100.5}, {"C", 2.5, 0, 96.8}}, "B C "}, // A is gone before it drops C
        {{{"A", 0, 0, 50}, {"B", 0, 0, 53}, {"C", 1, 0, 56}}, "A C "},         // what is dropped drops no other
    };
    for (auto [azimuths, left] : cases) {
        for (ListedBody& row : azimuths)
            row.Picked = true;
        DropSameAzimuths(azimuths);
        EXPECT_EQ(Names(azimuths, true), left);
    }
}

TEST(StarList, TextsAndSortsOfTheTable)
{
    EXPECT_EQ(ListLine({"SIRIUS", -1.6, 32.24, 183.4}), "-1.6 SIRIUS: 183° / 32°14'");
    EXPECT_EQ(ListLine({"RIGIL KENT", 0.0, 29.9999, 0.4}), " 0.0 RIGIL KENT: 000° / 30°00'");
    EXPECT_EQ(TableRow({"VEGA", 1.25, -5.5, 359.5}), (StarRow{"VEGA", "360°", "-05°30'", "+1.3"}));
    std::vector<ListedBody> bodies{{"MOONUPP", -11, 22.5, 286.0}, {"MOONLOW", -11, 22, 286.0},
                                   {"VEGA", 0.1, 8, 99.7},        {"RIGIL KENT", 0, 20, 100.2},
                                   {"SPICA", 1.1, 8.9, 4.4},      {"ACRUX", 1.1, 8.2, 3.6}};
    std::vector<StarRow> rows(bodies.size());
    const auto sorted = [&](std::vector<int> columns) {
        std::ranges::transform(bodies, rows.begin(), TableRow);
        columns.empty() ? SortByAzimuth(rows) : SortByColumns(rows, columns);
        std::string names;
        for (const StarRow& row : rows)
            names += row[0] + " ";
        return names;
    };
    EXPECT_EQ(sorted({}), "SPICA ACRUX VEGA RIGIL KENT MOONUPP MOONLOW "); // 004° and 100° twice
    EXPECT_EQ(sorted({2, 0, 1, 3}), "VEGA ACRUX SPICA RIGIL KENT MOONLOW MOONUPP ");
    // As numbers, when only the degrees of an altitude count; as texts " 0.0" comes before "+1.1" and "-11.0".
    EXPECT_EQ(sorted({3, 2, 1, 0}), "MOONUPP MOONLOW RIGIL KENT VEGA SPICA ACRUX ");
    EXPECT_EQ(sorted({1, 3, 0, 2}), "ACRUX SPICA RIGIL KENT VEGA MOONLOW MOONUPP ");
}

TEST(StarList, ListOfAnEveningAndPolesOfRefractionThatRaiseNobody)
{
    ephemeris::SetDataFolder(MEROV_RUN_DIR);
    StarList list;
    list.Build({-33, 18, 10}, 38137.7); // 30 May 2004, 16:48
    EXPECT_TRUE(std::ranges::is_sorted(list.Rows(), {}, &ListedBody::Magnitude));
    const std::string picked = Names(list.Rows(), true);
    EXPECT_NE(picked.find("RIGIL KENT"), std::string::npos);
    EXPECT_TRUE(picked.starts_with("MOON") && picked.find("MOON", 1) == std::string::npos) << picked;

    ephemeris::BodyPosition vega;
    ephemeris::ComputeBodyPosition("VEGA", 40000.0, vega);
    double hc = -4.361;
    while (SextantAltitude(hc, 10, vega.Distance, "VEGA") < 15.0)
        ASSERT_LT(hc += 1e-6, -4.36);
    const Observer lowerMeridian{90 + hc - vega.Declination, numeric::NormalizeLongitude(180 - vega.GHA), 10};
    EXPECT_GT(ObserveBody("VEGA", lowerMeridian, 40000.0).Altitude, 10.0);
    EXPECT_EQ(Names(VisibleBodies(lowerMeridian, 40000.0)).find("VEGA"), std::string::npos);
}

TEST(StarList, SunAgainstErfa)
{
    test::Spread azimuths, altitudes;
    std::mt19937_64 generator(57);
    const auto pick = [&](double from, double to) { return std::uniform_real_distribution(from, to)(generator); };
    double a, b, distance, azimuth, height;
    eraRefco(1010, 10, 0.5, 0.55, &a, &b);
    for (int i = 0; i < 400; ++i) {
        const double days = std::round(pick(-15000, 15000) * ERFA_DAYSEC) / ERFA_DAYSEC;
        const Observer at{pick(-75, 75), pick(-180, 180), 12};
        const test::Place sun = test::ErfaSun(days, distance);
        eraHd2ae((sun.GHA + at.Long) * ERFA_DD2R, sun.Dec * ERFA_DD2R, at.Lat * ERFA_DD2R, &azimuth, &height);
        if (height < 20 * ERFA_DD2R) continue; // ERFA's refraction holds high up
        const ListedBody ours = ObserveBody("SUNLOW", at, 36526.5 + days);
        const double t = 1 / std::tan(height), refraction = (a * t + b * t * t * t) * ERFA_DR2D * 60;
        const double parallax = 8.794 / 60 * std::cos(height) / distance, radius = 959.63 / 60 / distance;
        const double lift = refraction - parallax - radius + 1.757 * std::sqrt(12);
        altitudes.Add(60 * (ours.Altitude - height * ERFA_DR2D) - lift);
        azimuths.Add(60 * std::remainder(ours.Azimuth - azimuth * ERFA_DR2D, 360) * std::cos(height));
    }
    EXPECT_TRUE(azimuths.Within("azimuth of the Sun, '", {0.1, 0.3}));
    EXPECT_TRUE(altitudes.Within("altitude of the Sun by the sextant, '", {0.1, 0.3}));
}

} // namespace
} // namespace merov::planning
