#ifndef TESSARA_IDELINK_IDE_LINK_H_
#define TESSARA_IDELINK_IDE_LINK_H_

#include <string>

namespace tessara {

class Application;
class CodeGenerator;
class IdeServer;
struct OutputState;

inline constexpr const char* kNoWorkspaceDetected =
    "Tessara was not able to detect any open workspace. \n\nPlease ensure that the following "
    "settings have been made: \n\n1. In the ORV directory, the batch file REGISTERSERVER.bat has "
    "been executed previously\n\n2. EcxOrvTargetServer.dll has been registered within ORV\n\n3. An "
    "active ORV workspace is now open\n\n";
inline constexpr const char* kUnableToInvokeIde =
    "Unable to Invoke ORV.\n\nPlease refer to user manual \non setting up of ORVTargetServer.";
inline constexpr const char* kNoWorkspaceWarning = "Could not detect any existing ORV workspace!";

// "ORV Project Detected!": where the files of project mode go. The front-end shows it;
// its buttons are the operations.
class ProjectDetectedDialogModel {
 public:
  static constexpr const char* kTitle = "ORV Project Detected!";
  static constexpr const char* kProjectLabel = "Current Active Project :";
  static constexpr const char* kPathLabel = "File Path :";
  static constexpr const char* kBrowseFilter = "C Source Files (*.c)|*.c;All Files (*.*)|*.*||";
  static constexpr const char* kNoPath =
      "Could not find the absolute path for the detected project!\n\nPlease enter the desired "
      "location manually.";

  // Fills the texts as the dialog opens.
  void Open(const std::string& group, bool kbFamily);
  // The browse button's save dialog returned `path` (empty: cancelled).
  void Browse(const std::string& path);
  // OK: takes the typed path; false (after the message) keeps the dialog open.
  bool Ok(class Host& host);

  std::string ProjectName;
  std::string TargetFolder;
  std::string TargetName = "Config.c";
  std::string FileListText;
  std::string PathText;  // the combo box's text; its one item while it has one
  bool HasPathItem = false;
};

// The header's name in the list of files: the target up to its last ".", plus ".h".
std::string ProjectHeaderName(const std::string& targetName);

// Writes the files into the active project of the development environment and adds
// each to it. `server` may be null: every call on it then fails.
void InsertIntoProject(Application& application, IdeServer* server, ProjectDetectedDialogModel& dialog,
                       OutputState& output, CodeGenerator& generator);

}  // namespace tessara

#endif  // TESSARA_IDELINK_IDE_LINK_H_
