#include "bench_support.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace tessara {

namespace {

std::string NewTemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "tessara-bench-XXXXXX").string();
  return mkdtemp(pattern.data());
}

template <typename Home>
struct HomeOwner {
  explicit HomeOwner(Home written) : home(std::move(written)) {}
  ~HomeOwner() {
    std::error_code ignored;
    std::filesystem::remove_all(home.folder, ignored);
  }
  Home home;
};

}  // namespace

const SyntheticHome& BenchHome() {
  static HomeOwner<SyntheticHome> owner(WriteSyntheticHome(NewTemporaryFolder()));
  return owner.home;
}

const FullChipHome& FullChip() {
  static HomeOwner<FullChipHome> owner(WriteFullChipHome(NewTemporaryFolder(), TESSARA_SOURCE_DIR "/data"));
  return owner.home;
}

std::size_t ReadFilesOnce(const std::vector<std::string>& paths) {
  // A buffer that starts on a page, into which the system copies fastest.
  constexpr std::size_t kBufferSize = 1 << 20;
  static char* const buffer = static_cast<char*>(std::aligned_alloc(4096, kBufferSize));
  std::size_t total = 0;
  for (const std::string& path : paths) {
    int fd = ::open(path.c_str(), O_RDONLY);
    if (fd < 0) std::abort();
    ssize_t got;
    while ((got = ::read(fd, buffer, kBufferSize)) > 0) total += static_cast<std::size_t>(got);
    ::close(fd);
  }
  benchmark::DoNotOptimize(buffer);
  return total;
}

double ClockReadingSeconds() {
  static const double reading = [] {
    constexpr int kReadings = 20000;
    double total = 0;
    for (int i = 0; i < kReadings; ++i) {
      BenchClock::time_point start = BenchClock::now();
      total += BenchClock::now() - start;
    }
    return total / kReadings;
  }();
  return reading;
}

double FloorSeconds(const std::vector<std::string>& paths) {
  return MeanSeconds([&paths] { return ReadFilesOnce(paths); });
}

double MeanSeconds(const std::function<std::size_t()>& work) {
  for (int warmUp = 0; warmUp < 3; ++warmUp) benchmark::DoNotOptimize(work());
  constexpr int kRuns = 100;
  BenchClock::time_point start = BenchClock::now();
  for (int run = 0; run < kRuns; ++run) benchmark::DoNotOptimize(work());
  return SecondsSince(start) / kRuns;
}

void ReportAgainstFloor(benchmark::State& state, double measuredSeconds, double floorSeconds,
                        double targetMultiple) {
  double mean = measuredSeconds / static_cast<double>(state.iterations());
  state.counters["floor_ms"] = floorSeconds * 1e3;
  state.counters["x_floor"] = mean / floorSeconds;
  if (targetMultiple > 0) state.counters["target_x"] = targetMultiple;
}

void ReportAgainstFloorAndTime(benchmark::State& state, double measuredSeconds, double floorSeconds,
                               double targetSeconds) {
  ReportAgainstFloor(state, measuredSeconds, floorSeconds, 0);
  state.counters["target_ms"] = targetSeconds * 1e3;
}

}  // namespace tessara
