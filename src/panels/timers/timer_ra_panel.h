#ifndef TESSARA_PANELS_TIMERS_TIMER_RA_PANEL_H_
#define TESSARA_PANELS_TIMERS_TIMER_RA_PANEL_H_

#include <string>
#include <vector>

#include "panels/framework/peripheral_panel.h"

namespace tessara {

// The 8-bit timer with prescaler, and the pattern of the other timers: a wanted time
// becomes two counter values (prescaler and counter) against the clock that the count
// source row selects; two count fields take counts within bounds. Groups 3 to 6 share
// one place on the panel and the ShowMasks decide which of them is seen.
class TimerRAPanel : public PeripheralPanel {
 public:
  TimerRAPanel();

  // The section's Radiobox_1 row carries "v1.31": Combobox_2 has eight items.
  bool LongComboLayout() const { return LongLayout(); }

  void ApplyDefaults() override;

  // Seconds per count of the count source that ParameterRows name now: the divider
  // of the "div" row over the clock it selects.
  double CountCycle() const;

 protected:
  void BuildActiveKeys() override;
  void OnRadioGroup(int control) override;
  void OnCombobox(int control) override;
  void OnComboEditbox(int control, int field, const std::string& text) override;
  std::string ApplyComboItem(int control, const PanelRow& row, int cell) override;
  bool EvaluateField(int control, int field, const PanelRow& row, const std::string& text,
                     FieldOutcome& outcome) override;
  std::vector<SavedValue> SavedValues() const override;
  const RowKeyLayout* RowKeyFor(std::string_view key) const override;
  std::vector<MaskTarget> TooltipTargets() const override;
  bool IsEmissionKey(const Control& control) const override;
  std::vector<ErrorFieldName> ErrorFieldNames() const override;

 private:
  void GroupOneChanged();
  void ModeChanged();
  void TimeChanged(const std::string& text);
  // The EnableMask of the panel's 22 places, followed by the dependent handlers.
  void ApplyTimerMask(std::string_view mask);
  // The ShowMask of the panel's 20 places with the group boxes.
  void ApplyTimerShowMask(std::string_view mask);
};

}  // namespace tessara

#endif  // TESSARA_PANELS_TIMERS_TIMER_RA_PANEL_H_
