#include "platform/print_setup.h"

#include "platform/push_button.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace merov::platform
{
namespace
{

constexpr int ListWidth = 36; // characters of the longer names

/// A list as wide as names usually are; longer ones are cut in the list and whole when it drops down.
QComboBox* MakeList(const QString& name, QLabel& label, QWidget* parent)
{
    auto* list = new QComboBox(parent);
    list->setObjectName(name);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(ListWidth);
    label.setBuddy(list);
    return list;
}

} // namespace

PrintSetup::PrintSetup(Printers& printers, QWidget* parent)
    : ModalForm(QStringLiteral("Print Setup"), parent), printers_(printers)
{
    setObjectName(QStringLiteral("dlgCommonDialog"));
    BuildControls();
    ArrangeControls();
    connect(cboPrinters_, &QComboBox::currentIndexChanged, this, [this] { PrinterChosen(); });
    connect(cmdOK_, &QPushButton::clicked, this, [this] { accept(); });
    connect(cmdCancel_, &QPushButton::clicked, this, [this] { reject(); });
    ShowSettings();
}

bool PrintSetup::Ask()
{
    ShowSettings();
    if (!ShowModal()) return false;
    Apply();
    return true;
}

void PrintSetup::PrinterChosen()
{
    ListPapers(cboPrinters_->currentText(), papers_.value(cboPaper_->currentIndex()));
}

void PrintSetup::BuildControls()
{
    lblPrinter_ = new QLabel(QStringLiteral("P&rinter:"), this);
    cboPrinters_ = MakeList(QStringLiteral("cboPrinters"), *lblPrinter_, this);
    lblPaper_ = new QLabel(QStringLiteral("&Size:"), this);
    cboPaper_ = MakeList(QStringLiteral("cboPaper"), *lblPaper_, this);
    optPortrait_ = new QRadioButton(QStringLiteral("&Portrait"), this);
    optPortrait_->setObjectName(QStringLiteral("optPortrait"));
    optLandscape_ = new QRadioButton(QStringLiteral("&Landscape"), this);
    optLandscape_->setObjectName(QStringLiteral("optLandscape"));
    cmdOK_ = new PushButton(QStringLiteral("&OK"), this);
    cmdOK_->setObjectName(QStringLiteral("cmdOK"));
    cmdOK_->setDefault(true);
    cmdCancel_ = new PushButton(QStringLiteral("&Cancel"), this);
    cmdCancel_->setObjectName(QStringLiteral("cmdCancel"));
}

QGroupBox* PrintSetup::PaperFrame()
{
    auto* frame = new QGroupBox(QStringLiteral(" Paper "), this);
    auto* rows = new QGridLayout(frame);
    rows->addWidget(lblPaper_, 0, 0);
    rows->addWidget(cboPaper_, 0, 1, 1, 3);
    rows->addWidget(optPortrait_, 1, 1);
    rows->addWidget(optLandscape_, 1, 2);
    rows->setColumnStretch(3, 1);
    return frame;
}

void PrintSetup::ArrangeControls()
{
    auto* printer = new QGroupBox(QStringLiteral(" Printer "), this);
    auto* printerRow = new QHBoxLayout(printer);
    printerRow->addWidget(lblPrinter_);
    printerRow->addWidget(cboPrinters_, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK_);
    buttons->addWidget(cmdCancel_);

    auto* form = new QVBoxLayout(this);
    form->setSizeConstraint(QLayout::SetFixedSize);
    form->setSpacing(12);
    form->addWidget(printer);
    QGroupBox* paper = PaperFrame();
    form->addWidget(paper);
    form->addLayout(buttons);

    // Both labels take the width of the wider, so that the lists stand below each other.
    const int width = std::max(lblPrinter_->sizeHint().width(), lblPaper_->sizeHint().width());
    lblPrinter_->setFixedWidth(width);
    lblPaper_->setFixedWidth(width);

    QWidget* order[] = {cboPrinters_, cboPaper_, optPortrait_, optLandscape_, cmdOK_, cmdCancel_};
    for (std::size_t i = 1; i < std::size(order); i++)
        setTabOrder(order[i - 1], order[i]);
}

void PrintSetup::ShowSettings()
{
    const QStringList names = printers_.Names();
    const QString current = printers_.Current();
    {
        const QSignalBlocker blocked(cboPrinters_);
        cboPrinters_->clear();
        cboPrinters_->addItems(names.isEmpty() ? QStringList("No printer connected to your system") : names);
        cboPrinters_->setCurrentIndex(static_cast<int>(std::max<qsizetype>(names.indexOf(current), 0)));
        cboPrinters_->setEnabled(!names.isEmpty());
        lblPrinter_->setEnabled(!names.isEmpty());
    }
    const QPageLayout layout = printers_.Layout();
    ListPapers(current, layout.pageSize());
    const bool portrait = layout.orientation() == QPageLayout::Portrait;
    (portrait ? optPortrait_ : optLandscape_)->setChecked(true);
    (names.isEmpty() ? cboPaper_ : cboPrinters_)->setFocus();
}

void PrintSetup::ListPapers(const QString& printer, const QPageSize& chosen)
{
    papers_ = printers_.Papers(printer);
    cboPaper_->clear();
    for (const QPageSize& paper : papers_)
        cboPaper_->addItem(paper.name());
    for (const QPageSize& wanted : {chosen, printers_.Layout().pageSize(), QPageSize(QPageSize::A4)}) {
        const auto same = [&wanted](const QPageSize& paper) { return paper.isEquivalentTo(wanted); };
        const auto found = std::find_if(papers_.cbegin(), papers_.cend(), same);
        if (found == papers_.cend()) continue;
        cboPaper_->setCurrentIndex(static_cast<int>(found - papers_.cbegin()));
        return;
    }
}

void PrintSetup::Apply()
{
    if (cboPrinters_->isEnabled()) printers_.SetCurrent(cboPrinters_->currentText());
    QPageLayout layout = printers_.Layout();
    layout.setPageSize(papers_[cboPaper_->currentIndex()]);
    layout.setOrientation(optPortrait_->isChecked() ? QPageLayout::Portrait : QPageLayout::Landscape);
    printers_.SetLayout(layout);
}

} // namespace merov::platform
