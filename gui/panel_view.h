#ifndef TESSARA_GUI_PANEL_VIEW_H_
#define TESSARA_GUI_PANEL_VIEW_H_

#include <QComboBox>
#include <QScrollArea>
#include <functional>
#include <vector>

class QAbstractButton;
class QGroupBox;
class QLabel;

namespace tessara {

class PeripheralPanel;

// An editable field of a ComboEditbox that reports the closing of its drop-down list,
// as the core's "close up" handler needs.
class FieldBox : public QComboBox {
  Q_OBJECT
 public:
  using QComboBox::QComboBox;
  void hidePopup() override;
 signals:
  void dropDownClosed();
};

// Draws any panel from its controls, in control order: a group box per control with
// its option buttons, combo boxes, fields with their unit text, check boxes or label.
// Every user action goes to the panel's handler; then the view redraws all controls
// from the model and tells its owner, which redraws the ParameterList.
class PanelView : public QScrollArea {
  Q_OBJECT
 public:
  explicit PanelView(QWidget* parent = nullptr);

  // Builds the widgets of `panel` (null: an empty view).
  void Bind(PeripheralPanel* panel);
  PeripheralPanel* Panel() const { return panel_; }
  // Sets every widget from the control state.
  void Redraw();

  // The widget of part `part` of the control `key`, for focus moves and tests: an
  // option button, a combo box, a check box or a label. Null when there is none.
  QWidget* PartWidget(const std::string& key, int part = 0) const;
  QGroupBox* Frame(const std::string& key) const;
  // Moves the focus to the checked option of the RadioGroups in control order, the first
  // group with one checked; `key` limits the search to one group. False when none.
  bool FocusCheckedOption(const std::string& key = "");

  // Run after each user action, once the view is redrawn.
  std::function<void()> onChanged;

 private:
  struct ControlWidgets {
    QGroupBox* frame = nullptr;
    std::vector<QWidget*> parts;
    std::vector<QLabel*> units;
  };

  void BuildControl(int index);
  void AfterAction();
  void ApplyTooltips();

  PeripheralPanel* panel_ = nullptr;
  QWidget* content_ = nullptr;
  std::vector<ControlWidgets> widgets_;
};

}  // namespace tessara

#endif  // TESSARA_GUI_PANEL_VIEW_H_
