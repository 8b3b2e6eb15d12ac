#ifndef TESSARA_PANELS_ANALOG_ADC4_PANEL_H_
#define TESSARA_PANELS_ANALOG_ADC4_PANEL_H_

#include <string>
#include <vector>

#include "panels/framework/peripheral_panel.h"

namespace tessara {

// The A/D converter with the most controls: seven option groups of which Radiobox_4 and
// Radiobox_5 show one choice twice and move together, six lists (the second decides
// the items of the third), and twelve check boxes in two blocks whose captions link to
// one parameter per box. Nothing is greyed by the data at the start: the switch's mask
// decides when the page shows the panel.
class ADC4Panel : public PeripheralPanel {
 public:
  ADC4Panel();

  void OnInitDialog() override;
  void ApplyDefaults() override {}

 protected:
  void BuildActiveKeys() override;
  void OnRadioGroup(int control) override;
  void ApplyGroupOneMask(int control, std::string_view mask) override;
  void OnCombobox(int control) override;
  void OnCheckbox(int control, int box) override;
  bool IsEmissionKey(const Control& control) const override;
  std::vector<SavedValue> SavedValues() const override;

 private:
  void PairChanged(int control);
  void WriteSecondPairRow();
  void WriteBox(int control, int box);
  // Runs handlers as a mask's dependents, with one refresh left to the caller.
  void RunGuarded(const std::vector<int>& controls);
};

}  // namespace tessara

#endif  // TESSARA_PANELS_ANALOG_ADC4_PANEL_H_
