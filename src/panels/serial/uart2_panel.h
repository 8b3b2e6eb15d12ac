#ifndef TESSARA_PANELS_SERIAL_UART2_PANEL_H_
#define TESSARA_PANELS_SERIAL_UART2_PANEL_H_

#include <string>
#include <string_view>
#include <vector>

#include "panels/framework/peripheral_panel.h"

namespace tessara {

// One serial channel, and the pattern of the serial panels that follow: a mode list
// whose choice enables the rest of the panel, a transfer clock source of four options,
// a baud-rate divider that is entered either as a bit time or as a bit rate (both write
// the same row, so whichever ran last stands), and transmit data typed as binary text
// that goes into a high and a low register row.
class UART2Panel : public PeripheralPanel {
 public:
  UART2Panel();

  void ApplyDefaults() override;

  // The clock in Hz that the divider counts: the clock row of the group's clock panel
  // (125000 without one), as the serial channels see it behind a Clock2Panel.
  double TransferClockHz() const;
  // The value of the panel's own first "div" row; 1 without one.
  double ClockDivider() const;

 protected:
  void BuildActiveKeys() override;
  void OnRadioGroup(int control) override;
  void OnCombobox(int control) override;
  void OnComboEditbox(int control, int field, const std::string& text) override;
  std::vector<SavedValue> SavedValues() const override;
  std::vector<MaskTarget> TooltipTargets() const override;
  bool IsEmissionKey(const Control& control) const override;
  int EmissionTextOptions(const Control& control) const override;
  std::vector<ErrorFieldName> ErrorFieldNames() const override;

 private:
  bool SubClockChosen() const;
  // The option handlers.
  void PlainGroupChanged(int control);
  void FormatGroupChanged();  // Radiobox_7
  void ModeChanged();
  void ListChanged(int control);
  // Writes the rows of the checked option, without a refresh; the option's row name,
  // or empty when the group has no checked option.
  std::string WriteCheckedOption(int control);
  // The time, rate and transmit-data fields once more with their present texts.
  void RerunFields();
  // Puts R over every row that holds the name before its "=", from that name's place.
  void OverwriteRows(const std::string& replacement);
  // The field handlers.
  void TimeChanged(const std::string& text);
  void RateChanged(const std::string& text);
  void TransmitDataChanged(const std::string& text);
};

}  // namespace tessara

#endif  // TESSARA_PANELS_SERIAL_UART2_PANEL_H_
