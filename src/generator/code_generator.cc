#include "generator/code_generator.h"

#include <array>
#include <cstdio>
#include <filesystem>

#include "core/application.h"
#include "core/host.h"
#include "core/text.h"
#include "generator/code_line.h"
#include "generator/config_template.h"
#include "generator/output_target.h"
#include "pages/peripheral_page.h"
#include "panels/framework/peripheral_panel.h"

namespace tessara {

namespace {

// One panel kind's place in the C source: its slot, its row count, whether its rows
// pass the ActiveKeys filter, and what else it contributes.
struct SlotEntry {
  int slot;
  PanelKind kind;
  int rows;
  bool filter;
  bool registerCode;
  bool extraCode;
  bool extraRows;
  int sortCount;  // 0: the row count
};

constexpr SlotEntry kSlotTable[] = {
    {0, PanelKind::kPort, 6, false, true, true, true, 0},
    {1, PanelKind::kInterrupt, 10, false, true, true, true, 0},
    {2, PanelKind::kKeyInput, 10, false, true, true, true, 0},
    {3, PanelKind::kTimerX, 15, true, true, true, true, 0},
    {4, PanelKind::kTimerY, 60, true, true, true, true, 0},
    {5, PanelKind::kTimerZ, 15, true, true, true, true, 0},
    {6, PanelKind::kTimerC, 25, true, true, true, true, 0},
    {7, PanelKind::kTimerA, 20, true, true, true, true, 0},
    {8, PanelKind::kDMA, 20, true, true, true, true, 0},
    {9, PanelKind::kMotorTimer, 35, true, true, true, true, 0},
    {10, PanelKind::kTimerRA, 20, true, true, true, true, 0},
    {11, PanelKind::kTimerRE, 35, true, true, true, true, 0},
    {12, PanelKind::kLIN, 25, true, false, true, true, 0},
    {13, PanelKind::kTimerRD, 100, true, true, true, true, 0},
    {14, PanelKind::kTimerS, 75, true, true, true, true, 0},
    {15, PanelKind::kUART2, 25, true, true, true, true, 0},
    {16, PanelKind::kUART3, 60, true, true, true, true, 0},
    {17, PanelKind::kSIO, 15, true, true, true, true, 0},
    {18, PanelKind::kMultiMasterI2C, 10, true, true, true, true, 0},
    {19, PanelKind::kCAN, 18, true, true, true, true, 0},
    {20, PanelKind::kADC, 10, true, true, true, true, 0},
    {21, PanelKind::kADC2, 10, true, true, true, true, 0},
    {22, PanelKind::kSSU, 40, true, true, true, true, 0},
    {23, PanelKind::kLCD, 30, true, true, true, true, 0},
    {24, PanelKind::kTimerA2, 30, true, true, true, true, 0},
    {25, PanelKind::kSCI, 60, true, true, true, true, 0},
    {26, PanelKind::kTimerF, 60, true, true, true, true, 0},
    {27, PanelKind::kWKP, 20, true, true, true, true, 0},
    {28, PanelKind::kSCI1, 15, true, true, true, true, 0},
    {29, PanelKind::kAEC, 10, true, true, true, true, 0},
    {30, PanelKind::kPWM, 10, true, true, true, true, 0},
    {31, PanelKind::kTimerC2, 10, true, true, true, true, 0},
    {32, PanelKind::kTimerG, 10, true, true, true, true, 0},
    {33, PanelKind::kADC3, 10, true, true, true, true, 0},
    {34, PanelKind::kTimerRC, 80, true, true, true, true, 0},
    {35, PanelKind::kTimerRF, 30, true, true, true, true, 0},
    {36, PanelKind::kDAC, 10, true, true, true, true, 0},
    {37, PanelKind::kComparator, 10, true, true, true, true, 0},
    {38, PanelKind::kComparatorVDC, 20, true, true, true, true, 0},
    {38, PanelKind::kADC4, 30, true, true, true, true, 0},
    {39, PanelKind::kDTC, 325, true, false, false, false, 20},
    {40, PanelKind::kComparatorB, 10, true, true, true, false, 0},
};

// How a kind's File texts follow each other.
enum class TextOrder {
  kByInstance,          // each instance's texts in turn
  kByTextThenInstance,  // every instance's first text, then every second one
  kLaterOnlyIfSet,      // the second and later texts only when not empty
};

struct FileTextEntry {
  PanelKind kind;
  int texts;
  TextOrder order;
};

constexpr FileTextEntry kFunctionTail[] = {
    {PanelKind::kInterrupt, 1, TextOrder::kByInstance},
    {PanelKind::kKeyInput, 1, TextOrder::kByInstance},
    {PanelKind::kTimerX, 1, TextOrder::kByInstance},
    {PanelKind::kTimerY, 1, TextOrder::kByInstance},
    {PanelKind::kTimerZ, 1, TextOrder::kByInstance},
    {PanelKind::kTimerA, 1, TextOrder::kByInstance},
    {PanelKind::kDMA, 1, TextOrder::kByInstance},
    {PanelKind::kMotorTimer, 1, TextOrder::kByInstance},
    {PanelKind::kTimerS, 3, TextOrder::kByInstance},
    {PanelKind::kUART2, 2, TextOrder::kByTextThenInstance},
    {PanelKind::kUART3, 1, TextOrder::kByInstance},
    {PanelKind::kSIO, 1, TextOrder::kByInstance},
    {PanelKind::kMultiMasterI2C, 2, TextOrder::kByInstance},
    {PanelKind::kCAN, 4, TextOrder::kByInstance},
    {PanelKind::kSSU, 1, TextOrder::kByInstance},
    {PanelKind::kTimerRA, 1, TextOrder::kByInstance},
    {PanelKind::kTimerRE, 1, TextOrder::kByInstance},
    {PanelKind::kTimerRC, 1, TextOrder::kByInstance},
    {PanelKind::kTimerRF, 4, TextOrder::kByInstance},
    {PanelKind::kTimerRD, 2, TextOrder::kByInstance},
    {PanelKind::kTimerC, 3, TextOrder::kLaterOnlyIfSet},
    {PanelKind::kADC2, 1, TextOrder::kByInstance},
    {PanelKind::kADC, 1, TextOrder::kByInstance},
    {PanelKind::kLCD, 1, TextOrder::kByInstance},
    {PanelKind::kTimerF, 1, TextOrder::kByInstance},
    {PanelKind::kTimerA2, 1, TextOrder::kByInstance},
    {PanelKind::kSCI, 1, TextOrder::kByInstance},
    {PanelKind::kWKP, 1, TextOrder::kByInstance},
    {PanelKind::kAEC, 1, TextOrder::kByInstance},
    {PanelKind::kSCI1, 1, TextOrder::kByInstance},
    {PanelKind::kPWM, 1, TextOrder::kByInstance},
    {PanelKind::kTimerC2, 1, TextOrder::kByInstance},
    {PanelKind::kTimerG, 1, TextOrder::kByInstance},
    {PanelKind::kADC3, 1, TextOrder::kByInstance},
    {PanelKind::kDAC, 1, TextOrder::kByInstance},
    {PanelKind::kComparator, 1, TextOrder::kByInstance},
    {PanelKind::kComparatorVDC, 1, TextOrder::kByInstance},
    {PanelKind::kADC4, 1, TextOrder::kByInstance},
};

constexpr FileTextEntry kPragmaPass[] = {
    {PanelKind::kKeyInput, 1, TextOrder::kByInstance},
    {PanelKind::kInterrupt, 1, TextOrder::kByInstance},
    {PanelKind::kTimerX, 1, TextOrder::kByInstance},
    {PanelKind::kTimerY, 1, TextOrder::kByInstance},
    {PanelKind::kTimerZ, 1, TextOrder::kByInstance},
    {PanelKind::kTimerC, 3, TextOrder::kByInstance},
    {PanelKind::kTimerA, 1, TextOrder::kByInstance},
    {PanelKind::kDMA, 1, TextOrder::kByInstance},
    {PanelKind::kMotorTimer, 1, TextOrder::kByInstance},
    {PanelKind::kTimerS, 3, TextOrder::kByInstance},
    {PanelKind::kUART2, 2, TextOrder::kByTextThenInstance},
    {PanelKind::kUART3, 1, TextOrder::kByInstance},
    {PanelKind::kSIO, 1, TextOrder::kByInstance},
    {PanelKind::kMultiMasterI2C, 2, TextOrder::kByInstance},
    {PanelKind::kCAN, 4, TextOrder::kByInstance},
    {PanelKind::kSSU, 1, TextOrder::kByInstance},
    {PanelKind::kADC, 1, TextOrder::kByInstance},
    {PanelKind::kADC2, 1, TextOrder::kByInstance},
    {PanelKind::kLCD, 1, TextOrder::kByInstance},
    {PanelKind::kTimerF, 1, TextOrder::kByInstance},
    {PanelKind::kTimerA2, 1, TextOrder::kByInstance},
    {PanelKind::kSCI, 1, TextOrder::kByInstance},
    {PanelKind::kTimerRA, 1, TextOrder::kByInstance},
    {PanelKind::kPWM, 1, TextOrder::kByInstance},
    {PanelKind::kSCI1, 1, TextOrder::kByInstance},
    {PanelKind::kWKP, 1, TextOrder::kByInstance},
    {PanelKind::kAEC, 1, TextOrder::kByInstance},
    {PanelKind::kTimerC2, 1, TextOrder::kByInstance},
    {PanelKind::kTimerG, 1, TextOrder::kByInstance},
    {PanelKind::kADC3, 1, TextOrder::kByInstance},
    {PanelKind::kTimerRC, 1, TextOrder::kByInstance},
    {PanelKind::kTimerRF, 4, TextOrder::kByInstance},
    {PanelKind::kDAC, 1, TextOrder::kByInstance},
    {PanelKind::kComparator, 1, TextOrder::kByInstance},
    {PanelKind::kComparatorVDC, 1, TextOrder::kByInstance},
    {PanelKind::kTimerRE, 1, TextOrder::kByInstance},
    {PanelKind::kTimerRD, 2, TextOrder::kByInstance},
};

constexpr FileTextEntry kDeclarationPass[] = {
    {PanelKind::kInterrupt, 1, TextOrder::kByInstance},
    {PanelKind::kKeyInput, 1, TextOrder::kByInstance},
    {PanelKind::kTimerX, 1, TextOrder::kByInstance},
    {PanelKind::kTimerY, 1, TextOrder::kByInstance},
    {PanelKind::kTimerZ, 1, TextOrder::kByInstance},
    {PanelKind::kTimerC, 3, TextOrder::kByInstance},
    {PanelKind::kTimerRA, 1, TextOrder::kByInstance},
    {PanelKind::kTimerA, 1, TextOrder::kByInstance},
    {PanelKind::kDMA, 1, TextOrder::kByInstance},
    {PanelKind::kMotorTimer, 1, TextOrder::kByInstance},
    {PanelKind::kTimerS, 3, TextOrder::kByInstance},
    {PanelKind::kUART2, 2, TextOrder::kByTextThenInstance},
    {PanelKind::kUART3, 1, TextOrder::kByInstance},
    {PanelKind::kSIO, 1, TextOrder::kByInstance},
    {PanelKind::kMultiMasterI2C, 2, TextOrder::kByInstance},
    {PanelKind::kCAN, 4, TextOrder::kByInstance},
    {PanelKind::kSSU, 1, TextOrder::kByInstance},
    {PanelKind::kADC, 1, TextOrder::kByInstance},
    {PanelKind::kADC2, 1, TextOrder::kByInstance},
    {PanelKind::kLCD, 1, TextOrder::kByInstance},
    {PanelKind::kTimerF, 1, TextOrder::kByInstance},
    {PanelKind::kTimerA2, 1, TextOrder::kByInstance},
    {PanelKind::kSCI, 1, TextOrder::kByInstance},
    {PanelKind::kPWM, 1, TextOrder::kByInstance},
    {PanelKind::kSCI1, 1, TextOrder::kByInstance},
    {PanelKind::kWKP, 1, TextOrder::kByInstance},
    {PanelKind::kAEC, 1, TextOrder::kByInstance},
    {PanelKind::kTimerC2, 1, TextOrder::kByInstance},
    {PanelKind::kTimerG, 1, TextOrder::kByInstance},
    {PanelKind::kADC3, 1, TextOrder::kByInstance},
    {PanelKind::kTimerRC, 1, TextOrder::kByInstance},
    {PanelKind::kTimerRF, 4, TextOrder::kByInstance},
    {PanelKind::kDAC, 1, TextOrder::kByInstance},
    {PanelKind::kComparator, 1, TextOrder::kByInstance},
    {PanelKind::kComparatorVDC, 1, TextOrder::kByInstance},
    {PanelKind::kDTC, 1, TextOrder::kByInstance},
    {PanelKind::kADC4, 1, TextOrder::kByInstance},
    {PanelKind::kTimerRD, 2, TextOrder::kByInstance},
    {PanelKind::kTimerRE, 1, TextOrder::kByInstance},
};

constexpr const char* kClockLoop = "for(i=0; i<10; i++)";

std::string HeadingText(const std::string& heading) { return ReplaceAll(heading, ";", "\n\t"); }

// The File texts of a table in its order, each given to `visit` with its panel.
template <std::size_t N, typename Text, typename Visit>
void ForEachFileText(const PeripheralPage& page, const FileTextEntry (&table)[N], Text text, Visit visit) {
  for (const FileTextEntry& entry : table) {
    int instances = TagOf(entry.kind).instances;
    if (entry.order == TextOrder::kByTextThenInstance) {
      for (int set = 0; set < entry.texts; ++set) {
        for (int i = 1; i <= instances; ++i) {
          if (const PeripheralPanel* panel = page.Panel(entry.kind, i)) visit(panel, text(panel, set), false);
        }
      }
      continue;
    }
    for (int i = 1; i <= instances; ++i) {
      const PeripheralPanel* panel = page.Panel(entry.kind, i);
      if (panel == nullptr) continue;
      for (int set = 0; set < entry.texts; ++set) {
        visit(panel, text(panel, set), set > 0 && entry.order == TextOrder::kLaterOnlyIfSet);
      }
    }
  }
}

// Whether the target can be opened for writing, tested without emptying it; a file that
// the test itself created is taken away again.
bool CanOpenForWriting(const std::string& path) {
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) return false;
  bool existed = std::filesystem::exists(path, error);
  std::FILE* file = std::fopen(path.c_str(), "ab");
  if (file == nullptr) return false;
  std::fclose(file);
  if (!existed) std::remove(path.c_str());
  return true;
}

}  // namespace

CodeGenerator::CodeGenerator(Application& application, PeripheralPage& page)
    : application_(application), page_(page) {}

bool CodeGenerator::GateOpen(const PeripheralPanel* panel) {
  if (panel == nullptr || !panel->HasWindow()) return false;
  if (panel->Kind() == PanelKind::kInterrupt || panel->Kind() == PanelKind::kKeyInput) return true;
  return panel->CurrentChoice() != 0;
}

std::string CodeGenerator::SectionText(const std::string& prefix) const {
  const DatabaseEntry& entry = application_.database().Entry(application_.SelectedGroup);
  std::string path = JoinPath(JoinPath(ModuleFolder(), "IO Files"),
                              application_.DataFileName[static_cast<std::size_t>(application_.SelectedFile)]);
  std::string text;
  ReadSectionText(application_.host(), prefix + entry.Group, text, path);
  return text;
}

std::string CodeGenerator::BuildClockText() {
  PeripheralPanel* clock = const_cast<PeripheralPanel*>(page_.ClockLink());
  bool clock2 = false;
  if (clock == nullptr) {
    clock = const_cast<PeripheralPanel*>(page_.Clock2Link());
    clock2 = true;
  }
  if (clock == nullptr) return "";
  std::string text;
  std::string code;
  clock->EmitRegisterCode(code);
  if (!code.empty()) text = "\n\t" + code + "\n";
  StatementRule rule = [clock2](std::string& statement, std::string& following) {
    if (clock2 && StartsWithNoCase(statement, "plc07")) {
      statement.insert(std::min<std::size_t>(8, statement.size()), std::string(kClockLoop) + ";");
    }
    bool loop = statement.find("cm05=0") != std::string::npos ||
                (clock2 && statement.find("cm04=1") != std::string::npos);
    if (loop) AppendCodeLine(kClockLoop, " ", following);
  };
  // The clock panels keep rows that other panels read ("clk", "oscdiv", "PLL") but that
  // no active key names: those are figures, not statements, and stay out of the code.
  AppendParameterRows({&clock->MutableParameterRows(), &clock->MutableParameterComments(),
                       &clock->ActiveKeys(), clock->ParameterSort(), 15},
                      text, rule);
  std::string extra;
  clock->EmitExtraCode(extra);
  return "\n\n\t" + HeadingText(clock->PeripheralHeading()) + text + "\n\t" + extra;
}

std::string CodeGenerator::BuildInitBody(std::string& clockText) {
  clockText = BuildClockText();
  std::array<std::string, kPeripheralSlots> slots;
  for (const SlotEntry& entry : kSlotTable) {
    std::string& out = slots[static_cast<std::size_t>(entry.slot)];
    for (int i = 1; i <= TagOf(entry.kind).instances; ++i) {
      PeripheralPanel* panel = page_.Panel(entry.kind, i);
      if (panel == nullptr) continue;
      if (panel->HasWindow()) {
        out += "\n\n\t" + HeadingText(panel->PeripheralHeading());
        if (entry.registerCode) {
          std::string code;
          panel->EmitRegisterCode(code);
          if (!code.empty()) out += "\n\t" + code + "\n";
        }
        AppendParameterRows({&panel->MutableParameterRows(), &panel->MutableParameterComments(),
                             entry.filter ? &panel->ActiveKeys() : nullptr, panel->ParameterSort(),
                             entry.rows, entry.sortCount},
                            out);
      }
      if (entry.extraRows) {
        AppendExtraRows(panel->ExtraComboRows(), panel->ExtraComboComments(), entry.rows, out);
        AppendExtraRows(panel->ExtraCheckRows(), panel->ExtraCheckComments(), entry.rows, out);
      }
      if (entry.extraCode) {
        std::string extra;
        panel->EmitExtraCode(extra);
        if (out.size() > 2 && !(out.size() >= 2 && out.compare(out.size() - 2, 2, "\n\t") == 0)) {
          out += "\n\t" + extra;
        }
      }
    }
  }
  return OrderBlocks(slots, page_.ListItems());
}

std::string CodeGenerator::BuildFunctionTail() const {
  std::string tail;
  ForEachFileText(page_, kFunctionTail,
                  [](const PeripheralPanel* panel, int set) { return panel->FileFunction(set); },
                  [&tail](const PeripheralPanel* panel, const std::string& text, bool onlyIfSet) {
                    if (!GateOpen(panel) || (onlyIfSet && text.empty())) return;
                    AppendFunction(text, tail);
                  });
  return tail;
}

std::string CodeGenerator::BuildHeaderTail() const {
  std::string tail;
  auto add = [&tail](const PeripheralPanel* panel, const std::string& text, bool) {
    if (!text.empty() && GateOpen(panel)) tail += "\n\n" + text;
  };
  ForEachFileText(page_, kPragmaPass,
                  [](const PeripheralPanel* panel, int set) { return panel->FilePragma(set); }, add);
  ForEachFileText(page_, kDeclarationPass,
                  [](const PeripheralPanel* panel, int set) { return panel->FileFunctionDeclaration(set); },
                  add);
  return tail;
}

void CodeGenerator::Show(const std::string& path) {
  if (page_.Output.ProjectInsertion == 0) application_.host().ShowInViewer(path);
}

int CodeGenerator::WriteConfigSource() {
  OutputState& output = page_.Output;
  std::string path = output.OutputPath;
  if (path.empty()) {
    path = GeneratedFolder() + "Config.c";
    std::error_code ignored;
    if (!FileExists(path)) std::filesystem::create_directories(GeneratedFolder(), ignored);
  }
  Host& host = application_.host();
  if (!CanOpenForWriting(path)) {
    host.MessageBox(FormatC("Error opening file: \"%s\"", path.c_str()));
    return 1;
  }
  std::string head = ReplaceAll(SectionText("Header1_"), "config.c", output.OutputFileName);
  std::string code = SectionText("Default_");
  std::string headerName = HeaderNameOf(output.OutputFileName);
  code = ReplaceAll(code, "\"config.h\"", "\"" + headerName + "\"");
  std::string clockText;
  std::string initBody = BuildInitBody(clockText);
  InsertClockText(code, clockText, application_.Flags.FlagKBFamily != 0);
  InsertInitBody(code, initBody);
  code += BuildFunctionTail();
  int result = WriteGeneratedFile(host, path, head + code);
  if (result == 0) Show(path);
  return result;
}

int CodeGenerator::WriteConfigHeader() {
  OutputState& output = page_.Output;
  Host& host = application_.host();
  std::string path = HeaderPathOf(output.OutputPath);
  if (output.OutputPath.empty()) {
    path = GeneratedFolder() + "Config.h";
    if (!FileExists(path)) {
      std::error_code ignored;
      std::filesystem::create_directories(GeneratedFolder(), ignored);
      std::FILE* created = std::fopen(path.c_str(), "w");
      if (created != nullptr) {
        std::fclose(created);
      } else {
        // Someone holds the file: wait for it to go, a second at a time, ten at most.
        bool gone = false;
        for (int waited = 0; waited < 10000 && !gone; waited += 1000) {
          host.Sleep(1000);
          gone = !FileExists(path);
        }
        if (!gone) {
          std::string name = std::string(1, kPathSeparator) + "Config.h";
          host.MessageBox(FormatC("Files: \"%s\" cannot be created!", name.c_str()));
          return 1;
        }
      }
    }
  }
  if (!CanOpenForWriting(path)) {
    host.MessageBox(FormatC("Error opening file: \"%s\"", path.c_str()));
    return 1;
  }
  std::string headerName = HeaderNameOf(output.OutputFileName);
  std::string text = ReplaceAll(SectionText("Header2_"), "config.h", headerName) + BuildHeaderTail();
  int result = WriteGeneratedFile(host, path, text);
  if (result == 0) Show(path);
  return result;
}

int CodeGenerator::WriteRegisterHeader() {
  OutputState& output = page_.Output;
  const DatabaseEntry& entry = application_.database().Entry(application_.SelectedGroup);
  output.RegisterHeaderName = RegisterHeaderNameFor(entry.Group, application_.Flags.FlagKBFamily != 0);
  std::string folder = output.OutputFolder.empty() ? GeneratedFolder() : output.OutputFolder;
  std::string path = folder + output.RegisterHeaderName;
  Host& host = application_.host();
  if (!CanOpenForWriting(path)) {
    host.MessageBox(FormatC("Error opening file: \"%s\"", path.c_str()));
    return 1;
  }
  return WriteGeneratedFile(host, path, SectionText("Default_SRF_Header_"));
}

int CodeGenerator::WriteInterruptProgram() {
  std::string path = page_.Output.OutputFolder + "intprg.c";
  Host& host = application_.host();
  if (!CanOpenForWriting(path)) {
    host.MessageBox(FormatC("Error opening file: \"%s\"", path.c_str()));
    return 1;
  }
  return WriteGeneratedFile(host, path, SectionText("Header3_"));
}

void CodeGenerator::WriteAll() {
  WriteConfigHeader();
  WriteConfigSource();
  WriteRegisterHeader();
  if (application_.Flags.FlagKBFamily != 0) WriteInterruptProgram();
}

}  // namespace tessara
