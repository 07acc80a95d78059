#include "app/sailing_fields.h"

namespace merov::app
{
namespace
{

using fix::SailingField;
using platform::PictureButton;

constexpr int FieldFigures = 11; // width of the fields, by the font's figures

} // namespace

platform::MaskedEdit* SailingFieldsView::MakeEdit(SailingField field, const char* toolTip)
{
    MirroredEntry entry{
        .Name = fix::ControlName(field),
        .Rule = fix::RuleOf(field),
        .Text = [this, field]() -> const std::string& { return entry_.Text(field); },
        .Colour = [this, field] { return entry_.Colour(field); },
        .SetText = [this, field](const std::string& text) { entry_.SetText(field, text); },
        .Enter = {},
        .Leave = [this, field] { return entry_.LeaveField(field); },
        .Erase =
            [this, field] {
                entry_.EraseField(field);
                if (OnErased) OnErased(field);
            },
    };
    auto* edit = new MirroredEdit(std::move(entry), toolTip, FieldFigures);
    edit->OnSettled = [this] { Show(); };
    edits_[static_cast<std::size_t>(field)] = edit;
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
    const fix::EntryVerdict verdict = entry_.StepField(field, up);
    Show();
    if (verdict == fix::EntryVerdict::Refused) Edit(field).setFocus();
}

PictureButton* SailingFieldsView::MakeEraser(SailingField field, int index, const char* toolTip)
{
    return edits_[static_cast<std::size_t>(field)]->MakeEraser(QStringLiteral("cmdErase(%1)").arg(index), toolTip);
}

void SailingFieldsView::InstallMasks()
{
    for (MirroredEdit* edit : edits_)
        edit->InstallMask();
    entry_.Clear();
    Show();
}

void SailingFieldsView::Show()
{
    for (MirroredEdit* edit : edits_)
        edit->Show();
    for (const auto& show : views_)
        show();
}

} // namespace merov::app
