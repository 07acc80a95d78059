#include "fix/fix_summary.h"

#include <gtest/gtest.h>

#include <functional>

namespace merov::fix
{
namespace
{

/// A session after a fix of nine sights over four hours, as a driver leaves it.
SightSession FinishedFix()
{
    SightSession s;
    AllocateObservations(s, 9);
    for (int i = 1; i <= 9; ++i)
        s.ObsTime[i] = 38128.5 + i * 0.5 / 24.0;
    s.TimeTruePos = 38128.5 + (18.0 * 60 + 2.25) / 1440.0; // 21 May 2004, 6:02:15 after noon and 12 hours
    s.GoodObsCount = 8;
    s.NumUnknowns = 4;
    s.IterCount = 5;
    s.TrueLat = -12.0 - 29.99951 / 60.0;
    s.TrueLong = -8.25;
    s.EllipseNS = 0.5 / 60.0;
    s.EllipseEW = 1.2345 / 60.0;
    s.CircleRadius = 12.345 / 60.0;
    s.Course = 7.25;
    s.Speed = 12.34;
    s.SystErr = -0.75;
    return s;
}

using Texts = std::vector<std::pair<std::string, std::string>>;

Texts Panels(const SightSession& s)
{
    Texts texts;
    for (const FixPanel& panel : FixPanels(s))
        texts.emplace_back(panel.Key, panel.Text);
    return texts;
}

TEST(FixPanels, ShowTheFixInTheirOrder)
{
    EXPECT_EQ(Panels(FinishedFix()), (Texts{
                                         {"TimeTruePos", "22 May 2004 06:02:15"},
                                         {"MPP", "12°30'.0 S 008°15'.0 W"},
                                         {"Proba", "95.0 %"},
                                         {"Ellipse", "NS 0'.50 EW 1'.23"},
                                         {"Circle", "R 12'.35"},
                                         {"Course", "007°.3"},
                                         {"Speed", "12'.3"},
                                         {"Full", "Full"},
                                         {"Iter", "Iter 5"},
                                         {"SystErr", "Err -0'.8"},
                                     }));
}

TEST(FixPanels, FollowTheOptions)
{
    SightSession s = FinishedFix();
    s.Probability = 0.999;
    s.SystErr = 0.04;
    EXPECT_EQ(Panels(s)[2].second, "99.9 %");
    EXPECT_EQ(Panels(s)[9].second, "Err +0'.0");
    s.FindSystErr = false;
    EXPECT_EQ(Panels(s)[9].second, "");
}

TEST(RoutineTaken, NamesTheFirstReasonThatApplies)
{
    struct Row {
        FixRoutine Routine;
        std::string Panel;
        std::function<void(SightSession&)> Change;
    };
    // From the last reason to the first: each joins those before it and wins.
    const Row rows[] = {
        {FixRoutine::NoSpeed, "Trunc. No speed.", [](SightSession& s) { s.NumUnknowns = 2, s.Speed = 0.0; }},
        {FixRoutine::ShortTimeSpread, "Trunc. Not enough time spread.",
         [](SightSession& s) { s.ObsTime[1] = s.ObsTime[2] = s.ObsTime[9] - 0.125; }},
        {FixRoutine::TooFewGoodObs, "Trunc. Not enough good obs.", [](SightSession& s) { s.GoodObsCount = 7; }},
        {FixRoutine::TooFewObs, "Trunc. Not enough obs.", [](SightSession& s) { s.ObsCount = 7; }},
        {FixRoutine::UserPreference, "Trunc. User preference.", [](SightSession& s) { s.UseFullRoutine = false; }},
    };
    SightSession s = FinishedFix();
    EXPECT_EQ(RoutineTaken(s), FixRoutine::Full);
    for (const Row& row : rows) {
        row.Change(s);
        EXPECT_EQ(RoutineTaken(s), row.Routine) << row.Panel;
        EXPECT_EQ(Panels(s)[7].second, row.Panel);
    }
}

} // namespace
} // namespace merov::fix
