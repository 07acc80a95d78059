#include "app/entry_fields_view.h"

#include "app/entry_colours.h"
#include "fix/entry_twins.h"

namespace merov::app
{
namespace
{

using fix::EntryField;
using fix::EntryVerdict;

/// Where typing starts in a field that takes the focus: behind the places that are seldom needed.
int InsertionPoint(EntryField field)
{
    switch (field) {
    case EntryField::Speed:
    case EntryField::HeightFeet:
        return 1;
    case EntryField::InstCorr:
        return 2;
    default:
        return 0;
    }
}

/// True for the fields that can't be left with a bad text. The others take the focus back and are
/// entered anew.
bool RefusesLeave(EntryField field)
{
    return field == EntryField::Latitude || field == EntryField::Longitude;
}

/// Puts a sign into the first place of a field, wherever typing goes on.
void PutSign(platform::MaskedEdit& edit, QChar sign)
{
    const int cursor = edit.cursorPosition();
    QString text = edit.Text();
    text[0] = sign;
    edit.setText(text);
    edit.setCursorPosition(cursor);
}

/// What a key types in a field; nothing for one that does its work here.
QChar MappedKey(platform::MaskedEdit& edit, EntryField field, int place, QChar key)
{
    if (key.unicode() >= 0x80) return key;
    // Typing starts behind the sign, and a sign that were dropped there would turn the correction round.
    const bool isSign = key == u'+' || key == u'-';
    if (field == EntryField::InstCorr && isSign && place >= InsertionPoint(field)) {
        PutSign(edit, key);
        return {};
    }
    return QLatin1Char(fix::MapKey(field, place, key.toLatin1()));
}

} // namespace

EntryFieldsView::EntryFieldsView(fix::SightEntry& entry, fix::SightSession& session) : entry_(entry), session_(session)
{
}

platform::MaskedEdit* EntryFieldsView::MakeEdit(EntryField field, const QString& toolTip)
{
    auto* edit = new platform::MaskedEdit;
    edits_[static_cast<std::size_t>(field)] = edit;
    const std::string_view name = fix::ControlName(field);
    edit->setObjectName(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    edit->setToolTip(toolTip);
    edit->KeyMap = [field, edit](int place, QChar key) { return MappedKey(*edit, field, place, key); };
    edit->OnEnter = [this, field] { EnterField(field); };
    edit->OnLeave = [this, field] { return LeaveOrPass(field) != EntryVerdict::Refused || !RefusesLeave(field); };
    QObject::connect(edit, &QLineEdit::textChanged, edit,
                     [this, field, edit] { entry_.Text(field) = edit->Text().toStdString(); });
    return edit;
}

platform::SpinButton* EntryFieldsView::MakeSpin(EntryField field, const QString& name)
{
    auto* spin = new platform::SpinButton;
    spin->setObjectName(name);
    spin->OnUp = [this, field] { StepField(field, true); };
    spin->OnDown = [this, field] { StepField(field, false); };
    spin->StepByKeysOf(Edit(field));
    spin->setFixedHeight(Edit(field).sizeHint().height());
    return spin;
}

platform::MaskedEdit& EntryFieldsView::Edit(EntryField field)
{
    return *edits_[static_cast<std::size_t>(field)];
}

void EntryFieldsView::InstallMasks()
{
    const fix::SightEntry entry = entry_; // a new mask empties its field
    for (std::size_t i = 0; i < fix::EntryFieldCount; ++i) {
        const auto field = static_cast<EntryField>(i);
        if (edits_[i] == nullptr) continue;
        Edit(field).SetMask(QString::fromStdString(fix::EntryMask(field)));
        entry_.Text(field) = entry.Text(field);
    }
    ShowEntries();
}

void EntryFieldsView::ShowEntries()
{
    for (std::size_t i = 0; i < fix::EntryFieldCount; ++i)
        Mirror(static_cast<EntryField>(i));
}

EntryVerdict EntryFieldsView::LeaveField(EntryField field)
{
    return Settle(field, fix::LeaveField(entry_, session_, field));
}

/// The focus goes from a field: a text that stands as it was found is passed by.
EntryVerdict EntryFieldsView::LeaveOrPass(EntryField field)
{
    if (entry_.Text(field) != enteredText_) return LeaveField(field);
    return Settle(field, fix::PassField(entry_, session_, field));
}

/// Shows what the rule of a field has left.
EntryVerdict EntryFieldsView::Settle(EntryField field, EntryVerdict verdict)
{
    MirrorWithTwin(field);
    const bool takesFocus = verdict == EntryVerdict::Refused && !RefusesLeave(field) && Edit(field).isVisible();
    if (takesFocus) Edit(field).setFocus();
    return verdict;
}

void EntryFieldsView::StepField(EntryField field, bool up)
{
    fix::StepField(entry_, session_, field, up);
    MirrorWithTwin(field);
}

void EntryFieldsView::EraseField(EntryField field, fix::InputFlag flag)
{
    entry_.Text(field) = fix::EntryBlank(field);
    entry_.Colour(field) = fix::FieldColour::Window;
    entry_.Flag(flag) = false;
    Mirror(field);
    Edit(field).setFocus();
}

void EntryFieldsView::EnterField(EntryField field)
{
    fix::EnterField(entry_, field);
    Mirror(field);
    Edit(field).setCursorPosition(InsertionPoint(field));
    enteredText_ = entry_.Text(field);
}

void EntryFieldsView::Mirror(EntryField field)
{
    if (edits_[static_cast<std::size_t>(field)] == nullptr) return;
    platform::MaskedEdit& edit = Edit(field);
    const QString text = QString::fromStdString(entry_.Text(field));
    if (edit.Text() != text) { // else the insertion point stays
        edit.setText(text);
        edit.setCursorPosition(InsertionPoint(field));
    }
    // A text that doesn't fit the mask has flowed over its literals: what stands there is the entry.
    entry_.Text(field) = edit.Text().toStdString();
    platform::SetFieldColour(edit, ColourOf(entry_.Colour(field)));
}

void EntryFieldsView::MirrorWithTwin(EntryField field)
{
    Mirror(field);
    if (const auto twin = fix::TwinOf(field, 0.0)) Mirror(twin->Field);
}

} // namespace merov::app
