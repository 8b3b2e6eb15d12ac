// The tables of one full-size group (64 configurations of up to 150 lines), against
// reading its data file once.
#include <memory>

#include "bench_support.h"
#include "core/text.h"
#include "database/device_database.h"
#include "recording_host.h"

namespace tessara {
namespace {

// A group load may take this many times as long as reading its file once.
constexpr double kGroupLoadTarget = 3.0;

constexpr int kSlot = 1;

void BM_LoadGroupTables(benchmark::State& state) {
  SetModuleFolder(BenchHome().folder);
  const std::string fileName = "SYN01.ini";
  RecordingHost host;
  auto database = std::make_unique<DeviceDatabase>();
  LoadCatalogue(host, *database, {"", fileName});
  const DatabaseEntry catalogued = database->Entry(kSlot);
  double measured = 0;
  for (auto _ : state) {
    // Each round starts from the catalogued entry, as a group's first choice does.
    database->Entry(kSlot) = catalogued;
    BenchClock::time_point start = BenchClock::now();
    LoadGroupTables(host, *database, kSlot, fileName);
    double seconds = SecondsSince(start);
    state.SetIterationTime(seconds);
    measured += seconds;
  }
  if (!host.messages.empty() || database->Entry(kSlot).SectionLines[kMaxConfigurations].empty()) {
    state.SkipWithError("the synthetic group did not load cleanly");
  }
  SetModuleFolder("");
  ReportAgainstFloor(state, measured, FloorSeconds({BenchHome().dataFiles.front()}), kGroupLoadTarget);
}
BENCHMARK(BM_LoadGroupTables)->Unit(benchmark::kMicrosecond)->UseManualTime();

void BM_LoadGroupTables_Floor(benchmark::State& state) {
  const std::vector<std::string> file = {BenchHome().dataFiles.front()};
  for (auto _ : state) {
    BenchClock::time_point start = BenchClock::now();
    benchmark::DoNotOptimize(ReadFilesOnce(file));
    state.SetIterationTime(SecondsSince(start));
  }
}
BENCHMARK(BM_LoadGroupTables_Floor)->Unit(benchmark::kMicrosecond)->UseManualTime();

}  // namespace
}  // namespace tessara
