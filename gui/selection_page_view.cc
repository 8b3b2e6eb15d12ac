#include "selection_page_view.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QVBoxLayout>

#include "key_filter.h"
#include "pages/selection_page.h"
#include "panel_view.h"
#include "parameter_list_view.h"
#include "pictures.h"
#include "qt_text.h"

namespace tessara {

namespace {

void FillBox(QComboBox* box, const ControlModel& model) {
  QSignalBlocker block(box);
  QStringList items;
  for (const std::string& item : model.items) items << ToQt(item);
  QStringList shown;
  for (int i = 0; i < box->count(); ++i) shown << box->itemText(i);
  if (shown != items) {
    box->clear();
    box->addItems(items);
  }
  box->setCurrentIndex(model.selection);
}

}  // namespace

SelectionPageView::SelectionPageView(SelectionPage& page, QWidget* parent)
    : QWidget(parent), page_(page) {
  series_ = new QComboBox(this);
  group_ = new QComboBox(this);
  part_ = new QComboBox(this);
  for (QComboBox* box : {series_, group_, part_}) box->setMinimumContentsLength(16);
  auto* boxes = new QFormLayout;
  boxes->addRow("Series:", series_);
  boxes->addRow("Group:", group_);
  boxes->addRow("Part no.:", part_);

  auto* capacities = new QGridLayout;
  for (int row = 0; row < 3; ++row) {
    labels_[row] = new QLabel(this);
    values_[row] = new QLabel(this);
    values_[row]->setObjectName(QString("capacity%1").arg(row));
    capacities->addWidget(labels_[row], row, 0);
    capacities->addWidget(values_[row], row, 1);
  }
  auto* maker = new QLabel(this);
  maker->setPixmap(MakerPicture());
  picture_ = new QLabel(this);

  tabs_ = new QTabWidget(this);
  clockView_ = new PanelView(tabs_);
  list_ = new ParameterListView(this);
  list_->Bind(&page_.List());
  next_ = new QPushButton("&Next", this);
  load_ = new QPushButton("&Load", this);
  next_->setDefault(true);

  auto* top = new QHBoxLayout;
  auto* left = new QVBoxLayout;
  left->addWidget(maker);
  left->addLayout(boxes);
  left->addLayout(capacities);
  left->addStretch(1);
  top->addLayout(left);
  top->addWidget(picture_, 0, Qt::AlignTop);
  top->addWidget(tabs_, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(load_);
  buttons->addWidget(next_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top, 3);
  layout->addWidget(list_, 2);
  layout->addLayout(buttons);

  for (const PageTooltip& tip : page_.Tooltips()) {
    QWidget* widget = nullptr;
    switch (tip.control) {
      case SelectionControl::kSeriesBox: widget = series_; break;
      case SelectionControl::kGroupBox: widget = group_; break;
      case SelectionControl::kPartBox: widget = part_; break;
      case SelectionControl::kParameterList: widget = list_; break;
      case SelectionControl::kNextButton: widget = next_; break;
      case SelectionControl::kLoadButton: widget = load_; break;
    }
    widget->setToolTip(QString::fromUtf8(tip.text.data(), static_cast<qsizetype>(tip.text.size())));
  }

  connect(series_, &QComboBox::activated, this, [this](int index) {
    page_.ChooseSeries(index);
    Redraw();
  });
  connect(group_, &QComboBox::activated, this, [this](int index) {
    page_.ChooseGroup(index);
    Redraw();
  });
  connect(part_, &QComboBox::activated, this, [this](int index) {
    page_.ChoosePart(index);
    Redraw();
  });
  connect(next_, &QPushButton::clicked, this, [this] {
    if (onNext) onNext();
  });
  connect(load_, &QPushButton::clicked, this, [this] {
    if (onLoad) onLoad();
    next_->setFocus();
  });
  clockView_->onChanged = [this] { list_->Redraw(); };
  // The Control key alone goes to the checked source option of the clock panel.
  new KeyFilter(this, [this] { clockView_->FocusCheckedOption("Radiobox_1"); });
}

void SelectionPageView::Redraw() {
  FillBox(series_, page_.SeriesBox());
  FillBox(group_, page_.GroupBox());
  FillBox(part_, page_.PartBox());
  const CapacityRow* rows[] = {&page_.Rom(), &page_.Ram(), &page_.DataFlash()};
  for (int row = 0; row < 3; ++row) {
    labels_[row]->setText(ToQt(rows[row]->label));
    values_[row]->setText(ToQt(rows[row]->value));
    labels_[row]->setVisible(rows[row]->visible);
    values_[row]->setVisible(rows[row]->visible);
  }
  if (shownPicture_ != page_.GroupPicture()) {
    shownPicture_ = page_.GroupPicture();
    picture_->setPixmap(GroupPicture(shownPicture_));
  }

  // A new group reloads its clock panel: its captions, lists and tooltips are new.
  PeripheralPanel* clock = page_.ShownClockPanel();
  int group = page_.GroupBox().selection;
  if (clockView_->Panel() != clock || boundGroup_ != group) {
    clockView_->Bind(clock);
    boundGroup_ = group;
  } else {
    clockView_->Redraw();
  }
  QString tab = page_.Tabs().empty() ? QString() : ToQt(page_.Tabs().front());
  if (tabs_->count() == 0) {
    tabs_->addTab(clockView_, tab);
  } else {
    tabs_->setTabText(0, tab);
  }
  list_->Redraw();
  MoveFocus();
}

void SelectionPageView::MoveFocus() {
  if (!isVisible()) return;
  switch (page_.Focus()) {
    case SelectionControl::kSeriesBox: series_->setFocus(); break;
    case SelectionControl::kGroupBox: group_->setFocus(); break;
    case SelectionControl::kPartBox: part_->setFocus(); break;
    default: break;
  }
}

}  // namespace tessara
