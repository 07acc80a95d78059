#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

/// The first step of reading a rich text file: its bytes taken apart into braces, control words,
/// letters and runs of raw bytes (syntax of the Rich Text Format 1.9). What they mean is
/// the reader's matter.

namespace merov::platform
{

struct RtfToken {
    enum class Kind {
        GroupStart,
        GroupEnd,
        Word,    ///< a control word or a control symbol
        Letter,  ///< one byte of text, plain or escaped
        Bytes,   ///< what follows \bin
        End,     ///< no more bytes
        Damaged, ///< the bytes follow no rule here; nothing more can be read
    };
    Kind Is = Kind::End;
    std::string_view Text;     ///< the word without its backslash; the raw bytes; what is wrong
    std::optional<int> Number; ///< of a word, cut to plus or minus LargestRtfNumber
    unsigned char Byte = 0;    ///< of a letter
};

constexpr int LargestRtfNumber = 1'000'000'000;

/// Hands out the tokens of a rich text in order. Line ends and NUL bytes between them are dropped; a
/// backslash before a line end is the word "par".
class RtfTokens
{
public:
    /// @param bytes must outlive the tokens, whose texts are parts of it
    explicit RtfTokens(std::string_view bytes) : Bytes(bytes) {}

    /// The next token; after Damaged there is only End.
    RtfToken Next();

private:
    RtfToken ControlToken();
    RtfToken WordToken();
    RtfToken HexToken();
    RtfToken RawToken(int count);
    std::optional<int> NumberBehindWord();
    RtfToken DamagedToken(std::string_view what);

    std::string_view Bytes;
    std::size_t Place = 0;
};

/// The value of a hexadecimal digit, or -1.
int HexValue(unsigned char digit);

} // namespace merov::platform
