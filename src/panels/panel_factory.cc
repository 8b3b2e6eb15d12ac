#include "panels/panel_factory.h"

#include "panels/analog/aec_panel.h"
#include "panels/analog/wkp_panel.h"

namespace tessara {

std::unique_ptr<PeripheralPanel> CreatePeripheralPanel(PanelKind kind) {
  switch (kind) {
    case PanelKind::kAEC: return std::make_unique<AECPanel>();
    case PanelKind::kWKP: return std::make_unique<WKPPanel>();
    default: return nullptr;
  }
}

}  // namespace tessara
