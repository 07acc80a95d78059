#pragma once

#include "output/sky_dome.h"
#include "platform/modeless_form.h"

namespace merov::app
{

class SkyView;

/// "Graphic display": the sky dome of the star fix wizard. It stands beside the wizard, follows it and can be
/// of any size; Escape closes it.
class FrmSkyDome : public platform::ModelessForm
{
public:
    explicit FrmSkyDome(QWidget* parent);

    /// Takes the sky to show.
    void Show(output::SkySubject sky);

    /// Shows the form, or brings it forward; where it was closed, beside another one on its screen.
    void OpenBeside(const QWidget& form);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    SkyView* view_;
};

} // namespace merov::app
