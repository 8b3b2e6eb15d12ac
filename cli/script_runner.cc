#include "script_runner.h"

#include <cstdio>
#include <string_view>

#include "control_printer.h"
#include "core/application.h"
#include "core/text.h"
#include "script.h"

namespace tessara {

namespace {

ScriptRunner::Outcome Failure(std::string reason) {
  ScriptRunner::Outcome outcome;
  outcome.failure = std::move(reason);
  return outcome;
}

void Print(const std::string& text) { std::fwrite(text.data(), 1, text.size(), stdout); }

}  // namespace

ScriptRunner::ScriptRunner(Application& application)
    : application_(application), selection_(application) {
  selection_.Initialise();
}

const std::vector<ScriptRunner::Command>& ScriptRunner::Commands() {
  static const std::vector<Command> commands = {
      {"quit", 0, &ScriptRunner::Quit},
      {"series", 1, &ScriptRunner::ChooseSeries},
      {"group", 1, &ScriptRunner::ChooseGroup},
      {"part", 1, &ScriptRunner::ChoosePart},
      {"option", 2, &ScriptRunner::Option},
      {"choose", 2, &ScriptRunner::Choose},
      {"rows", 0, &ScriptRunner::PrintRows},
      {"controls", 0, &ScriptRunner::PrintControls},
      {"summary", 0, &ScriptRunner::PrintSummary},
  };
  return commands;
}

ScriptRunner::Outcome ScriptRunner::Execute(const std::vector<std::string>& words) {
  for (const Command& command : Commands()) {
    if (!EqualsNoCase(command.name, words.front())) continue;
    int given = static_cast<int>(words.size()) - 1;
    if (given != command.arguments) {
      return Failure(std::string(command.name) + " takes " + std::to_string(command.arguments) +
                     (command.arguments == 1 ? " argument" : " arguments") + ", not " +
                     std::to_string(given));
    }
    return (this->*command.run)(words);
  }
  return Failure("unknown command \"" + words.front() + "\"");
}

ScriptRunner::Outcome ScriptRunner::Quit(const Words&) {
  Outcome outcome;
  outcome.quit = true;
  return outcome;
}

ScriptRunner::Outcome ScriptRunner::ChooseSeries(const Words& words) {
  std::string reason;
  int position = ResolveItemArgument(words[1], selection_.SeriesBox().items, "the series box", reason);
  if (position < 0) return Failure(reason);
  selection_.ChooseSeries(position);
  return Outcome();
}

ScriptRunner::Outcome ScriptRunner::ChooseGroup(const Words& words) {
  std::string reason;
  int position = ResolveItemArgument(words[1], selection_.GroupBox().items, "the group box", reason);
  if (position < 0) return Failure(reason);
  selection_.ChooseGroup(position);
  return Outcome();
}

ScriptRunner::Outcome ScriptRunner::ChoosePart(const Words& words) {
  std::string reason;
  int position = ResolveItemArgument(words[1], selection_.PartBox().items, "the part box", reason);
  if (position < 0) return Failure(reason);
  selection_.ChoosePart(position);
  return Outcome();
}

PeripheralPanel* ScriptRunner::OpenPanel(Outcome& outcome) {
  PeripheralPanel* panel = selection_.ShownClockPanel();
  if (panel == nullptr) outcome.failure = "the page shows no panel";
  return panel;
}

ScriptRunner::Outcome ScriptRunner::Option(const Words& words) {
  Outcome outcome;
  PeripheralPanel* panel = OpenPanel(outcome);
  if (panel == nullptr) return outcome;
  const Control* group = panel->FindControl(words[1]);
  if (group == nullptr || group->kind != ControlKind::kRadioGroup) {
    return Failure("the panel has no RadioGroup " + words[1]);
  }
  int option = ParseScriptNumber(words[2]);
  if (option < 1 || option > static_cast<int>(group->parts.size())) {
    return Failure(group->key + " has no option " + words[2]);
  }
  const ControlModel& part = group->parts[static_cast<std::size_t>(option - 1)];
  if (!part.enabled || !part.visible) {
    return Failure("option " + words[2] + " of " + group->key + " is " +
                   (part.enabled ? "hidden" : "disabled"));
  }
  panel->ChooseOption(group->key, option - 1);
  return outcome;
}

ScriptRunner::Outcome ScriptRunner::Choose(const Words& words) {
  Outcome outcome;
  PeripheralPanel* panel = OpenPanel(outcome);
  if (panel == nullptr) return outcome;
  const Control* box = panel->FindControl(words[1]);
  if (box == nullptr || box->kind != ControlKind::kCombobox) {
    return Failure("the panel has no Combobox " + words[1]);
  }
  const ControlModel& list = box->parts[0];
  if (!list.enabled || !list.visible) {
    return Failure(box->key + " is " + (list.enabled ? "hidden" : "disabled"));
  }
  std::string reason;
  int position = ResolveItemArgument(words[2], list.items, box->key, reason);
  if (position < 0) return Failure(reason);
  panel->ChooseItem(box->key, position);
  return outcome;
}

ScriptRunner::Outcome ScriptRunner::PrintRows(const Words&) {
  Print(FormatRows(selection_.List()));
  return Outcome();
}

ScriptRunner::Outcome ScriptRunner::PrintControls(const Words&) {
  Outcome outcome;
  PeripheralPanel* panel = OpenPanel(outcome);
  if (panel != nullptr) Print(FormatControls(*panel));
  return outcome;
}

ScriptRunner::Outcome ScriptRunner::PrintSummary(const Words&) {
  ClockSummary summary = selection_.CurrentClockSummary();
  for (const std::string* line :
       {&summary.first, &summary.second, &summary.alternate, &summary.third, &summary.fourth}) {
    Print(*line + "\n");
  }
  return Outcome();
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
