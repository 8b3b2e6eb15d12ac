#include "main_window.h"

#include <QCloseEvent>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QStackedWidget>

#include "about_dialog.h"
#include "core/application.h"
#include "error_report_window.h"
#include "pages/page_commands.h"
#include "pages/page_flow.h"
#include "pages/peripheral_page.h"
#include "pages/selection_page.h"
#include "parameter_list_view.h"
#include "peripheral_page_view.h"
#include "panel_view.h"
#include "pictures.h"
#include "selection_page_view.h"

namespace tessara {

namespace {

ListColour HostSelectionColour() {
  QColor colour = QPalette().color(QPalette::Active, QPalette::Highlight);
  return Rgb(colour.red(), colour.green(), colour.blue());
}

}  // namespace

MainWindow::MainWindow(Application& application, Host& host)
    : application_(application),
      host_(host),
      flow_(std::make_unique<PageFlow>(application, HostSelectionColour())) {
  setWindowTitle(QString::fromUtf8(kPageTitle.data(), static_cast<qsizetype>(kPageTitle.size())));
  setWindowIcon(ApplicationIcon());
  pages_ = new QStackedWidget(this);
  selectionView_ = new SelectionPageView(flow_->Selection(), pages_);
  peripheralView_ = new PeripheralPageView(flow_->Peripherals(), pages_);
  pages_->addWidget(selectionView_);
  pages_->addWidget(peripheralView_);
  setCentralWidget(pages_);

  QMenu* help = menuBar()->addMenu("&Help");
  help->addAction(AboutDialog::kMenuEntry, this, &MainWindow::ShowAbout);

  selectionView_->onNext = [this] { Next(); };
  selectionView_->onLoad = [this] { Load(); };
  peripheralView_->onGenerate = [this] { Generate(); };
  peripheralView_->onBack = [this] { Back(); };
  peripheralView_->onSave = [this] { Save(); };

  resize(1000, 720);
}

MainWindow::~MainWindow() {
  // The page views draw the flow's pages and the drawer hangs on the peripheral page:
  // they go before the flow does.
  delete pages_;
}

SelectionPage& MainWindow::Selection() { return flow_->Selection(); }
PeripheralPage& MainWindow::Peripherals() { return flow_->Peripherals(); }

void MainWindow::Start() {
  flow_->Start();
  selectionView_->Redraw();
  pages_->setCurrentWidget(selectionView_);
}

void MainWindow::Next() {
  flow_->Next();
  if (!flow_->OnPeripheralPage()) return;
  peripheralView_->Reset(flow_->Summary());
  pages_->setCurrentWidget(peripheralView_);
  peripheralView_->PeripheralList()->setFocus();
}

void MainWindow::Back() {
  const bool left = flow_->Back();
  // The side-settings popup is gone even when the user stays on the page.
  peripheralView_->FollowPopup();
  if (!left) return;  // the user cancelled the warning
  CloseErrorReport();
  peripheralView_->Panel()->Bind(nullptr);
  pages_->setCurrentWidget(selectionView_);
  selectionView_->Redraw();
  selectionView_->NextButton()->setFocus();
}

void MainWindow::Generate() {
  GenerateCommand(application_, *flow_, [this](bool passed) {
    if (passed) {
      CloseErrorReport();
    } else {
      ShowErrorReport(flow_->Report());
    }
  });
  peripheralView_->Redraw();
}

void MainWindow::Save() { SaveCommand(application_, *flow_); }

void MainWindow::Load() {
  LoadCommand(application_, *flow_);
  selectionView_->Redraw();
  selectionView_->NextButton()->setFocus();
}

void MainWindow::ShowErrorReport(const ErrorReport& report) {
  if (errorWindow_ == nullptr) {
    errorWindow_ = std::make_unique<ErrorReportWindow>();
    errorWindow_->onLeave = [this] {
      peripheralView_->GenerateButton()->setFocus();
      update();
    };
  }
  errorWindow_->ShowReport(report, this);
}

void MainWindow::CloseErrorReport() {
  flow_->CloseReport();
  if (errorWindow_ != nullptr) errorWindow_->hide();
}

void MainWindow::ShowAbout() {
  AboutDialog about(this);
  about.exec();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  // Closing the window ends the program without a question, from either page.
  if (flow_->OnPeripheralPage()) flow_->Peripherals().Close();
  peripheralView_->FollowPopup();
  if (errorWindow_ != nullptr) errorWindow_->close();
  event->accept();
}

}  // namespace tessara
