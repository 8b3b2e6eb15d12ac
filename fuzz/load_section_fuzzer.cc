// Loads an arbitrary section into a panel of any kind, as a first selection in the
// peripheral list does, then works every control and saves and restores the panel.
// The first byte chooses the kind, the second the sample group (its family flags and
// its clock panel) the panel belongs to; the rest is the section's text in the data file.
#include <memory>

#include "core/application.h"
#include "core/text.h"
#include "database/device_database.h"
#include "fuzz_support.h"
#include "pages/parameter_list.h"
#include "panels/framework/clock_values.h"
#include "panels/framework/error_tables.h"
#include "panels/framework/generic_panel.h"
#include "panels/framework/peripheral_panel.h"
#include "panels/panel_factory.h"
#include "panels/system/clock2_panel.h"
#include "panels/system/clock_panel.h"
#include "recording_host.h"

namespace {

using namespace tessara;

std::unique_ptr<PeripheralPanel> NewPanel(PanelKind kind) {
  if (kind == PanelKind::kClock) return std::make_unique<ClockPanel>();
  if (kind == PanelKind::kClock2) return std::make_unique<Clock2Panel>();
  std::unique_ptr<PeripheralPanel> panel = CreatePeripheralPanel(kind);
  return panel != nullptr ? std::move(panel) : std::make_unique<GenericPanel>(kind);
}

// The bundled sample groups, read once.
const Application& Samples() {
  static RecordingHost host;
  static std::unique_ptr<Application> application = [] {
    SetModuleFolder(TESSARA_SOURCE_DIR "/data");
    auto started = std::make_unique<Application>(host);
    FUZZ_CHECK(started->StartUp() == Application::StartResult::kRunning);
    for (int slot = 1; slot <= started->DataFileCount(); ++slot) started->LoadGroupTables(slot);
    SetModuleFolder("");
    return started;
  }();
  return *application;
}

// A group of the samples with one more configuration, k, whose section is the input.
struct FuzzGroup {
  FuzzGroup(const DatabaseEntry& sample, PanelKind kind, const std::string& section)
      : entry(std::make_unique<DatabaseEntry>(sample)) {
    while (k <= kMaxConfigurations && !entry->Configuration[static_cast<std::size_t>(k)].empty()) ++k;
    if (k > kMaxConfigurations) k = kMaxConfigurations;
    entry->Configuration[static_cast<std::size_t>(k)] = "Fuzzed peripheral";
    entry->ResourceID[static_cast<std::size_t>(k)] = std::string(TagOf(kind).tag);
    entry->SectionLines.Assign(static_cast<std::size_t>(k), {});
    StoreSectionLines(host, *entry, 1, k, section);
    flags.SetFromGroupName(entry->Group);
  }
  std::unique_ptr<DatabaseEntry> entry;
  int k = 1;
  RecordingHost host;
  FamilyFlags flags;
};

// The context a page gives a panel of configuration k, with the group's own clock
// panel loaded as its clock link.
struct FuzzPage {
  FuzzPage(FuzzGroup& group, int k) {
    const DatabaseEntry& entry = *group.entry;
    PanelContext base;
    base.host = &group.host;
    base.group = &entry;
    base.flags = &group.flags;
    base.parameterList = &list;
    base.clockValues = &clocks;
    clockContext = base;
    context = base;
    context.configuration = k;
    context.instance = std::max(0, PanelInstance(entry, k) - 1);
    const int clockK = ConfigurationIndexOfClock(entry);
    const ResourceTag* clockTag = FindResourceTag(entry.ResourceID[static_cast<std::size_t>(clockK)]);
    if (clockK != 0 && clockTag != nullptr &&
        (clockTag->kind == PanelKind::kClock || clockTag->kind == PanelKind::kClock2)) {
      clock = NewPanel(clockTag->kind);
      clockContext.configuration = clockK;
      clock->SetContext(&clockContext);
      clock->LoadSection();
      clock->RefreshParameters("");
      (clockTag->kind == PanelKind::kClock ? context.clockLink : context.clock2Link) = clock.get();
    }
  }
  ParameterList list;
  ClockValues clocks;
  PanelContext clockContext;
  PanelContext context;
  std::unique_ptr<PeripheralPanel> clock;
};

// Whether every text the panel's line holds reads back as one token: a load ends a
// token at a blank, colon or equals sign, so a field text with one of them (a preset
// of the section, or typed) comes back cut, and the values behind it move up.
bool TextsReadBack(const PeripheralPanel& panel) {
  for (const Control& control : panel.Controls()) {
    if (control.kind != ControlKind::kComboEditbox) continue;
    for (const ControlModel& field : control.parts) {
      if (field.text.find_first_of(" :=") != std::string::npos) return false;
    }
  }
  return true;
}

// The panel's line of a project file.
std::string ProjectLine(const PeripheralPanel& panel) {
  std::string line = panel.SaveTag();
  panel.SaveState(line);
  return line;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const PanelKind kind = static_cast<PanelKind>(data[0] % kPanelKindCount);
  const Application& samples = Samples();
  const int slot = 1 + data[1] % samples.DataFileCount();
  const std::string section(reinterpret_cast<const char*>(data) + 2, size - 2);

  FuzzGroup group(samples.database().Entry(slot), kind, section);
  FuzzPage page(group, group.k);
  std::unique_ptr<PeripheralPanel> panel = NewPanel(kind);
  panel->SetContext(&page.context);
  panel->LoadSection();
  panel->RefreshParameters("");
  // Every handler once, in control order, as masks and a project's values run them.
  for (int control = 0; control < static_cast<int>(panel->Controls().size()); ++control) {
    panel->RunHandler(control);
  }
  panel->RefreshParameters("");
  std::string code;
  panel->EmitRegisterCode(code);
  panel->EmitExtraCode(code);
  ErrorReport report;
  panel->CollectErrors(report);
  const std::string saved = ProjectLine(*panel);

  // The saved line restores a fresh panel of the same section to the same line, where
  // its texts can be read back.
  if (!TextsReadBack(*panel)) return 0;
  FuzzPage restoredPage(group, group.k);
  std::unique_ptr<PeripheralPanel> restored = NewPanel(kind);
  restored->SetContext(&restoredPage.context);
  restored->LoadSection();
  restored->LoadState(saved);
  restored->RefreshParameters("");
  FUZZ_CHECK(ProjectLine(*restored) == saved);
  return 0;
}
