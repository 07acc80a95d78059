#include "ephemeris/astro_lib.h"
#include "fix/fix_summary.h"
#include "fix/observation_file.h"
#include "fix/run_fix.h"
#include "numeric/least_squares.h"
#include "sailing/ellipsoid.h"
#include "support/box_recorder.h"
#include "support/fake_clock.h"
#include "tools/sample_voyages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <set>

/// The sample observations against the truth that they were made from.

namespace merov::samples
{
namespace
{

namespace fs = std::filesystem;
using numeric::DegToRad;

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
    double Offset[4] = {};      ///< miles north and east, degrees of course, knots
    double SystErr = 0.0;       ///< minutes that the fix shows
    double SystErrOffset = 0.0; ///< and by how much they may be off
};

/// Bounds from the bearings and times of a fix, by plane least squares: readings each wrong by the
/// rounding, in the worst of all combinations, and by the voyage's own constant error. The mean of the
/// residuals is taken out of the readings first, as a search for a systematic error does; a constant
/// error on bearings that are not evenly spread is not taken out whole.
Bounds WorstCase(const fix::SightSession& s, double constantError)
{
    const int n = s.ObsCount, m = s.NumUnknowns;
    numeric::Matrix A(n, m), R(m, m);
    for (int i = 1; i <= n; ++i) {
        const double bearing = s.ObsAzimuth[i] * DegToRad, course = s.Course * DegToRad;
        const double hours = (s.ObsTime[i] - s.TimeTruePos) * 24.0;
        A(i, 1) = std::cos(bearing);
        A(i, 2) = std::sin(bearing);
        if (m == 2) continue;
        A(i, 3) = hours * s.Speed * std::sin(bearing - course) * DegToRad; // per degree
        A(i, 4) = hours * std::cos(bearing - course);
    }
    Bounds bounds;
    double constant[4] = {};
    for (int i = 1; i <= n; ++i) {
        numeric::Vector b(1, n), x(1, m), r(1, n);
        b[i] = 1.0;
        SolveLeastSquares(A, b, x, false, R);
        ComputeResiduals(A, b, x, r);
        const double mean = -std::accumulate(r.begin(), r.end(), 0.0) / n;
        bounds.SystErr += constantError * mean;
        bounds.SystErrOffset += Rounding * std::fabs(mean);
        for (double& reading : b)
            reading -= mean;
        SolveLeastSquares(A, b, x, false, R);
        for (int k = 1; k <= m; ++k) {
            bounds.Offset[k - 1] += Rounding * std::fabs(x[k]);
            constant[k - 1] += constantError * x[k];
        }
    }
    for (int k = 0; k < m; ++k)
        bounds.Offset[k] += std::fabs(constant[k]);
    return bounds;
}

double MilesNorth(const fix::SightSession& s, const numeric::GeoPosition& truth)
{
    return (s.TrueLat - truth.Latitude) * 60.0;
}

double MilesEast(const fix::SightSession& s, const numeric::GeoPosition& truth)
{
    return std::remainder(s.TrueLong - truth.Longitude, 360.0) * 60.0 * std::cos(truth.Latitude * DegToRad);
}

double MilesOff(const fix::SightSession& s, const numeric::GeoPosition& truth)
{
    return std::hypot(MilesNorth(s, truth), MilesEast(s, truth));
}

/// The sight that the fix trusts least.
int LowestWeight(const fix::SightSession& s)
{
    return static_cast<int>(std::min_element(s.ObsWeight.begin(), s.ObsWeight.end()) - s.ObsWeight.begin()) + 1;
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
        int row = 0;
        for (const MadeSight& sight : slips) {
            const double altitude = session.ObsAltitude[++row] - sight.Slip / 60.0;
            entry.Rows[row][fix::GridColumn::Altitude] = fix::AltitudeCellText(altitude);
        }
        const sailing::EarthModel earth = sailing::EllipsoidAt(sailing::DefaultEllipsoidIndex);
        EXPECT_TRUE(fix::RunFix(entry, session, earth.InverseFlattening, earth.SemiMajorAxisNm, journal_));
        return session;
    }

    static void ExpectTruth(const fix::SightSession& s, const Voyage& voyage)
    {
        SCOPED_TRACE(voyage.File);
        const Bounds bounds = WorstCase(s, voyage.SystErr);
        EXPECT_NEAR(MilesNorth(s, voyage.At), 0.0, bounds.Offset[0]);
        EXPECT_NEAR(MilesEast(s, voyage.At), 0.0, bounds.Offset[1]);
        // The estimated position is up to ten miles off: circles of equal altitude bend by 0'.05 over these.
        EXPECT_NEAR(s.SystErr, bounds.SystErr, bounds.SystErrOffset + (s.ObsCount > 2 ? 0.05 : 0.0));
        if (s.NumUnknowns < 4) return;
        EXPECT_NEAR(s.Course, voyage.Course, bounds.Offset[2]);
        EXPECT_NEAR(s.Speed, voyage.Speed, bounds.Offset[3]);
    }

    test::BoxRecorder boxes_;

private:
    test::FakeClock clock_;
    numeric::LastError journal_;
};

TEST_F(SampleTest, PublishedSetsComeToTheirAnswers)
{
    for (const PublishedSet& set : PublishedSets()) {
        const fix::SightSession s = Fix(set.File);
        EXPECT_LE(MilesOff(s, set.Answer), set.Miles) << set.File;
        ASSERT_EQ(s.ObsCount, static_cast<int>(set.Sights.size()));
        int i = 0;
        for (const PublishedSight& sight : set.Sights) {
            EXPECT_NEAR(s.ObsTime[++i], TimeOf(sight.Time), 1e-6);
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
    for (const Voyage& voyage : Voyages()) {
        const auto slipped = [](const MadeSight& sight) { return sight.Slip != 0.0; };
        if (std::none_of(voyage.Sights.begin(), voyage.Sights.end(), slipped)) ExpectTruth(Fix(voyage.File), voyage);
    }
}

TEST_F(SampleTest, SamplesShowWhatTheGuideSays)
{
    const fix::SightSession twelve = Fix("twelve_sights.obs");
    EXPECT_EQ(fix::RoutineTaken(twelve), fix::FixRoutine::Full);
    EXPECT_GT(std::fabs(twelve.OrigCourse - twelve.Course), 2.0);
    EXPECT_GT(std::fabs(twelve.OrigSpeed - twelve.Speed), 0.5);

    const fix::SightSession dateLine = Fix("date_line_south.obs");
    EXPECT_GT(dateLine.EstLong, 0.0);
    EXPECT_LT(dateLine.TrueLong, 0.0);
    EXPECT_GT(dateLine.ObsLong[1], 0.0);
    EXPECT_LT(dateLine.ObsLong[dateLine.ObsCount], 0.0);
}

TEST_F(SampleTest, GrossErrorIsTrustedLeastAndSaysNothing)
{
    const Voyage& voyage = VoyageOf("gross_error.obs");
    const fix::SightSession s = Fix(voyage.File);
    EXPECT_EQ(s.ObsBody[LowestWeight(s)], "ALDEBARAN");
    // With equal weights 15' in one of ten sights all round carry the fix 2/10 of 15' away: the weights
    // must take off more than half.
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
    ExpectTruth(Fix(voyage.File, voyage.Sights), voyage);
}

TEST_F(SampleTest, FilesAreWhatTheProgramItselfWritesAndTheGuideTellsOfAll)
{
    const fs::path written = fs::path(testing::TempDir()) / "merov_sample_written.obs";
    std::set<std::string> known{"old_form_1_0.obs", "old_form_0_9.obs"};
    for (const PublishedSet& set : PublishedSets())
        known.insert(set.File);
    for (const Voyage& voyage : Voyages())
        known.insert(voyage.File);
    const std::string guide = BytesOf(fs::path(MEROV_SOURCE_DIR) / "docs" / "samples.md");
    for (const fs::directory_entry& file : fs::directory_iterator(Folder)) {
        const std::string name = file.path().filename().string();
        EXPECT_EQ(known.erase(name), 1u) << name << " has no truth";
        EXPECT_NE(guide.find(name), std::string::npos) << name << " is not told of";
        // The older forms are those of two sights.
        const bool old = name.starts_with("old_form");
        ASSERT_TRUE(fix::ConvertObservationFile(file.path(), written)) << name;
        EXPECT_EQ(BytesOf(written), BytesOf(old ? Folder / "two_sights.obs" : file.path())) << name;
        EXPECT_EQ(old, BytesOf(written) != BytesOf(file.path())) << name;
    }
    EXPECT_TRUE(known.empty()) << *known.begin() << " is missing";
    fs::remove(written);
}

} // namespace
} // namespace merov::samples
