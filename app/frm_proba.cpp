#include "app/frm_proba.h"

#include "numeric/inout_lib.h"
#include "platform/push_button.h"

#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

namespace merov::app
{

FrmProba::FrmProba(double& probability, QWidget* parent)
    : ModalForm(QStringLiteral("Choose probability"), parent), probability_(probability),
      lstProba_(new QListWidget(this))
{
    setObjectName(QStringLiteral("frmProba"));
    lstProba_->setObjectName(QStringLiteral("lstProba"));
    connect(lstProba_, &QListWidget::currentRowChanged, this, [this] { LineChosen(); });
    FillList();
    LayOut();
    lstProba_->setCurrentRow(1);
}

/// "0.5" and the others; each line carries its thousandths.
void FrmProba::FillList()
{
    const QString start = QLatin1Char('0') + QString::fromStdString(numeric::DecimalSeparator());
    for (const auto& [digits, thousandths] : {std::pair("5", 500), {"95", 950}, {"99", 990}, {"999", 999}}) {
        auto* const line = new QListWidgetItem(start + QLatin1String(digits), lstProba_);
        line->setData(Qt::UserRole, thousandths);
    }
}

void FrmProba::LayOut()
{
    auto* const lblProba = new QLabel(
        QStringLiteral("Enter the probability of the error ellipse and of the circle of equivalent probability."),
        this);
    lblProba->setObjectName(QStringLiteral("lblProba"));
    lblProba->setWordWrap(true);
    lblProba->setBuddy(lstProba_);
    lblProba->setFixedWidth(lblProba->fontMetrics().averageCharWidth() * 42);
    auto* const cmdOK = new platform::PushButton(QStringLiteral("&OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);

    const int frame = 2 * lstProba_->frameWidth();
    lstProba_->setFixedHeight(lstProba_->sizeHintForRow(0) * lstProba_->count() + frame);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    auto* const form = new QVBoxLayout(this);
    form->setContentsMargins(16, 16, 16, 14);
    form->setSpacing(12);
    form->addWidget(lblProba);
    form->addWidget(lstProba_);
    form->addLayout(buttons);
    form->setSizeConstraint(QLayout::SetFixedSize);
    setTabOrder(lstProba_, cmdOK);
}

void FrmProba::LineChosen()
{
    if (const QListWidgetItem* line = lstProba_->currentItem())
        probability_ = line->data(Qt::UserRole).toInt() / 1000.0;
}

void FrmProba::Open()
{
    lstProba_->setFocus();
    ShowModal();
}

} // namespace merov::app
