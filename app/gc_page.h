#pragma once

#include "fix/sailing_entry.h"

#include <QWidget>

#include <functional>

class QLabel;

namespace merov::output
{
struct OutlineRow;
}

namespace merov::platform
{
class OutlineList;
class PictureButton;
class RichTextBox;
} // namespace merov::platform

namespace merov::app
{

class EllipsoidFrame;
class EntryFrame;
class SailingFieldsView;

/// The page of great circles: departure, arrival, a limit of latitude and an interval of waypoints; the
/// results as an outline and as a report.
class GcPage : public QWidget
{
public:
    /// All but the last must outlive this object. @param wayButtons  those at the foot of the page, which it
    /// takes over
    GcPage(fix::SailingEntry& entry, SailingFieldsView& fields, numeric::LastError& journal, QWidget* wayButtons);

    /// The file of which reports are made.
    void SetReportTemplate(const QString& path) { template_ = path; }

    /// cmdCompute(1): plans the voyage and shows it, the report a moment after the outline.
    void Compute();

    /// The page is entered: the outline goes, the report stays.
    void Enter();

    /// A changed entry takes the results off the screen.
    void HideResults();

    /// Gives the latitude of departure the focus.
    void TakeFocus();

    EllipsoidFrame& Ellipsoid() { return *fraEllipsoid_; }
    platform::RichTextBox& Report() { return *rtfCalcWP_; }

    std::function<void()> OnPrint;                            ///< cmdAskPrint(0), which is out of use without a report
    std::function<void(const QString& failure)> OnNoTemplate; ///< the report can't be made

private:
    EntryFrame* MakeEntries();
    QWidget* MakeResults();
    QWidget* MakeFoot(QWidget* wayButtons);
    void ShowOutline(const std::vector<output::OutlineRow>& rows, bool visible);
    void ShowReport(bool visible);

    fix::SailingEntry& entry_;
    SailingFieldsView& fields_;
    numeric::LastError& journal_;
    QString template_;
    EllipsoidFrame* fraEllipsoid_;
    platform::OutlineList* outGCRes_ = nullptr;
    platform::RichTextBox* rtfCalcWP_ = nullptr;
    QLabel* hint_ = nullptr; ///< stands where the report will
    platform::PictureButton* print_ = nullptr;
    bool computing_ = false;
    int results_ = 0; ///< changes of the results in view so far
};

} // namespace merov::app
