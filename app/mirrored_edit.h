#pragma once

#include "fix/sight_entry.h"
#include "platform/masked_edit.h"
#include "platform/tool_bar.h"

#include <functional>
#include <string>

namespace merov::app
{

/// An entry of the core, as the control needs it that mirrors it.
struct MirroredEntry {
    std::string Name; ///< of the control
    fix::EntryField Rule = fix::EntryField::Latitude;
    std::function<const std::string&()> Text;
    std::function<fix::FieldColour()> Colour;
    std::function<void(const std::string& text)> SetText; ///< a text is being typed
    std::function<void()> Enter;                          ///< the field takes the focus; may be missing
    std::function<fix::EntryVerdict()> Leave;             ///< it is left; a refusal keeps the focus
    std::function<void()> Erase;
};

/// A masked field that mirrors an entry. What is typed stands there at once; what it means is settled when
/// the field is left.
class MirroredEdit : public platform::MaskedEdit
{
public:
    /// @param entry    what its functions reach must outlive this control
    /// @param figures  width, by the font's figures
    MirroredEdit(MirroredEntry entry, const char* toolTip, int figures);

    /// Gives the field its mask, with the decimal separator in force, and empties it without telling the entry.
    void InstallMask();

    /// Shows text and colour of the entry.
    void Show();

    /// The entry has been left or erased by this field, after which others may show something else too. Show
    /// unless set.
    std::function<void()> OnSettled;

    /// Makes a small button that erases the entry. The field then takes the focus, without being left.
    platform::PictureButton* MakeEraser(const QString& name, const char* toolTip);

private:
    void Settle();

    MirroredEntry entry_;
    bool installing_ = false;
};

/// Makes a button of a form that shows a picture. A click leaves the field being edited; with `erases` it
/// doesn't, so that a text that its field refuses to be left with can be erased.
platform::PictureButton* MakePictureButton(const QString& name, const char* picture, const char* toolTip, bool erases,
                                           std::function<void()> command);

} // namespace merov::app
