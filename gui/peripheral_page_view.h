#ifndef TESSARA_GUI_PERIPHERAL_PAGE_VIEW_H_
#define TESSARA_GUI_PERIPHERAL_PAGE_VIEW_H_

#include <QPointer>
#include <QWidget>
#include <functional>

#include "extra_settings_popup.h"
#include "panels/framework/extra_settings_panel.h"

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
// clock summary, Generate, Back and Save; and beside it, while the core's page has its
// side-settings popup, the drawer that shows it.
class PeripheralPageView : public QWidget, private ExtraSettingsPresenter {
  Q_OBJECT
 public:
  explicit PeripheralPageView(PeripheralPage& page, QWidget* parent = nullptr);
  ~PeripheralPageView() override;

  // Builds the list and tabs anew for a page that was just opened.
  void Reset(const ClockSummary& summary);
  // Sets list, tabs, panel, rows and the drawer from the page's state.
  void Redraw();
  // Builds the drawer when the core's page has a popup and there is none yet, and takes
  // it away when the popup is gone (Back).
  void FollowPopup();

  QListWidget* PeripheralList() const { return list_; }
  QTabBar* Tabs() const { return tabs_; }
  PanelView* Panel() const { return panelView_; }
  ParameterListView* ParameterListWidget() const { return parameters_; }
  QLabel* SummaryLine(int line) const { return summary_[line]; }
  QPushButton* GenerateButton() const { return generate_; }
  QPushButton* BackButton() const { return back_; }
  QPushButton* SaveButton() const { return save_; }
  // The side-settings drawer, or null while the page has no popup.
  ExtraSettingsPopup* Drawer() const { return drawer_; }

  std::function<void()> onGenerate;
  std::function<void()> onBack;
  std::function<void()> onSave;

 private:
  void SelectRow(int row);
  void ControlKey();
  // From the drawer: the page's Generate button takes the focus.
  void FocusGenerate();
  // The user changed the drawer's control `number`, as the core counts them.
  void AfterPopupAction(int number);

  // ExtraSettingsPresenter: the core's popup asks the drawer to move or redraw.
  void SlideOut() override;
  void SlideBack() override;
  void ControlsChanged() override;

  PeripheralPage& page_;
  QListWidget* list_;
  QTabBar* tabs_;
  PanelView* panelView_;
  ParameterListView* parameters_;
  QLabel* summary_[5];
  QPushButton* generate_;
  QPushButton* back_;
  QPushButton* save_;
  QPointer<ExtraSettingsPopup> drawer_;
};

}  // namespace tessara

#endif  // TESSARA_GUI_PERIPHERAL_PAGE_VIEW_H_
