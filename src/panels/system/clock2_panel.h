#ifndef TESSARA_PANELS_SYSTEM_CLOCK2_PANEL_H_
#define TESSARA_PANELS_SYSTEM_CLOCK2_PANEL_H_

#include <string>

#include "panels/system/clock_panel_base.h"

namespace tessara {

// The richer clock of chips tagged IID_DIALOG_CLOCK2: a four-way source, two more
// choices and six lists for oscillator, divider and PLL settings. The items of
// Combobox_5 follow the frequency of Combobox_2 while the fourth source is chosen.
class Clock2Panel : public ClockPanelBase {
 public:
  Clock2Panel();

  void OnInitDialog() override;

  // The clock x in Hz after the oscillator divider, cut to a whole number: divided
  // by the "oscdiv" row while the third source is chosen.
  double OscillatorClock(double x) const;

  // The texts Combobox_5 is refilled from: cells 1 to 3 of its row.
  std::vector<std::string> Box5Items() const;

 protected:
  void OnCombobox(int control) override;

 private:
  void SourceChanged(int control) override;
  void ApplySourceMask(std::string_view mask) override;
  void RefillBox5(const std::string& digits, const std::string& index);
  void Box5Changed(int control);

  std::string box5Digits_;  // the digits last applied to Combobox_5
};

}  // namespace tessara

#endif  // TESSARA_PANELS_SYSTEM_CLOCK2_PANEL_H_
