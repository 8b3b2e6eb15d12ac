#ifndef TESSARA_GUI_PARAMETER_LIST_VIEW_H_
#define TESSARA_GUI_PARAMETER_LIST_VIEW_H_

#include <QColor>
#include <QTableWidget>

#include "pages/parameter_list.h"

namespace tessara {

QColor ToQColor(ListColour colour);

// The two-column list under a panel: it shows the rows of the core's ParameterList and
// paints each cell in the colours the list's rule gives for the row's text. A click
// and the loss of the focus go to the core, which moves the mark.
class ParameterListView : public QTableWidget {
  Q_OBJECT
 public:
  static constexpr int kParameterWidth = 250;
  static constexpr int kCommentWidth = 460;

  explicit ParameterListView(QWidget* parent = nullptr);

  void Bind(ParameterList* list) { list_ = list; }
  ParameterList* List() const { return list_; }
  // Redraws every row from the core's list and scrolls the marked row into view.
  void Redraw();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  ParameterList* list_ = nullptr;
};

}  // namespace tessara

#endif  // TESSARA_GUI_PARAMETER_LIST_VIEW_H_
