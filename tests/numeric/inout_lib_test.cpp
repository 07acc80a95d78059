#include "numeric/inout_lib.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

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

/// The texts of some values through a pattern, one after the other.
std::string Through(std::string_view pattern, std::initializer_list<double> values,
                    std::string (*format)(double, std::string_view) = FormatNumber)
{
    std::string texts;
    for (const double value : values)
        (texts += texts.empty() ? "" : "|") += format(value, pattern);
    return texts;
}

/// Holds the parser of some entries that all stand for `value`, or for an error code.
void ExpectParsed(double (*parse)(std::string_view), double value, std::initializer_list<const char*> entries)
{
    for (const char* text : entries)
        EXPECT_NEAR(parse(text), value, 1e-12) << text;
}

const auto ParseSignedLong = [](std::string_view text) { return ParseLong(text, false); };

TEST(NumberPatterns, FillTheirPlacesFromTheRight)
{
    EXPECT_EQ(Through("00°00'.0", {4530.2}), "45°30'.2");
    EXPECT_EQ(Through("000°00'.0", {12345.6}), "123°45'.6");
    EXPECT_EQ(Through("000°.0", {359.96}), "360°.0");
    EXPECT_EQ(Through("#0°.0", {5.04}), "5°.0");
    EXPECT_EQ(Through("##0.0", {1013.25, -7.25, 999999.95}), "1013.3|-7.3|1000000.0"); // surplus digits in front
    EXPECT_EQ(Through("##0.0", {0.0, -0.04, HUGE_VAL}), "0.0|0.0|0.0");                // no minus before a zero
    EXPECT_EQ(Through("#0.0", {0.05, 9.96}), "0.1|10.0");
    EXPECT_EQ(Through("#0.0#", {2.5, 2.255}), "2.5|2.26");
    EXPECT_EQ(Through("#0.00", {0.0005, 0.005}), "0.00|0.01");
    EXPECT_EQ(Through("##0", {2.5, 0.4999999999999999}), "3|1"); // with 15 digits the latter is 0.5
    EXPECT_EQ(Through("###0", {12345.0, 1e22}), "12345|10000000000000000000000");
    EXPECT_EQ(Through("##0'.0", {12.34}), "12'.3");
    EXPECT_EQ(Through("##0.0'", {-0.16}), "-0.2'");
    EXPECT_EQ(Through("#0'.00", {3.456}), "3'.46");
    EXPECT_EQ(Through("##.0", {0.05}), ".1");
    EXPECT_EQ(Through("+#0'.0;-#0'.0", {-1.25, 0.0, -0.04}), "-1'.3|+0'.0|-0'.0"); // the sign picks the part
    EXPECT_EQ(Through("+###0.0;-###0.0", {-12345.67}), "-12345.7");
}

TEST(PositionTexts, MinutesNeverShowAsSixty)
{
    EXPECT_EQ(Through("00°00'.0", {29.9995, 29.999}, FormatDegMin), "30°00'.0|29°59'.9");
    EXPECT_EQ(Through("000°00'.0", {359.9995, 360.0}, FormatDegMin), "000°00'.0|000°00'.0");
    EXPECT_EQ(Through("00°00'", {29.995, 29.99}, FormatDegMin), "30°00'|29°59'");
    EXPECT_EQ(Through("+0°00'.0;-0°00'.0", {-0.9999, 0.99917}, FormatDegMin), "-1°00'.0|+1°00'.0");
    EXPECT_EQ(FormatLat(29.9995), "30°00'.0 N");
    EXPECT_EQ(FormatLat(-0.5), "00°30'.0 S");
    const std::pair<double, const char*> longitudes[] = {
        {359.5, "000°30'.0 W"}, {-8.25, "008°15'.0 W"},  {179.9995, "180°00'.0 E"}, {180.0, "180°00'.0 E"},
        {0.0, "000°00'.0 E"},   {-180.0, "180°00'.0 W"}, {365.5, "005°30'.0 E"},    {-190.0, "170°00'.0 E"}};
    for (const auto& [x, text] : longitudes)
        EXPECT_EQ(FormatLong(x), text);
}

TEST(PositionTexts, ComeBackThroughTheParsersWithinHalfATenth)
{
    const double halfTenth = 0.05 / 60.0 + 1e-9;
    for (double x = -90.0; x <= 90.0; x += 0.00137) {
        ASSERT_NEAR(ParseLat(FormatLat(x)), x, halfTenth);
        ASSERT_NEAR(ParseSignedLong(FormatLong(2.0 * x)), 2.0 * x, halfTenth);
    }
}

TEST(Parsers, LookAtHemisphereMinutesAndRangeInThisOrder)
{
    ExpectParsed(ParseLat, -45.0 - 30.5 / 60.0, {"45°30'.5 S", "45°30'.5 s"});
    ExpectParsed(ParseLat, 4.0, {"4_°__'._ N", "_4°_0'._ N"});
    ExpectParsed(ParseLat, 999.0, {"99°99'.9 X", "", "45°30'.5 °"});
    ExpectParsed(ParseLat, 998.0, {"91°60'.0 N", "45°60'.0 N"});
    ExpectParsed(ParseLat, 997.0, {"91°00'.0 N", "91°00'.0 S", "90°00'.1 N"});
    ExpectParsed(ParseSignedLong, -8.0 - 15.4 / 60.0, {"008°15'.4 W", "__8°15'.4 w"});
    ExpectParsed(ParseSignedLong, 999.0, {"008°15'.4 N"});
    ExpectParsed(ParseSignedLong, 998.0, {"180°60'.0 E"});
    ExpectParsed(ParseSignedLong, 997.0, {"180°00'.1 W", "4__°00'.0 E"}); // unfinished digits count as 0
    EXPECT_NEAR(ParseLong("008°15'.0 W", true), 351.75, 1e-12);
    EXPECT_NEAR(ParseLong("008°15'.0 E", true), 8.25, 1e-12);
    EXPECT_EQ(ParseLong("190°00'.0 W", true), 997.0);
}

TEST(Parsers, OfNumbersGiveTheirCodes)
{
    ExpectParsed(ParseCourse, 360.0, {"360°.0", "_360°._"});
    ExpectParsed(ParseCourse, 999.0, {"360°.1"});
    ExpectParsed(ParseCourse, 998.0, {"-5"});
    ExpectParsed(ParseUnsigned, 12.5, {"_12.5", "+1 2.5"}); // blanks don't count
    ExpectParsed(ParseUnsigned, -1.0, {"-0.1"});
    ExpectParsed(ParseNumber, -1.5, {"_-1.50", " -1.5 "});
    ExpectParsed(ParseNumber, 0.5, {"+.5"});
    ExpectParsed(ParseNumber, 999.0, {"___.__", "1.2.3", "12x", "+-1", "1e3", "inf", "nan", "-"});
}

TEST(DecimalSeparators, HoldInTextsBothWays)
{
    {
        const ScopedSeparator comma(",");
        SetDecimalSeparator(""); // a locale without one changes nothing
        EXPECT_EQ(DecimalSeparator(), ",");
        EXPECT_EQ(FormatLong(-8.25), "008°15',0 W");
        EXPECT_NEAR(ParseLat("45°30',5 N"), 45.0 + 30.5 / 60.0, 1e-12);
        EXPECT_EQ(ParseCourse("270°,5"), 270.5);
        EXPECT_EQ(ParseNumber("-1,50"), -1.5);
    }
    const ScopedSeparator wide("\u066B"); // more than one byte
    EXPECT_EQ(FormatNumber(2.5, "#0.0"), "2\u066B5");
    EXPECT_NEAR(ParseLat("45°30'\u066B5 N"), 45.0 + 30.5 / 60.0, 1e-12);
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
