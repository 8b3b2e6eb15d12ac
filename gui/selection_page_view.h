#ifndef TESSARA_GUI_SELECTION_PAGE_VIEW_H_
#define TESSARA_GUI_SELECTION_PAGE_VIEW_H_

#include <QWidget>
#include <functional>

class QComboBox;
class QLabel;
class QPushButton;
class QTabWidget;

namespace tessara {

class PanelView;
class ParameterListView;
class SelectionPage;

// The first page drawn from the core's SelectionPage: series, group and part boxes, the
// capacities, the pictures, the clock panel in its tab, the ParameterList, Next and Load.
class SelectionPageView : public QWidget {
  Q_OBJECT
 public:
  explicit SelectionPageView(SelectionPage& page, QWidget* parent = nullptr);

  // Sets every widget from the page's state.
  void Redraw();

  QComboBox* SeriesBox() const { return series_; }
  QComboBox* GroupBox() const { return group_; }
  QComboBox* PartBox() const { return part_; }
  QLabel* CapacityValue(int row) const { return values_[row]; }
  QLabel* CapacityLabel(int row) const { return labels_[row]; }
  QLabel* GroupPictureLabel() const { return picture_; }
  QTabWidget* ClockTabs() const { return tabs_; }
  PanelView* ClockView() const { return clockView_; }
  ParameterListView* ParameterListWidget() const { return list_; }
  QPushButton* NextButton() const { return next_; }
  QPushButton* LoadButton() const { return load_; }

  std::function<void()> onNext;
  std::function<void()> onLoad;

 private:
  void MoveFocus();

  SelectionPage& page_;
  QComboBox* series_;
  QComboBox* group_;
  QComboBox* part_;
  QLabel* labels_[3];
  QLabel* values_[3];
  QLabel* picture_;
  int shownPicture_ = -1;
  int boundGroup_ = -2;
  QTabWidget* tabs_;
  PanelView* clockView_;
  ParameterListView* list_;
  QPushButton* next_;
  QPushButton* load_;
};

}  // namespace tessara

#endif  // TESSARA_GUI_SELECTION_PAGE_VIEW_H_
