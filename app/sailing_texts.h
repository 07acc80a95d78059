#pragma once

#include <QLabel>

/// What the pages of the sailings have in common beside their fields.

namespace merov::app
{

constexpr const char* LatitudeTip = "Enter degrees [°] minutes ['] & tenths of minute N/+ S/-";
constexpr const char* LongitudeTip = "Enter degrees [°] minutes ['] & tenths of minute E/+ W/-";
constexpr const char* EraseLatitudeTip = "Erase latitude";
constexpr const char* EraseLongitudeTip = "Erase longitude";
constexpr const char* EraseAllTip = "Erase all";

constexpr int FootHeight = 30; ///< of the buttons at the foot of a page, pixels

/// A paragraph about the earth models (lblSphere). Runs of blanks in it show as one.
inline QLabel* MakeSphereText(int index, const char* text)
{
    auto* label = new QLabel(QString::fromUtf8(text));
    label->setObjectName(QStringLiteral("lblSphere(%1)").arg(index));
    label->setTextFormat(Qt::RichText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return label;
}

} // namespace merov::app
