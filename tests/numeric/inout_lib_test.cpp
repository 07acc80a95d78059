#include "numeric/inout_lib.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace merov::numeric
{
namespace
{

/// Sets the decimal separator for one test.
class ScopedSeparator
{
public:
    explicit ScopedSeparator(const char* separator) { SetDecimalSeparator(separator); }
    ~ScopedSeparator() { SetDecimalSeparator("."); }
};

TEST(NumberPatterns, FillTheirPlacesFromTheRight)
{
    struct Row {
        double value;
        const char* pattern;
        const char* text;
    };
    const Row rows[] = {
        {4530.2, "00°00'.0", "45°30'.2"},
        {12345.6, "000°00'.0", "123°45'.6"},
        {359.96, "000°.0", "360°.0"},
        {5.04, "#0°.0", "5°.0"},
        {0.0, "##0.0", "0.0"},
        {1013.25, "##0.0", "1013.3"}, // surplus digits stand in front
        {-7.25, "##0.0", "-7.3"},
        {9.96, "#0.0", "10.0"},
        {2.5, "#0.0#", "2.5"},
        {2.255, "#0.0#", "2.26"},
        {0.005, "#0.00", "0.01"},
        {0.5, "##0", "1"},
        {0.4999999999999999, "##0", "1"}, // its form with 15 digits is 0.5
        {12345.0, "###0", "12345"},
        {12.34, "##0'.0", "12'.3"},
        {-0.16, "##0.0'", "-0.2'"},
        {3.456, "#0'.00", "3'.46"},
        {0.05, "##.0", ".1"},
        {-1.25, "+#0'.0;-#0'.0", "-1'.3"},
        {0.0, "+#0'.0;-#0'.0", "+0'.0"},
        {-0.04, "+#0'.0;-#0'.0", "+0'.0"}, // no minus sign before a zero
        {-0.04, "##0.0", "0.0"},
        {-12345.67, "+###0.0;-###0.0", "-12345.7"},
        {0.05, "#0.0", "0.1"},
        {2.5, "##0", "3"}, // half away from zero
        {999999.95, "##0.0", "1000000.0"},
        {0.0005, "#0.00", "0.00"},
        {1e22, "##0", "10000000000000000000000"},
        {std::numeric_limits<double>::infinity(), "##0.0", "0.0"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(FormatNumber(row.value, row.pattern), row.text) << row.value << " through " << row.pattern;
}

TEST(PositionTexts, MinutesNeverShowAsSixty)
{
    struct Row {
        double x;
        const char* pattern;
        const char* text;
    };
    const Row rows[] = {
        {29.9995, "00°00'.0", "30°00'.0"},
        {29.999, "00°00'.0", "29°59'.9"},
        {359.9995, "000°00'.0", "000°00'.0"},
        {360.0, "000°00'.0", "000°00'.0"},
        {29.995, "00°00'", "30°00'"},
        {29.99, "00°00'", "29°59'"},
        {-0.9999, "+0°00'.0;-0°00'.0", "-1°00'.0"},
        {-0.5, "+0°00'.0;-0°00'.0", "-0°30'.0"},
        {0.99917, "+0°00'.0;-0°00'.0", "+1°00'.0"},
        {89.99999, "00°00'.0", "90°00'.0"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(FormatDegMin(row.x, row.pattern), row.text) << row.x << " through " << row.pattern;
    EXPECT_EQ(FormatLat(29.9995), "30°00'.0 N");
    EXPECT_EQ(FormatLat(-0.5), "00°30'.0 S");
    EXPECT_EQ(FormatLat(0.0), "00°00'.0 N");
    EXPECT_EQ(FormatLong(359.5), "000°30'.0 W");
    EXPECT_EQ(FormatLong(-8.25), "008°15'.0 W");
    EXPECT_EQ(FormatLong(179.9995), "180°00'.0 E");
    EXPECT_EQ(FormatLong(180.0), "180°00'.0 E");
    EXPECT_EQ(FormatLong(-180.0), "180°00'.0 W");
    EXPECT_EQ(FormatLong(0.0), "000°00'.0 E");
    // Outside -180..360 the longitude is reduced first.
    EXPECT_EQ(FormatLong(365.5), "005°30'.0 E");
    EXPECT_EQ(FormatLong(-190.0), "170°00'.0 E");
    EXPECT_EQ(FormatLong(-545.0), "175°00'.0 E");
}

TEST(PositionTexts, ComeBackThroughTheParsersWithinHalfATenth)
{
    const double halfTenth = 0.05 / 60.0 + 1e-9;
    for (double x = -90.0; x <= 90.0; x += 0.00137) {
        ASSERT_NEAR(ParseLat(FormatLat(x)), x, halfTenth);
        ASSERT_NEAR(ParseLong(FormatLong(2.0 * x), false), 2.0 * x, halfTenth);
    }
}

TEST(PositionParsers, LookAtHemisphereMinutesAndRangeInThisOrder)
{
    struct Row {
        const char* text;
        double value;
    };
    for (const Row& row : {Row{"45°30'.5 N", 45.0 + 30.5 / 60.0},
                           {"45°30'.5 s", -45.0 - 30.5 / 60.0},
                           {"99°99'.9 X", 999.0},
                           {"", 999.0},
                           {"91°60'.0 N", 998.0},
                           {"45°60'.0 N", 998.0},
                           {"91°00'.0 N", 997.0},
                           {"91°00'.0 S", 997.0},
                           {"90°00'.1 N", 997.0},
                           {"90°00'.0 S", -90.0},
                           {"4_°__'._ N", 4.0},
                           {"_4°_5'._ N", 4.0 + 5.0 / 60.0},
                           {"45°30'.5 °", 999.0}})
        EXPECT_NEAR(ParseLat(row.text), row.value, 1e-12) << row.text;
    for (const Row& row : {Row{"008°15'.4 W", -8.0 - 15.4 / 60.0},
                           {"008°15'.4 e", 8.0 + 15.4 / 60.0},
                           {"008°15'.4 N", 999.0},
                           {"180°60'.0 E", 998.0},
                           {"180°00'.1 W", 997.0},
                           {"180°00'.0 W", -180.0},
                           {"__4°30'.0 E", 4.5},
                           {"4__°00'.0 E", 997.0}})
        EXPECT_NEAR(ParseLong(row.text, false), row.value, 1e-12) << row.text;
    EXPECT_NEAR(ParseLong("008°15'.0 W", true), 351.75, 1e-12);
    EXPECT_NEAR(ParseLong("008°15'.0 E", true), 8.25, 1e-12);
    EXPECT_EQ(ParseLong("190°00'.0 W", true), 997.0);
}

TEST(NumberParsers, GiveTheirCodes)
{
    EXPECT_EQ(ParseCourse("270°.5"), 270.5);
    EXPECT_EQ(ParseCourse("_45°._"), 45.0);
    EXPECT_EQ(ParseCourse("360°.0"), 360.0);
    EXPECT_EQ(ParseCourse("000°.0"), 0.0);
    EXPECT_EQ(ParseCourse("360°.1"), 999.0);
    EXPECT_EQ(ParseCourse("-5"), 998.0);
    EXPECT_EQ(ParseUnsigned("_12.5"), 12.5);
    EXPECT_EQ(ParseUnsigned("___._"), 0.0);
    EXPECT_EQ(ParseUnsigned("-0.1"), -1.0);
    EXPECT_EQ(ParseUnsigned("+2 5"), 25.0); // blanks don't count
    struct Row {
        const char* text;
        double value;
    };
    for (const Row& row : {Row{"_-1.50", -1.5},
                           {"+2.", 2.0},
                           {" .5 ", 0.5},
                           {"___.__", 999.0},
                           {"", 999.0},
                           {"1.2.3", 999.0},
                           {"12x", 999.0},
                           {"+-1", 999.0},
                           {"1e3", 999.0},
                           {"inf", 999.0},
                           {"nan", 999.0},
                           {"-", 999.0}})
        EXPECT_EQ(ParseNumber(row.text), row.value) << row.text;
}

TEST(DecimalSeparators, HoldInTextsBothWays)
{
    {
        const ScopedSeparator comma(",");
        EXPECT_EQ(DecimalSeparator(), ",");
        EXPECT_EQ(FormatNumber(-7.25, "##0.0"), "-7,3");
        EXPECT_EQ(FormatLong(-8.25), "008°15',0 W");
        EXPECT_NEAR(ParseLat("45°30',5 N"), 45.0 + 30.5 / 60.0, 1e-12);
        EXPECT_EQ(ParseCourse("270°,5"), 270.5);
        EXPECT_EQ(ParseUnsigned("12,5"), 12.5);
        EXPECT_EQ(ParseNumber("-1,50"), -1.5);
        SetDecimalSeparator(""); // a locale without one changes nothing
        EXPECT_EQ(ParseNumber("-1,50"), -1.5);
    }
    const ScopedSeparator wide("\u066B"); // more than one byte
    EXPECT_EQ(FormatNumber(2.5, "#0.0"), "2\u066B5");
    EXPECT_EQ(ParseLat("45°30'\u066B5 N"), ParseLat("45°30'.5 N"));
}

TEST(Texts, CountCharactersNotBytes)
{
    EXPECT_EQ(CountCharacters("45°30'.2 N"), 10u);
    EXPECT_EQ(TrimBlanks("  a b "), "a b");
    EXPECT_EQ(TrimBlanks("   "), "");
    EXPECT_EQ(PadPrompt("5°", 4), "__5°");
    EXPECT_EQ(PadPrompt("12345", 3), "12345");
}

} // namespace
} // namespace merov::numeric
