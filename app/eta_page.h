#pragma once

#include "numeric/error_trap.h"
#include "sailing/eta_entries.h"

#include <QWidget>

#include <functional>

class QBoxLayout;
class QComboBox;
class QGridLayout;

namespace merov::platform
{
class OverlayGrid;
class PictureButton;
class TimePicker;
} // namespace merov::platform

namespace merov::app
{

class EtaFields;
class EtaGrid;

/// The page of arrivals: for one distance and a range of speeds, the times of arrival in GMT and in a local
/// time. It shows its entries, runs their rules, and fills its table on command.
class EtaPage : public QWidget
{
public:
    /// @param journal     the program's last error message; it must outlive this object
    /// @param wayButtons  those that lead to other pages; they stand at the foot, at the right of its own
    EtaPage(QWidget* parent, numeric::LastError& journal, QWidget* wayButtons = nullptr);

    /// Gives the masked fields their masks, with the decimal separator in force, and resets them.
    void InstallMasks();

    /// The page starts afresh: no table, all fields reset, the present hour of GMT as the departure. Zones and
    /// rounding stay. The distance to go is that of the rhumb line.
    /// @param typedDistance  text of the distance as the user has typed it; empty if the user has not
    /// @param rhumbDistance  its result in miles, taken without a typed text; 0 if there is none
    void Start(const QString& typedDistance, double rhumbDistance);

    /// cmdErase: 14 hides the table and resets all fields, 15 to 18 reset distance, minimum and maximum speed
    /// and interval, and give the field the focus.
    void Erase(int index);

    /// cmdCompute(2): computes the times of arrival and shows them in the table. A fault shows its box, and no
    /// table.
    void Compute();

    /// Gives the first entry the focus.
    void TakeFocus();

    /// The results (`grdCalcETA`), a row for each speed; hidden without any.
    platform::OverlayGrid& Table();

    std::function<void()> OnCompute; ///< cmdCompute(2), before anything is computed
    std::function<void()> OnPrint;   ///< cmdAskPrint(1), which is out of use without a table

private:
    QGridLayout* MakeEntries();
    QComboBox* MakeZones(std::size_t index);
    QGridLayout* MakeSpeeds();
    QWidget* MakeRounding();
    void MakeTable();
    QBoxLayout* MakeFoot(QWidget* wayButtons);
    void ShowTable(bool visible);

    numeric::LastError& journal_;
    sailing::EtaEntries entries_;
    EtaFields* fields_;
    platform::TimePicker* departure_ = nullptr; ///< dtpTime(2)
    EtaGrid* table_ = nullptr;
    platform::PictureButton* print_ = nullptr;
};

} // namespace merov::app
