#pragma once

#include "numeric/message_box.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace merov::fix
{

/// UTF-8 from Latin-1, the character set of observation files.
std::string Utf8FromLatin1(std::string_view bytes);

/// Reads the records of a file one by one, each a line of fields with commas between them.
///
/// The first thing that is wrong is kept as the reader's problem; everything asked after it gives 0 or
/// an empty text, so that a reader of a format asks for its fields in a row and looks at the problem
/// once.
class RecordReader
{
public:
    /// @param lines  the records, each ended by CR LF or LF, the last one too; must outlive the reader
    explicit RecordReader(std::string_view lines) : rest_(lines) {}

    /// Goes to the next record, which must have `fieldCount` fields.
    void Next(std::size_t fieldCount);

    /// The next field of the record, by its type. A number is finite, with a point and perhaps an
    /// exponent; a whole number has digits alone, and one beyond the range of an int gives the nearest
    /// that is in it; a date is one that exists, a text stands in quotes and comes as UTF-8.
    double Number();
    int WholeNumber();
    double Date();
    std::string Text();

    /// No record may be left.
    void End();

    /// Says that the present record is damaged. `what` is a sentence.
    void Damage(const std::string& what);

    /// `text` in quotes and without anything that does not show, cut to a length that fits a box.
    static std::string Quoted(std::string_view text);

    /// The box that names the damaged record; nothing as long as all is well.
    const std::optional<numeric::Box>& Problem() const { return problem_; }

private:
    /// The next field as it stands; empty, too, after a problem.
    std::string_view Field();
    void DamageField(std::string_view field, const std::string& what);

    std::string_view rest_;
    int record_ = 0;
    std::vector<std::string_view> fields_;
    std::size_t next_ = 0;
    std::optional<numeric::Box> problem_;
};

} // namespace merov::fix
