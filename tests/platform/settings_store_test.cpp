#include "platform/settings_store.h"
#include "support/qt_text.h"

#include <QFile>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace merov::platform
{

TEST(IniSettings, TextsOutliveTheStoreInAPlainFileOfTheUserWhoMayDamageIt)
{
    IniSettings().SetText("Settings", "MainWidth", "11715");
    IniSettings().SetText("Settings", "MainLeft", "-1.5");
    IniSettings().SetText("Settings", "MainWidth", "12000.25");
    EXPECT_EQ(IniSettings().Text("Settings", "MainWidth"), "12000.25");
    EXPECT_EQ(IniSettings().Text("Settings", "MainLeft"), "-1.5");
    EXPECT_EQ(IniSettings().Text("Settings", "MainTop"), std::nullopt);
    EXPECT_EQ(IniSettings().Text("Other", "MainWidth"), std::nullopt);

    QFile file(QStandardPaths::writableLocation(QStandardPaths::ConfigLocation) + "/Merov/Merov.ini");
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QByteArray content = file.readAll();
    EXPECT_TRUE(content.startsWith("[Settings]") && content.contains("\nMainWidth=12000.25\n"));
    file.resize(0);
    file.write("[Settings]\nMainTop=1, 2\nMainLeft=7\n"); // no single text
    file.close();
    EXPECT_EQ(IniSettings().Text("Settings", "MainTop"), std::nullopt);
    EXPECT_EQ(IniSettings().Text("Settings", "MainLeft"), "7");
}

} // namespace merov::platform
