#include "extra_settings_popup.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QSignalBlocker>
#include <algorithm>

#include "panels/framework/extra_settings_panel.h"
#include "qt_text.h"

namespace tessara {

namespace {

constexpr int kUsualWidth = 240;
constexpr int kMargin = 8;
constexpr int kLabelGap = 6;
constexpr int kRowSpacing = 4;
constexpr int kCheckSpacing = 2;
constexpr int kNarrowestCombo = 80;

bool Shown(const QWidget* widget) { return !widget->isHidden(); }

QStringList ItemsOf(const ExtraControl& control) {
  QStringList items;
  for (const std::string& item : control.items) items << ToQt(item);
  return items;
}

QStringList ItemsOf(const QComboBox* box) {
  QStringList items;
  for (int i = 0; i < box->count(); ++i) items << box->itemText(i);
  return items;
}

}  // namespace

ExtraSettingsPopup::ExtraSettingsPopup(QWidget* owner) : SlidePopup(owner) {
  setObjectName("ExtraSettingsPopup");
  for (int k = 1; k <= kComboBoxes; ++k) {
    QLabel* label = new QLabel(this);
    QComboBox* combo = new QComboBox(this);
    label->setObjectName(QString("extraLabel%1").arg(k));
    combo->setObjectName(QString("extraCombo%1").arg(k));
    label->setBuddy(combo);
    combo->installEventFilter(this);
    connect(combo, &QComboBox::activated, this, [this, k](int index) {
      if (onComboChosen) onComboChosen(k, index);
    });
    labels_[static_cast<std::size_t>(k - 1)] = label;
    combos_[static_cast<std::size_t>(k - 1)] = combo;
  }
  for (int k = 1; k <= kCheckBoxes; ++k) {
    QCheckBox* check = new QCheckBox(this);
    check->setObjectName(QString("extraCheck%1").arg(k));
    check->installEventFilter(this);
    connect(check, &QCheckBox::clicked, this, [this, k](bool checked) {
      if (onCheckBoxClicked) onCheckBoxClicked(k, checked);
    });
    checks_[static_cast<std::size_t>(k - 1)] = check;
  }
  installEventFilter(this);
  ArrangeControls();
  resize(width(), OwnerFrame().height() + HeightChange);
  Redock();
  // Whatever is shown first when the window comes up gets the focus, as the toolkit's own
  // Tab gives it.
  QCoreApplication::postEvent(this, new QKeyEvent(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier));
}

QComboBox* ExtraSettingsPopup::ComboBox(int k) const { return combos_.at(static_cast<std::size_t>(k - 1)); }

QLabel* ExtraSettingsPopup::ComboLabel(int k) const { return labels_.at(static_cast<std::size_t>(k - 1)); }

QCheckBox* ExtraSettingsPopup::CheckBox(int k) const { return checks_.at(static_cast<std::size_t>(k - 1)); }

QWidget* ExtraSettingsPopup::ControlWidget(int number) const {
  if (number >= 1 && number <= kComboBoxes) return ComboBox(number);
  if (number > kComboBoxes && number <= kComboBoxes + kCheckBoxes) return CheckBox(number - kComboBoxes);
  return nullptr;
}

void ExtraSettingsPopup::Draw(const ExtraSettingsPanel& model) {
  for (int k = 1; k <= kComboBoxes; ++k) {
    const ExtraControl& control = model.Combo(k);
    QComboBox* combo = ComboBox(k);
    QSignalBlocker block(combo);
    const QStringList items = ItemsOf(control);
    // Filling a box anew would close its open list under the user's pointer.
    if (ItemsOf(combo) != items) {
      combo->clear();
      combo->addItems(items);
    }
    combo->setCurrentIndex(control.selection);
    ComboLabel(k)->setText(ToQt(control.label));
    combo->setVisible(control.visible);
    ComboLabel(k)->setVisible(control.visible);
  }
  for (int k = 1; k <= kCheckBoxes; ++k) {
    const ExtraControl& control = model.Check(k);
    QCheckBox* check = CheckBox(k);
    QSignalBlocker block(check);
    check->setText(ToQt(control.label));
    check->setChecked(control.checked);
    check->setVisible(control.visible);
  }
  // The core gives shown controls their places in order, closed up; the widgets that are
  // not hidden take them in the same order.
  ArrangeControls();
}

void ExtraSettingsPopup::ArrangeControls() {
  int labelWidth = 0;
  int comboWidth = kNarrowestCombo;
  int checkWidth = 0;
  for (int i = 0; i < kComboBoxes; ++i) {
    if (!Shown(combos_[i])) continue;
    labelWidth = std::max(labelWidth, labels_[i]->sizeHint().width());
    comboWidth = std::max(comboWidth, combos_[i]->sizeHint().width());
  }
  for (QCheckBox* check : checks_) {
    if (Shown(check)) checkWidth = std::max(checkWidth, check->sizeHint().width());
  }
  const int popupWidth = std::max({kUsualWidth, 2 * kMargin + labelWidth + kLabelGap + comboWidth,
                                   2 * kMargin + checkWidth});
  const int fieldLeft = kMargin + labelWidth + kLabelGap;

  int y = kMargin;
  for (int i = 0; i < kComboBoxes; ++i) {
    if (!Shown(combos_[i])) continue;
    const int comboHeight = combos_[i]->sizeHint().height();
    labels_[i]->setGeometry(kMargin, y, labelWidth, comboHeight);
    combos_[i]->setGeometry(fieldLeft, y, popupWidth - kMargin - fieldLeft, comboHeight);
    y += comboHeight + kRowSpacing;
  }
  // An even step between the shown check boxes, however many are hidden in between.
  const int checkHeight = checks_[0]->sizeHint().height();
  for (QCheckBox* check : checks_) {
    if (!Shown(check)) continue;
    check->setGeometry(kMargin, y, popupWidth - 2 * kMargin, checkHeight);
    y += checkHeight + kCheckSpacing;
  }
  const int contentHeight = y + kMargin;
  setMinimumSize(popupWidth, contentHeight);
  resize(popupWidth, std::max(height(), contentHeight));
}

void ExtraSettingsPopup::FocusControl(QWidget* control) {
  if (isVisible()) activateWindow();
  control->setFocus(Qt::TabFocusReason);
}

bool ExtraSettingsPopup::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && (watched == this || CheckBoxNumber(watched) > 0 ||
                                            std::find(combos_.begin(), combos_.end(), watched) != combos_.end())) {
    if (KeyDown(watched, static_cast<const QKeyEvent&>(*event))) return true;
  }
  return SlidePopup::eventFilter(watched, event);
}

bool ExtraSettingsPopup::KeyDown(QObject* target, const QKeyEvent& key) {
  const int box = CheckBoxNumber(target);
  switch (key.key()) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return true;
    case Qt::Key_Control:
      if (onControlKey) onControlKey();
      return true;
    // The Tab key moves on from a check box with Shift held too: Shift is no part of the
    // ring's rule.
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      if (box == 0) return false;
      if (box < kCheckBoxes && IsShown(box + 1)) {
        FocusControl(CheckBox(box + 1));
      } else if (Shown(ComboBox(1))) {
        FocusControl(ComboBox(1));
      } else {
        FocusControl(CheckBox(1));
      }
      return true;
    case Qt::Key_Left:
    case Qt::Key_Up:
      if (box == 0) return false;
      FocusControl(CheckBox(box >= 3 ? box - 1 : 1));
      return true;
    case Qt::Key_Right:
    case Qt::Key_Down:
      if (box == 0) return false;
      if (box < kCheckBoxes && IsShown(box + 1)) FocusControl(CheckBox(box + 1));
      return true;
    default:
      return false;
  }
}

int ExtraSettingsPopup::CheckBoxNumber(const QObject* widget) const {
  auto found = std::find(checks_.begin(), checks_.end(), widget);
  return found == checks_.end() ? 0 : static_cast<int>(found - checks_.begin()) + 1;
}

bool ExtraSettingsPopup::IsShown(int checkBox) const { return Shown(CheckBox(checkBox)); }

}  // namespace tessara
