#include "cli_host.h"

#include "idelink/ide_link.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <sys/stat.h>
#include <thread>

namespace tessara {

void CliHost::MessageBox(const std::string& text) {
  std::fflush(stdout);
  std::fwrite(text.data(), 1, text.size(), stderr);
  std::fputc('\n', stderr);
  std::fflush(stderr);
}

void CliHost::Exit(int status) {
  std::fflush(stdout);
  std::fflush(stderr);
  std::exit(status);
}

std::string CliHost::DocumentsFolder() {
  const char* home = std::getenv("HOME");
  std::string base = home != nullptr ? home : ".";
  std::string documents = base + "/Documents";
  struct stat info;
  if (stat(documents.c_str(), &info) == 0 && S_ISDIR(info.st_mode)) return documents;
  return base;
}

void CliHost::Sleep(int milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

void CliHost::ShowInViewer(const std::string&) {}

Host::ResetWarningAnswer CliHost::AskResetWarning(const std::string& text) {
  MessageBox(text);
  return resetAnswer_;
}

bool CliHost::AskInvokeIde(const std::string& text) {
  MessageBox(text);
  return projectAnswers_.invokeIde;
}

bool CliHost::RunProjectDetectedDialog(ProjectDetectedDialogModel& dialog) {
  if (!projectAnswers_.acceptProject) return false;
  if (!projectAnswers_.projectPath.empty()) dialog.PathText = projectAnswers_.projectPath;
  // OK refuses an empty path with its message; a script cannot type again, so that
  // counts as Cancel.
  return dialog.Ok(*this);
}

}  // namespace tessara
