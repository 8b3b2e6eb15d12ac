#include "script_runner.h"

#include <cstdio>
#include <functional>
#include <string_view>

#include "core/application.h"
#include "core/text.h"
#include "script.h"

namespace tessara {

namespace {

struct ScriptCommand {
  std::string_view name;
  std::function<ScriptRunner::Outcome(Application&, const std::vector<std::string>&)> run;
};

ScriptRunner::Outcome Quit(Application&, const std::vector<std::string>&) {
  ScriptRunner::Outcome outcome;
  outcome.quit = true;
  return outcome;
}

const std::vector<ScriptCommand>& Commands() {
  static const std::vector<ScriptCommand> commands = {
      {"quit", Quit},
  };
  return commands;
}

}  // namespace

ScriptRunner::ScriptRunner(Application& application) : application_(application) {}

ScriptRunner::Outcome ScriptRunner::Execute(const std::vector<std::string>& words) {
  for (const ScriptCommand& command : Commands()) {
    if (EqualsNoCase(command.name, words.front())) return command.run(application_, words);
  }
  Outcome outcome;
  outcome.failure = "unknown command \"" + words.front() + "\"";
  return outcome;
}

int ScriptRunner::Run(std::istream& script) {
  std::string line;
  int number = 0;
  while (std::getline(script, line)) {
    ++number;
    if (IsIgnoredScriptLine(line)) continue;
    std::vector<std::string> words;
    std::string reason;
    Outcome outcome;
    if (!SplitScriptLine(line, words, reason)) {
      outcome.failure = reason;
    } else {
      outcome = Execute(words);
    }
    if (!outcome.failure.empty()) {
      std::fflush(stdout);
      std::fprintf(stderr, "line %d: %s\n", number, outcome.failure.c_str());
      return 2;
    }
    if (outcome.quit) break;
  }
  return 0;
}

}  // namespace tessara
