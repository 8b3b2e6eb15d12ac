#include "panels/analog/adc4_panel.h"

#include <algorithm>

#include "core/text.h"

namespace tessara {

namespace {

enum ControlIndex : int {
  kSwitch = 0,      // Radiobox_1; Radiobox_2 to Radiobox_8 are 1 to 7
  kPairFirst = 3,   // Radiobox_4
  kPairSecond = 4,  // Radiobox_5
  kFirstList = 8,   // Combobox_1 to Combobox_6 are 8 to 13
  kSourceList = 9,  // Combobox_2, decides the items of Combobox_3
  kChannelList = 10,  // Combobox_3
  kFifthList = 12,  // Combobox_5
  kSixthList = 13,  // Combobox_6
  kFourBoxes = 14,  // Checkbox_1
  kEightBoxes = 15, // Checkbox_2
};

constexpr int kGroups = 8;
constexpr int kLists = 6;
constexpr int kListItems[kLists] = {5, 4, 8, 4, 4, 4};
// Mask and digit cells behind item j's own cell.
constexpr int kFirstListMask = 17;
constexpr int kSourceListDigits = 14;
constexpr int kSixthListMask = 14;
constexpr std::size_t kSourceListDigitsMinimum = 8;
// The second option of the pair writes the row of Radiobox_5, cell 4, comment cell 6.
constexpr int kSecondPairRow = 4;
constexpr int kSecondPairComment = 6;

// The places of the switch's mask; places 1, 5, 7, 9, 11 and 13 are not read.
std::vector<PlacedTarget> SwitchMaskPlaces() {
  std::vector<PlacedTarget> placed;
  auto bothOptions = [&](int place, int group) {
    placed.push_back({place, {group, 0}});
    placed.push_back({place, {group, 1}});
  };
  bothOptions(0, 1);
  placed.push_back({2, {2, 0}});
  placed.push_back({3, {2, 1}});
  bothOptions(4, 3);
  bothOptions(6, 4);
  bothOptions(8, 5);
  bothOptions(10, 6);
  bothOptions(12, 7);
  for (int list = 0; list < kLists; ++list) placed.push_back({14 + list, {kFirstList + list, -1}});
  placed.push_back({20, {kFourBoxes, -1}, MaskVariant::kAnyNonZeroEnables});
  placed.push_back({21, {kEightBoxes, -1}, MaskVariant::kAnyNonZeroEnables});
  return placed;
}

std::vector<ControlSpec> Adc4Controls() {
  std::vector<ControlSpec> controls;
  for (int group = 1; group <= kGroups; ++group) {
    controls.push_back({ControlKind::kRadioGroup, "Radiobox_" + std::to_string(group), 2, {}});
  }
  for (int list = 0; list < kLists; ++list) {
    ControlSpec controlSpec{ControlKind::kCombobox, "Combobox_" + std::to_string(list + 1), 1, {}};
    controlSpec.itemCount = kListItems[list];
    controlSpec.oneRowPerItem = true;
    controls.push_back(std::move(controlSpec));
  }
  controls.push_back({ControlKind::kCheckbox, "Checkbox_1", 4, {}});
  controls.push_back({ControlKind::kCheckbox, "Checkbox_2", 8, {}});
  return controls;
}

PanelBehaviour Adc4Behaviour() {
  PanelBehaviour behaviour;
  behaviour.groupOneWritesRow = true;
  behaviour.refreshGuard = true;
  behaviour.listGivesFirstText = true;
  behaviour.emptyOptionCellWritesNothing = true;
  return behaviour;
}

}  // namespace

ADC4Panel::ADC4Panel() : PeripheralPanel(PanelKind::kADC4, Adc4Controls(), Adc4Behaviour()) {}

void ADC4Panel::OnInitDialog() {
  controls_[kSwitch].CheckOption(0);
  currentChoice_ = 0;
  ApplyDefaults();
  BuildTooltips();
}

void ADC4Panel::BuildActiveKeys() {
  std::fill(activeKeys_.begin(), activeKeys_.end(), std::string());
  std::size_t slot = 0;
  auto put = [&](bool active, const std::string& caption) {
    if (slot >= activeKeys_.size()) return;
    if (active) activeKeys_[slot] = caption;
    ++slot;
  };
  for (int group = 1; group < kGroups; ++group) {
    const Control& c = controls_[static_cast<std::size_t>(group)];
    bool active = c.AnyPartEnabled();
    // Only one of the pair shows its row: the first while its first option holds, the
    // second while its second option holds.
    if (group == kPairFirst) active = c.parts[0].enabled && c.parts[0].checked;
    if (group == kPairSecond) active = c.parts[1].enabled && c.parts[1].checked;
    put(active, c.Caption());
  }
  for (int list = 0; list < kLists; ++list) {
    const Control& c = controls_[static_cast<std::size_t>(kFirstList + list)];
    put(c.AnyPartEnabled(), c.Caption());
  }
  // One slot per box; the links turn each into the parameter of its box.
  for (int block : {kFourBoxes, kEightBoxes}) {
    const Control& c = controls_[static_cast<std::size_t>(block)];
    for (std::size_t box = 0; box < c.parts.size(); ++box) put(c.parts[0].enabled, c.Caption());
  }
}

void ADC4Panel::RunGuarded(const std::vector<int>& controls) {
  for (int control : controls) {
    ++refreshGuard_;
    RunHandler(control);
    --refreshGuard_;
  }
}

void ADC4Panel::OnRadioGroup(int control) {
  if (control == kPairFirst || control == kPairSecond) {
    PairChanged(control);
  } else {
    PeripheralPanel::OnRadioGroup(control);
  }
}

void ADC4Panel::ApplyGroupOneMask(int, std::string_view mask) {
  ApplyPlacedMask(mask, SwitchMaskPlaces(), controls_);
  // Every handler runs behind the switch: groups, lists, boxes.
  std::vector<int> all;
  for (int c = kSwitch + 1; c < static_cast<int>(controls_.size()); ++c) all.push_back(c);
  RunGuarded(all);
}

void ADC4Panel::PairChanged(int control) {
  Control& first = controls_[kPairFirst];
  Control& second = controls_[kPairSecond];
  const Control& changed = controls_[static_cast<std::size_t>(control)];
  if (!changed.AnyPartEnabled()) return;
  if (changed.parts[0].checked) {
    first.parts[0].checked = true;
    first.parts[1].checked = false;
    second.parts[0].checked = true;
    second.parts[1].checked = false;
    WriteOptionRow(0, kPairFirst);
  } else if (changed.parts[1].checked) {
    first.parts[0].checked = false;
    first.parts[1].checked = true;
    second.parts[0].checked = false;
    second.parts[1].checked = true;
    WriteSecondPairRow();
  }
}

void ADC4Panel::WriteSecondPairRow() {
  const Control& second = controls_[kPairSecond];
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(second.Caption(), 0));
  const std::string& cell = row.Cell(kSecondPairRow);
  if (!cell.empty()) WriteParameterRow(cell, row.Cell(kSecondPairComment));
  RefreshParameters(RowName(cell));
}

void ADC4Panel::OnCombobox(int control) {
  const Control& box = controls_[static_cast<std::size_t>(control)];
  if (!box.parts[0].enabled) return;
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(box.Caption(), 1));
  const int cell = SelectedItemCell(control);
  std::string name = ApplyComboItem(control, row, cell);
  if (control == kFirstList && cell > 0) {
    // First place: the first option of Radiobox_5, whose "0" selects the second one.
    // Second place: the second options of both groups of the pair.
    ApplyPlacedMask(row.Cell(kFirstListMask + cell),
                    {{0, {kPairSecond, 0}, MaskVariant::kInvertFirstOption},
                     {1, {kPairSecond, 1}},
                     {1, {kPairFirst, 1}},
                     {2, {kChannelList, -1}},
                     {3, {kFifthList, -1}}},
                    controls_);
    RunGuarded({kPairFirst, kPairSecond, kChannelList, kFifthList});
  } else if (control == kSourceList && cell > 0) {
    const std::string& digits = row.Cell(kSourceListDigits + cell);
    if (digits.size() >= kSourceListDigitsMinimum) {
      ControlModel& channels = controls_[kChannelList].parts[0];
      const PanelRow& channelRow =
          rowTable_.Row(rowTable_.FindRowByCaption(controls_[kChannelList].Caption(), 1));
      int oldPosition = channels.selection;
      channels.ClearItems();
      for (int i = 0; i < kListItems[2]; ++i) {
        if (digits[static_cast<std::size_t>(i)] == '1') channels.AddItem(channelRow.Cell(1 + i));
      }
      bool keep = oldPosition > 0 && oldPosition < static_cast<int>(channels.items.size());
      channels.Select(keep ? oldPosition : 0);
      RunGuarded({kChannelList});
    }
  } else if (control == kSixthList && cell > 0) {
    ApplyPlacedMask(row.Cell(kSixthListMask + cell),
                    {{0, {kFourBoxes, 3}}, {1, {kEightBoxes, 7}}}, controls_);
    RunGuarded({kFourBoxes, kEightBoxes});
  }
  RefreshParameters(name);
}

void ADC4Panel::WriteBox(int control, int box) {
  const Control& block = controls_[static_cast<std::size_t>(control)];
  if (box < 0 || box >= static_cast<int>(block.parts.size())) return;
  const ControlModel& part = block.parts[static_cast<std::size_t>(box)];
  if (!part.enabled) return;
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(block.Caption(), 1));
  // Box k (from 1) of a block of n: its rows follow the labels, checked then unchecked,
  // and each comment stands 2n cells behind its row.
  const int n = static_cast<int>(block.parts.size());
  const int k = box + 1;
  const int rowCell = (n - 1) + 2 * k + (part.checked ? 0 : 1);
  const std::string& text = row.Cell(rowCell);
  if (!text.empty()) WriteParameterRow(text, row.Cell(rowCell + 2 * n));
}

void ADC4Panel::OnCheckbox(int control, int box) {
  const Control& block = controls_[static_cast<std::size_t>(control)];
  if (box >= 0) {
    WriteBox(control, box);
  } else {
    for (int b = 0; b < static_cast<int>(block.parts.size()); ++b) WriteBox(control, b);
  }
  RefreshParameters("");
}

bool ADC4Panel::IsEmissionKey(const Control& control) const {
  return EqualsNoCase(control.key, "Combobox_2");
}

std::vector<SavedValue> ADC4Panel::SavedValues() const {
  std::vector<SavedValue> values;
  for (int group = 0; group < kGroups; ++group) values.push_back({group, SavedForm::kOptions, 0});
  for (int list = 0; list < kLists; ++list) {
    values.push_back({kFirstList + list, SavedForm::kIndex, 0});
  }
  for (int block : {kFourBoxes, kEightBoxes}) {
    int boxes = block == kFourBoxes ? 4 : 8;
    for (int box = 0; box < boxes; ++box) values.push_back({block, SavedForm::kBox, box});
  }
  return values;
}

}  // namespace tessara
