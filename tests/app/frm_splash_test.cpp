#include "app/frm_splash.h"
#include "platform/rich_text_box.h"
#include "tests/support/qt_text.h"

#include <QElapsedTimer>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <gtest/gtest.h>

#include <functional>

namespace merov::app
{
namespace
{

using namespace std::chrono_literals;

/// Opens the form and lets `act` look at it and close it.
void OpenAnd(FrmSplash& form, const std::function<void()>& act)
{
    QTimer::singleShot(20ms, &form, act);
    form.Open();
    EXPECT_FALSE(form.isVisible());
}

bool Visible(const FrmSplash& form, const char* name)
{
    return form.findChild<QWidget*>(name)->isVisible();
}

/// A click that finds its own way to the control at `place`.
void ClickAt(const FrmSplash& form, QPoint place)
{
    QTest::mouseClick(form.windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
}

TEST(FrmSplash, StartModeClosesByItself)
{
    FrmSplash form("1.20", 150ms, nullptr);
    QElapsedTimer watch;
    watch.start();
    OpenAnd(form, [&] {
        for (const char* name : {"picSplash", "picSplashFix", "lblSplash", "lblReadAbout"})
            EXPECT_TRUE(Visible(form, name)) << name;
        EXPECT_FALSE(Visible(form, "rtfAboutProg"));
        const QString title = form.findChild<QLabel*>("lblSplash")->text();
        EXPECT_TRUE(title.contains("Merov 1.20") && title.contains("May 2004")) << title.toStdString();
        EXPECT_TRUE(form.windowFlags().testFlag(Qt::FramelessWindowHint));
        EXPECT_EQ(form.toolTip(), "Click anywhere to continue");
        const QRect screen = form.screen()->availableGeometry();
        EXPECT_LE((form.geometry().center() - screen.center()).manhattanLength(), 2);
        EXPECT_TRUE(QRect(0, 0, 800, 600).contains(QRect({}, form.size())));
    });
    EXPECT_GE(watch.elapsed(), 120);
}

TEST(FrmSplash, ClosesByClickOrKeyAndThenIsTheAboutBox)
{
    QWidget window;
    window.setGeometry(40, 60, 720, 600);
    FrmSplash form("1.20", 1h, &window);
    EXPECT_FALSE(form.AboutText().LoadFile(MEROV_RUN_DIR "/InfoProg.rtf"));
    OpenAnd(form, [&] {
        QTest::keyClick(&form, Qt::Key_Shift);
        EXPECT_TRUE(form.isVisible());
        ClickAt(form, form.findChild<QWidget*>("lblSplash")->geometry().center());
    });
    EXPECT_FALSE(form.findChild<QTimer*>("tmrSplash")->isActive());

    window.show();
    const auto lookAtAbout = [&] {
        EXPECT_EQ(form.windowTitle(), " About Merov");
        EXPECT_FALSE(form.windowFlags().testFlag(Qt::FramelessWindowHint));
        for (const char* name : {"picSplash", "picSplashFix", "lblReadAbout"})
            EXPECT_FALSE(Visible(form, name)) << name;
        EXPECT_TRUE(Visible(form, "lblSplash"));
        EXPECT_TRUE(form.AboutText().isVisible());
        EXPECT_EQ(form.AboutText().verticalScrollBar()->maximum(), 0) << "not the whole document in sight";
        EXPECT_LE((form.geometry().center() - window.geometry().center()).manhattanLength(), 4);
        EXPECT_FALSE(form.findChild<QTimer*>("tmrSplash")->isActive());
    };
    OpenAnd(form, [&] {
        lookAtAbout();
        ClickAt(form, form.AboutText().geometry().center());
    });
    OpenAnd(form, [&] { ClickAt(form, form.findChild<QWidget*>("lblSplash")->geometry().center()); });
    OpenAnd(form, [&] {
        lookAtAbout();
        QTest::keyClick(&form, Qt::Key_Space);
    });
}

} // namespace
} // namespace merov::app
