#pragma once

#include "output/print_lib.h"

#include <QRect>
#include <QSize>
#include <QString>

#include <vector>

namespace merov::output
{

/// What the pages of a grid are planned from: the printer and the size of one text on it and on the screen.
struct GridPrintMeasures {
    double Width = 0.0;       ///< of the paper, twips
    double Height = 0.0;      ///< likewise
    double ScaleWidth = 0.0;  ///< of the printable area, twips
    double ScaleHeight = 0.0; ///< likewise
    double TwipsX = 0.0;      ///< of a printer's dot
    double TwipsY = 0.0;
    QSize ScreenSample;      ///< pixels of GridSample in the font of the grid
    QSize PaperSample;       ///< dots of GridSample in the font of the print, two points larger
    double LineHeight = 0.0; ///< of "Gg" in the font of the print, twips
};

/// The text that is measured on screen and paper.
inline const QString GridSample = QStringLiteral("GgIiWw ");

/// The state of one grid print. Lengths are twips with the corner of the printable area as origin.
struct GridPrintJob : GridPrintStyle {
    int LastRow = 0; ///< the last one that isn't blank
    int LastCol = 0;
    int FixedRows = 1; ///< rows of the heading, repeated on each page
    int FixedCols = 0;
    double LeftEdge = 0.0; ///< of the usable page, as the next three
    double TopEdge = 0.0;
    double RightEdge = 0.0;
    double BottomEdge = 0.0;
    double TwipsX = 0.0; ///< of a printer's dot
    double TwipsY = 0.0;
    double ScaleX = 0.0; ///< from the grid's measures on the screen to paper
    double ScaleY = 0.0;
    double LineHeight = 0.0;
    double CursorX = 0.0; ///< upper left corner of the next cell
    double CursorY = 0.0;
    double CellWidth = 0.0; ///< of the present cell
    double RowHeight = 0.0;
    QString CellText;
    QRect CellRect; ///< of its text, dots; right and bottom lie outside
};

/// A cell on paper.
struct PrintedCell {
    int Page = 1;
    int Row = 0;
    int Column = 0;
    QRect Frame; ///< dots, from the corner of the printable area; right and bottom edge are the next cells'
    QRect Text;  ///< likewise; empty where no line goes into the cell
    QString CellText;
};

/// Lays out the pages of a grid without printing them: the cells in their order.
/// @param widthFactor, heightFactor  as for PrintGrid
std::vector<PrintedCell> PlanGrid(const platform::OverlayGrid& grid, const GridPrintStyle& style,
                                  const GridPrintMeasures& measures, double widthFactor, double heightFactor);

} // namespace merov::output
