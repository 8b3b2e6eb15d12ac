#include "peripheral_page_view.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabBar>
#include <QVBoxLayout>

#include "extra_settings_popup.h"
#include "key_filter.h"
#include "pages/clock_summary.h"
#include "pages/peripheral_page.h"
#include "panel_view.h"
#include "parameter_list_view.h"
#include "qt_text.h"

namespace tessara {

PeripheralPageView::PeripheralPageView(PeripheralPage& page, QWidget* parent)
    : QWidget(parent), page_(page) {
  list_ = new QListWidget(this);
  list_->setMaximumWidth(180);
  tabs_ = new QTabBar(this);
  tabs_->setExpanding(false);
  tabs_->setUsesScrollButtons(true);
  panelView_ = new PanelView(this);
  parameters_ = new ParameterListView(this);
  parameters_->Bind(&page_.List());
  for (int line = 0; line < 5; ++line) {
    summary_[line] = new QLabel(this);
    summary_[line]->setObjectName(QString("summary%1").arg(line));
  }
  generate_ = new QPushButton("&Generate", this);
  back_ = new QPushButton("&Back", this);
  save_ = new QPushButton("&Save", this);
  generate_->setDefault(true);

  const PeripheralPage::PageTooltips& tips = page_.Tooltips();
  list_->setToolTip(ToQt(tips.list));
  parameters_->setToolTip(ToQt(tips.parameterList));
  back_->setToolTip(ToQt(tips.back));
  generate_->setToolTip(ToQt(tips.generate));

  auto* panelArea = new QVBoxLayout;
  panelArea->setSpacing(0);
  panelArea->addWidget(tabs_);
  panelArea->addWidget(panelView_, 1);
  auto* top = new QHBoxLayout;
  top->addWidget(list_);
  top->addLayout(panelArea, 1);

  // The second line and its alternate lie at the same place; only one is shown.
  auto* summary = new QGridLayout;
  summary->addWidget(summary_[0], 0, 0);
  summary->addWidget(summary_[1], 1, 0);
  summary->addWidget(summary_[2], 1, 0);
  summary->addWidget(summary_[3], 0, 1);
  summary->addWidget(summary_[4], 1, 1);
  summary->setColumnStretch(2, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addLayout(summary, 1);
  buttons->addWidget(back_);
  buttons->addWidget(save_);
  buttons->addWidget(generate_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top, 3);
  layout->addWidget(parameters_, 2);
  layout->addLayout(buttons);

  connect(list_, &QListWidget::currentRowChanged, this, [this](int row) { SelectRow(row); });
  connect(tabs_, &QTabBar::tabBarClicked, this, [this](int tab) {
    if (tab >= 0) list_->setCurrentRow(tab);
  });
  connect(generate_, &QPushButton::clicked, this, [this] {
    if (onGenerate) onGenerate();
  });
  connect(back_, &QPushButton::clicked, this, [this] {
    if (onBack) onBack();
  });
  connect(save_, &QPushButton::clicked, this, [this] {
    if (onSave) onSave();
  });
  panelView_->onChanged = [this] { parameters_->Redraw(); };
  new KeyFilter(this, [this] { ControlKey(); });
  page_.SetExtraSettingsPresenter(this);
}

PeripheralPageView::~PeripheralPageView() {
  page_.SetExtraSettingsPresenter(nullptr);
  delete drawer_;
}

void PeripheralPageView::Reset(const ClockSummary& summary) {
  {
    QSignalBlocker blockList(list_);
    QSignalBlocker blockTabs(tabs_);
    list_->clear();
    while (tabs_->count() > 0) tabs_->removeTab(0);
    for (const std::string& item : page_.ListItems()) {
      list_->addItem(ToQt(item));
      tabs_->addTab(ToQt(item));
    }
  }
  // An empty tab bar had no height; it takes one now that it holds the tabs.
  tabs_->setMinimumHeight(tabs_->count() > 0 ? tabs_->sizeHint().height() : 0);
  const std::string* texts[] = {&summary.first, &summary.second, &summary.alternate, &summary.third,
                                &summary.fourth};
  for (int line = 0; line < 5; ++line) summary_[line]->setText(ToQt(*texts[line]));
  summary_[1]->setVisible(!summary.secondHidden);
  summary_[2]->setVisible(!summary.alternateHidden && !summary.alternate.empty());
  Redraw();
}

void PeripheralPageView::FollowPopup() {
  ExtraSettingsPanel* popup = page_.Popup();
  if (popup == nullptr) {
    delete drawer_;
    return;
  }
  if (drawer_ != nullptr) return;
  drawer_ = new ExtraSettingsPopup(this);
  drawer_->onControlKey = [this] { FocusGenerate(); };
  drawer_->onComboChosen = [this](int k, int index) {
    ExtraSettingsPanel* model = page_.Popup();
    if (model != nullptr && model->ChooseComboItem(k, index)) {
      AfterPopupAction(k);
    } else {
      ControlsChanged();  // the core refused: the box shows what it holds
    }
  };
  drawer_->onCheckBoxClicked = [this](int k, bool checked) {
    ExtraSettingsPanel* model = page_.Popup();
    if (model != nullptr && model->SetCheckBox(k, checked)) {
      AfterPopupAction(ExtraSettingsPanel::kComboBoxes + k);
    } else {
      ControlsChanged();
    }
  };
  drawer_->Draw(*popup);
}

void PeripheralPageView::AfterPopupAction(int number) {
  // The panel shown has taken the side setting into its rows.
  parameters_->Redraw();
  if (drawer_ != nullptr) {
    if (QWidget* control = drawer_->ControlWidget(number)) control->setFocus(Qt::OtherFocusReason);
  }
}

void PeripheralPageView::SlideOut() {
  FollowPopup();
  if (drawer_ != nullptr) drawer_->SlideOut();
}

void PeripheralPageView::SlideBack() {
  if (drawer_ != nullptr) drawer_->SlideBack();
}

void PeripheralPageView::ControlsChanged() {
  FollowPopup();
  if (drawer_ != nullptr && page_.Popup() != nullptr) drawer_->Draw(*page_.Popup());
}

void PeripheralPageView::SelectRow(int row) {
  if (row < 0) return;
  page_.Select(row);
  Redraw();
}

void PeripheralPageView::Redraw() {
  {
    QSignalBlocker blockList(list_);
    QSignalBlocker blockTabs(tabs_);
    list_->setCurrentRow(page_.ListPosition());
    tabs_->setCurrentIndex(page_.ListPosition());
  }
  // A row without a panel leaves the panel shown before in view.
  if (panelView_->Panel() != page_.ShownPanel()) {
    panelView_->Bind(page_.ShownPanel());
  } else {
    panelView_->Redraw();
  }
  parameters_->Redraw();
  FollowPopup();
}

void PeripheralPageView::ControlKey() {
  // Inside the panel the key goes on to the drawer when it is out, else back to the
  // list; elsewhere into the panel.
  QWidget* focus = focusWidget();
  if (focus != nullptr && panelView_->isAncestorOf(focus)) {
    const ExtraSettingsPanel* popup = page_.Popup();
    if (drawer_ != nullptr && drawer_->isVisible() && popup != nullptr) {
      if (QWidget* first = drawer_->ControlWidget(popup->FirstShownControl())) {
        drawer_->FocusControl(first);
        return;
      }
    }
    list_->setFocus();
  } else {
    panelView_->FocusCheckedOption();
  }
}

void PeripheralPageView::FocusGenerate() {
  window()->activateWindow();
  generate_->setFocus(Qt::OtherFocusReason);
}

}  // namespace tessara
