#include "panels/system/clock_panel.h"

#include <cstdlib>

#include "core/text.h"

namespace tessara {

namespace {

// Cells of the source row (option c from 0).
constexpr ClockSourceCells kSourceCells = {4, 7, 10, 13, 18, 21};

std::vector<ControlSpec> ClockControls() {
  return {
      {ControlKind::kRadioGroup, "Radiobox_1", 3, {}},
      {ControlKind::kRadioGroup, "Radiobox_2", 2, {}},
      {ControlKind::kCombobox, "Combobox_1", 1, {}},
      {ControlKind::kCombobox, "Combobox_2", 1, {}},
      {ControlKind::kCombobox, "Combobox_3", 1, {}},
  };
}

// The divider's start index, which a "0" of the source mask selects.
constexpr int kDividerStartIndex = 18;

std::vector<ClockControlCells> ClockCells() {
  // Only the source group, the second choice and the divider are ever active.
  return {
      {"Radiobox_1", 16, 17, 2}, {"Radiobox_2", 7, 8, 1},  {"Combobox_1", 16, 17, 1},
      {"Combobox_2", 18, 19, 0}, {"Combobox_3", 18, 19, 0},
  };
}

}  // namespace

ClockPanel::ClockPanel() : ClockPanelBase(PanelKind::kClock, ClockControls(), ClockCells()) {}

void ClockPanel::OnInitDialog() {
  ClockPanelBase::OnInitDialog();
  // This panel starts on the second choice's second option.
  controls_[static_cast<std::size_t>(Index("Radiobox_2"))].CheckOption(1);
}

void ClockPanel::SourceChanged(int control) {
  if (WriteSourceRows(control, kSourceCells)) RunHandlers({"Combobox_2", "Combobox_3"});
}

void ClockPanel::ApplySourceMask(std::string_view mask) {
  const int second = Index("Radiobox_2");
  auto digit = [&](std::size_t place) { return place < mask.size() ? mask[place] : ' '; };
  ForceSecondOption(second, 0, digit(0));
  ForceSecondOption(second, 1, digit(1));
  const PanelRow& divider = rowTable_.Row(rowTable_.FindRowByCaption(kDividerCaption, 1));
  MaskList(Index("Combobox_1"), digit(2), std::atoi(divider.Cell(kDividerStartIndex).c_str()));
  MaskList(Index("Combobox_2"), digit(3), 0);
  MaskList(Index("Combobox_3"), digit(4), 0);
  RunHandlers({"Radiobox_2", "Combobox_1", "Combobox_2", "Combobox_3"});
}

void ClockPanel::OnCombobox(int control) {
  const ControlModel& box = controls_[static_cast<std::size_t>(control)].parts[0];
  if (!box.enabled) return;
  int firstItem = 1;
  const PanelRow* row = &RowOf(control);
  if (control == Index("Combobox_2") || control == Index("Combobox_3")) {
    if (!box.visible) return;
    firstItem = 3;
    if (control == Index("Combobox_2")) {
      row = &rowTable_.Row(rowTable_.FindRowByCaption(kFrequencyCaption, 1));
    }
  }
  // The item's cell j gives its row at 5 + j and its comment at 10 + j in all three.
  int j = ItemCell(control, *row, firstItem);
  if (j == 0) return;
  RefreshParameters(WriteCell(*row, 5 + j, 10 + j));
}

}  // namespace tessara
