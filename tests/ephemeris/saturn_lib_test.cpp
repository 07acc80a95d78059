#include "ephemeris/saturn_lib.h"

#include "ephemeris/astro_lib.h"
#include "ephemeris/time_lib.h"
#include "numeric/math_lib.h"
#include "support/box_recorder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <unistd.h>

namespace merov::ephemeris
{
namespace
{

namespace fs = std::filesystem;

constexpr char Title[] = " Saturn data file access error";

std::string Bytes(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::stringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

/// A folder of its own for each test, gone afterwards.
class SaturnFileTest : public testing::Test
{
protected:
    SaturnFileTest()
    {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        folder = fs::path(testing::TempDir()) / ("merov_" + std::to_string(getpid()) + test->name());
        fs::create_directories(folder);
        good = Bytes(fs::path(MEROV_RUN_DIR) / "Planet.dat");
    }
    ~SaturnFileTest() override { fs::remove_all(folder); }

    fs::path Write(const std::string& bytes)
    {
        std::ofstream(folder / "Planet.dat", std::ios::binary) << bytes;
        return folder / "Planet.dat";
    }

    fs::path folder;
    std::string good;
    test::BoxRecorder boxes;
    SaturnSeries series;
};

/// The sums over the published table, term by term with the library's cosine.
struct PlainSums {
    double Sum[3][6] = {}; // L, B, R by powers of tau

    explicit PlainSums(double tau)
    {
        std::ifstream table(MEROV_SOURCE_DIR "/data/saturn_series.csv");
        std::string line;
        std::getline(table, line);
        while (std::getline(table, line)) {
            double value[3];
            const char* place = line.data() + 2;
            for (double& number : value)
                place = std::from_chars(place + 1, line.data() + line.size(), number).ptr;
            Sum[std::string("LBR").find(line[0])][line[1] - '0'] += value[0] * std::cos(value[1] + value[2] * tau);
        }
    }
    double At(int coordinate, double tau) const { return numeric::Polynomial(tau, 5, Sum[coordinate]); }
};

TEST_F(SaturnFileTest, PlaceIsThatOfThePlainSums)
{
    ASSERT_TRUE(series.Read(fs::path(MEROV_RUN_DIR) / "Planet.dat"));
    for (const double T : {-2.0, -1.37, -0.5, 0.0, 0.04, 0.81, 2.0}) {
        const PlainSums sums(T / 10.0);
        const double L = sums.At(0, T / 10.0), B = sums.At(1, T / 10.0);
        const double shifted = L - (1.397 * T + 0.00031 * T * T) * numeric::DegToRad;
        const double latitude = B * numeric::RadToDeg + 0.03916 / 3600.0 * (std::cos(shifted) - std::sin(shifted));
        const double longitude = L * numeric::RadToDeg +
                                 (-0.09033 + 0.03916 * (std::cos(shifted) + std::sin(shifted)) * std::tan(B)) / 3600.0;
        double gotLatitude, gotLongitude, gotRadius;
        series.Heliocentric(T, gotLatitude, gotLongitude, gotRadius);
        EXPECT_NEAR(gotLatitude, latitude, 1e-9) << T;
        EXPECT_NEAR(gotLongitude, longitude, 1e-9) << T;
        EXPECT_NEAR(gotRadius, sums.At(2, T / 10.0), 1e-11) << T;
    }
}

TEST_F(SaturnFileTest, FileThatIsNotThereIsErrorNumberZero)
{
    const fs::path file = folder / "Planet.dat";
    EXPECT_FALSE(series.Read(file));
    EXPECT_FALSE(series.IsRead());
    const std::vector<numeric::Box> shown = boxes.TakeAll();
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].Icon, numeric::BoxIcon::Warning);
    EXPECT_EQ(test::BoxRecorder::Summary(shown[0]), std::string(Title) + "|An error occured during file access:|" +
                                                        file.string() +
                                                        ".|Please report the following error:|Error 0: ");
}

TEST_F(SaturnFileTest, ShortFileLeavesTheSeriesUnreadAndAWholeOneIsTakenLater)
{
    EXPECT_FALSE(series.Read(Write(good.substr(0, good.size() - 1))));
    EXPECT_FALSE(series.IsRead());
    EXPECT_NE(boxes.TakeOne().find("|Please report the following error:|Error " + std::to_string(ENODATA)),
              std::string::npos);
    EXPECT_FALSE(series.Read(Write("")));
    EXPECT_FALSE(series.IsRead());
    boxes.TakeOne();
    // The length isn't looked at: what follows the last block does no harm.
    EXPECT_TRUE(series.Read(Write(good + "more")));
    EXPECT_TRUE(series.IsRead());
}

TEST_F(SaturnFileTest, FileThatBeginsWithZeroCountsAsUnread)
{
    EXPECT_TRUE(series.Read(Write(std::string(8, '\0') + good.substr(8))));
    EXPECT_FALSE(series.IsRead());
}

TEST_F(SaturnFileTest, NamesThatNoFileCanHave)
{
    const fs::path tooLong = folder / std::string(5000, 'x');
    const fs::path throughFile = Write(good) / "Planet.dat";
    for (const fs::path& path : {tooLong, throughFile}) {
        EXPECT_FALSE(series.Read(path));
        EXPECT_EQ(boxes.TakeOne(), std::string(Title) + "|Saturn file specification invalid:|" + path.string() + ".");
    }
    EXPECT_FALSE(series.Read(folder)); // opens, but cannot be read
    EXPECT_NE(boxes.TakeOne().find("|Error " + std::to_string(EISDIR) + ": "), std::string::npos);
}

TEST_F(SaturnFileTest, TextsByTheKindOfError)
{
    const auto text = [](int error) { return test::BoxRecorder::Summary(SaturnFileBox("/x/Planet.dat", error)); };
    const std::string title = Title;
    EXPECT_EQ(text(ENODEV), title + "|The drive specified is not found:|/x/Planet.dat.");
    EXPECT_EQ(text(ENXIO), text(ENODEV));
    EXPECT_EQ(text(EBUSY), title + "|Close the disk drive door and try again.");
    EXPECT_EQ(text(EACCES), title + "|An error occured during file access:|/x/Planet.dat.|"
                                    "Please report the following error:|Error 13: Permission denied");
}

// Runs in a process of its own: the series of the run must not be read yet.
TEST_F(SaturnFileTest, WithoutTheFileSaturnStandsWithTheSunUntilTheFileIsThere)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto scene = [&] {
        const double instant = JoinDateTime({2004, 3, 4, 0, 0, 0});
        SetDataFolder(folder);
        BodyPosition saturn, sun;
        ComputeBodyPosition("SATURN", instant, saturn);
        ComputeBodyPosition("SUNLOW", instant, sun);
        bool right = boxes.TakeTexts().size() == 2 && std::fabs(saturn.GHA - sun.GHA) < 0.001 &&
                     std::fabs(saturn.Declination - sun.Declination) < 0.001 && saturn.HelioDistance == 1e-11;
        Write(good);
        ComputeBodyPosition("SATURN", instant, saturn);
        fs::remove(folder / "Planet.dat"); // read once, it isn't needed any more
        BodyPosition again;
        ComputeBodyPosition("SATURN", instant, again);
        right = right && boxes.Count() == 0 && saturn.HelioDistance > 9.0 && again.GHA == saturn.GHA;
        fs::remove_all(folder);
        std::_Exit(right ? 0 : 1);
    };
    EXPECT_EXIT(scene(), testing::ExitedWithCode(0), "");
}

} // namespace
} // namespace merov::ephemeris
