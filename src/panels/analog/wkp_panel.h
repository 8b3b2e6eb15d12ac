#ifndef TESSARA_PANELS_ANALOG_WKP_PANEL_H_
#define TESSARA_PANELS_ANALOG_WKP_PANEL_H_

#include "panels/framework/peripheral_panel.h"

namespace tessara {

// Nine two-option groups with standard rows. Group 1 has a row of its own and a mask
// over groups 2 to 9. Group 9 has no place in the saved state: after a load it stands
// as the masks leave it.
class WKPPanel : public PeripheralPanel {
 public:
  WKPPanel();

 protected:
  std::vector<int> SavedControls() const override;
};

}  // namespace tessara

#endif  // TESSARA_PANELS_ANALOG_WKP_PANEL_H_
