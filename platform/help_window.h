#pragma once

#include <QKeySequence>
#include <QMainWindow>
#include <QString>
#include <QStyle>

#include <memory>

class QLineEdit;
class QListWidget;
class QToolBar;
class QTreeWidget;
class QUrl;

namespace merov::platform
{

class ChmFile;
class HelpSearch;

/// The window that shows a compiled manual (".chm"): its table of contents at the left, a page at the
/// right. While the search field has a text, the places where its words stand take the place of the contents.
/// Links lead within the manual only. Escape empties the search field, then closes the window; so does the end
/// of its owner, which otherwise is the active window again behind it.
class HelpWindow : public QMainWindow
{
public:
    /// @param owner  the window it belongs to and closes with
    explicit HelpWindow(QWidget* owner);
    ~HelpWindow() override;

    /// Opens a manual and brings the window forward. While it shows that manual already, the page in it
    /// stays, unless one is asked for. A file that can't be read brings a box, and the window stays as
    /// it was.
    /// @param page  a path within the manual, perhaps with an anchor, "wizard.html#step2"; empty for
    ///              the default topic. Of a page that is missing the window says so
    void ShowTopic(const QString& file, const QString& page = {});

    bool eventFilter(QObject* owner, QEvent* event) override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    class Browser;

    void BuildControls();
    void BuildSearch(QToolBar& bar);
    QAction* AddCommand(QToolBar& bar, const QString& caption, const QKeySequence& key, QStyle::StandardPixmap picture,
                        void (Browser::*command)());
    bool OpenManual(const QString& file);
    void FillContents();
    void FillSearch();
    void ShowFound(const QString& words);
    void Escape();
    void ShowPage(const QString& page);
    void MarkContents(const QUrl& url);

    QString file_; ///< path of the open manual
    std::unique_ptr<ChmFile> manual_;
    std::unique_ptr<HelpSearch> index_; ///< of the open manual; null until something is searched
    QTreeWidget* contents_;
    QListWidget* found_; ///< hidden while nothing is searched
    QLineEdit* search_;
    Browser* browser_;
};

} // namespace merov::platform
