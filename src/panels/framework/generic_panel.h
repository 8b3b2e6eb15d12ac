#ifndef TESSARA_PANELS_FRAMEWORK_GENERIC_PANEL_H_
#define TESSARA_PANELS_FRAMEWORK_GENERIC_PANEL_H_

#include <vector>

#include "panels/framework/peripheral_panel.h"

namespace tessara {

// The controls that a kind's row keys imply: one control per key, its parts counted
// from the cells the key copies and links.
std::vector<ControlSpec> ControlsFromLayout(PanelKind kind);

// A panel of any kind with the common handlers only. It serves kinds whose own class
// does not exist yet, so that any section can be loaded and inspected.
class GenericPanel : public PeripheralPanel {
 public:
  explicit GenericPanel(PanelKind kind) : PeripheralPanel(kind, ControlsFromLayout(kind)) {}
};

}  // namespace tessara

#endif  // TESSARA_PANELS_FRAMEWORK_GENERIC_PANEL_H_
