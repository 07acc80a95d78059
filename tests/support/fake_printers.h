#pragma once

#include "platform/printers.h"

#include <QPrinter>
#include <QTemporaryDir>

#include <deque>
#include <map>
#include <memory>
#include <vector>

namespace merov::test
{

/// What can fail in a print.
enum class PrintStep { SetOrientation, SetPrintQuality, SetColorMode, StartJob, NewPage, EndDoc };

/// Printers by a list, whose jobs become PDF files in a folder of the test, and which fail on demand.
class FakePrinters : public platform::Printers
{
public:
    /// A job that was started, with the settings it was given.
    struct Job {
        QString Printer;
        QString Title;
        QString File; ///< path of its PDF, which is there once the job has ended
        QPageLayout Layout;
        int Quality = 0;
        int ColorMode = 0;
        int Pages = 1;
        bool Ended = false;
    };

    QStringList Listed = {"Bridge"};
    QString First = "Bridge"; ///< the default one
    bool OffersPdf = true;    ///< "PDF file" behind them

    /// Numbers of the errors that the next calls of a step raise, one each; 0 lets a call pass.
    std::map<PrintStep, std::deque<int>> Failures;

    std::vector<Job> Jobs;
    QTemporaryDir Folder;

    void SetOrientation(QPageLayout::Orientation orientation) override
    {
        Pass(PrintStep::SetOrientation);
        Printers::SetOrientation(orientation);
    }
    void SetPrintQuality(int quality) override
    {
        Pass(PrintStep::SetPrintQuality);
        Printers::SetPrintQuality(quality);
    }
    void SetColorMode(int mode) override
    {
        Pass(PrintStep::SetColorMode);
        Printers::SetColorMode(mode);
    }
    std::unique_ptr<platform::PrintJob> StartJob(const QString& title, const QString& file) override
    {
        Pass(PrintStep::StartJob);
        const QString spooled = Folder.filePath(QString::number(Jobs.size() + 1) + ".pdf");
        Jobs.push_back({.Printer = Current(),
                        .Title = title,
                        .File = WritesFile(Current()) ? file : spooled,
                        .Layout = Layout(),
                        .Quality = PrintQuality(),
                        .ColorMode = ColorMode()});
        auto device = std::make_unique<QPrinter>(QPrinter::HighResolution);
        device->setOutputFormat(QPrinter::PdfFormat);
        SetUp(*device, title);
        return std::make_unique<FakeJob>(*this, std::move(device), Jobs.back().File);
    }

protected:
    QStringList SystemNames() const override { return Listed; }
    QString Default() const override { return First; }
    bool OffersFile() const override { return OffersPdf; }
    QPageSize DefaultPaper() const override { return QPageSize(QPageSize::A4); }

private:
    class FakeJob : public platform::PrintJob
    {
    public:
        FakeJob(FakePrinters& printers, std::unique_ptr<QPrinter> device, const QString& file)
            : PrintJob(std::move(device), file), printers_(printers), job_(printers.Jobs.size() - 1)
        {
        }
        void NewPage() override
        {
            printers_.Pass(PrintStep::NewPage);
            PrintJob::NewPage();
            printers_.Jobs[job_].Pages++;
        }
        void EndDoc() override
        {
            printers_.Pass(PrintStep::EndDoc);
            PrintJob::EndDoc();
            printers_.Jobs[job_].Ended = true;
        }

    private:
        FakePrinters& printers_;
        std::size_t job_;
    };

    void Pass(PrintStep step)
    {
        std::deque<int>& failures = Failures[step];
        if (failures.empty()) return;
        const int number = failures.front();
        failures.pop_front();
        if (number != 0) throw platform::PrinterError(number, "The fake printer failed.");
    }
};

} // namespace merov::test
