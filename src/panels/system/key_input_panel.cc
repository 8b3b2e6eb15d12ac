#include "panels/system/key_input_panel.h"

#include <cstring>

#include "core/text.h"
#include "panels/framework/bit_operation.h"

namespace tessara {

namespace {

// Control places, in control order.
constexpr int kPinGroup = 0;
constexpr int kFirstList = 1;
constexpr int kFirstPairOn = 2;
constexpr int kFirstPairOff = 3;
constexpr int kSecondList = 4;
constexpr int kSecondPairOn = 5;
constexpr int kSecondPairOff = 6;

// Cells of the eight-option group's row.
constexpr int kGroupRowCell = 9;
constexpr int kGroupCommentCell = 17;
// Cells of an option's row.
constexpr int kOperationCell = 1;
constexpr int kCommentCell = 5;
constexpr int kStateCell = 9;
constexpr int kOptionEnableDigitsCell = 10;
constexpr int kListEnableDigitsCell = 6;
// The word in the name of the register row that the pins share.
constexpr std::string_view kRegisterWord = "rold";

std::vector<ControlSpec> KeyInputControls() {
  ControlSpec single{ControlKind::kRadioGroup, "", 1, {}};
  single.singleOption = true;
  auto option = [&](const char* key) {
    ControlSpec controlSpec = single;
    controlSpec.key = key;
    return controlSpec;
  };
  return {
      {ControlKind::kRadioGroup, "Radiobox_1", 8, {}},
      {ControlKind::kCombobox, "Combobox_1", 1, {}},
      option("Radiobox_2"),
      option("Radiobox_3"),
      {ControlKind::kCombobox, "Combobox_2", 1, {}},
      option("Radiobox_4"),
      option("Radiobox_5"),
  };
}

PanelBehaviour KeyInputBehaviour() {
  PanelBehaviour behaviour;
  behaviour.showAllRows = true;
  return behaviour;
}

// The last row whose cell 0 contains `word`; 0 for none.
int LastRowContaining(const RowTable& table, std::string_view word) {
  int found = 0;
  for (int r = 1; r < table.RowCount(); ++r) {
    const std::string& cell = table.Row(r).Cell(0);
    if (!cell.empty() && FindNoCase(cell, word) != std::string::npos) found = r;
  }
  return found;
}

}  // namespace

KeyInputPanel::KeyInputPanel()
    : PeripheralPanel(PanelKind::kKeyInput, KeyInputControls(), KeyInputBehaviour()),
      pairs_{Pair{kFirstList, kFirstPairOn, kFirstPairOff},
             Pair{kSecondList, kSecondPairOn, kSecondPairOff}} {}

void KeyInputPanel::OnInitDialog() {
  for (Pair& pair : pairs_) {
    pair.pinState.fill(0);
    pair.pairChoice = 0;
  }
  // An option button shows the caption of its own row.
  for (int c : {kFirstPairOn, kFirstPairOff, kSecondPairOn, kSecondPairOff}) {
    Control& option = controls_[static_cast<std::size_t>(c)];
    option.parts[0].text = option.Caption();
  }
  // Every group gets its first option checked; of a pair that is the first button only.
  PeripheralPanel::OnInitDialog();
  for (const Pair& pair : pairs_) {
    controls_[static_cast<std::size_t>(pair.secondOption)].parts[0].checked = false;
  }
}

void KeyInputPanel::ApplyDefaults() {
  for (int c : {kFirstList, kFirstPairOn, kFirstPairOff, kSecondList, kSecondPairOn,
                kSecondPairOff}) {
    Control& control = controls_[static_cast<std::size_t>(c)];
    int r = rowTable_.FindRowByCaption(control.Caption(), 1);
    if (r == 0) continue;
    bool list = control.kind == ControlKind::kCombobox;
    const std::string& digits =
        rowTable_.Row(r).Cell(list ? kListEnableDigitsCell : kOptionEnableDigitsCell);
    if (digits.empty()) continue;
    control.parts[0].enabled = digits[0] != '0';
    if (list) control.frame.enabled = control.parts[0].enabled;
  }
}

int KeyInputPanel::PairOf(int control) const {
  for (std::size_t p = 0; p < pairs_.size(); ++p) {
    const Pair& pair = pairs_[p];
    if (control == pair.list || control == pair.firstOption || control == pair.secondOption) {
      return static_cast<int>(p);
    }
  }
  return -1;
}

void KeyInputPanel::OnOptionClick(int control, int option) {
  int p = PairOf(control);
  if (p < 0) {
    PeripheralPanel::OnOptionClick(control, option);
    return;
  }
  // The two buttons of a pair are two keys of one choice.
  const Pair& pair = pairs_[static_cast<std::size_t>(p)];
  controls_[static_cast<std::size_t>(pair.firstOption)].parts[0].checked = control == pair.firstOption;
  controls_[static_cast<std::size_t>(pair.secondOption)].parts[0].checked = control == pair.secondOption;
  OnPairOption(p);
}

void KeyInputPanel::OnRadioGroup(int control) {
  int p = PairOf(control);
  if (p >= 0) {
    OnPairOption(p);
    return;
  }
  const Control& group = controls_[static_cast<std::size_t>(control)];
  int i = group.CheckedPart();
  if (i < 0) return;
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(group.Caption(), 1));
  const std::string& text = row.Cell(kGroupRowCell + i);
  std::string name(RowName(text));
  std::size_t slot = 0;
  for (std::size_t s = 0; s < parameterRows_.size(); ++s) {
    if (parameterRows_[s].empty() || StartsWithNoCase(parameterRows_[s], name)) {
      slot = s;
      break;
    }
  }
  parameterRows_[slot] = text;
  parameterComments_[slot] = row.Cell(kGroupCommentCell + i);
  RefreshParameters(name);
}

void KeyInputPanel::OnPairOption(int p) {
  Pair& pair = pairs_[static_cast<std::size_t>(p)];
  const Control& first = controls_[static_cast<std::size_t>(pair.firstOption)];
  const Control& second = controls_[static_cast<std::size_t>(pair.secondOption)];
  if (first.parts[0].checked && pair.pairChoice == 1) {
    ApplyPin(first.Caption(), p);
    pair.pairChoice = 0;
  } else if (second.parts[0].checked && pair.pairChoice == 0) {
    ApplyPin(second.Caption(), p);
    pair.pairChoice = 1;
  }
}

void KeyInputPanel::ApplyPin(const std::string& label, int p) {
  Pair& pair = pairs_[static_cast<std::size_t>(p)];
  int i = controls_[static_cast<std::size_t>(pair.list)].parts[0].selection;
  int r = LastRowContaining(rowTable_, label);
  int q = LastRowContaining(rowTable_, kRegisterWord);
  if (label.empty() || r == 0 || q == 0 || i < 0 || i >= kPinsPerPair) return;
  const PanelRow& optionRow = rowTable_.Row(r);
  const std::string register_ = rowTable_.Row(q).Cell(0);
  const std::string name(RowName(register_));
  std::size_t slot = 0;
  for (std::size_t s = 0; s < parameterRows_.size(); ++s) {
    if (parameterRows_[s].empty() || StartsWithNoCase(parameterRows_[s], name)) {
      slot = s;
      break;
    }
  }
  const std::string& cell = optionRow.Cell(kOperationCell + i);
  // The state text compares as a C string does: anything that sorts above "0" is set.
  pair.pinState[static_cast<std::size_t>(i)] =
      std::strcmp(optionRow.Cell(kStateCell).c_str(), "0") > 0 ? 1 : 0;
  std::size_t equals = cell.find('=');
  if (equals == std::string::npos) return;
  BitOperation operation = BitOperation::Parse(std::string_view(cell).substr(equals + 1));
  std::string written = RegisterRowText(name, operation.Apply(RegisterRowValue(register_), true));
  rowTable_.MutableRow(q).SetCells({written});
  parameterRows_[slot] = written;
  parameterComments_[slot] = optionRow.Cell(kCommentCell + i);
  RefreshParameters(name);
}

void KeyInputPanel::OnCombobox(int control) {
  int p = PairOf(control);
  if (p >= 0) OnListChange(p);
}

// The pair shows the state of the pin now chosen; nothing is written.
void KeyInputPanel::OnListChange(int p) {
  Pair& pair = pairs_[static_cast<std::size_t>(p)];
  int i = controls_[static_cast<std::size_t>(pair.list)].parts[0].selection;
  if (i < 0 || i >= kPinsPerPair) return;
  int state = pair.pinState[static_cast<std::size_t>(i)];
  controls_[static_cast<std::size_t>(pair.firstOption)].parts[0].checked = state == 0;
  controls_[static_cast<std::size_t>(pair.secondOption)].parts[0].checked = state == 1;
  pair.pairChoice = state;
}

std::vector<SavedValue> KeyInputPanel::SavedValues() const {
  return {
      {kPinGroup, SavedForm::kAllOptions, 0},      {kFirstList, SavedForm::kIndex, 0},
      {kSecondList, SavedForm::kIndex, 0},         {kFirstPairOn, SavedForm::kAllOptions, 0},
      {kFirstPairOff, SavedForm::kAllOptions, 0},  {kSecondPairOn, SavedForm::kAllOptions, 0},
      {kSecondPairOff, SavedForm::kAllOptions, 0},
  };
}

}  // namespace tessara
