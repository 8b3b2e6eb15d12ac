#ifndef TESSARA_PAGES_PAGE_COMMANDS_H_
#define TESSARA_PAGES_PAGE_COMMANDS_H_

#include <functional>

namespace tessara {

class Application;
class PageFlow;

// The filter and the file name of the plain save dialog of Generate.
inline constexpr const char* kGenerateSaveFilter = "C Source Files (*.c;*.h)|*.c;*.h|All Files (*.*)|*.*||";
inline constexpr const char* kGenerateDefaultName = "Config";
// Titles of the host's file dialogs.
inline constexpr const char* kSaveDialogTitle = "Save As";
inline constexpr const char* kOpenDialogTitle = "Open";

enum class GenerateOutcome {
  kErrors,     // a field is bad: the flow's report holds the rows, nothing was written
  kCancelled,  // the user cancelled the target question
  kWritten,    // folder mode: the writers ran
  kInserted,   // project mode ran (its own messages tell how it went)
};

// The buttons of the pages as a user with dialogs presses them: the page flow's commands
// with the host's questions in front.

// Generate: the error gate, then the target (the "Generate" dialog when the ini key
// EnhancedGenerate is "1", else a plain save dialog), then the writers in folder mode
// or the insertion into the development environment's project. `afterGate` is told at
// once whether the gate passed, so that a front-end shows or closes its error window
// before any dialog comes up.
GenerateOutcome GenerateCommand(Application& application, PageFlow& flow,
                                const std::function<void(bool passed)>& afterGate = nullptr);

// Save: asks for a path, starting at OutputPath, and writes the project file. False when
// cancelled or not written.
bool SaveCommand(Application& application, PageFlow& flow);

// Load: asks for a project file and loads it into the first page. False when cancelled
// or when the file could not be read.
bool LoadCommand(Application& application, PageFlow& flow);

}  // namespace tessara

#endif  // TESSARA_PAGES_PAGE_COMMANDS_H_
