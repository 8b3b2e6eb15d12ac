#ifndef TESSARA_PANELS_FRAMEWORK_EXTRA_SETTINGS_PANEL_H_
#define TESSARA_PANELS_FRAMEWORK_EXTRA_SETTINGS_PANEL_H_

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "panels/framework/panel_context.h"

namespace tessara {

// One row of the page's ExtraSettingsState: slot k (1 to 4) holds the index chosen in
// combo box k, slot 4 + k (k 1 to 16) the state of check box k; the others stay unused.
inline constexpr int kExtraSettingsSlots = 30;
using ExtraSettingsRow = std::array<int, kExtraSettingsSlots>;

// The cells of an ExtraSetting_ line: behind the first "=", at most 50 cells of 79
// characters. Cell 0 is name=label.
std::vector<std::string> ExtraSettingCells(std::string_view line);

// What the front-end does with the popup. The model calls it; a front-end without a
// drawer (the CLI) has none.
class ExtraSettingsPresenter {
 public:
  virtual ~ExtraSettingsPresenter() = default;
  // The drawer comes out from behind the page's right edge and stays beside it.
  virtual void SlideOut() = 0;
  // The drawer goes back behind the page and is hidden.
  virtual void SlideBack() = 0;
  // Texts, items, selections, check marks, visibility or places changed: redraw them.
  virtual void ControlsChanged() = 0;
};

// One control of the popup as the front-end draws it.
struct ExtraControl {
  bool visible = false;
  // Combo box: the label to its left. Check box: its own text.
  std::string label;
  std::vector<std::string> items;  // combo box only
  int selection = -1;              // combo box only; -1 for none
  bool checked = false;            // check box only
  // Place in the closed-up layout, -1 while hidden. Shown combo boxes take places 0, 1,
  // ... from the top; shown check boxes take places 0, 1, ... in the area below the
  // shown combo boxes, with an even step. So a hidden combo box lifts every check box
  // by its height, and a hidden check box leaves no gap.
  int place = -1;
};

// The side-settings popup of the peripheral page: four combo boxes with a label each
// and sixteen check boxes that show, beside the page, the side settings (interrupt
// priorities and the like) of the peripheral selected in the list. Its state lives in
// the page's ExtraSettingsState, one row per list position; the panels read the
// controls in their refresh and turn them into rows of their own.
//
// Controls are numbered as FocusedControl counts them: 1 to 4 the combo boxes, 5 to 20
// check box k - 4.
class ExtraSettingsPanel : public ExtraSettingsView {
 public:
  static constexpr int kComboBoxes = 4;
  static constexpr int kCheckBoxes = 16;
  static constexpr int kControls = kComboBoxes + kCheckBoxes;
  static constexpr int kComboItems = 8;  // items a combo box's line can give
  // Words that mark a line as belonging to a mode of a serial panel: such a line shows
  // only while that panel asks for it by name.
  static constexpr std::array<const char*, 4> kFilterWords = {"SSU", "IIC", "SIO", "I2C"};

  ExtraSettingsPanel();

  // --- What the page sets.
  // The peripheral that is selected: the section lines of its configuration (empty for
  // none) and its row of ExtraSettingsState (null for none). The texts the lines view and
  // the row must outlive their use.
  void SetPeripheral(std::vector<std::string_view> sectionLines, ExtraSettingsRow* stateRow);
  // Sets the controls from the state row: combo box k selects slot k, check box k takes
  // slot 4 + k. The combo boxes still hold the items of the peripheral before, so an index
  // is taken as it stands if a box could hold it (0 to 7); SetupExtraSettings then
  // selects nothing where the peripheral's box lacks the item.
  void SetControlsFromState();
  void SetPresenter(ExtraSettingsPresenter* presenter) { presenter_ = presenter; }
  // Called for each ExtraSetting_ line that SetupExtraSettings finds: the page sets its
  // HasExtraSettings.
  std::function<void()> extraSettingFound;
  // Called after a user's action on control `number` set the control: the page stores
  // the state and refreshes the panel shown.
  std::function<void(int number)> controlChanged;

  // --- ExtraSettingsView.
  int ComboSelection(int k) const override;
  int CheckState(int k) const override;
  int FocusedControl() const override { return focusedControl_; }
  // m = 1 selects the stored indices and slides the popup out; m = 0 forgets the stored
  // side settings (combo slots to 0, check slots to 0, check boxes cleared) and slides
  // it back. Nothing happens when m is the mode already; m = -1 only asks. Returns the
  // mode.
  int SetPopupMode(int mode) override;
  // Fills and shows the controls for the current peripheral. With an empty filter a line
  // applies unless its name holds one of kFilterWords; with a filter, also a line whose
  // name holds the filter. When nothing is shown the popup goes to mode 0 and slides
  // back, without forgetting the stored side settings.
  void SetupExtraSettings(const std::string& filter) override;

  void SetFocusedControl(int number) { focusedControl_ = number; }
  int PopupMode() const { return popupMode_; }

  // --- User actions, as the front-end reports them. Each sets the control and runs
  // controlChanged; an action on a hidden control, a control out of range or an item the
  // box lacks does nothing and gives false.
  bool ChooseComboItem(int k, int index);
  bool SetCheckBox(int k, bool checked);

  // --- What the front-end draws.
  const ExtraControl& Combo(int k) const;  // k 1 to 4
  const ExtraControl& Check(int k) const;  // k 1 to 16
  const ExtraControl& Control(int number) const;  // number 1 to 20
  int ShownComboCount() const;
  // The control that the Control key moves the focus to: the first shown combo box, else
  // the first shown check box; -1 when none is shown.
  int FirstShownControl() const;

 private:
  ExtraControl& MutableControl(int number);
  void CloseUpLayout();
  void ControlsChanged() const;

  std::array<ExtraControl, kControls> controls_;
  std::vector<std::string_view> sectionLines_;
  ExtraSettingsRow* stateRow_ = nullptr;
  ExtraSettingsPresenter* presenter_ = nullptr;
  int popupMode_ = 0;
  int focusedControl_ = -1;
};

}  // namespace tessara

#endif  // TESSARA_PANELS_FRAMEWORK_EXTRA_SETTINGS_PANEL_H_
