#include "panels/framework/peripheral_panel.h"

#include <algorithm>
#include <cstdlib>

#include "core/text.h"
#include "pages/parameter_list.h"
#include "panels/framework/extra_settings_panel.h"

namespace tessara {

namespace {

constexpr int kExtraComboSlots = 5;   // slots 1 to 4 used
constexpr int kExtraCheckSlots = 17;  // slots 1 to 16 used
const std::string& CellOf(const std::vector<std::string>& cells, int index) {
  static const std::string kEmpty;
  if (index < 0 || index >= static_cast<int>(cells.size())) return kEmpty;
  return cells[static_cast<std::size_t>(index)];
}

int DefaultEnableDigitsCell(ControlKind kind) {
  switch (kind) {
    case ControlKind::kRadioGroup: return 7;
    case ControlKind::kComboEditbox: return 4;
    default: return -1;
  }
}

int KindRerunOrder(ControlKind kind) {
  switch (kind) {
    case ControlKind::kRadioGroup: return 0;
    case ControlKind::kCombobox: return 1;
    case ControlKind::kComboEditbox: return 2;
    default: return 3;
  }
}

}  // namespace

std::vector<std::pair<std::string, int>> BothOptionsOf(std::initializer_list<const char*> keys) {
  std::vector<std::pair<std::string, int>> targets;
  for (const char* key : keys) {
    targets.emplace_back(key, 0);
    targets.emplace_back(key, 1);
  }
  return targets;
}

PeripheralPanel::PeripheralPanel(PanelKind kind, std::vector<ControlSpec> controls,
                                 PanelBehaviour behaviour)
    : rowTable_(RowTableRows(TraitsOf(kind))),
      kind_(kind),
      traits_(TraitsOf(kind)),
      specs_(std::move(controls)),
      behaviour_(behaviour) {
  const std::size_t n = static_cast<std::size_t>(traits_.parameterSlots);
  parameterRows_.resize(n);
  parameterComments_.resize(n);
  activeKeys_.resize(n);
  initialValueLinks_.resize(n);
  extraComboSpecs_.resize(kExtraComboSlots);
  extraComboRows_.assign(kExtraComboSlots, std::vector<std::string>(n));
  extraComboComments_.assign(kExtraComboSlots, std::vector<std::string>(n));
  extraCheckSpecs_.resize(kExtraCheckSlots);
  extraCheckRows_.assign(kExtraCheckSlots, std::vector<std::string>(n));
  extraCheckComments_.assign(kExtraCheckSlots, std::vector<std::string>(n));

  for (const ControlSpec& controlSpec : specs_) {
    Control control;
    control.kind = controlSpec.kind;
    control.key = controlSpec.key;
    int parts = controlSpec.parts < 1 ? 1 : controlSpec.parts;
    if (controlSpec.kind == ControlKind::kRadioGroup && parts < 2 && !controlSpec.singleOption) parts = 2;
    control.parts.resize(static_cast<std::size_t>(parts));
    for (ControlModel& part : control.parts) part.editable = controlSpec.kind == ControlKind::kComboEditbox;
    controls_.push_back(std::move(control));
  }
  for (const ControlSpec& controlSpec : specs_) {
    std::vector<MaskTarget> targets;
    for (const auto& [key, part] : controlSpec.maskTargets) {
      targets.push_back(MaskTarget{ControlIndex(key), part});
    }
    maskTargets_.push_back(std::move(targets));
  }
  loaded_.resize(controls_.size());
}

std::string_view PeripheralPanel::RowName(std::string_view row) {
  return row.substr(0, row.find('='));
}

int PeripheralPanel::ControlIndex(std::string_view key) const {
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    if (EqualsNoCase(controls_[i].key, key)) return static_cast<int>(i);
  }
  return -1;
}

const Control* PeripheralPanel::FindControl(std::string_view key) const {
  int index = ControlIndex(key);
  return index < 0 ? nullptr : &controls_[static_cast<std::size_t>(index)];
}

Control* PeripheralPanel::MutableControl(std::string_view key) {
  int index = ControlIndex(key);
  return index < 0 ? nullptr : &controls_[static_cast<std::size_t>(index)];
}

bool PeripheralPanel::IsGroupOne(int control) const {
  const Control& c = controls_.at(static_cast<std::size_t>(control));
  return c.kind == ControlKind::kRadioGroup && EqualsNoCase(c.key, "Radiobox_1");
}

ParameterList* PeripheralPanel::List() const {
  return context_ == nullptr ? nullptr : context_->parameterList;
}

void PeripheralPanel::ClearTables() {
  rowTable_.Clear();
  for (auto* strings : {&parameterRows_, &activeKeys_, &parameterComments_, &initialValueLinks_,
                        &extraComboSpecs_, &extraCheckSpecs_}) {
    std::fill(strings->begin(), strings->end(), std::string());
  }
  ClearExtraRows();
  extraComment_.clear();
  extraParameter_.clear();
  parameterSort_.clear();
  errorNullRows_.Clear();
  errorMinRows_.Clear();
  errorMaxRows_.Clear();
  sourceLinks_.clear();
}

void PeripheralPanel::ClearExtraRows() {
  for (auto* table : {&extraComboRows_, &extraComboComments_, &extraCheckRows_,
                      &extraCheckComments_}) {
    for (std::vector<std::string>& row : *table) std::fill(row.begin(), row.end(), std::string());
  }
}

void PeripheralPanel::ClearFileTexts() {
  for (auto* texts : {&filePragma_, &fileFunctionDeclaration_, &fileFunction_}) {
    for (std::string& text : *texts) text.clear();
  }
}

void PeripheralPanel::ResetControlState() {
  for (Control& control : controls_) {
    control.frame.visible = true;
    control.frame.enabled = true;
    for (ControlModel& part : control.parts) {
      part.enabled = true;
      part.visible = true;
      part.checked = false;
      part.items.clear();
      part.selection = -1;
      if (part.editable) part.text.clear();
    }
  }
}

void PeripheralPanel::CreateWindow() {
  ResetControlState();
  hasWindow_ = true;
  OnInitDialog();
}

void PeripheralPanel::OnInitDialog() {
  for (Control& control : controls_) {
    if (control.kind == ControlKind::kRadioGroup) control.CheckOption(0);
  }
  currentChoice_ = 0;
  ApplyDefaults();
  BuildTooltips();
}

void PeripheralPanel::ApplyDefaults() {
  for (int r = 1; r < rowTable_.RowCount(); ++r) {
    const PanelRow& row = rowTable_.Row(r);
    if (!row.HasCell(0) || row.Cell(0).empty()) continue;
    for (std::size_t c = 0; c < controls_.size(); ++c) {
      Control& control = controls_[c];
      if (!EqualsNoCase(control.Caption(), row.Cell(0))) continue;
      int cell = specs_[c].enableDigitsCell >= 0 ? specs_[c].enableDigitsCell
                                                 : DefaultEnableDigitsCell(control.kind);
      if (cell < 0) continue;
      const std::string& digits = row.Cell(cell);
      for (std::size_t place = 0; place < digits.size() && place < control.parts.size(); ++place) {
        if (digits[place] == '0') control.parts[place].enabled = false;
      }
    }
  }
}

void PeripheralPanel::BuildTooltips() {
  tooltips_ = TooltipSet();
  const std::vector<MaskTarget> targets = TooltipTargets();
  for (std::size_t k = 0; k < tooltipTexts_.size() && k < targets.size(); ++k) {
    // A text may be read for no control at all.
    if (targets[k].control < 0) continue;
    tooltips_.bindings.push_back(TooltipBinding{tooltipTexts_[k], targets[k].control,
                                                targets[k].part});
  }
  tooltips_.active = true;
}

void PeripheralPanel::BindTooltip(std::size_t k, int control, int part) {
  if (k >= tooltipTexts_.size()) return;
  tooltips_.bindings.push_back(TooltipBinding{tooltipTexts_[k], control, part});
}

std::vector<MaskTarget> PeripheralPanel::TooltipTargets() const {
  std::vector<MaskTarget> targets;
  for (std::size_t c = 0; c < controls_.size(); ++c) targets.push_back({static_cast<int>(c), -1});
  return targets;
}

void PeripheralPanel::AddInitialValue(std::string_view caption, std::string_view cellText) {
  std::string link = std::string(caption) + "=" + std::string(RowName(cellText));
  for (std::string& slot : initialValueLinks_) {
    if (slot.empty()) {
      slot = std::move(link);
      return;
    }
  }
}

// ---------------------------------------------------------------- refresh

void PeripheralPanel::RefreshParameters(std::string_view changedName) {
  if (refreshGuard_ != 0) return;
  ParameterList* list = List();
  if (list != nullptr) list->DeleteAllRows();
  if (!behaviour_.showAllRows) {
    BuildActiveKeys();
    ResolveLinks();
  }
  ShowRows(list);
  if (behaviour_.extraSettingsRows) AddExtraSettingsRows(list);
  MarkChangedRow(list, changedName);
}

bool PeripheralPanel::CountsAsActive(int control) const {
  const Control& c = controls_.at(static_cast<std::size_t>(control));
  return c.kind != ControlKind::kLabel && c.AnyPartEnabled();
}

void PeripheralPanel::BuildActiveKeys() {
  std::fill(activeKeys_.begin(), activeKeys_.end(), std::string());
  std::size_t slot = 0;
  for (std::size_t c = 0; c < controls_.size() && slot < activeKeys_.size(); ++c) {
    if (IsGroupOne(static_cast<int>(c)) || controls_[c].kind == ControlKind::kLabel) continue;
    if (CountsAsActive(static_cast<int>(c))) activeKeys_[slot] = controls_[c].Caption();
    ++slot;
  }
}

void PeripheralPanel::ResolveLinks() {
  for (std::string& key : activeKeys_) {
    if (key.empty()) continue;
    for (const std::string& link : initialValueLinks_) {
      if (link.empty() || link.find(key) == std::string::npos) continue;
      std::size_t equals = link.find('=');
      std::string target = equals == std::string::npos ? std::string() : link.substr(equals + 1);
      bool taken = std::any_of(activeKeys_.begin(), activeKeys_.end(),
                               [&](const std::string& k) { return EqualsNoCase(k, target); });
      if (taken) continue;
      key = target;
      break;
    }
  }
}

void PeripheralPanel::ShowRows(ParameterList* list) {
  if (list == nullptr) return;
  if (behaviour_.showAllRows) {
    for (std::size_t j = 0; j < parameterRows_.size(); ++j) {
      if (!parameterRows_[j].empty()) list->AppendRow(parameterRows_[j], parameterComments_[j]);
    }
    return;
  }
  for (const std::string& key : activeKeys_) {
    if (key.empty()) continue;
    for (std::size_t j = 0; j < parameterRows_.size(); ++j) {
      const std::string& row = parameterRows_[j];
      if (!row.empty() && EqualsNoCase(RowName(row), key)) {
        list->AppendRow(row, parameterComments_[j]);
        break;
      }
    }
  }
}

void PeripheralPanel::AddExtraSettingsRows(ParameterList* list) {
  ExtraSettingsView* popup = context_ == nullptr ? nullptr : context_->popup;
  if (popup == nullptr || (traits_.absentKeys & kNoExtraSetting) != 0) return;
  for (int k = 1; k < kExtraComboSlots; ++k) {
    if (extraComboSpecs_[k].empty()) continue;
    int index = popup->ComboSelection(k);
    if (index < 0) index = 0;
    extraComboSelection_[static_cast<std::size_t>(k - 1)] = index;
    std::vector<std::string> cells = ExtraSettingCells(extraComboSpecs_[k]);
    const std::string& row = CellOf(cells, 9 + index);
    const std::string& comment = CellOf(cells, 17 + index);
    extraComboRows_[k][0] = row;
    extraComboComments_[k][0] = comment;
    if (list == nullptr) continue;
    int listRow = list->AppendRow(row, comment);
    if (popup->FocusedControl() == k) {
      list->EnsureVisible(listRow);
      list->SetHighlightRow(listRow);
    }
  }
  for (int k = 1; k < kExtraCheckSlots; ++k) {
    if (extraCheckSpecs_[k].empty()) continue;
    int state = popup->CheckState(k);
    extraCheckState_[static_cast<std::size_t>(k - 1)] = state;
    if (state == 0) {
      // An unchecked box leaves no statement behind: its row goes, and the generator,
      // which takes a box's rows up to the first empty one, writes nothing for it.
      extraCheckRows_[k][0].clear();
      extraCheckComments_[k][0].clear();
      continue;
    }
    std::vector<std::string> cells = ExtraSettingCells(extraCheckSpecs_[k]);
    const std::string& row = CellOf(cells, 1 + state);
    const std::string& comment = CellOf(cells, 3 + state);
    extraCheckRows_[k][0] = row;
    extraCheckComments_[k][0] = comment;
    if (list == nullptr) continue;
    int listRow = list->AppendRow(row, comment);
    if (popup->FocusedControl() == k + 4) {
      list->EnsureVisible(listRow);
      list->SetHighlightRow(listRow);
    }
  }
}

void PeripheralPanel::MarkChangedRow(ParameterList* list, std::string_view changedName) {
  if (list == nullptr) return;
  int row = list->FindRowStartingWith(changedName);
  if (row < 0) return;
  ExtraSettingsView* popup = context_ == nullptr ? nullptr : context_->popup;
  if (popup != nullptr && popup->FocusedControl() != -1) return;
  list->EnsureVisible(row);
  list->SetHighlightRow(row);
}

// ---------------------------------------------------------------- handlers

void PeripheralPanel::RunHandler(int control) {
  if (control < 0 || control >= static_cast<int>(controls_.size())) return;
  Control& c = controls_[static_cast<std::size_t>(control)];
  switch (c.kind) {
    case ControlKind::kRadioGroup: OnRadioGroup(control); break;
    case ControlKind::kCombobox: OnCombobox(control); break;
    case ControlKind::kComboEditbox:
      for (std::size_t f = 0; f < c.parts.size(); ++f) {
        std::string text = controls_[static_cast<std::size_t>(control)].parts[f].text;
        OnComboEditbox(control, static_cast<int>(f), text);
      }
      break;
    case ControlKind::kCheckbox: OnCheckbox(control, -1); break;
    case ControlKind::kLabel: break;
  }
}

void PeripheralPanel::OnRadioGroup(int control) {
  if (IsGroupOne(control)) {
    HandleGroupOne(control);
  } else {
    HandleOptionGroup(control);
  }
}

void PeripheralPanel::HandleGroupOne(int control) {
  Control& group = controls_[static_cast<std::size_t>(control)];
  int checked = group.CheckedPart();
  if (context_ != nullptr && context_->popup != nullptr && context_->hasExtraSettings &&
      checked >= 0) {
    context_->popup->SetPopupMode(checked);
  }
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(group.Caption(), 1));
  int choice = -1;
  if (group.parts[0].checked) {
    choice = 0;
  } else if (group.parts.size() > 1 && group.parts[1].checked) {
    choice = 1;
  }
  if (choice >= 0) {
    currentChoice_ = choice;
    ApplyGroupOneMask(control, row.Cell(8 + choice));
    if (behaviour_.groupOneWritesRow) {
      WriteOptionRow(choice, control);
      return;
    }
  }
  RefreshParameters("");
}

void PeripheralPanel::HandleOptionGroup(int control) {
  const Control& group = controls_[static_cast<std::size_t>(control)];
  if (!group.AnyPartEnabled()) return;
  bool hasMask = !MaskTargetsOf(control).empty();
  int choice = -1;
  for (std::size_t i = 0; i < group.parts.size(); ++i) {
    const ControlModel& option = group.parts[i];
    if (!option.checked) continue;
    if (!hasMask && behaviour_.checkedOptionMustBeEnabled && !option.enabled) continue;
    choice = static_cast<int>(i);
    break;
  }
  if (choice < 0) return;
  if (hasMask) {
    const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(group.Caption(), 1));
    ApplyMaskAndRerun(control, row.Cell(8 + choice));
  }
  WriteOptionRow(choice, control);
}

void PeripheralPanel::ApplyMaskAndRerun(int control, std::string_view mask) {
  const std::vector<MaskTarget>& targets = MaskTargetsOf(control);
  ApplyEnableMask(mask, targets, controls_, behaviour_.maskVariant);
  if (mask.empty() && behaviour_.emptyMaskSkipsRerun) return;
  RerunDependents(targets);
}

void PeripheralPanel::RerunDependents(const std::vector<MaskTarget>& targets) {
  std::vector<int> dependents;
  for (const MaskTarget& target : targets) {
    if (target.control < 0) continue;
    if (KindRerunOrder(controls_[static_cast<std::size_t>(target.control)].kind) > 2) continue;
    if (std::find(dependents.begin(), dependents.end(), target.control) == dependents.end()) {
      dependents.push_back(target.control);
    }
  }
  std::sort(dependents.begin(), dependents.end(), [&](int a, int b) {
    int orderA = KindRerunOrder(controls_[static_cast<std::size_t>(a)].kind);
    int orderB = KindRerunOrder(controls_[static_cast<std::size_t>(b)].kind);
    return orderA != orderB ? orderA < orderB : a < b;
  });
  for (int dependent : dependents) {
    if (behaviour_.refreshGuard) ++refreshGuard_;
    RunHandler(dependent);
    if (behaviour_.refreshGuard) --refreshGuard_;
  }
}

int PeripheralPanel::FindSlot(std::string_view name) const {
  int slot = FindOwnSlot(name);
  return slot < 0 ? 0 : slot;
}

int PeripheralPanel::FindOwnSlot(std::string_view name) const {
  for (std::size_t i = 0; i < parameterRows_.size(); ++i) {
    if (parameterRows_[i].empty() || EqualsNoCase(RowName(parameterRows_[i]), name)) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

bool PeripheralPanel::WriteRowIfSlot(const std::string& row, const std::string& comment) {
  int slot = FindOwnSlot(RowName(row));
  if (slot < 0) return false;
  parameterRows_[static_cast<std::size_t>(slot)] = row;
  parameterComments_[static_cast<std::size_t>(slot)] = comment;
  return true;
}

int PeripheralPanel::WriteParameterRow(const std::string& row, const std::string& comment) {
  if (parameterRows_.empty()) return 0;
  int slot = FindSlot(RowName(row));
  parameterRows_[static_cast<std::size_t>(slot)] = row;
  parameterComments_[static_cast<std::size_t>(slot)] = comment;
  return slot;
}

void PeripheralPanel::WriteOptionRow(int choice, int control) {
  const Control& group = controls_[static_cast<std::size_t>(control)];
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(group.Caption(), 0));
  bool fourOptions = group.parts.size() == 4;
  const std::string& cell = row.Cell((fourOptions ? 5 : 3) + choice);
  const std::string& comment = row.Cell((fourOptions ? 9 : 5) + choice);
  std::string name(RowName(cell));
  if (!cell.empty() || !behaviour_.emptyOptionCellWritesNothing) WriteParameterRow(cell, comment);
  RefreshParameters(name);
}

int PeripheralPanel::SelectedItemCell(int control) const {
  const Control& box = controls_.at(static_cast<std::size_t>(control));
  const std::string* item = box.parts.empty() ? nullptr : box.parts[0].SelectedItem();
  if (item == nullptr) return 0;
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(box.Caption(), 1));
  for (int cell = 1; cell < row.CellCount() && cell < traits_.cellsPerRow; ++cell) {
    if (EqualsNoCase(row.Cell(cell), *item)) return cell;
  }
  return 0;
}

void PeripheralPanel::OnCombobox(int control) {
  const Control& box = controls_[static_cast<std::size_t>(control)];
  if (box.parts.empty() || !box.parts[0].enabled) return;
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(box.Caption(), 1));
  std::string firstName = ApplyComboItem(control, row, SelectedItemCell(control));
  RefreshParameters(firstName);
}

std::string PeripheralPanel::ApplyComboItem(int control, const PanelRow& row, int cell) {
  // The usual layout of a box with n items: two rows for item j at cells (n - 1) + 2j
  // and n + 2j, its comment at 3n + j.
  int n = SpecOf(control).itemCount;
  if (n <= 0 || cell <= 0) return std::string();
  if (SpecOf(control).oneRowPerItem) {
    const std::string& itemRow = row.Cell(cell + n);
    if (!itemRow.empty()) WriteParameterRow(itemRow, row.Cell(cell + 2 * n));
    return std::string(RowName(itemRow));
  }
  const std::string& comment = row.Cell(3 * n + cell);
  std::string firstName(RowName(row.Cell((n - 1) + 2 * cell)));
  for (int rowCell : {(n - 1) + 2 * cell, n + 2 * cell}) {
    if (!row.Cell(rowCell).empty()) WriteParameterRow(row.Cell(rowCell), comment);
  }
  return firstName;
}

void PeripheralPanel::OnComboEditbox(int control, int field, const std::string& text) {
  ValueChanged(control, field, text);
}

void PeripheralPanel::OnCheckbox(int, int) { RefreshParameters(""); }

void PeripheralPanel::ValueChanged(int control, int field, std::string text) {
  Control& box = controls_[static_cast<std::size_t>(control)];
  if (field < 0 || field >= static_cast<int>(box.parts.size())) return;
  if (!box.parts[static_cast<std::size_t>(field)].enabled) return;
  if (text.size() >= kMaxFieldTextLength) return;
  const PanelRow& row = rowTable_.Row(rowTable_.FindRowByCaption(box.Caption(), 1));
  std::string trimmed = TrimBlanks(text);
  FieldOutcome outcome;
  if (!EvaluateField(control, field, row, trimmed, outcome)) return;
  int slot = FindSlot(RowName(outcome.row));
  if (parameterRows_.empty()) return;
  parameterRows_[static_cast<std::size_t>(slot)] = outcome.row;
  parameterComments_[static_cast<std::size_t>(slot)] = outcome.comment;
  RefreshParameters(RowName(outcome.row));
}

bool PeripheralPanel::EvaluateField(int control, int, const PanelRow& row,
                                    const std::string& text, FieldOutcome& outcome) {
  FieldClass fieldClass = SpecOf(control).fieldClass;
  std::uint32_t lowest = ParseNumber(row.Cell(5), 10);
  std::uint32_t highest = ParseNumber(row.Cell(6), 10);
  std::string name(RowName(row.Cell(2)));
  FieldCheck check;
  std::string value;
  switch (fieldClass) {
    case FieldClass::kDecimalInteger:
      check = CheckDecimalInteger(text, lowest, highest);
      value = text;
      break;
    case FieldClass::kHexadecimal:
      check = CheckHexadecimal(text, lowest, highest);
      value = "0x" + text;
      break;
    case FieldClass::kCountMinusOne:
      check = CheckCountMinusOne(text, lowest, highest);
      value = FormatC("%.0f", check.value);
      break;
    default:
      return false;
  }
  if (check.marker != Marker::kNone) {
    outcome.row = name + "=" + std::string(MarkerText(check.marker));
    outcome.comment = row.Cell(7);
  } else {
    outcome.row = name + "=" + value;
    outcome.comment = row.Cell(3);
  }
  return true;
}

void PeripheralPanel::RefillCombo(int control, RefillableCombo& combo, std::string_view mask) {
  if (!mask.empty() && mask != combo.rememberedMask) {
    ControlModel& box = controls_.at(static_cast<std::size_t>(control)).parts.at(0);
    box.ClearItems();
    for (std::size_t i = 0; i < mask.size() && i < combo.itemTexts.size(); ++i) {
      if (mask[i] == '1' && !combo.itemTexts[i].empty()) box.AddItem(combo.itemTexts[i]);
    }
    box.Select(0);
    combo.rememberedMask = std::string(mask);
  }
  RunHandler(control);
}

// ---------------------------------------------------------------- user actions

bool PeripheralPanel::ChooseOption(std::string_view key, int option) {
  int index = ControlIndex(key);
  if (index < 0) return false;
  Control& group = controls_[static_cast<std::size_t>(index)];
  if (group.kind != ControlKind::kRadioGroup || option < 0 ||
      option >= static_cast<int>(group.parts.size())) {
    return false;
  }
  const ControlModel& part = group.parts[static_cast<std::size_t>(option)];
  if (!part.enabled || !part.visible) return false;
  OnOptionClick(index, option);
  return true;
}

void PeripheralPanel::OnOptionClick(int control, int option) {
  controls_.at(static_cast<std::size_t>(control)).CheckOption(option);
  RunHandler(control);
}

bool PeripheralPanel::ChooseItem(std::string_view key, int itemIndex, int field) {
  int index = ControlIndex(key);
  if (index < 0) return false;
  Control& box = controls_[static_cast<std::size_t>(index)];
  if ((box.kind != ControlKind::kCombobox && box.kind != ControlKind::kComboEditbox) ||
      field < 0 || field >= static_cast<int>(box.parts.size())) {
    return false;
  }
  ControlModel& part = box.parts[static_cast<std::size_t>(field)];
  if (!part.enabled || !part.visible || itemIndex < 0 ||
      itemIndex >= static_cast<int>(part.items.size())) {
    return false;
  }
  part.Select(itemIndex);
  if (box.kind == ControlKind::kCombobox) {
    OnCombobox(index);
  } else {
    const std::string* item = part.SelectedItem();
    std::string text = item != nullptr ? *item : part.text;
    OnComboEditbox(index, field, text);
  }
  return true;
}

bool PeripheralPanel::EditFieldText(std::string_view key, int field, std::string text) {
  int index = ControlIndex(key);
  if (index < 0) return false;
  Control& box = controls_[static_cast<std::size_t>(index)];
  if (box.kind != ControlKind::kComboEditbox || field < 0 ||
      field >= static_cast<int>(box.parts.size())) {
    return false;
  }
  ControlModel& part = box.parts[static_cast<std::size_t>(field)];
  if (!part.enabled || !part.visible) return false;
  part.SetText(text);
  OnComboEditbox(index, field, text);
  return true;
}

bool PeripheralPanel::CloseDropDown(std::string_view key, int field) {
  int index = ControlIndex(key);
  if (index < 0) return false;
  Control& box = controls_[static_cast<std::size_t>(index)];
  if (box.kind != ControlKind::kComboEditbox || field < 0 ||
      field >= static_cast<int>(box.parts.size())) {
    return false;
  }
  std::string text = box.parts[static_cast<std::size_t>(field)].text;
  OnComboEditbox(index, field, text);
  return true;
}

bool PeripheralPanel::ToggleCheckbox(std::string_view key, int boxIndex, bool checked) {
  int index = ControlIndex(key);
  if (index < 0) return false;
  Control& block = controls_[static_cast<std::size_t>(index)];
  if (block.kind != ControlKind::kCheckbox || boxIndex < 0 ||
      boxIndex >= static_cast<int>(block.parts.size())) {
    return false;
  }
  ControlModel& box = block.parts[static_cast<std::size_t>(boxIndex)];
  if (!box.enabled || !box.visible) return false;
  box.checked = checked;
  OnCheckbox(index, boxIndex);
  return true;
}

// ---------------------------------------------------------------- save and load

std::string PeripheralPanel::SaveTag() const {
  std::string tag(traits_.saveTag);
  std::size_t at = tag.find("%d");
  if (at != std::string::npos) {
    int instance = context_ == nullptr ? 0 : context_->instance;
    tag.replace(at, 2, std::to_string(instance));
  }
  return tag;
}

std::vector<int> PeripheralPanel::SavedControls() const {
  std::vector<int> saved;
  for (std::size_t c = 0; c < controls_.size(); ++c) {
    ControlKind kind = controls_[c].kind;
    if (kind == ControlKind::kRadioGroup || kind == ControlKind::kCombobox) {
      saved.push_back(static_cast<int>(c));
    }
  }
  return saved;
}

std::vector<SavedValue> PeripheralPanel::SavedValues() const {
  std::vector<SavedValue> values;
  for (int c : SavedControls()) {
    bool group = controls_[static_cast<std::size_t>(c)].kind == ControlKind::kRadioGroup;
    values.push_back({c, group ? SavedForm::kOptions : SavedForm::kIndex, 0});
  }
  return values;
}

void PeripheralPanel::SaveState(std::string& text) const {
  for (const SavedValue& value : SavedValues()) {
    const Control& control = controls_.at(static_cast<std::size_t>(value.control));
    const bool options = value.form == SavedForm::kOptions || value.form == SavedForm::kAllOptions;
    const ControlModel& part = control.parts.at(static_cast<std::size_t>(options ? 0 : value.part));
    switch (value.form) {
      case SavedForm::kOptions:
        text += FormatC("%d %d ", part.checked ? 1 : 0,
                        control.parts.size() > 1 && control.parts[1].checked ? 1 : 0);
        break;
      case SavedForm::kBox: text += part.checked ? "1 " : "0 "; break;
      case SavedForm::kAllOptions:
        for (const ControlModel& option : control.parts) text += option.checked ? "1 " : "0 ";
        break;
      case SavedForm::kIndex: text += FormatC("%d ", part.selection); break;
      case SavedForm::kText: text += part.text + " "; break;
    }
  }
  text += " \n";
}

int NextSavedInteger(std::string& text) {
  std::string token = ReadNextToken(text);
  return static_cast<int>(std::strtol(token.c_str(), nullptr, 10));
}

void PeripheralPanel::LoadState(const std::string& projectText) {
  std::string tag = SaveTag();
  std::size_t at = projectText.find(tag);
  if (at == std::string::npos) return;
  std::string rest = projectText.substr(at + tag.size());
  for (const SavedValue& value : SavedValues()) {
    const int c = value.control;
    Control& control = controls_.at(static_cast<std::size_t>(c));
    const bool options = value.form == SavedForm::kOptions || value.form == SavedForm::kAllOptions;
    ControlModel& part = control.parts.at(static_cast<std::size_t>(options ? 0 : value.part));
    switch (value.form) {
      case SavedForm::kOptions: {
        part.checked = NextSavedInteger(rest) != 0;
        bool second = NextSavedInteger(rest) != 0;
        if (control.parts.size() > 1) control.parts[1].checked = second;
        RunHandler(c);
        break;
      }
      case SavedForm::kAllOptions:
        for (ControlModel& option : control.parts) option.checked = NextSavedInteger(rest) != 0;
        RunHandler(c);
        break;
      case SavedForm::kIndex:
        part.Select(NextSavedInteger(rest));
        if (control.kind == ControlKind::kComboEditbox) {
          // The field's handler works on the selected item, as after a pick.
          const std::string* item = part.SelectedItem();
          OnComboEditbox(c, value.part, item != nullptr ? *item : part.text);
        } else {
          RunHandler(c);
        }
        break;
      case SavedForm::kText:
        part.SetText(ReadNextToken(rest));
        OnComboEditbox(c, value.part, part.text);
        break;
      case SavedForm::kBox:
        part.checked = NextSavedInteger(rest) != 0;
        OnCheckbox(c, value.part);
        break;
    }
  }
}

// ---------------------------------------------------------------- errors

bool PeripheralPanel::FieldNameEnabled(std::string_view fieldName) const {
  for (const ErrorFieldName& binding : ErrorFieldNames()) {
    if (binding.name != fieldName) continue;
    const Control* control = FindControl(binding.key);
    if (control == nullptr) continue;
    if (binding.part < 0 ? control->AnyPartEnabled()
                         : binding.part < static_cast<int>(control->parts.size()) &&
                               control->parts[static_cast<std::size_t>(binding.part)].enabled) {
      return true;
    }
  }
  return false;
}

bool PeripheralPanel::ErrorRowMatches(const ErrorTable& table, int r, std::string_view name) const {
  return table.HasCell(r, 0) && EqualsNoCase(table.Cell(r, 0), name) &&
         FieldNameEnabled(table.Cell(r, 1));
}

bool PeripheralPanel::CollectErrors(ErrorReport& report) const {
  if (!hasWindow_) return true;
  bool fine = true;
  for (const std::string& row : parameterRows_) {
    if (row.empty()) continue;
    std::string_view name = RowName(row);
    bool shown = std::any_of(activeKeys_.begin(), activeKeys_.end(),
                             [&](const std::string& key) { return EqualsNoCase(key, name); });
    if (!shown) continue;
    const ErrorTable* table = nullptr;
    if (row.find(kMarkerNull, 1) != std::string::npos) {
      table = &errorNullRows_;
    } else if (row.find(kMarkerInvalidMin, 1) != std::string::npos) {
      table = &errorMinRows_;
    } else if (row.find(kMarkerInvalidMax, 1) != std::string::npos) {
      table = &errorMaxRows_;
    } else {
      continue;
    }
    for (int r = 0; r < table->RowCount(); ++r) {
      if (!ErrorRowMatches(*table, r, name)) continue;
      fine = false;
      if (report.Full()) continue;
      std::vector<std::string> cells(kErrorTableCells);
      for (int c = 2; c < kErrorTableCells; ++c) {
        if (table->HasCell(r, c)) cells[static_cast<std::size_t>(c)] = table->Cell(r, c);
      }
      report.rows.push_back(std::move(cells));
    }
  }
  return fine;
}

}  // namespace tessara
