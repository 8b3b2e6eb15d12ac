#ifndef TESSARA_PANELS_SYSTEM_PORT_PANEL_H_
#define TESSARA_PANELS_SYSTEM_PORT_PANEL_H_

#include <array>
#include <string>

#include "panels/framework/peripheral_panel.h"

namespace tessara {

// One I/O port of up to eight pins. A click on a pin changes single bits of a register
// byte that the panel keeps as the text of that register's row, so one row of the list
// holds the byte for all eight pins. Each pin is one group of four options: the status
// pair (options 1 and 2) and the drive pair (options 3 and 4). The same panel serves
// as an interrupt pseudo-port when its pin rows are called "IRQ0" to "IRQ7".
class PortPanel : public PeripheralPanel {
 public:
  static constexpr int kPins = 8;

  PortPanel();

  void OnInitDialog() override;
  void BuildTooltips() override;
  void SaveState(std::string& text) const override;
  void LoadState(const std::string& projectText) override;

  // The three column headings: pin, status pair, drive pair.
  const std::array<std::string, 3>& ColumnHeadings() const { return headings_; }
  // The option, first (0) or second (1), whose bits the register values hold now.
  int PinStatus(int pin) const { return pinStatus_.at(static_cast<std::size_t>(pin)); }
  int PinDrive(int pin) const { return pinDrive_.at(static_cast<std::size_t>(pin)); }

 protected:
  void OnOptionClick(int control, int option) override;
  void OnRadioGroup(int control) override;
  void OnCombobox(int control) override;
  void OnCheckbox(int control, int box) override;
  bool IsEmissionKey(const Control& control) const override;
  std::vector<MaskTarget> TooltipTargets() const override { return {}; }

 private:
  enum class Register { kStatus, kDrive };

  void OnStatus(int pin);
  void OnDrive(int pin);
  void ApplyDriveMask(int pin);
  void WriteRegister(int pin, Register what);
  void OnSwitch(int control);
  void OnLastSwitch();
  // The groups whose switch slots sit one place later, with the last switch leading.
  bool ShiftedSlotGroup() const;
  int PinOfRowName(const std::string& name) const;

  std::array<int, kPins> pinStatus_{};
  std::array<int, kPins> pinDrive_{};
  std::array<std::string, 3> headings_;
};

}  // namespace tessara

#endif  // TESSARA_PANELS_SYSTEM_PORT_PANEL_H_
