#include "script_runner.h"

#include <cstdio>
#include <filesystem>
#include <string_view>

#include "cli_host.h"
#include "control_printer.h"
#include "core/application.h"
#include "core/text.h"
#include "pages/error_report.h"
#include "panels/framework/extra_settings_panel.h"
#include "script.h"

namespace tessara {

namespace {

constexpr int kStatusInvalid = 3;
constexpr int kStatusFileError = 4;

ScriptRunner::Outcome Failure(std::string reason) {
  ScriptRunner::Outcome outcome;
  outcome.failure = std::move(reason);
  return outcome;
}

ScriptRunner::Outcome EndWith(int status) {
  ScriptRunner::Outcome outcome;
  outcome.status = status;
  return outcome;
}

void Print(const std::string& text) { std::fwrite(text.data(), 1, text.size(), stdout); }

std::string KindWord(ControlKind kind) { return std::string(ControlWord(kind)); }

}  // namespace

ScriptRunner::ScriptRunner(Application& application, CliHost& host)
    : application_(application), host_(host), flow_(application) {
  flow_.Start();
}

const std::vector<ScriptRunner::Command>& ScriptRunner::Commands() {
  static const std::vector<Command> commands = {
      {"quit", 0, 0, &ScriptRunner::Quit},
      {"series", 1, 1, &ScriptRunner::ChooseSeries},
      {"group", 1, 1, &ScriptRunner::ChooseGroup},
      {"part", 1, 1, &ScriptRunner::ChoosePart},
      {"load", 1, 1, &ScriptRunner::Load},
      {"next", 0, 0, &ScriptRunner::Next},
      {"back", 0, 2, &ScriptRunner::Back},
      {"select", 1, 1, &ScriptRunner::Select},
      {"option", 2, 2, &ScriptRunner::Option},
      {"choose", 2, 2, &ScriptRunner::Choose},
      {"type", 2, 2, &ScriptRunner::Type},
      {"pick", 2, 2, &ScriptRunner::Pick},
      {"check", 2, 2, &ScriptRunner::Check},
      {"extra", 1, 3, &ScriptRunner::Extra},
      {"rows", 0, 0, &ScriptRunner::PrintRows},
      {"controls", 0, 0, &ScriptRunner::PrintControls},
      {"summary", 0, 0, &ScriptRunner::PrintSummary},
      {"errors", 0, 0, &ScriptRunner::PrintErrors},
      {"save", 1, 1, &ScriptRunner::Save},
      {"generate", 1, 2, &ScriptRunner::Generate},
      {"insert", 0, 2, &ScriptRunner::Insert},
  };
  return commands;
}

ScriptRunner::Outcome ScriptRunner::Execute(const std::vector<std::string>& words) {
  for (const Command& command : Commands()) {
    if (!EqualsNoCase(command.name, words.front())) continue;
    int given = static_cast<int>(words.size()) - 1;
    if (given < command.fewest || given > command.most) {
      std::string expected = std::to_string(command.fewest);
      if (command.most != command.fewest) expected += " to " + std::to_string(command.most);
      return Failure(std::string(command.name) + " takes " + expected +
                     (command.most == 1 ? " argument" : " arguments") + ", not " + std::to_string(given));
    }
    return (this->*command.run)(words);
  }
  return Failure("unknown command \"" + words.front() + "\"");
}

ScriptRunner::Outcome ScriptRunner::NeedPeripheralPage(const char* command) const {
  return Failure(std::string(command) + " acts on the peripheral page, which is not open");
}

ScriptRunner::Outcome ScriptRunner::Quit(const Words&) {
  Outcome outcome;
  outcome.quit = true;
  return outcome;
}

ScriptRunner::Outcome ScriptRunner::ChooseInBox(const Words& words, const ControlModel& box,
                                               const char* boxName, bool (SelectionPage::*choose)(int)) {
  if (flow_.OnPeripheralPage()) return Failure(words[0] + " acts on the selection page, which is not open");
  std::string reason;
  int position = ResolveItemArgument(words[1], box.items, boxName, reason);
  if (position < 0) return Failure(reason);
  (flow_.Selection().*choose)(position);
  return Outcome();
}

ScriptRunner::Outcome ScriptRunner::ChooseSeries(const Words& words) {
  return ChooseInBox(words, flow_.Selection().SeriesBox(), "the series box", &SelectionPage::ChooseSeries);
}

ScriptRunner::Outcome ScriptRunner::ChooseGroup(const Words& words) {
  return ChooseInBox(words, flow_.Selection().GroupBox(), "the group box", &SelectionPage::ChooseGroup);
}

ScriptRunner::Outcome ScriptRunner::ChoosePart(const Words& words) {
  return ChooseInBox(words, flow_.Selection().PartBox(), "the part box", &SelectionPage::ChoosePart);
}

ScriptRunner::Outcome ScriptRunner::Load(const Words& words) {
  if (flow_.OnPeripheralPage()) return Failure("load acts on the selection page, which is not open");
  if (flow_.LoadFile(words[1]) == PageFlow::LoadResult::kUnreadable) return EndWith(kStatusFileError);
  return Outcome();
}

ScriptRunner::Outcome ScriptRunner::Next(const Words&) {
  if (flow_.OnPeripheralPage()) return Failure("next acts on the selection page, which is not open");
  flow_.Next();
  return Outcome();
}

ScriptRunner::Outcome ScriptRunner::Back(const Words& words) {
  if (!flow_.OnPeripheralPage()) return NeedPeripheralPage("back");
  Host::ResetWarningAnswer answer{true, false};
  for (std::size_t i = 1; i < words.size(); ++i) {
    if (EqualsNoCase(words[i], "ok")) {
      answer.ok = true;
    } else if (EqualsNoCase(words[i], "cancel")) {
      answer.ok = false;
    } else if (EqualsNoCase(words[i], "remember")) {
      answer.doNotShowAgain = true;
    } else {
      return Failure("back takes ok, cancel or remember, not \"" + words[i] + "\"");
    }
  }
  host_.SetResetWarningAnswer(answer);
  flow_.Back();
  return Outcome();
}

ScriptRunner::Outcome ScriptRunner::Select(const Words& words) {
  if (!flow_.OnPeripheralPage()) return NeedPeripheralPage("select");
  std::string reason;
  int row = ResolveItemArgument(words[1], flow_.Peripherals().ListItems(), "the peripheral list", reason);
  if (row < 0) return Failure(reason);
  flow_.Peripherals().Select(row);
  return Outcome();
}

PeripheralPanel* ScriptRunner::OpenPanel(Outcome& outcome) {
  PeripheralPanel* panel = flow_.OnPeripheralPage() ? flow_.Peripherals().ShownPanel()
                                                    : flow_.Selection().ShownClockPanel();
  if (panel == nullptr) outcome.failure = "the page shows no panel";
  return panel;
}

const Control* ScriptRunner::FindPart(PeripheralPanel& panel, const std::string& argument, ControlKind kind,
                                      int& part, Outcome& outcome) {
  std::string key = argument;
  part = 0;
  std::size_t colon = argument.find(':');
  if (colon != std::string::npos) {
    key = argument.substr(0, colon);
    part = ParseScriptNumber(argument.substr(colon + 1)) - 1;
  }
  const Control* control = panel.FindControl(key);
  if (control == nullptr || control->kind != kind) {
    outcome.failure = "the panel has no " + KindWord(kind) + " " + key;
    return nullptr;
  }
  if (part < 0 || part >= static_cast<int>(control->parts.size())) {
    outcome.failure = control->key + " has no part " + argument.substr(colon + 1);
    return nullptr;
  }
  const ControlModel& model = control->parts[static_cast<std::size_t>(part)];
  if (!model.enabled || !model.visible) {
    outcome.failure = argument + " is " + (model.enabled ? "hidden" : "disabled");
    return nullptr;
  }
  return control;
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
    return Failure("option " + words[2] + " of " + group->key + " is " + (part.enabled ? "hidden" : "disabled"));
  }
  panel->ChooseOption(group->key, option - 1);
  return outcome;
}

ScriptRunner::Outcome ScriptRunner::Choose(const Words& words) {
  Outcome outcome;
  PeripheralPanel* panel = OpenPanel(outcome);
  if (panel == nullptr) return outcome;
  int part = 0;
  const Control* box = FindPart(*panel, words[1], ControlKind::kCombobox, part, outcome);
  if (box == nullptr) return outcome;
  std::string reason;
  int position = ResolveItemArgument(words[2], box->parts[0].items, box->key, reason);
  if (position < 0) return Failure(reason);
  panel->ChooseItem(box->key, position);
  return outcome;
}

ScriptRunner::Outcome ScriptRunner::Type(const Words& words) {
  Outcome outcome;
  PeripheralPanel* panel = OpenPanel(outcome);
  if (panel == nullptr) return outcome;
  int field = 0;
  const Control* box = FindPart(*panel, words[1], ControlKind::kComboEditbox, field, outcome);
  if (box == nullptr) return outcome;
  panel->EditFieldText(box->key, field, words[2]);
  return outcome;
}

ScriptRunner::Outcome ScriptRunner::Pick(const Words& words) {
  Outcome outcome;
  PeripheralPanel* panel = OpenPanel(outcome);
  if (panel == nullptr) return outcome;
  int field = 0;
  const Control* box = FindPart(*panel, words[1], ControlKind::kComboEditbox, field, outcome);
  if (box == nullptr) return outcome;
  std::string reason;
  int position = ResolveItemArgument(words[2], box->parts[static_cast<std::size_t>(field)].items, words[1], reason);
  if (position < 0) return Failure(reason);
  panel->ChooseItem(box->key, position, field);
  return outcome;
}

ScriptRunner::Outcome ScriptRunner::Check(const Words& words) {
  Outcome outcome;
  PeripheralPanel* panel = OpenPanel(outcome);
  if (panel == nullptr) return outcome;
  bool on = EqualsNoCase(words[2], "on");
  if (!on && !EqualsNoCase(words[2], "off")) return Failure("check takes on or off, not \"" + words[2] + "\"");
  int box = 0;
  const Control* control = FindPart(*panel, words[1], ControlKind::kCheckbox, box, outcome);
  if (control == nullptr) return outcome;
  panel->ToggleCheckbox(control->key, box, on);
  return outcome;
}

// The side-settings popup: `extra combo K P` and `extra check K on|off` act on its
// combo box or check box K as a user would, `extra controls` prints it.
ScriptRunner::Outcome ScriptRunner::Extra(const Words& words) {
  if (!flow_.OnPeripheralPage()) return NeedPeripheralPage("extra");
  ExtraSettingsPanel* popup = flow_.Peripherals().Popup();
  if (popup == nullptr) return Failure("the page has no extra settings popup");
  const std::string& what = words[1];
  if (EqualsNoCase(what, "controls")) {
    if (words.size() != 2) return Failure("extra controls takes no further argument");
    Print(FormatExtraControls(*popup));
    return Outcome();
  }
  const bool combo = EqualsNoCase(what, "combo");
  if (!combo && !EqualsNoCase(what, "check")) {
    return Failure("extra takes combo, check or controls, not \"" + what + "\"");
  }
  if (words.size() != 4) return Failure("extra " + what + " takes 2 arguments, not " + std::to_string(words.size() - 2));
  const int count = combo ? ExtraSettingsPanel::kComboBoxes : ExtraSettingsPanel::kCheckBoxes;
  const std::string boxName = combo ? "combo box " : "check box ";
  int k = ParseScriptNumber(words[2]);
  if (k < 1 || k > count) return Failure("the extra settings popup has no " + boxName + words[2]);
  if (popup->PopupMode() != 1) return Failure("the extra settings popup is hidden");
  const ExtraControl& control = combo ? popup->Combo(k) : popup->Check(k);
  if (!control.visible) return Failure(boxName + words[2] + " of the extra settings popup is hidden");
  if (combo) {
    std::string reason;
    int position = ResolveItemArgument(words[3], control.items, boxName + words[2], reason);
    if (position < 0) return Failure(reason);
    popup->ChooseComboItem(k, position);
    return Outcome();
  }
  bool on = EqualsNoCase(words[3], "on");
  if (!on && !EqualsNoCase(words[3], "off")) return Failure("extra check takes on or off, not \"" + words[3] + "\"");
  popup->SetCheckBox(k, on);
  return Outcome();
}

ScriptRunner::Outcome ScriptRunner::PrintRows(const Words&) {
  Print(FormatRows(flow_.OnPeripheralPage() ? flow_.Peripherals().List() : flow_.Selection().List()));
  return Outcome();
}

ScriptRunner::Outcome ScriptRunner::PrintControls(const Words&) {
  Outcome outcome;
  PeripheralPanel* panel = OpenPanel(outcome);
  if (panel != nullptr) Print(FormatControls(*panel));
  return outcome;
}

ScriptRunner::Outcome ScriptRunner::PrintSummary(const Words&) {
  ClockSummary summary = flow_.OnPeripheralPage() ? flow_.Summary() : flow_.Selection().CurrentClockSummary();
  for (const std::string* line :
       {&summary.first, &summary.second, &summary.alternate, &summary.third, &summary.fourth}) {
    Print(*line + "\n");
  }
  return Outcome();
}

void ScriptRunner::PrintReport() {
  std::string out;
  for (const ErrorListRow& row : ErrorReportListRows(flow_.Report())) {
    if (row[0].empty() && row[1].empty() && row[2].empty()) {
      out += "\n";
    } else {
      out += row[0] + "\t" + row[1] + "\t" + row[2] + "\n";
    }
  }
  Print(out);
  if (flow_.Report().Count() > 0) reportPrinted_ = true;
}

ScriptRunner::Outcome ScriptRunner::PrintErrors(const Words&) {
  if (!flow_.OnPeripheralPage()) return NeedPeripheralPage("errors");
  flow_.CollectErrors();
  PrintReport();
  return Outcome();
}

ScriptRunner::Outcome ScriptRunner::Save(const Words& words) {
  if (!flow_.OnPeripheralPage()) return NeedPeripheralPage("save");
  if (!flow_.Save(words[1])) return EndWith(kStatusFileError);
  return Outcome();
}

ScriptRunner::Outcome ScriptRunner::Generate(const Words& words) {
  if (!flow_.OnPeripheralPage()) return NeedPeripheralPage("generate");
  std::string folder = words[1];
  std::string name = words.size() > 2 ? words[2] : "Config.c";
  // The gate comes first: a failed one writes nothing, not even the folder.
  if (!flow_.CollectErrors()) {
    PrintReport();
    return EndWith(kStatusInvalid);
  }
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  std::string path = JoinPath(folder, name);
  if (flow_.GenerateInFolder(path, name) != PageFlow::GenerateResult::kWritten) {
    return EndWith(kStatusFileError);
  }
  return Outcome();
}

ScriptRunner::Outcome ScriptRunner::Insert(const Words& words) {
  if (!flow_.OnPeripheralPage()) return NeedPeripheralPage("insert");
  CliHost::ProjectAnswers answers;
  for (std::size_t i = 1; i < words.size(); ++i) {
    if (EqualsNoCase(words[i], "invoke")) {
      answers.invokeIde = true;
    } else if (EqualsNoCase(words[i], "cancel")) {
      answers.acceptProject = false;
    } else {
      answers.projectPath = words[i];
    }
  }
  host_.SetProjectAnswers(answers);
  if (flow_.GenerateInProject() == PageFlow::GenerateResult::kInvalid) {
    PrintReport();
    return EndWith(kStatusInvalid);
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
    if (outcome.status != 0) return outcome.status;
    if (outcome.quit) break;
  }
  return FinalStatus();
}

}  // namespace tessara
