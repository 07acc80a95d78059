#pragma once

#include "platform/modal_form.h"

class QComboBox;

namespace merov::platform
{
class Printers;
}

namespace merov::app
{

/// The form in which the user chooses the printer of a report and confirms the print.
class FrmSelectPrint : public platform::ModalForm
{
public:
    /// @param printers  what is listed, and set by choosing; they must outlive this object
    FrmSelectPrint(platform::Printers& printers, QWidget* parent);

    /// Lists the printers anew, shows the form and waits until it has closed. A printer that was chosen
    /// stays the one in use, after a cancel too.
    /// @return true on "Print"
    bool Confirm();

private:
    void LayOut();
    void FillList();

    platform::Printers& printers_;
    QComboBox* cboListPrinters_;
};

} // namespace merov::app
