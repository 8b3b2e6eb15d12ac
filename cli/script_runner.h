#ifndef TESSARA_CLI_SCRIPT_RUNNER_H_
#define TESSARA_CLI_SCRIPT_RUNNER_H_

#include <istream>
#include <string>
#include <vector>

#include "pages/page_flow.h"

namespace tessara {

class Application;
class CliHost;

// Runs script commands against the application, as a user's actions on the open page.
// The runner holds the pages for the run: the first page is opened when the runner is
// made, after start-up, as the program opens it.
class ScriptRunner {
 public:
  ScriptRunner(Application& application, CliHost& host);

  // Runs every line of the script; returns the process's exit status.
  int Run(std::istream& script);

  // The result of one command: a non-empty failure ends the run with status 2; a
  // status other than 0 ends it with that status.
  struct Outcome {
    bool quit = false;
    std::string failure;
    int status = 0;
  };
  Outcome Execute(const std::vector<std::string>& words);
  // The status a run that reached its end returns: 3 when an error report was printed.
  int FinalStatus() const { return reportPrinted_ ? 3 : 0; }

  PageFlow& Flow() { return flow_; }

 private:
  using Words = std::vector<std::string>;
  struct Command {
    std::string_view name;
    int fewest;  // words behind the command
    int most;
    Outcome (ScriptRunner::*run)(const Words&);
  };
  static const std::vector<Command>& Commands();

  Outcome Quit(const Words& words);
  // Selects the position an argument names in one of the first page's boxes.
  Outcome ChooseInBox(const Words& words, const ControlModel& box, const char* boxName,
                      bool (SelectionPage::*choose)(int));
  Outcome ChooseSeries(const Words& words);
  Outcome ChooseGroup(const Words& words);
  Outcome ChoosePart(const Words& words);
  Outcome Load(const Words& words);
  Outcome Next(const Words& words);
  Outcome Back(const Words& words);
  Outcome Select(const Words& words);
  Outcome Option(const Words& words);
  Outcome Choose(const Words& words);
  Outcome Type(const Words& words);
  Outcome Pick(const Words& words);
  Outcome Check(const Words& words);
  Outcome Extra(const Words& words);
  Outcome PrintRows(const Words& words);
  Outcome PrintControls(const Words& words);
  Outcome PrintSummary(const Words& words);
  Outcome PrintErrors(const Words& words);
  Outcome Save(const Words& words);
  Outcome Generate(const Words& words);
  Outcome Insert(const Words& words);

  // The panel that the control commands reach, or a failure.
  PeripheralPanel* OpenPanel(Outcome& outcome);
  // The control KEY or KEY:n of a kind on the open panel, with the part it names.
  const Control* FindPart(PeripheralPanel& panel, const std::string& argument, ControlKind kind,
                          int& part, Outcome& outcome);
  Outcome NeedPeripheralPage(const char* command) const;
  void PrintReport();

  Application& application_;
  CliHost& host_;
  PageFlow flow_;
  bool reportPrinted_ = false;
};

}  // namespace tessara

#endif  // TESSARA_CLI_SCRIPT_RUNNER_H_
