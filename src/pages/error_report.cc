#include "pages/error_report.h"

#include "database/peripheral_identity.h"
#include "pages/peripheral_page.h"
#include "panels/framework/peripheral_panel.h"

namespace tessara {

namespace {

// The kinds with numeric fields, in the order of the report.
constexpr PanelKind kCollectionOrder[] = {
    PanelKind::kTimerX,  PanelKind::kTimerY,  PanelKind::kTimerZ,     PanelKind::kTimerC,
    PanelKind::kTimerA,  PanelKind::kTimerF,  PanelKind::kDMA,        PanelKind::kMotorTimer,
    PanelKind::kTimerS,  PanelKind::kTimerRA, PanelKind::kTimerRE,    PanelKind::kLIN,
    PanelKind::kTimerRD, PanelKind::kUART2,   PanelKind::kUART3,      PanelKind::kSSU,
    PanelKind::kSIO,     PanelKind::kMultiMasterI2C, PanelKind::kSCI, PanelKind::kPWM,
    PanelKind::kTimerC2, PanelKind::kTimerRC, PanelKind::kTimerRF,    PanelKind::kDAC,
    PanelKind::kDTC,
};

}  // namespace

bool CollectErrors(const PeripheralPage& page, ErrorReport& report) {
  report.Clear();
  bool fine = true;
  for (PanelKind kind : kCollectionOrder) {
    for (int instance = 1; instance <= TagOf(kind).instances; ++instance) {
      const PeripheralPanel* panel = page.Panel(kind, instance);
      if (panel == nullptr || !panel->HasWindow()) continue;
      if (!panel->CollectErrors(report)) fine = false;
    }
  }
  return fine;
}

std::vector<ErrorListRow> ErrorReportListRows(const ErrorReport& report) {
  std::vector<ErrorListRow> list;
  for (std::size_t r = 0; r < report.rows.size() && r < static_cast<std::size_t>(kErrorReportRows); ++r) {
    const std::vector<std::string>& cells = report.rows[r];
    bool started = false;
    std::size_t row = 0;
    for (std::size_t c = 2; c < cells.size(); ++c) {
      if (cells[c].empty()) continue;
      if (!started) {
        if (r > 0) list.push_back(ErrorListRow{});
        list.push_back(ErrorListRow{});
        row = list.size() - 1;
        started = true;
      }
      if (c - 2 >= 3) continue;  // the list has three columns
      const std::string& text = cells[c];
      std::size_t start = 0;
      bool first = true;
      while (true) {
        std::size_t cut = text.find('\'', start);
        if (!first) {
          ++row;
          if (row == list.size()) list.push_back(ErrorListRow{});
        }
        list[row][c - 2] = text.substr(start, cut == std::string::npos ? std::string::npos : cut - start);
        first = false;
        if (cut == std::string::npos) break;
        start = cut + 1;
      }
    }
  }
  return list;
}

}  // namespace tessara
