#ifndef TESSARA_PANELS_FRAMEWORK_SECTION_LAYOUT_H_
#define TESSARA_PANELS_FRAMEWORK_SECTION_LAYOUT_H_

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "database/peripheral_identity.h"
#include "panels/framework/control_model.h"

namespace tessara {

// What the section load itself does with the cells of one control row.
struct RowKeyLayout {
  ControlKind kind = ControlKind::kLabel;
  std::string key;                 // "Radiobox_2"
  std::vector<int> copied;         // C: cells copied into the control's named fields
  std::vector<int> items;          // I: item texts of a Combobox
  std::vector<int> links;          // L: each goes with cell 0 to AddInitialValue
  std::vector<int> selectIndex;    // D: decimal index to select
  std::vector<int> availability;   // A: availability digits, preset lists, format marker
  std::vector<std::pair<int, int>> pairs;  // P: caption cell and parameter cell
};

// The row keys of a kind, parsed once from its layout text.
const std::vector<RowKeyLayout>& RowKeysOf(PanelKind kind);
// The entry for `key` without regard to case, or nullptr.
const RowKeyLayout* FindRowKey(PanelKind kind, std::string_view key);

// Parses a layout text of the form "Radiobox 1,2: C 0-2; L 3 / Combobox 1: ...".
// Parts it cannot read are left out.
std::vector<RowKeyLayout> ParseRowKeyLayouts(std::string_view text);

}  // namespace tessara

#endif  // TESSARA_PANELS_FRAMEWORK_SECTION_LAYOUT_H_
