#ifndef TESSARA_PANELS_ANALOG_ADC2_PANEL_H_
#define TESSARA_PANELS_ANALOG_ADC2_PANEL_H_

#include <string>

#include "panels/framework/peripheral_panel.h"

namespace tessara {

// The A/D converter whose operating mode (Combobox_3) decides what the other controls
// offer: per mode a mask over the trigger group and four lists, new item lists for the
// channel and group lists, and a short mask over Radiobox_2. The channel list in turn
// decides the items of the clock list, whose comment on the KB chips gives the serial
// clock cycle.
class ADC2Panel : public PeripheralPanel {
 public:
  ADC2Panel();

  void OnInitDialog() override;

 protected:
  void OnCombobox(int control) override;
  std::vector<SavedValue> SavedValues() const override;

 private:
  void ChannelsChanged();
  void ClockChanged();
  void ModeChanged();
  // Takes the on-chip oscillator item out of Combobox_4 outside the first mode and puts
  // it back in the first mode (QTL/4E and QTL/4F chips).
  void FollowOscillatorItem(int position);
  void Refill(int control, RefillableCombo& combo, int maskCell, int position);

  RefillableCombo channels_;   // Combobox_1
  RefillableCombo clock_;      // Combobox_2
  RefillableCombo groupList_;  // Combobox_7
  // The oscillator item Combobox_4 lost, and where it stood.
  std::string removedOscillatorText_;
  int removedOscillatorPosition_ = -1;
};

}  // namespace tessara

#endif  // TESSARA_PANELS_ANALOG_ADC2_PANEL_H_
