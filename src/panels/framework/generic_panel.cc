#include "panels/framework/generic_panel.h"

#include <algorithm>
#include <cstdlib>

#include "panels/framework/section_layout.h"

namespace tessara {

std::vector<ControlSpec> ControlsFromLayout(PanelKind kind) {
  std::vector<ControlSpec> specs;
  for (const RowKeyLayout& layout : RowKeysOf(kind)) {
    ControlSpec controlSpec;
    controlSpec.kind = layout.kind;
    controlSpec.key = layout.key;
    int labels = layout.copied.empty() ? 0 : static_cast<int>(layout.copied.size()) - 1;
    switch (layout.kind) {
      case ControlKind::kRadioGroup:
        controlSpec.parts = std::max(2, labels);
        break;
      case ControlKind::kCheckbox:
        controlSpec.parts = std::max({1, labels, static_cast<int>(layout.links.size()),
                               static_cast<int>(layout.pairs.size())});
        break;
      case ControlKind::kComboEditbox:
        controlSpec.parts = std::max(1, static_cast<int>(layout.availability.size()));
        break;
      default:
        controlSpec.parts = 1;
        break;
    }
    specs.push_back(std::move(controlSpec));
  }
  // Controls stand in the order of their keys' numbers within each word, as a panel
  // lists them.
  auto number = [](const ControlSpec& controlSpec) {
    return std::atoi(controlSpec.key.c_str() + controlSpec.key.rfind('_') + 1);
  };
  std::stable_sort(specs.begin(), specs.end(), [&](const ControlSpec& a, const ControlSpec& b) {
    return a.kind == b.kind && number(a) < number(b);
  });
  return specs;
}

}  // namespace tessara
