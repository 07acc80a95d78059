#include "output/chart_painter.h"
#include "output/display_graph.h"

#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

/// Drawing a chart of 49 sights on a large screen, beside as many lines and texts drawn by Qt alone.

namespace
{

using namespace merov;

constexpr int SightCount = 49;
constexpr QSize Screen(1920, 1080);

const fix::SightSession& FullSession()
{
    static const fix::SightSession session = [] {
        fix::SightSession s;
        fix::AllocateObservations(s, SightCount);
        s.TrueLat = s.ObsLat[0] = 38.47;
        s.TrueLong = s.ObsLong[0] = -12.04;
        s.EllipseEW = s.EllipseNS = 0.005;
        for (int i = 1; i <= SightCount; ++i) {
            s.ObsBody[i] = i % 2 == 0 ? "SUNLOW" : "STAR" + std::to_string(i);
            s.ObsTime[i] = 38128.5 + i / 1440.0;
            s.ObsAzimuth[i] = i * 360.0 / SightCount;
            s.ObsIntercept[i] = (i % 7 - 3) / 60.0;
        }
        return s;
    }();
    return session;
}

QImage Surface()
{
    return {Screen, QImage::Format_ARGB32_Premultiplied};
}

void Chart(benchmark::State& state)
{
    QImage image = Surface();
    QPainter painter(&image);
    const output::ChartSubject chart{FullSession(), sailing::ActiveEllipsoid(), {}, state.range(0) != 0};
    for (auto _ : state)
        benchmark::DoNotOptimize(output::DrawChart(painter, Screen, chart));
}
BENCHMARK(Chart)->Arg(0)->Arg(1)->ArgName("grid")->Unit(benchmark::kMillisecond);

/// Letters of one width, as the reckoning of places alone needs them.
class EqualLetters : public output::TextMeasure
{
public:
    double Width(const QString& text, int points) const override { return 0.75 * points * double(text.size()); }
    output::TextLine Line(int points) const override { return {1.5 * points, 0.25 * points, 1.2 * points}; }
};

/// The lines and texts of that chart at its places, their numbers and words known beforehand.
void BareLinesAndTexts(benchmark::State& state)
{
    struct Word {
        QPointF Place;
        QString Text;
    };
    const EqualLetters letters;
    const output::LopSegments segments = output::BuildLopSegments(FullSession(), {}, sailing::ActiveEllipsoid());
    const output::ChartSheet sheet =
        output::SetUpChartSheet(segments, Screen.width(), Screen.height(), output::ChartTarget::Screen);
    const output::ChartAxes axes = output::SetUpChartAxes(sheet, letters);
    std::vector<QLineF> lines;
    std::vector<QLineF> dotted;
    const auto line = [&sheet](double x1, double y1, double x2, double y2) {
        return QLineF(sheet.Place(x1, y1), sheet.Place(x2, y2));
    };
    for (const double y : axes.Parallels)
        lines.push_back(line(axes.TickLeft, y, axes.TickRight, y));
    for (const double x : axes.Meridians)
        lines.push_back(line(x, axes.TickLow, x, axes.TickHigh));
    for (int i = 1; i <= SightCount; ++i)
        lines.push_back(line(sheet.X(segments.LopLong(i, 1)), segments.LopLat(i, 1), sheet.X(segments.LopLong(i, 2)),
                             segments.LopLat(i, 2)));
    if (state.range(0) != 0) {
        for (const double y : axes.GridParallels)
            dotted.push_back(line(axes.TickLeft, y, sheet.XMax, y));
        for (const double x : axes.GridMeridians)
            dotted.push_back(line(x, axes.TickLow, x, sheet.ChartLatMax));
    }
    std::vector<Word> large;
    std::vector<Word> small;
    for (const output::ChartLabel& label : axes.Labels)
        (label.Points == 9 ? small : large).push_back({sheet.Place(label.X, label.Y) + QPointF(0, 12), label.Text});
    for (const output::LopLabel& label : output::PlaceLopLabels(FullSession(), segments, sheet, letters))
        large.push_back({label.Place + QPointF(0, 12), label.Text});

    QImage image = Surface();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (auto _ : state) {
        painter.fillRect(image.rect(), Qt::white);
        painter.setPen(QPen(Qt::black, 1.0, Qt::SolidLine, Qt::FlatCap));
        for (const QLineF& each : lines)
            painter.drawLine(each);
        painter.setFont(QFont("Arial", 10));
        for (const Word& word : large)
            painter.drawText(word.Place, word.Text);
        painter.setFont(QFont("Arial", 9));
        for (const Word& word : small)
            painter.drawText(word.Place, word.Text);
        painter.setPen(QPen(Qt::black, 1.0, Qt::DotLine, Qt::FlatCap));
        for (const QLineF& each : dotted)
            painter.drawLine(each);
    }
    state.counters["lines"] = double(lines.size() + dotted.size());
    state.counters["texts"] = double(large.size() + small.size());
}
BENCHMARK(BareLinesAndTexts)->Arg(0)->Arg(1)->ArgName("grid")->Unit(benchmark::kMillisecond);

} // namespace
