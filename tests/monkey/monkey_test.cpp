#include "app/program.h"
#include "fix/entry_rules.h"
#include "platform/message_boxes.h"
#include "platform/night_palette.h"

#include <QAbstractButton>
#include <QCalendarWidget>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>

#include <cstdio>
#include <random>

/// A user without sense: clicks, types and turns the wheel all over the program, windows and boxes included.
/// Nothing may crash, no box may stay for good, and no entry may go but by what erases entries.
///
/// MEROV_MONKEY_EVENTS and MEROV_MONKEY_SEED ask for another run than the suite's.

namespace merov::test
{
namespace
{

constexpr int EventsOfARun = 5000;
constexpr int StuckAfter = 3000;  // events that meet one and the same modal window
constexpr int RestsBetween = 200; // events between two pauses in which timers run

int FromEnvironment(const char* name, int usual)
{
    bool isNumber = false;
    const int value = qEnvironmentVariableIntValue(name, &isNumber);
    return isNumber ? value : usual;
}

/// True for a text that its field takes. One that it refuses is no entry, and loses a digit by that.
bool IsEntry(fix::EntryField field, const std::string& text)
{
    const fix::EntryVerdict verdict = fix::CheckEntry(field, text).Verdict;
    return verdict == fix::EntryVerdict::Valid || verdict == fix::EntryVerdict::Suspicious;
}

/// Which entries of the fix are filled.
struct Filled {
    std::array<bool, fix::EntryFieldCount> Fields{};
    std::array<int, fix::GridColumnCount> Cells{};

    explicit Filled(const fix::SightEntry& entry)
    {
        for (std::size_t i = 0; i < Fields.size(); ++i)
            Fields[i] = IsEntry(static_cast<fix::EntryField>(i), entry.Texts[i]);
        for (int row = 1; row <= fix::MaxObservations; ++row)
            for (std::size_t column = 0; column < Cells.size(); ++column)
                Cells[column] += entry.Rows[row].Text[column].empty() ? 0 : 1;
    }

    /// What is missing that was there before; empty for nothing.
    std::string Lacks(const Filled& before) const
    {
        for (std::size_t i = 0; i < Fields.size(); ++i)
            if (before.Fields[i] && !Fields[i]) return std::string(ControlName(static_cast<fix::EntryField>(i)));
        for (std::size_t i = 0; i < Cells.size(); ++i)
            if (Cells[i] < before.Cells[i]) return "a cell of column " + std::to_string(i);
        return {};
    }
};

class Monkey : public Program
{
protected:
    void SetUp() override { Restart(); }

    /// The program from its start, on the sample or without a file.
    void Restart()
    {
        Start(Pick(2) == 0 ? Sample : QString());
        Window->findChild<QWidget*>("frmSplash")->close();
        for (QAction* action : Window->findChildren<QAction*>())
            if (action->objectName() == "mnuAstroErase" || action->objectName() == "mnuAstroLoad")
                QObject::connect(action, &QAction::triggered, Window.get(), [this] { erases_ = true; });
        for (QAbstractButton* button : Window->findChildren<QAbstractButton*>())
            if (button->objectName().startsWith("cmdErase") || button->objectName().startsWith("cmdLoad"))
                QObject::connect(button, &QAbstractButton::clicked, Window.get(), [this] { erases_ = true; });
    }

    /// Lets the monkey work until it has done so many events.
    void Work(int events)
    {
        wanted_ = events;
        QElapsedTimer time;
        time.start();
        QEventLoop loop;
        const std::function<void()> tick = [&] {
            QWidget* modal = QApplication::activeModalWidget();
            if (done_ >= wanted_ && modal == nullptr) {
                loop.quit();
                return;
            }
            QTimer::singleShot(0, qApp, tick); // before the deed, which may wait for the end of a modal window
            if (done_ < wanted_)
                Step();
            else
                modal->close();
        };
        QTimer::singleShot(0, qApp, tick);
        loop.exec();
        // What it left open, and what waits for the event loop to be deleted.
        while (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
        Window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        std::printf("%d events, seed %d: %.1f s, %d restarts, %d modal windows\n", done_, seed_,
                    static_cast<double>(time.elapsed()) / 1000.0, restarts_, modals_);
    }

    void Seed(int seed)
    {
        seed_ = seed;
        random_.seed(static_cast<unsigned>(seed));
    }

private:
    int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    void Step()
    {
        ++done_;
        Clock.Advance(0.7);
        if (!Window->isVisible()) {
            if (QApplication::activeModalWidget() != nullptr) return;
            ++restarts_;
            Restart();
        }
        Dialogs.Answers.clear();
        if (Pick(2) == 0) Dialogs.Answers.push_back(Pick(2) == 0 ? Sample : Home.filePath("monkey.obs"));
        WatchModal();

        const Filled before(Window->Input().Entry);
        const QPointer<QWidget> program = Window.get();
        // What an earlier deed has begun ends with the last of its boxes.
        if (QApplication::activeModalWidget() == nullptr) erases_ = false;
        Deed();
        if (program.isNull() || program != Window.get()) return;
        const std::string lost = erases_ ? std::string() : Filled(Window->Input().Entry).Lacks(before);
        EXPECT_EQ(lost, "") << "at event " << done_ << " of seed " << seed_ << ": " << deed_.toStdString();
        if (done_ % RestsBetween == 0) QTest::qWait(1);
    }

    void WatchModal()
    {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal != modal_) modals_ += modal != nullptr;
        met_ = modal == nullptr || modal != modal_ ? 0 : met_ + 1;
        modal_ = modal;
        if (met_ < StuckAfter) return;
        ADD_FAILURE() << "stuck in \"" << modal->windowTitle().toStdString() << "\" at event " << done_ << " of seed "
                      << seed_;
        modal->close();
        met_ = 0;
    }

    /// The window that takes the next event: a popup or a modal one before all others.
    QWidget& Target()
    {
        if (QWidget* popup = QApplication::activePopupWidget()) return *popup;
        if (QWidget* modal = QApplication::activeModalWidget()) return *modal;
        QList<QWidget*> open = {Window.get()};
        for (QWidget* each : Window->findChildren<QWidget*>())
            if (each->isWindow() && each->isVisible()) open.append(each);
        QWidget* window = open.at(Pick(static_cast<int>(open.size())));
        if (!window->isActiveWindow()) window->activateWindow();
        return *window;
    }

    void Deed()
    {
        QWidget& window = Target();
        // A box is answered by a button half of the time, else the monkey would hammer on it for long.
        if (qobject_cast<QMessageBox*>(&window) != nullptr && Pick(2) == 0) {
            const QList<QAbstractButton*> buttons = static_cast<QMessageBox&>(window).buttons();
            deed_ = "answers a box";
            buttons.at(Pick(static_cast<int>(buttons.size())))->click();
            return;
        }
        if (Pick(3) == 0)
            Point(window);
        else
            Type(window);
    }

    void Point(QWidget& window)
    {
        const QPoint at(Pick(window.width()), Pick(window.height()));
        QWidget* under = window.childAt(at);
        QWidget& target = under == nullptr ? window : *under;
        const QPoint local = target.mapFrom(&window, at);
        deed_ = "clicks on " + target.objectName() + " (" + target.metaObject()->className() + ")";
        switch (Pick(5)) {
        case 0:
            QTest::mouseDClick(&target, Qt::LeftButton, {}, local);
            break;
        case 1:
            QTest::mouseMove(&target, local);
            QTest::mouseClick(&target, Pick(4) == 0 ? Qt::RightButton : Qt::LeftButton, {}, local);
            break;
        case 2: {
            // Presses here, lets go elsewhere.
            const QPointer<QWidget> alive = &target;
            QTest::mousePress(&target, Qt::LeftButton, {}, local);
            const QPoint there(Pick(window.width()), Pick(window.height()));
            if (alive) QTest::mouseMove(alive, alive->mapFrom(alive->window(), there));
            if (alive) QTest::mouseRelease(alive, Qt::LeftButton, {}, alive->mapFrom(alive->window(), there));
            break;
        }
        default:
            QTest::mouseClick(&target, Qt::LeftButton, {}, local);
        }
    }

    void Type(QWidget& window)
    {
        constexpr int CalendarKeys = 12; // the first ones, which type nothing
        constexpr Qt::Key Keys[] = {Qt::Key_Tab, Qt::Key_Tab,    Qt::Key_Backtab,  Qt::Key_Return, Qt::Key_Escape,
                                    Qt::Key_Up,  Qt::Key_Down,   Qt::Key_Left,     Qt::Key_Right,  Qt::Key_Home,
                                    Qt::Key_End, Qt::Key_PageUp, Qt::Key_Space,    Qt::Key_F1,     Qt::Key_F5,
                                    Qt::Key_F10, Qt::Key_Delete, Qt::Key_Backspace};
        const QString Letters = "0123456789nsewNSEW+-.,'°xS ";
        QWidget* focus = window.focusWidget() == nullptr ? &window : window.focusWidget();
        // Typing over an entry empties places of its own.
        const bool inField = qobject_cast<QLineEdit*>(focus) != nullptr;
        const QString name = focus->objectName();
        // Qt's calendar leaks what is typed into it if it goes within the next second and a half.
        if (qobject_cast<QCalendarWidget*>(&window) != nullptr || window.findChild<QCalendarWidget*>() != nullptr) {
            deed_ = "a key in a calendar";
            QTest::keyClick(focus, Keys[Pick(CalendarKeys)]);
            return;
        }
        switch (Pick(6)) {
        case 0: {
            const QChar letter = QChar(u'A' + Pick(26));
            deed_ = "Alt+" + QString(letter);
            QTest::keyClick(focus, letter.toLatin1(), Qt::AltModifier);
            break;
        }
        case 1: {
            const Qt::Key key = Pick(2) == 0 ? Qt::Key_Delete : Qt::Key_Tab;
            deed_ = "Ctrl and a key in " + name;
            erases_ = erases_ || key == Qt::Key_Delete;
            QTest::keyClick(focus, key, Qt::ControlModifier);
            break;
        }
        case 2:
        case 3: {
            const Qt::Key key = Keys[Pick(static_cast<int>(std::size(Keys)))];
            deed_ = QString("key %1 in %2").arg(key, 0, 16).arg(name);
            erases_ = erases_ || key == Qt::Key_Delete || (inField && key == Qt::Key_Backspace);
            QTest::keyClick(focus, key, Pick(8) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
            break;
        }
        default: {
            const QChar letter = Letters.at(Pick(static_cast<int>(Letters.size())));
            deed_ = "types " + QString(letter) + " in " + name;
            erases_ = erases_ || inField;
            QTest::keyClicks(focus, QString(letter));
        }
        }
    }

    platform::MessageBoxes boxes_;
    const numeric::ScopedBoxReceiver boxScope_{boxes_};
    const platform::NightPalette night_{*qApp};
    std::mt19937 random_;
    int seed_ = 0;
    int wanted_ = 0;
    int done_ = 0;
    int restarts_ = 0;
    int modals_ = 0;
    int met_ = 0;         ///< events in a row that met the modal window
    bool erases_ = false; ///< the deed is one that may empty entries
    QString deed_;
    QPointer<QWidget> modal_;
};

class MonkeyRuns : public Monkey, public testing::WithParamInterface<int>
{
protected:
    void SetUp() override
    {
        Seed(FromEnvironment("MEROV_MONKEY_SEED", 2026) + GetParam());
        Monkey::SetUp();
    }
};

TEST_P(MonkeyRuns, LeavesProgramAndEntriesWhole)
{
    Work(FromEnvironment("MEROV_MONKEY_EVENTS", EventsOfARun));
}

INSTANTIATE_TEST_SUITE_P(Seeds, MonkeyRuns, testing::Range(0, 4));

} // namespace
} // namespace merov::test
