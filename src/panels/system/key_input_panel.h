#ifndef TESSARA_PANELS_SYSTEM_KEY_INPUT_PANEL_H_
#define TESSARA_PANELS_SYSTEM_KEY_INPUT_PANEL_H_

#include <array>

#include "panels/framework/peripheral_panel.h"

namespace tessara {

// The key input interrupt: several pins share one register. Each of the two pairs is a
// list of pins and two option buttons that show and set the chosen pin's bit.
class KeyInputPanel : public PeripheralPanel {
 public:
  static constexpr int kPinsPerPair = 4;

  KeyInputPanel();

  void OnInitDialog() override;
  void ApplyDefaults() override;
  // Per pair (0 or 1): the option that applies to each item of its list, and the
  // option last applied.
  const std::array<int, kPinsPerPair>& PinState(int pair) const {
    return pairs_.at(static_cast<std::size_t>(pair)).pinState;
  }
  int PairChoice(int pair) const { return pairs_.at(static_cast<std::size_t>(pair)).pairChoice; }

 protected:
  void OnOptionClick(int control, int option) override;
  void OnRadioGroup(int control) override;
  void OnCombobox(int control) override;
  std::vector<SavedValue> SavedValues() const override;

 private:
  struct Pair {
    int list;
    int firstOption;
    int secondOption;
    std::array<int, kPinsPerPair> pinState{};
    int pairChoice = 0;
  };

  // The pair that the control belongs to, or -1.
  int PairOf(int control) const;
  void OnPairOption(int pair);
  void ApplyPin(const std::string& label, int pair);
  void OnListChange(int pair);

  std::array<Pair, 2> pairs_;
};

}  // namespace tessara

#endif  // TESSARA_PANELS_SYSTEM_KEY_INPUT_PANEL_H_
