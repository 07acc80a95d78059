#include "app/frm_splash.h"
#include "app/frm_working.h"
#include "app/main_surfaces.h"
#include "app/tab_in.h"
#include "app/tab_options.h"
#include "app/tab_util.h"
#include "app/window_place.h"
#include "numeric/message_box.h"
#include "platform/rich_text_box.h"
#include "platform/twips.h"

#include <QGuiApplication>
#include <QScreen>

#include <string>
#include <utility>
#include <vector>

/// The start of the main window, before its user sees it.

namespace merov::app
{

void FrmWorking::StartUp(const QString& commandLine)
{
    PlaceWindow();
    ShowBar(Bar::Working);
    frmSplash_ = new FrmSplash(tables_.VersionText, surroundings_.SplashTime, this);
    frmSplash_->Open();
    InitProgramTables();
    if (!commandLine.isEmpty()) {
        startFile_ = StartFileOf(commandLine);
        Run(Command::AstroLoad);
    }
    show();
    activateWindow(); // not every screen does so by itself
}

/// Puts the window where the last run left it.
void FrmWorking::PlaceWindow()
{
    QList<QRect> screens;
    for (const QScreen* screen : QGuiApplication::screens())
        screens.append(screen->availableGeometry());
    const QSize whole = QGuiApplication::primaryScreen()->size();
    const WindowPlace place =
        ReadWindowPlace(surroundings_.Settings, platform::Twips(whole.width()), platform::Twips(whole.height()));
    const QRect rect = ReachableRect(place, screens);
    move(rect.topLeft());
    resize(rect.size());
}

void FrmWorking::InitProgramTables()
{
    LoadDocuments();
    tabUtil_->SetReportTemplate(tables_.AppPath + "/" + SailingTemplate);
    tabIn_->InstallMasks();
    tabUtil_->InstallMasks();
    tabOptions_->FillEllipsoids();
}

/// Loads the text of the About box and the templates of the reports. What is missing or damaged is told in
/// one box, and the program runs on without it.
void FrmWorking::LoadDocuments()
{
    const std::pair<const char*, platform::RichTextBox*> documents[] = {
        {"InfoProg.rtf", &frmSplash_->AboutText()},
        {ReportTemplate, &surfaces_->NumericReport()},
        {SailingTemplate, &tabUtil_->Report()},
    };
    std::vector<std::string> failures;
    for (const auto& [name, view] : documents)
        if (const std::optional<QString> failure = view->LoadFile(tables_.AppPath + "/" + name))
            failures.push_back(name + (": " + failure->toStdString()));
    if (!failures.empty()) TellMissing(std::move(failures));
}

/// Tells which documents could not be loaded, and why.
void FrmWorking::TellMissing(std::vector<std::string> failures) const
{
    failures.insert(failures.begin(),
                    "Documents of the program could not be loaded from " + tables_.AppPath.toStdString() + ":");
    failures.emplace_back("The program runs on without them.");
    numeric::ShowWarning("Missing documents", failures);
}

} // namespace merov::app
