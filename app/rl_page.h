#pragma once

#include "fix/sailing_entry.h"

#include <QWidget>

#include <functional>

class QLabel;

namespace merov::app
{

class EllipsoidFrame;
class EntryFrame;
class SailingFieldsView;

/// The page of rhumb lines: two positions, course and distance, four of which give the others.
class RlPage : public QWidget
{
public:
    /// The first two must outlive this object. @param wayButtons  those at the foot of the page, which it takes over
    RlPage(fix::SailingEntry& entry, SailingFieldsView& fields, QWidget* wayButtons);

    /// cmdCompute(0): computes the line from what is entered.
    void Compute();

    /// cmdShift: turns the track round.
    void Shift();

    /// Shows the name and the mile of the ellipsoid in force.
    void ShowEllipsoid();

    /// Gives the latitude of position 1 the focus.
    void TakeFocus();

    EllipsoidFrame& Ellipsoid() { return *fraEllipsoid_; }

private:
    EntryFrame* MakePosition(int number);
    EntryFrame* MakeTrack();
    QWidget* MakeSide();
    QWidget* MakeFoot(QWidget* wayButtons);

    fix::SailingEntry& entry_;
    SailingFieldsView& fields_;
    EllipsoidFrame* fraEllipsoid_;
    QLabel* miles_ = nullptr; ///< lblDistance(1)
};

} // namespace merov::app
