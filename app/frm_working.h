#pragma once

#include "app/commands.h"
#include "app/fix_input.h"
#include "app/public.h"
#include "app/screen_states.h"
#include "platform/system_clock.h"

#include <QMainWindow>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace merov::platform
{
class FileDialogs;
class HelpWindow;
class Printers;
class SettingsStore;
class StatusPanels;
} // namespace merov::platform

namespace merov::app
{

class FrmAzimuth;
class FrmEnd;
class FrmProba;
class FrmSplash;
class FrmStarFixWizard;
class FrmTimeStore;
class MainMenu;
class MainSurfaces;
class MainToolBars;
class ObservationFiles;
class PrintFlow;
class TabIn;
class TabOptions;
class TabUtil;

/// What the main window needs of the world around it; tests bring their own.
struct Surroundings {
    platform::SettingsStore& Settings;
    platform::Printers& Printers;
    platform::FileDialogs* Files = nullptr;         ///< null: the dialogs on the screen
    QString AppPath;                                ///< folder of the executable
    QString Documents;                              ///< the user's documents
    std::function<bool(const QString&)> CanWrite{}; ///< whether files can be made in a folder; empty: asks the system
    std::chrono::milliseconds SplashTime{4400};     ///< how long the splash stands without a click
    std::chrono::milliseconds WaitTick{20};         ///< of the bar before a print
    platform::ClockSetter SetClock{};               ///< sets the computer's clock; empty: refuses to
};

/// The main window. It owns the surfaces and what they share, and carries the commands out; what each
/// command shows and hides stands in screen_states.
class FrmWorking : public QMainWindow, private Screens
{
public:
    /// @param surroundings  what it refers to must outlive the window
    explicit FrmWorking(const Surroundings& surroundings);
    ~FrmWorking() override;

    /// The whole start-up in its order: place and size of the window, tool bar, splash, tables, observation
    /// file of the command line; then shows the window.
    void StartUp(const QString& commandLine);

    FixInput& Input() { return input_; }
    const ProgramTables& Tables() const { return tables_; }

    /// Runs a command as its menu entry or button does: a fault in it brings a box, and nothing leaves it.
    void Run(Command command);

    // The commands, by the names of their menu entries and buttons.
    void mnuFilePageSetup();
    void mnuFileQuit();
    void mnuAstroEnter();
    void mnuAstroLoad();
    void mnuAstroCorrect();
    void mnuAstroSave();
    void mnuAstroErase();
    void mnuOptionsTab();
    void mnuHelpManual();
    void mnuHelpAbout();
    void cmdLoadObs();
    void cmdEraseObs();
    void cmdChronoF5();
    void cmdEndTabOptions();
    void bthMain();
    void bthBackStarFix();

    // The commands of the sailings.
    void mnuUtilRL();
    void mnuUtilGC();
    void mnuUtilETA();
    void cmdEndTabUtil();

    // The commands of the tools in windows of their own.
    void mnuAziGo();
    void mnuStarFixWizardStart();
    void bthStarFixWizard();

    // The commands of the results.
    void cmdNumRes();
    void cmdGraphRes();
    void mnuAstroNumPrint();
    void mnuAstroGraphPrint();
    void mnuAstroGraphGrid();
    void mnuAstroGraphLOPInc();
    void mnuAstroGraphLOPDec();
    void bthLopIncr();
    void bthLopDecr();
    void bthChartIncr();
    void bthChartDecr();
    void mnuAstroProba();
    void bthEllipse1();
    void bthEllipse2();

    /// "C&ancel" on a tab of the input, 0..2: back to results in view, else to the main screen. Index -1
    /// leads to the main screen always.
    void cmdCancel(int index);

    void ShowMainScreen();

    /// Fills the panels of the status bar from the finished fix and shows them.
    void ShowFixSummary();

    /// Draws the chart in view for the size of its surface; without one nothing happens.
    void DrawChart();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    // What carries out the rows of the table of screens.
    void SetVisible(Surface surface, bool visible) override;
    bool IsVisible(Surface surface) const override;
    void SetEnabled(Menu menu, bool enabled) override;
    void ShowBar(Bar bar) override;
    Bar ShownBar() const override;
    void SetBarEnabled(bool enabled) override;

    static bool HasRoutine(Command command);
    void BuildStatusBar();
    void BuildShortcuts();
    void ConnectTabs();
    void PlaceWindow();
    void InitProgramTables();
    void LoadDocuments();
    void TellMissing(std::vector<std::string> failures) const;
    void Change(Transition transition);
    void Guarded(const std::function<void()>& command);
    void OpenOptions(Transition transition);
    void OpenUtility(int page);
    void ChangeEllipsoid();
    void ShowManual(const char* page);
    void OpenManualByF1(QWidget& form, const char* page);
    void EndWizard(Transition transition);
    void PrintSailingReport();
    void PrintEtaTable();
    void FocusSurface();
    void FocusInput();
    static void FocusFirst(QWidget& surface);
    void ParkFocus();
    bool HasFocus(const QWidget& control) const;
    bool LeaveEditedField();
    bool ComputeFix();
    void ShowNumericReport();
    void SizeChart(void (output::ChartSettings::*step)());
    bool ChooseProbability();
    platform::FileDialogs& Dialogs();
    PrintFlow& Printing();
    bool UserEnds(bool unlessNo);
    void CloseForms();

    Surroundings surroundings_;
    ProgramTables tables_;
    FixInput input_;
    MainSurfaces* surfaces_;
    platform::StatusPanels* staNumDisp_;
    TabIn* tabIn_;
    TabOptions* tabOptions_;
    TabUtil* tabUtil_;
    std::unique_ptr<MainMenu> menu_;
    MainToolBars* toolBars_ = nullptr;
    FrmTimeStore* frmTimeStore_;
    FrmEnd* frmEnd_;
    FrmSplash* frmSplash_ = nullptr;               ///< made by start-up
    FrmProba* frmProba_ = nullptr;                 ///< made when it is first wanted
    FrmAzimuth* frmAzimuth_ = nullptr;             ///< likewise
    FrmStarFixWizard* frmStarFixWizard_ = nullptr; ///< likewise
    platform::HelpWindow* help_ = nullptr;         ///< likewise
    std::unique_ptr<platform::FileDialogs> ownDialogs_;
    std::unique_ptr<ObservationFiles> files_;
    std::unique_ptr<PrintFlow> printing_; ///< made by the first print
    QString startFile_;                   ///< loaded without a dialog by the next load
    bool astroStarted_ = false;           ///< the input has been erased for the first time
    bool computing_ = false;              ///< a fix is under way, or the report on it
    bool gridVisible_ = false;            ///< of the chart
    bool wizardOpen_ = false;             ///< a plan of the star fix wizard is under way
    int erasures_ = 0;                    ///< of the input so far
    bool ending_ = false;                 ///< the program closes its windows itself
};

} // namespace merov::app
