#ifndef TESSARA_PANELS_ANALOG_ADC_PANEL_H_
#define TESSARA_PANELS_ANALOG_ADC_PANEL_H_

#include "panels/framework/peripheral_panel.h"

namespace tessara {

// The plain A/D converter: a switch whose mask steers four groups and a channel list,
// a conversion-mode group with a short mask of its own over the fourth group, and a
// four-option group whose fourth option exists only with the first mode on the QTL/4
// chips.
class ADCPanel : public PeripheralPanel {
 public:
  ADCPanel();

  void ApplyDefaults() override;

 protected:
  void OnRadioGroup(int control) override;
  std::string ApplyComboItem(int control, const PanelRow& row, int cell) override;
  std::vector<SavedValue> SavedValues() const override;

 private:
  void ModeChanged();
  void FourOptionGroupChanged();
};

}  // namespace tessara

#endif  // TESSARA_PANELS_ANALOG_ADC_PANEL_H_
