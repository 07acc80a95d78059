#include "app/mirrored_edit.h"

#include "app/entry_colours.h"
#include "app/entry_frame.h"
#include "app/pictures.h"

#include <QScopedValueRollback>

#include <utility>

namespace merov::app
{
namespace
{

constexpr int EraserPicture = 16; // pixels

} // namespace

MirroredEdit::MirroredEdit(MirroredEntry entry, const char* toolTip, int figures) : entry_(std::move(entry))
{
    setObjectName(QString::fromStdString(entry_.Name));
    setToolTip(QString::fromUtf8(toolTip));
    setFixedWidth(FieldWidth(*this, figures));
    KeyMap = [rule = entry_.Rule](int place, QChar key) {
        return key.unicode() < 0x80 ? QChar(QLatin1Char(fix::MapKey(rule, place, key.toLatin1()))) : key;
    };
    OnEnter = [this] {
        if (entry_.Enter) {
            entry_.Enter();
            Show();
        }
        setCursorPosition(0);
    };
    OnLeave = [this] {
        const fix::EntryVerdict verdict = entry_.Leave();
        Settle();
        return verdict != fix::EntryVerdict::Refused;
    };
    connect(this, &QLineEdit::textChanged, this, [this] {
        const std::string text = Text().toStdString();
        if (installing_ || text == entry_.Text()) return;
        entry_.SetText(text);
        platform::SetFieldColour(*this, ColourOf(entry_.Colour()));
    });
}

void MirroredEdit::InstallMask()
{
    const QScopedValueRollback<bool> installing(installing_, true);
    SetMask(QString::fromStdString(fix::EntryMask(entry_.Rule)));
}

void MirroredEdit::Show()
{
    const QString text = QString::fromStdString(entry_.Text());
    if (Text() != text) { // else the insertion point stays
        setText(text);
        setCursorPosition(0);
    }
    platform::SetFieldColour(*this, ColourOf(entry_.Colour()));
}

void MirroredEdit::Settle()
{
    if (OnSettled)
        OnSettled();
    else
        Show();
}

platform::PictureButton* MirroredEdit::MakeEraser(const QString& name, const char* toolTip)
{
    platform::PictureButton* button = MakePictureButton(name, "erase_field", toolTip, true, [this] {
        entry_.Erase();
        Settle();
        setFocus();
    });
    button->setIconSize(QSize(EraserPicture, EraserPicture));
    button->setAutoRaise(true);
    return button;
}

platform::PictureButton* MakePictureButton(const QString& name, const char* picture, const char* toolTip, bool erases,
                                           std::function<void()> command)
{
    auto* button = new platform::PictureButton(Picture(picture), QString::fromUtf8(toolTip));
    button->setObjectName(name);
    button->setAutoRaise(false);
    if (erases) button->setFocusPolicy(Qt::TabFocus);
    button->OnClick = std::move(command);
    return button;
}

} // namespace merov::app
