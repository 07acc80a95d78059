#include "platform/status_panels.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QStackedWidget>

namespace merov::platform
{

/// One sunken panel. Where the window is too narrow for all, its text is cut with an ellipsis.
class StatusPanels::Panel : public QFrame
{
public:
    Panel(StatusPanels& bar, const QString& key, const QString& toolTip, bool givesWay)
        : bar_(bar), tip_(toolTip), givesWay_(givesWay)
    {
        setObjectName(key);
        setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        SetText({});
    }

    const QString& Text() const { return text_; }

    void SetText(const QString& text)
    {
        text_ = text;
        setAccessibleName(tip_.isEmpty() ? text : tip_ + " " + text);
        updateGeometry();
        UpdateToolTip();
        update();
    }

    QSize sizeHint() const override
    {
        return {qCeil(QFontMetricsF(font()).horizontalAdvance(text_)) + Border, Height()};
    }

    QSize minimumSizeHint() const override { return givesWay_ ? QSize(Border, Height()) : sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QFrame::paintEvent(event);
        QPainter painter(this);
        painter.drawText(TextRect(), Qt::AlignVCenter | Qt::AlignLeft, Cut());
    }

    void resizeEvent(QResizeEvent*) override { UpdateToolTip(); }

    void mouseReleaseEvent(QMouseEvent* event) override
    {
        const bool clicked = event->button() == Qt::LeftButton && rect().contains(event->position().toPoint());
        if (clicked && bar_.OnPanelClick) bar_.OnPanelClick(objectName());
    }

    // The release arrives only where the press was taken.
    void mousePressEvent(QMouseEvent*) override {}

private:
    static constexpr int Border = 6; // pixels, left and right together

    int Height() const { return fontMetrics().height() + 4; }
    QRect TextRect() const { return rect().adjusted(Border / 2, 0, -Border / 2, 0); }
    QString Cut() const { return fontMetrics().elidedText(text_, Qt::ElideRight, TextRect().width()); }

    void UpdateToolTip()
    {
        const bool cut = Cut() != text_;
        setToolTip(!cut ? tip_ : tip_.isEmpty() ? text_ : tip_ + "\n" + text_);
    }

    StatusPanels& bar_;
    QString tip_;
    bool givesWay_;
    QString text_;
};

StatusPanels::StatusPanels(QWidget* parent)
    : QStatusBar(parent), styles_(new QStackedWidget), simple_(new QLabel), panels_(new QWidget)
{
    auto* row = new QHBoxLayout(panels_);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(1);
    simple_->setTextFormat(Qt::PlainText);
    // A long text must not widen the window.
    styles_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    styles_->addWidget(simple_);
    styles_->addWidget(panels_);
    addWidget(styles_, 1);
}

void StatusPanels::AddPanel(const QString& key, const QString& toolTip, bool givesWay)
{
    panels_->layout()->addWidget(new Panel(*this, key, toolTip, givesWay));
}

StatusPanels::Panel* StatusPanels::Find(const QString& key) const
{
    return static_cast<Panel*>(panels_->findChild<QFrame*>(key, Qt::FindDirectChildrenOnly));
}

QString StatusPanels::PanelText(const QString& key) const
{
    const Panel* panel = Find(key);
    return panel != nullptr ? panel->Text() : QString();
}

void StatusPanels::SetPanelText(const QString& key, const QString& text)
{
    Panel* panel = Find(key);
    if (panel != nullptr) panel->SetText(text);
}

void StatusPanels::ShowSimple(const QString& text)
{
    simple_->setText(text);
    styles_->setCurrentWidget(simple_);
}

void StatusPanels::ShowPanels()
{
    styles_->setCurrentWidget(panels_);
}

bool StatusPanels::ShowsPanels() const
{
    return styles_->currentWidget() == panels_;
}

} // namespace merov::platform
