#pragma once

#include <QPageLayout>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <string>

class QWidget;

namespace merov::platform
{
class FileDialogs;
class PrintJob;
class Printers;
} // namespace merov::platform

namespace merov::app
{

class FrmSelectPrint;
class FrmWait;

/// One thing to print.
struct PrintTask {
    QString Title;        ///< of the job; also the file proposed where the printer writes files
    std::string Subject;  ///< in the box that tells of a driver's trouble: "the results"
    bool Chooses = false; ///< the user chooses the printer first
    QPageLayout::Orientation Orientation = QPageLayout::Portrait;
    std::function<void(platform::PrintJob&)> Engine; ///< draws the pages and ends the job
};

/// The way that all print commands go: is there a printer, which one, a moment's wait, the printer's
/// settings lent to the job and given back on every way out.
///
/// A step that fails brings a box, and the user has it repeated or ends the print. A setting that the
/// printer doesn't take is passed over in silence.
class PrintFlow
{
public:
    /// @param window     over which the forms stand, and which owns them
    /// @param documents  folder proposed for files
    /// @param tick       of the bar of the form that lets the user wait
    PrintFlow(platform::Printers& printers, platform::FileDialogs& dialogs, const QString& documents,
              std::chrono::milliseconds tick, QWidget* window);

    /// Prints, or tells why not. Only errors that are none of printing or calculation go to the caller.
    void Print(const PrintTask& task);

private:
    bool AskForFile(const PrintTask& task, QString& file);
    void RunSteps(const PrintTask& task, const QString& file);

    platform::Printers& printers_;
    platform::FileDialogs& dialogs_;
    QString documents_;
    FrmSelectPrint* frmSelectPrint_;
    FrmWait* frmWait_;
};

} // namespace merov::app
