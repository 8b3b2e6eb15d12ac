#include "pages/page_commands.h"

#include <string>

#include "core/application.h"
#include "core/host.h"
#include "core/ini.h"
#include "core/text.h"
#include "generator/generate_dialog.h"
#include "pages/page_flow.h"
#include "project/project_file.h"

namespace tessara {

namespace {

std::string LastComponent(const std::string& path) {
  std::size_t separator = path.rfind(kPathSeparator);
  return separator == std::string::npos ? path : path.substr(separator + 1);
}

// The folder part of a path, with its trailing separator; empty for a bare name.
std::string FolderOf(const std::string& path) {
  std::size_t separator = path.rfind(kPathSeparator);
  return separator == std::string::npos ? std::string() : path.substr(0, separator + 1);
}

}  // namespace

GenerateOutcome GenerateCommand(Application& application, PageFlow& flow,
                                const std::function<void(bool passed)>& afterGate) {
  Host& host = application.host();
  OutputState& output = flow.Peripherals().Output;
  const bool passed = flow.CollectErrors();
  if (afterGate) afterGate(passed);
  if (!passed) return GenerateOutcome::kErrors;

  std::string enhanced;
  ReadProgramIni("Generate", "EnhancedGenerate", enhanced);
  std::string path, name;
  if (enhanced == "1") {
    GenerateDialogModel dialog;
    dialog.Open(host, output.ProjectInsertion);
    if (!host.RunGenerateDialog(dialog, output)) return GenerateOutcome::kCancelled;
    output.ProjectInsertion = dialog.ProjectInsertion;
    path = dialog.ConfigPath;
    name = dialog.ConfigName;
  } else {
    path = host.AskSaveFile(kSaveDialogTitle, kGenerateSaveFilter,
                            FolderOf(output.OutputPath) + kGenerateDefaultName);
    if (path.empty()) return GenerateOutcome::kCancelled;
    output.ProjectInsertion = 0;
    name = LastComponent(path);
  }
  if (output.ProjectInsertion == 1) {
    flow.GenerateInProject();
    return GenerateOutcome::kInserted;
  }
  flow.GenerateInFolder(path, name);
  return GenerateOutcome::kWritten;
}

bool SaveCommand(Application& application, PageFlow& flow) {
  std::string path = application.host().AskSaveFile(kSaveDialogTitle, kProjectFilter,
                                                    flow.Peripherals().Output.OutputPath);
  if (path.empty()) return false;
  return flow.Save(path);
}

bool LoadCommand(Application& application, PageFlow& flow) {
  std::string path = application.host().AskOpenFile(kOpenDialogTitle, kProjectFilter,
                                                    flow.Peripherals().Output.OutputPath);
  if (path.empty()) return false;
  return flow.LoadFile(path) != PageFlow::LoadResult::kUnreadable;
}

}  // namespace tessara
