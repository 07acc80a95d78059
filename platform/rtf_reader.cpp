#include "platform/rtf_reader.h"

#include "platform/rtf_document.h"
#include "platform/rtf_format.h"
#include "platform/rtf_letters.h"
#include "platform/rtf_tokens.h"
#include "platform/rtf_words.h"

#include <QFile>
#include <QList>

#include <algorithm>
#include <optional>
#include <string_view>

namespace merov::platform
{
namespace
{

using Kind = RtfToken::Kind;

/// Reads one rich text from its first token to its last.
class Reader
{
public:
    Reader(const QByteArray& bytes, QTextDocument& document)
        : Tokens(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size()))), Result(document, Tables)
    {
    }

    /// @return what is wrong, as the end of a sentence; nothing when all was read
    std::optional<QString> Read();

private:
    struct Group {
        RtfFormat Format;
        RtfPlace Where = RtfPlace::Text;
        int Fallbacks = 1; ///< letters behind \u that stand for it in readers without Unicode
    };

    bool Take(const RtfToken& token);
    bool CloseGroup();
    void TakeWord(const RtfToken& token);
    bool TakeTableWord(std::string_view word, std::optional<int> number);
    bool TakeColourPart(std::string_view word, int part);
    void TakeUnicode(int number);
    bool TakeByte(unsigned char byte);
    void TakeLetter(char16_t letter);
    void TakeColour();
    bool TakeHexDigit(unsigned char digit);
    bool EndPicture();
    bool CheckTail();
    bool Fail(const QString& what);

    RtfTables Tables;
    RtfTokens Tokens;
    RtfDocument Result;
    Group Now;
    QList<Group> Outer;
    QString Wrong;
    int FallbacksLeft = 0;
    bool Starred = false; ///< the last token was "\*"
    int CurrentFont = 0;
    QColor Colour;
    QByteArray Picture;
    QSize PictureGoal;
    bool PictureIsPng = false;
    int HighDigit = -1; ///< first half of a byte of the picture
    QString Label;
};

std::optional<QString> Reader::Read()
{
    for (RtfToken token = Tokens.Next(); token.Is != Kind::End; token = Tokens.Next()) {
        if (!Take(token)) return Wrong;
        if (Result.IsFull()) return QStringLiteral("it is too long");
        if (Outer.isEmpty()) {
            if (!CheckTail()) return Wrong;
            Result.Finish();
            return {};
        }
    }
    return QStringLiteral("it ends early, or a closing brace is missing");
}

bool Reader::Take(const RtfToken& token)
{
    const bool starred = std::exchange(Starred, false);
    switch (token.Is) {
    case Kind::GroupStart:
        FallbacksLeft = 0;
        if (Outer.size() >= DeepestRtfGroup) return Fail(QStringLiteral("its groups are nested too deeply"));
        Outer.append(Now);
        return true;
    case Kind::GroupEnd:
        FallbacksLeft = 0;
        return CloseGroup();
    case Kind::Word:
        if (FallbacksLeft > 0)
            --FallbacksLeft;
        else if (starred && token.Text != "shppict")
            Now.Where = RtfPlace::Skipped;
        else
            TakeWord(token);
        return true;
    case Kind::Letter:
        if (FallbacksLeft > 0) {
            --FallbacksLeft;
            return true;
        }
        return TakeByte(token.Byte);
    case Kind::Bytes:
        if (Now.Where == RtfPlace::Picture)
            Picture.append(token.Text.data(), static_cast<qsizetype>(token.Text.size()));
        return true;
    case Kind::Damaged:
        return Fail(QString::fromLatin1(token.Text.data(), static_cast<qsizetype>(token.Text.size())));
    case Kind::End:
        break;
    }
    return true;
}

bool Reader::CloseGroup()
{
    const RtfPlace closed = Now.Where;
    Now = Outer.takeLast();
    if (closed == Now.Where) return true;
    if (closed == RtfPlace::Picture) return EndPicture();
    if (closed == RtfPlace::Label && Now.Where == RtfPlace::Text) Result.PutLabel(std::exchange(Label, {}), Now.Format);
    return true;
}

void Reader::TakeWord(const RtfToken& token)
{
    const std::string_view word = token.Text;
    if (Now.Where == RtfPlace::Skipped) return;
    if (const std::optional<RtfPlace> destination = RtfDestination(word)) {
        Now.Where = *destination;
        if (Now.Where == RtfPlace::Picture) {
            Picture.clear();
            PictureGoal = {};
            PictureIsPng = false;
            HighDigit = -1;
        }
        return;
    }
    if (TakeTableWord(word, token.Number) || ApplyRtfFormat(word, token.Number, Now.Format)) return;
    if (const std::optional<char16_t> sign = RtfSign(word)) {
        TakeLetter(*sign);
    } else if (word == "u") {
        TakeUnicode(token.Number.value_or(0));
    } else if (word == "uc") {
        Now.Fallbacks = std::max(token.Number.value_or(1), 0);
    } else if (word == "deff") {
        Tables.DefaultFont = token.Number.value_or(0);
    } else if (word == "*") {
        Starred = true;
    } else if (Now.Where == RtfPlace::Text) {
        if (word == "par") Result.EndParagraph(Now.Format);
        if (word == "line") Result.BreakLine(Now.Format);
    }
}

/// The words within the tables of fonts and colours and within a picture.
bool Reader::TakeTableWord(std::string_view word, std::optional<int> number)
{
    const int value = number.value_or(0);
    switch (Now.Where) {
    case RtfPlace::Fonts:
        if (word == "f") Tables.Fonts[CurrentFont = value]; // an entry, if only an empty one
        if (word == "fcharset") Tables.Fonts[CurrentFont].IsSymbol = value == 2;
        return word == "f" || word == "fcharset";
    case RtfPlace::Colours:
        return TakeColourPart(word, std::clamp(value, 0, 255));
    case RtfPlace::Picture:
        if (word == "picwgoal") PictureGoal.setWidth(value);
        if (word == "pichgoal") PictureGoal.setHeight(value);
        if (word == "pngblip") PictureIsPng = true;
        return false; // they mean nothing else
    default:
        return false;
    }
}

bool Reader::TakeColourPart(std::string_view word, int part)
{
    if (word != "red" && word != "green" && word != "blue") return false;
    if (!Colour.isValid()) Colour = Qt::black;
    if (word == "red") Colour.setRed(part);
    if (word == "green") Colour.setGreen(part);
    if (word == "blue") Colour.setBlue(part);
    return true;
}

/// The number is a signed 16-bit one; letters outside the basic plane come as two.
void Reader::TakeUnicode(int number)
{
    const char16_t code = static_cast<char16_t>(number & 0xFFFF);
    const bool symbol = Tables.IsSymbol(Now.Format.Font);
    TakeLetter(symbol ? SymbolText(QString(QChar(code)))[0].unicode() : code);
    FallbacksLeft = Now.Fallbacks;
}

bool Reader::TakeByte(unsigned char byte)
{
    switch (Now.Where) {
    case RtfPlace::Skipped:
        return true;
    case RtfPlace::Colours:
        if (byte == ';') TakeColour();
        return true;
    case RtfPlace::Picture:
        return TakeHexDigit(byte);
    case RtfPlace::Fonts:
        TakeLetter(Windows1252Letter(byte).unicode());
        return true;
    case RtfPlace::Text:
    case RtfPlace::Label:
        TakeLetter((Tables.IsSymbol(Now.Format.Font) ? SymbolLetter(byte) : Windows1252Letter(byte)).unicode());
        return true;
    }
    return true;
}

void Reader::TakeLetter(char16_t letter)
{
    if (Now.Where == RtfPlace::Text) Result.PutLetter(letter, Now.Format);
    if (Now.Where == RtfPlace::Label) Label += QChar(letter);
    if (Now.Where == RtfPlace::Fonts && letter != u';') Tables.Fonts[CurrentFont].Name += QChar(letter);
}

/// An entry of the table ends; one that names no colour stands for that of the view's text.
void Reader::TakeColour()
{
    constexpr qsizetype mostColours = 1000;
    if (Tables.Colours.size() < mostColours) Tables.Colours.append(Colour);
    Colour = QColor();
}

bool Reader::TakeHexDigit(unsigned char digit)
{
    if (digit == ' ' || digit == '\t') return true;
    const int value = HexValue(digit);
    if (value < 0) return Fail(QStringLiteral("a picture in it is not hexadecimal"));
    if (HighDigit < 0) {
        HighDigit = value;
        return true;
    }
    Picture.append(static_cast<char>(HighDigit * 16 + value));
    HighDigit = -1;
    return true;
}

/// Pictures of another kind than PNG are left out.
bool Reader::EndPicture()
{
    if (Now.Where != RtfPlace::Text || !PictureIsPng) return true;
    if (Result.PutPicture(std::exchange(Picture, {}), PictureGoal, Now.Format)) return true;
    return Fail(QStringLiteral("a picture in it is damaged or too large"));
}

/// Behind the last brace there may be blanks and nothing else.
bool Reader::CheckTail()
{
    for (RtfToken token = Tokens.Next(); token.Is != Kind::End; token = Tokens.Next())
        if (token.Is != Kind::Letter || token.Byte > ' ')
            return Fail(QStringLiteral("it goes on behind its last brace"));
    return true;
}

bool Reader::Fail(const QString& what)
{
    Wrong = what;
    return false;
}

} // namespace

RtfReading ReadRtf(const QByteArray& bytes)
{
    if (!bytes.startsWith("{\\rtf")) return QStringLiteral("The file is not a rich text file.");
    if (bytes.size() > LargestRtfFile) return QStringLiteral("The file is too large for a rich text file.");
    auto document = std::make_unique<QTextDocument>();
    const std::optional<QString> wrong = Reader(bytes, *document).Read();
    if (wrong) return QStringLiteral("The rich text file is damaged: %1.").arg(*wrong);
    return document;
}

RtfReading ReadRtfFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("The file cannot be opened: %1.").arg(file.errorString());
    const QByteArray bytes = file.read(LargestRtfFile + 1);
    if (file.error() != QFileDevice::NoError)
        return QStringLiteral("The file cannot be read: %1.").arg(file.errorString());
    return ReadRtf(bytes);
}

} // namespace merov::platform
