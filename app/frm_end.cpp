#include "app/frm_end.h"

#include "app/pictures.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>

#include <chrono>

namespace merov::app
{

FrmEnd::FrmEnd(QWidget* parent)
    : ModalForm(QStringLiteral("Quit Merov"), parent),
      reminder_(QStringLiteral("Don't forget to save your datas before quitting.")), tmrQuit_(this),
      cmdYes_(QStringLiteral("&Yes")), cmdNo_(QStringLiteral("&Cancel"))
{
    setObjectName("frmEnd");
    reminder_.setObjectName("lblReminder");
    tmrQuit_.setObjectName("tmrQuit");
    cmdYes_.setObjectName("cmdYes");
    cmdYes_.setToolTip(QStringLiteral("Quit"));
    cmdNo_.setObjectName("cmdNo");
    cmdNo_.setToolTip(QStringLiteral("Back to Merov"));

    auto* const picture = new QLabel;
    constexpr QSize PictureSize(48, 48);
    picture->setPixmap(Picture("exit").pixmap(PictureSize, devicePixelRatioF()));
    auto* const question = new QLabel(QStringLiteral("Do you really want to quit the program ?"));
    question->setObjectName("lblQuestion");
    QFont bold = font();
    bold.setBold(true);
    question->setFont(bold);

    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch();
    buttons->addWidget(&cmdYes_);
    buttons->addWidget(&cmdNo_);
    auto* const layout = new QGridLayout(this);
    layout->setContentsMargins(20, 18, 20, 14);
    layout->setHorizontalSpacing(18);
    layout->setVerticalSpacing(8);
    layout->addWidget(picture, 0, 0, 2, 1, Qt::AlignTop);
    layout->addWidget(question, 0, 1);
    layout->addWidget(&reminder_, 1, 1);
    layout->setRowMinimumHeight(2, 8);
    layout->addLayout(buttons, 3, 0, 1, 2);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    using namespace std::chrono_literals;
    tmrQuit_.setInterval(1000ms);
    connect(&tmrQuit_, &QTimer::timeout, this, [this] { Blink(); });
    connect(&cmdYes_, &QPushButton::clicked, this, [this] { Record(Answer::Yes); });
    connect(&cmdNo_, &QPushButton::clicked, this, [this] { Record(Answer::No); });
}

FrmEnd::Answer FrmEnd::Ask()
{
    red_ = true;
    ColourReminder();
    cmdNo_.setFocus();
    tmrQuit_.start();
    ShowModal();
    tmrQuit_.stop();
    return answer_;
}

void FrmEnd::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Cancel))
        cmdNo_.click();
    else
        ModalForm::keyPressEvent(event);
}

void FrmEnd::Record(Answer answer)
{
    answer_ = answer;
    accept();
}

void FrmEnd::Blink()
{
    red_ = !red_;
    ColourReminder();
}

/// Red, lighter on a dark desktop, or the window's own colour of text, which is black on a light one.
void FrmEnd::ColourReminder()
{
    QPalette colours; // nothing set: those of the window
    const bool dark = palette().color(QPalette::Window).lightness() < 128;
    if (red_) colours.setColor(QPalette::WindowText, dark ? QColor(255, 96, 96) : QColor(Qt::red));
    reminder_.setPalette(colours);
}

} // namespace merov::app
