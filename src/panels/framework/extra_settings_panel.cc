#include "panels/framework/extra_settings_panel.h"

#include "core/text.h"

namespace tessara {

namespace {

constexpr std::size_t kCellLength = 79;
constexpr std::size_t kMaxCells = 50;

bool ContainsNoCase(std::string_view text, std::string_view part) {
  return FindNoCase(text, part) != std::string_view::npos;
}

// Whether a line named `name` shows: a line of a serial panel's mode shows only while
// that mode's word is the filter; every other line shows always.
bool LineApplies(std::string_view name, const std::string& filter) {
  if (!filter.empty() && ContainsNoCase(name, filter)) return true;
  for (const char* word : ExtraSettingsPanel::kFilterWords) {
    if (ContainsNoCase(name, word)) return false;
  }
  return true;
}

std::string ControlKey(int number) {
  if (number <= ExtraSettingsPanel::kComboBoxes) {
    return "ExtraSetting_Combobox_" + std::to_string(number);
  }
  return "ExtraSetting_Checkbox_" + std::to_string(number - ExtraSettingsPanel::kComboBoxes);
}

// A combo box selects an index only when it has that item, as a list box does.
int ValidSelection(const ExtraControl& combo, int index) {
  return index >= 0 && index < static_cast<int>(combo.items.size()) ? index : -1;
}

}  // namespace

std::vector<std::string> ExtraSettingCells(std::string_view line) {
  std::vector<std::string> cells = SplitCells(line);
  if (cells.size() > kMaxCells) cells.resize(kMaxCells);
  for (std::string& cell : cells) {
    if (cell.size() > kCellLength) cell.resize(kCellLength);
  }
  return cells;
}

ExtraSettingsPanel::ExtraSettingsPanel() = default;

void ExtraSettingsPanel::SetPeripheral(std::vector<std::string_view> sectionLines,
                                       ExtraSettingsRow* stateRow) {
  sectionLines_ = std::move(sectionLines);
  stateRow_ = stateRow;
}

ExtraControl& ExtraSettingsPanel::MutableControl(int number) {
  return controls_.at(static_cast<std::size_t>(number - 1));
}

const ExtraControl& ExtraSettingsPanel::Control(int number) const {
  return controls_.at(static_cast<std::size_t>(number - 1));
}

const ExtraControl& ExtraSettingsPanel::Combo(int k) const { return Control(k); }

const ExtraControl& ExtraSettingsPanel::Check(int k) const { return Control(kComboBoxes + k); }

int ExtraSettingsPanel::ComboSelection(int k) const {
  if (k < 1 || k > kComboBoxes) return -1;
  return Combo(k).selection;
}

int ExtraSettingsPanel::CheckState(int k) const {
  if (k < 1 || k > kCheckBoxes) return 0;
  return Check(k).checked ? 1 : 0;
}

void ExtraSettingsPanel::SetControlsFromState() {
  if (stateRow_ == nullptr) return;
  for (int number = 1; number <= kControls; ++number) {
    ExtraControl& control = MutableControl(number);
    int stored = (*stateRow_)[static_cast<std::size_t>(number)];
    if (number <= kComboBoxes) {
      // The box is filled for this peripheral only later in the selection, and the
      // panel's refresh in between already turns the index into its row: so any index
      // a box of this popup can hold is taken as it stands.
      control.selection = stored >= 0 && stored < kComboItems ? stored : -1;
    } else {
      control.checked = stored != 0;
    }
  }
  ControlsChanged();
}

void ExtraSettingsPanel::SetupExtraSettings(const std::string& filter) {
  for (int number = 1; number <= kControls; ++number) {
    const std::string key = ControlKey(number);
    ExtraControl& control = MutableControl(number);
    bool applied = false;
    for (std::string_view line : sectionLines_) {
      if (!ContainsNoCase(line, key)) continue;
      if (extraSettingFound) extraSettingFound();
      std::vector<std::string> cells = ExtraSettingCells(line);
      const std::string cell0 = cells.empty() ? std::string() : cells[0];
      std::size_t equals = cell0.find('=');
      if (equals == std::string::npos) continue;
      std::string_view name = std::string_view(cell0).substr(0, equals);
      if (!LineApplies(name, filter)) continue;
      control.label = cell0.substr(equals + 1);
      if (number <= kComboBoxes) {
        control.items.clear();
        for (int item = 1; item <= kComboItems && item < static_cast<int>(cells.size()); ++item) {
          if (cells[static_cast<std::size_t>(item)].empty()) break;
          control.items.push_back(cells[static_cast<std::size_t>(item)]);
        }
        int stored = stateRow_ == nullptr ? -1 : (*stateRow_)[static_cast<std::size_t>(number)];
        control.selection = ValidSelection(control, stored);
      }
      applied = true;
      break;
    }
    control.visible = applied;
  }
  CloseUpLayout();
  ControlsChanged();
  // Nothing to show: the popup goes back, but the peripheral's stored side settings stay,
  // since its lines may only be waiting for the mode that names them.
  if (FirstShownControl() == -1 && popupMode_ == 1) {
    popupMode_ = 0;
    if (presenter_ != nullptr) presenter_->SlideBack();
  }
}

void ExtraSettingsPanel::CloseUpLayout() {
  int comboPlace = 0;
  int checkPlace = 0;
  for (int number = 1; number <= kControls; ++number) {
    ExtraControl& control = MutableControl(number);
    if (!control.visible) {
      control.place = -1;
    } else if (number <= kComboBoxes) {
      control.place = comboPlace++;
    } else {
      control.place = checkPlace++;
    }
  }
}

int ExtraSettingsPanel::ShownComboCount() const {
  int count = 0;
  for (int k = 1; k <= kComboBoxes; ++k) count += Combo(k).visible ? 1 : 0;
  return count;
}

int ExtraSettingsPanel::FirstShownControl() const {
  for (int number = 1; number <= kControls; ++number) {
    if (Control(number).visible) return number;
  }
  return -1;
}

int ExtraSettingsPanel::SetPopupMode(int mode) {
  if (mode == popupMode_ || (mode != 0 && mode != 1)) return popupMode_;
  if (mode == 1) {
    for (int k = 1; k <= kComboBoxes; ++k) {
      int stored = stateRow_ == nullptr ? -1 : (*stateRow_)[static_cast<std::size_t>(k)];
      ExtraControl& combo = MutableControl(k);
      combo.selection = ValidSelection(combo, stored);
    }
    popupMode_ = 1;
    ControlsChanged();
    if (presenter_ != nullptr) presenter_->SlideOut();
    return popupMode_;
  }
  // Switching a peripheral off forgets its side settings. The combo boxes keep their
  // selection on the screen; they take the stored index again when the popup next
  // comes out or the peripheral is selected anew.
  if (stateRow_ != nullptr) {
    for (int k = 1; k <= kComboBoxes; ++k) {
      int& stored = (*stateRow_)[static_cast<std::size_t>(k)];
      if (stored != -1) stored = 0;
    }
    for (int slot = kComboBoxes + 1; slot <= kControls; ++slot) {
      (*stateRow_)[static_cast<std::size_t>(slot)] = 0;
    }
  }
  for (int k = 1; k <= kCheckBoxes; ++k) MutableControl(kComboBoxes + k).checked = false;
  popupMode_ = 0;
  ControlsChanged();
  if (presenter_ != nullptr) presenter_->SlideBack();
  return popupMode_;
}

bool ExtraSettingsPanel::ChooseComboItem(int k, int index) {
  if (popupMode_ != 1 || k < 1 || k > kComboBoxes) return false;
  ExtraControl& combo = MutableControl(k);
  if (!combo.visible || ValidSelection(combo, index) == -1) return false;
  combo.selection = index;
  if (controlChanged) controlChanged(k);
  ControlsChanged();
  return true;
}

bool ExtraSettingsPanel::SetCheckBox(int k, bool checked) {
  if (popupMode_ != 1 || k < 1 || k > kCheckBoxes) return false;
  ExtraControl& box = MutableControl(kComboBoxes + k);
  if (!box.visible) return false;
  box.checked = checked;
  if (controlChanged) controlChanged(kComboBoxes + k);
  ControlsChanged();
  return true;
}

void ExtraSettingsPanel::ControlsChanged() const {
  if (presenter_ != nullptr) presenter_->ControlsChanged();
}

}  // namespace tessara
