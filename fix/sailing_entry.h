#pragma once

#include "fix/entry_rules.h"
#include "fix/sight_entry.h"
#include "sailing/rhumb_page.h"
#include "sailing/voyage.h"

#include <array>
#include <string>
#include <string_view>

namespace merov::fix
{

using sailing::SailingField;
using sailing::SailingFieldCount;

/// The pages of the sailings, by their index.
enum class SailingPage { RhumbLine, GreatCircle, Arrival };

/// The entry rule of a field of the sailings.
EntryField RuleOf(SailingField field);

/// Name of its control, such as "mskLat(0)".
std::string ControlName(SailingField field);

/// The entries of the sailings as the screens show them, and what happens as they are left, erased and
/// exchanged. Boxes go through the box port. The page of rhumb lines computes itself anew after each of
/// these, by the rule of sailing::ComputeRhumbPage; the other pages compute when they are told to.
class SailingEntry
{
public:
    /// @param journal  where faults are written; it must outlive this object
    explicit SailingEntry(numeric::LastError& journal);

    /// All entries blank, with the decimal separator in force.
    void Clear();

    /// The page in view.
    SailingPage Page = SailingPage::RhumbLine;

    const sailing::SailingData& Data() const { return data_; }
    const std::string& Text(SailingField field) const { return texts_[static_cast<std::size_t>(field)]; }
    /// Yellow for a result that stands as it was written.
    FieldColour Colour(SailingField field) const { return colours_[static_cast<std::size_t>(field)]; }
    /// True while the filled entries of the rhumb line pose no problem that can be computed.
    bool CannotCompute() const { return cannotCompute_; }
    /// "N" or "S" once a limit of latitude has been looked at, else empty.
    const std::string& LimitHemisphere() const { return limitHemisphere_; }

    /// The text of a field changes: it is no result any more.
    void SetText(SailingField field, std::string_view text);

    /// A field is left: its rule runs on its text. An empty one loses its flag; a valid one gets it, and its
    /// value counts; a refused one brings its box and keeps flag and value.
    EntryVerdict LeaveField(SailingField field);

    /// Computes the rhumb line, on its page alone. @param demanded  the user asks for it
    void ComputeRhumbLine(bool demanded);

    /// Erases an entry: blank text, no flag, value 0. Without a maximum latitude its hemisphere goes too.
    void EraseField(SailingField field);

    /// Erases all entries of the rhumb line, whose next result comes by itself again; all of the great circle.
    void EraseRhumbLine();
    void EraseGreatCircle();

    /// Turns the track of the rhumb line round: positions change places, course and distance are erased.
    void ShiftPositions();

    /// Goes to a page: RhumbLine takes over the positions of the great circle where both are filled,
    /// GreatCircle those of the rhumb line.
    void SelectPage(SailingPage page);

    /// One step of the spin button of the maximum latitude or of the interval; the field is then left.
    /// @param field  MaxLat or LongInterval
    EntryVerdict StepField(SailingField field, bool up);

    /// Checks the positions of the great circle; shows a box where one is missing or both are the same.
    bool CheckPositions() const;

    /// What a voyage along the great circle is planned from.
    sailing::VoyageInput VoyageInput() const;

    /// The limit of latitude as the plan of a voyage has taken it: in the hemisphere of the vertex. A limit
    /// that was refused waits in its field for the last digit.
    void TakeLimit(const sailing::Voyage& voyage);

private:
    void ShowResult(SailingField field);
    void CopyPositions(SailingField from, SailingField to);
    std::string& TextOf(SailingField field) { return texts_[static_cast<std::size_t>(field)]; }

    numeric::LastError& journal_;
    sailing::SailingData data_;
    std::array<std::string, SailingFieldCount> texts_;
    std::array<FieldColour, SailingFieldCount> colours_{};
    std::string limitHemisphere_;
    bool cannotCompute_ = true;
};

} // namespace merov::fix
