#include "project/project_file.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "core/host.h"
#include "core/text.h"
#include "database/peripheral_identity.h"
#include "pages/peripheral_page.h"
#include "panels/framework/peripheral_panel.h"

namespace tessara {

namespace {

// The panel kinds in the order of their lines; every instance of a kind in turn.
constexpr PanelKind kLineOrder[] = {
    PanelKind::kTimerA,     PanelKind::kDMA,        PanelKind::kSCI,        PanelKind::kPort,
    PanelKind::kTimerX,     PanelKind::kInterrupt,  PanelKind::kSIO,        PanelKind::kUART2,
    PanelKind::kDAC,        PanelKind::kADC,        PanelKind::kADC2,       PanelKind::kADC3,
    PanelKind::kCAN,        PanelKind::kComparator, PanelKind::kTimerRA,    PanelKind::kLCD,
    PanelKind::kTimerRC,    PanelKind::kPWM,        PanelKind::kTimerC,     PanelKind::kTimerF,
    PanelKind::kTimerG,     PanelKind::kTimerRF,    PanelKind::kLIN,        PanelKind::kTimerS,
    PanelKind::kTimerY,     PanelKind::kTimerZ,     PanelKind::kKeyInput,   PanelKind::kAEC,
    PanelKind::kComparatorVDC, PanelKind::kComparatorB, PanelKind::kMultiMasterI2C, PanelKind::kSCI1,
    PanelKind::kTimerA2,    PanelKind::kTimerC2,    PanelKind::kTimerRD,    PanelKind::kTimerRE,
    PanelKind::kWKP,        PanelKind::kUART3,      PanelKind::kSSU,        PanelKind::kMotorTimer,
    PanelKind::kDTC,        PanelKind::kADC4,
};

void AppendPanelLine(const PeripheralPanel* panel, std::string& body) {
  if (panel == nullptr || !panel->HasWindow()) return;
  body += panel->SaveTag();
  panel->SaveState(body);
}

}  // namespace

std::string ProjectBody(const PeripheralPage& page, BoxPositions boxes, const PeripheralPanel* clock,
                        const PeripheralPanel* clock2) {
  std::string body = FormatC("%s%d %d %d \n", kSettingsTag, boxes.series, boxes.group, boxes.part);
  AppendPanelLine(clock, body);
  AppendPanelLine(clock2, body);
  for (PanelKind kind : kLineOrder) {
    for (int instance = 1; instance <= TagOf(kind).instances; ++instance) {
      AppendPanelLine(page.Panel(kind, instance), body);
    }
  }
  body += "ExtraSettings:";
  for (const auto& row : page.ExtraSettingsState) {
    for (int value : row) body += FormatC("%d ", value);
  }
  body += " \n";
  body += "Selected_Peripherals:" + page.SelectedMap + " \n";
  return body;
}

std::string ProjectFileText(const std::string& body) { return ProjectChecksumLine(body) + "\n" + body; }

bool WriteProjectFile(Host& host, const std::string& path, const std::string& fileText) {
  // A save that fails halfway must not destroy the file that was there.
  if (WriteTextFileReplacing(path, fileText)) return true;
  host.MessageBox("Unable to open file!");
  return false;
}

bool ReadProjectFile(Host& host, const std::string& path, std::string& projectText, bool& checksumOk) {
  std::string raw;
  if (!ReadWholeFile(path, raw)) {
    host.MessageBox("Unable to open file: \n" + path);
    return false;
  }
  // Text mode: a CR before a LF is dropped; every line read gets its "\n".
  std::string text;
  text.reserve(raw.size());
  for (std::size_t i = 0; i < raw.size(); ++i) {
    if (raw[i] == '\r' && i + 1 < raw.size() && raw[i + 1] == '\n') continue;
    text.push_back(raw[i]);
  }
  std::size_t firstEnd = text.find('\n');
  std::string firstLine = text.substr(0, firstEnd);
  projectText.clear();
  if (firstEnd != std::string::npos) {
    projectText = text.substr(firstEnd + 1);
    if (!projectText.empty() && projectText.back() != '\n') projectText += '\n';
  }
  checksumOk = firstLine == ProjectChecksumLine(projectText);
  if (!checksumOk) host.MessageBox("Checksum failed!");
  return true;
}

bool ReadBoxPositions(const std::string& projectText, BoxPositions& boxes) {
  std::size_t at = projectText.find(kSettingsTag);
  if (at == std::string::npos) return false;
  std::string rest = projectText.substr(at + std::string(kSettingsTag).size());
  boxes.series = static_cast<int>(std::strtol(ReadNextToken(rest).c_str(), nullptr, 10));
  boxes.group = static_cast<int>(std::strtol(ReadNextToken(rest).c_str(), nullptr, 10));
  boxes.part = static_cast<int>(std::strtol(ReadNextToken(rest).c_str(), nullptr, 10));
  return true;
}

}  // namespace tessara
