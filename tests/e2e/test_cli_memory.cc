// The peak memory of tessara-cli while every panel of the largest bundled chip is open.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>
#include <string>

#include "temp_folder.h"

#if defined(__SANITIZE_ADDRESS__)
#define TESSARA_MEMORY_INSTRUMENTED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TESSARA_MEMORY_INSTRUMENTED 1
#endif
#endif

namespace tessara {
namespace {

constexpr long kPeakLimitKilobytes = 64 * 1024;

std::string Slurp(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// The bundled chip with the most configurations, and a script that opens every row of
// its peripheral list.
struct LargestChip {
  std::string series;
  std::string group;
  int listRows = 0;
};

LargestChip FindLargestChip() {
  const std::string data = std::string(TESSARA_SOURCE_DIR) + "/data/";
  const std::string ini = Slurp(data + "Tessara.ini");
  const std::regex fileKey(R"(File\d+=(\S+))");
  LargestChip largest;
  int most = -1;
  for (auto it = std::sregex_iterator(ini.begin(), ini.end(), fileKey); it != std::sregex_iterator(); ++it) {
    const std::string text = Slurp(data + "IO Files/" + (*it)[1].str());
    std::smatch series, group;
    std::regex_search(text, series, std::regex(R"(\nSeries=([^\r\n]*))"));
    std::regex_search(text, group, std::regex(R"(\nGroup=([^\r\n]*))"));
    const std::regex configurationKey(R"(\nConfiguration_\d+=([^\r\n]*))");
    int configurations = 0;
    int rows = 0;
    for (auto c = std::sregex_iterator(text.begin(), text.end(), configurationKey); c != std::sregex_iterator(); ++c) {
      ++configurations;
      // The clock is set on the first page and has no row in the list.
      if ((*c)[1].str() != "Clock") ++rows;
    }
    if (configurations > most) {
      most = configurations;
      largest = {series[1].str(), group[1].str(), rows};
    }
  }
  return largest;
}

struct PeakRun {
  int status = -1;
  long peakKilobytes = 0;
};

// Runs tessara-cli with the script on its standard input and measures the largest
// resident set it had.
PeakRun RunMeasured(const std::string& scriptPath) {
  PeakRun run;
  pid_t child = fork();
  if (child == 0) {
    int input = open(scriptPath.c_str(), O_RDONLY);
    int nowhere = open("/dev/null", O_WRONLY);
    if (input < 0 || nowhere < 0) _exit(127);
    dup2(input, 0);
    dup2(nowhere, 1);
    dup2(nowhere, 2);
    execl(TESSARA_CLI, TESSARA_CLI, "run", "-", static_cast<char*>(nullptr));
    _exit(127);
  }
  int raw = 0;
  rusage usage{};
  if (child > 0 && wait4(child, &raw, 0, &usage) == child) {
    run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    run.peakKilobytes = usage.ru_maxrss;
  }
  return run;
}

TEST(CliMemoryTest, EveryPanelOfTheLargestSampleChipOpenStaysUnder64MB) {
#if defined(TESSARA_MEMORY_INSTRUMENTED)
  GTEST_SKIP() << "AddressSanitizer's shadow memory is not the program's own";
#endif
  const LargestChip chip = FindLargestChip();
  ASSERT_GT(chip.listRows, 0);
  std::string script = "series \"" + chip.series + "\"\ngroup \"" + chip.group + "\"\nnext\n";
  for (int row = 0; row < chip.listRows; ++row) script += "select " + std::to_string(row) + "\n";
  script += "quit\n";
  TempFolder folder;
  const PeakRun run = RunMeasured(folder.Write("every-panel.txt", script));
  ASSERT_EQ(run.status, 0) << script;
  EXPECT_GT(run.peakKilobytes, 0);
  EXPECT_LT(run.peakKilobytes, kPeakLimitKilobytes);
}

}  // namespace
}  // namespace tessara
