#include "generator/generate_dialog.h"

#include <algorithm>

#include "core/host.h"
#include "core/ini.h"
#include "core/text.h"
#include "generator/output_target.h"

namespace tessara {

namespace {

const char* const kSection = "Generate";
const char* const kPathKey = "Config_Folder_Pathname";
const char* const kWorkspaceKey = "ORV_Workspace_Pathname";
const char* const kWorkspaceSelectedKey = "ORV_Workspace_Selected";

std::string LastComponent(const std::string& path, const std::string& fallback) {
  std::size_t separator = path.rfind(kPathSeparator);
  return separator == std::string::npos ? fallback : path.substr(separator + 1);
}

}  // namespace

void RecentPathList::Append(const std::string& path) {
  if (static_cast<int>(entries_.size()) < kMaxEntries) entries_.push_back(path);
}

void RecentPathList::Choose(const std::string& path) {
  auto same = [&path](const std::string& entry) { return EqualsNoCase(entry, path); };
  auto found = std::find_if(entries_.begin(), entries_.end(), same);
  if (found != entries_.end()) {
    std::string entry = *found;
    entries_.erase(found);
    entries_.insert(entries_.begin(), entry);
    return;
  }
  if (static_cast<int>(entries_.size()) == kMaxEntries) entries_.pop_back();
  entries_.insert(entries_.begin(), path);
}

void RecentPathList::PutInFront(const std::string& path) {
  entries_.insert(entries_.begin(), path);
  if (static_cast<int>(entries_.size()) > kMaxEntries) entries_.resize(kMaxEntries);
}

void GenerateDialogModel::Open(Host& host, int pageProjectInsertion) {
  ProjectInsertion = pageProjectInsertion;
  std::string value;
  for (int i = 0; i < RecentPathList::kMaxEntries; ++i) {
    ReadProgramIni(kSection, kPathKey + std::to_string(i), value);
    if (!value.empty() && FolderWritable(value)) Paths.Append(value);
  }
  if (Paths.Entries().empty()) Paths.Append(JoinPath(host.DocumentsFolder(), "Config.c"));
  PathSelection = 0;
  PathText = Paths.Entries().front();
  for (int i = 0; i < RecentPathList::kMaxEntries; ++i) {
    ReadProgramIni(kSection, kWorkspaceKey + std::to_string(i), value);
    if (!value.empty() && FileExists(value) && FolderWritable(value)) Workspaces.Append(value);
  }
  WorkspaceSelection = Workspaces.Entries().empty() ? -1 : 0;
  if (WorkspaceSelection == 0) WorkspaceText = Workspaces.Entries().front();
  ReadProgramIni(kSection, kWorkspaceSelectedKey, value);
  if (value == "1") ProjectInsertion = 1;
}

void GenerateDialogModel::BrowsePath(Host& host, const std::string& path, OutputState& output) {
  if (path.empty()) return;
  if (!FolderWritable(path)) {
    host.MessageBox(kCannotSave);
    return;
  }
  ConfigPath = path;
  ConfigName = LastComponent(path, path);
  Paths.Choose(path);
  PathSelection = 0;
  PathText = Paths.Entries().front();
  output.SetTarget(ConfigPath, ConfigName);
}

void GenerateDialogModel::BrowseWorkspace(Host& host, const std::string& path) {
  if (path.empty()) return;
  if (!FolderWritable(path)) {
    host.MessageBox(kCannotSave);
    return;
  }
  WorkspacePath = path;
  WorkspaceName = LastComponent(path, path);
  Workspaces.Choose(path);
  WorkspaceSelection = 0;
  WorkspaceText = Workspaces.Entries().front();
}

bool GenerateDialogModel::Ok() {
  const bool projectOption = ProjectInsertion != 0;
  auto take = [](RecentPathList& list, int selection, const std::string& typed, bool typedCounts,
                 std::string& path, std::string& name) {
    if (selection >= 0 && selection < static_cast<int>(list.Entries().size()) &&
        !list.Entries()[static_cast<std::size_t>(selection)].empty()) {
      path = list.Entries()[static_cast<std::size_t>(selection)];
    }
    if (typedCounts && path.empty() && !typed.empty()) {
      path = typed;
      list.PutInFront(typed);
    }
    name = LastComponent(path, name);
  };
  take(Paths, PathSelection, PathText, !projectOption, ConfigPath, ConfigName);
  take(Workspaces, WorkspaceSelection, WorkspaceText, projectOption, WorkspacePath, WorkspaceName);
  for (std::size_t i = 0; i < Paths.Entries().size(); ++i) {
    WriteProgramIni(kSection, kPathKey + std::to_string(i), Paths.Entries()[i]);
  }
  for (std::size_t i = 0; i < Workspaces.Entries().size(); ++i) {
    WriteProgramIni(kSection, kWorkspaceKey + std::to_string(i), Workspaces.Entries()[i]);
  }
  WriteProgramIni(kSection, kWorkspaceSelectedKey, projectOption ? "1" : "0");
  return !ConfigPath.empty();
}

}  // namespace tessara
