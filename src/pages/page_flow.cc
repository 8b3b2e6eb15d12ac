#include "pages/page_flow.h"

#include "core/application.h"
#include "core/host.h"
#include "generator/code_generator.h"
#include "idelink/ide_link.h"
#include "pages/error_report.h"
#include "project/project_file.h"

namespace tessara {

PageFlow::PageFlow(Application& application, ListColour selectedItemColour)
    : application_(application),
      selection_(application, selectedItemColour),
      peripherals_(application, selectedItemColour) {
  selection_.runPeripheralPage = [this] { OpenPeripheralPage(); };
  selection_.loadFile = [this](const std::string& path) { LoadFile(path); };
  peripherals_.SetClockValues(&clocks_);
}

void PageFlow::Start() { selection_.Initialise(); }

void PageFlow::Next() {
  if (!OnPeripheralPage()) selection_.NextPressed();
}

void PageFlow::OpenPeripheralPage() {
  const ClockPanel* clock = selection_.ClockLink();
  const Clock2Panel* clock2 = selection_.Clock2Link();
  ClockSummaryInput clockInput, clock2Input;
  if (clock != nullptr) clockInput = clock->SummaryInput();
  if (clock2 != nullptr) clock2Input = clock2->SummaryInput();
  summary_ = WriteClockSummary(clock != nullptr ? &clockInput : nullptr,
                               clock2 != nullptr ? &clock2Input : nullptr, application_.Flags);
  if (application_.Flags.FlagKBFamily != 0 && clock2 != nullptr) SetKBClockValues(clock2Input, clocks_);
  peripherals_.Open(true, clock, clock2);
}

bool PageFlow::Back() {
  if (!OnPeripheralPage()) return true;
  if (!peripherals_.Leave()) return false;
  reportVisible_ = false;
  summary_ = ClockSummary();
  return true;
}

PageFlow::LoadResult PageFlow::LoadFile(const std::string& path) {
  bool checksumOk = false;
  if (!ReadProjectFile(application_.host(), path, peripherals_.ProjectText, checksumOk)) {
    return LoadResult::kUnreadable;
  }
  if (!checksumOk) return LoadResult::kChecksumFailed;
  const std::string& text = peripherals_.ProjectText;
  BoxPositions boxes;
  bool found = ReadBoxPositions(text, boxes);
  if (!found) {
    application_.host().MessageBox("Settings not found!\n File may be corrupted.");
  } else {
    selection_.ChooseSeries(boxes.series);
    selection_.ChooseGroup(boxes.group);
    selection_.ChoosePart(boxes.part);
  }
  selection_.Clock().LoadState(text);
  selection_.Clock2().LoadState(text);
  return found ? LoadResult::kLoaded : LoadResult::kNoSettings;
}

std::string PageFlow::ProjectText() const {
  BoxPositions boxes{selection_.SeriesBox().selection, selection_.GroupBox().selection,
                     selection_.PartBox().selection};
  const PeripheralPanel* clock = &const_cast<SelectionPage&>(selection_).Clock();
  const PeripheralPanel* clock2 = &const_cast<SelectionPage&>(selection_).Clock2();
  return ProjectFileText(ProjectBody(peripherals_, boxes, clock, clock2));
}

bool PageFlow::Save(const std::string& path) {
  peripherals_.Output.OutputPath = path;
  return WriteProjectFile(application_.host(), path, ProjectText());
}

bool PageFlow::CollectErrors() {
  bool fine = tessara::CollectErrors(peripherals_, report_);
  reportVisible_ = !fine;
  return fine;
}

PageFlow::GenerateResult PageFlow::GenerateInFolder(const std::string& path, const std::string& fileName) {
  if (!CollectErrors()) return GenerateResult::kInvalid;
  OutputState& output = peripherals_.Output;
  output.ProjectInsertion = 0;
  output.SetTarget(path, fileName);
  CodeGenerator generator(application_, peripherals_);
  int failures = generator.WriteConfigHeader();
  failures += generator.WriteConfigSource();
  failures += generator.WriteRegisterHeader();
  if (application_.Flags.FlagKBFamily != 0) failures += generator.WriteInterruptProgram();
  return failures == 0 ? GenerateResult::kWritten : GenerateResult::kWriteFailed;
}

PageFlow::GenerateResult PageFlow::GenerateInProject() {
  if (!CollectErrors()) return GenerateResult::kInvalid;
  peripherals_.Output.ProjectInsertion = 1;
  CodeGenerator generator(application_, peripherals_);
  InsertIntoProject(application_, peripherals_.Ide.get(), peripherals_.ProjectDialog, peripherals_.Output,
                    generator);
  return GenerateResult::kWritten;
}

}  // namespace tessara
