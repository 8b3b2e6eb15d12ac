#include "panel_view.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTimer>

#include "panels/framework/peripheral_panel.h"
#include "qt_text.h"

namespace tessara {

namespace {

constexpr int kPanelColumns = 2;

// Options two by two, so that groups of three, four or eight stay narrow.
constexpr int kOptionsPerRow = 2;

QStringList ItemsOf(const ControlModel& model) {
  QStringList items;
  for (const std::string& item : model.items) items << ToQt(item);
  return items;
}

QStringList ItemsOf(const QComboBox* box) {
  QStringList items;
  for (int i = 0; i < box->count(); ++i) items << box->itemText(i);
  return items;
}

void SetItems(QComboBox* box, const ControlModel& model) {
  QStringList items = ItemsOf(model);
  if (ItemsOf(box) != items) {
    box->clear();
    box->addItems(items);
  }
  if (box->currentIndex() != model.selection) box->setCurrentIndex(model.selection);
}

}  // namespace

void FieldBox::hidePopup() {
  QComboBox::hidePopup();
  // The list reports its choice after it closed; the close-up comes behind it.
  QMetaObject::invokeMethod(this, &FieldBox::dropDownClosed, Qt::QueuedConnection);
}

PanelView::PanelView(QWidget* parent) : QScrollArea(parent) {
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  Bind(nullptr);
}

void PanelView::Bind(PeripheralPanel* panel) {
  panel_ = panel;
  widgets_.clear();
  content_ = new QWidget;
  auto* grid = new QGridLayout(content_);
  grid->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  setWidget(content_);  // deletes the widgets of the panel shown before
  if (panel_ == nullptr) return;
  widgets_.resize(panel_->Controls().size());
  for (int i = 0; i < static_cast<int>(panel_->Controls().size()); ++i) BuildControl(i);
  grid->setRowStretch(static_cast<int>(widgets_.size() + 1) / kPanelColumns, 1);
  ApplyTooltips();
  Redraw();
}

void PanelView::BuildControl(int index) {
  const Control& control = panel_->Controls()[static_cast<std::size_t>(index)];
  const std::string key = control.key;
  ControlWidgets& widgets = widgets_[static_cast<std::size_t>(index)];
  widgets.frame = new QGroupBox(content_);
  widgets.frame->setObjectName(ToQt(key));
  auto* grid = static_cast<QGridLayout*>(content_->layout());
  grid->addWidget(widgets.frame, index / kPanelColumns, index % kPanelColumns);
  auto* layout = new QGridLayout(widgets.frame);

  for (int part = 0; part < static_cast<int>(control.parts.size()); ++part) {
    QWidget* widget = nullptr;
    switch (control.kind) {
      case ControlKind::kRadioGroup: {
        auto* option = new QRadioButton(widgets.frame);
        // The model decides which option is checked, also whether none is.
        option->setAutoExclusive(false);
        connect(option, &QRadioButton::clicked, this, [this, key, part] {
          panel_->ChooseOption(key, part);
          AfterAction();
        });
        layout->addWidget(option, part / kOptionsPerRow, part % kOptionsPerRow);
        widget = option;
        break;
      }
      case ControlKind::kCombobox: {
        auto* box = new QComboBox(widgets.frame);
        box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        connect(box, &QComboBox::activated, this, [this, key](int item) {
          panel_->ChooseItem(key, item);
          AfterAction();
        });
        layout->addWidget(box, part, 0);
        widget = box;
        break;
      }
      case ControlKind::kComboEditbox: {
        auto* box = new FieldBox(widgets.frame);
        box->setEditable(true);
        box->setInsertPolicy(QComboBox::NoInsert);
        box->setMinimumContentsLength(10);
        connect(box, &QComboBox::activated, this, [this, key, part](int item) {
          panel_->ChooseItem(key, item, part);
          AfterAction();
        });
        connect(box->lineEdit(), &QLineEdit::textEdited, this, [this, key, part](const QString& text) {
          panel_->EditFieldText(key, part, FromQt(text));
          AfterAction();
        });
        connect(box, &FieldBox::dropDownClosed, this, [this, key, part] {
          if (panel_ == nullptr) return;
          panel_->CloseDropDown(key, part);
          AfterAction();
        });
        auto* unit = new QLabel(widgets.frame);
        widgets.units.push_back(unit);
        layout->addWidget(box, part, 0);
        layout->addWidget(unit, part, 1);
        widget = box;
        break;
      }
      case ControlKind::kCheckbox: {
        auto* box = new QCheckBox(widgets.frame);
        connect(box, &QCheckBox::clicked, this, [this, key, part](bool checked) {
          panel_->ToggleCheckbox(key, part, checked);
          AfterAction();
        });
        layout->addWidget(box, part / kOptionsPerRow, part % kOptionsPerRow);
        widget = box;
        break;
      }
      case ControlKind::kLabel: {
        auto* label = new QLabel(widgets.frame);
        label->setWordWrap(true);
        layout->addWidget(label, part, 0);
        widget = label;
        break;
      }
    }
    widget->setObjectName(ToQt(key + ":" + std::to_string(part + 1)));
    widgets.parts.push_back(widget);
  }
}

void PanelView::ApplyTooltips() {
  const TooltipSet& tips = panel_->Tooltips();
  if (!tips.active) return;
  for (const TooltipBinding& binding : tips.bindings) {
    if (binding.control < 0 || binding.control >= static_cast<int>(widgets_.size())) continue;
    ControlWidgets& widgets = widgets_[static_cast<std::size_t>(binding.control)];
    QString text = ToQt(binding.text);
    for (int part = 0; part < static_cast<int>(widgets.parts.size()); ++part) {
      if (binding.part < 0 || binding.part == part) widgets.parts[static_cast<std::size_t>(part)]->setToolTip(text);
    }
  }
}

void PanelView::Redraw() {
  if (panel_ == nullptr) return;
  const auto& controls = panel_->Controls();
  for (std::size_t i = 0; i < controls.size() && i < widgets_.size(); ++i) {
    const Control& control = controls[i];
    ControlWidgets& widgets = widgets_[i];
    bool anyVisible = false;
    for (const ControlModel& part : control.parts) anyVisible = anyVisible || part.visible;
    widgets.frame->setTitle(ToQt(control.Caption()));
    widgets.frame->setVisible(control.frame.visible && anyVisible);
    widgets.frame->setEnabled(control.frame.enabled);
    for (std::size_t p = 0; p < control.parts.size() && p < widgets.parts.size(); ++p) {
      const ControlModel& model = control.parts[p];
      QWidget* widget = widgets.parts[p];
      QSignalBlocker block(widget);
      widget->setVisible(model.visible);
      widget->setEnabled(model.enabled);
      switch (control.kind) {
        case ControlKind::kRadioGroup:
        case ControlKind::kCheckbox: {
          auto* button = static_cast<QAbstractButton*>(widget);
          button->setText(ToQt(model.text));
          button->setChecked(model.checked);
          break;
        }
        case ControlKind::kCombobox:
          SetItems(static_cast<QComboBox*>(widget), model);
          break;
        case ControlKind::kComboEditbox: {
          auto* box = static_cast<QComboBox*>(widget);
          SetItems(box, model);
          QString text = ToQt(model.text);
          // Keep the caret where the user types: only a different text is put in.
          if (box->currentText() != text) box->setEditText(text);
          if (p < widgets.units.size()) {
            // A pair of fields has a text of its own beside each field.
            const bool pair = control.parts.size() > 1 && control.texts.size() > 1 + p;
            widgets.units[p]->setText(ToQt(pair ? control.texts[1 + p] : control.unitText));
            widgets.units[p]->setVisible(model.visible);
            widgets.units[p]->setEnabled(model.enabled);
          }
          break;
        }
        case ControlKind::kLabel:
          static_cast<QLabel*>(widget)->setText(ToQt(model.text));
          break;
      }
    }
  }
}

void PanelView::AfterAction() {
  Redraw();
  if (onChanged) onChanged();
}

QWidget* PanelView::PartWidget(const std::string& key, int part) const {
  if (panel_ == nullptr) return nullptr;
  int index = panel_->ControlIndex(key);
  if (index < 0 || index >= static_cast<int>(widgets_.size())) return nullptr;
  const auto& parts = widgets_[static_cast<std::size_t>(index)].parts;
  if (part < 0 || part >= static_cast<int>(parts.size())) return nullptr;
  return parts[static_cast<std::size_t>(part)];
}

QGroupBox* PanelView::Frame(const std::string& key) const {
  if (panel_ == nullptr) return nullptr;
  int index = panel_->ControlIndex(key);
  if (index < 0 || index >= static_cast<int>(widgets_.size())) return nullptr;
  return widgets_[static_cast<std::size_t>(index)].frame;
}

bool PanelView::FocusCheckedOption(const std::string& key) {
  if (panel_ == nullptr) return false;
  for (const Control& control : panel_->Controls()) {
    if (control.kind != ControlKind::kRadioGroup) continue;
    if (!key.empty() && control.key != key) continue;
    int checked = control.CheckedPart();
    if (checked < 0) continue;
    QWidget* option = PartWidget(control.key, checked);
    if (option == nullptr) continue;
    option->setFocus(Qt::OtherFocusReason);
    return true;
  }
  return false;
}

}  // namespace tessara
