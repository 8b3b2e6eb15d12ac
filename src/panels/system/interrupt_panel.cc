#include "panels/system/interrupt_panel.h"

#include "core/text.h"
#include "panels/framework/bit_operation.h"

namespace tessara {

namespace {

// Control places, in the order of the save line of the other families.
constexpr int kGroup1 = 0;
constexpr int kGroup2 = 1;
constexpr int kGroup3 = 2;
constexpr int kGroup4 = 3;
constexpr int kGroup5 = 4;
constexpr int kList = 5;

// Per group 1 to 5: the first row cell, the first comment cell, the EnableDigits cell.
struct GroupCells {
  int row;
  int comment;
  int enableDigits;
};
constexpr GroupCells kGroupCells[] = {
    {3, 5, 7}, {3, 5, 7}, {5, 9, 13}, {9, 17, 25}, {3, 5, 7}};
constexpr int kListEnableDigitsCell = 16;
constexpr int kListCellsSearched = 69;

std::vector<ControlSpec> InterruptControls() {
  return {
      {ControlKind::kRadioGroup, "Radiobox_1", 2, {}},
      {ControlKind::kRadioGroup, "Radiobox_2", 2, {}},
      {ControlKind::kRadioGroup, "Radiobox_3", 4, {}},
      {ControlKind::kRadioGroup, "Radiobox_4", 8, {}},
      {ControlKind::kRadioGroup, "Radiobox_5", 2, {}},
      {ControlKind::kCombobox, "Combobox_1", 1, {}},
      {ControlKind::kLabel, "Label_1", 1, {}},
  };
}

PanelBehaviour InterruptBehaviour() {
  PanelBehaviour behaviour;
  behaviour.showAllRows = true;
  behaviour.extraSettingsRows = false;
  return behaviour;
}

}  // namespace

InterruptPanel::InterruptPanel()
    : PeripheralPanel(PanelKind::kInterrupt, InterruptControls(), InterruptBehaviour()) {}

void InterruptPanel::OnInitDialog() {
  group5Choice_ = 0;
  PeripheralPanel::OnInitDialog();
}

// One place of EnableDigits stands for the whole group.
void InterruptPanel::ApplyDefaults() {
  for (int g = kGroup1; g <= kList; ++g) {
    Control& control = controls_[static_cast<std::size_t>(g)];
    int r = rowTable_.FindRowByCaption(control.Caption(), 1);
    if (r == 0) continue;
    int cell = g == kList ? kListEnableDigitsCell : kGroupCells[g].enableDigits;
    const std::string& digits = rowTable_.Row(r).Cell(cell);
    if (digits.empty() || digits[0] != '0') continue;
    for (ControlModel& part : control.parts) part.enabled = false;
    if (g == kList) control.frame.enabled = false;
  }
}

void InterruptPanel::WriteGroupRow(int i, int g) {
  const Control& group = controls_[static_cast<std::size_t>(g - 1)];
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(group.Caption(), 1));
  const GroupCells& cells = kGroupCells[g - 1];
  const std::string& cell = row.Cell(cells.row + i);
  std::size_t equals = cell.find('=');
  if (equals == std::string::npos) return;  // a cell without its "=" is a fault of the data
  const std::string name = cell.substr(0, equals);
  const char op = equals + 1 < cell.size() ? cell[equals + 1] : '\0';

  std::size_t slot = 0;
  for (std::size_t s = 0; s < parameterRows_.size(); ++s) {
    if (parameterRows_[s].empty() || StartsWithNoCase(parameterRows_[s], name)) {
      slot = s;
      break;
    }
  }
  std::string newRow;
  if (op == '^' || op == '|') {
    // Bits change in the first statement; the statements behind a "," ride along.
    const std::string& present = parameterRows_[slot];
    std::size_t comma = present.find(',');
    std::string first = present.substr(0, comma);
    std::string rest = comma == std::string::npos ? std::string() : present.substr(comma);
    BitOperation operation = BitOperation::Parse(std::string_view(cell).substr(equals + 1));
    newRow = RegisterRowText(RowName(first), operation.Apply(RegisterRowValue(first))) + rest;
  } else {
    newRow = cell;
  }
  if (newRow.empty()) return;
  parameterRows_[slot] = newRow;
  parameterComments_[slot] = row.Cell(cells.comment + i);
  RefreshParameters(name);
}

void InterruptPanel::OnRadioGroup(int control) {
  const Control& group = controls_[static_cast<std::size_t>(control)];
  int checked = group.CheckedPart();
  switch (control) {
    case kGroup2:
      LinkGroup5();
      if (checked >= 0) WriteGroupRow(checked, 2);
      break;
    case kGroup4:
      if (checked >= 0) WriteGroupRow(checked, 4);
      // The fourth group rebuilds the register; the fifth group's bits go back in. A
      // toggle on the rebuilt value runs twice so that it ends as it was.
      if (controls_[kGroup5].parts[0].checked) {
        WriteGroupRow(0, 5);
        WriteGroupRow(0, 5);
      } else if (controls_[kGroup5].parts[1].checked) {
        WriteGroupRow(1, 5);
      }
      break;
    case kGroup5: OnGroup5(); break;
    default:
      if (checked >= 0) WriteGroupRow(checked, control + 1);
      break;
  }
}

void InterruptPanel::OnGroup5() {
  const Control& group = controls_[kGroup5];
  if (group.parts[0].checked && group5Choice_ == 1) {
    WriteGroupRow(0, 5);
    group5Choice_ = 0;
  } else if (group.parts[1].checked && group5Choice_ == 0) {
    WriteGroupRow(1, 5);
    group5Choice_ = 1;
  }
}

void InterruptPanel::LinkGroup5() {
  const Control& group2 = controls_[kGroup2];
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(group2.Caption(), 1));
  int e = 1;
  while (!row.Cell(e).empty()) ++e;
  int checked = group2.CheckedPart();
  if (checked < 0 || e < 3) return;
  const std::string& link = row.Cell(e - 2 + checked);
  Control& group5 = controls_[kGroup5];
  if (link.empty() || link[0] != '1') {
    group5.parts[1].enabled = false;
    group5.parts[1].checked = false;
    group5.parts[0].checked = true;
    OnGroup5();
  } else {
    group5.parts[1].enabled = true;
  }
}

void InterruptPanel::OnCombobox(int control) {
  const Control& box = controls_[static_cast<std::size_t>(control)];
  if (!box.parts[0].enabled) return;
  const std::string* item = box.parts[0].SelectedItem();
  if (item == nullptr) return;
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(box.Caption(), 1));
  int j = 0;
  for (int c = 1; c <= kListCellsSearched; ++c) {
    if (EqualsNoCase(row.Cell(c), *item)) {
      j = c;
      break;
    }
  }
  if (j == 0) return;
  const std::string& text = row.Cell(j + 5);
  WriteParameterRow(text, row.Cell(j + 10));
  RefreshParameters(RowName(text));
}

std::vector<SavedValue> InterruptPanel::SavedValues() const {
  const bool znr9 = Context() != nullptr && Context()->flags != nullptr &&
                    Context()->flags->FlagZNR9Family != 0;
  std::vector<SavedValue> values;
  for (int g = kGroup1; g <= kGroup5; ++g) {
    if (znr9 && (g == kGroup1 || g == kGroup3)) continue;
    values.push_back({g, SavedForm::kAllOptions, 0});
  }
  values.push_back({kList, SavedForm::kIndex, 0});
  return values;
}

}  // namespace tessara
