#include "panels/analog/adc2_panel.h"

#include "core/text.h"
#include "database/peripheral_identity.h"
#include "panels/framework/clock_values.h"

namespace tessara {

namespace {

enum ControlIndex : int {
  kSwitch = 0,    // Radiobox_1
  kSecond = 1,    // Radiobox_2
  kTrigger = 2,   // Radiobox_3
  kChannels = 3,  // Combobox_1, 4 items refilled by the mode
  kClock = 4,     // Combobox_2, 8 items refilled by the channel list
  kMode = 5,      // Combobox_3
  kSource = 6,    // Combobox_4
  kFifth = 7,     // Combobox_5
  kSixth = 8,     // Combobox_6
  kGroupList = 9, // Combobox_7, 4 items refilled by the mode
};

constexpr int kRefillItems = 20;
// Cells of the Combobox_1 row: the Combobox_2 digits per position.
constexpr int kClockDigits = 14;
// Cells of the Combobox_3 row, per position p.
constexpr int kModeMask = 27;
constexpr int kGroupListDigits = 35;
constexpr int kChannelDigits = 43;
constexpr int kSecondGroupMask = 51;
constexpr std::string_view kOscillatorPrefix = "fOCO-F";

ControlSpec List(const char* key, int items, int enableDigitsCell) {
  ControlSpec controlSpec{ControlKind::kCombobox, key, 1, {}};
  controlSpec.itemCount = items;
  controlSpec.oneRowPerItem = true;
  controlSpec.enableDigitsCell = enableDigitsCell;
  return controlSpec;
}

std::vector<ControlSpec> Adc2Controls() {
  std::vector<std::pair<std::string, int>> switchTargets =
      BothOptionsOf({"Radiobox_2", "Radiobox_3"});
  for (int n = 1; n <= 7; ++n) switchTargets.emplace_back("Combobox_" + std::to_string(n), -1);
  return {
      {ControlKind::kRadioGroup, "Radiobox_1", 2, switchTargets},
      {ControlKind::kRadioGroup, "Radiobox_2", 2, {}},
      {ControlKind::kRadioGroup, "Radiobox_3", 2, {}},
      List("Combobox_1", 4, 13),
      List("Combobox_2", 8, 25),
      List("Combobox_3", 8, 25),
      List("Combobox_4", 6, 19),
      List("Combobox_5", 4, 13),
      List("Combobox_6", 4, 13),
      List("Combobox_7", 4, 13),
  };
}

PanelBehaviour Adc2Behaviour() {
  PanelBehaviour behaviour;
  behaviour.groupOneWritesRow = true;
  behaviour.emptyMaskSkipsRerun = true;
  behaviour.emptyOptionCellWritesNothing = true;
  return behaviour;
}

// The divider an item of the clock list names, and whether it counts the low clock.
struct ClockDivider {
  double divider;
  bool lowClock;
};

ClockDivider DividerOf(const std::string& item) {
  static constexpr std::pair<std::string_view, double> kDividers[] = {
      {"Divide by 1024", 1024}, {"Divide by 256", 256}, {"Divide by 64", 64},
      {"Divide by 32", 32},     {"Divide by 16", 16},   {"Divide by 8", 8},
      {"Divide by 4", 4},
  };
  if (item == "Divide by 4(subclk)") return {4, true};
  for (const auto& [text, divider] : kDividers) {
    if (item == text) return {divider, false};
  }
  return {1, false};
}

}  // namespace

ADC2Panel::ADC2Panel() : PeripheralPanel(PanelKind::kADC2, Adc2Controls(), Adc2Behaviour()) {}

void ADC2Panel::OnInitDialog() {
  // A new window brings empty lists, so every refill must happen again.
  for (RefillableCombo* combo : {&channels_, &clock_, &groupList_}) combo->rememberedMask.clear();
  PeripheralPanel::OnInitDialog();
}

void ADC2Panel::OnCombobox(int control) {
  switch (control) {
    case kChannels: ChannelsChanged(); break;
    case kClock: ClockChanged(); break;
    case kMode: ModeChanged(); break;
    default: PeripheralPanel::OnCombobox(control); break;
  }
}

void ADC2Panel::Refill(int control, RefillableCombo& combo, int maskCell, int position) {
  const Control& box = controls_[static_cast<std::size_t>(control)];
  const PanelRow& boxRow = rowTable_.Row(rowTable_.FindRowByCaption(box.Caption(), 1));
  const int items = SpecOf(control).itemCount;
  combo.itemTexts.assign(kRefillItems, std::string());
  for (int i = 0; i < items && i < kRefillItems; ++i) {
    combo.itemTexts[static_cast<std::size_t>(i)] = boxRow.Cell(1 + i);
  }
  std::string mask;
  if (position >= 0) {
    const Control& giver = controls_[static_cast<std::size_t>(
        control == kClock ? kChannels : kMode)];
    mask = rowTable_.Row(rowTable_.FindRowByCaption(giver.Caption(), 1)).Cell(maskCell + position);
  }
  RefillCombo(control, combo, mask);
}

void ADC2Panel::ChannelsChanged() {
  const Control& box = controls_[kChannels];
  if (!box.parts[0].enabled) return;
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(box.Caption(), 1));
  std::string name = ApplyComboItem(kChannels, row, SelectedItemCell(kChannels));
  RefreshParameters(name);
  Refill(kClock, clock_, kClockDigits, box.parts[0].selection);
}

void ADC2Panel::ClockChanged() {
  const Control& box = controls_[kClock];
  if (!box.parts[0].enabled) return;
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(box.Caption(), 1));
  const int cell = SelectedItemCell(kClock);
  if (cell <= 0) {
    RefreshParameters("");
    return;
  }
  const std::string& itemRow = row.Cell(cell + 8);
  std::string comment = row.Cell(cell + 16);
  if (Context() != nullptr && Context()->flags != nullptr && Context()->flags->FlagKBFamily != 0) {
    ClockDivider divider = DividerOf(row.Cell(cell));
    double clockHz = divider.lowClock ? LowClockHzOf(Context()) : SystemClockHzOf(Context());
    double cycle = divider.divider / clockHz * 1000000;
    comment += ", Serial Clock Cycle = " + FormatC("%.1f", cycle) + "us";
  }
  if (!itemRow.empty()) WriteParameterRow(itemRow, comment);
  RefreshParameters(RowName(itemRow));
}

void ADC2Panel::FollowOscillatorItem(int position) {
  ControlModel& sources = controls_[kSource].parts[0];
  int found = -1;
  for (std::size_t i = 0; i < sources.items.size(); ++i) {
    if (StartsWithNoCase(sources.items[i], kOscillatorPrefix)) {
      found = static_cast<int>(i);
      break;
    }
  }
  if (position > 0 && found >= 0) {
    removedOscillatorPosition_ = found;
    removedOscillatorText_ = sources.items[static_cast<std::size_t>(found)];
    sources.items.erase(sources.items.begin() + found);
    sources.Select(0);
  } else if (position == 0 && found < 0) {
    if (!removedOscillatorText_.empty()) {
      int at = removedOscillatorPosition_;
      if (at < 0 || at > static_cast<int>(sources.items.size())) {
        at = static_cast<int>(sources.items.size());
      }
      sources.items.insert(sources.items.begin() + at, removedOscillatorText_);
      // The selected item stays the selected item.
      if (sources.selection >= at) ++sources.selection;
    }
  } else {
    return;
  }
  RunHandler(kSource);
}

void ADC2Panel::ModeChanged() {
  const Control& box = controls_[kMode];
  if (!box.parts[0].enabled) return;
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(box.Caption(), 1));
  std::string name = ApplyComboItem(kMode, row, SelectedItemCell(kMode));
  const int position = box.parts[0].selection;
  if (Context() != nullptr && Context()->flags != nullptr && Context()->flags->FlagQTL4EF != 0) {
    FollowOscillatorItem(position);
  }
  if (position >= 0) {
    // A "0" at the trigger group's first option selects its second.
    ApplyPlacedMask(row.Cell(kModeMask + position),
                    {{0, {kTrigger, 0}, MaskVariant::kInvertFirstOption},
                     {1, {kTrigger, 1}},
                     {2, {kClock, -1}},
                     {3, {kFifth, -1}},
                     {4, {kSixth, -1}},
                     {5, {kGroupList, -1}}},
                    controls_);
  }
  for (int dependent : {kTrigger, kClock, kFifth, kSixth, kGroupList}) RunHandler(dependent);
  Refill(kGroupList, groupList_, kGroupListDigits, position);
  Refill(kChannels, channels_, kChannelDigits, position);
  if (position >= 0) {
    ApplyEnableMask(row.Cell(kSecondGroupMask + position), {{kSecond, 0}, {kSecond, 1}},
                    controls_);
  }
  RefreshParameters(name);
}

std::vector<SavedValue> ADC2Panel::SavedValues() const {
  // The mode comes first among the lists: its masks and refills set the others' items.
  std::vector<SavedValue> values{{kSwitch, SavedForm::kOptions, 0},
                                 {kSecond, SavedForm::kOptions, 0},
                                 {kTrigger, SavedForm::kOptions, 0}};
  for (int list : {kMode, kChannels, kClock, kSource, kFifth, kSixth, kGroupList}) {
    values.push_back({list, SavedForm::kIndex, 0});
  }
  return values;
}

}  // namespace tessara
