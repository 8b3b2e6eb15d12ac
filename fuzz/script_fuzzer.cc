// Runs an arbitrary script in-process, as `tessara-cli run` does after start-up.
#include <sstream>

#include "core/application.h"
#include "fuzz_support.h"
#include "recording_host.h"
#include "script.h"
#include "script_runner.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessara;
  std::string script(reinterpret_cast<const char*>(data), size);

  // Every line splits into words without quotes; a line without quotes splits at blanks.
  std::istringstream lines(script);
  for (std::string line; std::getline(lines, line);) {
    std::vector<std::string> words;
    std::string reason;
    bool split = SplitScriptLine(line, words, reason);
    FUZZ_CHECK(split == reason.empty());
    if (!split) continue;
    // A line without words must never reach a command.
    if (words.empty()) FUZZ_CHECK(IsIgnoredScriptLine(line));
    for (const std::string& word : words) FUZZ_CHECK(word.find('"') == std::string::npos);
    if (line.find('"') == std::string::npos) {
      for (const std::string& word : words) FUZZ_CHECK(word.find_first_of(" \t\r") == std::string::npos);
    }
  }

  RecordingHost host;
  Application application(host);
  ScriptRunner runner(application);
  std::istringstream input(script);
  int status = runner.Run(input);
  FUZZ_CHECK(status == 0 || status == 2);
  return 0;
}
