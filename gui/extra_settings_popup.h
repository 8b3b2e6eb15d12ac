#ifndef TESSARA_GUI_EXTRA_SETTINGS_POPUP_H_
#define TESSARA_GUI_EXTRA_SETTINGS_POPUP_H_

#include <array>
#include <functional>

#include "slide_popup.h"

class QCheckBox;
class QComboBox;
class QKeyEvent;
class QLabel;

namespace tessara {

class ExtraSettingsPanel;

// The drawer of side settings beside the peripheral page: four combo boxes, each with
// its label to the left, and sixteen check boxes below them. Shown controls close up:
// the combo boxes from the top, the check boxes below the last shown combo box with an
// even step.
//
// Its keys are taken ahead of its controls. Return and Escape do nothing; the Control
// key hands the focus on (to the page's Generate button). On the check boxes Tab closes
// a ring over the visible controls, while the arrow keys stop at the ends.
class ExtraSettingsPopup : public SlidePopup {
  Q_OBJECT
 public:
  static constexpr int kComboBoxes = 4;
  static constexpr int kCheckBoxes = 16;

  // Built hidden beside the window of `owner`. It posts itself one Tab, which puts its
  // focus on the first control that is shown when the Tab arrives.
  explicit ExtraSettingsPopup(QWidget* owner);

  // Combo box k and its label (k 1 to 4), check box k (k 1 to 16).
  QComboBox* ComboBox(int k) const;
  QLabel* ComboLabel(int k) const;
  QCheckBox* CheckBox(int k) const;

  // The control that the core numbers `number`: 1 to 4 combo box k, 5 to 20 check box
  // number - 4. Null outside.
  QWidget* ControlWidget(int number) const;

  // Sets every control from the core's popup: shown or hidden, label, items, selection,
  // check mark; then places them.
  void Draw(const ExtraSettingsPanel& model);

  // Places the controls that are not hidden, closed up, and sizes the popup to hold
  // them: never narrower than its usual width, never lower than its content.
  void ArrangeControls();

  // Moves the keyboard focus to `control`, one of the popup's, making the popup the
  // active window when it is shown.
  void FocusControl(QWidget* control);

  // The Control key was pressed inside the popup.
  std::function<void()> onControlKey;
  // The user chose item `index` of combo box k, or clicked check box k.
  std::function<void(int k, int index)> onComboChosen;
  std::function<void(int k, bool checked)> onCheckBoxClicked;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // The popup's own reaction to a key going down on `target`; false leaves the key to
  // the toolkit.
  bool KeyDown(QObject* target, const QKeyEvent& key);
  // 1 to 16 when `widget` is that check box, else 0.
  int CheckBoxNumber(const QObject* widget) const;
  bool IsShown(int checkBox) const;

  std::array<QLabel*, kComboBoxes> labels_{};
  std::array<QComboBox*, kComboBoxes> combos_{};
  std::array<QCheckBox*, kCheckBoxes> checks_{};
};

}  // namespace tessara

#endif  // TESSARA_GUI_EXTRA_SETTINGS_POPUP_H_
