#include "app/frm_wait.h"

#include "app/picture_box.h"

#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>

namespace merov::app
{
namespace
{

constexpr int Steps = 18;       ///< of the bar
constexpr int PictureSize = 40; // pixels

} // namespace

FrmWait::FrmWait(std::chrono::milliseconds tick, QWidget* parent)
    : ModalForm(QStringLiteral(" Print job in progress"), parent), tmrWait_(this), prgWait_(new QProgressBar(this))
{
    setObjectName(QStringLiteral("frmWait"));
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    prgWait_->setObjectName(QStringLiteral("prgWait"));
    prgWait_->setAccessibleName(QStringLiteral("Print job in progress"));
    prgWait_->setRange(0, Steps);
    prgWait_->setTextVisible(false);
    tmrWait_.setObjectName(QStringLiteral("tmrWait"));
    tmrWait_.setInterval(tick);
    connect(&tmrWait_, &QTimer::timeout, this, [this] { Tick(); });
    LayOut();
}

void FrmWait::LayOut()
{
    auto* const imgWait = new PictureBox("print", QStringLiteral("imgWait"), this);
    imgWait->setFixedSize(PictureSize, PictureSize);
    auto* const lblWait = new QLabel(QStringLiteral("       Please wait ...      Send datas to the printer."), this);
    lblWait->setObjectName(QStringLiteral("lblWait"));
    // Two lines: the second sentence fills the width.
    lblWait->setWordWrap(true);
    lblWait->setFixedWidth(lblWait->fontMetrics().horizontalAdvance(QStringLiteral("Send datas to the printer. ")));
    auto* const form = new QGridLayout(this);
    form->setContentsMargins(20, 18, 20, 20);
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(14);
    form->addWidget(imgWait, 0, 0);
    form->addWidget(lblWait, 0, 1);
    form->setColumnStretch(1, 1);
    form->addWidget(prgWait_, 1, 0, 1, 2);
    form->setSizeConstraint(QLayout::SetFixedSize);
}

void FrmWait::Open()
{
    prgWait_->setValue(prgWait_->minimum());
    tmrWait_.start();
    raise();
    ShowModal();
}

void FrmWait::Tick()
{
    if (prgWait_->value() < prgWait_->maximum()) {
        prgWait_->setValue(prgWait_->value() + 1);
        return;
    }
    tmrWait_.stop();
    accept();
}

} // namespace merov::app
