#ifndef TESSARA_PANELS_SYSTEM_CLOCK_PANEL_BASE_H_
#define TESSARA_PANELS_SYSTEM_CLOCK_PANEL_BASE_H_

#include <string>
#include <string_view>
#include <vector>

#include "pages/clock_summary.h"
#include "panels/framework/peripheral_panel.h"

namespace tessara {

// Where a clock panel's control rows keep the cells that its common steps read.
struct ClockControlCells {
  std::string_view key;
  int enableDigits;  // EnableDigits: "0" disables, "1" enables, one place per option
  int showMask;      // ShowMask: "H" hides, "S" shows
  int activeSlots;   // slots of ActiveKeys the control fills while it is enabled
};

// Where the source group's row keeps its per-option runs: the first cell of each.
struct ClockSourceCells {
  int firstRow, secondRow, firstComment, secondComment, mask, thirdRow;
};

// What the ClockPanel and the Clock2Panel share. Both stand on the selection page, are
// reloaded with every group, save every option of a group (not only two), let the
// EnableDigits enable as well as disable, and force the *second* option of a group
// when their source mask touches it.
class ClockPanelBase : public PeripheralPanel {
 public:
  // The state that the clock summary of the peripheral page reads.
  ClockSummaryInput SummaryInput() const;

  void ApplyDefaults() override;
  void SaveState(std::string& text) const override;
  void LoadState(const std::string& projectText) override;

 protected:
  ClockPanelBase(PanelKind kind, std::vector<ControlSpec> controls,
                 std::vector<ClockControlCells> cells);

  void BuildActiveKeys() override;

  // Radiobox_1 is the clock source; every other group writes its counting option's row.
  void OnRadioGroup(int control) override;
  // The source group changed: each panel applies its mask and writes its rows.
  virtual void SourceChanged(int control) = 0;
  virtual void ApplySourceMask(std::string_view mask) = 0;
  // Applies the checked source option's mask and writes its rows, refreshing behind the
  // first; false when no option is checked.
  bool WriteSourceRows(int control, const ClockSourceCells& cells);

  // The cell of `row` that holds the selected item of a list, searched from
  // `firstCell`; 0 when the list has no selection or the text stands in no cell.
  int ItemCell(int control, const PanelRow& row, int firstCell) const;
  // The row of a control, found by its caption among rows 1 to 64.
  const PanelRow& RowOf(int control) const;
  // Writes a row with the slot search; an empty cell writes nothing. Returns the name.
  std::string WriteCell(const PanelRow& row, int rowCell, int commentCell);
  // The first option that is checked, visible and enabled; -1 when none is.
  int CountingOption(int control) const;
  // A source mask's place for one option of a group: any digit checks the group's
  // second option and clears the first; "0" then disables the option, "1" enables it.
  void ForceSecondOption(int group, int option, char digit);
  // A source mask's place for a list: "0" selects `index` and disables, "1" enables.
  void MaskList(int control, char digit, int index);
  void RunHandlers(std::initializer_list<std::string_view> keys);
  int Index(std::string_view key) const { return ControlIndex(key); }

 private:
  std::vector<ClockControlCells> cells_;
};

}  // namespace tessara

#endif  // TESSARA_PANELS_SYSTEM_CLOCK_PANEL_BASE_H_
