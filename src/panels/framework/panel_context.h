#ifndef TESSARA_PANELS_FRAMEWORK_PANEL_CONTEXT_H_
#define TESSARA_PANELS_FRAMEWORK_PANEL_CONTEXT_H_

#include <functional>
#include <string>

namespace tessara {

class Host;
class ParameterList;
class PeripheralPanel;
struct ClockValues;
struct DatabaseEntry;
struct FamilyFlags;

// What a panel reads of the side-settings popup while it refreshes, and what it tells
// the popup: the choice of its first RadioGroup, and for the serial panels whose modes
// have side settings of their own, the word of the mode.
class ExtraSettingsView {
 public:
  virtual ~ExtraSettingsView() = default;
  // Index chosen in popup combo box k (1 to 4); -1 for none.
  virtual int ComboSelection(int k) const = 0;
  // State of popup check box k (1 to 16).
  virtual int CheckState(int k) const = 0;
  // -1, 1 to 4 for a combo box, 5 to 20 for check box k - 4.
  virtual int FocusedControl() const = 0;
  // 1 shows the popup, 0 hides it and forgets the stored side settings; -1 only asks.
  // Returns the mode.
  virtual int SetPopupMode(int mode) = 0;
  // Fills and shows the controls for the current peripheral; a non-empty filter also
  // shows the lines whose name holds it.
  virtual void SetupExtraSettings(const std::string& filter) = 0;
};

// Everything a panel reaches outside itself. The owning page fills it and keeps it
// alive for as long as its panels are loaded; the panels only read it, apart from the
// ParameterList and the popup, which they drive.
struct PanelContext {
  Host* host = nullptr;
  const DatabaseEntry* group = nullptr;
  int configuration = 0;  // k: the configuration whose section the panel loads
  int instance = 0;       // instance of the kind, from 0, for the save tag
  const FamilyFlags* flags = nullptr;
  ParameterList* parameterList = nullptr;
  // The clock panel the group uses; at most one of the two is set.
  const PeripheralPanel* clockLink = nullptr;
  const PeripheralPanel* clock2Link = nullptr;
  // The clock of the Clock2Panel's oscillator in Hz, when the clock panels provide it.
  std::function<double()> oscillatorClock;
  // The process-wide SystemClockHz and LowClockHz that the page sets when it opens.
  const ClockValues* clockValues = nullptr;
  ExtraSettingsView* popup = nullptr;  // null while the popup does not exist
  // The page's HasExtraSettings, mirrored into every panel's context: some
  // ExtraSetting_ line was found for the peripheral selected.
  bool hasExtraSettings = false;
};

}  // namespace tessara

#endif  // TESSARA_PANELS_FRAMEWORK_PANEL_CONTEXT_H_
