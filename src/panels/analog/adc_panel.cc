#include "panels/analog/adc_panel.h"

#include "database/peripheral_identity.h"

namespace tessara {

namespace {

enum ControlIndex : int {
  kSwitch = 0,     // Radiobox_1
  kMode = 1,       // Radiobox_2
  kFourGroup = 2,  // Radiobox_3, four options
  kModeTarget = 3, // Radiobox_4, steered by the mode's short mask
  kFifthGroup = 4, // Radiobox_5
  kChannels = 5,   // Combobox_1
};

constexpr int kFourGroupEnableDigits = 13;
constexpr int kFourGroupShowMask = 14;
constexpr int kChannelEnableDigits = 61;
// Item j of the channel list: rows at 11 + 2j and 12 + 2j, comments 24 cells behind.
constexpr int kChannelRowBase = 11;
constexpr int kChannelCommentOffset = 24;

std::vector<ControlSpec> AdcControls() {
  std::vector<std::pair<std::string, int>> switchTargets =
      BothOptionsOf({"Radiobox_2"});
  for (int option = 0; option < 4; ++option) switchTargets.emplace_back("Radiobox_3", option);
  for (const auto& target : BothOptionsOf({"Radiobox_4", "Radiobox_5"})) {
    switchTargets.push_back(target);
  }
  switchTargets.emplace_back("Combobox_1", -1);

  ControlSpec fourGroup{ControlKind::kRadioGroup, "Radiobox_3", 4, {}};
  fourGroup.enableDigitsCell = kFourGroupEnableDigits;
  ControlSpec channels{ControlKind::kCombobox, "Combobox_1", 1, {}};
  channels.enableDigitsCell = kChannelEnableDigits;
  return {
      {ControlKind::kRadioGroup, "Radiobox_1", 2, switchTargets},
      {ControlKind::kRadioGroup, "Radiobox_2", 2, {}},
      fourGroup,
      {ControlKind::kRadioGroup, "Radiobox_4", 2, {}},
      {ControlKind::kRadioGroup, "Radiobox_5", 2, {}},
      channels,
  };
}

PanelBehaviour AdcBehaviour() {
  PanelBehaviour behaviour;
  behaviour.groupOneWritesRow = true;
  behaviour.emptyMaskSkipsRerun = true;
  behaviour.emptyOptionCellWritesNothing = true;
  return behaviour;
}

}  // namespace

ADCPanel::ADCPanel() : PeripheralPanel(PanelKind::kADC, AdcControls(), AdcBehaviour()) {}

void ADCPanel::ApplyDefaults() {
  PeripheralPanel::ApplyDefaults();
  const Control& group = controls_[kFourGroup];
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(group.Caption(), 1));
  if (row.IsEmpty()) return;
  ApplyShowMask(row.Cell(kFourGroupShowMask),
                {{kFourGroup, 0}, {kFourGroup, 1}, {kFourGroup, 2}, {kFourGroup, 3}}, controls_);
}

void ADCPanel::OnRadioGroup(int control) {
  switch (control) {
    case kMode: ModeChanged(); break;
    case kFourGroup: FourOptionGroupChanged(); break;
    default: PeripheralPanel::OnRadioGroup(control); break;
  }
}

void ADCPanel::ModeChanged() {
  const Control& mode = controls_[kMode];
  if (!mode.AnyPartEnabled()) return;
  int choice = mode.CheckedPart();
  if (choice < 0) return;
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(mode.Caption(), 1));
  // The mode's own mask has two places, and any digit but "0" enables.
  const std::string& mask = row.Cell(8 + choice);
  ApplyEnableMask(mask, {{kModeTarget, 0}, {kModeTarget, 1}}, controls_,
                  MaskVariant::kAnyNonZeroEnables);
  if (!mask.empty()) RunHandler(kModeTarget);
  WriteOptionRow(choice, kMode);
  if (Context() == nullptr || Context()->flags == nullptr || Context()->flags->FlagQTL4 == 0) return;
  // The fourth option of the four-option group exists only with the first mode.
  ControlModel& fourth = controls_[kFourGroup].parts[3];
  if (choice == 0) {
    fourth.enabled = true;
  } else {
    fourth.enabled = false;
    if (fourth.checked) {
      controls_[kFourGroup].CheckOption(0);
      RunHandler(kFourGroup);
    }
  }
}

void ADCPanel::FourOptionGroupChanged() {
  const Control& group = controls_[kFourGroup];
  // Whether the group is in use is told by its first two options alone.
  if (!group.parts[0].enabled && !group.parts[1].enabled) return;
  int choice = group.CheckedPart();
  if (choice < 0) return;
  WriteOptionRow(choice, kFourGroup);
}

std::string ADCPanel::ApplyComboItem(int, const PanelRow& row, int cell) {
  if (cell <= 0) return std::string();
  std::string firstName;
  for (int rowCell : {kChannelRowBase + 2 * cell, kChannelRowBase + 1 + 2 * cell}) {
    const std::string& text = row.Cell(rowCell);
    if (rowCell == kChannelRowBase + 2 * cell) firstName = std::string(RowName(text));
    if (!text.empty()) WriteParameterRow(text, row.Cell(rowCell + kChannelCommentOffset));
  }
  return firstName;
}

std::vector<SavedValue> ADCPanel::SavedValues() const {
  return {
      {kSwitch, SavedForm::kOptions, 0},   {kMode, SavedForm::kOptions, 0},
      {kFourGroup, SavedForm::kAllOptions, 0}, {kModeTarget, SavedForm::kOptions, 0},
      {kFifthGroup, SavedForm::kOptions, 0}, {kChannels, SavedForm::kIndex, 0},
  };
}

}  // namespace tessara
