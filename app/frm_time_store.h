#pragma once

#include "platform/field.h"
#include "platform/modal_form.h"
#include "platform/push_button.h"
#include "platform/spin_button.h"

#include <QLineEdit>

#include <optional>

class QGridLayout;
class QLabel;

namespace merov::app
{

/// "Store current time": keeps the GMT of this moment, less the seconds that it took to reach the
/// computer, for the next edit of a time cell.
class FrmTimeStore : public platform::ModalForm
{
public:
    /// @param storedTime  takes the corrected time on "OK"; it must outlive this object
    FrmTimeStore(double& storedTime, QWidget* parent);

    /// Shows the form with the present moment and waits until it has closed. The correction of the last
    /// capture stands again, unless the close box ended it.
    void Open();

protected:
    /// Return presses "OK", wherever the focus is.
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLabel* MakeLabel(const QString& text);
    QLineEdit* MakeTimeField(const char* name);
    void LayOut();
    std::optional<double> Seconds() const;
    void ShowCorrectedTime();
    bool LeaveCorrection();
    bool RefuseCorrection(const std::vector<std::string>& reason);
    void StepCorrection(int seconds);
    void Store();

    double& storedTime_;
    int labels_ = 0; ///< made so far
    QLineEdit* gmt_;
    platform::Field<QLineEdit>* correction_;
    platform::SpinButton* spin_;
    QLineEdit* correctedGmt_;
    platform::PushButton* ok_;
};

} // namespace merov::app
