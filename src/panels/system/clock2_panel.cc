#include "panels/system/clock2_panel.h"

#include <cmath>
#include <cstdlib>

#include "core/text.h"

namespace tessara {

namespace {

// Cells of the source row (option c from 0).
constexpr ClockSourceCells kSourceCells = {5, 9, 13, 17, 23, 27};

std::vector<ControlSpec> Clock2Controls() {
  return {
      {ControlKind::kRadioGroup, "Radiobox_1", 4, {}}, {ControlKind::kRadioGroup, "Radiobox_2", 2, {}},
      {ControlKind::kRadioGroup, "Radiobox_3", 2, {}}, {ControlKind::kCombobox, "Combobox_1", 1, {}},
      {ControlKind::kCombobox, "Combobox_2", 1, {}},   {ControlKind::kCombobox, "Combobox_3", 1, {}},
      {ControlKind::kCombobox, "Combobox_4", 1, {}},   {ControlKind::kCombobox, "Combobox_5", 1, {}},
      {ControlKind::kCombobox, "Combobox_6", 1, {}},
  };
}

constexpr int kFourthSource = 3;
constexpr int kThirdSource = 2;

std::vector<ClockControlCells> Clock2Cells() {
  // Combobox_2 takes no slot: its rows, "clk" among them, are never shown.
  return {
      {"Radiobox_1", 21, 22, 2}, {"Radiobox_2", 7, 8, 1},   {"Radiobox_3", 7, 8, 1},
      {"Combobox_1", 16, 17, 1}, {"Combobox_2", 15, 16, 0}, {"Combobox_3", 15, 16, 1},
      {"Combobox_4", 33, 34, 1}, {"Combobox_5", 19, 20, 2}, {"Combobox_6", 16, 17, 1},
  };
}

// How each list writes the item found in cell j of its row.
struct ListCells {
  std::string_view key;
  int firstItem;        // cells searched from here
  bool needsVisible;    // acts only while visible as well as enabled
  int rowOffsets[3];    // row cells at offset + j; 0 for none
  int commentOffsets[3];  // comment cells at offset + j; -1 for none
  int maskIndexCell;    // the start index a "0" of the source mask selects
};

constexpr ListCells kLists[] = {
    {"Combobox_1", 1, false, {5, 0, 0}, {10, -1, -1}, 18},
    {"Combobox_2", 3, true, {6, 0, 0}, {12, -1, -1}, 17},
    {"Combobox_3", 3, true, {3, 6, 0}, {9, 9, -1}, 17},
    // The mask reads the start index of this list from cell 15, not from its cell 35.
    {"Combobox_4", 1, true, {8, 16, 0}, {24, -1, -1}, 15},
    {"Combobox_5", 1, true, {3, 6, 9}, {12, 15, -1}, 21},
    {"Combobox_6", 1, false, {5, 0, 0}, {10, -1, -1}, 18},
};

const ListCells* ListCellsOf(std::string_view key) {
  for (const ListCells& list : kLists) {
    if (list.key == key) return &list;
  }
  return nullptr;
}

// Cells of the Combobox_2 row used with the fourth source: the digits of the items
// of Combobox_5 at 16 + j, the index to select there at 22 + j.
constexpr int kBox5DigitsOffset = 16;
constexpr int kBox5IndexOffset = 22;
// Cells of the Combobox_5 row that its handler reads while the box is off.
constexpr int kBox5Availability = 22;
constexpr int kBox5StartIndex = 21;
constexpr int kBox5ItemCount = 3;

}  // namespace

Clock2Panel::Clock2Panel() : ClockPanelBase(PanelKind::kClock2, Clock2Controls(), Clock2Cells()) {}

void Clock2Panel::OnInitDialog() {
  ClockPanelBase::OnInitDialog();
  // The window's lists are refilled at every load, Combobox_5 empty among them.
  box5Digits_.clear();
}

std::vector<std::string> Clock2Panel::Box5Items() const {
  std::vector<std::string> items;
  const PanelRow& row = RowOf(Index("Combobox_5"));
  for (int cell = 1; cell <= kBox5ItemCount; ++cell) items.push_back(row.Cell(cell));
  return items;
}

double Clock2Panel::OscillatorClock(double x) const {
  const Control& source = controls_[0];
  if (!source.parts[kThirdSource].checked) return std::trunc(x);
  double divider = 1;
  for (const std::string& row : parameterRows_) {
    if (!StartsWithNoCase(row, "oscdiv")) continue;
    std::size_t equals = row.find('=');
    divider = equals == std::string::npos ? 0 : ParseReal(std::string_view(row).substr(equals + 1));
    break;
  }
  // A divider that reads as no number divides by 1 rather than giving no clock at all.
  if (divider == 0) divider = 1;
  return std::trunc(std::trunc(x) / divider);
}

void Clock2Panel::SourceChanged(int control) {
  WriteSourceRows(control, kSourceCells);
}

void Clock2Panel::ApplySourceMask(std::string_view mask) {
  auto digit = [&](std::size_t place) { return place < mask.size() ? mask[place] : ' '; };
  const int second = Index("Radiobox_2");
  const int third = Index("Radiobox_3");
  ForceSecondOption(second, 0, digit(0));
  ForceSecondOption(second, 1, digit(1));
  ForceSecondOption(third, 0, digit(2));
  ForceSecondOption(third, 1, digit(3));
  std::size_t place = 4;
  for (const ListCells& list : kLists) {
    int control = Index(list.key);
    const PanelRow& row = RowOf(control);
    MaskList(control, digit(place++), std::atoi(row.Cell(list.maskIndexCell).c_str()));
  }
  RunHandlers({"Radiobox_2", "Radiobox_3", "Combobox_1", "Combobox_2", "Combobox_3", "Combobox_4",
               "Combobox_5", "Combobox_6"});
}

void Clock2Panel::OnCombobox(int control) {
  const Control& box = controls_[static_cast<std::size_t>(control)];
  const ListCells* list = ListCellsOf(box.key);
  if (list == nullptr) return;
  if (list->key == "Combobox_5" && (!box.parts[0].visible || !box.parts[0].enabled)) {
    Box5Changed(control);
    return;
  }
  if (!box.parts[0].enabled || (list->needsVisible && !box.parts[0].visible)) return;
  const PanelRow& row = RowOf(control);
  int j = ItemCell(control, row, list->firstItem);
  if (j == 0) return;
  std::string name;
  for (int k = 0; k < 3; ++k) {
    if (list->rowOffsets[k] == 0) continue;
    int comment = list->commentOffsets[k] < 0 ? -1 : list->commentOffsets[k] + j;
    std::string written = WriteCell(row, list->rowOffsets[k] + j, comment);
    if (k == 0) name = written;
  }
  RefreshParameters(name);
  if (list->key == "Combobox_2" && controls_[0].parts[kFourthSource].checked) {
    RefillBox5(row.Cell(kBox5DigitsOffset + j), row.Cell(kBox5IndexOffset + j));
    // The frequency's row is marked as the changed one again after the refill.
    RefreshParameters(name);
  }
}

// While Combobox_5 is off, its handler writes no rows: it only refills the box from
// the availability digits of its own row.
void Clock2Panel::Box5Changed(int control) {
  ControlModel& box = controls_[static_cast<std::size_t>(control)].parts[0];
  const PanelRow& row = RowOf(control);
  const std::string& digits = row.Cell(kBox5Availability);
  std::vector<std::string> items = Box5Items();
  box.ClearItems();
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (i < digits.size() && digits[i] == '1' && !items[i].empty()) box.AddItem(items[i]);
  }
  box.Select(std::atoi(row.Cell(kBox5StartIndex).c_str()));
}

void Clock2Panel::RefillBox5(const std::string& digits, const std::string& index) {
  int control = Index("Combobox_5");
  if (digits != box5Digits_) {
    ControlModel& box = controls_[static_cast<std::size_t>(control)].parts[0];
    box.ClearItems();
    std::vector<std::string> items = Box5Items();
    for (std::size_t i = 0; i < items.size() && i < digits.size(); ++i) {
      if (digits[i] == '1' && !items[i].empty()) box.AddItem(items[i]);
    }
    box.Select(index.empty() ? 0 : std::atoi(index.c_str()));
    box5Digits_ = digits;
  }
  RunHandler(control);
}

}  // namespace tessara
