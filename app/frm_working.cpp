#include "app/frm_working.h"

#include "app/frm_end.h"
#include "app/frm_time_store.h"
#include "app/main_menu.h"
#include "app/main_surfaces.h"
#include "app/main_tool_bars.h"
#include "app/observation_files.h"
#include "app/print_flow.h"
#include "app/tab_in.h"
#include "app/tab_options.h"
#include "app/tab_util.h"
#include "app/window_place.h"
#include "numeric/message_box.h"
#include "platform/application.h"
#include "platform/file_dialogs.h"
#include "platform/help_window.h"
#include "platform/rich_text_box.h"
#include "platform/settings_store.h"
#include "platform/status_panels.h"
#include "platform/twips.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QShortcut>

#include <utility>

namespace merov::app
{
FrmWorking::FrmWorking(const Surroundings& surroundings)
    : surroundings_(surroundings), tables_(InitialTables(surroundings.AppPath, MEROV_VERSION)),
      surfaces_(new MainSurfaces(this)), staNumDisp_(new platform::StatusPanels), tabIn_(new TabIn(input_)),
      tabOptions_(new TabOptions(input_, surroundings.SetClock)), tabUtil_(new TabUtil(input_.Journal)),
      frmTimeStore_(new FrmTimeStore(input_.StoredTime, this)), frmEnd_(new FrmEnd(this))
{
    setObjectName("frmWorking");
    setWindowTitle(" Merov 1.2");
    setMinimumSize(platform::Pixels(MinimumWidth), platform::Pixels(MinimumHeight));

    const CommandRunner runner{[this](Command command) { Run(command); }, HasRoutine};
    menu_ = std::make_unique<MainMenu>(*menuBar(), runner);
    toolBars_ = new MainToolBars(runner, surfaces_);
    surfaces_->AddToolBars(toolBars_);
    surfaces_->AddPictures(runner);
    surfaces_->AddTab(Surface::TabIn, tabIn_);
    surfaces_->AddTab(Surface::TabOptions, tabOptions_);
    surfaces_->AddTab(Surface::TabUtil, tabUtil_);
    setCentralWidget(surfaces_);
    BuildStatusBar();
    BuildShortcuts();
    ConnectTabs();

    if (surroundings_.Files == nullptr) ownDialogs_ = std::make_unique<platform::ScreenFileDialogs>(this);
    const QString folder =
        ObservationsFolder(tables_.AppPath, surroundings_.Documents,
                           surroundings_.CanWrite ? surroundings_.CanWrite : std::function(CanWriteIn));
    files_ = std::make_unique<ObservationFiles>(input_, *tabIn_, Dialogs(), folder, SamplesFolder(tables_.AppPath));
}

FrmWorking::~FrmWorking()
{
    delete surfaces_; // the surfaces refer to the input, which lives until then
}

void FrmWorking::BuildStatusBar()
{
    staNumDisp_->setObjectName("staNumDisp");
    const std::pair<const char*, const char*> panels[] = {
        {"TimeTruePos", "Date and time (GMT) of the true position"},
        {"MPP", "True position (Most Probable Position)"},
        {"Proba", "Probability of ellipse and circle"},
        {"Ellipse", "Half axes of the ellipse, nautical miles"},
        {"Circle", "Radius of the circle, nautical miles"},
        {"Course", "Course"},
        {"Speed", "Speed, knots"},
        {"Full", "Routine: full (course and speed corrected) or truncated"},
        {"Iter", "Iterations"},
        {"SystErr", "Systematic error, minutes"},
    };
    for (const auto& [key, toolTip] : panels)
        staNumDisp_->AddPanel(key, toolTip, std::string_view(key) == "Full"); // words give way to figures
    staNumDisp_->OnPanelClick = [this](const QString& key) {
        if (key == "Proba") Run(Command::Proba);
    };
    setStatusBar(staNumDisp_);
}

void FrmWorking::BuildShortcuts()
{
    const auto add = [this](Qt::Key key, const std::function<void()>& command) {
        connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, this, command);
    };
    add(Qt::Key_F1, [this] { Run(Command::Manual); });
    add(Qt::Key_F10, [this] { menu_->TakeKeyboard(); });
}

/// Gives the buttons of the tab surfaces their commands.
void FrmWorking::ConnectTabs()
{
    const auto command = [this](void (FrmWorking::*routine)()) {
        return [this, routine] { Guarded([this, routine] { (this->*routine)(); }); };
    };
    tabIn_->OnLoad = command(&FrmWorking::cmdLoadObs);
    tabIn_->OnErase = command(&FrmWorking::cmdEraseObs);
    tabIn_->OnSave = command(&FrmWorking::mnuAstroSave);
    tabIn_->OnNumRes = command(&FrmWorking::cmdNumRes);
    tabIn_->OnGraphRes = command(&FrmWorking::cmdGraphRes);
    tabIn_->OnCapture = command(&FrmWorking::cmdChronoF5);
    tabIn_->OnCancel = [this](int index) { Guarded([this, index] { cmdCancel(index); }); };
    tabIn_->OnInputComplete = [this] { Change(Transition::InputComplete); };
    tabIn_->OnOneEstPos = [this](bool) { tabOptions_->ShowOneEstPos(); };
    tabOptions_->OnEnd = command(&FrmWorking::cmdEndTabOptions);
    tabOptions_->OnOneEstPos = [this](bool) { tabIn_->ShowOneEstPos(); };
    tabOptions_->OnEllipsoid = [this] { Guarded([this] { tabUtil_->ShowEllipsoid(IsVisible(Surface::TabUtil)); }); };
    tabUtil_->OnEnd = command(&FrmWorking::cmdEndTabUtil);
    tabUtil_->OnChangeEllipsoid = command(&FrmWorking::ChangeEllipsoid);
    tabUtil_->OnPrintReport = command(&FrmWorking::PrintSailingReport);
    tabUtil_->OnPrintEta = command(&FrmWorking::PrintEtaTable);
    tabUtil_->OnNoTemplate = [this](const QString& failure) {
        TellMissing({SailingTemplate + (": " + failure.toStdString())});
    };
}

void FrmWorking::closeEvent(QCloseEvent* event)
{
    if (!ending_ && !UserEnds(true)) {
        event->ignore();
        return;
    }
    ending_ = true;
    CloseForms();
    if (!isMinimized()) {
        using platform::Twips;
        SaveWindowPlace(surroundings_.Settings, {Twips(x()), Twips(y()), Twips(width()), Twips(height())});
    }
    event->accept();
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

/// Asks whether the program is to end. Closing the dialog itself repeats its last answer.
/// @param unlessNo  true: anything but "no" ends it; false: only "yes" does
bool FrmWorking::UserEnds(bool unlessNo)
{
    FrmEnd::Answer answer = FrmEnd::Answer::No;
    Guarded([&] { answer = frmEnd_->Ask(); });
    return unlessNo ? answer != FrmEnd::Answer::No : answer == FrmEnd::Answer::Yes;
}

/// Closes the help window and all other windows of the program.
void FrmWorking::CloseForms()
{
    if (help_ != nullptr) help_->close();
    for (QWidget* child : findChildren<QWidget*>())
        if (child->isWindow()) child->close();
}

void FrmWorking::Change(Transition transition)
{
    Apply(transition, *this);
    if (focusWidget() == surfaces_) FocusSurface();
}

void FrmWorking::SetVisible(Surface surface, bool visible)
{
    // A surface goes, or is covered, without its field being left: what stands in it waits there.
    const QWidget* widget = surfaces_->Find(surface);
    const bool covers = visible && MainSurfaces::Covers(surface);
    if (widget != nullptr && (covers ? !HasFocus(*widget) : !visible && HasFocus(*widget))) ParkFocus();
    surfaces_->SetVisible(surface, visible);
}

/// True when the focus lies on a control or within it.
bool FrmWorking::HasFocus(const QWidget& control) const
{
    const QWidget* focus = focusWidget();
    return focus != nullptr && (focus == &control || control.isAncestorOf(focus));
}

bool FrmWorking::IsVisible(Surface surface) const
{
    return surfaces_->IsShown(surface);
}

void FrmWorking::SetEnabled(Menu menu, bool enabled)
{
    menu_->SetEnabled(menu, enabled);
}

void FrmWorking::ShowBar(Bar bar)
{
    // Qt would send the focus of the bar that goes through the fields.
    if (HasFocus(*toolBars_)) ParkFocus();
    toolBars_->ShowBar(bar);
}

Bar FrmWorking::ShownBar() const
{
    return toolBars_->ShownBar();
}

void FrmWorking::SetBarEnabled(bool enabled)
{
    if (HasFocus(*toolBars_)) ParkFocus();
    toolBars_->SetBarEnabled(enabled);
}

void FrmWorking::ParkFocus()
{
    if (platform::Application* application = platform::Application::Running())
        application->PassFocus(*surfaces_);
    else
        surfaces_->setFocus();
}

/// Gives the keyboard to the surface in view.
void FrmWorking::FocusSurface()
{
    const Surface surface = surfaces_->Topmost().value_or(Surface::StarFix);
    if (surface == Surface::TabIn)
        FocusInput();
    else if (IsVisible(surface))
        FocusFirst(*surfaces_->Find(surface));
}

/// Gives the keyboard to the input, unless it has it.
void FrmWorking::FocusInput()
{
    if (tabIn_->isAncestorOf(focusWidget())) return;
    if (tabIn_->currentIndex() == 0)
        tabIn_->EnterTab();
    else
        FocusFirst(*tabIn_->currentWidget());
}

/// Gives the keyboard to the first control on a surface that the Tab key reaches, or to the surface where
/// it has none.
void FrmWorking::FocusFirst(QWidget& surface)
{
    QWidget* first = &surface;
    for (QWidget* next = surface.nextInFocusChain(); next != &surface; next = next->nextInFocusChain()) {
        const bool reached = next->isVisibleTo(&surface) && next->isEnabled() && (next->focusPolicy() & Qt::TabFocus);
        if (surface.isAncestorOf(next) && reached) {
            first = next;
            break;
        }
    }
    first->setFocus();
}

} // namespace merov::app
