#ifndef TESSARA_PAGES_PAGE_FLOW_H_
#define TESSARA_PAGES_PAGE_FLOW_H_

#include <string>

#include "pages/clock_summary.h"
#include "pages/peripheral_page.h"
#include "pages/selection_page.h"
#include "panels/framework/error_tables.h"

namespace tessara {

class Application;

// The two pages and the commands that join them: Next and Back, Load on the first page,
// Generate and Save on the second. Both front-ends drive the same flow; the dialogs
// that come before a command (file paths, the Generate dialog) are theirs.
class PageFlow {
 public:
  // `selectedItemColour` is the host's colour for selected items, which the lists paint
  // marked rows with unless the data file says otherwise.
  explicit PageFlow(Application& application,
                    ListColour selectedItemColour = kDefaultSelectedItemColour);
  PageFlow(const PageFlow&) = delete;
  PageFlow& operator=(const PageFlow&) = delete;

  // Opens the first page; a project named on the command line is loaded at its end.
  void Start();

  SelectionPage& Selection() { return selection_; }
  PeripheralPage& Peripherals() { return peripherals_; }
  bool OnPeripheralPage() const { return peripherals_.IsOpen(); }

  // Next on the first page: stores the selection and opens the second page.
  void Next();
  // Back on the second page: false when the user cancelled the reset warning.
  bool Back();
  // The five texts at the foot of the second page, written as it opened.
  const ClockSummary& Summary() const { return summary_; }
  const ClockValues& Clocks() const { return clocks_; }

  // Load on the first page, with the path the dialog gave.
  enum class LoadResult { kUnreadable, kChecksumFailed, kNoSettings, kLoaded };
  LoadResult LoadFile(const std::string& path);

  // Save on the second page, with the path the dialog gave: the path becomes the
  // output path, then the file is written. False when it could not be written.
  bool Save(const std::string& path);
  // The project text as Save would write it now.
  std::string ProjectText() const;

  // The error gate of Generate: true when every panel is fine. A failed gate leaves
  // the report open; a passing one closes it.
  bool CollectErrors();
  const ErrorReport& Report() const { return report_; }
  bool ReportVisible() const { return reportVisible_; }
  void CloseReport() { reportVisible_ = false; }

  // Generate in folder mode into the C source file `path` named `fileName`, after the
  // gate. kWriteFailed when any writer could not open its target.
  enum class GenerateResult { kInvalid, kWritten, kWriteFailed };
  GenerateResult GenerateInFolder(const std::string& path, const std::string& fileName);
  // Generate in project mode, after the gate: the files go into the development
  // environment's active project.
  GenerateResult GenerateInProject();

 private:
  void OpenPeripheralPage();

  Application& application_;
  SelectionPage selection_;
  PeripheralPage peripherals_;
  ClockSummary summary_;
  ClockValues clocks_;
  ErrorReport report_;
  bool reportVisible_ = false;
};

}  // namespace tessara

#endif  // TESSARA_PAGES_PAGE_FLOW_H_
