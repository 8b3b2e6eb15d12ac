#include "panels/system/port_panel.h"

#include <initializer_list>

#include "core/text.h"
#include "database/device_database.h"
#include "panels/framework/bit_operation.h"

namespace tessara {

namespace {

// Control places: the eight pins, the three switches, the list.
constexpr int kFirstSwitch = PortPanel::kPins;
constexpr int kLastSwitch = kFirstSwitch + 2;
constexpr int kList = kLastSwitch + 1;

// Options of a pin's group.
constexpr int kFirstStatus = 0;
constexpr int kSecondStatus = 1;
constexpr int kFirstDrive = 2;
constexpr int kSecondDrive = 3;

// Cells of a pin row.
constexpr int kEnableDigitsCell = 15;
constexpr int kDriveMaskSecondStatusCell = 16;
constexpr int kDriveMaskOtherCell = 17;

// Cells of a switch row and of the list row.
constexpr int kSwitchEnableDigitsCell = 5;
constexpr int kListEnableDigitsCell = 10;

// Words by which a register row is found, and the exact names a drive register must
// have. A later word in a list wins where several fit.
constexpr std::initializer_list<const char*> kStatusWords = {"pd", "IO.PCR", "IENR1.BYTE"};
constexpr std::initializer_list<const char*> kDriveWords = {"drr", "p2drr", "IO.PUCR",
                                                             "IO.PMR4.BYTE", "IEGR.BYTE"};
constexpr std::initializer_list<const char*> kDriveNames = {
    "drr",           "p1drr",         "p2drr",         "IO.PUCR1.BYTE", "IO.PUCR3.BYTE",
    "IO.PUCR5.BYTE", "IO.PUCR6.BYTE", "IO.PMR4.BYTE",  "IEGR.BYTE"};
constexpr std::initializer_list<const char*> kDriveSlotWords = {
    "drr", "p1drr", "p2drr", "IO.PUCR", "IO.PMR4.BYTE", "IEGR.BYTE"};
// The drive register whose bit goes away with a change of the pin's status.
constexpr std::string_view kPullUpWord = "IO.PUCR";

std::vector<ControlSpec> PortControls() {
  std::vector<ControlSpec> controls;
  for (int k = 1; k <= PortPanel::kPins; ++k) {
    controls.push_back({ControlKind::kRadioGroup, "Radiobox_" + std::to_string(k), 4, {}});
  }
  for (int k = 1; k <= 3; ++k) {
    controls.push_back({ControlKind::kCheckbox, "Checkbox_" + std::to_string(k), 1, {}});
  }
  controls.push_back({ControlKind::kCombobox, "Combobox_1", 1, {}});
  return controls;
}

PanelBehaviour PortBehaviour() {
  PanelBehaviour behaviour;
  behaviour.showAllRows = true;
  behaviour.extraSettingsRows = false;
  return behaviour;
}

bool ContainsAnyWord(std::string_view text, std::initializer_list<const char*> words) {
  for (const char* word : words) {
    if (FindNoCase(text, word) != std::string_view::npos) return true;
  }
  return false;
}

// The last of `words` that `name` contains; empty when none does.
std::string LastWordIn(std::string_view name, std::initializer_list<const char*> words) {
  std::string found;
  for (const char* word : words) {
    if (FindNoCase(name, word) != std::string_view::npos) found = word;
  }
  return found;
}

}  // namespace

PortPanel::PortPanel() : PeripheralPanel(PanelKind::kPort, PortControls(), PortBehaviour()) {}

bool PortPanel::ShiftedSlotGroup() const {
  if (Context() == nullptr || Context()->group == nullptr) return false;
  const std::string& group = Context()->group->Group;
  for (const char* name : {"QTL/5RZ", "QTL/5SZ", "QTL/5UZ"}) {
    if (StartsWithNoCase(group, name)) return true;
  }
  return false;
}

int PortPanel::PinOfRowName(const std::string& name) const {
  for (const char* word : {"Pin", "IRQ"}) {
    if (name.size() != std::string_view(word).size() + 1 || !StartsWithNoCase(name, word)) continue;
    char digit = name.back();
    if (digit >= '0' && digit <= '7') return digit - '0';
    // "Pin8" steers the eighth pin's controls as well.
    if (digit == '8' && EqualsNoCase(word, "Pin")) return kPins - 1;
  }
  return -1;
}

void PortPanel::OnInitDialog() {
  pinStatus_.fill(0);
  pinDrive_.fill(0);
  const bool kb = Context() != nullptr && Context()->flags != nullptr &&
                  Context()->flags->FlagKBFamily != 0;
  headings_ = {"Pin", "Pin Status", kb ? "MOS Input Pull Up" : "Drive Capacity"};
  for (int k = 0; k < kPins; ++k) {
    Control& pin = controls_[static_cast<std::size_t>(k)];
    pin.parts[kFirstStatus].checked = true;
    pin.parts[kSecondStatus].checked = false;
    pin.parts[kFirstDrive].checked = true;
    pin.parts[kSecondDrive].checked = false;
  }
  for (int k = kFirstSwitch; k <= kList; ++k) {
    Control& control = controls_[static_cast<std::size_t>(k)];
    if (control.kind == ControlKind::kCheckbox) control.parts[0].text = control.Caption();
  }
  currentChoice_ = 0;
  for (int r = 1; r < rowTable_.RowCount(); ++r) {
    const PanelRow& row = rowTable_.Row(r);
    if (row.IsEmpty() || row.Cell(0).empty()) continue;
    const std::string& name = row.Cell(0);
    int pin = PinOfRowName(name);
    if (pin >= 0) {
      const std::string& digits = row.Cell(kEnableDigitsCell);
      Control& group = controls_[static_cast<std::size_t>(pin)];
      for (std::size_t place = 0; place < digits.size() && place < group.parts.size(); ++place) {
        group.parts[place].enabled = digits[place] != '0';
      }
      if (EqualsNoCase(name, "IRQ0")) headings_ = {"IRQ", "Interrupt Enable", "Active Edge"};
      if (kb && EqualsNoCase(name, "Pin2") && digits.size() > 3 && digits[3] == '0') {
        headings_[2] = "Data Output";
      }
      continue;
    }
    for (int k = kFirstSwitch; k <= kList; ++k) {
      Control& control = controls_[static_cast<std::size_t>(k)];
      if (!EqualsNoCase(control.Caption(), name)) continue;
      bool list = k == kList;
      const std::string& digits = row.Cell(list ? kListEnableDigitsCell : kSwitchEnableDigitsCell);
      if (digits.empty()) continue;
      bool enabled = digits[0] != '0';
      control.parts[0].enabled = enabled;
      if (list) control.frame.enabled = enabled;
    }
  }
  BuildTooltips();
}

// The first text goes to every status option, the second to every drive option.
void PortPanel::BuildTooltips() {
  PeripheralPanel::BuildTooltips();
  for (std::size_t k = 0; k < 2; ++k) {
    for (int pin = 0; pin < kPins; ++pin) {
      int first = k == 0 ? kFirstStatus : kFirstDrive;
      BindTooltip(k, pin, first);
      BindTooltip(k, pin, first + 1);
    }
  }
}

void PortPanel::OnOptionClick(int control, int option) {
  Control& group = controls_.at(static_cast<std::size_t>(control));
  if (group.kind != ControlKind::kRadioGroup) {
    PeripheralPanel::OnOptionClick(control, option);
    return;
  }
  // A click checks its option and clears only the other option of the same pair.
  int pairStart = option < kFirstDrive ? kFirstStatus : kFirstDrive;
  group.parts[static_cast<std::size_t>(pairStart)].checked = option == pairStart;
  group.parts[static_cast<std::size_t>(pairStart + 1)].checked = option == pairStart + 1;
  if (pairStart == kFirstStatus) {
    OnStatus(control);
  } else {
    OnDrive(control);
  }
}

// Run by name (a mask or a replay), a pin's group runs both of its handlers.
void PortPanel::OnRadioGroup(int control) {
  OnStatus(control);
  OnDrive(control);
}

void PortPanel::ApplyDriveMask(int pin) {
  Control& group = controls_[static_cast<std::size_t>(pin)];
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(group.Caption(), 0));
  const std::string& mask = row.Cell(group.parts[kSecondStatus].checked
                                         ? kDriveMaskSecondStatusCell
                                         : kDriveMaskOtherCell);
  if (mask.size() < 3) return;
  std::string_view places = std::string_view(mask).substr(1, 2);
  if (places == "11" || places == "00") {
    group.parts[kFirstDrive].enabled = places == "11";
    group.parts[kSecondDrive].enabled = places == "11";
  }
}

void PortPanel::OnStatus(int pin) {
  ApplyDriveMask(pin);
  std::vector<ControlModel>& options = controls_[static_cast<std::size_t>(pin)].parts;
  std::size_t k = static_cast<std::size_t>(pin);
  if (options[kFirstStatus].checked && pinStatus_[k] == 1) {
    // Back to the first status: the drive bit goes first, written as it was set
    // while the second status applied.
    options[kFirstStatus].checked = false;
    options[kSecondStatus].checked = true;
    options[kFirstDrive].checked = true;
    options[kSecondDrive].checked = false;
    if (pinDrive_[k] == 1) {
      WriteRegister(pin, Register::kDrive);
      pinDrive_[k] = 0;
    }
    options[kFirstStatus].checked = true;
    options[kSecondStatus].checked = false;
    WriteRegister(pin, Register::kStatus);
    pinStatus_[k] = 0;
  } else if (options[kSecondStatus].checked && pinStatus_[k] == 0) {
    WriteRegister(pin, Register::kStatus);
    pinStatus_[k] = 1;
    if (!options[kFirstDrive].enabled && !options[kSecondDrive].enabled) {
      options[kFirstDrive].checked = true;
      options[kSecondDrive].checked = false;
    }
  }
}

void PortPanel::OnDrive(int pin) {
  ApplyDriveMask(pin);
  const std::vector<ControlModel>& options = controls_[static_cast<std::size_t>(pin)].parts;
  std::size_t k = static_cast<std::size_t>(pin);
  if (options[kFirstDrive].checked && pinDrive_[k] == 1) {
    WriteRegister(pin, Register::kDrive);
    pinDrive_[k] = 0;
  } else if (options[kSecondDrive].checked && pinDrive_[k] == 0) {
    WriteRegister(pin, Register::kDrive);
    pinDrive_[k] = 1;
  }
}

void PortPanel::WriteRegister(int pin, Register what) {
  const Control& group = controls_[static_cast<std::size_t>(pin)];
  const PanelRow& pinRow = rowTable_.Row(rowTable_.FindRowByCaption(group.Caption(), 0));
  const int si = group.parts[kFirstStatus].checked ? 1 : 2;
  const int di = group.parts[kFirstDrive].checked ? 3 : 4;

  int statusRow = 0;
  int driveRow = 0;
  for (int r = 1; r < rowTable_.RowCount(); ++r) {
    const std::string& cell = rowTable_.Row(r).Cell(0);
    if (cell.empty()) continue;
    if (ContainsAnyWord(cell, kStatusWords)) statusRow = r;
    if (ContainsAnyWord(cell, kDriveWords)) driveRow = r;
  }
  if (driveRow != 0) {
    std::string_view name = RowName(rowTable_.Row(driveRow).Cell(0));
    bool known = false;
    for (const char* exact : kDriveNames) known = known || EqualsNoCase(name, exact);
    if (!known) driveRow = 0;
  }

  auto rewrite = [&](int r, std::uint32_t value) {
    std::string name(RowName(rowTable_.Row(r).Cell(0)));
    rowTable_.MutableRow(r).SetCells({RegisterRowText(name, value)});
  };
  std::string written;
  if (what == Register::kStatus && statusRow != 0) {
    const std::string& row = rowTable_.Row(statusRow).Cell(0);
    rewrite(statusRow, BitOperation::Parse(pinRow.Cell(4 + si)).Apply(RegisterRowValue(row)));
    written = RowName(rowTable_.Row(statusRow).Cell(0));
    if (driveRow != 0 && StartsWithNoCase(rowTable_.Row(driveRow).Cell(0), kPullUpWord)) {
      // The pull-up of a pin goes away when its status changes.
      std::uint32_t d = RegisterRowValue(rowTable_.Row(driveRow).Cell(0));
      std::uint32_t m = BitOperation::Parse(pinRow.Cell(3 + di)).operand;
      std::uint32_t common = d & m;
      if (d != 0 && common != 0 && (common & (common - 1)) == 0) d ^= m;
      rewrite(driveRow, d);
    }
  } else if (what == Register::kDrive && driveRow != 0) {
    const std::string& row = rowTable_.Row(driveRow).Cell(0);
    rewrite(driveRow,
            BitOperation::Parse(pinRow.Cell(4 + di)).Apply(RegisterRowValue(row), true));
    written = RowName(rowTable_.Row(driveRow).Cell(0));
  }

  auto copy = [&](int r, const std::string& word, const std::string& comment) {
    for (std::size_t slot = 0; slot < parameterRows_.size(); ++slot) {
      if (parameterRows_[slot].empty() || StartsWithNoCase(parameterRows_[slot], word)) {
        parameterRows_[slot] = rowTable_.Row(r).Cell(0);
        parameterComments_[slot] = comment;
        return;
      }
    }
  };
  if (statusRow != 0) {
    std::string word = LastWordIn(RowName(rowTable_.Row(statusRow).Cell(0)), kStatusWords);
    copy(statusRow, word, pinRow.Cell(8 + si));
  }
  if (driveRow != 0) {
    std::string word = LastWordIn(RowName(rowTable_.Row(driveRow).Cell(0)), kDriveSlotWords);
    copy(driveRow, word, pinRow.Cell(8 + di));
  }
  RefreshParameters(written);
}

void PortPanel::OnCheckbox(int control, int) {
  if (control == kLastSwitch) {
    OnLastSwitch();
  } else {
    OnSwitch(control);
  }
}

void PortPanel::OnSwitch(int control) {
  const Control& box = controls_[static_cast<std::size_t>(control)];
  int r = rowTable_.FindRowByCaption(box.Caption(), 1);
  if (r == 0) return;  // a switch that the section does not have
  const PanelRow& row = rowTable_.Row(r);
  bool checked = box.parts[0].checked;
  const std::string& text = row.Cell(checked ? 2 : 1);
  const std::string& comment = row.Cell(checked ? 4 : 3);
  std::size_t slot = static_cast<std::size_t>(control - kFirstSwitch + (ShiftedSlotGroup() ? 3 : 2));
  parameterRows_.at(slot) = text;
  parameterComments_.at(slot) = comment;
  RefreshParameters(RowName(text));
}

void PortPanel::OnLastSwitch() {
  const Control& box = controls_[static_cast<std::size_t>(kLastSwitch)];
  int r = rowTable_.FindRowByCaption(box.Caption(), 1);
  if (r == 0) return;
  const PanelRow& row = rowTable_.Row(r);
  bool checked = box.parts[0].checked;
  const std::string text = row.Cell(checked ? 2 : 1);
  const std::string comment = row.Cell(checked ? 4 : 3);
  const std::string name(RowName(text));
  const std::size_t base = ShiftedSlotGroup() ? 0 : 4;
  if (parameterRows_[base].find(name) != std::string::npos) {
    parameterRows_[base] = text;
    parameterComments_[base] = comment;
  } else if (base < 5) {
    // The switch's row takes the base slot and pushes the rows behind it down; the
    // row in the last slot is lost.
    for (std::size_t s = 5; s > base; --s) {
      parameterRows_[s] = parameterRows_[s - 1];
      parameterComments_[s] = parameterComments_[s - 1];
    }
    parameterRows_[base] = text;
    parameterComments_[base] = comment;
  }
  RefreshParameters(name);
}

void PortPanel::OnCombobox(int control) {
  const Control& box = controls_[static_cast<std::size_t>(control)];
  if (!box.parts[0].visible || !box.parts[0].enabled) return;
  const std::string* item = box.parts[0].SelectedItem();
  if (item == nullptr) return;
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(box.Caption(), 1));
  int j = 0;
  for (int c = 1; c <= 64; ++c) {
    if (!row.Cell(c).empty() && EqualsNoCase(row.Cell(c), *item)) {
      j = c;
      break;
    }
  }
  if (j == 0) return;
  const std::string& text = row.Cell(3 + j);
  WriteParameterRow(text, row.Cell(6 + j));
  RefreshParameters(RowName(text));
}

bool PortPanel::IsEmissionKey(const Control& control) const {
  static constexpr std::initializer_list<const char*> kKeys = {
      "Radiobox_1", "Radiobox_2", "Radiobox_3", "Radiobox_4", "Radiobox_5",
      "Radiobox_6", "Radiobox_7", "Checkbox_1", "Checkbox_2"};
  for (const char* key : kKeys) {
    if (EqualsNoCase(control.key, key)) return true;
  }
  return false;
}

void PortPanel::SaveState(std::string& text) const {
  for (int k = 0; k < kPins; ++k) {
    for (const ControlModel& option : controls_[static_cast<std::size_t>(k)].parts) {
      text += FormatC("%d ", option.checked ? 1 : 0);
    }
  }
  for (int k = kFirstSwitch; k <= kLastSwitch; ++k) {
    text += FormatC("%d ", controls_[static_cast<std::size_t>(k)].parts[0].checked ? 1 : 0);
  }
  text += FormatC("%d ", controls_[static_cast<std::size_t>(kList)].parts[0].selection);
  text += " ";
  text += " \n";
}

void PortPanel::LoadState(const std::string& projectText) {
  const std::string tag = SaveTag();
  std::size_t at = projectText.find(tag);
  if (at == std::string::npos) return;
  std::string rest = projectText.substr(at + tag.size());
  for (int k = 0; k < kPins; ++k) {
    std::vector<ControlModel>& options = controls_[static_cast<std::size_t>(k)].parts;
    options[kFirstStatus].checked = NextSavedInteger(rest) != 0;
    options[kSecondStatus].checked = NextSavedInteger(rest) != 0;
    OnStatus(k);
    options[kFirstDrive].checked = NextSavedInteger(rest) != 0;
    options[kSecondDrive].checked = NextSavedInteger(rest) != 0;
    OnDrive(k);
  }
  for (int k = kFirstSwitch; k < kLastSwitch; ++k) {
    controls_[static_cast<std::size_t>(k)].parts[0].checked = NextSavedInteger(rest) != 0;
    OnSwitch(k);
  }
  // The last switch and the list are written everywhere but read back only in the
  // groups where they lead the list.
  if (!ShiftedSlotGroup()) return;
  controls_[static_cast<std::size_t>(kLastSwitch)].parts[0].checked = NextSavedInteger(rest) != 0;
  OnLastSwitch();
  controls_[static_cast<std::size_t>(kList)].parts[0].Select(NextSavedInteger(rest));
  OnCombobox(kList);
}

}  // namespace tessara
