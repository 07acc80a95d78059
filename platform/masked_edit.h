#pragma once

#include "platform/field.h"

#include <QLineEdit>

namespace merov::platform
{

/// An entry field with fixed places and literals, such as "__°__'._ _" for a latitude.
///
/// In a mask "#" is a digit, "9" a digit or a sign, "?" a letter A-Z or a-z, "&" any character, and all
/// else a literal that stands by itself. An unfilled place shows "_", and typing writes over what is
/// there. A key that doesn't fit its place types nothing; typing a literal jumps behind it. Backspace
/// and Delete empty a place without shifting the others.
///
/// setText takes a text with or without its literals; one that doesn't fit flows over them. clear()
/// empties all places.
class MaskedEdit : public Field<QLineEdit>
{
public:
    explicit MaskedEdit(QWidget* parent = nullptr);

    /// Sets the mask and empties the field.
    void SetMask(const QString& mask);
    const QString& Mask() const { return mask_; }

    /// The text as it stands in the field, with literals and "_". Its length is the mask's.
    QString Text() const { return displayText(); }

    /// True when no place is filled.
    bool IsBlank() const;

    /// What a key types at a place, counted from 0; QChar() types nothing. Not set: each key itself.
    std::function<QChar(int place, QChar key)> KeyMap;

    /// Qt's own text lacks the "_", so that its places can't be told: use Text.
    QString text() const = delete;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool JumpsToLiteral(qsizetype cursor, QChar key) const;
    qsizetype NextPlace(qsizetype cursor) const;

    QString mask_;
};

} // namespace merov::platform
