// A full chip at work: every panel opened, Generate, and a project saved and loaded with
// every panel open, each against the plain file work it stands for. The file's name puts
// these behind the start-up and group-load benchmarks (files join in name order): the
// panel objects made and freed here leave the heap in a state that slows the start-up's
// many small allocations, which would blur its figure.
#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <memory>

#include "bench_support.h"
#include "core/application.h"
#include "core/text.h"
#include "pages/page_commands.h"
#include "pages/page_flow.h"
#include "panels/framework/peripheral_panel.h"
#include "scripted_host.h"

namespace tessara {
namespace {

// Generate for a full chip, and loading a project that opens every panel, must take no
// longer than these.
constexpr double kGenerateTargetSeconds = 0.020;
constexpr double kProjectLoadTargetSeconds = 0.050;

// The application started on the full chip, for the whole process.
struct FullChipRun {
  FullChipRun() {
    SetModuleFolder(FullChip().folder);
    application = std::make_unique<Application>(host);
    started = application->StartUp() == Application::StartResult::kRunning && host.messages.empty();
  }
  ~FullChipRun() { SetModuleFolder(""); }
  ScriptedHost host;
  std::unique_ptr<Application> application;
  bool started = false;
};

FullChipRun& Run() {
  static FullChipRun run;
  SetModuleFolder(FullChip().folder);
  return run;
}

// Next on a fresh first page, then every row of the list selected: every panel loaded.
void OpenEveryPanel(PageFlow& flow) {
  flow.Next();
  PeripheralPage& page = flow.Peripherals();
  for (int row = 1; row < static_cast<int>(page.ListItems().size()); ++row) page.Select(row);
}

// The panels that have a window.
int OpenPanels(PageFlow& flow) {
  int open = 0;
  for (const PeripheralPanel* panel : flow.Peripherals().PanelList()) open += panel != nullptr && panel->HasWindow();
  return open;
}

// Selects the item `text` of a panel's Combobox, as a user would; false when it has none.
bool ChooseItemText(PeripheralPanel& panel, std::string_view key, std::string_view text) {
  const Control* box = panel.FindControl(key);
  if (box == nullptr || box->parts.empty()) return false;
  const std::vector<std::string>& items = box->parts[0].items;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (items[i] == text) return panel.ChooseItem(key, static_cast<int>(i));
  }
  return false;
}

// Every panel open, the chip set up as a user would before Generate: the clock from a
// 20 MHz crystal, and each UART channel in use at 9600 bit/s from f8, which the
// defaults (1200 bit/s from f1) are not in range for.
std::unique_ptr<PageFlow> FlowWithEveryPanelOpen() {
  auto flow = std::make_unique<PageFlow>(*Run().application);
  flow->Start();
  bool set = flow->Selection().ShownClockPanel() != nullptr &&
             ChooseItemText(*flow->Selection().ShownClockPanel(), "Combobox_3", "20");
  OpenEveryPanel(*flow);
  for (PeripheralPanel* panel : flow->Peripherals().PanelList()) {
    if (panel == nullptr || panel->Kind() != PanelKind::kUART2) continue;
    set = set && ChooseItemText(*panel, "Combobox_1", "UART, internal clock") && panel->ChooseOption("Radiobox_2", 1) &&
          panel->EditFieldText("ComboEditbox_1", 1, "9600");
  }
  return set ? std::move(flow) : nullptr;
}

// The flow with every panel open, or none when the chip did not start up or could not
// be set up; the benchmark is then skipped with the reason.
std::unique_ptr<PageFlow> FlowForBenchmark(benchmark::State& state) {
  if (!Run().started) {
    state.SkipWithError("the full chip did not start up cleanly");
    return nullptr;
  }
  auto flow = FlowWithEveryPanelOpen();
  if (flow == nullptr) state.SkipWithError("the full chip's clock or UART channels could not be set");
  return flow;
}

// The stored lines of every configuration that has a panel.
std::vector<std::string_view> PanelLines(const PageFlow& flow) {
  std::vector<std::string_view> lines;
  const DatabaseEntry& group = Run().application->database().Entry(Run().application->SelectedFile);
  PeripheralPage& page = const_cast<PageFlow&>(flow).Peripherals();
  for (int row = 0; row < static_cast<int>(page.ListItems().size()); ++row) {
    const int k = page.ConfigurationOfRow(row);
    if (page.PanelOfConfiguration(k) == nullptr) continue;
    for (std::string_view line : group.SectionLines[static_cast<std::size_t>(k)]) lines.push_back(line);
  }
  return lines;
}

void BM_LoadEveryPanel(benchmark::State& state) {
  if (!Run().started) {
    state.SkipWithError("the full chip did not start up cleanly");
    return;
  }
  double measured = 0;
  int panels = 0;
  std::vector<std::string_view> lines;
  for (auto _ : state) {
    auto flow = std::make_unique<PageFlow>(*Run().application);
    flow->Start();
    BenchClock::time_point start = BenchClock::now();
    OpenEveryPanel(*flow);
    double seconds = SecondsSince(start);
    state.SetIterationTime(seconds);
    measured += seconds;
    panels = OpenPanels(*flow);
    if (lines.empty()) lines = PanelLines(*flow);
  }
  if (!Run().host.messages.empty()) state.SkipWithError("opening the panels showed a message");
  // The floor: every stored line of the panels' sections copied once into a text of its
  // own, the least a panel does to keep its cells.
  auto copyLines = [&lines] {
    std::size_t bytes = 0;
    for (std::string_view line : lines) {
      std::string owned(line);
      benchmark::DoNotOptimize(owned.data());
      bytes += owned.size();
    }
    return bytes;
  };
  state.counters["panels"] = panels;
  ReportAgainstFloor(state, measured, MeanSeconds(copyLines), 0);
}
BENCHMARK(BM_LoadEveryPanel)->Unit(benchmark::kMillisecond)->UseManualTime();

// The generated files of one run, as they stand on disk.
struct GeneratedFiles {
  std::vector<std::string> paths;
  std::vector<std::string> contents;
};

GeneratedFiles ReadGenerated(const std::string& folder) {
  GeneratedFiles files;
  for (const auto& file : std::filesystem::directory_iterator(folder)) {
    files.paths.push_back(file.path().string());
    files.contents.emplace_back();
    ReadWholeFile(files.paths.back(), files.contents.back());
  }
  return files;
}

// Writes each file whole with plain system calls: the floor of writing them.
std::size_t WriteFilesOnce(const GeneratedFiles& files) {
  std::size_t total = 0;
  for (std::size_t i = 0; i < files.paths.size(); ++i) {
    int fd = ::open(files.paths[i].c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (fd < 0) std::abort();
    total += static_cast<std::size_t>(::write(fd, files.contents[i].data(), files.contents[i].size()));
    ::close(fd);
  }
  return total;
}

void BM_GenerateCommand(benchmark::State& state) {
  auto flow = FlowForBenchmark(state);
  if (flow == nullptr) return;
  const std::string folder = FullChip().folder + "/Generated";
  std::filesystem::create_directories(folder);
  ScriptedHost& host = Run().host;
  double measured = 0;
  for (auto _ : state) {
    host.saveAnswers = {folder + "/Config.c"};
    BenchClock::time_point start = BenchClock::now();
    GenerateOutcome outcome = GenerateCommand(*Run().application, *flow);
    double seconds = SecondsSince(start);
    state.SetIterationTime(seconds);
    measured += seconds;
    if (outcome != GenerateOutcome::kWritten) {
      state.SkipWithError("the full chip did not generate");
      return;
    }
  }
  if (!host.messages.empty()) state.SkipWithError("generating showed a message");
  const GeneratedFiles files = ReadGenerated(folder);
  std::size_t bytes = 0;
  for (const std::string& content : files.contents) bytes += content.size();
  state.counters["bytes"] = static_cast<double>(bytes);
  ReportAgainstFloorAndTime(state, measured, MeanSeconds([&files] { return WriteFilesOnce(files); }),
                            kGenerateTargetSeconds);
}
BENCHMARK(BM_GenerateCommand)->Unit(benchmark::kMillisecond)->UseManualTime();

void BM_SaveProject(benchmark::State& state) {
  auto flow = FlowForBenchmark(state);
  if (flow == nullptr) return;
  const std::string path = FullChip().folder + "/every-panel.tsr";
  double measured = 0;
  for (auto _ : state) {
    BenchClock::time_point start = BenchClock::now();
    bool saved = flow->Save(path);
    double seconds = SecondsSince(start);
    state.SetIterationTime(seconds);
    measured += seconds;
    if (!saved) {
      state.SkipWithError("the project was not saved");
      return;
    }
  }
  GeneratedFiles file;
  file.paths = {path};
  file.contents.emplace_back();
  ReadWholeFile(path, file.contents.back());
  state.counters["bytes"] = static_cast<double>(file.contents.back().size());
  ReportAgainstFloor(state, measured, MeanSeconds([&file] { return WriteFilesOnce(file); }), 0);
}
BENCHMARK(BM_SaveProject)->Unit(benchmark::kMillisecond)->UseManualTime();

// Load on the first page and Next: the chip is chosen, then every panel the project
// had open is loaded and given its saved state.
void BM_LoadProject(benchmark::State& state) {
  if (!Run().started) {
    state.SkipWithError("the full chip did not start up cleanly");
    return;
  }
  const std::string path = FullChip().folder + "/every-panel.tsr";
  auto saved = FlowWithEveryPanelOpen();
  if (saved == nullptr || !saved->Save(path)) {
    state.SkipWithError("the project was not saved");
    return;
  }
  double measured = 0;
  for (auto _ : state) {
    auto flow = std::make_unique<PageFlow>(*Run().application);
    flow->Start();
    BenchClock::time_point start = BenchClock::now();
    PageFlow::LoadResult result = flow->LoadFile(path);
    flow->Next();
    double seconds = SecondsSince(start);
    state.SetIterationTime(seconds);
    measured += seconds;
    if (result != PageFlow::LoadResult::kLoaded || OpenPanels(*flow) != OpenPanels(*saved)) {
      state.SkipWithError("the project did not load every panel");
      return;
    }
  }
  if (!Run().host.messages.empty()) state.SkipWithError("loading showed a message");
  state.counters["panels"] = OpenPanels(*saved);
  ReportAgainstFloorAndTime(state, measured, FloorSeconds({path}), kProjectLoadTargetSeconds);
}
BENCHMARK(BM_LoadProject)->Unit(benchmark::kMillisecond)->UseManualTime();

}  // namespace
}  // namespace tessara
