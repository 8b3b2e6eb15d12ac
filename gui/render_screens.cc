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
#include "pages/page_flow.h"
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
  window.resize(1100, 720);
  window.show();
  window.Start();

  // The KB chip with its clock.
  tessara::SelectionPage& selection = window.Selection();
  selection.ChooseSeries(IndexOf(selection.SeriesBox(), "KB"));
  selection.ChoosePart(1);
  window.SelectionView()->Redraw();
  bool ok = Save(&window, out.filePath("selection-page.png"));

  // Timer RA of the first group, in use, with a time that is not in its list.
  selection.ChooseSeries(0);
  window.SelectionView()->Redraw();
  window.Next();
  tessara::PeripheralPage& page = window.Peripherals();
  for (int row = 0; row < static_cast<int>(page.ListItems().size()); ++row) {
    if (page.ListItems()[static_cast<std::size_t>(row)] == "Timer RA") {
      window.PeripheralView()->PeripheralList()->setCurrentRow(row);
    }
  }
  if (tessara::PeripheralPanel* timer = page.ShownPanel()) {
    timer->ChooseOption("Radiobox_1", 1);
    timer->ChooseOption("Radiobox_8", 1);
    timer->EditFieldText("ComboEditbox_1", 0, "7");
  }
  window.PeripheralView()->Redraw();
  ok = Save(&window, out.filePath("peripheral-page.png")) && ok;

  // The report of that bad time, as Generate shows it.
  if (!window.Flow().CollectErrors()) window.ShowErrorReport(window.Flow().Report());
  if (window.ErrorWindow() != nullptr) ok = Save(window.ErrorWindow(), out.filePath("error-report.png")) && ok;
  window.CloseErrorReport();
  return ok ? 0 : 1;
}
