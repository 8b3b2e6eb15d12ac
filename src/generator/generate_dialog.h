#ifndef TESSARA_GENERATOR_GENERATE_DIALOG_H_
#define TESSARA_GENERATOR_GENERATE_DIALOG_H_

#include <string>
#include <vector>

namespace tessara {

class Host;
struct OutputState;

// The newest-first list of remembered paths of a combo box: at most four, no two equal
// without regard to case.
class RecentPathList {
 public:
  static constexpr int kMaxEntries = 4;

  const std::vector<std::string>& Entries() const { return entries_; }
  void Append(const std::string& path);  // at the end, as read from the ini
  // A browsed path: moved to the front if it is there, else put in front (the last
  // entry dropping out of a full list).
  void Choose(const std::string& path);
  // A typed path: in front, the older ones behind it, four at most.
  void PutInFront(const std::string& path);

 private:
  std::vector<std::string> entries_;
};

// The "Generate" dialog: folder mode with a remembered target file, or project mode
// with a remembered workspace. Its state is what the front-end draws; the operations
// are the dialog's buttons.
class GenerateDialogModel {
 public:
  static constexpr const char* kTitle = "Generate";
  static constexpr const char* kFolderOption = "Output \"Config.c\" to folder:";
  static constexpr const char* kProjectOption = "Insert into an existing open ORV Project";
  static constexpr const char* kCannotSave = "Cannot save file into the specified folder!";
  static constexpr const char* kPathFilter = "C Source Files (*.c)|*.c|All Files (*.*)|*.*||";
  static constexpr const char* kWorkspaceFilter =
      "C Source Files (*.c;*.cpp)|*.c;*.cpp|All Files (*.*)|*.*||";

  // Opens the dialog: the lists from the ini, filtered by what can still be written.
  void Open(Host& host, int pageProjectInsertion);

  // The enabling rule of the two options.
  bool PathControlsEnabled() const { return ProjectInsertion == 0; }
  bool WorkspaceControlsEnabled() const { return ProjectInsertion != 0; }

  // Path browse, after the save dialog returned `path` (empty: cancelled). Sets the
  // page's output state at once.
  void BrowsePath(Host& host, const std::string& path, OutputState& output);
  void BrowseWorkspace(Host& host, const std::string& path);

  // OK: false while no target is set, and the dialog stays open.
  bool Ok();

  int ProjectInsertion = 0;
  std::string ConfigPath, ConfigName, WorkspacePath, WorkspaceName;
  RecentPathList Paths, Workspaces;
  int PathSelection = -1, WorkspaceSelection = -1;
  std::string PathText, WorkspaceText;  // what is typed into the boxes
};

}  // namespace tessara

#endif  // TESSARA_GENERATOR_GENERATE_DIALOG_H_
