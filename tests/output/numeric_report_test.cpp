#include "output/numeric_report.h"

#include "ephemeris/astro_lib.h"
#include "fix/observation_file.h"
#include "fix/run_fix.h"
#include "numeric/inout_lib.h"
#include "support/box_recorder.h"
#include "support/letter_look.h"
#include "support/qt_text.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextList>

#include <gtest/gtest.h>

namespace merov::output
{
namespace
{

const QString Template = MEROV_RUN_DIR "/NumResults.rtf";
const QString Expected = MEROV_SOURCE_DIR "/tests/output/expected/";
const QString Samples = MEROV_SOURCE_DIR "/data/Observations/";

QString FileText(const QString& name)
{
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return QString::fromUtf8(file.readAll()).trimmed();
}

/// The fix of a file of sights, with options as merov-cli has them.
fix::SightSession FixOf(const QString& sample, const QString& options, double probability)
{
    ephemeris::SetDataFolder(MEROV_RUN_DIR);
    test::BoxRecorder boxes;
    fix::SightEntry entry;
    fix::SightSession session;
    numeric::LastError journal;
    session.Probability = probability;
    const QString file = (QFile::exists(Samples + sample) ? Samples : Expected) + sample;
    EXPECT_TRUE(fix::LoadObservationFile(file.toStdString(), entry, session)) << file.toStdString();
    entry.UseFullRoutine = !options.contains("truncated");
    entry.FindSystErr = !options.contains("no-systematic");
    entry.OneEstPos = options.contains("one-position");
    const auto [r, a] = sailing::ActiveEllipsoid();
    EXPECT_TRUE(fix::RunFix(entry, session, r, a, journal));
    for (const std::string& box : boxes.TakeTexts()) // a gross error is told and reported
        EXPECT_TRUE(box.starts_with("Wrong observation")) << box;
    return session;
}

/// A finished fix of made-up sights, one second apart.
fix::SightSession MadeUp(const std::vector<std::string>& bodies)
{
    fix::SightSession s;
    fix::AllocateObservations(s, static_cast<int>(bodies.size()));
    s.TimeTruePos = s.TimeEstPos = 38128.5;
    s.Speed = 10.0;
    s.StdDev = numeric::Vector(1, 2);
    for (int i = 1; i <= s.ObsCount; ++i) {
        s.ObsBody[i] = bodies[static_cast<std::size_t>(i - 1)];
        s.ObsTime[i] = s.TimeTruePos + i / 86400.0;
        s.ObsDist[i] = 1e5;
        s.ObsGHA[i] = 20.0 * i;
        s.ObsWeight[i] = 0.5;
    }
    return s;
}

platform::RichText Report(fix::SightSession session, int linesPerPage = 0)
{
    platform::RichText text;
    EXPECT_EQ(BuildNumericReport(text, Template, session, sailing::ActiveEllipsoid(), linesPerPage), std::nullopt);
    return text;
}

QString PlainText(const platform::RichText& text)
{
    return text.Document().toPlainText().remove(QChar::ObjectReplacementCharacter);
}

TEST(NumericReport, ReadsWordForWordAsWorkedOutIndependently)
{
    const QStringList cases = FileText(Expected + "cases.txt").split(u'\n');
    ASSERT_GE(cases.size(), 8);
    for (const QString& line : cases) {
        const QStringList part = line.split(u'|'); // name, file, options, probability, lines per page
        ASSERT_EQ(part.size(), 5) << line.toStdString();
        const fix::SightSession session = FixOf(part[1], part[2], part[3].toDouble());
        const QStringList lines = PlainText(Report(session, part[4].toInt())).split(u'\n');
        const QStringList expected = FileText(Expected + part[0] + ".txt").split(u'\n');
        EXPECT_EQ(lines.size(), expected.size()) << part[0].toStdString();
        for (qsizetype i = 0; i < std::min(lines.size(), expected.size()); ++i)
            EXPECT_EQ(lines[i], expected[i]) << part[0].toStdString() << ", line " << i + 1;
    }
}

TEST(NumericReport, LooksAsItShould)
{
    platform::RichText report = Report(MadeUp({"SIRIUS", "VEGA"}));
    int place = 0;
    for (const auto& [words, look] : std::vector<std::pair<QString, QString>>{{"Astronomic", "Arial 10"},
                                                                              {"Position:", "Arial 12 bold underlined"},
                                                                              {"most probable", "blue"},
                                                                              {"on 21", "Arial 12"},
                                                                              {"ellipse of", "blue"},
                                                                              {"95.0", "blue"},
                                                                              {" % probability", "blue"},
                                                                              {"of", "Arial 12"},
                                                                              {"The program", "Arial 12"},
                                                                              {"weight given", "blue"},
                                                                              {"SIRIUS ", "Courier New 12"},
                                                                              {"= 100 %", "Courier New 12"},
                                                                              {"The standard", "Arial 12"},
                                                                              {"1) SIRIUS on", "Arial 12 bold"},
                                                                              {"Estimated", "Arial 12"},
                                                                              {"(1)", "Arial 8"},
                                                                              {" 00°", "Arial 12"},
                                                                              {"GHA 020°", "Courier New 12"},
                                                                              {"δ", "Arial 12"},
                                                                              {"H", "Courier New 12"},
                                                                              {"s", "Courier New 8 low"},
                                                                              {"I", "Courier New 12"},
                                                                              {" ", "Courier New 8 low"},
                                                                              {"o", "Courier New 8 low"},
                                                                              {"c", "Courier New 8 low"},
                                                                              {"Δ", "Arial 12"},
                                                                              {"H", "Courier New 12"},
                                                                              {" ", "Courier New 8 low"},
                                                                              {"Δ", "Arial 12"},
                                                                              {"-0.0", "Courier New 12"},
                                                                              {"2) VEGA", "Arial 12 bold"},
                                                                              {"End of", "Arial 12 bold italic"}}) {
        place = report.Find(words, place);
        ASSERT_GE(place, 0) << words.toStdString();
        QTextCursor cursor(&report.Document());
        cursor.setPosition(++place);
        const QString shown = test::LetterLook(cursor.charFormat()).remove(" #000000");
        EXPECT_EQ(shown, look == "blue" ? "Arial 12 #0000ff" : look) << words.toStdString();
    }
    int low = 0;
    for (QTextBlock line = report.Document().begin(); line.isValid(); line = line.next()) {
        const bool listed = line.text().contains(" = 100 %"), last = !line.next().isValid();
        EXPECT_EQ(line.textList() != nullptr, listed) << line.text().toStdString();
        EXPECT_EQ(line.blockFormat().leftMargin(), listed ? 34.0 : 14.0) << line.text().toStdString();
        EXPECT_EQ(line.blockFormat().alignment() == Qt::AlignHCenter, last) << line.text().toStdString();
        if (line.text().isEmpty() && line.charFormat().fontPointSize() == 6.0) ++low;
    }
    EXPECT_EQ(low, 4);                                                               // two gaps a sight
    EXPECT_EQ(report.Document().findChild<QAbstractTextDocumentLayout*>(), nullptr); // left to who shows it
}

TEST(NumericReport, SaysWhatTheSystematicErrorMeansAndListsBodiesInAColumn)
{
    fix::SightSession session = MadeUp({"MARS", "ZUBENELGENUB", "ZUBENELGENUBI"});
    for (const auto& [error, said] : {std::pair{0.04, "+0'.0\nwhich means that you have no personal error."},
                                      {-0.04, "-0'.0\nwhich means that you have no personal error."},
                                      {0.05, "+0'.1\nmeaning you always overestimate the sextant altitude"},
                                      {-0.05, "-0'.1\nmeaning you always underestimate the sextant altitude"}}) {
        session.SystErr = error;
        EXPECT_TRUE(PlainText(Report(session)).contains("personal error) is " + QString::fromUtf8(said))) << error;
    }
    EXPECT_TRUE(PlainText(Report(session))
                    .contains("\nMARS         21 May 2004 12:00:01 = 50.0 %\nZUBENELGENUB 21 May 2004 12:00:02 = "
                              "50.0 %\nZUBENELGENUBI 21 May 2004 12:00:03 = 50.0 %\n"));
}

TEST(NumericReport, KeepsToTheDecimalSeparator)
{
    const fix::SightSession session = FixOf("kaplan_1995.obs", "", 0.999);
    QString expected = PlainText(Report(session)).replace(QRegularExpression("(?<=[\\d°'])\\.(?=\\d)"), ",");
    numeric::SetDecimalSeparator(",");
    const QString text = PlainText(Report(session));
    numeric::SetDecimalSeparator(".");
    EXPECT_EQ(text, expected.replace("Merov 1,2", "Merov 1.2"));
    EXPECT_TRUE(text.contains("ellipse of 99,9 %"));
}

TEST(NumericReport, AFaultyTemplateChangesNothing)
{
    const QTemporaryDir folder;
    QFile damaged(folder.filePath("NumResults.rtf"));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("{\\rtf1 \\'a7 and \\'a7}");
    damaged.close();
    fix::SightSession session = MadeUp({"SIRIUS"});
    platform::RichText text;
    text.SetSelectedText("before");
    for (const auto& [file, wrong] : {std::pair{damaged.fileName(), "has 2 markers § in place of 33."},
                                      {folder.filePath("none.rtf"), "cannot be opened"}}) {
        const auto said = BuildNumericReport(text, file, session, sailing::ActiveEllipsoid(), 0);
        EXPECT_TRUE(said && said->contains(QString::fromUtf8(wrong))) << said.value_or("").toStdString();
    }
    EXPECT_EQ(PlainText(text), "before");
    EXPECT_EQ(session.ObsHc[1], 0.0); // the sights are as the fix left them
}

} // namespace
} // namespace merov::output
