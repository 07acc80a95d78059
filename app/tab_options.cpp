#include "app/tab_options.h"

#include "app/page_buttons.h"
#include "app/time_page.h"
#include "platform/field.h"
#include "platform/twips.h"
#include "sailing/ellipsoid.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSignalBlocker>

#include <utility>

namespace merov::app
{
namespace
{

constexpr double SurfaceWidth = 9300.0; // twips
constexpr double SurfaceHeight = 5850.0;
constexpr int TextMargin = 15; // pixels
constexpr int ParagraphGap = 14;

QLabel* MakeParagraph(const QString& name, const QString& text)
{
    auto* label = new QLabel(text);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

/// A page of controls with its buttons at the foot.
QWidget* MakePage(QLayout* controls, QWidget* buttons)
{
    auto* page = new QWidget;
    auto* rows = new QVBoxLayout(page);
    controls->setContentsMargins(TextMargin, TextMargin, TextMargin, TextMargin);
    rows->addLayout(controls);
    rows->addStretch();
    rows->addWidget(buttons);
    return page;
}

} // namespace

TabOptions::TabOptions(FixInput& input, platform::ClockSetter setClock, QWidget* parent)
    : platform::TabStrip(parent), input_(input), next_([this] { NextTab(); }), previous_([this] { PrevTab(); })
{
    setObjectName("tabOptions");
    setAutoFillBackground(true);
    AddPages(std::move(setClock));
    OnGotFocus = [this] { PageReached(); };
    OnLostFocus = [this] { PageLeft(); };
    OnClick = [this] {
        if (!TimeInView()) time_->StopDisplay();
        PageReached();
    };
    setFixedSize(QSize(platform::Pixels(SurfaceWidth), platform::Pixels(SurfaceHeight)).expandedTo(sizeHint()));
    ShowOneEstPos();
}

void TabOptions::AddPages(platform::ClockSetter setClock)
{
    auto* buttons = new ButtonRow;
    buttons->Add("cmdNextTabOptions(0)", "&Next tab", next_);
    buttons->Add("cmdEndTabOptions(0)", "En&d", OnEnd);
    addTab(MakePage(MakeEllipsoidChoice(), buttons), "&Ellipsoid");

    buttons = new ButtonRow;
    buttons->Add("cmdPrevTabOptions(0)", "&Previous tab", previous_);
    buttons->Add("cmdNextTabOptions(1)", "&Next tab", next_);
    buttons->Add("cmdEndTabOptions(1)", "En&d", OnEnd);
    addTab(MakePage(MakeInterceptChoice(), buttons), "&Intercepts");

    buttons = new ButtonRow;
    buttons->Add("cmdPrevTabOptions(1)", "&Previous tab", previous_);
    buttons->Add("cmdEndTabOptions(2)", "En&d", OnEnd);
    time_ = new TimePage(std::move(setClock), buttons);
    addTab(time_, "&Time");
}

QLayout* TabOptions::MakeEllipsoidChoice()
{
    cboEllipsoid_ = new platform::Field<QComboBox>;
    cboEllipsoid_->setObjectName("cboEllipsoid");
    cboEllipsoid_->setToolTip("Enter the earth model used for calculations");
    cboEllipsoid_->setMaxVisibleItems(sailing::EllipsoidCount);
    cboEllipsoid_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    connect(cboEllipsoid_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index < 0) return;
        sailing::SelectEllipsoid(index);
        if (OnEllipsoid) OnEllipsoid();
    });
    QLabel* name = MakeParagraph("lblFlatCoef", "Reference ellipsoid - Earth flattening coefficient");
    name->setBuddy(cboEllipsoid_);

    auto* rows = new QVBoxLayout;
    rows->addWidget(MakeParagraph("lblEllipsoid", "Enter the reference ellipsoid used for all the computations."));
    rows->addSpacing(ParagraphGap);
    rows->addWidget(name);
    rows->addWidget(cboEllipsoid_, 0, Qt::AlignLeft);
    return rows;
}

QLayout* TabOptions::MakeInterceptChoice()
{
    const QString texts[] = {
        "For comparison with manual calculations, choose if the program will compute all intercepts with one "
        "estimated position (round of sight, usually for a star fix), or if it will reckon new estimated positions "
        "for each observation (running fix, for all other cases, e.g. noon position).",
        "In case of a sole estimated position, it will be the estimated position at the time of the true position "
        "(or MPP - Most Probable Position).",
        "This choice has only an effect on the value of the azimuths and intercepts. The true position (MPP) is NOT "
        "affected because it is calculated by a completely different algorithm."};
    auto* rows = new QVBoxLayout;
    rows->setSpacing(ParagraphGap);
    int index = 0;
    for (const QString& text : texts)
        rows->addWidget(MakeParagraph(QString("lblIntercept(%1)").arg(index++), text));

    ch3OneEstPos_ = new platform::Field<QCheckBox>("Compute all intercepts with one estimated position.");
    ch3OneEstPos_->setObjectName("ch3OneEstPos(0)");
    connect(ch3OneEstPos_, &QCheckBox::clicked, this, [this](bool checked) {
        input_.Entry.OneEstPos = checked;
        if (OnOneEstPos) OnOneEstPos(checked);
    });
    rows->addWidget(ch3OneEstPos_);
    return rows;
}

void TabOptions::FillEllipsoids()
{
    {
        const QSignalBlocker filling(cboEllipsoid_);
        cboEllipsoid_->clear();
        for (int index = 0; index < sailing::EllipsoidCount; ++index)
            cboEllipsoid_->addItem(QString::fromStdString(sailing::EllipsoidText(index)),
                                   sailing::EllipsoidCode(index));
        cboEllipsoid_->setCurrentIndex(-1);
    }
    cboEllipsoid_->setCurrentIndex(sailing::DefaultEllipsoidIndex);
}

void TabOptions::NextTab()
{
    if (currentIndex() + 1 < count()) ShowPage(currentIndex() + 1);
    PageReached();
}

void TabOptions::PrevTab()
{
    if (currentIndex() > 0) ShowPage(currentIndex() - 1);
    PageReached();
}

bool TabOptions::TimeInView() const
{
    return currentWidget() == time_;
}

void TabOptions::PageReached()
{
    if (TimeInView()) time_->StartDisplay();
}

/// The headers lose the focus: the display stands still while a field is being edited.
void TabOptions::PageLeft()
{
    if (TimeInView()) time_->StopDisplay();
}

void TabOptions::ShowOneEstPos()
{
    ch3OneEstPos_->setChecked(input_.Entry.OneEstPos);
}

} // namespace merov::app
