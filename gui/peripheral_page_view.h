#ifndef TESSARA_GUI_PERIPHERAL_PAGE_VIEW_H_
#define TESSARA_GUI_PERIPHERAL_PAGE_VIEW_H_

#include <QWidget>
#include <functional>

class QLabel;
class QListWidget;
class QPushButton;
class QTabBar;

namespace tessara {

struct ClockSummary;
class PanelView;
class ParameterListView;
class PeripheralPage;

// The second page drawn from the core's PeripheralPage: the list of peripherals and the
// tabs kept in step with it, the panel of the selected row, the ParameterList, the
// clock summary, Generate, Back and Save.
class PeripheralPageView : public QWidget {
  Q_OBJECT
 public:
  explicit PeripheralPageView(PeripheralPage& page, QWidget* parent = nullptr);

  // Builds the list and tabs anew for a page that was just opened.
  void Reset(const ClockSummary& summary);
  // Sets list, tabs, panel and rows from the page's state.
  void Redraw();

  QListWidget* PeripheralList() const { return list_; }
  QTabBar* Tabs() const { return tabs_; }
  PanelView* Panel() const { return panelView_; }
  ParameterListView* ParameterListWidget() const { return parameters_; }
  QLabel* SummaryLine(int line) const { return summary_[line]; }
  QPushButton* GenerateButton() const { return generate_; }
  QPushButton* BackButton() const { return back_; }
  QPushButton* SaveButton() const { return save_; }

  std::function<void()> onGenerate;
  std::function<void()> onBack;
  std::function<void()> onSave;

 private:
  void SelectRow(int row);
  void ControlKey();

  PeripheralPage& page_;
  QListWidget* list_;
  QTabBar* tabs_;
  PanelView* panelView_;
  ParameterListView* parameters_;
  QLabel* summary_[5];
  QPushButton* generate_;
  QPushButton* back_;
  QPushButton* save_;
};

}  // namespace tessara

#endif  // TESSARA_GUI_PERIPHERAL_PAGE_VIEW_H_
