#include "app/wizard_list.h"

#include "app/entry_frame.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

namespace merov::app
{
namespace
{

constexpr int LineGap = 5; // pixels

/// Lines that are marked by a click anywhere on them.
class MarkedLines : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, LineGap);
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        // The box of a mark is outlined in a darker tone of this colour, which is lost on a dark ground.
        const bool isDark = option->palette.color(QPalette::Base).lightness() < 128;
        if (isDark) option->palette.setColor(QPalette::Window, option->palette.color(QPalette::Text));
    }

    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem&,
                     const QModelIndex& index) override
    {
        const bool isClick =
            event->type() == QEvent::MouseButtonRelease && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
        const bool isSpace =
            event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space;
        if (!isClick && !isSpace) return false;
        const bool isMarked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        return model->setData(index, isMarked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    }
};

} // namespace

WizardList::WizardList(planning::StarPlan& plan) : plan_(plan), what_(MakeText({})), list_(new QListWidget)
{
    what_->setObjectName(QStringLiteral("lblStep(2)"));
    what_->setBuddy(list_);
    list_->setObjectName(QStringLiteral("lstStars"));
    list_->setToolTip(QStringLiteral("Altitudes are sextant alt."));
    list_->setItemDelegate(new MarkedLines(list_));
    list_->setUniformItemSizes(true);
    connect(list_, &QListWidget::itemChanged, this, [this](const QListWidgetItem* line) {
        if (showing_) return;
        plan_.List().Rows()[static_cast<std::size_t>(list_->row(line))].Picked = line->checkState() == Qt::Checked;
        if (OnMark) OnMark();
    });
    auto* page = new QVBoxLayout(this);
    page->setSpacing(EntryFrame::FrameSpacing);
    page->addWidget(what_);
    page->addWidget(list_, 1);
}

void WizardList::ShowBodies()
{
    const QScopedValueRollback<bool> showing(showing_, true);
    what_->setText(QString::fromStdString(plan_.ListCaption()));
    list_->setAccessibleName(what_->text());
    list_->clear();
    for (const planning::ListedBody& body : plan_.List().Rows()) {
        auto* line = new QListWidgetItem(QString::fromStdString(planning::ListLine(body)), list_);
        line->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        line->setCheckState(body.Picked ? Qt::Checked : Qt::Unchecked);
    }
    list_->setCurrentRow(0);
    list_->scrollToTop();
}

void WizardList::TakeFocus()
{
    list_->setFocus();
}

} // namespace merov::app
