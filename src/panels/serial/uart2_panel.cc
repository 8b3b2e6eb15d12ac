#include "panels/serial/uart2_panel.h"

#include <cmath>

#include "core/text.h"
#include "panels/framework/clock_values.h"

namespace tessara {

namespace {

// Controls in save order. Radiobox_k stands at index k.
enum ControlIndex : int {
  kModeList = 0,       // Combobox_1, "Serial Interface Mode"
  kGroupOne = 1,
  kSourceGroup = 2,    // Radiobox_2: the transfer clock, four options
  kGroupFour = 4,
  kFormatGroup = 7,    // Radiobox_7: its masks and replacement texts stand in the mode row
  kGroupEight = 8,
  kGroupTen = 10,      // "Receiver Setting"
  kGroupEleven = 11,   // "Transmitter Setting"
  kDividerFields = 12, // ComboEditbox_1: the bit time (field 0) and the bit rate (field 1)
  kTransmitData = 13,  // ComboEditbox_2
  kSecondList = 14,    // Combobox_2
  kThirdList = 15,     // Combobox_3
  kFourthList = 16,    // Combobox_4
};

constexpr int kTimeField = 0;
constexpr int kRateField = 1;
constexpr int kSubClockOption = 3;  // fourth option of Radiobox_2

constexpr double kDefaultClockHz = 125000.0;
constexpr double kSubClockHz = 32768.0;
// Microseconds of two sub-clock periods: 2000000 / 32768.
constexpr double kSubClockMicroseconds = 61.03515625;
// The divider counts sixteen clocks per bit.
constexpr double kClocksPerBitInverse = 0.0625;

// Cells of the ComboEditbox_1 row.
constexpr int kTimeLabel = 1;
constexpr int kTimeUnit = 2;
constexpr int kRateLabel = 3;
constexpr int kRateUnit = 4;
constexpr int kDividerName = 5;
constexpr int kTimeValidComment = 7;
constexpr int kRateValidComment = 8;
constexpr int kTimeLowest = 10;
constexpr int kTimeHighest = 11;
// The register values of the rate field's range: the larger value, of the lowest
// rate, stands first.
constexpr int kRateLowCell = 12;
constexpr int kRateHighCell = 13;
constexpr int kTimeInvalidComment = 14;
constexpr int kRateInvalidComment = 15;

// Cells of the ComboEditbox_2 row.
constexpr int kHighName = 2;
constexpr int kLowName = 3;
constexpr int kDataValidComment = 4;
constexpr int kShortestPattern = 6;
constexpr int kLongestPattern = 7;
constexpr int kDataInvalidComment = 8;
constexpr std::string_view kHighRowPrefix = "=0B0000000";
constexpr std::size_t kLowRowBits = 8;

// Cells of the Combobox_1 row, for item cell j.
constexpr int kModeRow = 5;
constexpr int kModeComment = 10;
constexpr int kModeMask = 16;
constexpr int kFormatFirstMask = 21;
constexpr int kFormatSecondMask = 26;
constexpr int kFormatFirstReplacement = 31;
constexpr int kFormatSecondReplacement = 36;

// Cells of the Radiobox_2 row, for option k.
constexpr int kSourceFirstRow = 5;
constexpr int kSourceComment = 13;
constexpr int kSourceVisibility = 18;

std::string Key(const char* word, int number) { return word + std::to_string(number); }

std::vector<ControlSpec> Uart2Controls() {
  std::vector<ControlSpec> controls;
  controls.push_back({ControlKind::kCombobox, "Combobox_1", 1, {}});
  for (int group = 1; group <= 11; ++group) {
    ControlSpec controlSpec{ControlKind::kRadioGroup, Key("Radiobox_", group), 2, {}};
    if (group == 2) {
      controlSpec.parts = 4;
      controlSpec.enableDigitsCell = 17;
    }
    // The two-place mask of group 4 steers group 5, the one-place mask of group 10
    // the transmit data.
    if (group == 4) controlSpec.maskTargets = BothOptionsOf({"Radiobox_5"});
    if (group == 10) controlSpec.maskTargets = {{"ComboEditbox_2", -1}};
    controls.push_back(std::move(controlSpec));
  }
  ControlSpec divider{ControlKind::kComboEditbox, "ComboEditbox_1", 2, {}};
  divider.enableDigitsCell = 9;
  controls.push_back(divider);
  ControlSpec data{ControlKind::kComboEditbox, "ComboEditbox_2", 1, {}};
  data.enableDigitsCell = 5;
  controls.push_back(data);
  for (int list = 2; list <= 4; ++list) {
    controls.push_back({ControlKind::kCombobox, Key("Combobox_", list), 1, {}});
  }
  return controls;
}

PanelBehaviour Uart2Behaviour() {
  PanelBehaviour behaviour;
  behaviour.refreshGuard = true;
  return behaviour;
}

// The 30 places of the mode list's EnableMask.
std::vector<MaskTarget> ModeTargets() {
  std::vector<MaskTarget> targets{{kDividerFields, kTimeField},
                                  {kDividerFields, kRateField},
                                  {kTransmitData, -1}};
  for (int option = 0; option < 2; ++option) targets.push_back({kGroupOne, option});
  for (int option = 0; option < 4; ++option) targets.push_back({kSourceGroup, option});
  for (int group = 3; group <= kGroupEleven; ++group) {
    targets.push_back({group, 0});
    targets.push_back({group, 1});
  }
  for (int list : {kSecondList, kThirdList, kFourthList}) targets.push_back({list, -1});
  return targets;
}

// The places of the masks that Radiobox_7 takes from the mode row: the transmit data,
// the options of groups 8 to 11, then two lists that only a mask of more than nine
// places reaches.
std::vector<MaskTarget> FormatTargets() {
  std::vector<MaskTarget> targets{{kTransmitData, -1}};
  for (int group = kGroupEight; group <= kGroupEleven; ++group) {
    targets.push_back({group, 0});
    targets.push_back({group, 1});
  }
  targets.push_back({kSecondList, -1});
  targets.push_back({kThirdList, -1});
  return targets;
}

bool IsBinaryText(std::string_view text) {
  return text.find_first_not_of("01") == std::string_view::npos;
}

}  // namespace

UART2Panel::UART2Panel() : PeripheralPanel(PanelKind::kUART2, Uart2Controls(), Uart2Behaviour()) {}

// ---------------------------------------------------------------- start

void UART2Panel::ApplyDefaults() {
  PeripheralPanel::ApplyDefaults();
  Control& source = controls_[kSourceGroup];
  const std::string& visibility =
      rowTable_.Row(rowTable_.FindRowByCaption(source.Caption(), 1)).Cell(kSourceVisibility);
  for (std::size_t option = 0; option < source.parts.size() && option < visibility.size();
       ++option) {
    if (visibility[option] == 'H') source.parts[option].visible = false;
    if (visibility[option] == 'S') source.parts[option].visible = true;
  }
}

std::vector<MaskTarget> UART2Panel::TooltipTargets() const {
  std::vector<MaskTarget> targets{{kModeList, -1},
                                  {kDividerFields, kTimeField},
                                  {kDividerFields, kRateField},
                                  {kTransmitData, -1},
                                  {-1, -1}};  // the fifth text is read for no control
  for (int group = kGroupOne; group < kGroupTen; ++group) targets.push_back({group, -1});
  targets.push_back({kGroupTen, 0});
  targets.push_back({kGroupTen, 1});
  targets.push_back({kGroupEleven, -1});
  for (int list : {kSecondList, kThirdList, kFourthList}) targets.push_back({list, -1});
  return targets;
}

// ---------------------------------------------------------------- refresh

void UART2Panel::BuildActiveKeys() {
  std::fill(activeKeys_.begin(), activeKeys_.end(), std::string());
  std::size_t slot = 0;
  auto put = [&](int control) {
    if (slot >= activeKeys_.size()) return;
    if (CountsAsActive(control)) {
      activeKeys_[slot] = controls_[static_cast<std::size_t>(control)].Caption();
    }
    ++slot;
  };
  // Group 1 writes a row of its own here. Group 11 and the transmit data stand for
  // two rows each, which their links tell apart.
  for (int group = kGroupOne; group <= kGroupTen; ++group) put(group);
  put(kGroupEleven);
  put(kGroupEleven);
  put(kDividerFields);
  put(kTransmitData);
  put(kTransmitData);
  for (int list : {kModeList, kSecondList, kThirdList, kFourthList}) put(list);
}

// ---------------------------------------------------------------- clock

double UART2Panel::TransferClockHz() const {
  double clk = ClockRowHz(Context(), kDefaultClockHz);
  if (HasClock2Link(Context())) clk = SerialClockOf(Context(), clk);
  return clk;
}

double UART2Panel::ClockDivider() const {
  std::string value;
  return FindRowValue(parameterRows_, "div", value) ? ReadReal(value) : 1.0;
}

bool UART2Panel::SubClockChosen() const {
  return controls_[kSourceGroup].parts[kSubClockOption].checked;
}

// ---------------------------------------------------------------- groups

void UART2Panel::OnRadioGroup(int control) {
  const Control& group = controls_[static_cast<std::size_t>(control)];
  // A group that a mask disabled as a whole does nothing, its masks included.
  if (!group.AnyPartEnabled()) return;
  const int choice = group.CheckedPart();
  if ((control == kGroupFour || control == kGroupTen) && choice >= 0 && choice < 2) {
    const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(group.Caption(), 1));
    ApplyMaskAndRerun(control, row.Cell(8 + choice));
  }
  if (control == kFormatGroup) {
    FormatGroupChanged();
  } else {
    PlainGroupChanged(control);
  }
}

std::string UART2Panel::WriteCheckedOption(int control) {
  const Control& group = controls_[static_cast<std::size_t>(control)];
  const int choice = group.CheckedPart();
  if (choice < 0) return std::string();
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(group.Caption(), 0));
  if (control == kSourceGroup) {
    // Each source writes two rows with one comment.
    const int first = kSourceFirstRow + 2 * choice;
    const std::string& comment = row.Cell(kSourceComment + choice);
    for (int cell : {first, first + 1}) {
      if (!row.Cell(cell).empty()) WriteParameterRow(row.Cell(cell), comment);
    }
    return std::string(RowName(row.Cell(first)));
  }
  const std::string& cell = row.Cell(3 + choice);
  WriteParameterRow(cell, row.Cell(5 + choice));
  return std::string(RowName(cell));
}

void UART2Panel::RerunFields() {
  ++refreshGuard_;
  RunHandler(kDividerFields);
  RunHandler(kTransmitData);
  --refreshGuard_;
}

// Every change of a group evaluates the divider again: the clock source and a "div"
// row of any group reach the bit time and the bit rate only in this way.
void UART2Panel::PlainGroupChanged(int control) {
  if (!controls_[static_cast<std::size_t>(control)].AnyPartEnabled()) return;
  if (controls_[static_cast<std::size_t>(control)].CheckedPart() < 0) return;
  const std::string name = WriteCheckedOption(control);
  RerunFields();
  RefreshParameters(name);
}

void UART2Panel::FormatGroupChanged() {
  const int choice = controls_[kFormatGroup].CheckedPart();
  if (choice < 0 || choice > 1) return;
  const Control& modes = controls_[kModeList];
  const PanelRow& modeRow = rowTable_.Row(rowTable_.FindRowByCaption(modes.Caption(), 1));
  const int j = SelectedItemCell(kModeList);
  ApplyEnableMask(modeRow.Cell((choice == 0 ? kFormatFirstMask : kFormatSecondMask) + j),
                  FormatTargets(), controls_);
  ++refreshGuard_;
  RunHandler(kDividerFields);
  RunHandler(kTransmitData);
  for (int group = kGroupEight; group <= kGroupEleven; ++group) RunHandler(group);
  RunHandler(kSecondList);
  RunHandler(kThirdList);
  --refreshGuard_;
  PlainGroupChanged(kFormatGroup);
  const std::string& replacement =
      modeRow.Cell((choice == 0 ? kFormatFirstReplacement : kFormatSecondReplacement) + j);
  if (replacement.find('=') == std::string::npos) return;
  OverwriteRows(replacement);
  RefreshParameters(RowName(replacement));
}

// The replacement overwrites, from the place of its name on, as many characters of
// each row that holds the name as it has itself, even in rows of other controls.
void UART2Panel::OverwriteRows(const std::string& replacement) {
  const std::string_view name = RowName(replacement);
  // Without a name every row would hold it; such a cell is a fault of the data.
  if (name.empty()) return;
  for (std::string& row : parameterRows_) {
    const std::size_t at = row.find(name);
    if (at != std::string::npos) row.replace(at, replacement.size(), replacement);
  }
}

// ---------------------------------------------------------------- lists

void UART2Panel::OnCombobox(int control) {
  if (control == kModeList) {
    ModeChanged();
  } else {
    ListChanged(control);
  }
}

// The mode list acts whatever its enabled state: it switches the whole panel.
void UART2Panel::ModeChanged() {
  const ControlModel& box = controls_[kModeList].parts[0];
  const int index = box.selection;
  if (Context() != nullptr && Context()->popup != nullptr && Context()->hasExtraSettings) {
    if (index == 0) Context()->popup->SetPopupMode(0);
    if (index >= 1 && index <= 4) Context()->popup->SetPopupMode(1);
  }
  const PanelRow& row =
      rowTable_.Row(rowTable_.FindRowByCaption(controls_[kModeList].Caption(), 1));
  const int j = SelectedItemCell(kModeList);
  currentChoice_ = index != 0 ? 1 : 0;
  const std::string& parameter = row.Cell(kModeRow + j);
  if (!parameter.empty()) WriteParameterRow(parameter, row.Cell(kModeComment + j));
  const std::vector<MaskTarget> targets = ModeTargets();
  ApplyEnableMask(row.Cell(kModeMask + j), targets, controls_);
  RerunDependents(targets);
  RefreshParameters(RowName(parameter));
}

void UART2Panel::ListChanged(int control) {
  const Control& box = controls_[static_cast<std::size_t>(control)];
  if (!box.parts[0].enabled) return;
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(box.Caption(), 1));
  const int j = SelectedItemCell(control);
  const std::string& parameter = row.Cell(5 + j);
  if (j > 0 && !parameter.empty()) WriteParameterRow(parameter, row.Cell(10 + j));
  RefreshParameters(RowName(parameter));
}

// ---------------------------------------------------------------- fields

void UART2Panel::OnComboEditbox(int control, int field, const std::string& text) {
  if (control == kDividerFields) {
    if (field == kTimeField) TimeChanged(text);
    if (field == kRateField) RateChanged(text);
  } else if (control == kTransmitData) {
    TransmitDataChanged(text);
  }
}

void UART2Panel::TimeChanged(const std::string& text) {
  const Control& box = controls_[kDividerFields];
  if (!box.parts[kTimeField].enabled || text.size() >= kMaxFieldTextLength) return;
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(box.Caption(), 1));
  const double div = ClockDivider();
  const double clk = TransferClockHz();
  const bool subClock = SubClockChosen();
  const double nLow = ParseNumber(row.Cell(kTimeLowest), 10) + 1.0;
  const double nHigh = ParseNumber(row.Cell(kTimeHighest), 10) + 1.0;
  // Times in microseconds: a register value n gives n + 1 times the time of two
  // divided clocks.
  const double tMin = subClock ? div * nLow * kSubClockMicroseconds : (2 * div * nLow / clk) * 1e6;
  const double tMax =
      subClock ? div * nHigh * kSubClockMicroseconds : (2 * div * nHigh / clk) * 1e6;

  const std::string trimmed = TrimBlanks(text);
  const std::string name(RowName(row.Cell(kDividerName)));
  const double v = ReadReal(trimmed);
  Marker marker = Marker::kNone;
  if (!IsDecimalWithOnePoint(trimmed)) {
    marker = Marker::kNull;
  } else if (v < tMin) {
    marker = Marker::kInvalidMin;
  } else if (v > tMax) {
    marker = Marker::kInvalidMax;
  }
  if (marker == Marker::kNone) {
    const double f = subClock ? kSubClockHz : clk;
    double n = v * f / div * 0.0000005 - 1;
    if (n < 0) n = -n;
    WriteRowIfSlot(name + "=" + FormatC("%.0f", n), row.Cell(kTimeValidComment));
  } else {
    const std::string& unit = row.Cell(kTimeUnit);
    WriteRowIfSlot(name + "=" + std::string(MarkerText(marker)),
                   row.Cell(kTimeInvalidComment) + ". " + FormatC("%.3f", tMin) + unit + " < " +
                       row.Cell(kTimeLabel) + " < " + FormatC("%.3f", tMax) + unit);
  }
  RefreshParameters(name);
}

void UART2Panel::RateChanged(const std::string& text) {
  const Control& box = controls_[kDividerFields];
  if (!box.parts[kRateField].enabled || text.size() >= kMaxFieldTextLength) return;
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(box.Caption(), 1));
  const double div = ClockDivider();
  const double clk = TransferClockHz();
  const bool subClock = SubClockChosen();
  const double nA = ParseNumber(row.Cell(kRateLowCell), 10) + 1.0;
  const double nB = ParseNumber(row.Cell(kRateHighCell), 10) + 1.0;
  const double a = subClock ? kSubClockHz * kClocksPerBitInverse / div
                            : clk * kClocksPerBitInverse / div;
  const double rateLow = std::ceil(a / nA);
  const double rateHigh = std::trunc(a / nB);

  const std::string trimmed = TrimBlanks(text);
  const std::string name(RowName(row.Cell(kDividerName)));
  const double v = ParseNumber(trimmed, 10);
  Marker marker = Marker::kNone;
  if (trimmed.empty() || !IsDigitsOnly(trimmed)) {
    marker = Marker::kNull;
  } else if (v < rateLow || v == 0) {
    // No clock at all makes both bounds 0; a rate of 0 is still too low.
    marker = Marker::kInvalidMin;
  } else if (v > rateHigh) {
    marker = Marker::kInvalidMax;
  }
  if (marker == Marker::kNone) {
    const double f = subClock ? kSubClockHz : clk;
    double n = f / div * kClocksPerBitInverse / v - 1;
    if (n < 0) n = -n;
    WriteRowIfSlot(name + "=" + FormatC("%.0f", n), row.Cell(kRateValidComment));
  } else {
    // The bounds are whole numbers; "%.0f" writes them as "%d" would.
    const std::string& unit = row.Cell(kRateUnit);
    WriteRowIfSlot(name + "=" + std::string(MarkerText(marker)),
                   row.Cell(kRateInvalidComment) + ". " + FormatC("%.0f", rateLow) + unit + " < " +
                       row.Cell(kRateLabel) + " < " + FormatC("%.0f", rateHigh) + unit);
  }
  RefreshParameters(name);
}

// Nine bits go as bit 8 in the high row and bits 7 to 0 in the low row; shorter data
// leave the high row 0.
void UART2Panel::TransmitDataChanged(const std::string& text) {
  const Control& box = controls_[kTransmitData];
  if (!box.parts[0].enabled || text.size() >= kMaxFieldTextLength) return;
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(box.Caption(), 1));
  const std::string trimmed = TrimBlanks(text);
  const std::string high(RowName(row.Cell(kHighName)));
  const std::string low(RowName(row.Cell(kLowName)));
  const std::size_t longest = row.Cell(kLongestPattern).size();
  const bool valid = IsBinaryText(trimmed) && trimmed.size() >= row.Cell(kShortestPattern).size() &&
                     trimmed.size() <= longest;
  if (!valid) {
    const std::string& comment = row.Cell(kDataInvalidComment);
    WriteRowIfSlot(high + "=" + std::string(kMarkerNull), comment);
    WriteRowIfSlot(low + "=" + std::string(kMarkerNull), comment);
  } else if (trimmed.size() == longest) {
    const std::string& comment = row.Cell(kDataValidComment);
    const std::size_t lowFrom = trimmed.size() > kLowRowBits ? trimmed.size() - kLowRowBits : 0;
    WriteRowIfSlot(high + std::string(kHighRowPrefix) + trimmed.substr(0, 1), comment);
    WriteRowIfSlot(low + "=0B" + trimmed.substr(lowFrom), comment);
  } else {
    const std::string& comment = row.Cell(kDataValidComment);
    WriteRowIfSlot(high + std::string(kHighRowPrefix) + "0", comment);
    WriteRowIfSlot(low + "=0B" + trimmed, comment);
  }
  RefreshParameters(high);
}

// ---------------------------------------------------------------- save, emission, errors

std::vector<SavedValue> UART2Panel::SavedValues() const {
  std::vector<SavedValue> values{{kModeList, SavedForm::kIndex, 0},
                                 {kGroupOne, SavedForm::kOptions, 0},
                                 {kSourceGroup, SavedForm::kAllOptions, 0}};
  for (int group = 3; group <= kGroupEleven; ++group) {
    values.push_back({group, SavedForm::kOptions, 0});
  }
  values.push_back({kDividerFields, SavedForm::kText, kTimeField});
  values.push_back({kDividerFields, SavedForm::kText, kRateField});
  values.push_back({kTransmitData, SavedForm::kText, 0});
  for (int list : {kSecondList, kThirdList, kFourthList}) {
    values.push_back({list, SavedForm::kIndex, 0});
  }
  return values;
}

bool UART2Panel::IsEmissionKey(const Control& control) const {
  return !EqualsNoCase(control.key, "Radiobox_11") && !EqualsNoCase(control.key, "Combobox_2") &&
         !EqualsNoCase(control.key, "Combobox_3") && !EqualsNoCase(control.key, "Combobox_4");
}

int UART2Panel::EmissionTextOptions(const Control& control) const {
  // The sub-clock source chooses no text.
  if (EqualsNoCase(control.key, "Radiobox_2")) return 3;
  return PeripheralPanel::EmissionTextOptions(control);
}

std::vector<ErrorFieldName> UART2Panel::ErrorFieldNames() const {
  return {{"ComboEdit_1A", "ComboEditbox_1", kTimeField},
          {"ComboEdit_1B", "ComboEditbox_1", kRateField},
          {"ComboEdit_2", "ComboEditbox_2", 0}};
}

}  // namespace tessara
