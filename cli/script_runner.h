#ifndef TESSARA_CLI_SCRIPT_RUNNER_H_
#define TESSARA_CLI_SCRIPT_RUNNER_H_

#include <istream>
#include <string>
#include <vector>

namespace tessara {

class Application;

// Runs script commands against the application, as a user's actions on the open page.
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

 private:
  Application& application_;
};

}  // namespace tessara

#endif  // TESSARA_CLI_SCRIPT_RUNNER_H_
