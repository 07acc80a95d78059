#include "ephemeris/saturn_lib.h"

#include "ephemeris/astro_lib.h"
#include "ephemeris/time_lib.h"
#include "numeric/math_lib.h"
#include "support/box_recorder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include <unistd.h>

namespace merov::ephemeris
{
namespace
{

namespace fs = std::filesystem;

const fs::path GoodFile = fs::path(MEROV_RUN_DIR) / "Planet.dat";

/// A folder of its own for each test, gone afterwards.
class SaturnFile : public testing::Test
{
protected:
    SaturnFile() { fs::create_directories(folder); }
    ~SaturnFile() override { fs::remove_all(folder); }

    fs::path Write(const std::string& bytes)
    {
        std::ofstream(folder / "Planet.dat", std::ios::binary) << bytes;
        return folder / "Planet.dat";
    }

    const fs::path folder = fs::path(testing::TempDir()) / ("merov_saturn_" + std::to_string(getpid()));
    std::ifstream stream{GoodFile, std::ios::binary};
    const std::string good{std::istreambuf_iterator(stream), {}};
    const std::string failed = " Saturn data file access error|";
    test::BoxRecorder boxes;
    SaturnSeries series;
};

/// The sums over the published table, term by term with the library's cosine: L, B and R.
std::array<double, 3> PlainSums(double tau)
{
    std::array<double, 3> sums{};
    std::ifstream table(MEROV_SOURCE_DIR "/data/saturn_series.csv");
    std::string head;
    std::getline(table, head);
    char coordinate, power, comma;
    double A, B, C;
    while (table >> coordinate >> power >> comma >> A >> comma >> B >> comma >> C)
        sums.at(std::string_view("LBR").find(coordinate)) += A * std::cos(B + C * tau) * std::pow(tau, power - '0');
    return sums;
}

TEST_F(SaturnFile, PlaceIsThatOfThePlainSums)
{
    ASSERT_TRUE(series.Read(GoodFile));
    for (const double T : {-2.0, -1.37, -0.5, 0.0, 0.04, 0.81, 2.0}) {
        const auto [L, B, R] = PlainSums(T / 10.0);
        const double shifted = L - (1.397 * T + 0.00031 * T * T) * numeric::DegToRad;
        const double sine = std::sin(shifted), cosine = std::cos(shifted);
        double latitude, longitude, radius;
        series.Heliocentric(T, latitude, longitude, radius);
        latitude -= 0.03916 / 3600.0 * (cosine - sine);
        longitude -= (-0.09033 + 0.03916 * (cosine + sine) * std::tan(B)) / 3600.0;
        EXPECT_NEAR(latitude, B * numeric::RadToDeg, 1e-9) << T;
        EXPECT_NEAR(longitude, L * numeric::RadToDeg, 1e-9) << T;
        EXPECT_NEAR(radius, R, 1e-11) << T;
    }
}

TEST_F(SaturnFile, FailuresAreToldByTheirKindAndAWholeFileIsTakenLater)
{
    const fs::path planet = folder / "Planet.dat", longName = folder / std::string(5000, 'x');
    const auto box = [&](const fs::path& file) {
        EXPECT_FALSE(series.Read(file));
        EXPECT_FALSE(series.IsRead());
        return boxes.TakeOne();
    };
    const std::string unknown = failed + "An error occured during file access:|" + planet.string() +
                                ".|Please report the following error:|Error ";
    EXPECT_EQ(box(planet), unknown + "0: "); // not there
    EXPECT_EQ(box(Write(good.substr(0, good.size() - 1))).find(unknown + std::to_string(ENODATA) + ": "), 0u);
    EXPECT_EQ(box(Write("")).find(unknown + std::to_string(ENODATA) + ": "), 0u);
    EXPECT_NE(box(folder).find("|Error " + std::to_string(EISDIR) + ": "), std::string::npos); // opens, but no more
    // Names that no file can have.
    const std::string invalid = failed + "Saturn file specification invalid:|";
    EXPECT_EQ(box(longName), invalid + longName.string() + ".");
    EXPECT_EQ(box(planet / "Planet.dat"), invalid + (planet / "Planet.dat").string() + ".");

    EXPECT_TRUE(series.Read(Write(std::string(8, '\0') + good.substr(8))));
    EXPECT_FALSE(series.IsRead());                  // a first float of 0 counts as unread
    EXPECT_TRUE(series.Read(Write(good + "more"))); // what follows the last block does no harm
    EXPECT_TRUE(series.IsRead());
}

TEST_F(SaturnFile, TextsByTheKindOfError)
{
    const auto text = [](int error) { return test::BoxRecorder::Summary(SaturnFileBox("/x/Planet.dat", error)); };
    EXPECT_EQ(text(ENODEV), failed + "The drive specified is not found:|/x/Planet.dat.");
    EXPECT_EQ(text(EBUSY), failed + "Close the disk drive door and try again.");
    EXPECT_EQ(text(EACCES), failed + "An error occured during file access:|/x/Planet.dat.|"
                                     "Please report the following error:|Error 13: Permission denied");
    EXPECT_EQ(SaturnFileBox("/x/Planet.dat", EBUSY).Icon, numeric::BoxIcon::Warning);
}

// Runs in a process of its own: the series of the run must not be read yet.
TEST_F(SaturnFile, MissingSaturnStandsWithTheSunUntilTheFileIsThere)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto scene = [&] {
        const double instant = JoinDateTime({2004, 3, 4});
        SetDataFolder(folder);
        BodyPosition saturn, sun, again;
        ComputeBodyPosition("SATURN", instant, saturn);
        ComputeBodyPosition("SUNLOW", instant, sun);
        bool right = boxes.TakeTexts().size() == 2 && std::fabs(saturn.GHA - sun.GHA) < 0.001 &&
                     std::fabs(saturn.Declination - sun.Declination) < 0.001 && saturn.HelioDistance == 1e-11;
        Write(good);
        ComputeBodyPosition("SATURN", instant, saturn);
        fs::remove(folder / "Planet.dat"); // read once, it isn't needed any more
        ComputeBodyPosition("SATURN", instant, again);
        right = right && boxes.Count() == 0 && saturn.HelioDistance > 9.0 && again.GHA == saturn.GHA;
        fs::remove_all(folder);
        std::_Exit(right ? 0 : 1);
    };
    EXPECT_EXIT(scene(), testing::ExitedWithCode(0), "");
}

} // namespace
} // namespace merov::ephemeris
