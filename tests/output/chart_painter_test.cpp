#include "fix/observation_file.h"
#include "fix/run_fix.h"
#include "fix/sight_views.h"
#include "output/chart_painter.h"
#include "output/chart_texts.h"
#include "output/display_graph.h"
#include "support/expect.h"
#include "support/fake_printers.h"
#include "support/pdf_tools.h"
#include "support/qt_text.h"

#include <QImage>
#include <QPainter>

#include <limits>

namespace merov::output
{
namespace
{

const sailing::EarthModel Earth = sailing::EllipsoidAt(19);

fix::SightSession Sample(const std::string& name)
{
    fix::SightSession session;
    fix::SightEntry entry;
    numeric::LastError journal;
    EXPECT_TRUE(fix::LoadObservationFile(MEROV_SOURCE_DIR "/data/Observations/" + name, entry, session));
    EXPECT_TRUE(fix::RunFix(entry, session, Earth.InverseFlattening, Earth.SemiMajorAxisNm, journal));
    fix::BuildChartView(session, Earth.InverseFlattening, Earth.SemiMajorAxisNm);
    return session;
}

/// Three lines that pass the true position at some distance, and an ellipse between them.
fix::SightSession Triangle(double lat, double lon)
{
    fix::SightSession s;
    fix::AllocateObservations(s, 3);
    s.TrueLat = lat;
    s.TrueLong = lon;
    s.ObsLat[0] = lat + 0.1;
    s.ObsLong[0] = lon - 0.1;
    s.EllipseEW = 0.04;
    s.EllipseNS = 0.02;
    for (int i = 1; i <= 3; ++i) {
        s.ObsAzimuth[i] = 120.0 * i + 10.0;
        s.ObsIntercept[i] = 0.05;
        s.ObsBody[i] = "VEGA";
    }
    return s;
}

QImage Drawn(const fix::SightSession& session, const QSize& size, bool drawn = true, double dotsPerPixel = 1.0)
{
    QImage image(size * dotsPerPixel, QImage::Format_RGB32);
    image.setDevicePixelRatio(dotsPerPixel);
    image.fill(Qt::red);
    QPainter painter(&image);
    EXPECT_EQ(DrawChart(painter, size, {session, Earth}), drawn);
    return image;
}

/// Whether a colour is found within a pixel of a place.
bool HasColour(const QImage& image, const QPointF& place, const QColor& colour)
{
    for (int dx = -1; dx <= 1; ++dx)
        for (int dy = -1; dy <= 1; ++dy) {
            const QPoint at = (place * image.devicePixelRatio()).toPoint() + QPoint(dx, dy);
            if (!image.rect().contains(at)) continue;
            const QColor found = image.pixelColor(at);
            const auto near = [](int a, int b) { return std::abs(a - b) < 110; };
            if (near(found.red(), colour.red()) && near(found.green(), colour.green()) &&
                near(found.blue(), colour.blue()))
                return true;
        }
    return false;
}

TEST(DrawChart, ShowsPositionsLinesAndEllipseInTheirColours)
{
    const QSize size(1280, 800);
    for (const auto& [lat, lon] : {std::pair{50.0, 20.0}, {-10.0, 0.0}, {70.0, 180.0}}) {
        const fix::SightSession s = Triangle(lat, lon);
        const LopSegments lines = BuildLopSegments(s, {}, Earth);
        const ChartSheet sheet = SetUpChartSheet(lines, size.width(), size.height(), ChartTarget::Screen);
        const auto place = [&sheet](double longitude, double y) { return sheet.Place(sheet.X(longitude), y); };
        const QImage image = Drawn(s, size, true, lon == 0.0 ? 2.0 : 1.0);
        const double m = (sheet.ChartLatMax - sheet.ChartLatMin) * 0.009;
        EXPECT_TRUE(HasColour(image, place(s.ObsLong[0] + m, s.ObsLat[0]), Qt::magenta)) << lon;
        EXPECT_TRUE(HasColour(image, place(s.ObsLong[0], s.ObsLat[0] - m), Qt::magenta)) << lon;
        EXPECT_TRUE(HasColour(image, place(lon, lat), Qt::blue)) << lon;
        EXPECT_TRUE(HasColour(image, place(lon + s.EllipseEW, lat), Qt::blue)) << lon;
        EXPECT_TRUE(HasColour(image, place(lon, lat - s.EllipseNS), Qt::blue)) << lon;
        EXPECT_TRUE(HasColour(image, place(lon + s.EllipseEW / 2.0, lat), Qt::white)) << lon;
        EXPECT_TRUE(HasColour(image, {sheet.Width - 2.0, sheet.Height - 2.0}, Qt::white));
        for (int i = 1; i <= 3; ++i)
            for (const double part : {0.1, 0.4, 0.8})
                EXPECT_TRUE(HasColour(image,
                                      place(lines.LopLong(i, 1), lines.LopLat(i, 1)) * (1.0 - part) +
                                          place(lines.LopLong(i, 2), lines.LopLat(i, 2)) * part,
                                      Qt::black))
                    << lon << ' ' << i;
    }
}

TEST(DrawChart, LooksLikeTheKeptPictureOfASample)
{
    const QImage chart = Drawn(Sample("evening_stars.obs"), {400, 300});
    const QImage small = chart.scaled(100, 75, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                             .convertToFormat(QImage::Format_Grayscale8);
    const QImage kept =
        QImage(MEROV_SOURCE_DIR "/tests/output/evening_stars.png").convertToFormat(QImage::Format_Grayscale8);
    ASSERT_EQ(kept.size(), small.size());
    double difference = 0.0;
    for (int y = 0; y < small.height(); ++y)
        for (int x = 0; x < small.width(); ++x)
            difference += std::abs(qGray(small.pixel(x, y)) - qGray(kept.pixel(x, y)));
    difference /= small.width() * small.height();
    EXPECT_LT(difference, 2.0); // of 255; the blank sheet differs by 9, one moved by a pixel by 3
}

TEST(DrawChart, TellsWhyItStopped)
{
    test::BoxRecorder boxes;
    fix::SightSession data = Triangle(50.0, 20.0);
    data.EllipseEW = 0.0;
    Drawn(data, {400, 300}, false);
    test::ExpectBox(boxes, numeric::BoxIcon::Error, " ERROR|Error when plotting data.|Error 11: Division by zero.");

    fix::SightSession axis = Triangle(50.0, 20.0);
    axis.ObsAzimuth[2] = std::numeric_limits<double>::infinity();
    Drawn(axis, {400, 300}, false);
    test::ExpectBox(boxes, numeric::BoxIcon::Error,
                    " ERROR|Error when plotting axis.|Error 5: Illegal procedure call.");

    test::FakePrinters printers;
    EXPECT_FALSE(DrawChartPage(*printers.StartJob("Chart", {}), {data, Earth}));
    test::ExpectBox(boxes, numeric::BoxIcon::Warning, "PRINTER PROBLEM|Trouble with your printer. Print aborted.");
}

TEST(DrawChart, TakesTwoSightsWithoutAnEllipse)
{
    fix::SightSession s = Triangle(50.0, 20.0);
    s.EllipseEW = s.EllipseNS = 0.0;
    const QImage image = Drawn(s, {781, 561});
    for (const int x : {300, 500, 700})
        for (int y = 0; y < image.height(); ++y)
            EXPECT_FALSE(image.pixelColor(x, y).blue() > image.pixelColor(x, y).red() + 50) << x << ' ' << y;
}

TEST(DrawChartPage, PrintsTheLegendOnTheSheet)
{
    const fix::SightSession session = Sample("evening_stars.obs");
    const std::pair<QPageSize::PageSizeId, QSizeF> papers[] = {
        {QPageSize::A4, {842.0, 595.0}}, {QPageSize::Letter, {792.0, 612.0}}, {QPageSize::A6, {420.0, 298.0}}};
    for (const auto& [paper, size] : papers) {
        test::FakePrinters printers;
        printers.SetLayout(QPageLayout(QPageSize(paper), QPageLayout::Landscape, {}));
        const auto job = printers.StartJob("Chart", {});
        ASSERT_TRUE(DrawChartPage(*job, {session, Earth}));
        job->EndDoc();
        QString text;
        for (const test::PdfWord& word : test::PdfWords(printers.Jobs[0].File)) {
            text += QString(word.Text).replace("&apos;", "'") + ' ';
            EXPECT_TRUE(QRectF({0.0, 0.0}, size).contains(word.Place)) << word.Text.toStdString() << ' ' << paper;
            if (word.Text == "Most" && paper != QPageSize::A6) {
                EXPECT_NEAR(word.Place.top(), size.height() - 10.0 - 3.0 * 11.5, 2.0) << paper;
            }
        }
        for (const LegendText& part : ChartLegendOf(session))
            EXPECT_TRUE(text.contains(part.Text.simplified())) << text.toStdString();
        EXPECT_TRUE(text.contains("POLARIS"));
    }
}

TEST(ChartTexts, TellTheFix)
{
    fix::SightSession s = Triangle(38.472, -12.038);
    s.TimeTruePos = 45549.0 + 19.0 / 24.0 + 40.0 / 1440.0;
    s.Course = 212.04;
    s.Speed = 13.5;
    s.Probability = 0.999;
    const ChartLegend legend = ChartLegendOf(s);
    EXPECT_EQ(legend[0].Text, "Position on 14 Sep 2024 at 19:40:00 GMT:");
    EXPECT_EQ(legend[1].Text, "  • Most Probable Position 38°28'.3 N 012°02'.3 W / Ellipse 99.9 % / 212°.0 - 13'.5"
                              "   {+ Estimated Position}       ");
    EXPECT_EQ(legend[2].Text, "Merov 1.2 - May 2004");
    s.Probability = 0.95;
    EXPECT_EQ(ChartDescription(s), "Most probable position 38°28'.3 N 012°02'.3 W on 14 Sep 2024 19:40:00 GMT. Ellipse "
                                   "of 95 % probability: NS 1'.20, EW 2'.40. Lines of position: 3.");
}

} // namespace
} // namespace merov::output
