#pragma once

#include "app/fix_input.h"
#include "platform/tab_strip.h"

#include <functional>
#include <memory>

namespace merov::app
{

class ConditionsPage;
class EntryFieldsView;
class ObservationGrid;
class ObservationsPage;
class PositionPage;

/// The input of an astro fix (`tabIn`): "Position", "Obs. conditions" and "Observations". It shows the
/// entries, runs their handlers and checks the way from tab to tab; what its buttons command is its
/// owner's.
class TabIn : public platform::TabStrip
{
public:
    /// @param input  what the entries show and change; it must outlive this object
    explicit TabIn(FixInput& input, QWidget* parent = nullptr);
    ~TabIn() override;

    /// Gives all masked fields their masks, with the decimal separator in force. Start-up does so once.
    void InstallMasks();

    /// Clears the whole input: entries, session values, chart scales and grid, both times on the present
    /// hour of GMT; goes to the first tab.
    void Erase();

    /// Shows what stands in the entries: texts, colours, times, check boxes, rows of the grid.
    void ShowEntries();

    /// Shows the masked fields and times alone: the grid stays where it is.
    void ShowFields();

    /// The tab-entry handler, for the tab now on top: asks whether default times are to be kept, checks
    /// what must stand before the tab, and moves the focus into it. Reaching the observations with a
    /// complete input runs OnInputComplete.
    void EnterTab();

    /// One tab on or back, the ends being ends, and then EnterTab.
    void NextTab();
    void PrevTab();

    /// Writes an open editor of the grid into its cell.
    void CommitGridEditor();

    ObservationGrid& Grid();

    /// The masked fields with their leave handlers.
    EntryFieldsView& Fields() { return *fields_; }

    // The commands of the buttons.
    std::function<void()> OnLoad;            ///< cmdLoadObs
    std::function<void()> OnErase;           ///< cmdEraseObs
    std::function<void()> OnSave;            ///< cmdSaveObs
    std::function<void()> OnNumRes;          ///< cmdNumRes
    std::function<void()> OnGraphRes;        ///< cmdGraphRes
    std::function<void()> OnCapture;         ///< cmdChronoF5, and F5 on the observations
    std::function<void(int index)> OnCancel; ///< cmdCancel(0..2)

    std::function<void()> OnInputComplete; ///< the astro menus may go on
    std::function<void(bool)> OnOneEstPos; ///< ch3OneEstPos(1) was clicked; the option has changed

    /// Shows the option "one estimated position" as another surface has set it.
    void ShowOneEstPos();

    /// A letter that a button of the page in view shares with a header goes to the button.
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void AddPages();
    bool KeepsDefaultTimes(int tab);
    bool IsComplete(int tab) const;
    void TakeFocusOn(int tab);

    FixInput& input_;
    std::unique_ptr<EntryFieldsView> fields_;
    PositionPage* position_;
    ConditionsPage* conditions_;
    ObservationsPage* observations_;
};

} // namespace merov::app
