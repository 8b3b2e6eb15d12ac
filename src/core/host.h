#ifndef TESSARA_CORE_HOST_H_
#define TESSARA_CORE_HOST_H_

#include <string>

namespace tessara {

class GenerateDialogModel;
class ProjectDetectedDialogModel;
struct OutputState;

// The platform services the logic needs. The core never shows anything and never ends
// the process itself: it asks the front-end's Host, which is a Qt adapter in the GUI,
// standard error in the CLI and a recording double in the tests.
class Host {
 public:
  virtual ~Host() = default;

  // A plain message box with one OK button; returns when the user dismissed it.
  virtual void MessageBox(const std::string& text) = 0;

  // Ends the process with the status. Does not return: a test double throws instead.
  [[noreturn]] virtual void Exit(int status) = 0;

  // The user's documents folder, without a trailing separator.
  virtual std::string DocumentsFolder() = 0;

  // Blocks the calling (only) thread for the given time.
  virtual void Sleep(int milliseconds) = 0;

  // Shows a generated file to the user; a front-end without a viewer does nothing.
  virtual void ShowInViewer(const std::string& path) = 0;

  // The question of Back on the peripheral page: OK or Cancel (the default button),
  // with the state of its "Do not show this message again." box.
  struct ResetWarningAnswer {
    bool ok = false;
    bool doNotShowAgain = false;
  };
  virtual ResetWarningAnswer AskResetWarning(const std::string& text) {
    (void)text;
    return {};
  }

  // Project mode. "Could not detect any existing ORV workspace!" with "Invoke ORV"
  // (true) and Cancel, the default; and the dialog that confirms where the files go,
  // true for OK. A front-end without these dialogs cancels both.
  virtual bool AskInvokeIde(const std::string& text) {
    (void)text;
    return false;
  }
  virtual bool RunProjectDetectedDialog(ProjectDetectedDialogModel& dialog) {
    (void)dialog;
    return false;
  }

  // The "Generate" dialog, modally: its browse buttons ask for a file and hand the
  // answer to the model (which may set `output` at once), OK closes it only when the
  // model accepts. True for OK. A front-end without the dialog cancels.
  virtual bool RunGenerateDialog(GenerateDialogModel& dialog, OutputState& output) {
    (void)dialog, (void)output;
    return false;
  }

  // File questions. An empty answer means the user cancelled; a front-end without
  // dialogs (the CLI, where the command names the file) always cancels.
  virtual std::string AskOpenFile(const std::string& title, const std::string& filter,
                                  const std::string& initialFolder) {
    (void)title, (void)filter, (void)initialFolder;
    return "";
  }
  virtual std::string AskSaveFile(const std::string& title, const std::string& filter,
                                  const std::string& initialPath) {
    (void)title, (void)filter, (void)initialPath;
    return "";
  }
};

}  // namespace tessara

#endif  // TESSARA_CORE_HOST_H_
