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
      selection_(std::make_unique<SelectionPage>(application, HostSelectionColour())),
      peripherals_(std::make_unique<PeripheralPage>(application)) {
  setWindowTitle(QString::fromUtf8(kPageTitle.data(), static_cast<qsizetype>(kPageTitle.size())));
  setWindowIcon(ApplicationIcon());
  // Both lists take their colours from the data file that was first at start-up.
  peripherals_->List().Colours() = selection_->List().Colours();

  pages_ = new QStackedWidget(this);
  selectionView_ = new SelectionPageView(*selection_, pages_);
  peripheralView_ = new PeripheralPageView(*peripherals_, pages_);
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

  selection_->runPeripheralPage = [this] {
    peripherals_->Open(true, selection_->ClockLink(), selection_->Clock2Link());
    peripheralView_->Reset(selection_->CurrentClockSummary());
    pages_->setCurrentWidget(peripheralView_);
    peripheralView_->PeripheralList()->setFocus();
  };
  selection_->loadFile = [this](const std::string& path) {
    LoadProjectFile(application_, *selection_, *peripherals_, path);
  };
  resize(1000, 720);
}

MainWindow::~MainWindow() = default;

void MainWindow::Start() {
  selection_->Initialise();
  selectionView_->Redraw();
  pages_->setCurrentWidget(selectionView_);
}

void MainWindow::Next() { selection_->NextPressed(); }

void MainWindow::Back() {
  if (!peripherals_->Leave()) return;  // the user cancelled the warning
  CloseErrorReport();
  peripheralView_->Panel()->Bind(nullptr);
  pages_->setCurrentWidget(selectionView_);
  selectionView_->Redraw();
  selectionView_->NextButton()->setFocus();
}

void MainWindow::Generate() {
  GenerateCommand(application_, *peripherals_, report_, [this](bool passed) {
    if (passed) {
      CloseErrorReport();
    } else {
      ShowErrorReport(report_);
    }
  });
  peripheralView_->Redraw();
}

void MainWindow::Save() { SaveProject(application_, *selection_, *peripherals_); }

void MainWindow::Load() {
  LoadProjectDialog(application_, *selection_, *peripherals_);
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
  if (errorWindow_ != nullptr) errorWindow_->hide();
}

void MainWindow::ShowAbout() {
  AboutDialog about(this);
  about.exec();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  // Closing the window ends the program without a question, from either page.
  if (peripherals_->IsOpen()) peripherals_->Close();
  if (errorWindow_ != nullptr) errorWindow_->close();
  event->accept();
}

}  // namespace tessara
