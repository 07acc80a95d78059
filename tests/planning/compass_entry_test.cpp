#include "planning/compass_entry.h"

#include "numeric/inout_lib.h"
#include "support/box_recorder.h"

#include <gtest/gtest.h>

namespace merov::planning
{
namespace
{

using enum CompassField;
using fix::EntryVerdict;
using fix::FieldColour;

class CompassEntryTest : public testing::Test
{
protected:
    void TearDown() override { numeric::SetDecimalSeparator("."); }

    EntryVerdict Enter(CompassField field, const char* text)
    {
        entry.SetText(field, text);
        return entry.LeaveField(field);
    }

    test::BoxRecorder boxes;
    CompassEntry entry;
};

TEST_F(CompassEntryTest, RefusedReadingsKeepTheirValueAndLoseTheirLastPlace)
{
    Enter(GyroBearing, "010°.5");
    Enter(Variation, "007°.0");
    const struct {
        CompassField Field;
        const char *Text, *Left, *Said;
    } rows[] = {
        {GyroBearing, "360°.1", "360°._", "Bearing or heading > 360°"},
        {GyroBearing, "-10°.0", "-10°._", "Negative bearing or heading."},
        {GyroBearing, "-+1°.0", "-+1°._", "The bearing or heading is not valid."},
        {Variation, "-10°.0", "-10°._",
         "Don't enter a negative value for the variation.|Choose de W/- option button instead."},
        {Variation, "360°.1", "360°._", "The magnetic variation is not valid."},
    };
    for (const auto& row : rows) {
        const double before = entry.Value(row.Field);
        EXPECT_EQ(Enter(row.Field, row.Text), EntryVerdict::Refused) << row.Text;
        EXPECT_EQ(boxes.TakeOne(), " Error in input data|" + std::string(row.Said));
        EXPECT_EQ(entry.Text(row.Field), row.Left);
        EXPECT_TRUE(entry.Value(row.Field) == before && entry.Colour(row.Field) == FieldColour::Window) << row.Text;
    }
}

TEST_F(CompassEntryTest, ReadingsLeftEmptyStayAndPositionsGo)
{
    numeric::SetDecimalSeparator(",");
    entry.EraseAll();
    EXPECT_EQ(entry.Text(GyroBearing), "___°,_");
    for (const auto& [field, text] :
         {std::pair(Latitude, "45°30',0 S"), std::pair(CompassHeading, "360°,0"), std::pair(Variation, "__7°,5")}) {
        EXPECT_EQ(Enter(field, text), EntryVerdict::Valid);
        EXPECT_EQ(entry.Colour(field), FieldColour::Green);
        entry.EnterField(field);
        EXPECT_EQ(entry.Colour(field), FieldColour::Window);
        EXPECT_EQ(Enter(field, fix::EntryBlank(RuleOf(field)).c_str()), EntryVerdict::Empty);
        EXPECT_EQ(entry.Colour(field), FieldColour::Window);
    }
    EXPECT_EQ(entry.Value(CompassHeading), 360.0);
    EXPECT_EQ(entry.Readings().Variation, -7.5);
    entry.SetVariationEast(true);
    EXPECT_EQ(entry.Readings().Variation, 7.5);
    EXPECT_EQ(entry.Value(Latitude), 0.0);
    entry.ShowVariation();
    EXPECT_EQ(entry.Text(Variation), "007°,5");
}

TEST_F(CompassEntryTest, AsksForTheMissingPosition)
{
    Enter(Latitude, "00°00'.0 N");
    EXPECT_FALSE(entry.CheckPosition());
    EXPECT_EQ(boxes.TakeOne(), "Missing latitude/longitude|Please enter the latitude and/or longitude.");
    Enter(Longitude, "000°00'.0 E");
    EXPECT_TRUE(entry.CheckPosition());
    EXPECT_FALSE(entry.ConfirmPosition());
    boxes.Answer({numeric::BoxAnswer::Yes});
    EXPECT_TRUE(entry.ConfirmPosition());
    for (const numeric::Box& box : boxes.TakeAll()) {
        EXPECT_EQ(test::BoxRecorder::Summary(box),
                  "Missing latitude and longitude|The latitude and longitude are equal to zero.|Do you want to display "
                  "the visible stars for|a latitude of 0° and a longitude of 0° ?");
        EXPECT_TRUE(box.Icon == numeric::BoxIcon::Question && box.LastIsDefault);
    }
    Enter(Longitude, "000°01'.0 W");
    EXPECT_TRUE(entry.ConfirmPosition());
}

} // namespace
} // namespace merov::planning
