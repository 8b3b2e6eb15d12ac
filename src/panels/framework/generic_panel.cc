#include "panels/framework/generic_panel.h"

#include <algorithm>

#include "panels/framework/section_layout.h"

namespace tessara {

std::vector<ControlSpec> ControlsFromLayout(PanelKind kind) {
  std::vector<ControlSpec> specs;
  for (const RowKeyLayout& layout : RowKeysOf(kind)) {
    ControlSpec spec;
    spec.kind = layout.kind;
    spec.key = layout.key;
    int labels = layout.copied.empty() ? 0 : static_cast<int>(layout.copied.size()) - 1;
    switch (layout.kind) {
      case ControlKind::kRadioGroup:
        spec.parts = std::max(2, labels);
        break;
      case ControlKind::kCheckbox:
        spec.parts = std::max({1, labels, static_cast<int>(layout.links.size()),
                               static_cast<int>(layout.pairs.size())});
        break;
      case ControlKind::kComboEditbox:
        spec.parts = std::max(1, static_cast<int>(layout.availability.size()));
        break;
      default:
        spec.parts = 1;
        break;
    }
    specs.push_back(std::move(spec));
  }
  return specs;
}

}  // namespace tessara
