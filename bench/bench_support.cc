#include "bench_support.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace tessara {

namespace {

struct HomeOwner {
  HomeOwner() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tessara-bench-XXXXXX").string();
    std::string folder = mkdtemp(pattern.data());
    home = WriteSyntheticHome(folder);
  }
  ~HomeOwner() {
    std::error_code ignored;
    std::filesystem::remove_all(home.folder, ignored);
  }
  SyntheticHome home;
};

}  // namespace

const SyntheticHome& BenchHome() {
  static HomeOwner owner;
  return owner.home;
}

std::size_t ReadFilesOnce(const std::vector<std::string>& paths) {
  static std::vector<char> buffer(1 << 20);
  std::size_t total = 0;
  for (const std::string& path : paths) {
    int fd = ::open(path.c_str(), O_RDONLY);
    if (fd < 0) std::abort();
    ssize_t got;
    while ((got = ::read(fd, buffer.data(), buffer.size())) > 0) total += static_cast<std::size_t>(got);
    ::close(fd);
  }
  benchmark::DoNotOptimize(buffer.data());
  return total;
}

double FloorSeconds(const std::vector<std::string>& paths) {
  for (int warmUp = 0; warmUp < 3; ++warmUp) ReadFilesOnce(paths);
  constexpr int kRuns = 100;
  BenchClock::time_point start = BenchClock::now();
  for (int run = 0; run < kRuns; ++run) ReadFilesOnce(paths);
  return SecondsSince(start) / kRuns;
}

void ReportAgainstFloor(benchmark::State& state, double measuredSeconds, double floorSeconds,
                        double targetMultiple) {
  double mean = measuredSeconds / static_cast<double>(state.iterations());
  state.counters["floor_ms"] = floorSeconds * 1e3;
  state.counters["x_floor"] = mean / floorSeconds;
  state.counters["target_x"] = targetMultiple;
}

}  // namespace tessara
