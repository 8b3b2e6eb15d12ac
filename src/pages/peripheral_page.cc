#include "pages/peripheral_page.h"

#include "core/application.h"
#include "core/host.h"
#include "core/ini.h"
#include "core/text.h"
#include "panels/framework/peripheral_panel.h"
#include "panels/panel_factory.h"

namespace tessara {

namespace {

bool IsClockName(const std::string& name) { return EqualsNoCase(name, "Clock"); }

// Kinds whose panel refreshes once more after it was shown again.
constexpr PanelKind kRefreshTwice[] = {
    PanelKind::kTimerC,  PanelKind::kSSU,     PanelKind::kMultiMasterI2C, PanelKind::kCAN,
    PanelKind::kADC2,    PanelKind::kUART3,   PanelKind::kMotorTimer,     PanelKind::kADC3,
    PanelKind::kDAC,     PanelKind::kComparator, PanelKind::kComparatorVDC, PanelKind::kDTC,
    PanelKind::kComparatorB, PanelKind::kADC4,
};

// Kinds whose first group's handler runs again at each selection, so that the popup
// follows the panel's state.
constexpr PanelKind kRerunFirstGroup[] = {
    PanelKind::kTimerRA, PanelKind::kTimerZ,  PanelKind::kTimerX,   PanelKind::kTimerY,
    PanelKind::kTimerC,  PanelKind::kTimerRE, PanelKind::kTimerRC,  PanelKind::kTimerRD,
    PanelKind::kTimerRF, PanelKind::kCAN,     PanelKind::kADC,      PanelKind::kUART2,
    PanelKind::kUART3,   PanelKind::kADC2,    PanelKind::kMultiMasterI2C, PanelKind::kTimerS,
    PanelKind::kDMA,     PanelKind::kTimerA,  PanelKind::kSIO,      PanelKind::kComparator,
    PanelKind::kComparatorVDC, PanelKind::kInterrupt, PanelKind::kDTC, PanelKind::kComparatorB,
    PanelKind::kADC4,
};

// Kinds whose File texts are emptied when the page is left.
constexpr PanelKind kFileTextsClearedOnLeave[] = {PanelKind::kTimerC, PanelKind::kUART2,
                                                  PanelKind::kADC2};

template <std::size_t N>
bool Among(PanelKind kind, const PanelKind (&kinds)[N]) {
  for (PanelKind k : kinds) {
    if (k == kind) return true;
  }
  return false;
}

}  // namespace

PeripheralPage::PeripheralPage(Application& application, ListColour selectedItemColour)
    : Ide(ConnectIdeServer()), application_(application) {
  parameterList_.Colours() = ParameterListColours(selectedItemColour);
  int group = application_.SelectedGroup;
  if (group >= 1 && group <= kMaxDataFiles) {
    parameterList_.Colours().ReadColourLines(application_.database().Entry(group));
  }
  for (const ResourceTag& tag : kResourceTags) {
    if (tag.kind == PanelKind::kClock || tag.kind == PanelKind::kClock2) continue;
    auto& instances = panels_[static_cast<std::size_t>(tag.kind)];
    for (int i = 0; i < tag.instances; ++i) {
      auto slot = std::make_unique<PanelSlot>();
      slot->panel = CreatePeripheralPanel(tag.kind);
      if (slot->panel == nullptr) break;  // a kind without its panel class yet
      slot->context.host = &application_.host();
      slot->context.flags = &application_.Flags;
      slot->context.parameterList = &parameterList_;
      slot->context.instance = i;
      slot->panel->SetContext(&slot->context);
      instances.push_back(std::move(slot));
    }
  }
}

PeripheralPage::~PeripheralPage() = default;

void PeripheralPage::SetExtraSettingsPresenter(ExtraSettingsPresenter* presenter) {
  presenter_ = presenter;
  if (popup_ != nullptr) popup_->SetPresenter(presenter);
}

void PeripheralPage::SetHasExtraSettings(bool has) {
  hasExtraSettings_ = has;
  for (auto& instances : panels_) {
    for (auto& slot : instances) slot->context.hasExtraSettings = has;
  }
}

void PeripheralPage::CreatePopup() {
  popup_ = std::make_unique<ExtraSettingsPanel>();
  popup_->SetPresenter(presenter_);
  popup_->extraSettingFound = [this] { SetHasExtraSettings(true); };
  popup_->controlChanged = [this](int number) { OnPopupControl(number); };
  for (auto& instances : panels_) {
    for (auto& slot : instances) slot->context.popup = popup_.get();
  }
}

void PeripheralPage::DestroyPopup() {
  for (auto& instances : panels_) {
    for (auto& slot : instances) {
      if (slot->panel->HasWindow()) slot->panel->ClearExtraRows();
      slot->context.popup = nullptr;
    }
  }
  popup_.reset();
}

void PeripheralPage::OnPopupControl(int number) {
  if (popup_ == nullptr || listPosition_ < 0 || listPosition_ >= kExtraSettingsRows) return;
  popup_->SetFocusedControl(number);
  ExtraSettingsRow& row = ExtraSettingsState[static_cast<std::size_t>(listPosition_)];
  row[static_cast<std::size_t>(number)] =
      number <= ExtraSettingsPanel::kComboBoxes
          ? popup_->ComboSelection(number)
          : popup_->CheckState(number - ExtraSettingsPanel::kComboBoxes);
  PeripheralPanel* panel = PanelOfConfiguration(ConfigurationOfRow(listPosition_));
  if (panel != nullptr && panel->HasWindow()) panel->RefreshParameters("");
  popup_->SetFocusedControl(-1);
}

void PeripheralPage::SetClockValues(const ClockValues* values) {
  for (auto& instances : panels_) {
    for (auto& slot : instances) slot->context.clockValues = values;
  }
}

PeripheralPage::PanelSlot* PeripheralPage::SlotOf(PanelKind kind, int instance) const {
  const auto& instances = panels_[static_cast<std::size_t>(kind)];
  if (instance < 1 || instance > static_cast<int>(instances.size())) return nullptr;
  return instances[static_cast<std::size_t>(instance - 1)].get();
}

PeripheralPanel* PeripheralPage::Panel(PanelKind kind, int instance) const {
  PanelSlot* slot = SlotOf(kind, instance);
  return slot == nullptr ? nullptr : slot->panel.get();
}

PeripheralPanel* PeripheralPage::PanelOfConfiguration(int k) const {
  const DatabaseEntry& group = application_.database().Entry(application_.SelectedGroup);
  if (k < 1 || k > kMaxConfigurations) return nullptr;
  const ResourceTag* tag = FindResourceTag(group.ResourceID[static_cast<std::size_t>(k)]);
  if (tag == nullptr) return nullptr;
  return Panel(tag->kind, PanelInstance(group, k));
}

int PeripheralPage::ConfigurationOfRow(int row) const {
  const DatabaseEntry& group = application_.database().Entry(application_.SelectedGroup);
  // Row r stands for k = r + 1 + the number of clock configurations among slots 0 to r + 1.
  int clocks = 0;
  for (int slot = 0; slot <= row + 1 && slot <= kMaxConfigurations; ++slot) {
    if (IsClockName(group.Configuration[static_cast<std::size_t>(slot)])) ++clocks;
  }
  return row + 1 + clocks;
}

void PeripheralPage::Open(bool openedByNext, const PeripheralPanel* clockLink,
                          const PeripheralPanel* clock2Link) {
  OpenedByNext = openedByNext;
  clockLink_ = clockLink;
  clock2Link_ = clock2Link;
  open_ = true;
  shownPanel_ = nullptr;
  // The rows go with the window; the colours stay for the run.
  ParameterListColours colours = parameterList_.Colours();
  parameterList_ = ParameterList();
  parameterList_.Colours() = colours;

  const DatabaseEntry& group = application_.database().Entry(application_.SelectedGroup);
  listItems_.clear();
  for (int k = 1; k <= kMaxConfigurations; ++k) {
    const std::string& name = group.Configuration[static_cast<std::size_t>(k)];
    if (name.empty()) break;
    if (!IsClockName(name)) listItems_.push_back(name);
  }
  BindPanels();
  listPosition_ = 0;
  // The popup is there before the panels of a project are restored, so that they take
  // their side settings into their rows at once: generating right after a load gives
  // the code that was generated before the save.
  std::string extraSetting;
  ReadProgramIni("Display", "ExtraSetting", extraSetting);
  if (!extraSetting.empty() && extraSetting[0] == '1' && popup_ == nullptr) CreatePopup();
  RestoreSelection();
}

void PeripheralPage::RestoreSelection() {
  SelectedMap = std::string(kSelectedMapPlaces, '0');
  const int count = static_cast<int>(listItems_.size());
  if (ProjectText.empty()) {
    Select(0);
    return;
  }
  // The side settings come first, for the same reason as the popup.
  const std::string extraTag = "ExtraSettings:";
  std::size_t extra = ProjectText.find(extraTag);
  if (extra != std::string::npos) {
    std::string rest = ProjectText.substr(extra + extraTag.size());
    for (auto& row : ExtraSettingsState) {
      for (int& value : row) value = NextSavedInteger(rest);
    }
  }
  const std::string mapTag = "Selected_Peripherals";
  std::size_t map = ProjectText.find(mapTag);
  if (map != std::string::npos) {
    std::string stored = ProjectText.substr(map + mapTag.size() + 1, kSelectedMapPlaces);
    stored.resize(kSelectedMapPlaces, '0');
    SelectedMap = stored;
    for (int position = std::min(count, kSelectedMapPlaces) - 1; position >= 0; --position) {
      if (stored[static_cast<std::size_t>(position)] == '1') Select(position);
    }
  } else {
    for (int position = count - 1; position >= 0; --position) Select(position);
  }
}

void PeripheralPage::BindPanels() {
  const DatabaseEntry& group = application_.database().Entry(application_.SelectedGroup);
  panelList_.clear();
  std::array<int, kPanelKindCount> used{};
  for (int k = 1; k <= kMaxConfigurations; ++k) {
    if (group.Configuration[static_cast<std::size_t>(k)].empty()) break;
    const ResourceTag* tag = FindResourceTag(group.ResourceID[static_cast<std::size_t>(k)]);
    if (tag == nullptr || tag->kind == PanelKind::kClock || tag->kind == PanelKind::kClock2) continue;
    int& count = used[static_cast<std::size_t>(tag->kind)];
    ++count;
    PanelSlot* slot = SlotOf(tag->kind, count);
    if (slot != nullptr) {
      slot->panel->ClearTables();
      slot->context.group = &group;
      slot->context.configuration = k;
      slot->context.clockLink = clockLink_;
      slot->context.clock2Link = clock2Link_;
    }
    // A kind without its panel class keeps its place in the list, so that rows and
    // entries stay as they will be once it has one.
    panelList_.push_back(slot == nullptr ? nullptr : slot->panel.get());
  }
}

void PeripheralPage::Select(int row) {
  if (!open_ || row < 0 || row >= static_cast<int>(listItems_.size())) return;
  SetHasExtraSettings(false);
  listPosition_ = row;
  if (row < kSelectedMapPlaces) SelectedMap[static_cast<std::size_t>(row)] = '1';
  const int k = ConfigurationOfRow(row);
  const DatabaseEntry& group = application_.database().Entry(application_.SelectedGroup);
  if (popup_ != nullptr) {
    const bool known = k >= 1 && k <= kMaxConfigurations;
    std::vector<std::string_view> lines;
    if (known) {
      for (std::string_view line : group.SectionLines[static_cast<std::size_t>(k)]) {
        lines.push_back(line);
      }
    }
    popup_->SetPeripheral(std::move(lines),
                          row < kExtraSettingsRows ? &ExtraSettingsState[static_cast<std::size_t>(row)]
                                                   : nullptr);
    popup_->SetControlsFromState();
  }
  PeripheralPanel* panel = PanelOfConfiguration(k);
  // The SSU's modes carry side settings of their own, so the page counts it as having
  // them before the panel asks for its mode's lines.
  if (panel != nullptr && panel->Kind() == PanelKind::kSSU) SetHasExtraSettings(true);
  if (panel != nullptr) {
    if (!panel->HasWindow()) {
      panel->LoadSection();
      ShowPanel(listPosition_);
      panel->LoadState(ProjectText);
    }
    if (panel->HasWindow()) {
      panel->RefreshParameters("");
      ShowPanel(listPosition_);
      if (Among(panel->Kind(), kRefreshTwice)) panel->RefreshParameters("");
    }
  }
  if (popup_ != nullptr) popup_->SetupExtraSettings("");
  previousPosition_ = listPosition_;
  if (panel != nullptr && panel->HasWindow() && Among(panel->Kind(), kRerunFirstGroup)) {
    int first = panel->ControlIndex("Radiobox_1");
    if (first >= 0) panel->RunHandler(first);
  }
}

void PeripheralPage::ShowPanel(int row) {
  if (row < 0 || row >= static_cast<int>(panelList_.size()) || row > kMaxConfigurations) return;
  PeripheralPanel* panel = panelList_[static_cast<std::size_t>(row)];
  if (panel != nullptr && panel->HasWindow()) shownPanel_ = panel;
}

void PeripheralPage::DestroyPanelWindows() {
  for (auto& instances : panels_) {
    for (auto& slot : instances) slot->panel->DestroyWindow();
  }
  shownPanel_ = nullptr;
}

bool PeripheralPage::Leave() {
  if (!open_) return true;
  if (popup_ != nullptr) DestroyPopup();
  ProjectText.clear();
  for (PanelKind kind : kFileTextsClearedOnLeave) {
    for (int instance = 1; PeripheralPanel* panel = Panel(kind, instance); ++instance) {
      if (panel->HasWindow()) panel->ClearFileTexts();
    }
  }
  if (OpenedByNext && ResetWarningOff == 0) {
    Host::ResetWarningAnswer answer = application_.host().AskResetWarning(kResetWarningText);
    if (!answer.ok) return false;
    ResetWarningOff = answer.doNotShowAgain ? 1 : 0;
  }
  DestroyPanelWindows();
  open_ = false;
  return true;
}

void PeripheralPage::Close() {
  OpenedByNext = false;
  Leave();
}

}  // namespace tessara
