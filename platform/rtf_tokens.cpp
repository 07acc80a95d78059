#include "platform/rtf_tokens.h"

#include <algorithm>

namespace merov::platform
{
namespace
{

bool IsLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

} // namespace

int HexValue(unsigned char digit)
{
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
    return -1;
}

RtfToken RtfTokens::Next()
{
    while (Place < Bytes.size()) {
        const char c = Bytes[Place++];
        switch (c) {
        case '\r':
        case '\n':
        case '\0':
            continue;
        case '{':
            return {RtfToken::Kind::GroupStart, {}, {}, 0};
        case '}':
            return {RtfToken::Kind::GroupEnd, {}, {}, 0};
        case '\\':
            return ControlToken();
        default:
            return {RtfToken::Kind::Letter, {}, {}, static_cast<unsigned char>(c)};
        }
    }
    return {};
}

/// What follows a backslash: a word, or one character that stands for itself or for a word.
RtfToken RtfTokens::ControlToken()
{
    if (Place >= Bytes.size()) return DamagedToken("it ends within a control word");
    const char c = Bytes[Place];
    if (IsLetter(c)) return WordToken();
    ++Place;
    switch (c) {
    case '\'':
        return HexToken();
    case '\\':
    case '{':
    case '}':
        return {RtfToken::Kind::Letter, {}, {}, static_cast<unsigned char>(c)};
    case '\r':
    case '\n':
        return {RtfToken::Kind::Word, "par", {}, 0};
    default:
        return {RtfToken::Kind::Word, Bytes.substr(Place - 1, 1), {}, 0};
    }
}

RtfToken RtfTokens::WordToken()
{
    const std::size_t start = Place;
    while (Place < Bytes.size() && IsLetter(Bytes[Place]))
        ++Place;
    const std::string_view word = Bytes.substr(start, Place - start);
    const std::optional<int> number = NumberBehindWord();
    if (Place < Bytes.size() && Bytes[Place] == ' ') ++Place; // ends the word, no text
    if (word == "bin") return RawToken(number.value_or(0));
    return {RtfToken::Kind::Word, word, number, 0};
}

std::optional<int> RtfTokens::NumberBehindWord()
{
    std::size_t at = Place;
    const bool negative = at < Bytes.size() && Bytes[at] == '-';
    if (negative) ++at;
    if (at >= Bytes.size() || !IsDigit(Bytes[at])) return {};
    long long value = 0;
    for (; at < Bytes.size() && IsDigit(Bytes[at]); ++at)
        value = std::min<long long>(value * 10 + (Bytes[at] - '0'), LargestRtfNumber);
    Place = at;
    return static_cast<int>(negative ? -value : value);
}

RtfToken RtfTokens::HexToken()
{
    if (Bytes.size() - Place < 2) return DamagedToken("it ends within a character code");
    const int high = HexValue(static_cast<unsigned char>(Bytes[Place]));
    const int low = HexValue(static_cast<unsigned char>(Bytes[Place + 1]));
    if (high < 0 || low < 0) return DamagedToken("a character code is not hexadecimal");
    Place += 2;
    return {RtfToken::Kind::Letter, {}, {}, static_cast<unsigned char>(high * 16 + low)};
}

RtfToken RtfTokens::RawToken(int count)
{
    if (count < 0 || static_cast<std::size_t>(count) > Bytes.size() - Place)
        return DamagedToken("it ends within raw bytes");
    const std::string_view raw = Bytes.substr(Place, static_cast<std::size_t>(count));
    Place += raw.size();
    return {RtfToken::Kind::Bytes, raw, {}, 0};
}

RtfToken RtfTokens::DamagedToken(std::string_view what)
{
    Place = Bytes.size();
    return {RtfToken::Kind::Damaged, what, {}, 0};
}

} // namespace merov::platform
