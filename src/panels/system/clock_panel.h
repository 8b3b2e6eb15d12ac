#ifndef TESSARA_PANELS_SYSTEM_CLOCK_PANEL_H_
#define TESSARA_PANELS_SYSTEM_CLOCK_PANEL_H_

#include "panels/system/clock_panel_base.h"

namespace tessara {

// The clock chain of chips tagged IID_DIALOG_CLOCK: a three-way source, a second
// choice, the CPU divider and two frequency lists. The frequency lists write the rows
// ("clk" among them) that other panels read, but are never shown or generated.
class ClockPanel : public ClockPanelBase {
 public:
  // Captions a data file must use: the mask finds the divider's start index by the
  // first, the frequency list its row by the second.
  static constexpr std::string_view kDividerCaption = "CPU Clock Division";
  static constexpr std::string_view kFrequencyCaption = "Clock Frequency";

  ClockPanel();

  void OnInitDialog() override;

 protected:
  void OnCombobox(int control) override;

 private:
  void SourceChanged(int control) override;
  void ApplySourceMask(std::string_view mask) override;
};

}  // namespace tessara

#endif  // TESSARA_PANELS_SYSTEM_CLOCK_PANEL_H_
