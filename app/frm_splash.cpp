#include "app/frm_splash.h"

#include "app/picture_box.h"
#include "platform/rich_text_box.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace merov::app
{

namespace
{

constexpr QRect Artwork(0, 0, 640, 400);
constexpr QRect ChartPlace(436, 196, 172, 172);
constexpr QRect TitlePlace(40, 34, 380, 96);
constexpr QRect ReadAboutPlace(40, 340, 380, 28);
constexpr int AboutTextWidth = 620;

constexpr QLatin1String ReleaseDate("May 2004");

/// Two lines, the title large.
QString TwoLines(int titlePixels, const QString& title, int linePixels, const QString& line)
{
    return QStringLiteral("<p><span style=\"font-size:%1px; font-weight:600\">%2</span><br>"
                          "<span style=\"font-size:%3px\">%4</span></p>")
        .arg(titlePixels)
        .arg(title.toHtmlEscaped())
        .arg(linePixels)
        .arg(line.toHtmlEscaped());
}

bool IsModifier(int key)
{
    return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr || key == Qt::Key_Super_L ||
           key == Qt::Key_Super_R;
}

} // namespace

FrmSplash::FrmSplash(const QString& versionText, std::chrono::milliseconds duration, QWidget* parent)
    : ModalForm(QStringLiteral("Merov"), parent), version_(versionText), tmrSplash_(this),
      picSplash_(new PictureBox("splash", QStringLiteral("picSplash"), this)),
      picSplashFix_(new PictureBox("splash_fix", QStringLiteral("picSplashFix"), this)), lblSplash_(new QLabel(this)),
      lblReadAbout_(new QLabel(this)), rtfAboutProg_(new platform::RichTextBox(this))
{
    setObjectName("frmSplash");
    tmrSplash_.setObjectName("tmrSplash");
    picSplash_->setGeometry(Artwork);
    picSplashFix_->setGeometry(ChartPlace);
    lblSplash_->setObjectName("lblSplash");
    lblReadAbout_->setObjectName("lblReadAbout");
    lblSplash_->setAttribute(Qt::WA_TransparentForMouseEvents); // a click on it is one on the form
    lblReadAbout_->setAttribute(Qt::WA_TransparentForMouseEvents);
    rtfAboutProg_->setObjectName("rtfAboutProg");
    rtfAboutProg_->setAccessibleName(QStringLiteral("About Merov"));
    setToolTip(QStringLiteral("Click anywhere to continue"));

    // A click on the text is one on the form, which closes it.
    rtfAboutProg_->setAttribute(Qt::WA_TransparentForMouseEvents);
    rtfAboutProg_->setFocusPolicy(Qt::NoFocus);
    LayOutStart();

    tmrSplash_.setInterval(duration);
    tmrSplash_.setSingleShot(true);
    connect(&tmrSplash_, &QTimer::timeout, this, &QDialog::accept);
}

void FrmSplash::Open()
{
    if (mark_ == Mark::FromStart) {
        tmrSplash_.start();
    } else {
        if (!layout()) LayOutAbout();
        FitAboutText();
    }
    Centre();
    ShowModal();
    tmrSplash_.stop();
    picSplash_->hide();
    picSplashFix_->hide();
    mark_ = Mark::FromMenu;
}

void FrmSplash::mouseReleaseEvent(QMouseEvent*)
{
    accept();
}

void FrmSplash::keyPressEvent(QKeyEvent* event)
{
    if (!IsModifier(event->key())) accept();
}

/// The artwork with the title on its sky, without a frame.
void FrmSplash::LayOutStart()
{
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setFixedSize(Artwork.size());
    rtfAboutProg_->hide();
    QPalette onSky = palette();
    onSky.setColor(QPalette::WindowText, QColor(0xf3, 0xf8, 0xfd));
    lblSplash_->setPalette(onSky);
    lblSplash_->setGeometry(TitlePlace);
    lblSplash_->setText(TwoLines(38, QStringLiteral("Merov ") + version_, 16, ReleaseDate));
    lblReadAbout_->setPalette(onSky);
    lblReadAbout_->setGeometry(ReadAboutPlace);
    QFont small = font();
    small.setPixelSize(13);
    lblReadAbout_->setFont(small);
    lblReadAbout_->setText(QStringLiteral("Before you rely on a position, please read Help, About."));
}

/// The title with the program's picture, and the document below.
void FrmSplash::LayOutAbout()
{
    setWindowTitle(QStringLiteral(" About Merov"));
    setWindowFlags(Qt::Dialog);
    lblReadAbout_->hide();
    lblSplash_->setPalette(QPalette());
    lblSplash_->setText(TwoLines(22, QStringLiteral("Merov ") + version_, 14, ReleaseDate));
    constexpr int EmblemSize = 56; // pixels
    auto* const emblem = new PictureBox("merov");
    emblem->setFixedSize(EmblemSize, EmblemSize);

    auto* const form = new QGridLayout(this);
    form->setHorizontalSpacing(14);
    form->setVerticalSpacing(10);
    form->setContentsMargins(16, 12, 16, 16);
    form->addWidget(emblem, 0, 0);
    form->addWidget(lblSplash_, 0, 1);
    form->setColumnStretch(1, 1);
    form->addWidget(rtfAboutProg_, 1, 0, 1, 2);
    form->setSizeConstraint(QLayout::SetFixedSize);
}

/// Makes the document's view as high as the document. Without a document there is no view.
void FrmSplash::FitAboutText()
{
    QTextDocument& text = *rtfAboutProg_->document();
    const int frame = 2 * rtfAboutProg_->frameWidth();
    rtfAboutProg_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    text.setDocumentMargin(12.0);
    text.setTextWidth(AboutTextWidth - frame);
    rtfAboutProg_->setFixedSize(AboutTextWidth, static_cast<int>(std::ceil(text.size().height())) + frame);
    rtfAboutProg_->setVisible(!text.isEmpty());
    layout()->activate();
}

/// In the middle of the window, or of the screen as long as there is no window.
void FrmSplash::Centre()
{
    const QWidget* const window = parentWidget();
    const QRect available = screen()->availableGeometry();
    QRect place({}, size());
    place.moveCenter(window && window->isVisible() ? window->window()->frameGeometry().center() : available.center());
    move(std::max(place.left(), available.left()), std::max(place.top(), available.top()));
}

} // namespace merov::app
