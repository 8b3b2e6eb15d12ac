#include "panels/analog/aec_panel.h"

namespace tessara {

namespace {

std::vector<ControlSpec> AecControls() {
  return {
      {ControlKind::kRadioGroup, "Radiobox_1", 2,
       BothOptionsOf({"Radiobox_2", "Radiobox_3", "Radiobox_4"})},
      {ControlKind::kRadioGroup, "Radiobox_2", 2, BothOptionsOf({"Radiobox_3", "Radiobox_4"})},
      {ControlKind::kRadioGroup, "Radiobox_3", 2, {}},
      {ControlKind::kRadioGroup, "Radiobox_4", 2, {}},
  };
}

PanelBehaviour AecBehaviour() {
  PanelBehaviour behaviour;
  behaviour.checkedOptionMustBeEnabled = true;
  return behaviour;
}

}  // namespace

AECPanel::AECPanel() : PeripheralPanel(PanelKind::kAEC, AecControls(), AecBehaviour()) {}

bool AECPanel::CountsAsActive(int control) const {
  if (!PeripheralPanel::CountsAsActive(control)) return false;
  // Group 2 only counts while the switch of the whole converter is enabled as well.
  if (controls_[static_cast<std::size_t>(control)].key == "Radiobox_2") {
    return controls_[0].AnyPartEnabled();
  }
  return true;
}

}  // namespace tessara
