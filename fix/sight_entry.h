#pragma once

#include "fix/entry_rules.h"
#include "fix/sight_session.h"
#include "numeric/arrays.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/// The entries of a whole session as the screens show them, and the checks across them. A window, the
/// reader of files and the command line all hand over one of these; boxes go through the box port.

namespace merov::fix
{

/// Most sights that a session takes.
constexpr int MaxObservations = 49;

/// Columns of the observation grid.
enum class GridColumn { Time, Body, Altitude, Correction };
constexpr std::size_t GridColumnCount = 4;

/// Picture of the times in the grid.
constexpr std::string_view GridTimePicture = "d mmm yyyy hh:mm:ss";

/// One row of the grid: the texts of its cells, and for each whether it holds a committed value. A
/// text may stand while its flag is false; the flags say what counts as entered.
struct GridRow {
    std::array<std::string, GridColumnCount> Text;
    std::array<bool, GridColumnCount> Flag{};

    std::string& operator[](GridColumn column) { return Text[static_cast<std::size_t>(column)]; }
    const std::string& operator[](GridColumn column) const { return Text[static_cast<std::size_t>(column)]; }
};

/// Background of a field: the window's own while empty or being entered, green when valid, orange
/// when valid but suspicious; yellow for a result in a field that could be entered too.
enum class FieldColour { Window, Green, Orange, Yellow };

/// The required entries, by the index of their flag.
enum class InputFlag { TimeEstPos, EstLat, EstLong, TimeTruePos, Course, Speed, HeightOfEye, InstCorr };
constexpr std::size_t InputFlagCount = 8;

/// The entries: times of the two pickers (date-times, GMT), texts of the masked fields, check boxes,
/// and the rows of the grid, counted from 1. Start with EraseEntries.
struct SightEntry {
    double TimeEstPos = 0.0;
    double TimeTruePos = 0.0;
    std::array<std::string, EntryFieldCount> Texts;
    std::array<FieldColour, EntryFieldCount> Colours{};
    std::array<bool, InputFlagCount> InputFlags{}; ///< by InputFlag: true for a validated entry
    bool UseFullRoutine = true;                    ///< "Correct the course and speed if enough observations."
    bool FindSystErr = true;                       ///< "Find the systematic error"
    bool OneEstPos = false;                        ///< "Compute all intercepts with one estimated position."
    numeric::BoundedArray<GridRow> Rows{1, MaxObservations};

    std::string& Text(EntryField field) { return Texts[static_cast<std::size_t>(field)]; }
    const std::string& Text(EntryField field) const { return Texts[static_cast<std::size_t>(field)]; }
    FieldColour& Colour(EntryField field) { return Colours[static_cast<std::size_t>(field)]; }
    bool& Flag(InputFlag flag) { return InputFlags[static_cast<std::size_t>(flag)]; }
    bool Flag(InputFlag flag) const { return InputFlags[static_cast<std::size_t>(flag)]; }
};

/// Clears the input: blank texts, flags off, empty grid, both pickers on `defaultTime`; in the session
/// position, course, speed and height 0, 1013 millibars, 20 degrees. The check boxes, OrigCourse,
/// OrigSpeed and the session's default correction stay.
/// @param defaultTime  date-time, GMT; the screens use ephemeris::CurrentGmtHour()
void EraseEntries(SightEntry& entry, SightSession& session, double defaultTime);

/// A field takes the focus: window colour; the default correction loses its flag.
void EnterField(SightEntry& entry, EntryField field);

/// A field is left: its rule runs on its text. A box that the rule brings is shown. A valid text sets
/// the session's value, the flag, the colour and the twin's text; a refused one only its own text; an
/// empty one nothing.
/// @return the verdict; after Refused the field takes the focus back
EntryVerdict LeaveField(SightEntry& entry, SightSession& session, EntryField field);

/// A field is left with the text that it had when it took the focus. Where that is what its twin put
/// there, the session keeps the value that was entered, which the rounded text would move (8.5 metres to
/// 8.50392 by its 027.9 feet), and only the colour changes; otherwise as LeaveField.
EntryVerdict PassField(SightEntry& entry, SightSession& session, EntryField field);

/// One step of a field's spin button: the new text goes into the field, which is then left. Nothing
/// happens at the end of the range. A field without a valid text steps from the session's value.
void StepField(SightEntry& entry, SightSession& session, EntryField field, bool up);

/// A field takes a value that a file brings, in the text of CheckValue. A refused value brings its box,
/// and the value of an erased field is taken and shown instead. The flag is set in both cases. Height,
/// temperatures and pressure turn green, as if left; the others keep the window colour.
/// @param value  finite, in the field's unit
/// @return the verdict on `value`
EntryVerdict LoadField(SightEntry& entry, SightSession& session, EntryField field, double value);

/// The pickers' range: 1 January 1900 to the end of 31 December 2100.
bool IsPickerTime(double time);

/// A picker is left: its value becomes the session's time, its flag is set. As long as the time of the
/// true position has not been left or confirmed, that picker follows the estimated position's.
void LeaveTimeEstPos(SightEntry& entry, SightSession& session);
void LeaveTimeTruePos(SightEntry& entry, SightSession& session);

/// The editor of a cell is left with `text`: the cell takes what the column's rule makes of it, and
/// its flag. After any column but the last an empty correction of that row takes the text of the
/// default correction. A box that the rule brings is shown.
/// @param row     1..the last row
/// @param text    time: "d mmm yyyy hh:mm:ss"; body: its code; otherwise what the masked editor holds
/// @return Refused for an altitude that is not taken: the cell keeps the raw text and turns red. Empty
///         for a masked editor without a digit: nothing changes
EntryVerdict CommitCell(SightEntry& entry, int row, GridColumn column, std::string_view text);

/// Empties a cell: no text, flag off. A row that holds no value any more brings the box "Row empty".
/// @param row  1..the last row
void ClearCell(SightEntry& entry, int row, GridColumn column);

/// Takes a row out of the grid: the rows below it move up with their texts and flags, gaps among them
/// included, and the last row is empty.
/// @param row  1..the last row
void RemoveRow(SightEntry& entry, int row);

/// Checks a row that the user goes away from; one that has been begun and lacks a value brings the box
/// "Row not fully filled". A correction alone, which fills itself, begins none.
/// @param row  1..the last row
bool CheckRowFull(const SightEntry& entry, int row);

/// Checks that all required entries have been made; if not, shows the box "Missing data".
bool CheckInputFlags(const SightEntry& entry);

/// Reads the grid into ObsCount, ObsTime (1..n), ObsBody, ObsAltitude and ObsInstCorr.
/// @return false, with its box shown and the session untouched, for an empty grid, a row with missing
///         cells, and a cell that is no time, no body code, no altitude of 0..90 degrees in the
///         editor's layout or no correction of -99.99..99.99 minutes
bool ReadObservationGrid(const SightEntry& entry, SightSession& session);

/// Sorts rows 1..`count` by time; rows of the same time keep their order. Flags stay in their places.
void SortObservationGrid(SightEntry& entry, int count);

} // namespace merov::fix
