#pragma once

#include "planning/star_plan.h"
#include "platform/modeless_form.h"

#include <array>
#include <functional>

class QStackedWidget;

namespace merov::platform
{
class PictureButton;
class PushButton;
} // namespace merov::platform

namespace merov::app
{

class FrmSkyDome;
class WizardEntries;
class WizardList;
class WizardTable;
class WizardTimes;

/// The star fix wizard, and the table "What is up?", which is the same form.
class FrmStarFixWizard : public platform::ModelessForm
{
public:
    explicit FrmStarFixWizard(QWidget* parent);
    ~FrmStarFixWizard() override;

    /// Starts a plan at its first step, all entries erased.
    void OpenFromMain();

    /// Shows the bodies above the horizon of a place at a moment.
    /// @param instant  date-time, GMT
    void OpenFromAzi(double instant, double lat, double lon);

    // Each ending runs one of the first two, once, when the form is hidden.
    std::function<void()> OnClosed;      ///< ended by "End" or by its frame
    std::function<void()> OnCancelled;   ///< ended by "Cancel"
    std::function<void()> OnHelp;        ///< "Help": the manual at the wizard's page
    std::function<void()> OnCaptureTime; ///< F5: the time capture

protected:
    void CloseByFrame() override;
    bool event(QEvent* event) override;

private:
    /// The buttons at the foot, by the index of cmdNav.
    enum Nav : std::size_t { Help, Cancel, Back, Next, End, NavCount };

    void LayOut();
    QWidget* MakeButtons();
    void Press(Nav button);
    void GoToStep(int target);
    void ShowStep();
    void ShowSky(bool open);
    void CaptureTime();
    void Stop();

    planning::StarPlan plan_;
    WizardEntries* entries_;
    WizardTimes* times_;
    WizardList* list_;
    WizardTable* table_;
    QStackedWidget* steps_; ///< fraStep(0..3)
    std::array<platform::PushButton*, NavCount> nav_{};
    platform::PictureButton* starsGraph_ = nullptr;
    FrmSkyDome* sky_;
};

} // namespace merov::app
