#ifndef TESSARA_GUI_MAIN_WINDOW_H_
#define TESSARA_GUI_MAIN_WINDOW_H_

#include <QMainWindow>
#include <memory>

#include "panels/framework/error_tables.h"

class QStackedWidget;

namespace tessara {

class Application;
class ErrorReportWindow;
class Host;
class PageFlow;
class PeripheralPage;
class PeripheralPageView;
class SelectionPage;
class SelectionPageView;

// The one window of the program, "Tessara": the selection page and the peripheral page
// take turns in it at the same place and size. It holds the core's page flow and
// connects the buttons to the core's commands.
class MainWindow : public QMainWindow {
  Q_OBJECT
 public:
  MainWindow(Application& application, Host& host);
  ~MainWindow() override;

  // Opens the first page: the boxes from the catalogue, the clock of the first group,
  // and the project named on the command line, if any.
  void Start();

  PageFlow& Flow() { return *flow_; }
  SelectionPage& Selection();
  PeripheralPage& Peripherals();
  SelectionPageView* SelectionView() const { return selectionView_; }
  PeripheralPageView* PeripheralView() const { return peripheralView_; }
  QStackedWidget* Pages() const { return pages_; }
  // The error window, or null before the first failed Generate.
  ErrorReportWindow* ErrorWindow() const { return errorWindow_.get(); }

  // The buttons' commands, also for tests.
  void Next();
  void Back();
  void Generate();
  void Save();
  void Load();
  void ShowErrorReport(const ErrorReport& report);
  void CloseErrorReport();
  void ShowAbout();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  Application& application_;
  Host& host_;
  std::unique_ptr<PageFlow> flow_;
  QStackedWidget* pages_;
  SelectionPageView* selectionView_;
  PeripheralPageView* peripheralView_;
  std::unique_ptr<ErrorReportWindow> errorWindow_;
};

}  // namespace tessara

#endif  // TESSARA_GUI_MAIN_WINDOW_H_
