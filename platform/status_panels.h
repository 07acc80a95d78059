#pragma once

#include <QStatusBar>

#include <functional>

class QLabel;
class QStackedWidget;

namespace merov::platform
{

/// The bar at the foot of the window. In its simple style it shows one text, in its panel style a row of
/// panels that are told by keys. It starts in the simple style, without panels.
class StatusPanels : public QStatusBar
{
public:
    explicit StatusPanels(QWidget* parent = nullptr);

    /// Adds an empty panel to the right of the others.
    /// @param key       tells the panel, given once
    /// @param toolTip   what it shows; a text too long for the window stands in the tool tip as well
    /// @param givesWay  in a narrow window this panel's text is cut before those of the others
    void AddPanel(const QString& key, const QString& toolTip = {}, bool givesWay = false);

    /// The text of a panel. An unknown key has an empty text, and writing to it does nothing.
    QString PanelText(const QString& key) const;
    void SetPanelText(const QString& key, const QString& text);

    /// Turns to the simple style with a text, or to the panel style.
    void ShowSimple(const QString& text = {});
    void ShowPanels();
    bool ShowsPanels() const;

    std::function<void(const QString& key)> OnPanelClick; ///< a panel was clicked with the left button
private:
    class Panel;
    Panel* Find(const QString& key) const;

    QStackedWidget* styles_;
    QLabel* simple_;
    QWidget* panels_;
};

} // namespace merov::platform
