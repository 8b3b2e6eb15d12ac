// Runs an arbitrary script in-process, as `tessara-cli run` does after start-up.
#include <sstream>

#include "core/application.h"
#include "core/text.h"
#include "fuzz_support.h"
#include "cli_host.h"
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

  // The run itself starts on the bundled sample data, as `tessara-cli run` does. Lines
  // that would write or read files named by the script are left out: a fuzzer must not
  // write over the machine.
  std::string runnable;
  std::istringstream all(script);
  for (std::string line; std::getline(all, line);) {
    std::vector<std::string> words;
    std::string reason;
    if (SplitScriptLine(line, words, reason) && !words.empty() &&
        (EqualsNoCase(words[0], "save") || EqualsNoCase(words[0], "generate") ||
         EqualsNoCase(words[0], "load") || EqualsNoCase(words[0], "insert"))) {
      continue;
    }
    runnable += line + "\n";
  }
  SetModuleFolder(TESSARA_SOURCE_DIR "/data");
  // The CLI's own host: its messages go to standard error, which the fuzzer closes, and
  // an exit (only a missing or altered data file ends the program) is a finding.
  CliHost host;
  Application application(host);
  FUZZ_CHECK(application.StartUp() == Application::StartResult::kRunning);
  ScriptRunner runner(application, host);
  std::istringstream input(runnable);
  int status = runner.Run(input);
  FUZZ_CHECK(status == 0 || status == 2 || status == 3);
  return 0;
}
