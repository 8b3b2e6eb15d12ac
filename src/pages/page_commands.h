#ifndef TESSARA_PAGES_PAGE_COMMANDS_H_
#define TESSARA_PAGES_PAGE_COMMANDS_H_

#include <functional>
#include <string>

namespace tessara {

class Application;
class PeripheralPage;
class SelectionPage;
struct ErrorReport;

// The filter and the file name of the plain save dialog of Generate.
inline constexpr const char* kGenerateSaveFilter = "C Source Files (*.c;*.h)|*.c;*.h|All Files (*.*)|*.*||";
inline constexpr const char* kGenerateDefaultName = "Config";
inline constexpr const char* kSettingsNotFound = "Settings not found!\n File may be corrupted.";
// Titles of the host's file dialogs.
inline constexpr const char* kSaveDialogTitle = "Save As";
inline constexpr const char* kOpenDialogTitle = "Open";

enum class GenerateOutcome {
  kErrors,     // a field is bad: the report holds the rows, nothing was written
  kCancelled,  // the user cancelled the target question
  kWritten,    // folder mode: the writers ran
  kInserted,   // project mode ran (its own messages tell how it went)
};

// The Generate button: the error gate, then the target (the "Generate" dialog when the
// ini key EnhancedGenerate is "1", else a plain save dialog), then the writers in folder
// mode or the insertion into the development environment's project. `afterGate` is
// told at once whether the gate passed, so that a front-end shows or closes its error
// window before any dialog comes up.
GenerateOutcome GenerateCommand(Application& application, PeripheralPage& page, ErrorReport& report,
                                const std::function<void(bool passed)>& afterGate = nullptr);

// The Save button of the peripheral page: asks for a path (starting at OutputPath, which
// takes the answer) and writes the project file. False when cancelled or not written.
bool SaveProject(Application& application, SelectionPage& selection, PeripheralPage& page);

// Load file: reads a project file, checks it, sets the three boxes of the first page
// and restores the clock panel. The peripheral page's panels come back at its next
// opening, from the text kept in its ProjectText. False when the file could not be read
// or its checksum failed (after the message).
bool LoadProjectFile(Application& application, SelectionPage& selection, PeripheralPage& page,
                     const std::string& path);

// The Load button: an open dialog, then LoadProjectFile. False when cancelled.
bool LoadProjectDialog(Application& application, SelectionPage& selection, PeripheralPage& page);

}  // namespace tessara

#endif  // TESSARA_PAGES_PAGE_COMMANDS_H_
