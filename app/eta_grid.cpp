#include "app/eta_grid.h"

#include "app/grid_look.h"
#include "app/pictures.h"
#include "ephemeris/time_lib.h"
#include "numeric/inout_lib.h"

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QtMath>

#include <algorithm>
#include <array>

namespace merov::app
{
namespace
{

constexpr double CellPoints = 12.0;

// Measures by those of the entries and of the pictures.
constexpr int PictureSize = 32; // pixels
constexpr double TitleHeight = 1.1;
constexpr double SpeedColumnWidth = 1.7;
constexpr double TimeColumnWidth = 0.9;

// On paper a column keeps at least so much of its width beside its texts, whatever the resolution of the
// printer, and has margins.
constexpr double PaperShare = 0.86;
constexpr int PaperMargins = 4; // pixels

struct ColumnTitle {
    const char* Text;
    const char* Picture;
};

constexpr std::array<ColumnTitle, 3> Titles = {{
    {"Speed", "grid_speed"},
    {"ETA in GMT        ", "grid_gmt"},
    {"ETA in LT           ", "grid_time"},
}};

QString SpeedText(double speed)
{
    return QString::fromStdString(numeric::FormatNumber(speed, "##0.0#"));
}

QString TimeText(double time)
{
    return QString::fromStdString(ephemeris::FormatDateTime(time, "d mmm yyyy hh:mm:ss"));
}

} // namespace

EtaGrid::EtaGrid(int speedWidth, int timeWidth, int rowHeight)
{
    setObjectName(QStringLiteral("grdCalcETA"));
    setAccessibleName(QStringLiteral("Times of arrival"));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setFont(GridFont(CellPoints));
    SetHeaderPictureSize(PictureSize);
    SetRowHeight(0, qRound(PictureSize * TitleHeight));
    verticalHeader()->setDefaultSectionSize(rowHeight);
    PrepareEtaGrid(0);
    int width = verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
    for (int column = 0; column < Columns(); ++column) {
        SetColumnWidth(column, qRound(column == 0 ? SpeedColumnWidth * speedWidth : TimeColumnWidth * timeWidth));
        width += columnWidth(column);
    }
    setFixedWidth(width);
}

int EtaGrid::LeastTimeWidth()
{
    const QFontMetrics letters(GridFont(CellPoints));
    int widest = 0;
    for (int month = 1; month <= 12; ++month)
        widest = std::max(
            widest,
            letters.horizontalAdvance(
                QStringLiteral("  28 %1 2028 20:28:28").arg(QString::fromStdString(ephemeris::MonthName(month)))));
    return qCeil((widest + PaperMargins) / (TimeColumnWidth * PaperShare));
}

void EtaGrid::ShowResult(const sailing::EtaResult& result)
{
    const RedrawOff redrawOff(*this);
    PrepareEtaGrid(result.RowCount);
    int row = 0;
    for (const sailing::EtaRow& eta : result.Rows) {
        ++row;
        SetText(row, 0, SpeedText(eta.Speed));
        SetText(row, 1, TimeText(eta.Gmt));
        SetText(row, 2, TimeText(eta.Local));
        for (int column = 0; column < Columns(); ++column)
            SetAlignment(row, column, Qt::AlignCenter);
    }
    scrollToTop();
}

/// Empties the table, gives it its titles, and rows for so many speeds.
void EtaGrid::PrepareEtaGrid(int speedCount)
{
    SetSize(speedCount + 1, static_cast<int>(Titles.size()));
    for (int column = 0; column < Columns(); ++column) {
        const ColumnTitle& title = Titles[static_cast<std::size_t>(column)];
        SetText(0, column, QString::fromUtf8(title.Text));
        SetPicture(0, column, Picture(title.Picture));
        SetCellFont(0, column, GridFont(CellPoints));
        SetAlignment(0, column, Qt::AlignRight | Qt::AlignVCenter);
    }
    ColourTitles();
}

/// The colour of the titles depends on the desktop's.
void EtaGrid::ColourTitles()
{
    for (int column = 0; column < Columns(); ++column)
        SetTextColor(0, column, GridTitleColour(*this));
}

void EtaGrid::changeEvent(QEvent* event)
{
    OverlayGrid::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) ColourTitles();
}

} // namespace merov::app
