// Renders the main screens of Tessara to PNG files, for the README. Runs on any Qt
// platform, the offscreen one included: tessara-render-screens [--home DIR] OUT_DIR

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QListWidget>
#include <QPixmap>
#include <cstdio>

#include "core/application.h"
#include "core/text.h"
#include "error_report_window.h"
#include "gui_host.h"
#include "main_window.h"
#include "pages/peripheral_page.h"
#include "pages/selection_page.h"
#include "panels/framework/peripheral_panel.h"
#include "peripheral_page_view.h"
#include "qt_text.h"
#include "selection_page_view.h"

namespace {

bool Save(QWidget* widget, const QString& path) {
  QApplication::processEvents();
  if (!widget->grab().save(path)) {
    std::fprintf(stderr, "Cannot write %s\n", qPrintable(path));
    return false;
  }
  std::printf("%s\n", qPrintable(path));
  return true;
}

int IndexOf(const tessara::ControlModel& box, const std::string& text) {
  for (int i = 0; i < static_cast<int>(box.items.size()); ++i) {
    if (box.items[static_cast<std::size_t>(i)] == text) return i;
  }
  return -1;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QCommandLineParser parser;
  parser.addHelpOption();
  QCommandLineOption home("home", "Program folder with Tessara.ini and IO Files.", "DIR");
  parser.addOption(home);
  parser.addPositionalArgument("out", "Folder for the PNG files.");
  parser.process(app);
  if (parser.positionalArguments().isEmpty()) parser.showHelp(2);
  QDir out(parser.positionalArguments().first());
  out.mkpath(".");
  if (parser.isSet(home)) tessara::SetModuleFolder(tessara::FromQt(QDir(parser.value(home)).absolutePath()));

  tessara::GuiHost host;
  tessara::Application application(host);
  if (application.StartUp() != tessara::Application::StartResult::kRunning) return 1;
  tessara::MainWindow window(application, host);
  host.SetParent(&window);
  window.resize(1000, 720);
  window.show();
  window.Start();

  // The KB chip with its clock, then its wake-up pins in use.
  tessara::SelectionPage& selection = window.Selection();
  selection.ChooseSeries(IndexOf(selection.SeriesBox(), "KB"));
  selection.ChoosePart(1);
  window.SelectionView()->Redraw();
  bool ok = Save(&window, out.filePath("selection-page.png"));

  window.Next();
  tessara::PeripheralPage& page = window.Peripherals();
  for (int row = 0; row < static_cast<int>(page.ListItems().size()); ++row) {
    if (page.ListItems()[static_cast<std::size_t>(row)] == "WKP") {
      window.PeripheralView()->PeripheralList()->setCurrentRow(row);
    }
  }
  if (tessara::PeripheralPanel* wkp = page.ShownPanel()) {
    wkp->ChooseOption("Radiobox_1", 1);
    wkp->ChooseOption("Radiobox_3", 1);
  }
  window.PeripheralView()->Redraw();
  ok = Save(&window, out.filePath("peripheral-page.png")) && ok;

  // An error report as a failed Generate lists it.
  tessara::ErrorReport report;
  std::vector<std::string> first(tessara::kErrorTableCells), second(tessara::kErrorTableCells);
  first[2] = "E0101";
  first[3] = "Timer period below the minimum'for the selected count source";
  first[4] = "Enter a longer period or choose a faster count source.";
  second[2] = "E0203";
  second[3] = "Bit rate field is empty";
  second[4] = "Type a bit rate or pick one from the list.";
  report.rows = {first, second};
  window.ShowErrorReport(report);
  ok = Save(window.ErrorWindow(), out.filePath("error-report.png")) && ok;
  window.CloseErrorReport();
  return ok ? 0 : 1;
}
