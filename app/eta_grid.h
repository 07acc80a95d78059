#pragma once

#include "platform/overlay_grid.h"
#include "sailing/eta_table.h"

namespace merov::app
{

/// The table of arrivals (`grdCalcETA`): a row for each speed, with the times in GMT and in a local time. It
/// is only read.
class EtaGrid : public platform::OverlayGrid
{
public:
    /// @param speedWidth, timeWidth  of the field of a speed and of the picker of the departure, by which the
    ///                               columns are measured, pixels
    /// @param rowHeight              pixels
    EtaGrid(int speedWidth, int timeWidth, int rowHeight);

    /// The width that a picker must have for the columns to hold each time, on the screen and on paper, where
    /// cells shrink beside their texts.
    static int LeastTimeWidth();

    /// Shows a table of arrivals from its top.
    void ShowResult(const sailing::EtaResult& result);

protected:
    void changeEvent(QEvent* event) override;

private:
    void PrepareEtaGrid(int speedCount);
    void ColourTitles();
};

} // namespace merov::app
