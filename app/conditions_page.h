#pragma once

#include "app/fix_input.h"

#include <QWidget>

#include <functional>

class QCheckBox;

namespace merov::platform
{
class MaskedEdit;
}

namespace merov::app
{

class EntryFieldsView;
class EntryFrame;

/// The page "Obs. conditions" of the input: height of eye, sextant, and the weather that bends the rays.
class ConditionsPage : public QWidget
{
public:
    /// Both must outlive this object.
    ConditionsPage(FixInput& input, EntryFieldsView& fields);

    /// Shows the check box of the entries.
    void ShowEntries();

    /// Gives the height of eye the focus.
    void TakeFocus();

    std::function<void()> OnNext;     ///< cmdNextTabIn(1)
    std::function<void()> OnPrevious; ///< cmdPrevTabIn(0)
    std::function<void()> OnCancel;   ///< cmdCancel(1)

private:
    EntryFrame* MakeObserver();
    EntryFrame* MakeSextant();
    EntryFrame* MakeWeather();
    QWidget* MakeWayButtons();

    /// @param spokenName  what a screen reader calls a field that no label leads to; empty where one does
    platform::MaskedEdit* MakeEdit(fix::EntryField field, const QString& spokenName = {});
    platform::MaskedEdit* MakeWideEdit(fix::EntryField field, const QString& spokenName = {});

    /// One of two fields of a value, with its spin button.
    struct Spun {
        fix::EntryField Field;
        const char* Spin; ///< control name of the spin button
        const char* Unit; ///< as it stands behind the field
    };
    void AddWeather(EntryFrame& frame, const char* label, const Spun& first, const Spun& twin);

    FixInput& input_;
    EntryFieldsView& fields_;
    QCheckBox* findSystErr_ = nullptr;
};

} // namespace merov::app
