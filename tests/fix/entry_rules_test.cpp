#include "fix/entry_rules.h"

#include "fix/entry_twins.h"
#include "numeric/inout_lib.h"
#include "support/box_recorder.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace merov::fix::tests
{

using Field = EntryField;
using enum EntryField;
using enum EntryVerdict;

template <class... T>
using Rows = std::vector<std::tuple<T...>>;

/// A test in which the decimal separator may change.
class EntryRules : public testing::Test
{
protected:
    void TearDown() override { numeric::SetDecimalSeparator("."); }
};

std::string BoxOf(const EntryResult& result)
{
    return result.Box ? test::BoxRecorder::Summary(*result.Box) : "";
}

TEST_F(EntryRules, MasksBlankTextsAndEntriesCarryTheSeparator)
{
    EXPECT_EQ(EntryMask(Latitude), "9#°##'.# ?");
    EXPECT_EQ(EntryBlank(Longitude), "___°__'._ _");
    numeric::SetDecimalSeparator(",");
    EXPECT_EQ(EntryMask(CellCorrection), "99#,##");
    EXPECT_EQ(EntryBlank(InchesHg), "29,91");
    EXPECT_EQ(FitToMask(Latitude, "5°30'.0 N"), "_5°30',0 N");
    EXPECT_EQ(FitToMask(Latitude, "05°30',0 N "), std::nullopt);
    EXPECT_EQ(FitToMask(CellAltitude, ""), std::nullopt);
    for (const char* separator : {".", ",", "\u066B"}) {
        numeric::SetDecimalSeparator(separator);
        for (int i = 0; i <= static_cast<int>(CellCorrection); ++i)
            EXPECT_EQ(FitToMask(Field{i}, EntryBlank(Field{i})), EntryBlank(Field{i})) << ControlName(Field{i});
    }
}

TEST_F(EntryRules, KeysAreMappedByPosition)
{
    // "0" for a key that types nothing.
    const Rows<Field, int, std::string, const char*> rows = {
        {Latitude, 9, "+nN-sSx", "NNNSSSx"}, {Latitude, 0, "+n9", "+n9"},       {Longitude, 10, "+eE-wWn", "EEEWWWn"},
        {CellAltitude, 0, "189", "180"},     {CellAltitude, 3, "5679", "5000"}, {CellAltitude, 4, "69", "69"}};
    for (const auto& [field, position, keys, typed] : rows)
        for (std::size_t i = 0; i < keys.size(); ++i)
            EXPECT_EQ(MapKey(field, position, keys[i]), typed[i] == '0' ? '\0' : typed[i]) << keys[i];
}

TEST_F(EntryRules, ValidEntriesReachToTheirLimits)
{
    const Rows<Field, const char*, double> rows = {
        {Latitude, "90°00'.0 S", -90.0},  {Latitude, "_4°_6'._ n", 4.1},   {Longitude, "180°00'.0 W", -180.0},
        {Longitude, "008°15'.0 E", 8.25}, {Course, "360°.0", 360.0},       {Course, "__5°._", 5.0},
        {Speed, "999.9", 999.9},          {HeightMetres, "99.9", 99.9},    {HeightFeet, "327.9", 327.9},
        {InstCorr, "-60.00", -60.0},      {AirCelsius, "-50", -50.0},      {WaterCelsius, "+70", 70.0},
        {AirFahrenheit, "158", 158.0},    {WaterFahrenheit, "-58", -58.0}, {Millibars, "_940", 940.0},
        {Millibars, "1070", 1070.0},      {InchesHg, "27.76", 27.76},      {InchesHg, "31.59", 31.59}};
    for (const auto& [field, text, value] : rows) {
        const EntryResult result = CheckEntry(field, text);
        EXPECT_EQ(result.Verdict, Valid) << text << ": " << BoxOf(result);
        EXPECT_NEAR(result.Value, value, 1e-13) << text;
        EXPECT_EQ(result.Text, text);
    }
}

TEST_F(EntryRules, RefusedEntriesSayWhyAndChangeTheirText)
{
    // The field then shows the last text; none where it keeps its own.
    const Rows<Field, const char*, std::string, const char*> rows = {
        {Latitude, "91°60'.0 X", "A latitude can only be N (North) or S (South).", ""},
        {Latitude, "91°60'.0 N", "The latitude has more than 59'.", ""},
        {Latitude, "90°00'.1 N", "Latitude > 90°.", ""},
        {Latitude, "-5°30'.0 N", "The latitude is not valid.", ""},
        {Longitude, "180°00'.1 E", "Longitude > 180°.", ""},
        {Longitude, "008°60'.0 E", "The longitude has more than 59'.", ""},
        {Longitude, "008°15'.0 N", "A longitude can only be W (West) or E (East).", ""},
        {Course, "360°.1", "Course > 360°", "_360°."},
        {Course, "-90°.0", "Negative Course.", "_-90°."},
        {Course, "2-5°.0", "The course is not valid.", "_2-5°."},
        {Speed, "-12.5", "Your speed is negative.", "_-12."},
        {Speed, "1E5.0", "The speed is not valid.", "_1E5."},
        {HeightMetres, "-3.0", "The eye height is negative.", "_-3."},
        {HeightMetres, "123.0", "The eye height is not valid.", "_123."},
        {HeightFeet, "328.0", "The eye height is not valid.", "_328."},
        {InstCorr, "100.00", "The instrumental correction is not valid. Try again please.", "_100.0"},
        {InstCorr, "1-2.50", "The instrumental correction is not valid. Try again please.", "_1-2.5"},
        {AirCelsius, "2-0", "The temperature is not valid.", "_2-"},
        {AirCelsius, "-51", "The temperature is lower than -50°C.", "_-5"},
        {WaterCelsius, "_71", "The temperature is higher than +70°C.", "__7"},
        {AirFahrenheit, "-59", "The temperature is lower than -58°F.", "_-5"},
        {WaterFahrenheit, "159", "The temperature is higher than +158°F.", "_15"},
        {Millibars, "_939", "The atmospheric pressure is lower than 940 mbars.", "__93"},
        {Millibars, "1071", "The atmospheric pressure is higher than 1070 mbars.", "_107"},
        {InchesHg, "27.75", "The atmospheric pressure is lower than 27.76 inHg.", "_27.7"},
        {InchesHg, "31.60", "The atmospheric pressure is higher than 31.59 inHg.", "_31.6"}};
    for (const auto& [field, text, line, shown] : rows) {
        const EntryResult result = CheckEntry(field, text);
        ASSERT_EQ(result.Verdict, Refused) << text;
        EXPECT_EQ(BoxOf(result), " Error in input data|" + line);
        EXPECT_EQ(result.Box->Icon, numeric::BoxIcon::Warning);
        EXPECT_EQ(result.Text, *shown ? shown : text);
    }
}

TEST_F(EntryRules, EntriesWithoutADigitAreEmpty)
{
    for (const char* text : {"", "__°__'._ N", "_-_"})
        for (int i = 0; i < static_cast<int>(EntryFieldCount); ++i)
            EXPECT_TRUE(CheckEntry(Field{i}, text).Verdict == Empty && !CheckEntry(Field{i}, text).Box) << text;
}

TEST_F(EntryRules, LargeCorrectionIsTakenWithAQuestion)
{
    for (const auto& [text, value] : {std::pair{"-60.01", -60.01}, {"99.99", 99.99}}) {
        const EntryResult result = CheckEntry(InstCorr, text);
        ASSERT_EQ(result.Verdict, Suspicious);
        EXPECT_EQ(result.Value, value);
        EXPECT_EQ(BoxOf(result), "Probable error in input data|"
                                 "Are you sure the instrumental correction is higher than 1° ?|"
                                 " I suggest you throw your sextant overboard.");
        EXPECT_EQ(result.Box->Icon, numeric::BoxIcon::Question);
    }
}

TEST_F(EntryRules, CommaLocaleTakesAndShowsCommas)
{
    numeric::SetDecimalSeparator(",");
    EXPECT_DOUBLE_EQ(CheckEntry(Latitude, "45°30',6 N").Value, 45.51);
    EXPECT_EQ(CheckEntry(InstCorr, "_-2,50").Text, "-02,50");
    EXPECT_EQ(CheckEntry(InchesHg, "27,75").Box->Lines[0], "The atmospheric pressure is lower than 27,76 inHg.");
    EXPECT_EQ(CheckEntry(InchesHg, "31,60").Box->Lines[0], "The atmospheric pressure is higher than 31,59 inHg.");
    // A point is read as the comma in whose place it stands, never as the end of the number.
    EXPECT_EQ(CheckEntry(Speed, "_12.5").Value, 12.5);
    EXPECT_EQ(CheckEntry(Speed, "_12.5").Text, "_12,5");
}

TEST_F(EntryRules, ValuesOfAFileTakeTheTextOfTheField)
{
    const Rows<Field, double, const char*, double> rows = {
        {Latitude, -8.24999, "08°15'.0 S", -8.25}, {Course, 7.06, "007°.1", 7.1},
        {Latitude, 29.99995, "30°00'.0 N", 30},    {Course, -0.04, "000°.0", 0},
        {Latitude, 90.0005, "90°00'.0 N", 90},     {Speed, 12.55, "012.6", 12.6},
        {Longitude, -180, "180°00'.0 W", -180},    {AirCelsius, 5.4, "005", 5},
        {Longitude, 200, "160°00'.0 W", -160},     {AirCelsius, -5.5, "_-6", -6},
        {InstCorr, -2.506, "-02.51", -2.51},       {AirCelsius, -0.4, "__0", 0},
        {HeightMetres, 3.048, "03.0", 3},          {Millibars, 999.4, "0999", 999}};
    for (const auto& [field, value, shown, taken] : rows) {
        const EntryResult result = CheckValue(field, value);
        EXPECT_EQ(result.Verdict, Valid) << shown << BoxOf(result);
        EXPECT_NEAR(result.Value, taken, 1e-13);
        EXPECT_EQ(result.Text, shown);
    }
    const Rows<Field, std::vector<double>> beyond = {
        {Latitude, {95.0, -1e300}},     {Longitude, {360.1, -180.1, -359.0, 1e300}},
        {Course, {400.0, 1e300, -5.0}}, {Speed, {1234.5, -5.0}},
        {HeightMetres, {123.0, -3.0}},  {InstCorr, {120.0}},
        {WaterCelsius, {71.0, -120.0}}, {Millibars, {2000.0, -1e308}}};
    for (const auto& [field, values] : beyond)
        for (const double value : values)
            EXPECT_EQ(CheckValue(field, value).Verdict, Refused) << ControlName(field) << value;
}

TEST_F(EntryRules, TwinsFollow)
{
    const Rows<Field, double, Field, double, const char*> rows = {
        {HeightMetres, 12.0, HeightFeet, 39.37008, "039.4"}, {HeightFeet, 40.0, HeightMetres, 12.192, "12.2"},
        {AirCelsius, -20.0, AirFahrenheit, -4.0, "_-4"},     {AirFahrenheit, 69.0, AirCelsius, 20.5555555555556, "_21"},
        {WaterCelsius, 70.0, WaterFahrenheit, 158.0, "158"}, {WaterFahrenheit, -58.0, WaterCelsius, -50.0, "-50"},
        {Millibars, 1013.0, InchesHg, 29.91389, "29.91"},    {InchesHg, 29.91, Millibars, 1012.866258, "1013"}};
    for (const auto& [field, value, other, converted, text] : rows) {
        const auto twin = TwinOf(field, value).value();
        EXPECT_EQ(twin.Field, other);
        EXPECT_NEAR(twin.Value, converted, 1e-9);
        EXPECT_EQ(twin.Text, text);
    }
    EXPECT_FALSE(TwinOf(Speed, 12.0).has_value());
}

TEST_F(EntryRules, SpinButtonsStopAtTheLimits)
{
    const Rows<Field, double, const char*, const char*> rows = {
        {Millibars, 1069.0, "1070", "1068"},    {Millibars, 1069.5, "-", "1069"},
        {Millibars, 941.0, "_942", "_940"},     {Millibars, 940.5, "_942", "-"},
        {InchesHg, 31.49, "31.59", "31.39"},    {InchesHg, 31.5, "-", "31.40"},
        {InchesHg, 27.86, "27.96", "27.76"},    {InchesHg, 27.85, "27.95", "-"},
        {AirCelsius, 69.0, "_70", "_68"},       {AirCelsius, 70.0, "-", "_69"},
        {WaterCelsius, -49.0, "-48", "-50"},    {WaterCelsius, -50.0, "-49", "-"},
        {AirFahrenheit, 157.0, "158", "156"},   {AirFahrenheit, 158.0, "-", "157"},
        {WaterFahrenheit, -57.0, "-56", "-58"}, {Speed, 10.0, "-", "-"}};
    for (const auto& [field, value, up, down] : rows) {
        EXPECT_EQ(StepText(field, value, true).value_or("-"), up) << value;
        EXPECT_EQ(StepText(field, value, false).value_or("-"), down) << value;
    }
}

TEST_F(EntryRules, AltitudeCells)
{
    // The value is -1 where the cell cannot be read; the last text is then the line of the commit's box.
    const Rows<std::string, double, const char*> rows = {
        {"_5°1_'._", 5.0 + 1.0 / 60.0, "05°01'.0"},          {"35°15'.0", 35.25, "35°15'.0"},
        {"35°60'.0", -1, "The altitude has more than 59'."}, {"89°59'.9", 90.0 - 0.1 / 60.0, "89°59'.9"},
        {"-5°30'.0", -1, "The altitude is not valid."},      {"90°00'.0", 90.0, "90°00'.0"},
        {"35.25", -1, "The altitude is not valid."},         {"90°00'.1", -1, "Altitude > 90°."}};
    for (const auto& [text, value, shown] : rows) {
        const EntryResult result = CheckAltitudeCell(text);
        EXPECT_EQ(result.Verdict, value >= 0.0 ? Valid : Refused) << text;
        EXPECT_NEAR(ReadAltitudeCell(text).value_or(-1.0), value, 1e-13) << text;
        EXPECT_EQ(result.Box ? result.Box->Lines[0] : result.Text, shown);
        EXPECT_TRUE(!result.Box || result.Text == text);
    }
    EXPECT_FALSE(ReadAltitudeCell("__°__'._").has_value());
    EXPECT_EQ(CheckAltitudeCell("__°__'._").Verdict, Empty);
}

TEST_F(EntryRules, CorrectionCellsAreCutWhenCommittedAndRefusedWhenRead)
{
    const Rows<const char*, double, const char*, bool> rows = {
        {"_-2.5_", -2.5, "-02.50", true},    {"+99.99", 99.99, "+99.99", true},  {"100.00", 99.99, "+99.99", false},
        {"-999.0", -99.99, "-99.99", false}, {"2-5.00", 99.99, "+99.99", false}, {"__0.00", 0.0, "+00.00", true}};
    for (const auto& [text, committed, shown, readable] : rows) {
        const EntryResult result = CheckCorrectionCell(text);
        EXPECT_EQ(result.Verdict, Valid);
        EXPECT_DOUBLE_EQ(result.Value, committed);
        EXPECT_EQ(result.Text, shown);
        EXPECT_EQ(ReadCorrectionCell(text).has_value(), readable) << text;
    }
    EXPECT_EQ(CheckCorrectionCell("___.__").Verdict, Empty);
    EXPECT_FALSE(ReadCorrectionCell("___.__").has_value());
}

TEST_F(EntryRules, CellTextsOfAFileComeBackAndNeverHideWhatIsOutOfRange)
{
    EXPECT_EQ(AltitudeCellText(59.99995), "60°00'.0");
    EXPECT_EQ(CorrectionCellText(-2.5 / 60.0), "-02.50");
    for (const double altitude : {-0.5, 90.01, 180.0, 1e5, 1e307, -1e307})
        EXPECT_FALSE(ReadAltitudeCell(AltitudeCellText(altitude)).has_value()) << altitude;
    for (const double correction : {1.6667, -2.0, 100.0, 1e307, -1e307})
        EXPECT_FALSE(ReadCorrectionCell(CorrectionCellText(correction)).has_value()) << correction;
    for (int tenths = 0; tenths <= 54000; ++tenths) {
        const double altitude = tenths / 600.0;
        ASSERT_NEAR(ReadAltitudeCell(AltitudeCellText(altitude)).value_or(-1.0), altitude, 1e-12);
        ASSERT_NEAR(CheckValue(Longitude, -2.0 * altitude).Value, -2.0 * altitude, 1e-12);
    }
}

} // namespace merov::fix::tests
