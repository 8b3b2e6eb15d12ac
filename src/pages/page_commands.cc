#include "pages/page_commands.h"

#include "core/application.h"
#include "core/host.h"
#include "core/ini.h"
#include "core/text.h"
#include "generator/code_generator.h"
#include "generator/generate_dialog.h"
#include "idelink/ide_link.h"
#include "pages/error_report.h"
#include "pages/peripheral_page.h"
#include "pages/selection_page.h"
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

GenerateOutcome GenerateCommand(Application& application, PeripheralPage& page, ErrorReport& report,
                                const std::function<void(bool passed)>& afterGate) {
  Host& host = application.host();
  const bool passed = CollectErrors(page, report);
  if (afterGate) afterGate(passed);
  if (!passed) return GenerateOutcome::kErrors;

  std::string enhanced;
  ReadProgramIni("Generate", "EnhancedGenerate", enhanced);
  GenerateDialogModel dialog;
  std::string savedPath;
  const bool useDialog = enhanced == "1";
  if (useDialog) {
    dialog.Open(host, page.Output.ProjectInsertion);
    if (!host.RunGenerateDialog(dialog, page.Output)) return GenerateOutcome::kCancelled;
    page.Output.ProjectInsertion = dialog.ProjectInsertion;
  } else {
    savedPath = host.AskSaveFile(kSaveDialogTitle, kGenerateSaveFilter,
                                 FolderOf(page.Output.OutputPath) + kGenerateDefaultName);
    if (savedPath.empty()) return GenerateOutcome::kCancelled;
    page.Output.ProjectInsertion = 0;
  }

  CodeGenerator generator(application, page);
  if (page.Output.ProjectInsertion == 1) {
    InsertIntoProject(application, page.Ide.get(), page.ProjectDialog, page.Output, generator);
    return GenerateOutcome::kInserted;
  }
  if (useDialog) {
    page.Output.SetTarget(dialog.ConfigPath, dialog.ConfigName);
  } else {
    page.Output.SetTarget(savedPath, LastComponent(savedPath));
  }
  generator.WriteAll();
  return GenerateOutcome::kWritten;
}

bool SaveProject(Application& application, SelectionPage& selection, PeripheralPage& page) {
  Host& host = application.host();
  std::string path = host.AskSaveFile(kSaveDialogTitle, kProjectFilter, page.Output.OutputPath);
  if (path.empty()) return false;
  page.Output.OutputPath = path;
  BoxPositions boxes{selection.SeriesBox().selection, selection.GroupBox().selection,
                     selection.PartBox().selection};
  std::string body = ProjectBody(page, boxes, &selection.Clock(), &selection.Clock2());
  return WriteProjectFile(host, path, ProjectFileText(body));
}

bool LoadProjectFile(Application& application, SelectionPage& selection, PeripheralPage& page,
                     const std::string& path) {
  Host& host = application.host();
  bool checksumOk = false;
  if (!ReadProjectFile(host, path, page.ProjectText, checksumOk)) return false;
  if (!checksumOk) return false;
  const std::string& text = page.ProjectText;
  BoxPositions boxes;
  if (!ReadBoxPositions(text, boxes)) {
    host.MessageBox(kSettingsNotFound);
  } else {
    // A position beyond today's lists selects nothing, and the chip stays as it was.
    selection.ChooseSeries(boxes.series);
    selection.ChooseGroup(boxes.group);
    selection.ChoosePart(boxes.part);
  }
  for (PeripheralPanel* clock : {static_cast<PeripheralPanel*>(&selection.Clock()),
                                 static_cast<PeripheralPanel*>(&selection.Clock2())}) {
    if (clock->HasWindow()) clock->LoadState(text);
  }
  return true;
}

bool LoadProjectDialog(Application& application, SelectionPage& selection, PeripheralPage& page) {
  std::string path =
      application.host().AskOpenFile(kOpenDialogTitle, kProjectFilter, page.Output.OutputPath);
  if (path.empty()) return false;
  return LoadProjectFile(application, selection, page, path);
}

}  // namespace tessara
