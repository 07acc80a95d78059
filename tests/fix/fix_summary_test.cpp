#include "fix/fix_summary.h"

#include <gtest/gtest.h>

namespace merov::fix::tests
{

TEST(FixSummary, PanelsShowTheFixAndItsRoutine)
{
    SightSession s; // nine sights over four hours
    AllocateObservations(s, 9);
    for (int i = 1; i <= 9; ++i)
        s.ObsTime[i] = 38128.5 + i * 0.5 / 24.0;
    s.TimeTruePos = 38129.0 + (6.0 * 60 + 2.25) / 1440.0; // 22 May 2004, 6:02:15
    s.GoodObsCount = 8;
    s.NumUnknowns = 4;
    s.IterCount = 101;
    s.TrueLat = -12.0 - 29.99951 / 60.0;
    s.TrueLong = -8.25;
    s.EllipseNS = 0.5 / 60.0;
    s.EllipseEW = 1.2345 / 60.0;
    s.CircleRadius = 12.345 / 60.0;
    s.Course = 7.25;
    s.Speed = 12.34;
    s.SystErr = -0.75;
    const auto panel = [&s](std::size_t i) { return FixPanels(s).at(i).Text; };
    std::string all;
    for (const FixPanel& each : FixPanels(s))
        all += each.Key + ": " + each.Text + "\n";
    EXPECT_EQ(all, "TimeTruePos: 22 May 2004 06:02:15\nMPP: 12°30'.0 S 008°15'.0 W\nProba: 95.0 %\n"
                   "Ellipse: NS 0'.50 EW 1'.23\nCircle: R 12'.35\nCourse: 007°.3\nSpeed: 12'.3\nFull: Full\n"
                   "Iter: Iter 101\nSystErr: Err -0'.8\n");
    s.Probability = 0.999;
    EXPECT_EQ(panel(2), "99.9 %");
    s.SystErr = 0.04;
    EXPECT_EQ(panel(9), "Err +0'.0");
    s.FindSystErr = false;
    EXPECT_EQ(panel(9), "");

    // From the last reason to the first: each joins those before it and wins.
    s.NumUnknowns = 2;
    s.Speed = 0.0;
    EXPECT_EQ(panel(7), "Trunc. No speed.");
    s.ObsTime[1] = s.ObsTime[2] = s.ObsTime[9] - 0.125;
    EXPECT_EQ(panel(7), "Trunc. Not enough time spread.");
    s.GoodObsCount = 7;
    EXPECT_EQ(panel(7), "Trunc. Not enough good obs.");
    s.ObsCount = 7;
    EXPECT_EQ(panel(7), "Trunc. Not enough obs.");
    s.UseFullRoutine = false;
    EXPECT_EQ(panel(7), "Trunc. User preference.");
}

} // namespace merov::fix::tests
