// tessara: the desktop application.

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>

#include "core/application.h"
#include "core/text.h"
#include "gui_host.h"
#include "main_window.h"
#include "pictures.h"
#include "qt_text.h"
#include "tooltips.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("tessara");
  QApplication::setApplicationVersion(TESSARA_VERSION_TEXT);
  QApplication::setWindowIcon(tessara::ApplicationIcon());

  QCommandLineParser parser;
  parser.setApplicationDescription(
      "Tessara: choose a microcontroller, set its clock and peripherals, and generate its C "
      "start-up code.");
  parser.addHelpOption();
  parser.addVersionOption();
  QCommandLineOption home("home", "Folder that stands in for the program folder (holds Tessara.ini and IO Files).",
                          "DIR");
  parser.addOption(home);
  parser.addPositionalArgument("project", "A project file (.tsr) to load at start.", "[PROJECT.tsr]");
  parser.process(app);

  if (parser.isSet(home)) {
    tessara::SetModuleFolder(tessara::FromQt(QDir(parser.value(home)).absolutePath()));
  }
  tessara::InstallTooltipTimes();
  tessara::GuiHost host;
  tessara::Application application(host);
  if (!parser.positionalArguments().isEmpty()) {
    application.CommandLineFile = tessara::FromQt(parser.positionalArguments().first());
  }
  if (application.StartUp() != tessara::Application::StartResult::kRunning) return 1;

  tessara::MainWindow window(application, host);
  host.SetParent(&window);
  window.show();
  window.Start();
  return app.exec();
}
