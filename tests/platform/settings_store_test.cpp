#include "platform/settings_store.h"
#include "support/qt_text.h"

#include <QFile>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace merov::platform
{
namespace
{

QString FilePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::ConfigLocation) + "/Merov/Merov.ini";
}

TEST(IniSettings, TextsOutliveTheStoreInAPlainFileOfTheUser)
{
    IniSettings().SetText("Settings", "MainWidth", "11715");
    IniSettings().SetText("Settings", "MainLeft", "-1.5");
    IniSettings().SetText("Settings", "MainWidth", "12000.25");
    const IniSettings store;
    EXPECT_EQ(store.Text("Settings", "MainWidth"), "12000.25");
    EXPECT_EQ(store.Text("Settings", "MainLeft"), "-1.5");
    EXPECT_EQ(store.Text("Settings", "MainTop"), std::nullopt);
    EXPECT_EQ(store.Text("Other", "MainWidth"), std::nullopt);

    QFile file(FilePath());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << FilePath().toStdString();
    const QByteArray content = file.readAll();
    EXPECT_TRUE(content.startsWith("[Settings]")) << content.toStdString();
    EXPECT_TRUE(content.contains("\nMainWidth=12000.25\n")) << content.toStdString();
}

TEST(IniSettings, ALineThatIsNoSingleTextCountsAsMissing)
{
    {
        IniSettings().SetText("Settings", "MainTop", "1");
    }
    QFile file(FilePath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[Settings]\nMainTop=1, 2\nMainLeft=7\n");
    file.close();
    EXPECT_EQ(IniSettings().Text("Settings", "MainTop"), std::nullopt);
    EXPECT_EQ(IniSettings().Text("Settings", "MainLeft"), "7");
}

} // namespace
} // namespace merov::platform
