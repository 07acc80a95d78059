#pragma once

#include "platform/modal_form.h"
#include "platform/printers.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QRadioButton;

namespace merov::platform
{

class PushButton;

/// The dialog in which the user sets the printer, the paper and its orientation.
class PrintSetup : public ModalForm
{
public:
    /// @param printers  what is shown, and set by "OK". They must outlive the dialog
    PrintSetup(Printers& printers, QWidget* parent);

    /// Shows what is set now and waits. @return true on "OK"
    bool Ask();

    /// A printer was chosen: lists the papers it takes. The chosen paper stays where the printer takes
    /// it; else the one in use, "A4" or the first is chosen.
    void PrinterChosen();

private:
    void BuildControls();
    void ArrangeControls();
    QGroupBox* PaperFrame();
    void ShowSettings();
    void ListPapers(const QString& printer, const QPageSize& chosen);
    void Apply();

    Printers& printers_;
    QList<QPageSize> papers_; ///< those in the list, in its order
    QLabel* lblPrinter_;
    QComboBox* cboPrinters_;
    QLabel* lblPaper_;
    QComboBox* cboPaper_;
    QRadioButton* optPortrait_;
    QRadioButton* optLandscape_;
    PushButton* cmdOK_;
    PushButton* cmdCancel_;
};

} // namespace merov::platform
