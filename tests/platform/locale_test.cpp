#include "platform/locale.h"
#include "support/qt_text.h"

#include "ephemeris/time_lib.h"
#include "numeric/inout_lib.h"

#include <gtest/gtest.h>

namespace merov::platform
{

TEST(Locale, TheCoreWritesNumbersAndMonthsAsTheSystemDoes)
{
    ApplyLocale(QLocale("de_DE"));
    EXPECT_EQ(numeric::DecimalSeparator(), ",");
    EXPECT_EQ(ephemeris::FormatDateTime(38128.75, "d mmm yyyy hh:mm"), "21 Mai 2004 18:00");
    EXPECT_EQ(ephemeris::MonthName(9), "Sept") << "without its point";
    ApplyLocale(QLocale("ar_EG"));
    EXPECT_EQ(numeric::DecimalSeparator(), "٫") << "one character, two bytes";
    ApplyLocale(QLocale::c());
    EXPECT_EQ(numeric::DecimalSeparator() + ephemeris::FormatDateTime(38128.75, "d mmm yyyy"), ".21 May 2004");
}

TEST(Locale, TimeOfDayHasSecondsAndNoZone)
{
    const std::pair<const char*, const char*> cases[] = {{"C", "18:02:15"},         {"en_US", "6:02:15 PM"},
                                                         {"fi_FI", "18.02.15"},     {"hr_HR", "18:02:15"},
                                                         {"nn_NO", "kl. 18:02:15"}, {"fr_CA", "18 h 02 min 15 s"}};
    for (const auto& [locale, text] : cases) {
        const QString shown = TimeOfDayText(38128.0 + (18 * 3600 + 2 * 60 + 14.7) / 86400.0, QLocale(locale));
        EXPECT_EQ(QString(shown).replace(QChar(0xA0), ' ').replace(QChar(0x202F), ' '), text);
    }
}

} // namespace merov::platform
