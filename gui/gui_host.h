#ifndef TESSARA_GUI_GUI_HOST_H_
#define TESSARA_GUI_GUI_HOST_H_

#include <QPointer>
#include <QWidget>

#include "core/host.h"

namespace tessara {

// The platform services on the desktop: Qt message boxes and file dialogs, the
// desktop's viewer, the user's documents folder. Dialogs open over `parent`.
class GuiHost : public Host {
 public:
  void SetParent(QWidget* parent) { parent_ = parent; }
  QWidget* Parent() const { return parent_; }

  void MessageBox(const std::string& text) override;
  [[noreturn]] void Exit(int status) override;
  std::string DocumentsFolder() override;
  void Sleep(int milliseconds) override;
  void ShowInViewer(const std::string& path) override;
  ResetWarningAnswer AskResetWarning(const std::string& text) override;
  bool AskInvokeIde(const std::string& text) override;
  bool RunProjectDetectedDialog(ProjectDetectedDialogModel& dialog) override;
  bool RunGenerateDialog(GenerateDialogModel& dialog, OutputState& output) override;
  std::string AskOpenFile(const std::string& title, const std::string& filter,
                          const std::string& initialFolder) override;
  std::string AskSaveFile(const std::string& title, const std::string& filter,
                          const std::string& initialPath) override;

 private:
  QPointer<QWidget> parent_;
};

}  // namespace tessara

#endif  // TESSARA_GUI_GUI_HOST_H_
