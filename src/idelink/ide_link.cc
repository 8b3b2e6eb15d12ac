#include "idelink/ide_link.h"

#include "core/application.h"
#include "core/host.h"
#include "core/text.h"
#include "generator/code_generator.h"
#include "generator/output_target.h"
#include "idelink/ide_server.h"

namespace tessara {

namespace {

std::string TextBehindLastSeparator(const std::string& path) {
  std::size_t separator = path.rfind(kPathSeparator);
  return separator == std::string::npos ? path : path.substr(separator + 1);
}

// Adds a file; a refusal is answered by taking it out and adding it again, and a
// second refusal goes unreported.
void InsertFile(IdeServer* server, const std::string& path) {
  if (server != nullptr && server->AddProjectFile(path) >= 0) return;
  if (server == nullptr) return;
  server->RemoveProjectFile(path);
  server->AddProjectFile(path);
}

}  // namespace

std::string ProjectHeaderName(const std::string& targetName) {
  std::size_t dot = targetName.rfind('.');
  return (dot == std::string::npos ? std::string() : targetName.substr(0, dot)) + ".h";
}

void ProjectDetectedDialogModel::Open(const std::string& group, bool kbFamily) {
  std::string registerHeader = RegisterHeaderNameFor(group, kbFamily);
  FileListText = "The following files will be inserted into the ORV workspace.\n";
  FileListText += "If the files already exist, they will be overwritten.\n\n";
  FileListText += FormatC("1. %s,\n2. %s,\n3. %s\n", TargetName.c_str(),
                          ProjectHeaderName(TargetName).c_str(), registerHeader.c_str());
  if (kbFamily) FileListText += "4. intprg.c\n";
  HasPathItem = !TargetFolder.empty();
  PathText = HasPathItem ? TargetFolder + kPathSeparator + TargetName : "";
}

void ProjectDetectedDialogModel::Browse(const std::string& path) {
  if (path.empty()) return;
  TargetFolder = FirstPathFolder(path);
  TargetName = TextBehindLastSeparator(path);
  PathText = path;
  HasPathItem = true;
}

bool ProjectDetectedDialogModel::Ok(Host& host) {
  std::string folder = FirstPathFolder(PathText);
  TargetFolder = folder;
  if (folder.empty()) {
    host.MessageBox(kNoPath);
    return false;
  }
  TargetName = TextBehindLastSeparator(PathText);
  return true;
}

void InsertIntoProject(Application& application, IdeServer* server, ProjectDetectedDialogModel& dialog,
                       OutputState& output, CodeGenerator& generator) {
  Host& host = application.host();
  // Failure handler A: no server, or a failed query.
  std::string files;
  if (server == nullptr || server->GetProjectFiles(files) < 0) {
    host.MessageBox(kNoWorkspaceDetected);
    return;
  }
  dialog.TargetFolder = FirstPathFolder(files);
  std::string name;
  int code = server->GetProjectName(name);
  if (code < 0) {
    host.MessageBox(kNoWorkspaceDetected);
    return;
  }
  dialog.ProjectName = name;
  if (code != 0) {
    if (host.AskInvokeIde(kNoWorkspaceWarning) && server->StartIde() < 0) {
      host.MessageBox(kUnableToInvokeIde);
    }
    return;
  }
  const bool kb = application.Flags.FlagKBFamily != 0;
  dialog.Open(application.database().Entry(application.SelectedGroup).Group, kb);
  if (!host.RunProjectDetectedDialog(dialog)) return;

  const std::string header = ProjectHeaderName(dialog.TargetName);
  const std::string folder = dialog.TargetFolder + kPathSeparator;
  output.OutputFolder = folder;
  output.OutputFileName = dialog.TargetName;
  output.OutputPath = folder + dialog.TargetName;
  generator.WriteConfigSource();
  InsertFile(server, folder + dialog.TargetName);
  generator.WriteConfigHeader();
  InsertFile(server, folder + header);
  generator.WriteRegisterHeader();
  InsertFile(server, folder + output.RegisterHeaderName);
  if (kb) {
    generator.WriteInterruptProgram();
    InsertFile(server, folder + "intprg.c");
  }
  server->FinishProjectUpdate();
}

}  // namespace tessara
