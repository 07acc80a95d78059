#include "app/ellipsoid_frame.h"

#include "sailing/ellipsoid.h"

#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace merov::app
{

EllipsoidFrame::EllipsoidFrame(const QString& name, int firstLabel) : QGroupBox(QStringLiteral(" Reference ellipsoid "))
{
    setObjectName(name);
    auto* rows = new QVBoxLayout(this);
    const char* texts[] = {"You are currently using", "", "as reference ellipsoid for all the computations."};
    QLabel* labels[3];
    for (int i = 0; i < 3; ++i) {
        labels[i] = new QLabel(texts[i]);
        labels[i]->setObjectName(QStringLiteral("lblChoosenEllipsoid(%1)").arg(firstLabel + i));
        labels[i]->setTextFormat(Qt::PlainText);
        labels[i]->setAlignment(Qt::AlignCenter);
        labels[i]->setWordWrap(true);
        rows->addWidget(labels[i]);
    }
    name_ = labels[1];
    QFont bold = name_->font();
    bold.setBold(true);
    name_->setFont(bold);
    name_->setToolTip(QStringLiteral("2x click to change ellipsoid"));
    name_->setCursor(Qt::PointingHandCursor);
    name_->installEventFilter(this);
    ShowName();
}

void EllipsoidFrame::ShowName()
{
    name_->setText(QString::fromStdString(sailing::EllipsoidName(sailing::ActiveEllipsoidIndex())));
}

bool EllipsoidFrame::eventFilter(QObject* label, QEvent* event)
{
    if (label != name_ || event->type() != QEvent::MouseButtonDblClick) return QGroupBox::eventFilter(label, event);
    if (command_ != nullptr && *command_) (*command_)();
    return true;
}

} // namespace merov::app
