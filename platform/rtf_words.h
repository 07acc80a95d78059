#pragma once

#include <optional>
#include <string_view>

/// The control words of rich text that send text elsewhere and those that stand for a letter.

namespace merov::platform
{

/// Where the letters of a group go.
enum class RtfPlace { Text, Skipped, Fonts, Colours, Picture, Label };

/// The place that a word sends its group to; nothing for a word that does not. Words behind "\*" have
/// no entry here: a reader skips their groups when it does not know them.
std::optional<RtfPlace> RtfDestination(std::string_view word);

/// The letter that a word stands for; nothing for any other word.
std::optional<char16_t> RtfSign(std::string_view word);

} // namespace merov::platform
