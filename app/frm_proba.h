#pragma once

#include "platform/modal_form.h"

class QListWidget;

namespace merov::app
{

/// "Choose probability": the probability of the error ellipse and of the circle. It keeps its line from one
/// opening to the next.
class FrmProba : public platform::ModalForm
{
public:
    /// @param probability  set at once by choosing a line, and so by making the form, which chooses the
    ///                     second one; it must outlive this object
    FrmProba(double& probability, QWidget* parent);

    /// Shows the form and waits until it has closed. Return and Escape close it as "OK" does.
    void Open();

private:
    void FillList();
    void LayOut();
    void LineChosen();

    double& probability_;
    QListWidget* lstProba_;
};

} // namespace merov::app
