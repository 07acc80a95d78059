#include "platform/help_window.h"

#include "platform/chm_contents.h"
#include "platform/chm_file.h"
#include "platform/help_search.h"

#include "numeric/message_box.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStyle>
#include <QTextBrowser>
#include <QToolBar>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

namespace merov::platform
{
namespace
{

using namespace Qt::StringLiterals;

constexpr QSize WindowSize(920, 660); // pixels
constexpr int ContentsWidth = 230;
constexpr int SearchWidth = 200;
constexpr double PageMargin = 14.0;

constexpr int PageRole = Qt::UserRole; // the page of a line of the contents

/// The address of a page within the manual.
QUrl UrlOf(const QString& page)
{
    return QUrl("chm:/" + page);
}

/// The page of an address, with its anchor: "keys.html#grid".
QString PageOf(const QUrl& url)
{
    const QString path = url.path(QUrl::FullyDecoded).mid(1);
    return url.hasFragment() ? path + '#' + url.fragment() : path;
}

} // namespace

/// Shows the pages of a manual, and nothing from outside of it.
class HelpWindow::Browser : public QTextBrowser
{
public:
    using QTextBrowser::QTextBrowser;

    /// The manual whose pages are shown, from its first one on. Null for none.
    void SetManual(const ChmFile* manual)
    {
        manual_ = manual;
        clear(); // an equal address is a page of another manual now
    }

    void home() override
    {
        if (manual_ != nullptr) setSource(UrlOf(manual_->DefaultTopic()));
    }

    QVariant loadResource(int type, const QUrl& name) override
    {
        const QUrl url = page_.resolved(name);
        if (type == QTextDocument::HtmlResource) page_ = url;
        std::optional<QByteArray> bytes;
        if (manual_ != nullptr && url.scheme() == "chm"_L1) bytes = manual_->Object(url.path(QUrl::FullyDecoded));
        if (type == QTextDocument::HtmlResource) return bytes ? QString::fromUtf8(*bytes) : MissingPage(url);
        if (!bytes) return {};
        if (type == QTextDocument::ImageResource) return QImage::fromData(*bytes);
        return *bytes;
    }

protected:
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override
    {
        if (url.scheme() == "chm"_L1) QTextBrowser::doSetSource(url, type);
    }

private:
    static QString MissingPage(const QUrl& url)
    {
        return "<h2>Page not found</h2><p>The manual has no page \"" + PageOf(url).toHtmlEscaped() + "\".</p>";
    }

    const ChmFile* manual_ = nullptr;
    QUrl page_; ///< the page being loaded or shown, to which the names in it are relative
};

HelpWindow::HelpWindow(QWidget* owner) : QMainWindow(owner)
{
    BuildControls();
    if (owner != nullptr) owner->window()->installEventFilter(this);
    auto* escape = new QShortcut(Qt::Key_Escape, this);
    connect(escape, &QShortcut::activated, this, [this] { Escape(); });
}

HelpWindow::~HelpWindow()
{
    browser_->SetManual(nullptr);
}

void HelpWindow::ShowTopic(const QString& file, const QString& page)
{
    const bool showing = isVisible() && file == file_;
    if (!showing && !OpenManual(file)) return;
    if (!page.isEmpty())
        ShowPage(page);
    else if (!showing)
        browser_->home();
    if (!showing) browser_->clearHistory();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

/// Not every screen hands the activation back, and without it no key would reach the owner.
void HelpWindow::closeEvent(QCloseEvent* event)
{
    const bool wasActive = isActiveWindow();
    QMainWindow::closeEvent(event);
    if (wasActive && parentWidget() != nullptr && parentWidget()->window()->isVisible())
        parentWidget()->activateWindow();
}

/// The owner went from the screen by the program, not to the task bar by the user.
bool HelpWindow::eventFilter(QObject* owner, QEvent* event)
{
    const bool hidden = event->type() == QEvent::Hide && !event->spontaneous();
    if (hidden && parentWidget() != nullptr && owner == parentWidget()->window()) close();
    return QMainWindow::eventFilter(owner, event);
}

void HelpWindow::BuildControls()
{
    contents_ = new QTreeWidget;
    contents_->setObjectName(u"contents"_s);
    contents_->setAccessibleName(u"Contents"_s);
    contents_->setHeaderHidden(true);
    found_ = new QListWidget;
    found_->setObjectName(u"found"_s);
    found_->setAccessibleName(u"Found"_s);
    found_->setWordWrap(true);
    found_->hide();
    browser_ = new Browser;
    browser_->setObjectName(u"page"_s);
    browser_->setAccessibleName(u"Page"_s);
    browser_->document()->setDocumentMargin(PageMargin);
    auto* parts = new QSplitter;
    parts->addWidget(contents_);
    parts->addWidget(found_);
    parts->addWidget(browser_);
    parts->setStretchFactor(2, 1);
    parts->setChildrenCollapsible(false);
    setCentralWidget(parts);
    resize(WindowSize.boundedTo(screen()->availableSize()));
    parts->setSizes({ContentsWidth, ContentsWidth, width() - ContentsWidth});

    auto* bar = addToolBar(u"Pages"_s);
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    QAction* back = AddCommand(*bar, u"Back"_s, QKeySequence::Back, QStyle::SP_ArrowBack, &Browser::backward);
    QAction* forward =
        AddCommand(*bar, u"Forward"_s, QKeySequence::Forward, QStyle::SP_ArrowForward, &Browser::forward);
    AddCommand(*bar, u"Home"_s, u"Alt+Home"_s, QStyle::SP_DirHomeIcon, &Browser::home);
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    connect(browser_, &QTextBrowser::sourceChanged, this, [this](const QUrl& url) { MarkContents(url); });
    const auto follow = [this](const QTreeWidgetItem* item) {
        if (item != nullptr) ShowPage(item->data(0, PageRole).toString());
    };
    connect(contents_, &QTreeWidget::currentItemChanged, this, follow);
    connect(contents_, &QTreeWidget::itemClicked, this, follow);
    BuildSearch(*bar);
    browser_->setFocus();
}

/// The search field at the end of the bar, and what it finds.
void HelpWindow::BuildSearch(QToolBar& bar)
{
    auto* gap = new QWidget;
    gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar.addWidget(gap);
    search_ = new QLineEdit;
    search_->setObjectName(u"search"_s);
    search_->setAccessibleName(u"Search"_s);
    search_->setPlaceholderText(u"Search"_s);
    search_->setToolTip(u"Words to search (Ctrl+F)"_s);
    search_->setClearButtonEnabled(true);
    search_->setFixedWidth(SearchWidth);
    bar.addWidget(search_);
    connect(search_, &QLineEdit::textChanged, this, [this](const QString& words) { ShowFound(words); });
    connect(search_, &QLineEdit::returnPressed, found_, [this] {
        found_->setFocus();
        found_->setCurrentRow(0);
    });
    auto* find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, this, [this] {
        search_->setFocus(Qt::ShortcutFocusReason);
        search_->selectAll();
    });
    const auto follow = [this](const QListWidgetItem* item) {
        if (item != nullptr) ShowPage(item->data(PageRole).toString());
    };
    connect(found_, &QListWidget::currentItemChanged, this, follow);
    connect(found_, &QListWidget::itemClicked, this, follow);
}

QAction* HelpWindow::AddCommand(QToolBar& bar, const QString& caption, const QKeySequence& key,
                                QStyle::StandardPixmap picture, void (Browser::*command)())
{
    QAction* action = bar.addAction(style()->standardIcon(picture), caption);
    action->setObjectName(caption);
    action->setShortcut(key);
    action->setToolTip(caption + " (" + key.toString(QKeySequence::NativeText) + ')');
    connect(action, &QAction::triggered, this, [this, command] { (browser_->*command)(); });
    return action;
}

bool HelpWindow::OpenManual(const QString& file)
{
    std::unique_ptr<ChmFile> manual = ChmFile::Open(file);
    if (manual == nullptr) {
        numeric::ShowWarning("File unreadable",
                             {"The manual is missing or damaged:", QDir::toNativeSeparators(file).toStdString()});
        return false;
    }
    browser_->SetManual(manual.get());
    manual_ = std::move(manual);
    index_.reset();
    search_->clear();
    file_ = file;
    setWindowTitle(manual_->Title());
    FillContents();
    return true;
}

/// Without a table of contents the page takes the whole window.
void HelpWindow::FillContents()
{
    const QSignalBlocker blocked(contents_);
    contents_->clear();
    const QString file = manual_->ContentsFile();
    const QByteArray table = file.isEmpty() ? QByteArray() : manual_->Object(file).value_or(QByteArray());
    QList<QTreeWidgetItem*> open = {contents_->invisibleRootItem()}; // of each level, the last line above it
    for (const ChmEntry& entry : ReadChmContents(QString::fromUtf8(table))) {
        open.resize(entry.Level + 1);
        auto* item = new QTreeWidgetItem(open.constLast(), {entry.Name});
        item->setData(0, PageRole, entry.Page);
        open += item;
    }
    contents_->expandAll();
    contents_->setVisible(contents_->topLevelItemCount() > 0);
}

/// Reads the pages that the contents name.
void HelpWindow::FillSearch()
{
    index_ = std::make_unique<HelpSearch>();
    QStringList read;
    for (QTreeWidgetItemIterator line(contents_); *line != nullptr; ++line) {
        const QString page = (*line)->data(0, PageRole).toString().section('#', 0, 0);
        const std::optional<QByteArray> html = manual_->Object(page);
        if (!html || read.contains(page)) continue;
        index_->AddPage(page, QString::fromUtf8(*html));
        read += page;
    }
}

/// The places of the words instead of the contents; the contents without words.
void HelpWindow::ShowFound(const QString& words)
{
    const bool searching = !words.trimmed().isEmpty() && manual_ != nullptr;
    if (searching && index_ == nullptr) FillSearch();
    const QSignalBlocker blocked(found_);
    found_->clear();
    for (const HelpHit& hit : searching ? index_->Find(words) : QList<HelpHit>()) {
        auto* item = new QListWidgetItem(hit.Title, found_);
        item->setData(PageRole, hit.Page);
    }
    if (searching && found_->count() == 0) (new QListWidgetItem(u"Nothing found"_s, found_))->setFlags(Qt::NoItemFlags);
    found_->setVisible(searching);
    contents_->setVisible(!searching && contents_->topLevelItemCount() > 0);
}

void HelpWindow::Escape()
{
    if (search_->text().isEmpty()) {
        close();
        return;
    }
    search_->clear();
    browser_->setFocus();
}

void HelpWindow::ShowPage(const QString& page)
{
    if (!page.isEmpty()) browser_->setSource(UrlOf(page));
}

/// Makes the line of the page that is shown the current one, or of the page that it is a part of.
void HelpWindow::MarkContents(const QUrl& url)
{
    const QString page = PageOf(url);
    QTreeWidgetItem* part = nullptr;
    QTreeWidgetItem* whole = nullptr;
    for (QTreeWidgetItemIterator line(contents_); *line != nullptr; ++line) {
        const QString shown = (*line)->data(0, PageRole).toString();
        if (part == nullptr && shown == page) part = *line;
        if (whole == nullptr && shown == page.section('#', 0, 0)) whole = *line;
    }
    const QSignalBlocker blocked(contents_);
    contents_->setCurrentItem(part != nullptr ? part : whole);
}

} // namespace merov::platform
