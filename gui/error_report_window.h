#ifndef TESSARA_GUI_ERROR_REPORT_WINDOW_H_
#define TESSARA_GUI_ERROR_REPORT_WINDOW_H_

#include <QWidget>
#include <functional>

#include "panels/framework/error_tables.h"

class QTableWidget;

namespace tessara {

// The "Error Report" window: a top-level window of its own that does not block the
// page, with one list of code, description and help. Created on first use, then shown
// and hidden.
class ErrorReportWindow : public QWidget {
  Q_OBJECT
 public:
  ErrorReportWindow();

  // Lists the report and shows the window: on its first showing beside `page` (its
  // left edge plus 22, at its top).
  void ShowReport(const ErrorReport& report, const QWidget* page);
  QTableWidget* List() const { return list_; }

  // Run when the window closes or loses the focus: the page takes the focus back.
  std::function<void()> onLeave;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QTableWidget* list_;
  bool placed_ = false;
};

}  // namespace tessara

#endif  // TESSARA_GUI_ERROR_REPORT_WINDOW_H_
