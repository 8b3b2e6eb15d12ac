#ifndef TESSARA_PAGES_PERIPHERAL_PAGE_H_
#define TESSARA_PAGES_PERIPHERAL_PAGE_H_

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "database/peripheral_identity.h"
#include "generator/output_target.h"
#include "idelink/ide_link.h"
#include "idelink/ide_server.h"
#include "pages/parameter_list.h"
#include "panels/framework/extra_settings_panel.h"
#include "panels/framework/panel_context.h"

namespace tessara {

class Application;
class PeripheralPanel;

// The second page: the group's configurations as a list of peripherals, each served by
// a panel that is loaded at its first selection and kept until Back. The page owns
// every panel object but the two clock panels, in fixed numbers per kind.
class PeripheralPage {
 public:
  static constexpr int kSelectedMapPlaces = 50;
  static constexpr const char* kResetWarningText =
      "All peripherals settings will be reset to default.\nDo you want to continue?";

  // Built at start-up, like the first page: its list's colours come from the data file
  // of the group selected then (the first) and stay for the run.
  explicit PeripheralPage(Application& application,
                          ListColour selectedItemColour = kDefaultSelectedItemColour);
  ~PeripheralPage();
  PeripheralPage(const PeripheralPage&) = delete;
  PeripheralPage& operator=(const PeripheralPage&) = delete;

  // Opens the page for the selection the first page made. The clock links are the first
  // page's clock panels; the one the group does not use is null.
  void Open(bool openedByNext, const PeripheralPanel* clockLink, const PeripheralPanel* clock2Link);
  bool IsOpen() const { return open_; }
  // Where every panel reads SystemClockHz and LowClockHz; the owner keeps them alive.
  void SetClockValues(const ClockValues* values);

  // A user's choice of list row `row`: loads its panel at the first selection.
  void Select(int row);
  // Puts the panel of PanelList entry `row` on top; a row past the list does nothing.
  void ShowPanel(int row);

  // Back: false when the user cancelled the reset warning and the page stays open.
  bool Leave();
  // The page's window went away by other means: no warning is asked.
  void Close();

  // --- What the front-ends show.
  const std::vector<std::string>& ListItems() const { return listItems_; }
  int ListPosition() const { return listPosition_; }
  int PreviousPosition() const { return previousPosition_; }
  // The panel on top of the panel area, or null.
  PeripheralPanel* ShownPanel() const { return shownPanel_; }
  ParameterList& List() { return parameterList_; }
  const ParameterList& List() const { return parameterList_; }
  // Tooltip texts of the page's own controls.
  struct PageTooltips {
    std::string list = "List of available peripherals";
    std::string parameterList = "Display current parameters value";
    std::string back = "Click to go back MCU Clock selection";
    std::string generate = "Click to generate files";
    int initialDelay = 200;
    int autopopTime = 4000;
  };
  const PageTooltips& Tooltips() const { return tooltips_; }

  // --- What the generator, the error gate and the project files read.
  // The configuration k that list row `row` stands for.
  int ConfigurationOfRow(int row) const;
  // Panel object `instance` (from 1) of a kind, or null where the kind has none.
  PeripheralPanel* Panel(PanelKind kind, int instance = 1) const;
  // The panel that serves configuration k of the group, or null.
  PeripheralPanel* PanelOfConfiguration(int k) const;
  const std::vector<PeripheralPanel*>& PanelList() const { return panelList_; }
  const PeripheralPanel* ClockLink() const { return clockLink_; }
  const PeripheralPanel* Clock2Link() const { return clock2Link_; }

  static constexpr int kExtraSettingsRows = 65;
  using ExtraSettingsTable = std::array<ExtraSettingsRow, kExtraSettingsRows>;

  // --- The side-settings popup. It exists from the opening of the page, when the ini
  // asks for it (key ExtraSetting of section Display beginning with "1"), to Back.
  ExtraSettingsPanel* Popup() const { return popup_.get(); }
  // The front-end's drawer; every popup the page creates draws through it. Null for none.
  void SetExtraSettingsPresenter(ExtraSettingsPresenter* presenter);
  // Some ExtraSetting_ line was found for the peripheral selected; cleared at each
  // selection.
  bool HasExtraSettings() const { return hasExtraSettings_; }
  void SetHasExtraSettings(bool has);

  std::string SelectedMap = std::string(kSelectedMapPlaces, '0');
  // The popup's side settings by list position: slots 1 to 4 the combo boxes, 5 to 20
  // the check boxes.
  ExtraSettingsTable ExtraSettingsState{};
  std::string ProjectText;
  int ResetWarningOff = 0;
  bool OpenedByNext = false;
  OutputState Output;
  // The development environment's server, connected once when the page is built; null
  // when there is none.
  std::unique_ptr<IdeServer> Ide;
  ProjectDetectedDialogModel ProjectDialog;

 private:
  struct PanelSlot {
    std::unique_ptr<PeripheralPanel> panel;
    PanelContext context;
  };

  void BindPanels();
  // Selects the list positions a loaded project had opened, last to first, and takes
  // its side settings.
  void RestoreSelection();
  PanelSlot* SlotOf(PanelKind kind, int instance) const;
  void DestroyPanelWindows();
  void CreatePopup();
  void DestroyPopup();
  // A user's action on popup control `number` (1 to 4 a combo box, 5 to 20 a check box).
  void OnPopupControl(int number);

  Application& application_;
  // Panel objects of every kind, instance 1 at index 0.
  std::array<std::vector<std::unique_ptr<PanelSlot>>, kPanelKindCount> panels_;
  std::vector<std::string> listItems_;
  std::vector<PeripheralPanel*> panelList_;
  ParameterList parameterList_;
  PageTooltips tooltips_;
  const PeripheralPanel* clockLink_ = nullptr;
  const PeripheralPanel* clock2Link_ = nullptr;
  PeripheralPanel* shownPanel_ = nullptr;
  int listPosition_ = 0;
  int previousPosition_ = 0;
  bool open_ = false;
  bool hasExtraSettings_ = false;
  std::unique_ptr<ExtraSettingsPanel> popup_;
  ExtraSettingsPresenter* presenter_ = nullptr;
};

}  // namespace tessara

#endif  // TESSARA_PAGES_PERIPHERAL_PAGE_H_
