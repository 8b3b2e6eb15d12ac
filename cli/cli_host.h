#ifndef TESSARA_CLI_CLI_HOST_H_
#define TESSARA_CLI_CLI_HOST_H_

#include "core/host.h"

namespace tessara {

// The headless host: a message box is its text on standard error, the default button
// is taken at once, and nothing is shown in a viewer.
class CliHost : public Host {
 public:
  void MessageBox(const std::string& text) override;
  [[noreturn]] void Exit(int status) override;
  std::string DocumentsFolder() override;
  void Sleep(int milliseconds) override;
  void ShowInViewer(const std::string& path) override;
  // A question prints its text as a message box does and takes the script's answer.
  ResetWarningAnswer AskResetWarning(const std::string& text) override;
  bool AskInvokeIde(const std::string& text) override;

  void SetResetWarningAnswer(ResetWarningAnswer answer) { resetAnswer_ = answer; }

  // How a script answers the dialogs of project mode: "Invoke ORV" or Cancel, and OK
  // (with a typed path, if any) or Cancel in the project dialog.
  struct ProjectAnswers {
    bool invokeIde = false;
    bool acceptProject = true;
    std::string projectPath;
  };
  void SetProjectAnswers(ProjectAnswers answers) { projectAnswers_ = std::move(answers); }
  bool RunProjectDetectedDialog(ProjectDetectedDialogModel& dialog) override;

 private:
  ResetWarningAnswer resetAnswer_{true, false};
  ProjectAnswers projectAnswers_;
};

}  // namespace tessara

#endif  // TESSARA_CLI_CLI_HOST_H_
