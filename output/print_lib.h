#pragma once

#include "platform/overlay_grid.h"
#include "platform/print_job.h"
#include "platform/printers.h"

#include <QString>
#include <QTextDocument>

/// The two engines that print: one pours a rich text onto pages, the other draws a grid cell by cell.

namespace merov::output
{

/// Margins from the edges of the paper, twips.
struct PrintMargins {
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;
};

/// Those of the numeric report and of the sailing report.
constexpr PrintMargins ReportMargins{.Left = 1500, .Top = 1000, .Right = 500, .Bottom = 1000};
constexpr PrintMargins SailingReportMargins{.Left = 1685, .Top = 1000, .Right = 500, .Bottom = 1000};

/// Pours a text onto pages and ends the job. The text itself stays as it is; what it doesn't colour is
/// printed black. Blank lines at the end make no page.
/// @return the number of pages
/// Raises platform::PrinterError where the printer fails.
int PrintRichText(const QTextDocument& text, platform::PrintJob& job, const PrintMargins& margins);

/// How a grid is printed.
struct GridPrintStyle {
    double PageMargin = 1440.0; ///< on all four sides, twips
    QString FontName = "Arial";
    int FontSize = 12; ///< points
    bool FontBold = false;
    bool FontItalic = false;
};

/// Draws a grid onto pages, its heading row on each of them, and ends the job. Rows at the end that are
/// blank in all columns are left out; columns beyond the right margin are cut off.
/// @param widthFactor, heightFactor  above 0; by which the cells shrink beside the same text on the screen
/// @return the number of pages
/// Raises platform::PrinterError where the printer fails.
int PrintGrid(platform::OverlayGrid& grid, platform::PrintJob& job, const GridPrintStyle& style, double widthFactor,
              double heightFactor);

/// How many lines of Arial 12 go on an upright sheet of the paper in use, from edge to edge: the lines of
/// the report are counted with the margins of its page. 0 without a printer.
int LinesPerPage(const platform::Printers& printers);

} // namespace merov::output
