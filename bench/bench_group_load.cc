// The tables of one full-size group (64 configurations of up to 150 lines), against
// reading its data file once.
#include <array>
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

// What the catalogue's shape costs by itself: reading the file once and making every
// stored line its own heap string, as the section store keeps them, with nothing looked
// for. The gap between this and the floor is the price of owned lines.
void BM_LoadGroupTables_ReadAndOwnLines(benchmark::State& state) {
  SetModuleFolder(BenchHome().folder);
  RecordingHost host;
  auto database = std::make_unique<DeviceDatabase>();
  LoadCatalogue(host, *database, {"", "SYN01.ini"});
  LoadGroupTables(host, *database, kSlot, "SYN01.ini");
  SetModuleFolder("");
  const auto& loaded = database->Entry(kSlot).SectionLines;
  const std::vector<std::string> file = {BenchHome().dataFiles.front()};
  for (auto _ : state) {
    std::array<std::vector<std::string>, kMaxConfigurations + 1> lines;
    BenchClock::time_point start = BenchClock::now();
    ReadFilesOnce(file);
    for (std::size_t k = 1; k < loaded.size(); ++k) {
      lines[k].reserve(loaded[k].size());
      for (const std::string& line : loaded[k]) lines[k].emplace_back(line.data(), line.size());
    }
    state.SetIterationTime(SecondsSince(start));
    benchmark::DoNotOptimize(lines);
  }
}
BENCHMARK(BM_LoadGroupTables_ReadAndOwnLines)->Unit(benchmark::kMicrosecond)->UseManualTime();

}  // namespace
}  // namespace tessara
