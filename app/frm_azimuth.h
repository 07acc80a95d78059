#pragma once

#include "planning/compass_entry.h"
#include "platform/modeless_form.h"

#include <QPointer>

#include <array>
#include <functional>

class QComboBox;
class QHBoxLayout;
class QRadioButton;

namespace merov::platform
{
class PictureButton;
class TimePicker;
} // namespace merov::platform

namespace merov::app
{

class AzimuthSheet;
class EntryFrame;
class FrmStarFixWizard;
class MirroredEdit;

/// "Compute the azimuth": checks the compasses against a heavenly body.
class FrmAzimuth : public platform::ModelessForm
{
public:
    /// @param parent  the window that the form, and its table of stars, stand beside
    explicit FrmAzimuth(QWidget* parent);
    ~FrmAzimuth() override;

    /// Shows the form, with what was entered since it was last erased. The first time, and after "End", it
    /// starts afresh: all erased, the present hour of GMT as the time.
    void Open();

    /// cmdCompute: shows bearing, errors and deviation. A fault shows its box and changes nothing.
    void Compute();

    /// cmdErase: the first body, the present hour of GMT, no entry and no result. The sign of the variation
    /// stays.
    void EraseAll();

    /// cmdWhatIsUp: shows the table of the stars above the horizon at the time and the position of the form,
    /// in place of the one that it may have shown before.
    void WhatIsUp();

    /// cmdEnd: erases all, closes the table of stars and hides the form.
    void End();

    std::function<void()> OnClosed;      ///< the form has closed, by whatever way
    std::function<void()> OnHelp;        ///< "Help" of its table of stars
    std::function<void()> OnCaptureTime; ///< F5 in its table of stars

protected:
    /// Closes the table of stars; what is entered stays.
    void CloseByFrame() override;

private:
    MirroredEdit* MakeEdit(planning::CompassField field, const char* toolTip, int figures);
    EntryFrame* MakeBody();
    EntryFrame* MakePosition();
    AzimuthSheet* MakeSheet();
    QHBoxLayout* MakeFoot();
    void OrderTabs();
    void CloseWizard();

    MirroredEdit& Edit(planning::CompassField field) { return *edits_[static_cast<std::size_t>(field)]; }

    planning::CompassEntry entry_;
    std::array<MirroredEdit*, planning::CompassFieldCount> edits_{}; ///< by CompassField
    std::array<platform::PictureButton*, 2> erasers_{};              ///< cmdEraseObsPos
    std::array<QRadioButton*, 2> eastWest_{};                        ///< optEW
    QComboBox* body_ = nullptr;                                      ///< cboBody
    platform::TimePicker* time_ = nullptr;                           ///< dtpTime
    AzimuthSheet* sheet_ = nullptr;
    QPointer<FrmStarFixWizard> wizard_;
    bool startsAfresh_ = true; ///< at the next Open
};

} // namespace merov::app
