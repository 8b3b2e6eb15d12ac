#include "control_printer.h"

#include "pages/parameter_list.h"
#include "panels/framework/extra_settings_panel.h"
#include "panels/framework/peripheral_panel.h"

namespace tessara {

namespace {

std::string Flag(const char* name, bool value) { return std::string(name) + (value ? "1" : "0"); }

std::string JoinItems(const std::vector<std::string>& items) {
  std::string joined;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (i > 0) joined += "|";
    joined += items[i];
  }
  return joined;
}

std::string_view KindName(ControlKind kind) {
  switch (kind) {
    case ControlKind::kRadioGroup: return "RadioGroup";
    case ControlKind::kCombobox: return "Combobox";
    case ControlKind::kComboEditbox: return "ComboEditbox";
    case ControlKind::kCheckbox: return "Checkbox";
    case ControlKind::kLabel: return "Label";
  }
  return "";
}

void AppendRadioGroup(const Control& group, std::string& out) {
  out += group.key + "\tRadioGroup\tchecked=" + std::to_string(group.CheckedPart() + 1) + "\n";
  for (std::size_t i = 0; i < group.parts.size(); ++i) {
    const ControlModel& option = group.parts[i];
    out += group.key + ":" + std::to_string(i + 1) + "\tOption\t" + Flag("enabled=", option.enabled) +
           "\t" + Flag("visible=", option.visible) + "\t" + Flag("checked=", option.checked) +
           "\ttext=" + option.text + "\n";
  }
}

void AppendPart(const Control& control, std::size_t index, std::string& out) {
  const ControlModel& part = control.parts[index];
  std::string key = control.key;
  if (control.parts.size() > 1) key += ":" + std::to_string(index + 1);
  out += key + "\t" + std::string(KindName(control.kind)) + "\t" + Flag("enabled=", part.enabled) +
         "\t" + Flag("visible=", part.visible);
  switch (control.kind) {
    case ControlKind::kCombobox:
      out += "\tselection=" + std::to_string(part.selection) + "\titems=" + JoinItems(part.items);
      break;
    case ControlKind::kComboEditbox:
      out += "\tselection=" + std::to_string(part.selection) + "\ttext=" + part.text +
             "\titems=" + JoinItems(part.items);
      break;
    case ControlKind::kCheckbox:
      out += "\t" + Flag("checked=", part.checked) + "\ttext=" + part.text;
      break;
    case ControlKind::kLabel:
      out += "\ttext=" + part.text;
      break;
    case ControlKind::kRadioGroup:
      break;
  }
  out += "\n";
}

}  // namespace

std::string FormatControls(const PeripheralPanel& panel) {
  std::string out;
  for (const Control& control : panel.Controls()) {
    if (control.kind == ControlKind::kRadioGroup) {
      AppendRadioGroup(control, out);
      continue;
    }
    for (std::size_t i = 0; i < control.parts.size(); ++i) AppendPart(control, i, out);
  }
  return out;
}

std::string FormatRows(const ParameterList& list) {
  std::string out;
  for (const ParameterList::Row& row : list.Rows()) out += row.parameter + "\t" + row.comment + "\n";
  return out;
}


std::string FormatExtraControls(const ExtraSettingsPanel& popup) {
  std::string out = "ExtraSettings\tmode=" + std::to_string(popup.PopupMode()) + "\n";
  for (int k = 1; k <= ExtraSettingsPanel::kComboBoxes; ++k) {
    const ExtraControl& combo = popup.Combo(k);
    out += "Combobox_" + std::to_string(k) + "\t" + Flag("visible=", combo.visible) +
           "\tplace=" + std::to_string(combo.place) + "\tselection=" + std::to_string(combo.selection) +
           "\ttext=" + combo.label + "\titems=" + JoinItems(combo.items) + "\n";
  }
  for (int k = 1; k <= ExtraSettingsPanel::kCheckBoxes; ++k) {
    const ExtraControl& box = popup.Check(k);
    out += "Checkbox_" + std::to_string(k) + "\t" + Flag("visible=", box.visible) +
           "\tplace=" + std::to_string(box.place) + "\t" + Flag("checked=", box.checked) +
           "\ttext=" + box.label + "\n";
  }
  return out;
}

}  // namespace tessara
