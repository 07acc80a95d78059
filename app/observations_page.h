#pragma once

#include "app/fix_input.h"

#include <QWidget>

#include <functional>

namespace merov::app
{

class ObservationGrid;

/// The page "Observations" of the input: the grid of sights and the commands on the whole input.
class ObservationsPage : public QWidget
{
public:
    /// @param input  must outlive this object
    explicit ObservationsPage(FixInput& input);

    ObservationGrid& Grid() { return *grid_; }

    /// Gives the grid the focus.
    void TakeFocus();

    /// Runs OnCapture. The focus then goes to the grid, where the captured time is used.
    void Capture();

    std::function<void()> OnSave;     ///< cmdSaveObs
    std::function<void()> OnNumRes;   ///< cmdNumRes
    std::function<void()> OnGraphRes; ///< cmdGraphRes
    std::function<void()> OnCapture;  ///< cmdChronoF5, and F5 in the grid
    std::function<void()> OnPrevious; ///< cmdPrevTabIn(1)
    std::function<void()> OnCancel;   ///< cmdCancel(2)

private:
    ObservationGrid* grid_;
    std::function<void()> capture_ = [this] { Capture(); };
};

} // namespace merov::app
