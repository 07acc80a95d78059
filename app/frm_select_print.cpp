#include "app/frm_select_print.h"

#include "platform/printers.h"
#include "platform/push_button.h"

#include <QComboBox>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace merov::app
{

FrmSelectPrint::FrmSelectPrint(platform::Printers& printers, QWidget* parent)
    : ModalForm(QStringLiteral("Print"), parent), printers_(printers), cboListPrinters_(new QComboBox(this))
{
    setObjectName(QStringLiteral("frmSelectPrint"));
    cboListPrinters_->setObjectName(QStringLiteral("cboListPrinters"));
    connect(cboListPrinters_, &QComboBox::currentTextChanged, this,
            [this](const QString& name) { printers_.SetCurrent(name); });
    LayOut();
}

void FrmSelectPrint::LayOut()
{
    auto* const lblWait = new QLabel(QStringLiteral("Please select a printer && confirm printing:"), this);
    lblWait->setObjectName(QStringLiteral("lblWait"));
    lblWait->setBuddy(cboListPrinters_);
    auto* const cmdOK = new platform::PushButton(QStringLiteral("&Print"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setToolTip(QStringLiteral("Start Printing"));
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    auto* const cmdCancel = new platform::PushButton(QStringLiteral("&Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    cmdCancel->setToolTip(QStringLiteral("Cancel Printing"));
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto* const form = new QVBoxLayout(this);
    form->setContentsMargins(16, 16, 16, 14);
    form->setSpacing(8);
    form->addWidget(lblWait);
    form->addWidget(cboListPrinters_);
    form->addSpacing(8);
    form->addLayout(buttons);
    form->setSizeConstraint(QLayout::SetFixedSize);
    cboListPrinters_->setMinimumWidth(lblWait->fontMetrics().averageCharWidth() * 50);
    setTabOrder(cboListPrinters_, cmdOK);
    setTabOrder(cmdOK, cmdCancel);
}

void FrmSelectPrint::FillList()
{
    const QSignalBlocker filling(cboListPrinters_);
    cboListPrinters_->clear();
    cboListPrinters_->addItems(printers_.Names());
    cboListPrinters_->setCurrentText(printers_.Current());
}

bool FrmSelectPrint::Confirm()
{
    FillList();
    cboListPrinters_->setFocus();
    return ShowModal();
}

} // namespace merov::app
