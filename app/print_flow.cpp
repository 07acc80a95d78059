#include "app/print_flow.h"

#include "app/frm_select_print.h"
#include "app/frm_wait.h"
#include "numeric/fault.h"
#include "numeric/message_box.h"
#include "platform/file_dialogs.h"
#include "platform/printers.h"

#include <QGuiApplication>

#include <string>
#include <vector>

namespace merov::app
{
namespace
{

/// The mouse pointer of the whole program, for as long as it lives.
class Pointer
{
public:
    explicit Pointer(Qt::CursorShape shape) { QGuiApplication::setOverrideCursor(shape); }
    ~Pointer() { QGuiApplication::restoreOverrideCursor(); }
    Pointer(const Pointer&) = delete;
    Pointer& operator=(const Pointer&) = delete;
};

/// The settings of the printer as they were, which go back to it at the latest at the end of its life.
class LentSettings
{
public:
    explicit LentSettings(platform::Printers& printers)
        : printers_(printers), orientation_(printers.Orientation()), quality_(printers.PrintQuality()),
          colorMode_(printers.ColorMode())
    {
    }
    ~LentSettings()
    {
        for (const auto& giveBack : Steps()) {
            try {
                giveBack();
            } catch (const std::exception&) { // the user has been told, or has ended the print
            }
        }
    }
    LentSettings(const LentSettings&) = delete;
    LentSettings& operator=(const LentSettings&) = delete;

    std::vector<std::function<void()>> Steps() const
    {
        return {[this] { printers_.SetOrientation(orientation_); }, [this] { printers_.SetPrintQuality(quality_); },
                [this] { printers_.SetColorMode(colorMode_); }};
    }

private:
    platform::Printers& printers_;
    QPageLayout::Orientation orientation_;
    int quality_;
    int colorMode_;
};

/// What the user is told of a failure with a number.
numeric::Box BoxOf(int number, const std::string& description, const std::string& subject)
{
    std::string title = " ERROR REPORT";
    std::vector<std::string> lines;
    switch (number) {
    case platform::PrinterFailed:
    case platform::DriverMissing:
        title = "PRINTER NOT READY";
        lines = {"Please check your printer and retry."};
        break;
    case platform::SettingUnsupported:
        title = "PRINTER DRIVER PROBLEM";
        lines = {"Due to your printer driver,", subject + " may not be properly printed."};
        break;
    default:
        lines = {"Unexpected error when printing.", "Error " + std::to_string(number) + ": " + description};
    }
    return {title, lines, numeric::BoxIcon::Warning, numeric::BoxButtons::RetryCancel};
}

bool WantsRetry(const numeric::Box& box)
{
    const Pointer arrow(Qt::ArrowCursor);
    return numeric::ShowBox(box) == numeric::BoxAnswer::Retry;
}

/// Runs a step until it succeeds or the user gives up.
/// @return false to end the print
bool RunStep(const std::function<void()>& step, const std::string& subject)
{
    for (;;) {
        numeric::Box box;
        try {
            step();
            return true;
        } catch (const platform::PrinterError& error) {
            if (error.Number() == platform::PropertyRefused) return true;
            box = BoxOf(error.Number(), error.what(), subject);
        } catch (const numeric::Fault& fault) {
            box = BoxOf(fault.Number(), fault.what(), subject);
        }
        if (!WantsRetry(box)) return false;
    }
}

} // namespace

PrintFlow::PrintFlow(platform::Printers& printers, platform::FileDialogs& dialogs, const QString& documents,
                     std::chrono::milliseconds tick, QWidget* window)
    : printers_(printers), dialogs_(dialogs), documents_(documents),
      frmSelectPrint_(new FrmSelectPrint(printers, window)), frmWait_(new FrmWait(tick, window))
{
}

void PrintFlow::Print(const PrintTask& task)
{
    if (printers_.Names().isEmpty()) {
        numeric::ShowError("NO PRINTER", {"Sorry, no printer connected to your system."});
        return;
    }
    if (task.Chooses && !frmSelectPrint_->Confirm()) return;
    QString file;
    if (!AskForFile(task, file)) return;
    const Pointer hourglass(Qt::WaitCursor);
    frmWait_->Open();
    RunSteps(task, file);
}

/// Asks for the file where the printer writes one. @return false after a cancel
bool PrintFlow::AskForFile(const PrintTask& task, QString& file)
{
    if (!platform::Printers::WritesFile(printers_.Current())) return true;
    const std::optional<QString> chosen = dialogs_.AskSave(
        {.Title = "Print to a PDF file", .Folder = documents_, .FileName = task.Title + ".pdf", .Extension = "pdf"});
    file = chosen.value_or(QString());
    return chosen.has_value();
}

/// The job itself, step by step.
void PrintFlow::RunSteps(const PrintTask& task, const QString& file)
{
    const LentSettings lent(printers_);
    std::vector<std::function<void()>> steps{
        [&] { printers_.SetOrientation(task.Orientation); },
        [&] { printers_.SetPrintQuality(platform::HighQuality); },
        [&] { printers_.SetColorMode(platform::Colour); },
        [&] {
            const std::unique_ptr<platform::PrintJob> job = printers_.StartJob(task.Title, file);
            task.Engine(*job);
        },
    };
    const auto giveBack = lent.Steps();
    steps.insert(steps.end(), giveBack.begin(), giveBack.end());
    for (const auto& step : steps)
        if (!RunStep(step, task.Subject)) return;
}

} // namespace merov::app
