#include "output/grid_printing.h"

#include "output/program_name.h"
#include "platform/twips.h"

#include <QFontMetricsF>
#include <QHeaderView>
#include <QPainter>
#include <QPrinter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace merov::output
{
namespace
{

constexpr double InnerMargin = 30.0;  // twips between a cell's frame and its text
constexpr double HeadingFactor = 0.8; // the heading row is lower than on the screen
constexpr int SampleEnlargement = 2;  // points
constexpr double FrameWidth = 0.5;    // points

/// To a whole number, halves to the even one.
double Whole(double value)
{
    return std::nearbyint(value);
}

/// The quotient of whole numbers without its fraction.
double WholeQuotient(double dividend, double divisor)
{
    return std::trunc(Whole(dividend) / std::max(Whole(divisor), 1.0));
}

int Dot(double twips, double twipsPerDot)
{
    return static_cast<int>(Whole(twips / twipsPerDot));
}

QRect Between(int left, int top, int right, int bottom)
{
    return {left, top, right - left, bottom - top};
}

/// The height of the heading row, pixels, also of a grid that wasn't shown yet.
int HeadingHeight(const platform::OverlayGrid& grid)
{
    const QHeaderView& heading = *grid.horizontalHeader();
    return qBound(heading.minimumHeight(), heading.sizeHint().height(), heading.maximumHeight());
}

/// Goes through a grid as it is printed and notes its cells.
class GridPlanner
{
public:
    GridPlanner(const platform::OverlayGrid& grid, const GridPrintStyle& style) : grid_(grid)
    {
        static_cast<GridPrintStyle&>(job_) = style;
    }

    void SetUpGridPrint(const GridPrintMeasures& on, double widthFactor, double heightFactor);
    std::vector<PrintedCell> Plan();

private:
    int LastFilledRow() const;
    void BeginGridPage();
    double HeightOfRow(int row) const;
    bool PrintGridRow(int row);
    void PrintGridCell(int row, int column);
    QString TextOfCell(int row, int column) const;

    const platform::OverlayGrid& grid_;
    GridPrintJob job_;
    int page_ = 0;
    std::vector<PrintedCell> cells_;
};

void GridPlanner::SetUpGridPrint(const GridPrintMeasures& on, double widthFactor, double heightFactor)
{
    job_.TwipsX = on.TwipsX;
    job_.TwipsY = on.TwipsY;
    // The printable area is taken to lie in the middle of the paper.
    const double marginX = job_.PageMargin - (on.Width - on.ScaleWidth) / 2.0;
    job_.LeftEdge = marginX;
    job_.RightEdge = on.ScaleWidth - marginX;
    const double marginY = job_.PageMargin - (on.Height - on.ScaleHeight) / 2.0;
    job_.TopEdge = marginY;
    job_.BottomEdge = on.ScaleHeight - marginY;
    job_.ScaleX =
        ((on.TwipsX * on.PaperSample.width()) / (platform::TwipsPerPixel * on.ScreenSample.width())) * widthFactor;
    job_.ScaleY =
        ((on.TwipsY * on.PaperSample.height()) / (platform::TwipsPerPixel * on.ScreenSample.height())) * heightFactor;
    job_.LineHeight = on.LineHeight;
}

std::vector<PrintedCell> GridPlanner::Plan()
{
    job_.LastRow = LastFilledRow();
    job_.LastCol = grid_.Columns() - 1;
    bool newPage = true;
    for (int row = job_.FixedRows; row <= job_.LastRow; row++) {
        if (newPage) {
            BeginGridPage();
            for (int heading = 0; heading < job_.FixedRows; heading++)
                PrintGridRow(heading);
        }
        newPage = PrintGridRow(row);
    }
    return std::move(cells_);
}

int GridPlanner::LastFilledRow() const
{
    int row = grid_.Rows() - 1;
    const auto blank = [this](int at) {
        for (int column = 0; column < grid_.Columns(); column++)
            if (!grid_.Text(at, column).trimmed().isEmpty()) return false;
        return true;
    };
    while (row >= job_.FixedRows && blank(row))
        row--;
    return row;
}

void GridPlanner::BeginGridPage()
{
    page_++;
    job_.CursorY = job_.TopEdge;
}

double GridPlanner::HeightOfRow(int row) const
{
    const int pixels = row == 0 ? HeadingHeight(grid_) : grid_.rowHeight(row - 1);
    const double height = (WholeQuotient(platform::Twips(pixels) * job_.ScaleY, job_.TwipsY) + 1.0) * job_.TwipsY;
    return row == 0 ? height * HeadingFactor : height;
}

/// @return true if the next row doesn't go on this page
bool GridPlanner::PrintGridRow(int row)
{
    job_.CursorX = job_.LeftEdge;
    job_.RowHeight = HeightOfRow(row);
    for (int column = 0; column <= job_.LastCol; column++) {
        const double width = platform::Twips(grid_.columnWidth(column)) * job_.ScaleX;
        job_.CellWidth = (WholeQuotient(width, job_.TwipsX) + 1.0) * job_.TwipsX;
        job_.CellText = TextOfCell(row, column);
        PrintGridCell(row, column);
        job_.CursorX += job_.CellWidth;
        if (job_.CursorX >= job_.RightEdge) break;
    }
    job_.CursorY += job_.RowHeight;
    if (row >= job_.LastRow) return false;
    job_.RowHeight = HeightOfRow(row + 1);
    return job_.CursorY + job_.RowHeight >= job_.BottomEdge;
}

QString GridPlanner::TextOfCell(int row, int column) const
{
    const QString text = QString(row == 0 || column == 0 ? 4 : 2, u' ') + grid_.Text(row, column).trimmed();
    if (row == 0 && column == 1) return text + QStringLiteral(" (Merov)");
    if (row == 0 && column == 2) return text + "          (" + QString::fromUtf8(ProgramVersion) + ')';
    return text;
}

void GridPlanner::PrintGridCell(int row, int column)
{
    const double right = job_.CursorX + job_.CellWidth;
    const double bottom = job_.CursorY + job_.RowHeight;
    const double lines = WholeQuotient(job_.RowHeight, job_.LineHeight);
    job_.CellRect = Between(Dot(job_.CursorX + InnerMargin, job_.TwipsX), Dot(job_.CursorY + InnerMargin, job_.TwipsY),
                            Dot(right - InnerMargin, job_.TwipsX),
                            Dot(job_.LineHeight * lines + job_.CursorY + InnerMargin / 2.0, job_.TwipsY));
    const QRect frame = Between(Dot(job_.CursorX, job_.TwipsX), Dot(job_.CursorY, job_.TwipsY), Dot(right, job_.TwipsX),
                                Dot(bottom, job_.TwipsY));
    cells_.push_back({page_, row, column, frame, job_.CellRect, job_.CellText});
}

GridPrintMeasures Measure(const platform::OverlayGrid& grid, platform::PrintJob& job, const GridPrintStyle& style,
                          const QFont& font)
{
    QFont larger = font;
    larger.setPointSize(style.FontSize + SampleEnlargement);
    const QFontMetricsF onPaper(larger, &job.Device());
    const QFontMetrics onScreen(grid.font());
    return {.Width = job.Twips(job.Paper().width()),
            .Height = job.Twips(job.Paper().height()),
            .ScaleWidth = job.Twips(job.Page().width()),
            .ScaleHeight = job.Twips(job.Page().height()),
            .TwipsX = job.Twips(1.0),
            .TwipsY = job.Twips(1.0),
            .ScreenSample = {onScreen.horizontalAdvance(GridSample), onScreen.height()},
            .PaperSample = {qRound(onPaper.horizontalAdvance(GridSample)), qRound(onPaper.height())},
            .LineHeight = job.Twips(QFontMetricsF(font, &job.Device()).height())};
}

} // namespace

std::vector<PrintedCell> PlanGrid(const platform::OverlayGrid& grid, const GridPrintStyle& style,
                                  const GridPrintMeasures& measures, double widthFactor, double heightFactor)
{
    GridPlanner planner(grid, style);
    planner.SetUpGridPrint(measures, widthFactor, heightFactor);
    return planner.Plan();
}

int PrintGrid(platform::OverlayGrid& grid, platform::PrintJob& job, const GridPrintStyle& style, double widthFactor,
              double heightFactor)
{
    QFont font(style.FontName, style.FontSize);
    font.setBold(style.FontBold);
    font.setItalic(style.FontItalic);

    const platform::OverlayGrid::RedrawOff still(grid);
    int page = 1;
    for (const PrintedCell& cell : PlanGrid(grid, style, Measure(grid, job, style, font), widthFactor, heightFactor)) {
        for (; page < cell.Page; page++)
            job.NewPage();
        QPainter& painter = job.Painter();
        painter.setFont(font);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(
            QPen(Qt::black, FrameWidth * job.DotsPerInch() / 72.0, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        if (!cell.Text.isEmpty())
            painter.drawText(cell.Text, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, cell.CellText);
        painter.drawRect(cell.Frame);
    }
    job.EndDoc();
    return page;
}

} // namespace merov::output
