// Start-up on a full catalogue: verification of 64 listed data files, their catalogue and
// the first group's tables, against reading the ini and the 64 files once.
#include <memory>

#include "bench_support.h"
#include "core/application.h"
#include "core/text.h"
#include "recording_host.h"

namespace tessara {
namespace {

// A start-up may take this many times as long as reading its files once.
constexpr double kStartUpTarget = 3.0;

std::vector<std::string> StartUpFiles() {
  std::vector<std::string> files = BenchHome().dataFiles;
  files.push_back(BenchHome().iniPath);
  return files;
}

void BM_StartUp(benchmark::State& state) {
  SetModuleFolder(BenchHome().folder);
  double measured = 0;
  for (auto _ : state) {
    RecordingHost host;
    BenchClock::time_point start = BenchClock::now();
    auto application = std::make_unique<Application>(host);
    Application::StartResult result = application->StartUp();
    double seconds = SecondsSince(start);
    state.SetIterationTime(seconds);
    measured += seconds;
    if (result != Application::StartResult::kRunning || !host.messages.empty() ||
        application->database().Entry(1).SectionLines[kMaxConfigurations].empty()) {
      state.SkipWithError("the synthetic data set did not start up cleanly");
      break;
    }
  }
  SetModuleFolder("");
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * BenchHome().totalBytes));
  ReportAgainstFloor(state, measured, FloorSeconds(StartUpFiles()), kStartUpTarget);
}
BENCHMARK(BM_StartUp)->Unit(benchmark::kMillisecond)->UseManualTime();

void BM_StartUp_Floor(benchmark::State& state) {
  const std::vector<std::string> files = StartUpFiles();
  for (auto _ : state) {
    BenchClock::time_point start = BenchClock::now();
    benchmark::DoNotOptimize(ReadFilesOnce(files));
    state.SetIterationTime(SecondsSince(start));
  }
}
BENCHMARK(BM_StartUp_Floor)->Unit(benchmark::kMillisecond)->UseManualTime();

}  // namespace
}  // namespace tessara
