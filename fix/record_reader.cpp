#include "fix/record_reader.h"

#include "ephemeris/time_lib.h"
#include "numeric/inout_lib.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace merov::fix
{
namespace
{

constexpr std::size_t LongestQuotation = 40; // bytes

/// Takes the first line off `rest`, without its end.
std::string_view TakeLine(std::string_view& rest)
{
    const std::size_t end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

/// The fields of a line, without the blanks around them. A comma in quotes divides nothing.
std::vector<std::string_view> Fields(std::string_view line)
{
    std::vector<std::string_view> fields;
    bool quoted = false;
    std::size_t first = 0;
    for (std::size_t i = 0; i <= line.size(); ++i) {
        if (i < line.size() && line[i] == '"') quoted = !quoted;
        if (i < line.size() && (quoted || line[i] != ',')) continue;
        fields.push_back(numeric::TrimBlanks(line.substr(first, i - first)));
        first = i + 1;
    }
    return fields;
}

/// What stands between two marks, such as quotes; nothing without them.
std::optional<std::string_view> Between(std::string_view field, char mark)
{
    if (field.size() < 2 || field.front() != mark || field.back() != mark) return std::nullopt;
    field = field.substr(1, field.size() - 2);
    if (field.find(mark) != std::string_view::npos) return std::nullopt;
    return field;
}

std::string CountOfFields(std::size_t count)
{
    return std::to_string(count) + (count == 1 ? " field" : " fields");
}

} // namespace

std::string Utf8FromLatin1(std::string_view bytes)
{
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            text += c;
        } else {
            text += static_cast<char>(0xC0u | byte >> 6);
            text += static_cast<char>(0x80u | (byte & 0x3Fu));
        }
    }
    return text;
}

void RecordReader::Next(std::size_t fieldCount)
{
    if (problem_) return;
    ++record_;
    fields_.clear();
    next_ = 0;
    if (rest_.empty()) return Damage("It is missing.");
    const std::string_view line = TakeLine(rest_);
    if (numeric::TrimBlanks(line).empty()) return Damage("It is empty.");
    fields_ = Fields(line);
    if (fields_.size() != fieldCount)
        Damage("It has " + CountOfFields(fields_.size()) + " instead of " + std::to_string(fieldCount) + ".");
}

std::string_view RecordReader::Field()
{
    return problem_ || next_ >= fields_.size() ? std::string_view() : fields_[next_++];
}

double RecordReader::Number()
{
    const std::string_view field = Field();
    std::string_view digits = field;
    if (digits.starts_with('+') && !digits.starts_with("+-")) digits.remove_prefix(1);
    double value = 0.0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value);
    if (error == std::errc::result_out_of_range && stop == end) {
        DamageField(field, " is too large or too small.");
    } else if (error != std::errc() || stop != end || !std::isfinite(value)) {
        DamageField(field, " is not a number.");
    }
    return problem_ ? 0.0 : value;
}

int RecordReader::WholeNumber()
{
    const std::string_view field = Field();
    int value = 0;
    const char* end = field.data() + field.size();
    const auto [stop, error] = std::from_chars(field.data(), end, value);
    if (error == std::errc::invalid_argument || stop != end) DamageField(field, " is not a whole number.");
    if (problem_) return 0;
    if (error == std::errc()) return value;
    return field.starts_with('-') ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
}

double RecordReader::Date()
{
    const std::string_view field = Field();
    std::optional<double> date;
    if (const auto text = Between(field, '#')) {
        date = ephemeris::ParseIsoDateTime(*text);
        if (!date) date = ephemeris::ParseIsoDateTime(*text, true);
    }
    if (!date) DamageField(field, " is not a date.");
    return date.value_or(0.0);
}

std::string RecordReader::Text()
{
    const std::string_view field = Field();
    const auto text = Between(field, '"');
    if (!text) DamageField(field, " is not a text in quotes.");
    return text ? Utf8FromLatin1(*text) : std::string();
}

void RecordReader::End()
{
    if (problem_ || rest_.empty()) return;
    ++record_;
    Damage("It stands behind the last observation.");
}

void RecordReader::Damage(const std::string& what)
{
    if (problem_) return;
    problem_ = numeric::Box{"File unreadable",
                            {"Record " + std::to_string(record_) + " of the file is damaged:", what},
                            numeric::BoxIcon::Warning,
                            numeric::BoxButtons::Ok};
}

void RecordReader::DamageField(std::string_view field, const std::string& what)
{
    Damage(Quoted(Utf8FromLatin1(field.substr(0, LongestQuotation + 1))) + what);
}

std::string RecordReader::Quoted(std::string_view text)
{
    std::string shown;
    std::size_t count = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool continues = (byte & 0xC0) == 0x80;
        if (!continues && ++count > LongestQuotation) {
            shown += "...";
            break;
        }
        shown += byte < 0x20 || byte == 0x7F ? '?' : c;
    }
    return Between(shown, '"') ? shown : "\"" + shown + "\"";
}

} // namespace merov::fix
