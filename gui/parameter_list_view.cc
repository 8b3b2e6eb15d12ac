#include "parameter_list_view.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include "qt_text.h"

namespace tessara {

QColor ToQColor(ListColour colour) {
  return QColor(static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
                static_cast<int>((colour >> 16) & 0xFF));
}

namespace {

// Paints a cell in the colours that the core's rule picks for its row; the toolkit's
// own selection colours play no part.
class RowColourDelegate : public QStyledItemDelegate {
 public:
  explicit RowColourDelegate(ParameterListView* view) : QStyledItemDelegate(view), view_(view) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    ParameterList* list = view_->List();
    if (list == nullptr) return QStyledItemDelegate::paint(painter, option, index);
    CellColours colours = list->PaintCell(index.row());
    QStyleOptionViewItem plain = option;
    plain.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
    plain.palette.setColor(QPalette::Text, ToQColor(colours.text));
    painter->fillRect(option.rect, ToQColor(colours.background));
    QStyledItemDelegate::paint(painter, plain, index);
  }

 private:
  ParameterListView* view_;
};

}  // namespace

ParameterListView::ParameterListView(QWidget* parent) : QTableWidget(0, 2, parent) {
  setHorizontalHeaderLabels({"Parameter", "Comment"});
  setColumnWidth(0, kParameterWidth);
  setColumnWidth(1, kCommentWidth);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
  setShowGrid(true);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setWordWrap(false);
  setItemDelegate(new RowColourDelegate(this));
  // Column backgrounds are white whatever the colour keys say.
  QPalette colours = palette();
  colours.setColor(QPalette::Base, ToQColor(kColumnBackground));
  setPalette(colours);
}

void ParameterListView::Redraw() {
  if (list_ == nullptr) return;
  const auto& rows = list_->Rows();
  setRowCount(static_cast<int>(rows.size()));
  for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
    const ParameterList::Row& row = rows[static_cast<std::size_t>(r)];
    for (int c = 0; c < 2; ++c) {
      QString text = ToQt(c == 0 ? row.parameter : row.comment);
      QTableWidgetItem* cell = item(r, c);
      if (cell == nullptr) {
        setItem(r, c, new QTableWidgetItem(text));
      } else if (cell->text() != text) {
        cell->setText(text);
      }
    }
  }
  int visible = list_->VisibleRow();
  if (visible >= 0 && visible < rowCount()) scrollToItem(item(visible, 0));
  viewport()->update();
}

void ParameterListView::mousePressEvent(QMouseEvent* event) {
  if (list_ != nullptr) {
    list_->Click(rowAt(event->position().toPoint().y()));
    viewport()->update();
  }
  QTableWidget::mousePressEvent(event);
}

void ParameterListView::focusOutEvent(QFocusEvent* event) {
  if (list_ != nullptr) {
    list_->LoseFocus();
    viewport()->update();
  }
  QTableWidget::focusOutEvent(event);
}

}  // namespace tessara
