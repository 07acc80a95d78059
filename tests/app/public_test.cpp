#include "app/public.h"
#include "support/qt_text.h"

#include <gtest/gtest.h>

namespace merov::app
{
namespace
{

TEST(Public, TextsThatStartUpMakes)
{
    EXPECT_EQ(VersionTextOf("1.2.0"), "1.20");
    EXPECT_EQ(VersionTextOf("2.10.34"), "2.103");
    EXPECT_EQ(StartFileOf("\"/home/anna/Über See/21May04A.obs\""), "/home/anna/Über See/21May04A.obs");
    EXPECT_EQ(StartFileOf(QString("/a\tb.obs\r\n") + QChar(0) + "rest"), "/ab.obs");
    EXPECT_EQ(StartFileOf("\"\""), "");
    EXPECT_EQ(InitialTables("/opt/merov/  ", "1.2.0").AppPath, "/opt/merov");
    EXPECT_EQ(InitialTables("/", "1.2.0").AppPath, "/");
}

} // namespace
} // namespace merov::app
