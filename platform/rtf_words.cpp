#include "platform/rtf_words.h"

#include <algorithm>
#include <array>

namespace merov::platform
{
namespace
{

struct Destination {
    std::string_view Word;
    RtfPlace Where;
};

constexpr std::array Destinations{
    Destination{"fonttbl", RtfPlace::Fonts},      Destination{"colortbl", RtfPlace::Colours},
    Destination{"pict", RtfPlace::Picture},       Destination{"pntext", RtfPlace::Label},
    Destination{"listtext", RtfPlace::Label},     Destination{"stylesheet", RtfPlace::Skipped},
    Destination{"info", RtfPlace::Skipped},       Destination{"nonshppict", RtfPlace::Skipped},
    Destination{"header", RtfPlace::Skipped},     Destination{"headerl", RtfPlace::Skipped},
    Destination{"headerr", RtfPlace::Skipped},    Destination{"headerf", RtfPlace::Skipped},
    Destination{"footer", RtfPlace::Skipped},     Destination{"footerl", RtfPlace::Skipped},
    Destination{"footerr", RtfPlace::Skipped},    Destination{"footerf", RtfPlace::Skipped},
    Destination{"footnote", RtfPlace::Skipped},   Destination{"annotation", RtfPlace::Skipped},
    Destination{"filetbl", RtfPlace::Skipped},    Destination{"private", RtfPlace::Skipped},
    Destination{"background", RtfPlace::Skipped}, Destination{"xe", RtfPlace::Skipped},
    Destination{"tc", RtfPlace::Skipped}};

struct Sign {
    std::string_view Word;
    char16_t Letter;
};

constexpr std::array Signs{Sign{"tab", u'\t'},           Sign{"bullet", u'\u2022'},    Sign{"emdash", u'\u2014'},
                           Sign{"endash", u'\u2013'},    Sign{"lquote", u'\u2018'},    Sign{"rquote", u'\u2019'},
                           Sign{"ldblquote", u'\u201C'}, Sign{"rdblquote", u'\u201D'}, Sign{"emspace", u'\u2003'},
                           Sign{"enspace", u'\u2002'},   Sign{"~", u'\u00A0'},         Sign{"_", u'\u2011'}};

template <class Table>
auto Find(const Table& table, std::string_view word)
{
    return std::find_if(table.begin(), table.end(), [word](const auto& entry) { return entry.Word == word; });
}

} // namespace

std::optional<RtfPlace> RtfDestination(std::string_view word)
{
    const auto entry = Find(Destinations, word);
    if (entry == Destinations.end()) return {};
    return entry->Where;
}

std::optional<char16_t> RtfSign(std::string_view word)
{
    const auto entry = Find(Signs, word);
    if (entry == Signs.end()) return {};
    return entry->Letter;
}

} // namespace merov::platform
