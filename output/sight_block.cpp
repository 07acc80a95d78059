#include "output/sight_block.h"

#include "numeric/inout_lib.h"
#include "output/report_fonts.h"
#include "output/report_texts.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace merov::output
{
namespace
{

using fix::SightSession;
using numeric::FormatDegMin;

constexpr const char* AltitudePattern = "00°00'.0";
constexpr const char* CorrectionPattern = "+0°00'.0;-0°00'.0";

/// A line with an angle behind its sign: a letter and an index below it.
struct AngleLine {
    const char* Letter;
    const char* Index;
    numeric::Vector SightSession::*Angles;
    const char* Pattern;
};

constexpr AngleLine AngleLines[] = {
    {" H", "s", &SightSession::ObsAltitude, AltitudePattern},   // instrument altitude
    {" I", " ", &SightSession::ObsInstCorr, CorrectionPattern}, // instrument correction
    {" H", "o", &SightSession::ObsHo, AltitudePattern},         // true altitude
    {" H", "c", &SightSession::ObsHc, AltitudePattern},         // computed altitude
};

/// Puts in text of the block, and changes how it looks.
class BlockText
{
public:
    explicit BlockText(platform::RichText& text) : text_(text) {}

    void Put(std::initializer_list<std::string_view> parts)
    {
        std::string text;
        for (const std::string_view part : parts)
            text += part;
        text_.SetSelectedText(QString::fromStdString(text));
    }

    /// In small letters, as the number of a sight.
    void PutSmall(std::initializer_list<std::string_view> parts)
    {
        text_.SetFontSize(IndexSize);
        Put(parts);
        text_.SetFontSize(LetterSize);
    }

    /// Below the line.
    void PutIndex(std::string_view index)
    {
        text_.SetScript(platform::TextScript::Subscript);
        PutSmall({index});
        text_.SetScript(platform::TextScript::Normal);
    }

    /// Greek letters by their places in the font "Symbol"; code letters follow.
    void PutGreek(std::string_view letters)
    {
        text_.SetFontName("Symbol");
        Put({letters});
        text_.SetFontName(CodeFont);
    }

    /// An empty line of half the height.
    void PutGap()
    {
        text_.SetFontSize(GapSize);
        Put({"\n"});
        text_.SetFontSize(LetterSize);
    }

private:
    platform::RichText& text_;
};

} // namespace

void PutSightBlock(platform::RichText& text, const SightSession& s, int i, double distRun)
{
    BlockText block(text);
    const std::string number = std::to_string(i);

    text.SetFontName(LetterFont);
    text.SetBold(true);
    block.Put({number, ") ", s.ObsBody[i], " on ", ReportTime(s.ObsTime[i]), "\n\n"});
    text.SetBold(false);
    block.Put({"Estimated position: Lat"});
    block.PutSmall({" (", number, ")"});
    block.Put({" ", numeric::FormatLat(s.ObsLat[i]), " and Long"});
    block.PutSmall({" (", number, ")"});
    block.Put({" ", numeric::FormatLong(s.ObsLong[i]), "\n\n"});

    text.SetFontName(CodeFont);
    block.Put({"GHA ", FormatDegMin(s.ObsGHA[i], "000°00'.0"), "\n "});
    block.PutGreek("d   "); // declination
    block.Put({"  ", numeric::FormatLat(s.ObsDec[i]), "\n"});
    block.PutGap();
    for (const AngleLine& line : AngleLines) {
        block.Put({line.Letter});
        block.PutIndex(line.Index);
        block.Put({"  ", FormatDegMin((s.*line.Angles)[i], line.Pattern), "\n"});
    }
    block.Put({" "});
    block.PutGreek("D"); // intercept
    block.Put({"H"});
    block.PutIndex(" ");
    block.Put({" ", FormatDegMin(s.ObsIntercept[i], CorrectionPattern), "\n"});
    block.Put({" Z   ", numeric::FormatNumber(s.ObsAzimuth[i], "000°.0"), "\n"});
    block.PutGap();
    block.Put({" "});
    block.PutGreek("D"); // run
    block.Put({"   ", numeric::FormatNumber(distRun, "+###0.0;-###0.0"), "\n\n"});
}

} // namespace merov::output
