#include "platform/masked_edit.h"
#include "support/qt_text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>
#include <gtest/gtest.h>

using namespace merov::platform;

namespace
{

/// An edit with a mask, and how keys get into it.
struct Masked : MaskedEdit {
    explicit Masked(const QString& mask) { SetMask(mask); }
    void Type(const QString& keys)
    {
        for (const QChar key : keys)
            QTest::sendKeyEvent(QTest::Click, this, Qt::Key_unknown, key, Qt::NoModifier);
    }
};

TEST(MaskedEditTest, ShowsBlankAndTypedTextOfEveryMask)
{
    for (const QString text :
         {"9#°##'.# ?|__°__'._ _|45302N|45°30'.2 N", "9#°##'.# ?|__°__'._ _|9°5'.1 s|9_°5_'.1 s",
          "99#°##'.# ?|___°__'._ _|0081599w|008°15'.9 w", "99#°#0'|___°_0'|0125|012°50'", "99#°.#|___°._|2705|270°.5",
          "99#°,#|___°,_|45,5|45_°,5", "99#.##|___.__|-0250|-02.50", "9#°##'.#|__°__'._|351500|35°15'.0",
          "##.#|__._|7.5|7_.5", "#####.##|_____.__|12.34|12___.34", "&&#|___|-12|-12", "####|____|1013|1013"}) {
        const QStringList row = text.split('|');
        Masked edit(row[0]);
        EXPECT_EQ(edit.Text(), row[1]);
        EXPECT_TRUE(edit.IsBlank()) << row[0].toStdString();
        edit.Type(row[2]);
        EXPECT_EQ(edit.Text(), row[3]);
        EXPECT_FALSE(edit.IsBlank()) << row[0].toStdString();
        edit.clear();
        EXPECT_EQ(edit.Text(), row[1]);
        EXPECT_EQ(edit.maxLength(), row[0].size());
    }
}

TEST(MaskedEditTest, HoldsEveryTextThatIsSet)
{
    // Also the point of another locale, and what refused entries show: "_" and all but their last character.
    for (const QString text : {"9#°##'.# ?|45°30'.2 N|45°30'.2 N", "9#°##'.# ?|_5°3_'._ N|_5°3_'._ N", "&&#|_-5|_-5",
                               "###.#|_10.0|_10.0", "99#.##|+02.50|+02.50", "##,##|29.91|29,91", "99#°.#|_361°.|_36°.1",
                               "###.#|_12.|_12._", "99#.##|_-75.5|_-7.55", "####|_107|_107"}) {
        const QStringList row = text.split('|');
        Masked edit(row[0]);
        edit.setText(row[1]);
        EXPECT_EQ(edit.Text(), row[2]);
    }
}

TEST(MaskedEditTest, DropsKeysThatDoNotFitAndMapsOthers)
{
    Masked latitude("9#°##'.# ?");
    latitude.KeyMap = [](int place, QChar key) {
        return place != 9 ? key : key == u'+' || key == u'n' ? QChar(u'N') : key == u'-' ? QChar(u'S') : key;
    };
    // A square is a digit for Qt; a letter must not jump to the hemisphere from elsewhere.
    latitude.Type("4²5nx3é02");
    EXPECT_EQ(latitude.Text(), "45°30'.2 _");
    for (const auto& [key, shown] : {std::pair{'7', "_"}, {'n', "N"}, {'-', "S"}, {'+', "N"}}) {
        latitude.setCursorPosition(9);
        QTest::keyClick(&latitude, key);
        EXPECT_EQ(latitude.Text(), QString("45°30'.2 ") + shown);
    }

    Masked altitude("9#°##'.#");
    altitude.KeyMap = [](int place, QChar key) { return place == 0 && key == u'9' ? QChar() : key; };
    altitude.Type("9899");
    EXPECT_EQ(altitude.Text(), "89°9_'._");
}

TEST(MaskedEditTest, WritesOverAndEmptiesPlacesWithoutShiftingAndIsColoured)
{
    Masked edit("###.#");
    edit.setText("123.4");
    edit.setCursorPosition(1);
    edit.Type("9");
    EXPECT_EQ(edit.Text(), "193.4");
    QTest::keyClick(&edit, Qt::Key_Backspace);
    edit.Type(".");
    EXPECT_EQ(edit.cursorPosition(), 4);
    EXPECT_EQ(edit.Text(), "1_3.4");
    edit.Type("56"); // the second behind the last place
    EXPECT_EQ(edit.Text(), "1_3.5");
    edit.selectAll();
    edit.Type("7");
    EXPECT_EQ(edit.Text(), "7__._");
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(edit.Text(), "1_3.5");
    QGuiApplication::clipboard()->setText("86.5");
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(edit.Text(), "86_.5");
    edit.setReadOnly(true);
    edit.Type("12");
    EXPECT_EQ(edit.Text(), "86_.5");
    SetFieldColour(edit, QColor(0, 255, 0));
    EXPECT_EQ(FieldColour(edit), QColor(0, 255, 0));
    EXPECT_EQ(edit.palette().color(QPalette::Text), QColor(Qt::black));
    SetFieldColour(edit, QColor());
    EXPECT_EQ(FieldColour(edit), QGuiApplication::palette().color(QPalette::Base));
}

} // namespace
