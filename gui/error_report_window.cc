#include "error_report_window.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>

#include "pages/error_report.h"
#include "qt_text.h"

namespace tessara {

ErrorReportWindow::ErrorReportWindow() : QWidget(nullptr, Qt::Window) {
  setWindowTitle(kErrorReportTitle);
  list_ = new QTableWidget(0, 3, this);
  QStringList headings;
  for (const char* heading : kErrorReportHeadings) headings << heading;
  list_->setHorizontalHeaderLabels(headings);
  for (int c = 0; c < 3; ++c) list_->setColumnWidth(c, kErrorReportWidths[static_cast<std::size_t>(c)]);
  list_->verticalHeader()->hide();
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list_->setSelectionBehavior(QAbstractItemView::SelectRows);
  list_->setShowGrid(true);
  list_->horizontalHeader()->setStretchLastSection(true);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(list_);
  resize(830, 260);
}

void ErrorReportWindow::ShowReport(const ErrorReport& report, const QWidget* page) {
  if (!placed_ && page != nullptr) {
    QPoint topLeft = page->window()->frameGeometry().topLeft();
    move(topLeft.x() + 22, topLeft.y());
    placed_ = true;
  }
  const std::vector<ErrorListRow> rows = ErrorReportListRows(report);
  list_->clearContents();
  list_->setRowCount(static_cast<int>(rows.size()));
  for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
    for (int c = 0; c < 3; ++c) {
      const std::string& text = rows[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)];
      list_->setItem(r, c, new QTableWidgetItem(ToQt(text)));
    }
  }
  show();
  raise();
}

void ErrorReportWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  if (onLeave) onLeave();
}

void ErrorReportWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && !isActiveWindow() && isVisible() && onLeave) {
    onLeave();
  }
}

}  // namespace tessara
