#include "app/frm_star_fix_wizard.h"
#include "ephemeris/astro_lib.h"
#include "ephemeris/magnitudes.h"
#include "numeric/clock.h"
#include "planning/star_list.h"
#include "platform/application.h"
#include "platform/message_boxes.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QListWidget>
#include <QTableWidget>
#include <QTimer>
#include <QTimerEvent>

#include <benchmark/benchmark.h>

#include <stdexcept>
#include <vector>

/// A tick of the wizard's live table with 30 bodies, without its repaint, beside the places and magnitudes of
/// those bodies alone.

namespace
{

using namespace merov;

constexpr int BodyCount = 30;
constexpr double SecondsPerDay = 86400.0;

/// A clock that goes on by 15 seconds each time it is read, so that no tick finds its texts as they were.
class SteppingClock : public numeric::Clock
{
public:
    Moment Now() override
    {
        now_ += 15.0 / SecondsPerDay;
        return {now_, now_};
    }
    void ProcessEvents() override {}

private:
    double now_ = 38159.9;
};

template <class Control>
Control& Find(QWidget& form, const char* name)
{
    auto* control = form.findChild<Control*>(QString::fromLatin1(name));
    if (control == nullptr) throw std::logic_error(name);
    return *control;
}

void Enter(QWidget& form, const char* field, const char* text)
{
    auto& edit = Find<QLineEdit>(form, field);
    edit.setFocus();
    edit.setText(QString::fromUtf8(text));
}

/// Plans an evening at 45 degrees north and marks the 30 brightest bodies.
std::vector<std::string> Plan(app::FrmStarFixWizard& form)
{
    form.OpenFromMain();
    while (!form.isActiveWindow()) // before that no field is left
        QCoreApplication::processEvents();
    Enter(form, "mskLat", "45°30'.0 N");
    Enter(form, "mskLong", "008°15'.0 W");
    Enter(form, "mskHeightM", "10.0");
    auto& next = Find<QAbstractButton>(form, "cmdNav(3)");
    next.setFocus();
    next.click();
    Find<QAbstractButton>(form, "optTime(1)").click();
    next.click();
    auto& list = Find<QListWidget>(form, "lstStars");
    std::vector<std::string> bodies;
    for (int row = 0; row < list.count(); ++row) {
        list.item(row)->setCheckState(row < BodyCount ? Qt::Checked : Qt::Unchecked);
        const QString line = list.item(row)->text();
        if (row < BodyCount) bodies.push_back(line.mid(5, line.lastIndexOf(':') - 5).toStdString());
    }
    next.click();
    if (Find<QTableWidget>(form, "grdStars").rowCount() != BodyCount) throw std::logic_error("too few bodies");
    return bodies;
}

void Tick(benchmark::State& state)
{
    SteppingClock clock;
    const numeric::ScopedClock clockScope(clock);
    app::FrmStarFixWizard form(nullptr);
    Plan(form);
    Find<QAbstractButton>(form, "bthStartTimer").click();
    auto& timer = Find<QTimer>(form, "tmrRealTime");
    for (auto _ : state) {
        QTimerEvent tick(timer.timerId());
        QCoreApplication::sendEvent(&timer, &tick);
    }
}
BENCHMARK(Tick)->Unit(benchmark::kMicrosecond);

void BodiesAlone(benchmark::State& state)
{
    SteppingClock clock;
    const numeric::ScopedClock clockScope(clock);
    app::FrmStarFixWizard form(nullptr);
    const std::vector<std::string> bodies = Plan(form);
    for (auto _ : state) {
        const double instant = clock.Now().Utc;
        for (const std::string& body : bodies) {
            ephemeris::BodyPosition position;
            ephemeris::ComputeBodyPosition(body, instant, position);
            benchmark::DoNotOptimize(position.GHA + ephemeris::ComputeMagnitude(body, instant));
        }
    }
}
BENCHMARK(BodiesAlone)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const platform::Application application(argc, argv);
    ephemeris::SetDataFolder(MEROV_RUN_DIR);
    platform::MessageBoxes boxes([](const numeric::Box& box) -> numeric::BoxAnswer {
        throw std::logic_error(box.Title + ": " + box.Lines.at(0));
    });
    const numeric::ScopedBoxReceiver boxScope(boxes);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
