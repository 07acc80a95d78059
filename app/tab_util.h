#pragma once

#include "fix/sailing_entry.h"
#include "platform/tab_strip.h"

#include <QString>

#include <functional>
#include <memory>

namespace merov::platform
{
class RichTextBox;
}

namespace merov::app
{

class EtaPage;
class GcPage;
class RlPage;
class SailingFieldsView;

/// The sailing calculations (`tabUtil`): rhumb line, great circle and times of arrival. Its entries stand
/// as long as the program runs; what its buttons command outside of it is its owner's.
class TabUtil : public platform::TabStrip
{
public:
    /// @param journal  the last error message of the program; it must outlive this object
    explicit TabUtil(numeric::LastError& journal, QWidget* parent = nullptr);
    ~TabUtil() override;

    /// Gives all masked fields their masks, with the decimal separator in force. Start-up does so once.
    void InstallMasks();

    /// The file of which reports of great circles are made.
    void SetReportTemplate(const QString& path);

    /// The page-entry handler, for the page now on top: positions go from one page to the other, the page of
    /// times of arrival starts afresh, and the focus goes to the page's first field.
    void SelectSailingPage();

    /// One page on or back, the ends being ends, and then SelectSailingPage.
    void NextTab();
    void PrevTab();

    /// The ellipsoid in force has changed: shows its name and its mile, and has the page of rhumb lines
    /// compute where it can do so by itself.
    /// @param computes  false while the pages are out of use
    void ShowEllipsoid(bool computes);

    /// The sailing report as it stands on the page of great circles.
    platform::RichTextBox& Report();
    EtaPage& Eta() { return *eta_; }

    // The commands that lead out of the pages.
    std::function<void()> OnEnd;             ///< cmdEndTabUtil
    std::function<void()> OnChangeEllipsoid; ///< a double click on the ellipsoid's name
    std::function<void()> OnPrintReport;     ///< cmdAskPrint(0)
    std::function<void()> OnPrintEta;        ///< cmdAskPrint(1)

    std::function<void(const QString& failure)> OnNoTemplate; ///< a report can't be made; `failure` tells why

private:
    void AddPages(numeric::LastError& journal);

    fix::SailingEntry entry_;
    std::unique_ptr<SailingFieldsView> fields_;
    RlPage* rl_ = nullptr;
    GcPage* gc_ = nullptr;
    EtaPage* eta_ = nullptr;
    std::function<void()> next_;
    std::function<void()> previous_;
};

} // namespace merov::app
