#include "app/frm_time_store.h"

#include "app/entry_colours.h"
#include "ephemeris/time_lib.h"
#include "numeric/inout_lib.h"
#include "numeric/message_box.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>

#include <algorithm>
#include <cmath>

namespace merov::app
{
namespace
{

constexpr std::string_view TimePicture = "dd mmm yyyy hh:mm:ss";
constexpr int FirstCorrection = -15; // seconds
constexpr int LeastCorrection = -120;
constexpr int LargestCorrection = 0;
constexpr int LongestCorrection = 10; // characters: dates stay within those that the program reckons with
constexpr double SecondsOfDay = 86400.0;

QString TimeText(double dateTime)
{
    return QString::fromStdString(ephemeris::FormatDateTime(dateTime, TimePicture));
}

double TimeOf(const QLineEdit& field)
{
    return ephemeris::ParseDateTime(field.text().toStdString()).value_or(0.0);
}

/// Gives a field that can't be typed in the background of its window.
void ShowReadOnly(QLineEdit& field)
{
    QPalette palette;
    palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    field.setPalette(palette);
}

} // namespace

FrmTimeStore::FrmTimeStore(double& storedTime, QWidget* parent)
    : ModalForm(QStringLiteral("Store current time"), parent), storedTime_(storedTime), gmt_(MakeTimeField("txtGMT")),
      correction_(new platform::Field<QLineEdit>(this)), spin_(new platform::SpinButton(this)),
      correctedGmt_(MakeTimeField("txtGMTCorr")), ok_(new platform::PushButton(QStringLiteral("&OK"), this))
{
    setObjectName(QStringLiteral("frmTimeStore"));
    correction_->setObjectName(QStringLiteral("txtCorr"));
    correction_->setText(QString::number(FirstCorrection));
    correction_->setMaxLength(LongestCorrection);
    correction_->setToolTip(QStringLiteral("Enter "));
    correction_->OnEnter = [this] { platform::SetFieldColour(*correction_, {}); };
    correction_->OnLeave = [this] { return LeaveCorrection(); };
    spin_->setObjectName(QStringLiteral("updCorr"));
    spin_->StepByKeysOf(*correction_);
    spin_->OnUp = [this] { StepCorrection(1); };
    spin_->OnDown = [this] { StepCorrection(-1); };
    ok_->setObjectName(QStringLiteral("cmdOK"));
    ok_->setDefault(true);
    connect(ok_, &QPushButton::clicked, this, [this] { Store(); });
    LayOut();
}

QLabel* FrmTimeStore::MakeLabel(const QString& text)
{
    auto* label = new QLabel(text, this);
    label->setObjectName(QStringLiteral("lblLabels(%1)").arg(labels_++));
    return label;
}

QLineEdit* FrmTimeStore::MakeTimeField(const char* name)
{
    auto* field = new QLineEdit(this);
    field->setObjectName(QString::fromLatin1(name));
    field->setReadOnly(true);
    return field;
}

void FrmTimeStore::LayOut()
{
    QLabel* note = MakeLabel(QStringLiteral("If you are using this function, check that the time of your computer "
                                            "clock is correct to a second."));
    auto* rows = new QGridLayout;
    rows->setHorizontalSpacing(10);
    rows->setVerticalSpacing(10);
    const auto addRow = [&](int row, const QString& text, QWidget* field) {
        QLabel* label = MakeLabel(text);
        label->setBuddy(field);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        rows->addWidget(label, row, 0);
    };
    addRow(0, QStringLiteral("GMT :"), gmt_);
    rows->addWidget(gmt_, 0, 1, 1, 3);
    addRow(1, QStringLiteral("Correction (delay between observation time && data entry time):"), correction_);
    auto* correction = new QHBoxLayout;
    correction->setSpacing(0);
    correction->addWidget(correction_);
    correction->addWidget(spin_);
    rows->addLayout(correction, 1, 1);
    rows->addWidget(MakeLabel(QStringLiteral("sec")), 1, 2);
    addRow(2, QStringLiteral("GMT corr :"), correctedGmt_);
    rows->addWidget(correctedGmt_, 2, 1, 1, 3);
    rows->setColumnStretch(3, 1);

    const int timeWidth = fontMetrics().horizontalAdvance(TimeText(0.0)) * 5 / 4;
    gmt_->setMinimumWidth(timeWidth);
    correctedGmt_->setMinimumWidth(timeWidth);
    correction_->setFixedWidth(timeWidth / 2);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok_);
    auto* form = new QVBoxLayout(this);
    form->setContentsMargins(16, 16, 16, 16);
    form->setSpacing(16);
    form->addWidget(note);
    form->addLayout(rows);
    form->addStretch();
    form->addLayout(buttons);
    setTabOrder(gmt_, correction_);
    setTabOrder(correction_, correctedGmt_);
    setTabOrder(correctedGmt_, ok_);
}

void FrmTimeStore::Open()
{
    for (QLineEdit* shown : {gmt_, correctedGmt_})
        ShowReadOnly(*shown);
    gmt_->setText(TimeText(ephemeris::CurrentGmt()));
    ShowCorrectedTime();
    correction_->setFocus();
    correction_->selectAll();
    if (ShowModal()) return;
    correction_->setText(QString::number(FirstCorrection));
    platform::SetFieldColour(*correction_, {});
}

/// The correction that stands in the field; nothing for a text that is no number.
std::optional<double> FrmTimeStore::Seconds() const
{
    const std::string text = correction_->text().trimmed().toStdString();
    const double value = numeric::ParseNumber(text);
    if (value != numeric::NotNumeric) return value;
    // The parser's code for no number is itself one that can be typed.
    if (numeric::ParseNumber("-" + text) == -numeric::NotNumeric) return value;
    return std::nullopt;
}

void FrmTimeStore::ShowCorrectedTime()
{
    if (const auto seconds = Seconds()) correctedGmt_->setText(TimeText(TimeOf(*gmt_) + *seconds / SecondsOfDay));
}

/// Checks the correction as the focus leaves it. False: the focus stays.
bool FrmTimeStore::LeaveCorrection()
{
    const auto seconds = Seconds();
    if (!seconds) return RefuseCorrection({"This must be a numeric value."});
    if (*seconds > 0.0)
        return RefuseCorrection(
            {"This must be a negative value", "(time spent between the observation and the data entry)."});
    platform::SetFieldColour(*correction_, ValidColour);
    ShowCorrectedTime();
    return true;
}

bool FrmTimeStore::RefuseCorrection(const std::vector<std::string>& reason)
{
    std::vector<std::string> lines = {"Please check your clock correction."};
    lines.insert(lines.end(), reason.begin(), reason.end());
    numeric::ShowWarning(" Error in input data", lines);
    platform::SetFieldColour(*correction_, {});
    return false;
}

/// A step of the spin button, which stays within its limits. From a text that is no number it starts
/// anew.
void FrmTimeStore::StepCorrection(int seconds)
{
    const double present =
        std::clamp<double>(std::trunc(Seconds().value_or(FirstCorrection)), LeastCorrection, LargestCorrection);
    const int next = std::clamp(static_cast<int>(present) + seconds, LeastCorrection, LargestCorrection);
    correction_->setText(QString::number(next));
    ShowCorrectedTime();
}

void FrmTimeStore::Store()
{
    // Assistive tools press a button without the focus, so that the correction has not been left.
    if (!LeaveCorrection()) {
        correction_->setFocus();
        return;
    }
    storedTime_ = TimeOf(*correctedGmt_);
    accept();
}

void FrmTimeStore::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        ModalForm::keyPressEvent(event);
    else if (platform::TakeFocus(*ok_)) // which leaves the correction, and may be refused
        ok_->click();
}

} // namespace merov::app
