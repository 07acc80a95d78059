#include "platform/masked_edit.h"
#include "support/qt_text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

#include <gtest/gtest.h>

using merov::platform::MaskedEdit;

namespace
{

struct MaskRow {
    const char* Mask;
    const char* Blank;
    const char* Typed;
    const char* Shown;
};

QString Utf8(const char* text)
{
    return QString::fromUtf8(text);
}

/// Keys as the fields of positions map them.
QChar MapLatitude(int place, QChar key)
{
    if (place != 9) return key;
    return key == u'+' || key == u'n' ? u'N' : key == u'-' || key == u's' ? u'S' : key;
}

} // namespace

TEST(MaskedEdit, ShowsBlankAndTypedTextOfEveryMask)
{
    const MaskRow rows[] = {
        {"9#°##'.# ?", "__°__'._ _", "45302N", "45°30'.2 N"},
        {"9#°##'.# ?", "__°__'._ _", "9°5'.1 s", "9_°5_'.1 s"},
        {"9#°##'", "__°__'", "4530", "45°30'"},
        {"99#°##'.# ?", "___°__'._ _", "0081599w", "008°15'.9 w"},
        {"99#°#0'", "___°_0'", "0125", "012°50'"},
        {"99#°.#", "___°._", "2705", "270°.5"},
        {"99#°,#", "___°,_", "45,5", "45_°,5"},
        {"99#.##", "___.__", "-0250", "-02.50"},
        {"9#°##'.#", "__°__'._", "351500", "35°15'.0"},
        {"###.#", "___._", "123.4", "123.4"},
        {"##.#", "__._", "7.5", "7_.5"},
        {"##.##", "__.__", "2992", "29.92"},
        {"#####.##", "_____.__", "12.34", "12___.34"},
        {"&&#", "___", "-12", "-12"},
        {"####", "____", "1013", "1013"},
    };
    for (const MaskRow& row : rows) {
        SCOPED_TRACE(std::string(row.Mask) + " " + row.Typed);
        MaskedEdit edit;
        edit.SetMask(Utf8(row.Mask));
        EXPECT_EQ(edit.Text(), Utf8(row.Blank));
        EXPECT_TRUE(edit.IsBlank());
        for (const QChar key : Utf8(row.Typed))
            QTest::sendKeyEvent(QTest::Click, &edit, Qt::Key_unknown, key, Qt::NoModifier);
        EXPECT_EQ(edit.Text(), Utf8(row.Shown));
        EXPECT_FALSE(edit.IsBlank());
        edit.clear();
        EXPECT_EQ(edit.Text(), Utf8(row.Blank));
        EXPECT_EQ(edit.maxLength(), Utf8(row.Mask).size());
    }
}

TEST(MaskedEdit, HoldsEveryTextThatIsSet)
{
    const struct {
        const char* Mask;
        const char* Set;
        const char* Shown;
    } rows[] = {
        {"9#°##'.# ?", "45°30'.2 N", "45°30'.2 N"},
        {"9#°##'.# ?", "_5°3_'._ N", "_5°3_'._ N"},
        {"9#°##'", "01°30'", "01°30'"},
        {"&&#", "_20", "_20"},
        {"&&#", "_-5", "_-5"},
        {"###.#", "_10.0", "_10.0"},
        {"99#.##", "+02.50", "+02.50"},
        {"##.##", "_0.50", "_0.50"},
        {"##,##", "29.91", "29,91"}, // the point of another locale
        // What a refused entry shows: "_" and the text without its last character.
        {"99#°.#", "_361°.", "_36°.1"},
        {"###.#", "_12.", "_12._"},
        {"99#.##", "_-75.5", "_-7.55"},
        {"####", "_107", "_107"},
    };
    for (const auto& row : rows) {
        MaskedEdit edit;
        edit.SetMask(Utf8(row.Mask));
        edit.setText(Utf8(row.Set));
        EXPECT_EQ(edit.Text(), Utf8(row.Shown)) << row.Mask << " " << row.Set;
    }
}

TEST(MaskedEdit, DropsKeysThatDoNotFitAndMapsOthers)
{
    MaskedEdit latitude;
    latitude.SetMask(Utf8("9#°##'.# ?"));
    latitude.KeyMap = MapLatitude;
    // A square is a digit for Qt; a letter must not jump to the hemisphere from elsewhere.
    for (const QChar key : Utf8("4²5nx3é02"))
        QTest::sendKeyEvent(QTest::Click, &latitude, Qt::Key_unknown, key, Qt::NoModifier);
    EXPECT_EQ(latitude.Text(), Utf8("45°30'.2 _"));
    const struct {
        char Key;
        const char* Shown;
    } rows[] = {{'7', "_"}, {'n', "N"}, {'-', "S"}, {'+', "N"}, {'s', "S"}};
    for (const auto& row : rows) {
        latitude.setCursorPosition(9);
        QTest::keyClick(&latitude, row.Key);
        EXPECT_EQ(latitude.Text(), Utf8("45°30'.2 ") + row.Shown) << row.Key;
    }

    MaskedEdit altitude;
    altitude.SetMask(Utf8("9#°##'.#"));
    altitude.KeyMap = [](int place, QChar key) { return place == 0 && key == u'9' ? QChar() : key; };
    QTest::keyClicks(&altitude, "9899");
    EXPECT_EQ(altitude.Text(), Utf8("89°9_'._"));
}

TEST(MaskedEdit, WritesOverAndEmptiesPlacesWithoutShifting)
{
    MaskedEdit edit;
    edit.SetMask("###.#");
    edit.setText("123.4");
    edit.setCursorPosition(1);
    QTest::keyClick(&edit, '9');
    EXPECT_EQ(edit.Text(), QString("193.4"));
    QTest::keyClick(&edit, Qt::Key_Backspace);
    EXPECT_EQ(edit.Text(), QString("1_3.4"));
    QTest::keyClick(&edit, '.');
    EXPECT_EQ(edit.cursorPosition(), 4);
    EXPECT_EQ(edit.Text(), QString("1_3.4"));
    QTest::keyClick(&edit, '5');
    QTest::keyClick(&edit, '6'); // behind the last place
    EXPECT_EQ(edit.Text(), QString("1_3.5"));
    edit.selectAll();
    QTest::keyClick(&edit, '7');
    EXPECT_EQ(edit.Text(), QString("7__._"));
    QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(edit.Text(), QString("1_3.5"));
    QGuiApplication::clipboard()->setText("86.5");
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(edit.Text(), QString("86_.5"));
}

TEST(MaskedEdit, ReadOnlyTypesNothingAndColoursComeAndGo)
{
    MaskedEdit edit;
    edit.SetMask("####");
    edit.setReadOnly(true);
    QTest::keyClicks(&edit, "12");
    EXPECT_TRUE(edit.IsBlank());

    SetFieldColour(edit, QColor(0, 255, 0));
    EXPECT_EQ(FieldColour(edit), QColor(0, 255, 0));
    EXPECT_EQ(edit.palette().color(QPalette::Text), QColor(Qt::black));
    SetFieldColour(edit, QColor());
    EXPECT_EQ(FieldColour(edit), QGuiApplication::palette().color(QPalette::Base));
}
