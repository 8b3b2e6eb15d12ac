#ifndef TESSARA_BENCH_BENCH_SUPPORT_H_
#define TESSARA_BENCH_BENCH_SUPPORT_H_

#include <benchmark/benchmark.h>

#include <time.h>

#include <functional>
#include <string>
#include <vector>

#include "full_chip.h"
#include "synthetic_data.h"

namespace tessara {

// Times are CPU time of the measuring thread: on a shared machine the wall clock also
// counts whatever else runs, and reading cached files costs CPU time like the rest.
struct BenchClock {
  using time_point = double;
  static double now() {
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
  }
};

// What a reading of the clock adds to a time taken around some work: reading a
// thread's CPU time is a system call here, about a microsecond, which a time taken
// around a short piece of work would count as that work's. Measured once.
double ClockReadingSeconds();

// The time since `start`, without what reading the clock added to it.
inline double SecondsSince(BenchClock::time_point start) {
  const double seconds = BenchClock::now() - start - ClockReadingSeconds();
  return seconds > 0 ? seconds : 0;
}

// The full-size synthetic program folder, written once per process into a temporary
// folder that is removed at exit.
const SyntheticHome& BenchHome();

// A program folder with one chip that has every panel there is (full_chip.h), written
// once per process into a temporary folder that is removed at exit.
const FullChipHome& FullChip();

// The physical floor of reading files: each opened, read whole into memory once and
// closed, with plain system calls. Returns the bytes read.
std::size_t ReadFilesOnce(const std::vector<std::string>& paths);

// The mean time of ReadFilesOnce over enough runs to be steady.
double FloorSeconds(const std::vector<std::string>& paths);
// The mean time of any floor's work over enough runs to be steady; the work returns the
// bytes it handled, so that it is not left out.
double MeanSeconds(const std::function<std::size_t()>& work);

// Reports the floor beside a benchmark's own time: "floor_ms", "x_floor" (the mean time
// of the measured work divided by the floor) and "target_x", the multiple it must stay in
// (left out when there is none).
void ReportAgainstFloor(benchmark::State& state, double measuredSeconds, double floorSeconds,
                        double targetMultiple);
// The same with a target in time, "target_ms", instead of a multiple.
void ReportAgainstFloorAndTime(benchmark::State& state, double measuredSeconds, double floorSeconds,
                               double targetSeconds);

}  // namespace tessara

#endif  // TESSARA_BENCH_BENCH_SUPPORT_H_
