#ifndef TESSARA_PANELS_PANEL_FACTORY_H_
#define TESSARA_PANELS_PANEL_FACTORY_H_

#include <memory>

#include "database/peripheral_identity.h"

namespace tessara {

class PeripheralPanel;

// A new panel object of the kind, or null for a kind that has no panel class yet (such
// a peripheral is listed and has no panel, like one with an unknown tag). The clock
// kinds belong to the selection page and are not made here.
std::unique_ptr<PeripheralPanel> CreatePeripheralPanel(PanelKind kind);

}  // namespace tessara

#endif  // TESSARA_PANELS_PANEL_FACTORY_H_
