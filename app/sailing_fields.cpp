#include "app/sailing_fields.h"

#include "app/entry_colours.h"
#include "app/entry_frame.h"
#include "app/pictures.h"

#include <utility>

namespace merov::app
{
namespace
{

using fix::EntryVerdict;
using fix::SailingField;
using platform::MaskedEdit;
using platform::PictureButton;

constexpr int FieldFigures = 11;  // width of the fields, by the font's figures
constexpr int EraserPicture = 16; // pixels

} // namespace

MaskedEdit* SailingFieldsView::MakeEdit(SailingField field, const char* toolTip)
{
    auto* edit = new MaskedEdit;
    edits_[static_cast<std::size_t>(field)] = edit;
    edit->setObjectName(QString::fromStdString(fix::ControlName(field)));
    edit->setToolTip(QString::fromUtf8(toolTip));
    edit->setFixedWidth(FieldWidth(*edit, FieldFigures));
    edit->KeyMap = [rule = fix::RuleOf(field)](int place, QChar key) {
        return key.unicode() < 0x80 ? QChar(QLatin1Char(fix::MapKey(rule, place, key.toLatin1()))) : key;
    };
    edit->OnEnter = [edit] { edit->setCursorPosition(0); };
    edit->OnLeave = [this, field] {
        const EntryVerdict verdict = entry_.LeaveField(field);
        Show();
        return verdict != EntryVerdict::Refused;
    };
    QObject::connect(edit, &QLineEdit::textChanged, edit, [this, field, edit] {
        const std::string text = edit->Text().toStdString();
        if (text == entry_.Text(field)) return;
        entry_.SetText(field, text);
        platform::SetFieldColour(*edit, ColourOf(entry_.Colour(field)));
    });
    return edit;
}

platform::SpinButton* SailingFieldsView::MakeSpin(SailingField field, const QString& name)
{
    auto* spin = new platform::SpinButton;
    spin->setObjectName(name);
    spin->OnUp = [this, field] { Step(field, true); };
    spin->OnDown = [this, field] { Step(field, false); };
    spin->StepByKeysOf(Edit(field));
    spin->setFixedHeight(Edit(field).sizeHint().height());
    return spin;
}

void SailingFieldsView::Step(SailingField field, bool up)
{
    const EntryVerdict verdict = entry_.StepField(field, up);
    Show();
    if (verdict == EntryVerdict::Refused) Edit(field).setFocus();
}

PictureButton* SailingFieldsView::MakeEraser(SailingField field, int index, const char* toolTip)
{
    PictureButton* button =
        MakeButton(QStringLiteral("cmdErase(%1)").arg(index), "erase_field", toolTip, true, [this, field] {
            entry_.EraseField(field);
            Show();
            if (OnErased) OnErased(field);
            Edit(field).setFocus();
        });
    button->setIconSize(QSize(EraserPicture, EraserPicture));
    button->setAutoRaise(true);
    return button;
}

PictureButton* SailingFieldsView::MakeButton(const QString& name, const char* picture, const char* toolTip, bool erases,
                                             std::function<void()> command)
{
    auto* button = new PictureButton(Picture(picture), QString::fromUtf8(toolTip));
    button->setObjectName(name);
    button->setAutoRaise(false);
    if (erases) button->setFocusPolicy(Qt::TabFocus);
    button->OnClick = std::move(command);
    return button;
}

MaskedEdit& SailingFieldsView::Edit(SailingField field)
{
    return *edits_[static_cast<std::size_t>(field)];
}

void SailingFieldsView::InstallMasks()
{
    for (std::size_t i = 0; i < fix::SailingFieldCount; ++i) {
        const auto field = static_cast<SailingField>(i);
        Edit(field).SetMask(QString::fromStdString(fix::EntryMask(fix::RuleOf(field))));
    }
    entry_.Clear();
    Show();
}

void SailingFieldsView::Show()
{
    for (std::size_t i = 0; i < fix::SailingFieldCount; ++i)
        Mirror(static_cast<SailingField>(i));
    for (const auto& show : views_)
        show();
}

void SailingFieldsView::Mirror(SailingField field)
{
    MaskedEdit& edit = Edit(field);
    const QString text = QString::fromStdString(entry_.Text(field));
    if (edit.Text() != text) { // else the insertion point stays
        edit.setText(text);
        edit.setCursorPosition(0);
    }
    platform::SetFieldColour(edit, ColourOf(entry_.Colour(field)));
}

} // namespace merov::app
