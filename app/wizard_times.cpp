#include "app/wizard_times.h"

#include "app/entry_frame.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QRadioButton>

namespace merov::app
{
namespace
{

constexpr std::array<const char*, 9> Labels = {
    "Time to start morning observations :",
    "Time to end morning observations :",
    "Time of visible sunrise :",
    "Time of theoretical sunrise :",
    "Time of upper meridian passage of the Sun :",
    "Time of theoretical sunset :",
    "Time of visible sunset :",
    "Time to start evening observations :",
    "Time to end evening observations :",
};

constexpr std::array<const char*, 2> Choices = {"Sunrise", "Sunset"};

} // namespace

WizardTimes::WizardTimes(planning::StarPlan& plan) : plan_(plan)
{
    for (std::size_t i = 0; i < choices_.size(); ++i) {
        choices_[i] = new QRadioButton(QString::fromLatin1(Choices[i]));
        choices_[i]->setObjectName(QStringLiteral("optTime(%1)").arg(i));
        connect(choices_[i], &QRadioButton::toggled, this, [this] { plan_.Morning = choices_[0]->isChecked(); });
    }
    choices_[0]->setChecked(true);
    LayOut();
}

void WizardTimes::LayOut()
{
    auto* what = MakeText(QStringLiteral("Choose the time of observation :"));
    what->setObjectName(QStringLiteral("lblStep(1)"));
    auto* choice = new QHBoxLayout;
    choice->setSpacing(2 * EntryFrame::FrameSpacing);
    choice->addWidget(what);
    for (QRadioButton* button : choices_)
        choice->addWidget(button);
    choice->addStretch();

    auto* frame = new EntryFrame(QStringLiteral("fraWizardTimes"), {});
    for (std::size_t i = 0; i < times_.size(); ++i) {
        times_[i] = MakeText({});
        times_[i]->setObjectName(QStringLiteral("lblTimes(%1)").arg(i));
        times_[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        times_[i]->setMinimumWidth(times_[i]->fontMetrics().horizontalAdvance(QStringLiteral("28 Mmmm 2028 20:28")));
        frame->AddRow(QString::fromLatin1(Labels[i]), {times_[i], MakeText(QStringLiteral("GMT"))})->setBuddy(nullptr);
    }
    auto* page = new QVBoxLayout(this);
    page->setSpacing(EntryFrame::FrameSpacing);
    page->addLayout(choice);
    page->addWidget(frame);
    page->addStretch();
}

void WizardTimes::ShowTimes()
{
    for (std::size_t i = 0; i < times_.size(); ++i) {
        times_[i]->setText(QString::fromStdString(plan_.EventText(static_cast<int>(i))));
        times_[i]->setAccessibleName(QString::fromLatin1(Labels[i]) + u' ' + times_[i]->text() + " GMT");
    }
}

void WizardTimes::TakeFocus()
{
    choices_[plan_.Morning ? 0 : 1]->setFocus();
}

} // namespace merov::app
