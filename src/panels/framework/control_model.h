#ifndef TESSARA_PANELS_FRAMEWORK_CONTROL_MODEL_H_
#define TESSARA_PANELS_FRAMEWORK_CONTROL_MODEL_H_

#include <string>
#include <string_view>
#include <vector>

namespace tessara {

// The state of one control as the logic sees it. Setting it never runs a handler: a
// handler runs because a front-end reported a user action or because the logic calls
// it by name (masks, LoadState). A disabled or hidden control keeps its state and text.
struct ControlModel {
  bool enabled = true;
  bool visible = true;
  bool checked = false;
  std::string text;
  std::vector<std::string> items;
  int selection = -1;
  // The field of a ComboEditbox: selecting an item puts the item's text into it.
  bool editable = false;

  // Selects item `index`; an index outside the list selects nothing. In an editable
  // box the item's text becomes the field's text, as the dialog toolkit does.
  void Select(int index);
  // Puts a text into the field. It selects nothing and leaves the selection as it was.
  void SetText(std::string value) { text = std::move(value); }
  // Empties the list; an editable box loses its text with it.
  void ClearItems();
  void AddItem(std::string item) { items.push_back(std::move(item)); }
  // The selected item's text, or nullptr when nothing is selected.
  const std::string* SelectedItem() const;
};

enum class ControlKind { kRadioGroup, kCombobox, kComboEditbox, kCheckbox, kLabel };

// One control of a panel under its database key. `frame` is the group box with the
// caption, which is also the control's identity in all row look-ups. `parts` are what
// the user acts on: the options of a RadioGroup (2, 3, 4 or 8), the box of a Combobox,
// the one or two fields of a ComboEditbox, the boxes of a Checkbox block, the text of
// a Label.
struct Control {
  ControlKind kind = ControlKind::kLabel;
  std::string key;
  ControlModel frame;
  std::vector<ControlModel> parts;
  // The cells that the section copied into this control's named fields, in the order
  // of its layout (caption first, then labels or the unit text).
  std::vector<std::string> texts;
  // The small text beside a ComboEditbox field.
  std::string unitText;

  const std::string& Caption() const { return frame.text; }
  // A RadioGroup or a block counts as enabled while any of its parts is.
  bool AnyPartEnabled() const;
  // The first checked part, or -1.
  int CheckedPart() const;
  // Checks part `index` and clears the others, as a click on an option does.
  void CheckOption(int index);
};

// Word of a database key ("Radiobox", "Combobox", ...) for a control kind.
std::string_view ControlWord(ControlKind kind);

}  // namespace tessara

#endif  // TESSARA_PANELS_FRAMEWORK_CONTROL_MODEL_H_
