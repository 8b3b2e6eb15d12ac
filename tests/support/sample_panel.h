#ifndef TESSARA_TESTS_SAMPLE_PANEL_H_
#define TESSARA_TESTS_SAMPLE_PANEL_H_

#include <string>
#include <vector>

#include "panels/framework/peripheral_panel.h"

namespace tessara {

// A small panel of groups, a list and a field, for testing the common handlers: a
// switch (Radiobox_1) whose mask steers Radiobox_2, Combobox_1 and ComboEditbox_1.
class SamplePanel : public PeripheralPanel {
 public:
  explicit SamplePanel(bool guarded = false)
      : PeripheralPanel(PanelKind::kPWM, Controls(), Behaviour(guarded)) {}

  void RefreshParameters(std::string_view changedName) override {
    if (RefreshGuard() == 0) ++refreshes;
    PeripheralPanel::RefreshParameters(changedName);
  }

  using PeripheralPanel::RefillCombo;
  using PeripheralPanel::WriteOptionRow;

  int refreshes = 0;

 protected:
  std::vector<ErrorFieldName> ErrorFieldNames() const override {
    return {{"ComboEdit_1", "ComboEditbox_1", 0}};
  }

 private:
  static std::vector<ControlSpec> Controls() {
    ControlSpec field{ControlKind::kComboEditbox, "ComboEditbox_1", 1, {}};
    field.fieldClass = FieldClass::kDecimalInteger;
    ControlSpec list{ControlKind::kCombobox, "Combobox_1", 1, {}};
    list.itemCount = 7;
    return {{ControlKind::kRadioGroup,
             "Radiobox_1",
             2,
             {{"Radiobox_2", 0}, {"Radiobox_2", 1}, {"Combobox_1", -1}, {"ComboEditbox_1", -1}}},
            {ControlKind::kRadioGroup, "Radiobox_2", 2, {}},
            list,
            field};
  }
  static PanelBehaviour Behaviour(bool guarded) {
    PanelBehaviour behaviour;
    behaviour.refreshGuard = guarded;
    return behaviour;
  }
};

// A row value with the given cells at their places and empty cells between them.
inline std::string Cells(const std::vector<std::pair<int, std::string>>& cells) {
  std::vector<std::string> row;
  for (const auto& [index, text] : cells) {
    if (static_cast<int>(row.size()) <= index) row.resize(static_cast<std::size_t>(index) + 1);
    row[static_cast<std::size_t>(index)] = text;
  }
  std::string value;
  for (std::size_t i = 0; i < row.size(); ++i) value += (i == 0 ? "" : ";") + row[i];
  return value;
}

// The sample panel's section: the switch turns everything off with its first option.
inline std::vector<std::string> SampleSection() {
  return {
      "Dialog=PWM",
      "Radiobox_1=" + Cells({{0, "PWM"}, {1, "Off"}, {2, "On"}, {7, "11"}, {8, "0000"},
                             {9, "1111"}}),
      "Radiobox_2=" + Cells({{0, "Polarity"}, {1, "High"}, {2, "Low"}, {3, "P.POL=0"},
                             {4, "P.POL=1"}, {5, "active high"}, {6, "active low"}, {7, "11"}}),
      "Combobox_1=" + Cells({{0, "Clock"}, {1, "f1"}, {2, "f2"}, {3, "f4"}, {8, "P.CKS=0"},
                             {9, "P.CKE=1"}, {10, "P.CKS=1"}, {12, "P.CKS=2"}, {13, "P.CKE=0"},
                             {22, "clock f1"}, {23, "clock f2"}, {24, "clock f4"},
                             {30, "1011"}}),
      "ComboEditbox_1=" + Cells({{0, "Duty"}, {1, "%"}, {2, "P.DUTY"}, {3, "duty ok"}, {4, "1"},
                                 {5, "10"}, {6, "200"}, {7, "duty bad"}, {8, "50|100|"}}),
      "initial_value=P.POL=0//active high",
      "initial_value=P.CKS=0//clock f1",
      "initial_value=P.DUTY=50//duty ok",
      "Error_Min=P.DUTY,ComboEdit_1,E01,Too small,Raise the duty;P.DUTY,ComboEdit_1,E02,Again",
      "Error_Null=P.DUTY,ComboEdit_9,E09,Never",
  };
}

}  // namespace tessara

#endif  // TESSARA_TESTS_SAMPLE_PANEL_H_
