#include "app/frm_sky_dome.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace merov::app
{
namespace
{

constexpr QSize OpeningSize(560, 580); // pixels
constexpr int Beside = 12;

} // namespace

/// Paints the dome, and tells of the body under the pointer.
class SkyView : public QWidget
{
public:
    SkyView()
    {
        setObjectName(QStringLiteral("picSkyDome"));
        setAccessibleName(QStringLiteral("Sky dome"));
        setAttribute(Qt::WA_OpaquePaintEvent);
        setMinimumSize(320, 340);
    }

    void Show(output::SkySubject sky)
    {
        sky_ = std::move(sky);
        QStringList picked;
        for (const planning::ListedBody& body : sky_.Bodies)
            if (body.Picked && body.Altitude >= 0.0) picked += LineOf(body);
        setAccessibleDescription(picked.join(QStringLiteral("; ")));
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        output::DrawSky(painter, size(), sky_, palette());
    }

    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::ToolTip) return QWidget::event(event);
        const auto* help = static_cast<QHelpEvent*>(event);
        const output::SkyDome dome = output::LayOutSky(sky_, size(), output::MeasureOf(font(), this));
        const output::DomeBody* body = dome.BodyAt(help->pos());
        QToolTip::showText(help->globalPos(), body != nullptr ? LineOf(sky_.Bodies[body->Index]) : QString(), this);
        return true;
    }

private:
    static QString LineOf(const planning::ListedBody& body) { return QString::fromStdString(planning::ListLine(body)); }

    output::SkySubject sky_;
};

FrmSkyDome::FrmSkyDome(QWidget* parent) : ModelessForm(QStringLiteral("Graphic display"), parent), view_(new SkyView)
{
    setObjectName(QStringLiteral("frmSkyDome"));
    auto* form = new QVBoxLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->addWidget(view_);
    resize(OpeningSize);
}

void FrmSkyDome::Show(output::SkySubject sky)
{
    view_->Show(std::move(sky));
}

void FrmSkyDome::OpenBeside(const QWidget& form)
{
    if (!isVisible()) {
        const QRect screen = form.screen()->availableGeometry();
        const QRect beside = form.frameGeometry();
        int left = beside.right() + Beside;
        if (left + width() > screen.right()) left = beside.left() - Beside - width();
        if (left < screen.left()) left = screen.right() - width();
        move(std::max(left, screen.left()),
             std::clamp(beside.top(), screen.top(), std::max(screen.top(), screen.bottom() - height())));
    }
    ShowForward();
}

void FrmSkyDome::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        ModelessForm::keyPressEvent(event);
}

} // namespace merov::app
