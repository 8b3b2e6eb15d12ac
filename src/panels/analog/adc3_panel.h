#ifndef TESSARA_PANELS_ANALOG_ADC3_PANEL_H_
#define TESSARA_PANELS_ANALOG_ADC3_PANEL_H_

#include <string>

#include "panels/framework/peripheral_panel.h"

namespace tessara {

// The A/D converter with a speed choice: the conversion time that the speed gives at
// the system clock goes into the comment, or a warning when it is too short.
class ADC3Panel : public PeripheralPanel {
 public:
  ADC3Panel();

  // The comment of a speed row: the conversion time at `systemClockHz`, or the warning.
  static std::string ConversionComment(const std::string& speedRow, const std::string& comment,
                                       double systemClockHz);

 protected:
  void OnRadioGroup(int control) override;
  void ApplyGroupOneMask(int control, std::string_view mask) override;
};

}  // namespace tessara

#endif  // TESSARA_PANELS_ANALOG_ADC3_PANEL_H_
