#include "output/print_lib.h"
#include "platform/printers.h"

#include <QApplication>
#include <QTextCursor>
#include <QTextDocument>

#include <cmath>
#include <cstdio>
#include <memory>

/// Prints to the print server that CUPS_SERVER names, which has the queues Bridge and ChartRoom, the latter
/// being the default, and checks what the program sees of them.

namespace
{

using namespace merov;

constexpr output::PrintMargins Margins{1500, 1000, 500, 1000};

bool Expect(bool holds, const char* what)
{
    if (!holds) std::fprintf(stderr, "not true: %s\n", what);
    return holds;
}

void Write(QTextDocument& text)
{
    QTextCharFormat letters;
    letters.setFontFamilies({"Arial"});
    letters.setFontPointSize(12);
    QTextCursor cursor(&text);
    cursor.insertText("First page", letters);
    QTextBlockFormat next;
    next.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    cursor.insertBlock(next);
    cursor.insertText("Second page", letters);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    platform::SystemPrinters printers;
    bool good = Expect(printers.Names() == QStringList({"Bridge", "ChartRoom", "PDF file"}), "the list of printers");
    good &= Expect(printers.Current() == "ChartRoom", "the default one is in use");
    good &= Expect(printers.Layout().pageSize().id() == QPageSize::A4, "paper of the default printer");
    good &= Expect(printers.Papers("Bridge").size() == 2, "two papers");

    QTextDocument text;
    Write(text);
    try {
        const std::unique_ptr<platform::PrintJob> job = printers.StartJob("A page of the log", {});
        good &= Expect(std::abs(job->Twips(-job->Paper().left()) - 24 * 20) < 5, "what the printer can't reach");
        output::PrintRichText(text, *job, Margins);
        printers.SetCurrent("Bridge");
        printers.SetLayout(QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Landscape, QMarginsF()));
        output::PrintRichText(text, *printers.StartJob("A page of the log", {}), Margins);
    } catch (const platform::PrinterError& error) {
        good = Expect(false, error.what());
    }
    return good ? 0 : 1;
}
