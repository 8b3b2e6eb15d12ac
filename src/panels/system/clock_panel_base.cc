#include "panels/system/clock_panel_base.h"

#include <cstdlib>

#include "core/text.h"

namespace tessara {

namespace {

// The rows a clock panel looks at when it applies its defaults.
constexpr int kClockRows = 64;

ClockSummaryInput::Box BoxOf(const Control* control) {
  ClockSummaryInput::Box box;
  if (control == nullptr) return box;
  box.enabled = !control->parts.empty() && control->parts[0].enabled;
  box.caption = control->Caption();
  if (control->texts.size() > 1) box.label = control->texts[1];
  if (const std::string* item = control->parts.empty() ? nullptr : control->parts[0].SelectedItem()) {
    box.selected = *item;
  }
  return box;
}

}  // namespace

ClockPanelBase::ClockPanelBase(PanelKind kind, std::vector<ControlSpec> controls,
                               std::vector<ClockControlCells> cells)
    : PeripheralPanel(kind, std::move(controls)), cells_(std::move(cells)) {}

const PanelRow& ClockPanelBase::RowOf(int control) const {
  const Control& c = controls_.at(static_cast<std::size_t>(control));
  return rowTable_.Row(rowTable_.FindRowByCaption(c.Caption(), 1));
}

int ClockPanelBase::ItemCell(int control, const PanelRow& row, int firstCell) const {
  const Control& box = controls_.at(static_cast<std::size_t>(control));
  const std::string* item = box.parts.empty() ? nullptr : box.parts[0].SelectedItem();
  if (item == nullptr) return 0;
  for (int cell = firstCell; cell < row.CellCount() && cell <= kClockRows; ++cell) {
    if (EqualsNoCase(row.Cell(cell), *item)) return cell;
  }
  return 0;
}

std::string ClockPanelBase::WriteCell(const PanelRow& row, int rowCell, int commentCell) {
  const std::string& text = row.Cell(rowCell);
  if (text.empty()) return std::string();
  WriteParameterRow(text, commentCell < 0 ? std::string() : row.Cell(commentCell));
  return std::string(RowName(text));
}

int ClockPanelBase::CountingOption(int control) const {
  const Control& group = controls_.at(static_cast<std::size_t>(control));
  for (std::size_t i = 0; i < group.parts.size(); ++i) {
    const ControlModel& option = group.parts[i];
    if (option.checked && option.visible && option.enabled) return static_cast<int>(i);
  }
  return -1;
}

void ClockPanelBase::ForceSecondOption(int group, int option, char digit) {
  if (group < 0 || (digit != '0' && digit != '1')) return;
  Control& c = controls_[static_cast<std::size_t>(group)];
  if (option >= static_cast<int>(c.parts.size()) || c.parts.size() < 2) return;
  c.CheckOption(1);
  c.parts[static_cast<std::size_t>(option)].enabled = digit == '1';
}

void ClockPanelBase::MaskList(int control, char digit, int index) {
  if (control < 0 || (digit != '0' && digit != '1')) return;
  ControlModel& box = controls_[static_cast<std::size_t>(control)].parts.at(0);
  if (digit == '1') {
    box.enabled = true;
    return;
  }
  box.Select(index);
  box.enabled = false;
}

void ClockPanelBase::RunHandlers(std::initializer_list<std::string_view> keys) {
  for (std::string_view key : keys) RunHandler(Index(key));
}

void ClockPanelBase::ApplyDefaults() {
  for (int r = 1; r <= kClockRows && r < rowTable_.RowCount(); ++r) {
    const PanelRow& row = rowTable_.Row(r);
    if (!row.HasCell(0)) continue;
    for (const ClockControlCells& cells : cells_) {
      int index = Index(cells.key);
      if (index < 0) continue;
      Control& control = controls_[static_cast<std::size_t>(index)];
      if (!EqualsNoCase(control.Caption(), row.Cell(0))) continue;
      const std::string& digits = row.Cell(cells.enableDigits);
      const std::string& letters = row.Cell(cells.showMask);
      for (std::size_t place = 0; place < control.parts.size(); ++place) {
        ControlModel& part = control.parts[place];
        if (place < digits.size() && (digits[place] == '0' || digits[place] == '1')) {
          part.enabled = digits[place] == '1';
        }
        if (place < letters.size() && (letters[place] == 'H' || letters[place] == 'S')) {
          part.visible = letters[place] == 'S';
        }
      }
      if (control.kind == ControlKind::kRadioGroup) {
        // The group box goes when every option is hidden, and comes back with one.
        bool allHidden = letters.size() >= control.parts.size();
        bool anyShown = false;
        for (std::size_t place = 0; place < control.parts.size() && place < letters.size(); ++place) {
          if (letters[place] != 'H') allHidden = false;
          if (letters[place] == 'S') anyShown = true;
        }
        if (allHidden) control.frame.visible = false;
        if (anyShown) control.frame.visible = true;
      } else if (!letters.empty() && (letters[0] == 'H' || letters[0] == 'S')) {
        // A list's group box, label and unit text go with it.
        control.frame.visible = letters[0] == 'S';
      }
    }
  }
}

void ClockPanelBase::BuildActiveKeys() {
  std::fill(activeKeys_.begin(), activeKeys_.end(), std::string());
  std::size_t slot = 0;
  for (const ClockControlCells& cells : cells_) {
    int index = Index(cells.key);
    bool active = false;
    if (index >= 0) {
      const Control& control = controls_[static_cast<std::size_t>(index)];
      if (control.kind == ControlKind::kRadioGroup && cells.activeSlots == 2) {
        // The source group counts by its first two options only.
        active = control.parts[0].enabled || control.parts[1].enabled;
      } else {
        active = control.AnyPartEnabled();
      }
      for (int k = 0; k < cells.activeSlots && slot < activeKeys_.size(); ++k, ++slot) {
        if (active) activeKeys_[slot] = control.Caption();
      }
    }
  }
}

void ClockPanelBase::SaveState(std::string& text) const {
  for (const Control& control : controls_) {
    if (control.kind == ControlKind::kRadioGroup) {
      for (const ControlModel& option : control.parts) text += FormatC("%d ", option.checked ? 1 : 0);
    } else if (control.kind == ControlKind::kCombobox) {
      text += FormatC("%d ", control.parts[0].selection);
    }
  }
  text += " \n";
}

void ClockPanelBase::LoadState(const std::string& projectText) {
  std::string tag = SaveTag();
  std::size_t at = projectText.find(tag);
  if (at == std::string::npos) return;
  std::string rest = projectText.substr(at + tag.size());
  for (std::size_t c = 0; c < controls_.size(); ++c) {
    Control& control = controls_[c];
    if (control.kind == ControlKind::kRadioGroup) {
      for (ControlModel& option : control.parts) option.checked = NextSavedInteger(rest) != 0;
    } else if (control.kind == ControlKind::kCombobox) {
      control.parts[0].Select(NextSavedInteger(rest));
    } else {
      continue;
    }
    RunHandler(static_cast<int>(c));
  }
}

ClockSummaryInput ClockPanelBase::SummaryInput() const {
  ClockSummaryInput input;
  if (const Control* source = FindControl("Radiobox_1")) {
    input.sourceCaption = source->Caption();
    for (const ControlModel& option : source->parts) input.sourceLabels.push_back(option.text);
    input.checkedSource = source->CheckedPart();
  }
  input.divider = BoxOf(FindControl("Combobox_1"));
  input.frequency = BoxOf(FindControl("Combobox_2"));
  input.secondFrequency = BoxOf(FindControl("Combobox_3"));
  input.oscillatorDivider = BoxOf(FindControl("Combobox_4"));
  input.parameterRows = parameterRows_;
  return input;
}

void ClockPanelBase::OnRadioGroup(int control) {
  if (control == Index("Radiobox_1")) {
    SourceChanged(control);
    return;
  }
  int option = CountingOption(control);
  if (option >= 0) WriteOptionRow(option, control);
}

bool ClockPanelBase::WriteSourceRows(int control, const ClockSourceCells& cells) {
  const PanelRow& row = RowOf(control);
  int c = controls_[static_cast<std::size_t>(control)].CheckedPart();
  if (c < 0) return false;
  ApplySourceMask(row.Cell(cells.mask + c));
  std::string name = WriteCell(row, cells.firstRow + c, cells.firstComment + c);
  if (!row.Cell(cells.firstRow + c).empty()) {
    WriteCell(row, cells.secondRow + c, cells.secondComment + c);
  }
  RefreshParameters(name);
  WriteCell(row, cells.thirdRow + c, -1);
  return true;
}

}  // namespace tessara
