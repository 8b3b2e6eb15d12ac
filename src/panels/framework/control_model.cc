#include "panels/framework/control_model.h"

namespace tessara {

void ControlModel::Select(int index) {
  if (index < 0 || index >= static_cast<int>(items.size())) {
    selection = -1;
    return;
  }
  selection = index;
  if (editable) text = items[static_cast<std::size_t>(index)];
}

void ControlModel::ClearItems() {
  items.clear();
  selection = -1;
  if (editable) text.clear();
}

const std::string* ControlModel::SelectedItem() const {
  if (selection < 0 || selection >= static_cast<int>(items.size())) return nullptr;
  return &items[static_cast<std::size_t>(selection)];
}

bool Control::AnyPartEnabled() const {
  for (const ControlModel& part : parts) {
    if (part.enabled) return true;
  }
  return false;
}

int Control::CheckedPart() const {
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (parts[i].checked) return static_cast<int>(i);
  }
  return -1;
}

void Control::CheckOption(int index) {
  for (std::size_t i = 0; i < parts.size(); ++i) parts[i].checked = static_cast<int>(i) == index;
}

std::string_view ControlWord(ControlKind kind) {
  switch (kind) {
    case ControlKind::kRadioGroup: return "Radiobox";
    case ControlKind::kCombobox: return "Combobox";
    case ControlKind::kComboEditbox: return "ComboEditbox";
    case ControlKind::kCheckbox: return "Checkbox";
    case ControlKind::kLabel: return "Label";
  }
  return "";
}

}  // namespace tessara
