#include "panels/analog/wkp_panel.h"

namespace tessara {

namespace {

constexpr int kGroups = 9;
constexpr int kSavedGroups = 8;

std::vector<ControlSpec> WkpControls() {
  std::vector<ControlSpec> controls;
  controls.push_back({ControlKind::kRadioGroup, "Radiobox_1", 2,
                      BothOptionsOf({"Radiobox_2", "Radiobox_3", "Radiobox_4", "Radiobox_5",
                                     "Radiobox_6", "Radiobox_7", "Radiobox_8", "Radiobox_9"})});
  for (int group = 2; group <= kGroups; ++group) {
    controls.push_back({ControlKind::kRadioGroup, "Radiobox_" + std::to_string(group), 2, {}});
  }
  return controls;
}

PanelBehaviour WkpBehaviour() {
  PanelBehaviour behaviour;
  behaviour.groupOneWritesRow = true;
  behaviour.checkedOptionMustBeEnabled = true;
  return behaviour;
}

}  // namespace

WKPPanel::WKPPanel() : PeripheralPanel(PanelKind::kWKP, WkpControls(), WkpBehaviour()) {}

std::vector<int> WKPPanel::SavedControls() const {
  std::vector<int> saved;
  for (int group = 0; group < kSavedGroups; ++group) saved.push_back(group);
  return saved;
}

}  // namespace tessara
