#include "app/tab_in.h"

#include "app/entry_colours.h"
#include "app/entry_fields_view.h"
#include "app/observation_grid.h"
#include "numeric/inout_lib.h"
#include "platform/push_button.h"
#include "platform/spin_button.h"
#include "platform/time_picker.h"
#include "support/fake_clock.h"
#include "support/qt_text.h"
#include "support/screen_boxes.h"

#include <QCheckBox>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

using namespace merov;
using fix::EntryField;
using fix::InputFlag;
using numeric::BoxAnswer;

namespace
{

constexpr double Hour18 = 38128.75; // 21 May 2004, 18:00
const std::string MissingOthers =
    "Missing data|Some data on the other tabs are missing.|Please check that the whole input form is completed.";
const std::string AskTimes = "Data's not validated|You used the default values for the time of the estimated position|";

/// The input tabs as the user first sees them, and what their buttons command.
class Tabs : public testing::Test
{
protected:
    Tabs()
    {
        In.InstallMasks();
        In.Erase();
        In.OnInputComplete = [this] { Log += "complete "; };
        In.OnCapture = [this] { Log += "capture "; };
        In.OnCancel = [this](int index) { Log += "cancel" + std::to_string(index) + " "; };
        In.OnOneEstPos = [this](bool on) { Log += on ? "one " : "many "; };
        In.show();
        In.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&In));
        In.EnterTab();
    }
    ~Tabs() override { numeric::SetDecimalSeparator("."); }

    template <class Control>
    Control& Get(const char* name)
    {
        auto* control = dynamic_cast<Control*>(In.findChild<QWidget*>(name));
        if (control == nullptr) throw std::logic_error(name);
        return *control;
    }
    platform::TimePicker& Time(int i) { return Get<platform::TimePicker>(i == 0 ? "dtpTime(0)" : "dtpTime(1)"); }

    /// Types into what has the focus; "\t" is the Tab key and "<" Home.
    void Type(const char* keys)
    {
        for (; *keys != '\0'; ++keys) {
            if (*keys == '\t')
                Press(Qt::Key_Tab);
            else if (*keys == '<')
                Press(Qt::Key_Home);
            else
                QTest::keyClick(In.focusWidget(), *keys);
        }
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers with = {})
    {
        QTest::keyClick(In.focusWidget(), key, with);
        QCoreApplication::processEvents();
    }
    void Click(const char* name) { QTest::mouseClick(&Get<QWidget>(name), Qt::LeftButton); }
    void ClickHeader(int index)
    {
        QTest::mouseClick(&In.Header(), Qt::LeftButton, {}, In.Header().tabRect(index).center());
        QCoreApplication::processEvents();
    }

    QString Focus() const { return In.focusWidget() != nullptr ? In.focusWidget()->objectName() : QString(); }
    QString Shown(EntryField field) { return In.Fields().Edit(field).Text(); }
    QColor Colour(EntryField field) { return platform::FieldColour(In.Fields().Edit(field)); }
    const QColor Window = QGuiApplication::palette().color(QPalette::Base);

    /// Enters all that must stand before the tab of the observations, the times apart.
    void EnterAll()
    {
        const std::pair<EntryField, double> values[] = {
            {EntryField::Latitude, 45.5}, {EntryField::Longitude, -8.25},   {EntryField::Course, 270.0},
            {EntryField::Speed, 12.5},    {EntryField::HeightMetres, 12.0}, {EntryField::InstCorr, -2.5}};
        for (const auto& [field, value] : values)
            fix::LoadField(Input.Entry, Input.Session, field, value);
        In.ShowEntries();
    }

    test::FakeClock Clock{Hour18 + 0.01};
    test::ScreenBoxes Boxes;
    app::FixInput Input;
    app::TabIn In{Input};
    std::string Log;
};

} // namespace

TEST_F(Tabs, TypedFieldsBecomeTheSession)
{
    const fix::SightSession& session = Input.Session;
    EXPECT_EQ(Focus(), QString("dtpTime(0)"));
    Type("22\t45302n\t\t0081599w\t\t \t2700\t125\t \t\t");
    EXPECT_EQ(Focus(), QString("cmdLoadObs"));
    EXPECT_EQ(session.TimeEstPos, Hour18 + 1.0);
    EXPECT_EQ(session.TimeTruePos, Hour18 + 1.0);
    EXPECT_NEAR(session.EstLat, 45.0 + 30.2 / 60.0, 1e-12);
    EXPECT_NEAR(session.EstLong, -8.0 - 15.9 / 60.0, 1e-12);
    EXPECT_EQ(session.Course, 270.0);
    EXPECT_EQ(session.OrigSpeed, 12.5);
    EXPECT_TRUE(Input.Entry.OneEstPos);
    EXPECT_FALSE(Input.Entry.UseFullRoutine);
    EXPECT_EQ(Colour(EntryField::Longitude), app::ValidColour);

    Press(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(Focus(), QString("mskHeightM"));
    Type("120\t"); // metres, and past them
    EXPECT_EQ(Shown(EntryField::HeightFeet), QString("039.4"));
    EXPECT_EQ(session.HeightOfEye, 12.0);
    EXPECT_EQ(Colour(EntryField::HeightMetres), app::ValidColour);
    EXPECT_EQ(Colour(EntryField::HeightFeet), Window);
    Type("<049.2\t");
    EXPECT_EQ(Shown(EntryField::HeightMetres), QString("15.0"));
    EXPECT_NEAR(session.HeightOfEye, 14.99616, 1e-12);
    Type("-250\t "); // the sign goes to its place
    EXPECT_EQ(Shown(EntryField::InstCorr), QString("-02.50"));
    EXPECT_EQ(session.DefaultInstCorr, -2.5);
    EXPECT_FALSE(Input.Entry.FindSystErr);
    Type("\t_-5\t\t-20\t\t1020\t");
    EXPECT_EQ(session.WaterTemp, -20.0);
    EXPECT_EQ(Shown(EntryField::AirFahrenheit), QString("_23"));
    EXPECT_EQ(Shown(EntryField::InchesHg), QString("30.12"));
    for (const bool flag : Input.Entry.InputFlags)
        EXPECT_TRUE(flag);
    Press(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(Focus(), QString("grdObs"));
    EXPECT_EQ(Log, "one complete ");
}

TEST_F(Tabs, ReachesEveryControlInReadingOrder)
{
    EnterAll();
    Boxes.Answer({BoxAnswer::Yes});
    const char* pages[] = {
        "dtpTime(0) mskLat(5) cmdEraseLat mskLong(5) cmdEraseLong ch3OneEstPos(1) mskCourse(0) mskSpeed ch3FullRoutine "
        "dtpTime(1) cmdLoadObs cmdEraseObs cmdNextTabIn(0) cmdCancel(0) dtpTime(0) ",
        "mskHeightM mskHeightF mskInstErr(0) ch3FindSystErr mskTempCelcius(0) mskTempFahr(0) mskTempCelcius(1) "
        "mskTempFahr(1) mskPress_mBars mskPressHg cmdPrevTabIn(0) cmdNextTabIn(1) cmdCancel(1) mskHeightM ",
        "cmdSaveObs cmdNumRes cmdGraphRes cmdChronoF5 cmdPrevTabIn(1) cmdCancel(2) grdObs "};
    for (int page = 0; page < 3; ++page) {
        In.ShowPage(page);
        In.EnterTab();
        if (page == 2) Get<QWidget>("cmdSaveObs").setFocus(); // Tab stays in the grid
        std::string seen;
        for (std::size_t length = std::string(pages[page]).size(); seen.size() < length; Press(Qt::Key_Tab)) {
            seen += Focus().toStdString() + " ";
            ASSERT_NE(seen.back(), seen[seen.size() - 2]);
        }
        EXPECT_EQ(seen, pages[page]);
    }
    Boxes.TakeAll();
}

TEST_F(Tabs, ABadTextIsRefusedOnceAndAllElseStays)
{
    const struct {
        int Page;
        EntryField Field;
        const char* Typed;
        const char* Line;
        const char* Shown;
    } rows[] = {
        {0, EntryField::Latitude, "90001n", "Latitude > 90°.", "90°00'.1 N"},
        {0, EntryField::Latitude, "45600-", "The latitude has more than 59'.", "45°60'.0 S"},
        {0, EntryField::Latitude, "45000w", "A latitude can only be N (North) or S (South).", "45°00'.0 w"},
        {0, EntryField::Longitude, "180001e", "Longitude > 180°.", "180°00'.1 E"},
        {0, EntryField::Longitude, "008600-", "The longitude has more than 59'.", "008°60'.0 W"},
        {0, EntryField::Longitude, "008000s", "A longitude can only be W (West) or E (East).", "008°00'.0 s"},
        {0, EntryField::Course, "-100", "Negative Course.", "_-1°.0"},
        {0, EntryField::Course, "3605", "Course > 360°", "_36°.0"},
        {1, EntryField::HeightFeet, "9999", "The eye height is not valid.", "_99.9"},
        {1, EntryField::InstCorr, "10000", "The instrumental correction is not valid. Try again please.", "_10.00"},
        {1, EntryField::AirCelsius, "-51", "The temperature is lower than -50°C.", "_-5"},
        {1, EntryField::WaterCelsius, "071", "The temperature is higher than +70°C.", "_07"},
        {1, EntryField::WaterCelsius, "1x1", "The temperature is not valid.", "_1_"},
        {1, EntryField::AirFahrenheit, "-59", "The temperature is lower than -58°F.", "_-5"},
        {1, EntryField::WaterFahrenheit, "159", "The temperature is higher than +158°F.", "_15"},
        {1, EntryField::Millibars, "0939", "The atmospheric pressure is lower than 940 mbars.", "_093"},
        {1, EntryField::Millibars, "1071", "The atmospheric pressure is higher than 1070 mbars.", "_107"},
        {1, EntryField::InchesHg, "2775", "The atmospheric pressure is lower than 27.76 inHg.", "_2.77"},
        {1, EntryField::InchesHg, "3160", "The atmospheric pressure is higher than 31.59 inHg.", "_3.16"},
    };
    EnterAll();
    const auto session = [this] {
        const fix::SightSession& s = Input.Session;
        return std::vector{s.EstLat,  s.EstLong,   s.Course,   s.OrigSpeed,      s.HeightOfEye,
                           s.AirTemp, s.WaterTemp, s.Pressure, s.DefaultInstCorr};
    };
    for (const auto& row : rows) {
        const std::function<void()> ways[] = {
            [this] { Press(Qt::Key_Tab); },
            [this, &row] { Click(row.Page == 0 ? "mskSpeed" : "mskHeightM"); },
            [this, &row] { Click(row.Page == 0 ? "cmdCancel(0)" : "cmdCancel(1)"); },
            [this, &row] { ClickHeader(2 - row.Page); },
            [this] { Press(Qt::Key_N, Qt::AltModifier); },
        };
        for (const auto& leave : ways) {
            SCOPED_TRACE(std::string(row.Typed) + " by way " + std::to_string(&leave - ways));
            const fix::SightEntry former = Input.Entry;
            In.ShowPage(row.Page);
            In.Fields().Edit(row.Field).setFocus();
            Press(Qt::Key_Home);
            Type(row.Typed);
            fix::SightEntry before = Input.Entry;
            const auto values = session();
            leave();
            EXPECT_EQ(Boxes.TakeOne(), std::string(" Error in input data|") + row.Line);
            EXPECT_EQ(Focus().toStdString(), fix::ControlName(row.Field));
            EXPECT_EQ(In.currentIndex(), row.Page);
            EXPECT_EQ(Shown(row.Field), QString(row.Shown));
            EXPECT_EQ(Colour(row.Field), Window);
            before.Text(row.Field) = Input.Entry.Text(row.Field);
            if (row.Field == EntryField::InstCorr) before.Flag(InputFlag::InstCorr) = false;
            EXPECT_EQ(Input.Entry.Texts, before.Texts);
            EXPECT_EQ(Input.Entry.InputFlags, before.InputFlags);
            EXPECT_EQ(session(), values);
            Input.Entry = former;
            In.ShowEntries();
        }
    }
    EXPECT_EQ(Log, "");
}

TEST_F(Tabs, AThrownOverboardSextantIsTakenWithOneWarning)
{
    In.ShowPage(1);
    In.Fields().Edit(EntryField::InstCorr).setFocus();
    Type("<-9999\t");
    EXPECT_EQ(Boxes.TakeOne(),
              "Probable error in input data|Are you sure the instrumental correction is higher than 1° "
              "?| I suggest you throw your sextant overboard.");
    EXPECT_EQ(Colour(EntryField::InstCorr), app::SuspiciousColour);
    EXPECT_EQ(Focus(), QString("ch3FindSystErr"));
    EXPECT_TRUE(Input.Entry.Flag(InputFlag::InstCorr));
    In.Fields().Edit(EntryField::InstCorr).setFocus();
    EXPECT_FALSE(Input.Entry.Flag(InputFlag::InstCorr));
    EXPECT_EQ(Colour(EntryField::InstCorr), Window);
    EXPECT_EQ(In.Fields().Edit(EntryField::InstCorr).cursorPosition(), 2);
    Type("\t");
    Boxes.TakeOne();
}

TEST_F(Tabs, SpinButtonsStepToTheEndsOfTheirRanges)
{
    const struct {
        EntryField Field;
        const char* Spin;
        const char* Text; ///< one step before the end
        bool Up;
        const char* End;
        EntryField Twin;
        const char* TwinEnd;
    } rows[] = {
        {EntryField::AirCelsius, "updTempCelcius(0)", "_69", true, "_70", EntryField::AirFahrenheit, "158"},
        {EntryField::WaterFahrenheit, "updTempFahr(1)", "-57", false, "-58", EntryField::WaterCelsius, "-50"},
        {EntryField::Millibars, "updPress_mBars", "0941", false, "_940", EntryField::InchesHg, "27.76"},
        {EntryField::InchesHg, "updPressHg", "31.49", true, "31.59", EntryField::Millibars, "1070"},
    };
    In.ShowPage(1);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Spin);
        In.Fields().Edit(row.Field).setText(row.Text);
        auto& spin = Get<platform::SpinButton>(row.Spin);
        QToolButton& arrow = row.Up ? spin.UpArrow() : spin.DownArrow();
        for (int step = 0; step < 2; ++step) {
            QTest::mouseClick(&arrow, Qt::LeftButton);
            EXPECT_EQ(Shown(row.Field), QString(row.End));
            EXPECT_EQ(Shown(row.Twin), QString(row.TwinEnd));
            EXPECT_EQ(Colour(row.Field), app::ValidColour);
        }
        In.Fields().Edit(row.Field).setFocus();
        Press(row.Up ? Qt::Key_Down : Qt::Key_Up);
        EXPECT_NE(Shown(row.Field), QString(row.End));
    }
    EXPECT_NEAR(Input.Session.AirTemp, 69.0, 1e-12);
}

TEST_F(Tabs, TheTimesFollowUntilTheyAreLeft)
{
    Type("23");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Time(1).Value(), Hour18 + 2.0);
    EXPECT_FALSE(Input.Entry.Flag(InputFlag::TimeTruePos));
    Time(1).setFocus();
    Type("24\t");
    EXPECT_EQ(Input.Session.TimeTruePos, Hour18 + 3.0);
    Time(0).setFocus();
    Type("20\t");
    EXPECT_EQ(Input.Session.TimeEstPos, Hour18 - 1.0);
    EXPECT_EQ(Time(1).Value(), Hour18 + 3.0);
}

TEST_F(Tabs, DefaultTimesAreAskedForAndMissingDataTold)
{
    const std::string keep = "|Do you want to keep these default values ?";
    const std::string questions[] = {AskTimes + "and/or the time of the true position." + keep,
                                     AskTimes + "and the time of the true position." + keep};
    for (const bool complete : {false, true}) {
        for (const int tab : {1, 2}) {
            SCOPED_TRACE(tab);
            std::vector<std::string> boxes = {questions[tab - 1]};
            if (!complete) boxes.push_back(MissingOthers);
            In.Erase();
            if (complete) EnterAll();
            Log.clear();
            Input.Entry.Flag(InputFlag::TimeTruePos) = false;
            In.EnterTab();
            ClickHeader(tab);
            EXPECT_EQ(Boxes.TakeTexts(), boxes);
            EXPECT_EQ(In.currentIndex(), 0);
            EXPECT_EQ(Focus(), QString("dtpTime(0)"));
            EXPECT_EQ(Log, complete && tab == 2 ? "complete " : "");

            Time(0).SetValue(Hour18 - 0.5);
            Boxes.Answer({BoxAnswer::Yes});
            ClickHeader(tab);
            EXPECT_EQ(Boxes.TakeTexts(), boxes);
            EXPECT_EQ(In.currentIndex(), tab);
            EXPECT_EQ(Input.Session.TimeEstPos, Hour18 - 0.5);
            EXPECT_EQ(Input.Session.TimeTruePos, Hour18 - 0.5);
            if (complete) {
                EXPECT_EQ(Focus(), QString(tab == 1 ? "mskHeightM" : "grdObs"));
            } else {
                ClickHeader(3 - tab); // the headers hold the focus: no second box
                EXPECT_EQ(In.currentIndex(), 3 - tab);
            }
        }
    }
}

TEST_F(Tabs, ASharedLetterIsTheButtonsAndTheEndsAreEnds)
{
    EnterAll();
    Boxes.Answer({BoxAnswer::Yes});
    In.NextTab();
    Boxes.TakeOne();
    In.NextTab();
    In.NextTab();
    EXPECT_EQ(In.currentIndex(), 2);
    Press(Qt::Key_F5);
    Click("cmdChronoF5");
    EXPECT_EQ(Focus(), QString("grdObs"));
    for (const int tab : {1, 0, 0}) {
        Press(Qt::Key_P, Qt::AltModifier);
        EXPECT_EQ(In.currentIndex(), tab);
    }
    Press(Qt::Key_F5); // of the third tab alone
    Press(Qt::Key_O, Qt::AltModifier);
    EXPECT_EQ(Focus(), QString("grdObs"));
    Press(Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(Log, "complete complete capture capture complete cancel2 ");
}

TEST_F(Tabs, EraseEmptiesAllButTheCheckBoxes)
{
    EnterAll();
    Input.Entry.FindSystErr = false;
    Input.Entry.OneEstPos = true;
    Input.Entry.Rows[1][fix::GridColumn::Body] = "VEGA";
    Input.Chart = {1.0, 1.0};
    In.ShowEntries();
    EXPECT_EQ(Colour(EntryField::HeightMetres), app::ValidColour);
    EXPECT_EQ(Colour(EntryField::Latitude), Window);
    In.ShowPage(1);
    In.Fields().Edit(EntryField::AirCelsius).setFocus();
    Type("<999"); // refused, were it left
    In.Erase();
    EXPECT_EQ(In.currentIndex(), 0);
    EXPECT_EQ(Input.Chart.LopScale, 5.0);
    EXPECT_EQ(Input.Chart.ChartMargin, 0.1);
    EXPECT_EQ(Time(1).Value(), Hour18);
    EXPECT_EQ(Shown(EntryField::AirCelsius), QString("_20"));
    EXPECT_EQ(Shown(EntryField::Latitude), QString("__°__'._ _"));
    EXPECT_EQ(Colour(EntryField::HeightMetres), Window);
    EXPECT_EQ(In.Grid().Text(1, 1), QString());
    EXPECT_TRUE(Get<QCheckBox>("ch3FullRoutine").isChecked());
    EXPECT_FALSE(Get<QCheckBox>("ch3FindSystErr").isChecked());
    EXPECT_TRUE(Get<QCheckBox>("ch3OneEstPos(1)").isChecked());
    EXPECT_FALSE(Input.Entry.Flag(InputFlag::EstLat));
}

TEST_F(Tabs, ARefusedLatitudeCanBeErased)
{
    EnterAll();
    In.Fields().Edit(EntryField::Latitude).setFocus();
    Type("9999");
    Click("cmdEraseLat");
    EXPECT_EQ(Focus(), QString("mskLat(5)"));
    EXPECT_EQ(Shown(EntryField::Latitude), QString("__°__'._ _"));
    EXPECT_FALSE(Input.Entry.Flag(InputFlag::EstLat));
    EXPECT_NEAR(Input.Session.EstLat, 45.5, 1e-12);
    Type("33000+\t");
    EXPECT_NEAR(Input.Session.EstLat, 33.0, 1e-12);
    QTest::mouseClick(&Get<QWidget>("lblOneEstPos"), Qt::LeftButton);
    EXPECT_EQ(Log, "one ");
}

TEST_F(Tabs, ACommaStandsInMasksBlanksAndMessages)
{
    numeric::SetDecimalSeparator(",");
    In.InstallMasks();
    In.Erase();
    EXPECT_EQ(Shown(EntryField::Longitude), QString("___°__',_ _"));
    EXPECT_EQ(Shown(EntryField::InchesHg), QString("29,91"));
    In.Fields().Edit(EntryField::Speed).setFocus();
    Type("<9,5\t");
    EXPECT_EQ(Input.Session.OrigSpeed, 9.5);
    In.ShowPage(1);
    In.Fields().Edit(EntryField::InchesHg).setFocus();
    Type("2775\t");
    EXPECT_EQ(Boxes.TakeOne(), " Error in input data|The atmospheric pressure is lower than 27,76 inHg.");
    EXPECT_EQ(Shown(EntryField::InchesHg), QString("_2,77"));
    Type("2992\t");
    EXPECT_EQ(Shown(EntryField::Millibars), QString("1013"));
}
