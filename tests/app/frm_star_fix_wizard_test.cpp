#include "app/frm_star_fix_wizard.h"

#include "ephemeris/astro_lib.h"
#include "platform/time_picker.h"
#include "support/fake_clock.h"
#include "support/qt_text.h"
#include "support/screen_boxes.h"

#include <QAbstractButton>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <stdexcept>

namespace merov::app
{
namespace
{

const QRegularExpression BesideName("^.[\\d.]+ |:.*"); // in a line of the list

constexpr double Midsummer = 38159.5; // 21 June 2004, 12:00

class StarFixWizard : public testing::Test
{
protected:
    StarFixWizard()
    {
        ephemeris::SetDataFolder(MEROV_RUN_DIR);
        Main.show();
        Form.OnClosed = [this] { Told += "closed "; };
        Form.OnCancelled = [this] { Told += "cancelled "; };
        Form.OnHelp = [this] { Told += "help "; };
        Form.OnCaptureTime = [this] { Told += "capture "; };
    }

    template <class Control = QWidget>
    Control& Find(const QString& name)
    {
        auto* control = Form.findChild<Control*>(name);
        if (control == nullptr) throw std::logic_error("no control " + name.toStdString());
        return *control;
    }

    void Open()
    {
        Form.OpenFromMain();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Form));
    }

    void OpenAt(const char* latitude, const char* longitude, const char* metres)
    {
        Open();
        Type("mskLat", latitude);
        Type("mskLong", longitude);
        Type("mskHeightM", metres);
    }

    /// Plans the evening of midsummer at 50 north up to the table.
    void OpenTable()
    {
        OpenAt("50000N", "000000E", "100");
        Click("cmdNav(3)");
        Click("optTime(1)");
        Click("cmdNav(3)");
        Click("cmdNav(3)");
    }

    void Type(const QString& field, const char* keys)
    {
        QTest::mouseClick(&Find(field), Qt::LeftButton, {}, QPoint(4, 8));
        QTest::keyClicks(&Find(field), QString::fromLatin1(keys));
    }

    void Click(const QString& name)
    {
        QTest::mouseClick(&Find(name), Qt::LeftButton);
        QTest::qWait(0);
    }

    void Tick()
    {
        QTimerEvent tick(Find<QTimer>("tmrRealTime").timerId());
        QCoreApplication::sendEvent(&Find<QTimer>("tmrRealTime"), &tick);
    }

    QString Text(const QString& label) { return Find<QLabel>(label).text(); }
    QString Tip(const QString& name) { return Find(name).toolTip(); }
    QString Time() { return Find<platform::TimePicker>("dtpRealTime").text(); }
    QListWidget& List() { return Find<QListWidget>("lstStars"); }
    QTableWidget& Table() { return Find<QTableWidget>("grdStars"); }

    /// The rows of the table, by the numbers of the columns, in the order of the list's lines.
    QStringList TableLines()
    {
        QStringList lines;
        for (int row = 0; row < Table().rowCount(); ++row) {
            const auto text = [&](int column) { return Table().item(row, column)->text(); };
            lines += text(3) + ' ' + text(0) + ": " + text(1) + " / " + text(2);
        }
        return lines;
    }

    QStringList Names() { return TableLines().replaceInStrings(BesideName, ""); }

    QStringList Marked()
    {
        QStringList lines;
        for (int row = 0; row < List().count(); ++row)
            if (List().item(row)->checkState() == Qt::Checked) lines += List().item(row)->text();
        return lines;
    }

    /// The buttons that can be pressed, by their indices.
    QString Buttons()
    {
        QString enabled;
        for (int i = 0; i < 5; ++i)
            if (Find(QString("cmdNav(%1)").arg(i)).isVisible() && Find(QString("cmdNav(%1)").arg(i)).isEnabled())
                enabled += QString::number(i);
        return enabled;
    }

    /// Drags a column by its header and drops it on another, which `share` of that one's width lies before.
    void Drag(int column, int target, double share)
    {
        QHeaderView& header = *Table().horizontalHeader();
        const auto place = [&](int section, double part) {
            return QPoint(header.sectionViewportPosition(section) + int(part * header.sectionSize(section)), 10);
        };
        QTest::mousePress(header.viewport(), Qt::LeftButton, {}, place(column, 0.5));
        QTest::mouseMove(header.viewport(), (place(column, 0.5) + place(target, share)) / 2);
        QTest::mouseMove(header.viewport(), place(target, share));
        if (WhileDragged) WhileDragged();
        QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, place(target, share));
        QTest::qWait(0);
    }

    test::ScreenBoxes Boxes;
    test::FakeClock Clock{Midsummer};
    QWidget Main;
    FrmStarFixWizard Form{&Main};
    QString Told;
    std::function<void()> WhileDragged;
};

TEST_F(StarFixWizard, PlansATwilight)
{
    Open();
    EXPECT_EQ(Form.windowTitle(), " Star Fix Wizard - Step 1");
    EXPECT_EQ(Buttons(), "013");
    EXPECT_EQ(Find<platform::TimePicker>("dtpTime").Value(), std::floor(Midsummer));
    Click("cmdNav(3)");
    EXPECT_EQ(Boxes.TakeOne(),
              "Missing data|Some data are missing.|Please check that the whole input form is completed.");
    // By keys alone, as tabs lead.
    Find("dtpTime").setFocus();
    QTest::keyClick(Form.focusWidget(), Qt::Key_Tab);
    for (const char* keys : {"50000N", "\t\t", "000000E", "\t\t", "100"})
        for (const char* key = keys; *key != 0; ++key)
            QTest::keyClick(Form.focusWidget(), *key);
    QTest::keyClick(Form.focusWidget(), Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(Form.windowTitle(), " Star Fix Wizard - Step 2");
    EXPECT_EQ(Buttons(), "0123");
    QStringList times;
    for (int i = 0; i < 9; ++i)
        times += Text(QString("lblTimes(%1)").arg(i));
    EXPECT_EQ(times.replaceInStrings("21 Jun 2004 ", "").join(' '),
              "02:36 03:33 03:50 03:57 12:02 20:06 20:14 20:31 21:28");
    QTest::keyClick(Form.focusWidget(), Qt::Key_Right); // sunset
    Click("cmdNav(3)");
    EXPECT_EQ(Form.windowTitle(), " Star Fix Wizard - Step 3");
    EXPECT_EQ(Text("lblStep(2)"), "Select the stars you want to observe from 21 Jun 2004 20:31.");
    EXPECT_EQ(List().toolTip(), "Altitudes are sextant alt.");
    const QStringList proposed = Marked();
    ASSERT_GT(proposed.size(), 2);

    // A click anywhere on a line and the space bar change its mark.
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, List().visualItemRect(List().item(2)).center());
    QTest::keyClick(&List(), Qt::Key_Down);
    QTest::keyClick(&List(), Qt::Key_Space);
    const QStringList marked = Marked();
    for (const int row : {2, 3})
        EXPECT_NE(proposed.contains(List().item(row)->text()), marked.contains(List().item(row)->text())) << row;
    List().scrollToBottom();

    Click("cmdNav(3)");
    EXPECT_EQ(Form.windowTitle(), " Star Fix Wizard - Position of the selected stars on");
    EXPECT_EQ(Buttons(), "0124");
    EXPECT_NEAR(Find<platform::TimePicker>("dtpRealTime").Value(), 38159.0 + (20.0 + 31.0 / 60.0) / 24.0,
                30.5 / 86400.0);
    EXPECT_EQ(Tip("dtpRealTime"), "Time of sunrise/sunset");
    QStringList table = TableLines();
    EXPECT_TRUE(std::is_sorted(table.begin(), table.end(), [](const QString& a, const QString& b) {
        return a.section(": ", 1) < b.section(": ", 1);
    }));
    EXPECT_EQ(QSet(table.begin(), table.end()), QSet(marked.begin(), marked.end()));

    Click("cmdNav(2)");
    EXPECT_EQ(Marked(), marked);
    EXPECT_EQ(List().indexAt(QPoint(2, 2)).row(), 0) << "from the first line";
    EXPECT_EQ(Buttons(), "0123");
    Click("cmdNav(2)");
    Click("cmdNav(3)");
    EXPECT_EQ(Marked(), proposed) << "built anew";
    for (int row = 0; row < List().count(); ++row)
        List().item(row)->setCheckState(Qt::Unchecked);
    Click("cmdNav(3)");
    EXPECT_EQ(Boxes.TakeOne(), "No star selected|There is no star selected.|Please select at least one star.");
    List().item(0)->setCheckState(Qt::Checked);
    Click("cmdNav(3)");
    EXPECT_EQ(Table().rowCount(), 1);
    EXPECT_EQ(Told, "");
}

TEST_F(StarFixWizard, RefusesAPolarDayAndErases)
{
    OpenAt("80000N", "000000E", "100");
    Click("cmdNav(3)");
    EXPECT_EQ(Boxes.TakeOne(),
              "No rise/set times|At your latitude, the Sun is now circumpolar.|There is neither sunrise, nor sunset.");
    EXPECT_EQ(Form.windowTitle(), " Star Fix Wizard - Step 1");
    Type("mskLong", "190000E");
    Click("cmdNav(3)"); // the field is left first, and refuses
    EXPECT_EQ(Boxes.TakeOne(), " Error in input data|Longitude > 180°.");
    Click("cmdEraseObsPos(1)"); // which leaves nothing
    EXPECT_EQ(Find<QLineEdit>("mskLong").displayText(), "___°__'._ _");
    EXPECT_EQ(Find<QLineEdit>("mskHeightF").displayText(), "032.8");
    Find<platform::TimePicker>("dtpTime").setFocus();
    QTest::keyClick(&Find("dtpTime"), Qt::Key_Up);
    Click("cmdErase");
    EXPECT_EQ(Find<QLineEdit>("mskHeightF").displayText(), "___._");
    EXPECT_EQ(Find<platform::TimePicker>("dtpTime").Value(), std::floor(Midsummer));
    Click("cmdNav(3)");
    EXPECT_EQ(Boxes.TakeTexts().size(), 1u);
}

TEST_F(StarFixWizard, FollowsTheClockUntilATimeIsTyped)
{
    OpenTable();
    const QStringList planned = TableLines();
    EXPECT_EQ(Find<QTimer>("tmrRealTime").interval(), 15000);
    Click("bthStartTimer");
    EXPECT_EQ(Tip("bthStartTimer") + '|' + Tip("dtpRealTime"),
              "Stop real time display|Computer clock (updated every 15s)");
    EXPECT_EQ(Time(), "21 Jun 2004 12:00:00");
    EXPECT_NE(TableLines(), planned);
    Clock.Advance(8.0 * 3600.0 + 31.0 * 60.0);
    Tick();
    EXPECT_EQ(Time(), "21 Jun 2004 20:31:00");
    EXPECT_EQ(Names(), QStringList(planned).replaceInStrings(BesideName, "")); // near the planned moment
    Click("bthStartTimer");
    EXPECT_EQ(Tip("bthStartTimer") + '|' + Tip("dtpRealTime"), "Start real time display|Computer clock (stopped)");
    EXPECT_FALSE(Find<QTimer>("tmrRealTime").isActive());

    Click("bthStartTimer");
    const QStringList live = TableLines();
    Find("dtpRealTime").setFocus();
    Find<platform::TimePicker>("dtpRealTime").setSelectedSection(QDateTimeEdit::YearSection);
    QTest::keyClicks(&Find("dtpRealTime"), "200");
    Tick();
    EXPECT_EQ(Time(), "21 Jun 200 20:31:00") << "half typed";
    QTest::keyClicks(&Find("dtpRealTime"), "4");
    Find<platform::TimePicker>("dtpRealTime").setSelectedSection(QDateTimeEdit::DaySection);
    QTest::keyClick(&Find("dtpRealTime"), Qt::Key_Up); // the next day
    EXPECT_EQ(Time(), "22 Jun 2004 20:31:00");
    EXPECT_NE(TableLines(), live);
    EXPECT_EQ(Tip("bthStartTimer") + '|' + Tip("dtpRealTime"), "Start real time display|Time entered by user");
    EXPECT_FALSE(Find<QTimer>("tmrRealTime").isActive());

    Click("bthStartTimer");
    Click("cmdNav(2)");
    EXPECT_FALSE(Find<QTimer>("tmrRealTime").isActive()) << "only in step 4";
}

TEST_F(StarFixWizard, ServesATickAfterABoxOrADragAndNoneAfterAnError)
{
    OpenTable();
    Click("bthStartTimer");
    const auto tickLater = [this] {
        Clock.Advance(15.0);
        const QString before = Time();
        Tick();
        EXPECT_EQ(Time(), before);
    };
    QDialog box(&Form);
    box.setModal(true);
    box.show();
    tickLater();
    box.close();
    QTest::qWait(0);
    EXPECT_EQ(Time(), "21 Jun 2004 12:00:15");
    WhileDragged = tickLater;
    Drag(3, 1, 0.5);
    EXPECT_EQ(Time(), "21 Jun 2004 12:00:30");
    WhileDragged = [&] { // a box that takes the release of the button
        box.show();
        tickLater();
        box.close();
        QTest::qWait(0);
        EXPECT_EQ(Time(), "21 Jun 2004 12:00:45");
    };
    Drag(3, 1, 0.5);

    Clock.Advance(1e12);
    Tick();
    EXPECT_EQ(Boxes.TakeOne().substr(0, 13), " ERROR REPORT");
    EXPECT_FALSE(Find<QTimer>("tmrRealTime").isActive());
    EXPECT_EQ(Tip("bthStartTimer"), "Start real time display");
}

TEST_F(StarFixWizard, SortsByDraggedColumnsUntilLaidOutAnew)
{
    OpenTable();
    const QStringList byAzimuth = TableLines();
    QStringList byMagnitude = byAzimuth;
    std::stable_sort(byMagnitude.begin(), byMagnitude.end(),
                     [](const QString& a, const QString& b) { return a.left(4).toDouble() < b.left(4).toDouble(); });
    QStringList byName = Names();
    byName.sort();

    for (const double share : {0.1, 0.9}) { // wherever it is dropped on the first column
        Drag(3, 0, share);
        EXPECT_EQ(Table().horizontalHeader()->visualIndex(3), 0);
        EXPECT_EQ(TableLines(), byMagnitude);
        Drag(3, 2, share);
        EXPECT_EQ(Table().horizontalHeader()->visualIndex(3), 3);
        EXPECT_EQ(Names(), byName) << "as texts, the columns in their first order";
    }
    Find("dtpRealTime").setFocus();
    QTest::keyClick(&Find("dtpRealTime"), Qt::Key_Up);
    EXPECT_EQ(Names(), byName) << "at another time too";
    Table().setFocus();
    QTest::keyClick(&Table(), Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(Table().horizontalHeader()->visualIndex(0), 1);

    Click("cmdNav(2)");
    Click("cmdNav(3)");
    EXPECT_EQ(Table().horizontalHeader()->visualIndex(0), 0);
    EXPECT_EQ(TableLines(), byAzimuth);
}

TEST_F(StarFixWizard, ShowsWhatIsUp)
{
    Form.OpenFromAzi(Midsummer, 50.0, 0.0);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Form));
    EXPECT_EQ(Form.windowTitle(), " What is up?");
    EXPECT_EQ(Text("lblStep(3)"), "Position of the stars on");
    EXPECT_EQ(Time() + '|' + Tip("dtpRealTime"), "21 Jun 2004 12:00:00|Time of azimuth observation");
    EXPECT_FALSE(Find("dtpRealTime").isEnabled());
    EXPECT_FALSE(Find("bthStartTimer").isVisible());
    EXPECT_EQ(Buttons(), "04");
    // The Sun a little before its passage, at 90 - 50 + 23.4 degrees; limbs apart by 31.5', dip 5.6'.
    const QStringList sun = TableLines().filter("SUN");
    ASSERT_EQ(sun.size(), 2);
    EXPECT_EQ(sun.join('|'), "-26.9 SUNLOW: 179° / 63°16'|-26.9 SUNUPP: 179° / 63°48'");

    Click("cmdNav(4)");
    EXPECT_FALSE(Form.isVisible());
    EXPECT_EQ(Told, "closed ");
    OpenTable();
    EXPECT_EQ(Buttons(), "0124");
    EXPECT_TRUE(Find("dtpRealTime").isEnabled() && Find("bthStartTimer").isVisible());
    EXPECT_EQ(Text("lblStep(3)"), "Position of the selected stars on");
}

TEST_F(StarFixWizard, EndsOnceByEachWay)
{
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"closed ", [this] { Click("cmdNav(4)"); }},
        {"cancelled ", [this] { Click("cmdNav(1)"); }},
        {"closed ", [this] { Form.close(); }},
    };
    for (const auto& [told, end] : ways) {
        OpenTable();
        Click("bthStartTimer");
        QTest::keyClick(Form.focusWidget(), Qt::Key_Escape);
        QTest::keyClick(&Table(), Qt::Key_Return);
        QTest::keyClick(&Table(), Qt::Key_F5);
        Click("cmdNav(0)");
        EXPECT_TRUE(Form.isVisible());
        EXPECT_EQ(std::exchange(Told, ""), "capture help ");
        end();
        EXPECT_FALSE(Form.isVisible());
        EXPECT_FALSE(Find<QTimer>("tmrRealTime").isActive());
        EXPECT_EQ(std::exchange(Told, ""), told);
    }
    Form.close(); // of the hidden form
    EXPECT_EQ(Told, "");
}

TEST_F(StarFixWizard, SkyDomeFollowsMarksAndClock)
{
    OpenAt("50000N", "000000E", "100");
    EXPECT_FALSE(Find("cmdStarsGraph").isEnabled());
    Click("cmdNav(3)");
    Click("cmdNav(3)");
    Click("cmdStarsGraph");
    QWidget& dome = Find("frmSkyDome");
    const auto described = [this] { return Find("picSkyDome").accessibleDescription(); };
    EXPECT_TRUE(dome.isVisible());
    EXPECT_EQ(described(), Marked().join("; "));
    List().item(1)->setCheckState(List().item(1)->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    EXPECT_EQ(described(), Marked().join("; "));
    const QString planned = described();
    const QImage picture = dome.grab().toImage();
    Click("cmdNav(3)");
    EXPECT_EQ(described(), planned);
    Clock.Advance(9.0 * 3600.0);
    Click("bthStartTimer");
    EXPECT_NE(described(), planned);
    EXPECT_NE(dome.grab().toImage(), picture);
    QTest::keyClick(&dome, Qt::Key_Escape);
    EXPECT_FALSE(dome.isVisible());
    Click("cmdStarsGraph");
    Click("cmdNav(4)");
    EXPECT_FALSE(dome.isVisible());
}

} // namespace
} // namespace merov::app
