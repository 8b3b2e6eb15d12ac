#ifndef TESSARA_PANELS_SYSTEM_INTERRUPT_PANEL_H_
#define TESSARA_PANELS_SYSTEM_INTERRUPT_PANEL_H_

#include "panels/framework/peripheral_panel.h"

namespace tessara {

// One external interrupt line. Its groups choose mode, edge, filter and polarity; a
// choice either writes a row of its own or changes bits of a control register row
// that may carry further statements behind a ",".
class InterruptPanel : public PeripheralPanel {
 public:
  InterruptPanel();

  void OnInitDialog() override;
  void ApplyDefaults() override;
  // The option of the fifth group whose bits the register value holds.
  int Group5Choice() const { return group5Choice_; }

 protected:
  void OnRadioGroup(int control) override;
  void OnCombobox(int control) override;
  std::vector<SavedValue> SavedValues() const override;

 private:
  // Writes option i of group g (1 to 5): a row of its own or bits of a register row.
  void WriteGroupRow(int i, int g);
  void OnGroup5();
  // The second option of group 5 is allowed only where group 2's choice says so.
  void LinkGroup5();

  int group5Choice_ = 0;
};

}  // namespace tessara

#endif  // TESSARA_PANELS_SYSTEM_INTERRUPT_PANEL_H_
