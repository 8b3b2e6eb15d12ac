#ifndef TESSARA_CLI_SCRIPT_RUNNER_H_
#define TESSARA_CLI_SCRIPT_RUNNER_H_

#include <istream>
#include <string>
#include <vector>

#include "pages/selection_page.h"

namespace tessara {

class Application;

// Runs script commands against the application, as a user's actions on the open page.
// The runner holds the pages for the run: the selection page is built and opened when
// the runner is made, after start-up, as the program opens it.
class ScriptRunner {
 public:
  explicit ScriptRunner(Application& application);

  // Runs every line of the script; returns the process's exit status.
  int Run(std::istream& script);

  // The result of one command: a non-empty failure ends the run with status 2.
  struct Outcome {
    bool quit = false;
    std::string failure;
  };
  Outcome Execute(const std::vector<std::string>& words);

  SelectionPage& Selection() { return selection_; }

 private:
  using Words = std::vector<std::string>;
  struct Command {
    std::string_view name;
    int arguments;  // the number of words behind the command
    Outcome (ScriptRunner::*run)(const Words&);
  };
  static const std::vector<Command>& Commands();

  Outcome Quit(const Words& words);
  Outcome ChooseSeries(const Words& words);
  Outcome ChooseGroup(const Words& words);
  Outcome ChoosePart(const Words& words);
  Outcome Option(const Words& words);
  Outcome Choose(const Words& words);
  Outcome PrintRows(const Words& words);
  Outcome PrintControls(const Words& words);
  Outcome PrintSummary(const Words& words);

  // The panel that the control commands reach, or a failure.
  PeripheralPanel* OpenPanel(Outcome& outcome);

  Application& application_;
  SelectionPage selection_;
};

}  // namespace tessara

#endif  // TESSARA_CLI_SCRIPT_RUNNER_H_
