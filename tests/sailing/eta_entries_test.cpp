#include "sailing/eta_entries.h"

#include "support/box_recorder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace merov::sailing
{
namespace
{

using enum EtaField;

const std::string Title = " Error in input data|";
const std::string MinAboveMax = "Your minimum speed is greater than the maximum speed.";
const std::string TooBig = "Your speed interval is too big.";

class EtaEntriesTest : public testing::Test
{
protected:
    EtaEntriesTest() { Reset(); }

    void Reset()
    {
        entries = {};
        for (const EtaField field : {Distance, MinSpeed, MaxSpeed, Interval})
            ResetEtaField(entries, field);
    }
    /// What leaving a field with a text tells; nothing if the text is taken.
    std::string Leave(EtaField field, const std::string& text)
    {
        entries.Text(field) = text;
        return LeaveEtaField(entries, field) ? "" : boxes.TakeOne().substr(Title.size());
    }
    /// Some steps of a spin button, all of which are taken, and the text then.
    std::string Step(EtaField field, bool up, int times)
    {
        while (times-- > 0)
            EXPECT_TRUE(StepEtaField(entries, field, up));
        return entries.Text(field);
    }

    test::BoxRecorder boxes;
    EtaEntries entries;
};

TEST_F(EtaEntriesTest, EachFieldHasItsRule)
{
    const struct {
        EtaField Field;
        std::string Typed;
        std::string Box; ///< none if it is taken
        std::string Shown;
        double Value;
    } cases[] = {
        {Distance, "___12.5_", "", "___12.5_", 12.5},
        {Distance, "_____.__", "", "_____.__", 0.0},
        {Distance, "-12", "Negative distance.", "-1_", 0.0},
        {MinSpeed, "___._", "", "___._", 10.0},
        {MinSpeed, "_24.0", "", "_24.0", 24.0},
        {MinSpeed, "_24.1", MinAboveMax, "_24._", 24.0},
        {MinSpeed, "___.0", "Your minimum speed is zero or negative.", "___._", 24.0},
        {MaxSpeed, "_10.0", "", "_10.0", 10.0},
        {MaxSpeed, "__9.9", "Your maximum speed is less than the minimum speed.", "__9._", 10.0},
        {MaxSpeed, "000.0", "Your maximum speed is zero or negative.", "000._", 10.0},
        {Interval, "__.__", "", "__.__", 0.5},
        {Interval, "14.00", "", "14.00", 14.0},
        {Interval, "14.01", TooBig, "14.0_", 14.0},
        {Interval, "_0.00", "Your speed interval is negative or zero.", "_0.0_", 0.1},
    };
    for (const auto& c : cases) {
        Reset();
        EXPECT_EQ(Leave(c.Field, c.Typed), c.Box) << c.Typed;
        EXPECT_EQ(entries.Text(c.Field), c.Shown);
        EXPECT_EQ(entries.Value(c.Field), c.Value) << c.Typed;
    }
}

TEST_F(EtaEntriesTest, AMistakeInTheOrderOfSpeedsIsToldOnce)
{
    EXPECT_EQ(Leave(MinSpeed, "_25.0"), MinAboveMax);
    EXPECT_EQ(Leave(MinSpeed, "_25._"), ""); // as it stands
    EXPECT_EQ(entries.Input.MinSpeed, 24.0);
    EXPECT_EQ(Leave(MinSpeed, "_25._"), MinAboveMax); // that was the once
    EXPECT_EQ(Leave(MaxSpeed, "_24.0"), "");          // so it goes with the other field
    EXPECT_FALSE(entries.SkipSpeedCheck);
    EXPECT_EQ(Leave(MinSpeed, "_26.0"), MinAboveMax);
    EXPECT_EQ(Leave(MinSpeed, "_20.0"), ""); // what is typed over it counts
    EXPECT_EQ(Leave(Interval, "_4.01"), TooBig);
}

TEST_F(EtaEntriesTest, SpinButtonsStepWithinTheirLimits)
{
    EXPECT_EQ(Step(MinSpeed, false, 12), "__1.0");
    entries.Input.MinSpeed = 1.5;
    EXPECT_EQ(Step(MinSpeed, false, 2), "__0.5");
    entries.Input.MaxSpeed = 998.5;
    EXPECT_EQ(Step(MaxSpeed, true, 2), "999.5");
    EXPECT_EQ(Step(Interval, false, 1), "_0.50");
    entries.Input.SpeedInterval = 98.5;
    EXPECT_EQ(Step(Interval, true, 2), "99.00");

    Reset();
    EXPECT_EQ(Step(MinSpeed, true, 14), "_24.0");
    for (int i = 0; i < 2; ++i) { // each step beyond is told
        EXPECT_FALSE(StepEtaField(entries, MinSpeed, true));
        EXPECT_EQ(boxes.TakeOne(), Title + MinAboveMax);
    }
    EXPECT_EQ(Leave(Interval, "_0.50"), TooBig); // no range, no interval
    EXPECT_EQ(entries.Input.SpeedInterval, 0.0);
}

TEST_F(EtaEntriesTest, ZonesAreAsTheirNamesSay)
{
    ASSERT_EQ(EtaZones().size(), 40U);
    EXPECT_EQ(EtaZones()[EtaGmtZone].Name, "GMT");
    for (const EtaZone& zone : EtaZones()) {
        const std::string hours(zone.Name.substr(3));
        const int whole = std::atoi(hours.c_str());
        const int part = hours.ends_with(" 1/2") ? 50 : hours.ends_with(" 3/4") ? 75 : 0;
        EXPECT_EQ(zone.Hundredths, 100 * whole + (whole < 0 ? -part : part)) << zone.Name;
    }
}

} // namespace
} // namespace merov::sailing
