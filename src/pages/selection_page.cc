#include "pages/selection_page.h"

#include <algorithm>

#include "core/application.h"
#include "core/text.h"
#include "pages/group_picture.h"

namespace tessara {

namespace {

constexpr PageTooltip kPageTooltips[] = {
    {SelectionControl::kSeriesBox, "MCU Series Selection"},
    {SelectionControl::kGroupBox, "MCU Group Selection"},
    {SelectionControl::kPartBox, "MCU Part Selection"},
    {SelectionControl::kParameterList, "Display current parameters value"},
    {SelectionControl::kNextButton, "Click to setup other Peripherals"},
    {SelectionControl::kLoadButton, "Click to load a saved file"},
};

// The text up to the first "/": the only link between a series and its groups.
std::string_view PrefixOf(std::string_view name) { return name.substr(0, name.find('/')); }

std::vector<std::string> SplitFields(const std::string& text) {
  std::vector<std::string> fields;
  std::size_t start = 0;
  for (;;) {
    std::size_t end = text.find(';', start);
    fields.push_back(text.substr(start, end == std::string::npos ? std::string::npos : end - start));
    if (end == std::string::npos) return fields;
    start = end + 1;
  }
}

const std::string* SelectedText(const ControlModel& box) { return box.SelectedItem(); }

}  // namespace

SelectionPage::SelectionPage(Application& application, ListColour selectedItemColour)
    : application_(application) {
  list_.Colours() = ParameterListColours(selectedItemColour);
  int slot = application_.SelectedGroup;
  if (slot >= 1 && slot <= kMaxDataFiles) {
    list_.Colours().ReadColourLines(application_.database().Entry(slot));
  }
  for (PanelContext* context : {&clockContext_, &clock2Context_}) {
    context->host = &application_.host();
    context->flags = &application_.Flags;
    context->parameterList = &list_;
  }
  clockPanel_.SetContext(&clockContext_);
  clock2Panel_.SetContext(&clock2Context_);
  tooltips_.assign(std::begin(kPageTooltips), std::end(kPageTooltips));
}

void SelectionPage::Initialise() {
  const DeviceDatabase& database = application_.database();
  groupPicture_ = kFirstGroupPicture;

  seriesBox_.ClearItems();
  for (int slot = 1; slot <= kMaxDataFiles; ++slot) {
    const std::string& series = database.Entry(slot).Series;
    if (series.empty()) break;
    bool listed = std::any_of(seriesBox_.items.begin(), seriesBox_.items.end(),
                              [&](const std::string& item) { return EqualsNoCase(item, series); });
    if (!listed) seriesBox_.AddItem(series);
  }
  seriesBox_.Select(application_.SelectedSeries - 1);

  // The groups are those of the series box's first item, whatever series is selected.
  groupBox_.ClearItems();
  std::string_view prefix = seriesBox_.items.empty() ? std::string_view() : PrefixOf(seriesBox_.items[0]);
  for (int slot = 1; slot <= kMaxDataFiles; ++slot) {
    const std::string& group = database.Entry(slot).Group;
    if (group.empty()) break;
    if (EqualsNoCase(PrefixOf(group), prefix)) groupBox_.AddItem(group);
  }
  groupBox_.Select(application_.SelectedGroup - 1);

  // The parts are those of the first entry.
  FillPartBox(1);
  partBox_.Select(application_.SelectedPart - 1);
  PartChanged();

  int slot = application_.SelectedGroup;
  LoadClockPanel(slot, false);

  tabs_.clear();
  if (slot >= 1 && slot <= kMaxDataFiles) {
    const DatabaseEntry& entry = database.Entry(slot);
    for (int k = 1; k <= kMaxConfigurations; ++k) {
      const std::string& name = entry.Configuration[static_cast<std::size_t>(k)];
      if (name.empty()) break;
      if (!EqualsNoCase(name, "Clock")) continue;
      std::size_t at = std::min(static_cast<std::size_t>(k - 1), tabs_.size());
      tabs_.insert(tabs_.begin() + static_cast<std::ptrdiff_t>(at), name);
    }
  }

  pageReady_ = true;
  focus_ = SelectionControl::kSeriesBox;
  if (!application_.CommandLineFile.empty() && loadFile) loadFile(application_.CommandLineFile);
}

void SelectionPage::FillPartBox(int slot) {
  partBox_.ClearItems();
  if (slot < 1 || slot > kMaxDataFiles) return;
  const DatabaseEntry& entry = application_.database().Entry(slot);
  for (int j = 1; j <= kMaxParts; ++j) {
    const std::string& part = entry.Part[static_cast<std::size_t>(j)];
    if (part.empty()) break;
    std::size_t semicolon = part.find(';');
    if (semicolon == std::string::npos) continue;
    // Each part goes to the position of its slot; behind a part that was not listed
    // that position lies past the end, and the part is appended.
    std::size_t at = std::min(static_cast<std::size_t>(j - 1), partBox_.items.size());
    partBox_.items.insert(partBox_.items.begin() + static_cast<std::ptrdiff_t>(at),
                          part.substr(0, semicolon));
  }
}

void SelectionPage::SeriesChanged() {
  const std::string* series = SelectedText(seriesBox_);
  std::string_view prefix = series == nullptr ? std::string_view() : PrefixOf(*series);
  groupBox_.ClearItems();
  for (int slot = 1; slot <= kMaxDataFiles; ++slot) {
    const std::string& group = application_.database().Entry(slot).Group;
    if (group.empty()) break;
    if (EqualsNoCase(PrefixOf(group), prefix)) groupBox_.AddItem(group);
  }
  groupBox_.Select(0);
  GroupChanged();
  focus_ = SelectionControl::kSeriesBox;
}

int SelectionPage::ChosenGroupSlot() const {
  const std::string* name = SelectedText(groupBox_);
  if (name != nullptr) {
    for (int slot = 1; slot <= kMaxDataFiles; ++slot) {
      const std::string& group = application_.database().Entry(slot).Group;
      if (!group.empty() && EqualsNoCase(group, *name)) return slot;
    }
  }
  return groupBox_.selection;
}

void SelectionPage::GroupChanged() {
  const std::string* name = SelectedText(groupBox_);
  groupPicture_ = name == nullptr ? 0 : GroupPictureOf(*name);
  int slot = ChosenGroupSlot();
  if (name != nullptr) application_.Flags.SetFromGroupName(*name);
  application_.LoadGroupTables(slot);
  FillPartBox(slot);
  partBox_.Select(0);
  PartChanged();
  application_.SelectedFile = slot;
  application_.SelectedGroup = slot;
  LoadClockPanel(slot, true);
  focus_ = SelectionControl::kGroupBox;
}

void SelectionPage::ShowCapacity(CapacityRow& row, const std::string& field) {
  if (field.empty()) {
    row.visible = false;
    return;
  }
  // "16Kbytes" reads "16K bytes"; a text without the word gets its blank in front.
  std::size_t at = field.find("bytes");
  std::string value = field;
  value.insert(at == std::string::npos ? 0 : at, " ");
  row.value = value;
  row.visible = true;
}

void SelectionPage::PartChanged() {
  int slot = ChosenGroupSlot();
  if (slot < 1 || slot > kMaxDataFiles) return;
  int position = partBox_.selection + 1;
  if (position < 0 || position > kMaxParts) return;
  const std::string& part =
      application_.database().Entry(slot).Part[static_cast<std::size_t>(position)];
  std::vector<std::string> fields = SplitFields(part);
  CapacityRow* rows[] = {&rom_, &ram_, &dataFlash_};
  for (std::size_t i = 0; i < 3; ++i) {
    if (i + 1 >= fields.size()) {
      // Rows behind the first absent field stay as they were.
      rows[i]->visible = false;
      break;
    }
    ShowCapacity(*rows[i], fields[i + 1]);
  }
}

void SelectionPage::LoadClockPanel(int slot, bool hideOther) {
  if (slot < 1 || slot > kMaxDataFiles) return;
  const DatabaseEntry& entry = application_.database().Entry(slot);
  int k = ConfigurationIndexOfClock(entry);
  ClockPanelBase* panel = nullptr;
  PanelContext* context = nullptr;
  bool clock = IsPanelKind(PanelKind::kClock, entry, k);
  if (clock) {
    panel = &clockPanel_;
    context = &clockContext_;
  } else if (IsPanelKind(PanelKind::kClock2, entry, k)) {
    panel = &clock2Panel_;
    context = &clock2Context_;
  } else {
    return;
  }
  context->group = &entry;
  context->configuration = k;
  panel->ClearTables();
  panel->LoadSection();
  if (panel->HasWindow()) {
    panel->OnInitDialog();
    panel->RunHandler(panel->ControlIndex("Radiobox_1"));
    panel->RefreshParameters("");
  }
  (clock ? clockShown_ : clock2Shown_) = true;
  if (hideOther) {
    PeripheralPanel& other = clock ? static_cast<PeripheralPanel&>(clock2Panel_) : clockPanel_;
    if (other.HasWindow()) (clock ? clock2Shown_ : clockShown_) = false;
  }
}

ClockPanelBase* SelectionPage::ShownClockPanel() {
  if (clockShown_) return &clockPanel_;
  if (clock2Shown_) return &clock2Panel_;
  return nullptr;
}

const ClockPanel* SelectionPage::ClockLink() const {
  int slot = application_.SelectedGroup;
  if (slot < 1 || slot > kMaxDataFiles || !clockPanel_.HasWindow()) return nullptr;
  const DatabaseEntry& entry = application_.database().Entry(slot);
  return IsPanelKind(PanelKind::kClock, entry, ConfigurationIndexOfClock(entry)) ? &clockPanel_ : nullptr;
}

const Clock2Panel* SelectionPage::Clock2Link() const {
  int slot = application_.SelectedGroup;
  if (slot < 1 || slot > kMaxDataFiles || !clock2Panel_.HasWindow()) return nullptr;
  const DatabaseEntry& entry = application_.database().Entry(slot);
  return IsPanelKind(PanelKind::kClock2, entry, ConfigurationIndexOfClock(entry)) ? &clock2Panel_
                                                                                  : nullptr;
}

ClockSummary SelectionPage::CurrentClockSummary() const {
  const ClockPanel* clock = ClockLink();
  const Clock2Panel* clock2 = Clock2Link();
  ClockSummaryInput clockInput;
  ClockSummaryInput clock2Input;
  if (clock != nullptr) clockInput = clock->SummaryInput();
  if (clock2 != nullptr) clock2Input = clock2->SummaryInput();
  return WriteClockSummary(clock != nullptr ? &clockInput : nullptr,
                           clock2 != nullptr ? &clock2Input : nullptr, application_.Flags);
}

void SelectionPage::NextPressed() {
  int slot = ChosenGroupSlot();
  application_.SelectedSeries = seriesBox_.selection + 1;
  application_.SelectedGroup = slot;
  application_.SelectedFile = slot;
  application_.SelectedPart = partBox_.selection + 1;
  visible_ = false;
  if (runPeripheralPage) runPeripheralPage();
  visible_ = true;
}

bool SelectionPage::ChooseSeries(int position) {
  if (position < 0 || position >= static_cast<int>(seriesBox_.items.size())) return false;
  seriesBox_.Select(position);
  SeriesChanged();
  return true;
}

bool SelectionPage::ChooseGroup(int position) {
  if (position < 0 || position >= static_cast<int>(groupBox_.items.size())) return false;
  groupBox_.Select(position);
  GroupChanged();
  return true;
}

bool SelectionPage::ChoosePart(int position) {
  if (position < 0 || position >= static_cast<int>(partBox_.items.size())) return false;
  partBox_.Select(position);
  PartChanged();
  return true;
}

}  // namespace tessara
