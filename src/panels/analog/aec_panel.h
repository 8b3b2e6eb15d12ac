#ifndef TESSARA_PANELS_ANALOG_AEC_PANEL_H_
#define TESSARA_PANELS_ANALOG_AEC_PANEL_H_

#include "panels/framework/peripheral_panel.h"

namespace tessara {

// Four two-option groups with standard rows. Group 1's mask steers groups 2 to 4, and
// group 2's own mask steers groups 3 and 4 again after it, so group 2 has the last word.
class AECPanel : public PeripheralPanel {
 public:
  AECPanel();

 protected:
  bool CountsAsActive(int control) const override;
};

}  // namespace tessara

#endif  // TESSARA_PANELS_ANALOG_AEC_PANEL_H_
