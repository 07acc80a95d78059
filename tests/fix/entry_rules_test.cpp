#include "fix/entry_rules.h"

#include "fix/entry_twins.h"
#include "numeric/inout_lib.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace merov::fix
{
namespace
{

using Field = EntryField;
using Verdict = EntryVerdict;

/// A test in which the decimal separator may change.
class EntryRules : public testing::Test
{
protected:
    void TearDown() override { numeric::SetDecimalSeparator("."); }
};

std::string FirstLine(const EntryResult& result)
{
    return result.Box ? result.Box->Lines.front() : "";
}

TEST_F(EntryRules, MasksAndBlankTextsCarryTheSeparator)
{
    EXPECT_EQ(EntryMask(Field::Latitude), "9#°##'.# ?");
    EXPECT_EQ(EntryBlank(Field::Longitude), "___°__'._ _");
    numeric::SetDecimalSeparator(",");
    EXPECT_EQ(EntryMask(Field::CellCorrection), "99#,##");
    EXPECT_EQ(EntryMask(Field::Millibars), "####");
    EXPECT_EQ(EntryBlank(Field::InchesHg), "29,91");
    EXPECT_EQ(EntryBlank(Field::HeightMetres), "__,_");
    EXPECT_EQ(ControlName(Field::WaterFahrenheit), "mskTempFahr(1)");
}

TEST_F(EntryRules, EveryBlankTextFitsItsMask)
{
    for (const char* separator : {".", ",", "\u066B"}) {
        numeric::SetDecimalSeparator(separator);
        for (int i = 0; i <= static_cast<int>(Field::CellCorrection); ++i)
            EXPECT_EQ(FitToMask(Field{i}, EntryBlank(Field{i})), EntryBlank(Field{i})) << ControlName(Field{i});
    }
}

TEST_F(EntryRules, TextsAreBroughtIntoTheMask)
{
    struct {
        Field field;
        const char* text;
        const char* fitted; // null: does not fit
    } const cases[] = {
        {Field::Latitude, "5°30'.0 N", "_5°30'.0 N"},
        {Field::Latitude, "05°30',0 N", "05°30'.0 N"},
        {Field::Latitude, "-5°30'.0 N", nullptr},
        {Field::Latitude, "+5°30'.0 N", nullptr},
        {Field::Latitude, "05 30'.0 N", nullptr},
        {Field::Latitude, "05°30'.0 N ", nullptr},
        {Field::Longitude, "1+5°30'.0 E", nullptr},
        {Field::Course, "-90°.0", "-90°.0"},
        {Field::Speed, "12,5", "_12.5"},
        {Field::Speed, "-12.5", nullptr},
        {Field::Speed, "1E5.0", nullptr},
        {Field::HeightMetres, "123.0", nullptr},
        {Field::InstCorr, "-2.50", "_-2.50"},
        {Field::AirCelsius, "-5", "_-5"},
        {Field::AirCelsius, "°5_", nullptr},
        {Field::CellAltitude, "-00°30'.0", nullptr},
        {Field::CellAltitude, "", nullptr},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FitToMask(c.field, c.text).value_or("no fit"), c.fitted ? c.fitted : "no fit") << c.text;
}

TEST_F(EntryRules, KeysAreMappedByPosition)
{
    struct {
        Field field;
        int position;
        const char* keys;
        std::string typed;
    } const cases[] = {
        {Field::Latitude, 9, "+nN-sSx", "NNNSSSx"},   {Field::Latitude, 0, "+n9", "+n9"},
        {Field::Longitude, 10, "+eE-wWn", "EEEWWWn"}, {Field::CellAltitude, 0, "0189", std::string("018\0", 4)},
        {Field::CellAltitude, 1, "9", "9"},           {Field::CellAltitude, 3, "5679", std::string("5\0\0\0", 4)},
        {Field::CellAltitude, 4, "69", "69"},
    };
    for (const auto& c : cases) {
        std::string typed;
        for (const char* key = c.keys; *key != '\0'; ++key)
            typed += MapKey(c.field, c.position, *key);
        EXPECT_EQ(typed, c.typed) << ControlName(c.field) << " position " << c.position;
    }
}

TEST_F(EntryRules, ValidEntries)
{
    struct {
        Field field;
        const char* text;
        double value;
        const char* shown; // null: the text as it was
    } const cases[] = {
        {Field::Latitude, "90°00'.0 S", -90.0, nullptr},
        {Field::Latitude, "_4°_6'._ n", 4.1, nullptr},
        {Field::Longitude, "180°00'.0 W", -180.0, nullptr},
        {Field::Longitude, "008°15'.0 W", -8.25, nullptr},
        {Field::Course, "360°.0", 360.0, nullptr},
        {Field::Course, "__5°._", 5.0, nullptr},
        {Field::Speed, "999.9", 999.9, nullptr},
        {Field::HeightMetres, "99.9", 99.9, nullptr},
        {Field::HeightFeet, "327.9", 327.9, nullptr},
        {Field::InstCorr, "_-2.5_", -2.5, "-02.50"},
        {Field::InstCorr, "60.00", 60.0, "+60.00"},
        {Field::AirCelsius, "-50", -50.0, nullptr},
        {Field::WaterCelsius, "+70", 70.0, nullptr},
        {Field::AirFahrenheit, "158", 158.0, nullptr},
        {Field::WaterFahrenheit, "-58", -58.0, nullptr},
        {Field::Millibars, "_940", 940.0, nullptr},
        {Field::Millibars, "1070", 1070.0, nullptr},
        {Field::InchesHg, "27.76", 27.76, nullptr},
        {Field::InchesHg, "31.59", 31.59, nullptr},
    };
    for (const auto& c : cases) {
        const EntryResult result = CheckEntry(c.field, c.text);
        EXPECT_EQ(result.Verdict, Verdict::Valid) << c.text << ": " << FirstLine(result);
        EXPECT_NEAR(result.Value, c.value, 1e-13) << c.text;
        EXPECT_EQ(result.Text, c.shown ? c.shown : c.text);
    }
}

TEST_F(EntryRules, RefusedEntriesSayWhyAndChangeTheirText)
{
    struct {
        Field field;
        const char* text;
        const char* line;
        const char* shown; // null: the text as it was
    } const cases[] = {
        {Field::Latitude, "91°60'.0 X", "A latitude can only be N (North) or S (South).", nullptr},
        {Field::Latitude, "91°60'.0 N", "The latitude has more than 59'.", nullptr},
        {Field::Latitude, "90°00'.1 N", "Latitude > 90°.", nullptr},
        {Field::Latitude, "-5°30'.0 N", "The latitude is not valid.", nullptr},
        {Field::Longitude, "180°00'.1 E", "Longitude > 180°.", nullptr},
        {Field::Longitude, "4__°00'.0 E", "Longitude > 180°.", nullptr},
        {Field::Longitude, "008°60'.0 E", "The longitude has more than 59'.", nullptr},
        {Field::Longitude, "008°15'.0 N", "A longitude can only be W (West) or E (East).", nullptr},
        {Field::Longitude, "_-5°15'.0 E", "The longitude is not valid.", nullptr},
        {Field::Course, "360°.1", "Course > 360°", "_360°."},
        {Field::Course, "-90°.0", "Negative Course.", "_-90°."},
        {Field::Course, "2-5°.0", "The course is not valid.", "_2-5°."},
        {Field::Speed, "-12.5", "Your speed is negative.", "_-12."},
        {Field::Speed, "1E5.0", "The speed is not valid.", "_1E5."},
        {Field::HeightMetres, "-3.0", "The eye height is negative.", "_-3."},
        {Field::HeightMetres, "123.0", "The eye height is not valid.", "_123."},
        {Field::HeightFeet, "328.0", "The eye height is not valid.", "_328."},
        {Field::InstCorr, "100.00", "The instrumental correction is not valid. Try again please.", "_100.0"},
        {Field::InstCorr, "1-2.50", "The instrumental correction is not valid. Try again please.", "_1-2.5"},
        {Field::AirCelsius, "2-0", "The temperature is not valid.", "_2-"},
        {Field::AirCelsius, "999", "The temperature is not valid.", "_99"},
        {Field::AirCelsius, "-51", "The temperature is lower than -50°C.", "_-5"},
        {Field::WaterCelsius, "_71", "The temperature is higher than +70°C.", "__7"},
        {Field::AirFahrenheit, "-59", "The temperature is lower than -58°F.", "_-5"},
        {Field::WaterFahrenheit, "159", "The temperature is higher than +158°F.", "_15"},
        {Field::Millibars, "_939", "The atmospheric pressure is lower than 940 mbars.", "__93"},
        {Field::Millibars, "1071", "The atmospheric pressure is higher than 1070 mbars.", "_107"},
        {Field::InchesHg, "27.75", "The atmospheric pressure is lower than 27.76 inHg.", "_27.7"},
        {Field::InchesHg, "31.60", "The atmospheric pressure is higher than 31.59 inHg.", "_31.6"},
    };
    for (const auto& c : cases) {
        const EntryResult result = CheckEntry(c.field, c.text);
        ASSERT_EQ(result.Verdict, Verdict::Refused) << c.text;
        EXPECT_EQ(result.Box->Title, " Error in input data");
        EXPECT_EQ(result.Box->Icon, numeric::BoxIcon::Warning);
        EXPECT_EQ(result.Box->Lines, std::vector<std::string>{c.line});
        EXPECT_EQ(result.Text, c.shown ? c.shown : c.text);
    }
}

TEST_F(EntryRules, EntriesWithoutADigitAreEmpty)
{
    for (const char* text : {"", "__°__'._ N", "___._", "_-_"})
        for (int i = 0; i < static_cast<int>(EntryFieldCount); ++i) {
            const EntryResult result = CheckEntry(Field{i}, text);
            EXPECT_EQ(result.Verdict, Verdict::Empty);
            EXPECT_FALSE(result.Box.has_value());
            EXPECT_EQ(result.Text, text);
        }
}

TEST_F(EntryRules, LargeCorrectionIsTakenWithAQuestion)
{
    for (const char* text : {"-60.01", "99.99"}) {
        const EntryResult result = CheckEntry(Field::InstCorr, text);
        ASSERT_EQ(result.Verdict, Verdict::Suspicious);
        EXPECT_EQ(result.Box->Title, "Probable error in input data");
        EXPECT_EQ(result.Box->Lines,
                  (std::vector<std::string>{"Are you sure the instrumental correction is higher than 1° ?",
                                            " I suggest you throw your sextant overboard."}));
        EXPECT_EQ(result.Box->Icon, numeric::BoxIcon::Question);
        EXPECT_EQ(result.Box->Buttons, numeric::BoxButtons::Ok);
        EXPECT_NE(result.Value, 0.0);
    }
}

TEST_F(EntryRules, CommaLocaleTakesAndShowsCommas)
{
    numeric::SetDecimalSeparator(",");
    EXPECT_DOUBLE_EQ(CheckEntry(Field::Latitude, "45°30',6 N").Value, 45.51);
    EXPECT_EQ(CheckEntry(Field::InstCorr, "_-2,50").Text, "-02,50");
    EXPECT_EQ(FirstLine(CheckEntry(Field::InchesHg, "27,75")), "The atmospheric pressure is lower than 27,76 inHg.");
    EXPECT_EQ(FirstLine(CheckEntry(Field::InchesHg, "31,60")), "The atmospheric pressure is higher than 31,59 inHg.");
    // A point is read as the comma in whose place it stands, never as the end of the number.
    const EntryResult speed = CheckEntry(Field::Speed, "_12.5");
    EXPECT_EQ(speed.Value, 12.5);
    EXPECT_EQ(speed.Text, "_12,5");
}

TEST_F(EntryRules, ValuesOfAFileTakeTheTextOfTheField)
{
    struct {
        Field field;
        double value;
        const char* shown; // null: refused
        double taken;
        const char* line;
    } const cases[] = {
        {Field::Latitude, -8.24999, "08°15'.0 S", -8.25, ""},
        {Field::Latitude, 29.99995, "30°00'.0 N", 30.0, ""},
        {Field::Latitude, 90.0005, "90°00'.0 N", 90.0, ""},
        {Field::Latitude, 95.0, nullptr, 0, "Latitude > 90°."},
        {Field::Latitude, -1e300, nullptr, 0, "Latitude > 90°."},
        {Field::Longitude, -180.0, "180°00'.0 W", -180.0, ""},
        {Field::Longitude, 200.0, nullptr, 0, "Longitude > 180°."},
        {Field::Longitude, -359.0, nullptr, 0, "Longitude > 180°."},
        {Field::Longitude, 360.0, nullptr, 0, "Longitude > 180°."},
        {Field::Course, 7.06, "007°.1", 7.1, ""},
        {Field::Course, -0.04, "000°.0", 0.0, ""},
        {Field::Course, 400.0, nullptr, 0, "Course > 360°"},
        {Field::Course, 1e300, nullptr, 0, "Course > 360°"},
        {Field::Course, -5.0, nullptr, 0, "Negative Course."},
        {Field::Speed, 12.55, "012.6", 12.6, ""},
        {Field::Speed, -5.0, nullptr, 0, "Your speed is negative."},
        {Field::Speed, 1234.5, nullptr, 0, "The speed is not valid."},
        {Field::HeightMetres, 3.048, "03.0", 3.0, ""},
        {Field::HeightMetres, -3.0, nullptr, 0, "The eye height is negative."},
        {Field::HeightMetres, 123.0, nullptr, 0, "The eye height is not valid."},
        {Field::InstCorr, -2.506, "-02.51", -2.51, ""},
        {Field::InstCorr, 120.0, nullptr, 0, "The instrumental correction is not valid. Try again please."},
        {Field::AirCelsius, 5.4, "005", 5.0, ""},
        {Field::AirCelsius, -5.5, "_-6", -6.0, ""},
        {Field::AirCelsius, -0.4, "__0", 0.0, ""},
        {Field::WaterCelsius, -120.0, nullptr, 0, "The temperature is lower than -50°C."},
        {Field::Millibars, 999.5, "1000", 1000.0, ""},
        {Field::Millibars, 999.4, "0999", 999.0, ""},
        {Field::Millibars, 2000.0, nullptr, 0, "The atmospheric pressure is higher than 1070 mbars."},
        {Field::Millibars, -1e308, nullptr, 0, "The atmospheric pressure is lower than 940 mbars."},
    };
    for (const auto& c : cases) {
        const EntryResult result = CheckValue(c.field, c.value);
        EXPECT_EQ(result.Verdict, c.shown ? Verdict::Valid : Verdict::Refused) << ControlName(c.field) << c.value;
        EXPECT_EQ(FirstLine(result), c.line);
        EXPECT_NEAR(result.Value, c.taken, 1e-13);
        EXPECT_EQ(result.Text, c.shown ? c.shown : result.Text);
    }
}

TEST_F(EntryRules, TwinsFollow)
{
    struct {
        Field field;
        double value;
        Field twin;
        double twinValue;
        const char* text;
    } const cases[] = {
        {Field::HeightMetres, 12.0, Field::HeightFeet, 39.37008, "039.4"},
        {Field::HeightFeet, 40.0, Field::HeightMetres, 12.192, "12.2"},
        {Field::AirCelsius, -20.0, Field::AirFahrenheit, -4.0, "_-4"},
        {Field::AirFahrenheit, 69.0, Field::AirCelsius, 20.5555555555556, "_21"},
        {Field::WaterCelsius, 70.0, Field::WaterFahrenheit, 158.0, "158"},
        {Field::WaterFahrenheit, -58.0, Field::WaterCelsius, -50.0, "-50"},
        {Field::Millibars, 1013.0, Field::InchesHg, 29.91389, "29.91"},
        {Field::InchesHg, 29.91, Field::Millibars, 1012.866258, "1013"},
    };
    for (const auto& c : cases) {
        const auto twin = TwinOf(c.field, c.value);
        ASSERT_TRUE(twin.has_value());
        EXPECT_EQ(twin->Field, c.twin);
        EXPECT_NEAR(twin->Value, c.twinValue, 1e-9);
        EXPECT_EQ(twin->Text, c.text);
    }
    EXPECT_FALSE(TwinOf(Field::Speed, 12.0).has_value());
}

TEST_F(EntryRules, SpinButtonsStopAtTheLimits)
{
    struct {
        Field field;
        double value;
        const char* up; // null: no step
        const char* down;
    } const cases[] = {
        {Field::Millibars, 1069.0, "1070", "1068"},      {Field::Millibars, 1070.0, nullptr, "1069"},
        {Field::Millibars, 941.0, "_942", "_940"},       {Field::Millibars, 940.0, "_941", nullptr},
        {Field::InchesHg, 31.49, "31.59", "31.39"},      {Field::InchesHg, 31.5, nullptr, "31.40"},
        {Field::InchesHg, 27.86, "27.96", "27.76"},      {Field::InchesHg, 27.85, "27.95", nullptr},
        {Field::AirCelsius, 0.0, "__1", "_-1"},          {Field::AirCelsius, 70.0, nullptr, "_69"},
        {Field::WaterCelsius, -50.0, "-49", nullptr},    {Field::AirFahrenheit, 157.0, "158", "156"},
        {Field::WaterFahrenheit, -58.0, "-57", nullptr}, {Field::Speed, 10.0, nullptr, nullptr},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(StepText(c.field, c.value, true).value_or("none"), c.up ? c.up : "none");
        EXPECT_EQ(StepText(c.field, c.value, false).value_or("none"), c.down ? c.down : "none");
    }
}

TEST_F(EntryRules, AltitudeCells)
{
    struct {
        const char* text;
        double value; // -1: not readable
        const char* shown;
        const char* line; // of the commit's box
    } const cases[] = {
        {"35°15'.0", 35.25, "35°15'.0", ""},
        {"_5°1_'._", 5.0 + 1.0 / 60.0, "05°01'.0", ""},
        {"89°59'.9", 90.0 - 0.1 / 60.0, "89°59'.9", ""},
        {"90°00'.0", 90.0, "90°00'.0", ""},
        {"90°00'.1", -1, "90°00'.1", "Altitude > 90°."},
        {"35°60'.0", -1, "35°60'.0", "The altitude has more than 59'."},
        {"-5°30'.0", -1, "-5°30'.0", "The altitude is not valid."},
        {"-00°30'.0", -1, "-00°30'.0", "The altitude is not valid."},
        {"120°00'.0", -1, "120°00'.0", "The altitude is not valid."},
        {"35.25", -1, "35.25", "The altitude is not valid."},
    };
    for (const auto& c : cases) {
        const auto read = ReadAltitudeCell(c.text);
        const EntryResult result = CheckAltitudeCell(c.text);
        EXPECT_EQ(result.Verdict, c.value >= 0.0 ? Verdict::Valid : Verdict::Refused) << c.text;
        EXPECT_NEAR(read.value_or(-1.0), c.value, 1e-13) << c.text;
        EXPECT_EQ(result.Text, c.shown);
        EXPECT_EQ(FirstLine(result), c.line);
    }
    EXPECT_FALSE(ReadAltitudeCell("__°__'._").has_value());
    EXPECT_EQ(CheckAltitudeCell("__°__'._").Verdict, Verdict::Empty);
}

TEST_F(EntryRules, CorrectionCellsAreCutWhenCommittedAndRefusedWhenRead)
{
    struct {
        const char* text;
        double committed;
        const char* shown;
        bool readable;
    } const cases[] = {
        {"_-2.5_", -2.5, "-02.50", true},    {"+99.99", 99.99, "+99.99", true},  {"100.00", 99.99, "+99.99", false},
        {"-999.0", -99.99, "-99.99", false}, {"2-5.00", 99.99, "+99.99", false}, {"__0.00", 0.0, "+00.00", true},
    };
    for (const auto& c : cases) {
        const EntryResult result = CheckCorrectionCell(c.text);
        EXPECT_EQ(result.Verdict, Verdict::Valid);
        EXPECT_DOUBLE_EQ(result.Value, c.committed);
        EXPECT_EQ(result.Text, c.shown);
        EXPECT_EQ(ReadCorrectionCell(c.text).has_value(), c.readable) << c.text;
    }
    EXPECT_EQ(CheckCorrectionCell("___.__").Verdict, Verdict::Empty);
    EXPECT_FALSE(ReadCorrectionCell("___.__").has_value());
    EXPECT_FALSE(ReadCorrectionCell("nan").has_value());
}

TEST_F(EntryRules, CellTextsOfAFileNeverHideWhatIsOutOfRange)
{
    EXPECT_EQ(AltitudeCellText(35.25), "35°15'.0");
    EXPECT_EQ(AltitudeCellText(59.99995), "60°00'.0");
    EXPECT_EQ(AltitudeCellText(-1e307), "-999°00'.0");
    EXPECT_EQ(CorrectionCellText(-2.5 / 60.0), "-02.50");
    EXPECT_EQ(CorrectionCellText(-1e-9), "+00.00");
    for (const double altitude : {-0.5, 90.01, 180.0, 1e5, 1e307, -1e307})
        EXPECT_FALSE(ReadAltitudeCell(AltitudeCellText(altitude)).has_value()) << altitude;
    for (const double correction : {1.6667, -2.0, 100.0, 1e307, -1e307})
        EXPECT_FALSE(ReadCorrectionCell(CorrectionCellText(correction)).has_value()) << correction;
}

TEST_F(EntryRules, EveryTenthOfAMinuteComesBackFromItsText)
{
    for (int tenths = 0; tenths <= 54000; ++tenths) {
        const double altitude = tenths / 600.0;
        ASSERT_NEAR(ReadAltitudeCell(AltitudeCellText(altitude)).value_or(-1.0), altitude, 1e-12);
        const EntryResult longitude = CheckValue(Field::Longitude, -2.0 * altitude);
        ASSERT_NEAR(longitude.Value, -2.0 * altitude, 1e-12) << longitude.Text;
    }
}

} // namespace
} // namespace merov::fix
