#pragma once

#include "sailing/eta_entries.h"

#include <QObject>

#include <array>

class QWidget;

namespace merov::platform
{
class MaskedEdit;
}

namespace merov::app
{

/// The masked fields of the page of arrivals: makes their controls, runs their rules, and mirrors what stands
/// in the entries. A text that is typed stands there at once; what it means is settled when it is left.
class EtaFields : public QObject
{
public:
    static constexpr int FirstEraser = 15; ///< cmdErase of the first field

    /// Height of an entry, pixels, which grows with a large font; fields of other kinds beside them have it too.
    static int EntryHeight();

    /// @param entries  must outlive this object
    explicit EtaFields(sailing::EtaEntries& entries, QObject* parent = nullptr);

    // Each makes a control of a field, the edit first, once for each. The caller places it.
    platform::MaskedEdit* MakeEdit(sailing::EtaField field, const char* toolTip);
    QWidget* MakeSpin(sailing::EtaField field, const char* name);
    QWidget* MakeEraser(sailing::EtaField field, const char* toolTip);

    platform::MaskedEdit& Edit(sailing::EtaField field) { return *edits_[static_cast<std::size_t>(field)]; }

    /// Gives all fields their masks, with the decimal separator in force, and resets them.
    void InstallMasks();

    /// Resets all fields; the focus stays.
    void Reset();

    /// Resets a field and gives it the focus.
    void Erase(sailing::EtaField field);

    /// Puts a text into a field as if it had been typed. A field that refuses it takes the focus.
    void Enter(sailing::EtaField field, const QString& text);

private:
    void Reset(sailing::EtaField field);
    bool Leave(sailing::EtaField field);
    bool Step(sailing::EtaField field, bool up);
    void Mirror(sailing::EtaField field);

    sailing::EtaEntries& entries_;
    std::array<platform::MaskedEdit*, sailing::EtaFieldCount> edits_{}; ///< by EtaField
    bool stepping_ = false;                                             ///< a step of a spin button is at work
};

} // namespace merov::app
