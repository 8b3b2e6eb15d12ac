#include "panels/analog/adc3_panel.h"

#include "core/text.h"
#include "panels/framework/clock_values.h"

namespace tessara {

namespace {

enum ControlIndex : int {
  kSwitch = 0,  // Radiobox_1
  kSpeed = 1,   // Radiobox_2
};

// Clock cycles of one conversion at each speed.
constexpr std::string_view kSlowSpeedRow = "AD.AMR.BIT.CKS=0";
constexpr double kSlowSpeedCycles = 62.0;
constexpr double kFastSpeedCycles = 31.0;
// Conversions shorter than this, in microseconds, are out of the chip's range. The
// warning text names another figure; the comparison is the one that holds.
constexpr double kShortestConversionUs = 12.4;
constexpr std::string_view kTooFastWarning =
    ", Warning: Conversion times faster than minimum conversion times (7.8us) ";

ControlSpec List(const char* key, int items, int enableDigitsCell) {
  ControlSpec controlSpec{ControlKind::kCombobox, key, 1, {}};
  controlSpec.itemCount = items;
  controlSpec.oneRowPerItem = true;
  controlSpec.enableDigitsCell = enableDigitsCell;
  return controlSpec;
}

std::vector<ControlSpec> Adc3Controls() {
  std::vector<std::pair<std::string, int>> switchTargets = BothOptionsOf({"Radiobox_2"});
  switchTargets.emplace_back("Combobox_1", -1);
  switchTargets.emplace_back("Combobox_2", -1);
  return {
      {ControlKind::kRadioGroup, "Radiobox_1", 2, switchTargets},
      {ControlKind::kRadioGroup, "Radiobox_2", 2, {}},
      List("Combobox_1", 3, 10),
      List("Combobox_2", 12, 37),
  };
}

PanelBehaviour Adc3Behaviour() {
  PanelBehaviour behaviour;
  behaviour.groupOneWritesRow = true;
  behaviour.emptyOptionCellWritesNothing = true;
  return behaviour;
}

}  // namespace

ADC3Panel::ADC3Panel() : PeripheralPanel(PanelKind::kADC3, Adc3Controls(), Adc3Behaviour()) {}

std::string ADC3Panel::ConversionComment(const std::string& speedRow, const std::string& comment,
                                         double systemClockHz) {
  double cycles = speedRow == kSlowSpeedRow ? kSlowSpeedCycles : kFastSpeedCycles;
  double microseconds = cycles / systemClockHz * 1000000;
  if (microseconds < kShortestConversionUs) return comment + std::string(kTooFastWarning);
  return comment + ", Conversion Times = " + FormatC("%.1f", microseconds) + "us";
}

void ADC3Panel::ApplyGroupOneMask(int control, std::string_view mask) {
  // The switch only sets the controls; the list is rebuilt once behind it.
  ApplyEnableMask(mask, MaskTargetsOf(control), controls_);
}

void ADC3Panel::OnRadioGroup(int control) {
  if (control != kSpeed) {
    PeripheralPanel::OnRadioGroup(control);
    return;
  }
  const Control& speed = controls_[kSpeed];
  if (!speed.AnyPartEnabled()) return;
  int choice = speed.CheckedPart();
  if (choice < 0) return;
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(speed.Caption(), 0));
  const std::string& speedRow = row.Cell(3 + choice);
  std::string comment =
      ConversionComment(speedRow, row.Cell(5 + choice), SystemClockHzOf(Context()));
  WriteParameterRow(speedRow, comment);
  RefreshParameters(RowName(speedRow));
}

}  // namespace tessara
