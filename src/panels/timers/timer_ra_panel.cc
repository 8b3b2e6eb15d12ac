#include "panels/timers/timer_ra_panel.h"

#include "core/text.h"
#include "panels/framework/clock_values.h"
#include "panels/framework/section_layout.h"

namespace tessara {

namespace {

// Controls in save and tooltip order.
enum ControlIndex : int {
  kGroupOne = 0,  // Radiobox_1 to Radiobox_8 are 0 to 7
  kGroupTwo = 1,
  kGroupSeven = 6,
  kGroupEight = 7,
  kModeList = 8,     // Combobox_1
  kSourceList = 9,   // Combobox_2, the count source
  kThirdList = 10,   // Combobox_3
  kTimeField = 11,   // ComboEditbox_1
  kCountFields = 12, // ComboEditbox_2, two fields
  kFourthList = 13,  // Combobox_4
  kFifthList = 14,   // Combobox_5
};

constexpr double kDefaultClockHz = 125000.0;
constexpr double kSubClockHz = 32768.0;
constexpr std::string_view kOnChipOscillatorWord = "fOCO";
constexpr std::string_view kSubClockWord = "fC32";
constexpr double kSubClockDivider = 32.0;

// Cells of the ComboEditbox_1 row.
constexpr int kTimeFirstName = 2;
constexpr int kTimeSecondName = 3;
constexpr int kTimeValidComment = 4;
constexpr int kTimeFirstAccepted = 6;
constexpr int kTimeAcceptedCount = 4;
constexpr int kTimeInvalidComment = 10;

std::vector<ControlSpec> TimerRaControls() {
  std::vector<ControlSpec> controls;
  controls.push_back({ControlKind::kRadioGroup, "Radiobox_1", 2, {}});
  for (int group = 2; group <= 8; ++group) {
    ControlSpec controlSpec{ControlKind::kRadioGroup, "Radiobox_" + std::to_string(group), 2, {}};
    // Groups 2 and 7 each steer a list with a mask of one place.
    if (group == 2) controlSpec.maskTargets = {{"Combobox_4", -1}};
    if (group == 7) controlSpec.maskTargets = {{"Combobox_5", -1}};
    controls.push_back(std::move(controlSpec));
  }
  auto list = [](const char* key, int enableDigitsCell) {
    ControlSpec controlSpec{ControlKind::kCombobox, key, 1, {}};
    controlSpec.enableDigitsCell = enableDigitsCell;
    return controlSpec;
  };
  controls.push_back(list("Combobox_1", 16));
  controls.push_back(list("Combobox_2", 21));
  controls.push_back(list("Combobox_3", 13));
  ControlSpec time{ControlKind::kComboEditbox, "ComboEditbox_1", 1, {}};
  time.enableDigitsCell = 5;
  controls.push_back(time);
  ControlSpec counts{ControlKind::kComboEditbox, "ComboEditbox_2", 2, {}};
  counts.enableDigitsCell = 11;
  controls.push_back(counts);
  controls.push_back(list("Combobox_4", -1));
  controls.push_back(list("Combobox_5", -1));
  return controls;
}

PanelBehaviour TimerRaBehaviour() {
  PanelBehaviour behaviour;
  behaviour.checkedOptionMustBeEnabled = true;
  behaviour.refreshGuard = true;
  return behaviour;
}

// The 22 places of the panel's EnableMask.
std::vector<MaskTarget> EnableTargets() {
  std::vector<MaskTarget> targets;
  for (int group = kGroupTwo; group <= kGroupEight; ++group) {
    targets.push_back({group, 0});
    targets.push_back({group, 1});
  }
  targets.push_back({kModeList, -1});
  targets.push_back({kSourceList, -1});
  targets.push_back({kThirdList, -1});
  targets.push_back({kTimeField, -1});
  targets.push_back({kCountFields, 0});
  targets.push_back({kCountFields, 1});
  targets.push_back({kFourthList, -1});
  targets.push_back({kFifthList, -1});
  return targets;
}

// The handlers that follow every EnableMask: all its targets but the mode list, whose
// own handler applies masks.
std::vector<MaskTarget> RerunTargets() {
  std::vector<MaskTarget> targets;
  for (const MaskTarget& target : EnableTargets()) {
    if (target.control != kModeList) targets.push_back(target);
  }
  return targets;
}

// The 20 places of the ShowMask. Only the options of groups 4, 5 and 6 can be hidden:
// every other place shows its target whichever letter it holds.
std::vector<ShowPlace> ShowPlaces() {
  constexpr ShowEffect kShow = ShowEffect::kShow;
  constexpr ShowEffect kHide = ShowEffect::kHide;
  std::vector<ShowPlace> places;
  for (int group = kGroupTwo; group <= kGroupEight; ++group) {
    bool hideable = group >= 3 && group <= 5;  // Radiobox_4 to Radiobox_6
    for (int option = 0; option < 2; ++option) {
      places.push_back({{group, option}, hideable ? kHide : kShow, kShow});
    }
  }
  for (int list : {kModeList, kSourceList, kThirdList, kTimeField}) {
    places.push_back({{list, -1}, kShow, kShow});
  }
  places.push_back({{kCountFields, 0}, kShow, kShow});
  places.push_back({{kCountFields, 1}, kShow, kShow});
  return places;
}

std::vector<ShowBox> ShowBoxes() {
  std::vector<ShowBox> boxes;
  for (int group = kGroupTwo; group <= kGroupEight; ++group) {
    int first = 2 * (group - kGroupTwo);
    bool sharedPlace = group >= 2 && group <= 5;  // Radiobox_3 to Radiobox_6
    boxes.push_back({group, {first, first + 1},
                     sharedPlace ? BoxRule::kHiddenIfAllHShownIfAnyS
                                 : BoxRule::kShownIfAllHOrAnyS});
  }
  boxes.push_back({kCountFields, {18, 19}, BoxRule::kShownIfAllH});
  return boxes;
}

// Combobox_2 has two layouts; the section's format marker, read earlier in the same
// load, says which.
const RowKeyLayout& SourceListLayout(bool longLayout) {
  static const std::vector<RowKeyLayout> shortLayout =
      ParseRowKeyLayouts("Combobox 2: C 0,2; I 1-5; L 6; A 22");
  static const std::vector<RowKeyLayout> longLayoutRows =
      ParseRowKeyLayouts("Combobox 2: C 0,2; I 1-8; L 9; A 34");
  return longLayout ? longLayoutRows.front() : shortLayout.front();
}

// A time text is a decimal number: digits and at most one point. An empty text
// passes, and then reads as 0.
bool IsTimeText(std::string_view text) {
  int points = 0;
  for (char c : text) {
    if (c == '.') {
      ++points;
    } else if (c < '0' || c > '9') {
      return false;
    }
  }
  return points <= 1;
}

}  // namespace

TimerRAPanel::TimerRAPanel()
    : PeripheralPanel(PanelKind::kTimerRA, TimerRaControls(), TimerRaBehaviour()) {}

// ---------------------------------------------------------------- start

void TimerRAPanel::ApplyDefaults() {
  PeripheralPanel::ApplyDefaults();
  // Groups 4, 5 and 6 share their place with group 3 and start out of sight.
  for (int group = 3; group <= 5; ++group) {
    controls_[static_cast<std::size_t>(group)].frame.visible = false;
  }
  const Control& first = controls_[kGroupOne];
  const std::string& showMask =
      rowTable_.Row(rowTable_.FindRowByCaption(first.Caption(), 1)).Cell(11);
  for (std::size_t place = 4; place < 10 && place < showMask.size(); ++place) {
    if (showMask[place] != 'H') continue;
    int group = 1 + static_cast<int>(place) / 2;
    controls_[static_cast<std::size_t>(group)].parts[place % 2].visible = false;
  }
  Control& counts = controls_[kCountFields];
  const std::string& start =
      rowTable_.Row(rowTable_.FindRowByCaption(counts.Caption(), 1)).Cell(12);
  for (std::size_t field = 0; field < counts.parts.size() && field < start.size(); ++field) {
    if (start[field] == 'H') counts.parts[field].visible = false;
    if (start[field] == 'S') counts.parts[field].visible = true;
  }
}

std::vector<MaskTarget> TimerRAPanel::TooltipTargets() const {
  // Sixteen texts: one per control, but two for the count fields, one each.
  std::vector<MaskTarget> targets;
  for (int control = kGroupOne; control < kCountFields; ++control) targets.push_back({control, -1});
  targets.push_back({kCountFields, 0});
  targets.push_back({kCountFields, 1});
  targets.push_back({kFourthList, -1});
  targets.push_back({kFifthList, -1});
  return targets;
}

// ---------------------------------------------------------------- refresh

void TimerRAPanel::BuildActiveKeys() {
  std::fill(activeKeys_.begin(), activeKeys_.end(), std::string());
  std::size_t slot = 0;
  auto put = [&](int control, bool active) {
    if (slot >= activeKeys_.size()) return;
    if (active) activeKeys_[slot] = controls_[static_cast<std::size_t>(control)].Caption();
    ++slot;
  };
  for (int group = kGroupTwo; group <= kGroupEight; ++group) {
    put(group, controls_[static_cast<std::size_t>(group)].AnyPartEnabled());
  }
  bool time = controls_[kTimeField].parts[0].enabled;
  put(kTimeField, time);
  put(kTimeField, time);
  bool counts = controls_[kCountFields].AnyPartEnabled();
  put(kCountFields, counts);
  put(kCountFields, counts);
  for (int list : {kModeList, kSourceList, kThirdList, kFourthList, kFifthList}) {
    put(list, controls_[static_cast<std::size_t>(list)].parts[0].enabled);
  }
}

// ---------------------------------------------------------------- masks

void TimerRAPanel::ApplyTimerMask(std::string_view mask) {
  ApplyEnableMask(mask, EnableTargets(), controls_);
  RerunDependents(RerunTargets());
}

void TimerRAPanel::ApplyTimerShowMask(std::string_view mask) {
  ApplyShowPlaces(mask, ShowPlaces(), ShowBoxes(), controls_);
}

// ---------------------------------------------------------------- handlers

void TimerRAPanel::OnRadioGroup(int control) {
  if (control == kGroupOne) {
    GroupOneChanged();
    return;
  }
  // A checked option that is disabled does nothing, whether the group has a mask or not.
  const Control& group = controls_[static_cast<std::size_t>(control)];
  int checked = group.CheckedPart();
  if (checked >= 0 && !group.parts[static_cast<std::size_t>(checked)].enabled) return;
  HandleOptionGroup(control);
}

void TimerRAPanel::GroupOneChanged() {
  const Control& group = controls_[kGroupOne];
  int choice = group.parts[0].checked ? 0 : group.parts[1].checked ? 1 : -1;
  if (Context() != nullptr && Context()->popup != nullptr && Context()->hasExtraSettings &&
      choice >= 0) {
    Context()->popup->SetPopupMode(choice);
  }
  if (choice >= 0) {
    const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(group.Caption(), 1));
    currentChoice_ = choice;
    ApplyTimerMask(row.Cell(8 + choice));
    ApplyTimerShowMask(row.Cell(10 + choice));
    if (choice == 1) RunHandler(kModeList);
  }
  RefreshParameters("");
}

void TimerRAPanel::OnCombobox(int control) {
  if (control == kModeList) {
    ModeChanged();
  } else {
    PeripheralPanel::OnCombobox(control);
  }
}

// The mode list acts whatever its enabled state: it carries the masks of the modes.
void TimerRAPanel::ModeChanged() {
  const Control& box = controls_[kModeList];
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(box.Caption(), 1));
  int j = SelectedItemCell(kModeList);
  if (j == 0) {
    // No item, or one that stands in no cell: no mode to apply.
    RefreshParameters("");
    return;
  }
  std::string name(RowName(row.Cell(5 + j)));
  if (!row.Cell(5 + j).empty()) WriteParameterRow(row.Cell(5 + j), row.Cell(10 + j));
  ApplyTimerMask(row.Cell(17 + j));
  ApplyTimerShowMask(row.Cell(22 + j));
  RefreshParameters(name);
}

std::string TimerRAPanel::ApplyComboItem(int control, const PanelRow& row, int cell) {
  if (cell <= 0) return std::string();
  if (control == kSourceList) {
    const bool longLayout = LongComboLayout();
    int first = (longLayout ? 7 : 4) + 2 * cell;
    const std::string& comment = row.Cell((longLayout ? 24 : 15) + cell);
    for (int rowCell : {first, first + 1}) {
      if (!row.Cell(rowCell).empty()) WriteParameterRow(row.Cell(rowCell), comment);
    }
    // The time is measured against the count source, so it follows every change.
    RunHandler(kTimeField);
    return std::string(RowName(row.Cell(first)));
  }
  const std::string& parameter = row.Cell(4 + cell);
  if (!parameter.empty()) WriteParameterRow(parameter, row.Cell(8 + cell));
  return std::string(RowName(parameter));
}

void TimerRAPanel::OnComboEditbox(int control, int field, const std::string& text) {
  if (control == kTimeField) {
    TimeChanged(text);
  } else {
    ValueChanged(control, field, text);
  }
}

double TimerRAPanel::CountCycle() const {
  const double clk = ClockRowHz(Context(), kDefaultClockHz);
  std::string word;
  const bool hasWord = FindRowValue(parameterRows_, "div", word);
  double divider = 1.0;
  double frequency = clk;
  if (!hasWord) {
    frequency = clk;
  } else if (word == kOnChipOscillatorWord) {
    frequency = kDefaultClockHz;
    if (HasClock2Link(Context())) {
      // The on-chip oscillator is what the oscillator divider makes of clk; where it
      // makes nothing of it, the oscillator runs at its own default.
      double oscillator = OscillatorClockOf(Context(), clk);
      if (oscillator != clk) frequency = oscillator;
    }
  } else if (word == kSubClockWord) {
    divider = kSubClockDivider;
    frequency = kSubClockHz;
  } else {
    divider = ParseReal(word);
    frequency = OscillatorClockOf(Context(), clk);
  }
  return divider / frequency;
}

void TimerRAPanel::TimeChanged(const std::string& text) {
  const Control& box = controls_[kTimeField];
  if (!box.parts[0].enabled || text.size() >= kMaxFieldTextLength) return;
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(box.Caption(), 0));
  const std::string trimmed = TrimBlanks(text);
  // Times are compared in single precision, as the accepted cells were always read.
  const float time = static_cast<float>(ParseReal(trimmed));
  bool accepted = false;
  for (int k = 0; k < kTimeAcceptedCount; ++k) {
    if (static_cast<float>(ParseReal(row.Cell(kTimeFirstAccepted + k))) == time) accepted = true;
  }
  const std::string first(RowName(row.Cell(kTimeFirstName)));
  const std::string second(RowName(row.Cell(kTimeSecondName)));
  if (accepted && IsTimeText(trimmed)) {
    int prescaler = 0;
    int counter = 0;
    BestDividerPair(prescaler, counter, time, static_cast<float>(CountCycle()));
    const std::string& comment = row.Cell(kTimeValidComment);
    WriteParameterRow(first + "=" + std::to_string(prescaler), comment);
    WriteParameterRow(second + "=" + std::to_string(counter), comment);
  } else {
    const std::string& comment = row.Cell(kTimeInvalidComment);
    WriteParameterRow(first + "=" + std::string(kMarkerNull), comment);
    WriteParameterRow(second + "=" + std::string(kMarkerNull), comment);
  }
  RefreshParameters(first);
}

bool TimerRAPanel::EvaluateField(int control, int field, const PanelRow& row,
                                 const std::string& text, FieldOutcome& outcome) {
  if (control != kCountFields) return false;
  const std::uint32_t lowest = ParseNumber(row.Cell(13 + 2 * field), 10);
  const std::uint32_t highest = ParseNumber(row.Cell(14 + 2 * field), 10);
  const std::string name(RowName(row.Cell(3 + field)));
  const FieldCheck check = CheckDecimalInteger(text, lowest, highest);
  if (check.marker != Marker::kNone) {
    outcome.row = name + "=" + std::string(MarkerText(check.marker));
    outcome.comment = row.Cell(17 + field);
    return true;
  }
  outcome.row = name + "=" + text;
  // The mode decides what a count means: list positions 2, 3 and 4 have comments of
  // their own, any other position takes the caption.
  const int mode = controls_[kModeList].parts[0].selection;
  outcome.comment = mode >= 2 && mode <= 4 ? row.Cell(5 + 2 * (mode - 2) + field) : row.Cell(0);
  return true;
}

// ---------------------------------------------------------------- save, emission, errors

std::vector<SavedValue> TimerRAPanel::SavedValues() const {
  std::vector<SavedValue> values;
  for (int group = kGroupOne; group <= kGroupEight; ++group) {
    values.push_back({group, SavedForm::kOptions, 0});
  }
  for (int list : {kModeList, kSourceList, kThirdList}) values.push_back({list, SavedForm::kIndex, 0});
  values.push_back({kTimeField, SavedForm::kIndex, 0});
  values.push_back({kCountFields, SavedForm::kText, 0});
  values.push_back({kCountFields, SavedForm::kText, 1});
  values.push_back({kFourthList, SavedForm::kIndex, 0});
  values.push_back({kFifthList, SavedForm::kIndex, 0});
  return values;
}

const RowKeyLayout* TimerRAPanel::RowKeyFor(std::string_view key) const {
  if (EqualsNoCase(key, "Combobox_2")) return &SourceListLayout(LongComboLayout());
  return PeripheralPanel::RowKeyFor(key);
}

bool TimerRAPanel::IsEmissionKey(const Control& control) const {
  return !EqualsNoCase(control.key, "Combobox_4") && !EqualsNoCase(control.key, "Combobox_5");
}

std::vector<ErrorFieldName> TimerRAPanel::ErrorFieldNames() const {
  return {{"ComboEdit_1", "ComboEditbox_1", -1}, {"ComboEdit_2", "ComboEditbox_2", -1}};
}

}  // namespace tessara
