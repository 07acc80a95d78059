#include "ephemeris/astro_lib.h"
#include "fix/fix_summary.h"
#include "fix/observation_file.h"
#include "fix/run_fix.h"
#include "numeric/matrix_lib.h"
#include "samples/voyages.h"
#include "support/box_recorder.h"
#include "support/fake_clock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>

/// The sample observations against the truth that they were made from.

namespace merov::samples
{
namespace
{

namespace fs = std::filesystem;

constexpr double Rounding = 0.05; ///< minutes by which a reading to a tenth can be off

const fs::path Folder = fs::path(MEROV_SOURCE_DIR) / "data" / "Observations";

std::string BytesOf(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    EXPECT_TRUE(in) << file;
    return {std::istreambuf_iterator<char>(in), {}};
}

/// How far the errors of the readings can carry a fix, and the systematic error that it shows.
struct Bounds {
    double Offset[4] = {}; ///< miles north and east, degrees of course, knots
    double SystErr = 0.0;  ///< minutes that the fix shows
    double SystErrOffset = 0.0;
};

/// Bounds from the bearings and times of a fix, by plane least squares of equal weights: readings each
/// wrong by the rounding, in the worst of all combinations, and by the voyage's own constant error.
/// The mean of the residuals is taken out of the readings first, as a search for a systematic error
/// does; a constant error on bearings that are not evenly spread is not taken out whole.
Bounds WorstCase(const fix::SightSession& s, double constantError)
{
    const int n = s.ObsCount;
    const int m = s.NumUnknowns;
    numeric::Matrix A(n, m), transposed(m, n), normal(m, m), inverse(m, m), P(m, n);
    for (int i = 1; i <= n; ++i) {
        const double bearing = s.ObsAzimuth[i] * test::Degree;
        const double course = s.Course * test::Degree;
        const double hours = (s.ObsTime[i] - s.TimeTruePos) * 24.0;
        A(i, 1) = std::cos(bearing);
        A(i, 2) = std::sin(bearing);
        if (m == 2) continue;
        A(i, 3) = hours * s.Speed * std::sin(bearing - course) * test::Degree; // per degree
        A(i, 4) = hours * std::cos(bearing - course);
    }
    double determinant = 0.0;
    numeric::TransposeMatrix(A, transposed);
    numeric::MultiplyMatrices(transposed, A, normal);
    numeric::InvertMatrix(normal, inverse, determinant);
    numeric::MultiplyMatrices(inverse, transposed, P);

    Bounds bounds;
    std::vector<double> meanBy; // how the mean of b - Ax depends on each reading
    for (int i = 1; i <= n; ++i) {
        double fitted = 0.0;
        for (int k = 1; k <= m; ++k)
            for (int j = 1; j <= n; ++j)
                fitted += A(j, k) * P(k, i);
        meanBy.push_back((1.0 - fitted) / n);
        bounds.SystErr += constantError * meanBy.back();
        bounds.SystErrOffset += Rounding * std::fabs(meanBy.back());
    }
    for (int k = 1; k <= m; ++k) {
        double sum = 0.0, worst = 0.0, constant = 0.0;
        for (int i = 1; i <= n; ++i)
            sum += P(k, i);
        for (int i = 1; i <= n; ++i) {
            const double share = P(k, i) - sum * meanBy[static_cast<std::size_t>(i - 1)];
            worst += std::fabs(share);
            constant += share;
        }
        bounds.Offset[k - 1] = Rounding * worst + std::fabs(constantError * constant);
    }
    return bounds;
}

/// Miles east of `truth` by which a longitude is off.
double MilesEast(double longitude, const numeric::GeoPosition& truth)
{
    return std::remainder(longitude - truth.Longitude, 360.0) * 60.0 * std::cos(truth.Latitude * test::Degree);
}

double MilesOff(const fix::SightSession& s, const numeric::GeoPosition& truth)
{
    return std::hypot((s.TrueLat - truth.Latitude) * 60.0, MilesEast(s.TrueLong, truth));
}

class SampleTest : public testing::Test
{
protected:
    SampleTest() { ephemeris::SetDataFolder(MEROV_RUN_DIR); }

    /// The fix of a file. `slips` are put right first, as a navigator does who has found his mistake.
    fix::SightSession Fix(const std::string& file, const std::vector<MadeSight>& slips = {}, bool findSystErr = true)
    {
        fix::SightEntry entry;
        fix::SightSession session;
        entry.FindSystErr = findSystErr;
        EXPECT_TRUE(fix::LoadObservationFile(Folder / file, entry, session));
        EXPECT_TRUE(fix::ReadObservationGrid(entry, session));
        for (std::size_t i = 0; i < slips.size(); ++i) {
            const int row = static_cast<int>(i) + 1;
            const double altitude = session.ObsAltitude[row] - slips[i].Slip / 60.0;
            entry.Rows[row][fix::GridColumn::Altitude] = fix::AltitudeCellText(altitude);
        }
        const sailing::EarthModel earth = test::Wgs84();
        EXPECT_TRUE(fix::RunFix(entry, session, earth.InverseFlattening, earth.SemiMajorAxisNm, journal_));
        return session;
    }

    void ExpectTruth(const fix::SightSession& s, const Voyage& voyage)
    {
        SCOPED_TRACE(voyage.File);
        const Bounds bounds = WorstCase(s, voyage.SystErr);
        const double north = (s.TrueLat - voyage.At.Latitude) * 60.0;
        const double east = MilesEast(s.TrueLong, voyage.At);
        std::printf("%-22s off %+.3f N %+.3f E miles, bounds %.3f %.3f; syst. error %+.2f, expected %+.2f +- %.2f\n",
                    voyage.File, north, east, bounds.Offset[0], bounds.Offset[1], s.SystErr, bounds.SystErr,
                    bounds.SystErrOffset);
        EXPECT_LE(std::fabs(north), bounds.Offset[0]);
        EXPECT_LE(std::fabs(east), bounds.Offset[1]);
        // The estimated position is up to ten miles off: circles of equal altitude bend by 0'.05 over these.
        EXPECT_NEAR(s.SystErr, bounds.SystErr, bounds.SystErrOffset + (s.ObsCount > 2 ? 0.05 : 0.0));
        if (s.NumUnknowns < 4) return;
        std::printf("%-22s course %.3f, bound %.3f; speed %.3f, bound %.3f\n", voyage.File, s.Course, bounds.Offset[2],
                    s.Speed, bounds.Offset[3]);
        EXPECT_LE(std::fabs(s.Course - voyage.Course), bounds.Offset[2]);
        EXPECT_LE(std::fabs(s.Speed - voyage.Speed), bounds.Offset[3]);
    }

    test::BoxRecorder boxes_;

private:
    test::FakeClock clock_;
    numeric::LastError journal_;
};

bool HasSlip(const Voyage& voyage)
{
    return std::any_of(voyage.Sights.begin(), voyage.Sights.end(), [](const MadeSight& s) { return s.Slip != 0.0; });
}

/// The sight that the fix trusts least.
int LowestWeight(const fix::SightSession& s)
{
    return static_cast<int>(std::min_element(s.ObsWeight.begin(), s.ObsWeight.end()) - s.ObsWeight.begin()) + 1;
}

TEST_F(SampleTest, PublishedSetsComeToTheirAnswers)
{
    for (const PublishedSet& set : PublishedSets()) {
        const fix::SightSession s = Fix(set.File);
        std::printf("%-22s %.3f miles from the published answer\n", set.File, MilesOff(s, set.Answer));
        EXPECT_LE(MilesOff(s, set.Answer), set.Miles) << set.File;
        ASSERT_EQ(s.ObsCount, static_cast<int>(set.Sights.size()));
        for (int i = 1; i <= s.ObsCount; ++i) {
            const PublishedSight& sight = set.Sights[static_cast<std::size_t>(i - 1)];
            EXPECT_NEAR(s.ObsTime[i], TimeOf(sight.Time), 1e-6);
            EXPECT_EQ(s.ObsBody[i], sight.Body);
            EXPECT_NEAR(s.ObsAltitude[i] * 60.0, sight.Altitude * 60.0, Rounding + 1e-6) << set.File << " " << i;
        }
    }
    const fix::SightSession kaplan = Fix("kaplan_1995.obs");
    EXPECT_EQ(kaplan.NumUnknowns, 4);
    EXPECT_NEAR(kaplan.Course, 329.90, 0.1);
    EXPECT_NEAR(kaplan.Speed, 20.03, 0.05);
}

TEST_F(SampleTest, MadeSightsComeToTheTruthWithinTheirRounding)
{
    for (const Voyage& voyage : Voyages())
        if (!HasSlip(voyage)) ExpectTruth(Fix(voyage.File), voyage);
}

TEST_F(SampleTest, TwelveSightsCorrectCourseAndSpeed)
{
    const fix::SightSession s = Fix("twelve_sights.obs");
    EXPECT_EQ(fix::RoutineTaken(s), fix::FixRoutine::Full);
    const Voyage& voyage = VoyageOf("twelve_sights.obs");
    EXPECT_GT(std::fabs(voyage.Typed.Course - voyage.Course), 2.0);
    EXPECT_GT(std::fabs(voyage.Typed.Speed - voyage.Speed), 0.5);
}

TEST_F(SampleTest, DateLineIsCrossedBetweenEstimateAndFix)
{
    const fix::SightSession s = Fix("date_line_south.obs");
    EXPECT_GT(s.EstLong, 0.0);
    EXPECT_LT(s.TrueLong, 0.0);
    EXPECT_GT(s.ObsLong[1], 0.0);
    EXPECT_LT(s.ObsLong[s.ObsCount], 0.0);
}

TEST_F(SampleTest, GrossErrorIsTrustedLeastAndSaysNothing)
{
    const Voyage& voyage = VoyageOf("gross_error.obs");
    const fix::SightSession s = Fix(voyage.File);
    EXPECT_EQ(s.ObsBody[LowestWeight(s)], "ALDEBARAN");
    // With equal weights 15' in one of ten sights all round carry the fix 2/10 of 15' away: the weights
    // must take off more than half.
    std::printf("%-22s %.2f miles from the truth\n", voyage.File, MilesOff(s, voyage.At));
    EXPECT_LT(MilesOff(s, voyage.At), 1.5);
    // The search for a systematic error had spread a tenth of the slip over all sights. Without it the
    // slip counts by the square of its weight, less than a hundredth, beside the rounding.
    const fix::SightSession unsearched = Fix(voyage.File, {}, false);
    EXPECT_LT(unsearched.ObsWeight[LowestWeight(unsearched)], 0.1);
    EXPECT_LT(MilesOff(unsearched, voyage.At), 0.15);
    ExpectTruth(Fix(voyage.File, voyage.Sights), voyage);
}

TEST_F(SampleTest, MisreadDegreeIsNamedAndPutRight)
{
    const Voyage& voyage = VoyageOf("misread_degree.obs");
    const fix::SightSession s = Fix(voyage.File);
    EXPECT_EQ(boxes_.TakeOne(), "Wrong observation|The observation of REGULUS at 22:40:33 is most probably erroneous.|"
                                "Please check and correct if necessary.|"
                                "In the meantime, the following results are unreliable.");
    EXPECT_EQ(s.ObsBody[LowestWeight(s)], "REGULUS");
    std::printf("%-22s %.2f miles from the truth\n", voyage.File, MilesOff(s, voyage.At));
    ExpectTruth(Fix(voyage.File, voyage.Sights), voyage);
}

TEST_F(SampleTest, FilesAreWhatTheProgramItselfWrites)
{
    // Reading and writing a current file gives its very bytes; the older forms give those of the sights
    // that they were made from.
    const fs::path written = fs::path(testing::TempDir()) / "merov_sample_written.obs";
    std::set<std::string> known{"old_form_1_0.obs", "old_form_0_9.obs"};
    for (const std::string& old : known) {
        ASSERT_TRUE(fix::ConvertObservationFile(Folder / old, written)) << old;
        EXPECT_EQ(BytesOf(written), BytesOf(Folder / "two_sights.obs")) << old;
        EXPECT_NE(BytesOf(Folder / old), BytesOf(written)) << old;
    }
    for (const PublishedSet& set : PublishedSets())
        known.insert(set.File);
    for (const Voyage& voyage : Voyages())
        known.insert(voyage.File);
    const std::string guide = BytesOf(fs::path(MEROV_SOURCE_DIR) / "docs" / "samples.md");
    for (const fs::directory_entry& file : fs::directory_iterator(Folder)) {
        const std::string name = file.path().filename().string();
        EXPECT_EQ(known.erase(name), 1u) << name << " has no truth";
        EXPECT_NE(guide.find(name), std::string::npos) << name << " is not told of";
        if (name.starts_with("old_form")) continue;
        ASSERT_TRUE(fix::ConvertObservationFile(file.path(), written)) << name;
        EXPECT_EQ(BytesOf(written), BytesOf(file.path())) << name;
    }
    EXPECT_TRUE(known.empty()) << *known.begin() << " is missing";
    fs::remove(written);
}

} // namespace
} // namespace merov::samples
