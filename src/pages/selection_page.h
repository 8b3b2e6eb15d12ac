#ifndef TESSARA_PAGES_SELECTION_PAGE_H_
#define TESSARA_PAGES_SELECTION_PAGE_H_

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "pages/clock_summary.h"
#include "pages/parameter_list.h"
#include "panels/framework/control_model.h"
#include "panels/framework/panel_context.h"
#include "panels/system/clock2_panel.h"
#include "panels/system/clock_panel.h"

namespace tessara {

class Application;

// The title both pages carry.
inline constexpr std::string_view kPageTitle = "Tessara";

// The controls of the selection page that take the focus or carry a tooltip.
enum class SelectionControl { kSeriesBox, kGroupBox, kPartBox, kParameterList, kNextButton, kLoadButton };

struct PageTooltip {
  SelectionControl control;
  std::string_view text;
};

// One capacity of the chosen part: a label and its value, shown or hidden together.
struct CapacityRow {
  std::string label;
  std::string value;
  bool visible = true;
};

// The first page: series, group and part are chosen here, the chip's capacities and
// picture are shown, and the clock is set on the clock panel of the group. The page
// owns both clock panels and its ParameterList; the front-end draws this state and
// reports the user's choices through the Choose... operations.
class SelectionPage {
 public:
  // Builds the page at start-up: the list's colours come from the data file of the
  // selected group (the first one at this time) and stay for the run.
  explicit SelectionPage(Application& application,
                         ListColour selectedItemColour = kDefaultSelectedItemColour);
  SelectionPage(const SelectionPage&) = delete;
  SelectionPage& operator=(const SelectionPage&) = delete;

  // --- Handlers, as the page runs them.
  void Initialise();
  void SeriesChanged();
  void GroupChanged();
  void PartChanged();
  // Stores the selection and hands over to the peripheral page.
  void NextPressed();

  // --- User actions: select a position of a box and run its handler. A position
  // outside the box does nothing and gives false.
  bool ChooseSeries(int position);
  bool ChooseGroup(int position);
  bool ChoosePart(int position);

  // --- What the front-end draws.
  const ControlModel& SeriesBox() const { return seriesBox_; }
  const ControlModel& GroupBox() const { return groupBox_; }
  const ControlModel& PartBox() const { return partBox_; }
  const CapacityRow& Rom() const { return rom_; }
  const CapacityRow& Ram() const { return ram_; }
  const CapacityRow& DataFlash() const { return dataFlash_; }
  int GroupPicture() const { return groupPicture_; }
  const std::vector<std::string>& Tabs() const { return tabs_; }
  const std::vector<PageTooltip>& Tooltips() const { return tooltips_; }
  SelectionControl Focus() const { return focus_; }
  bool PageReady() const { return pageReady_; }
  bool Visible() const { return visible_; }
  ParameterList& List() { return list_; }
  const ParameterList& List() const { return list_; }

  ClockPanel& Clock() { return clockPanel_; }
  Clock2Panel& Clock2() { return clock2Panel_; }
  // The clock panel in front, or nullptr before any group had a clock.
  ClockPanelBase* ShownClockPanel();
  // The links the peripheral page gets: the panel that the selected group's clock
  // configuration names, and null for the other.
  const ClockPanel* ClockLink() const;
  const Clock2Panel* Clock2Link() const;
  // The five summary texts as the peripheral page would write them now.
  ClockSummary CurrentClockSummary() const;

  // Run by NextPressed once the selection is stored: the peripheral page, modally.
  std::function<void()> runPeripheralPage;
  // Run at the end of Initialise when a project file was named on the command line.
  std::function<void(const std::string&)> loadFile;

 private:
  // The slot of the group named in the group box: the first entry whose group equals
  // it, or the box's position when none does.
  int ChosenGroupSlot() const;
  void FillPartBox(int slot);
  // Clears and reloads the clock panel that the group's clock configuration names;
  // with `hideOther` the other panel is hidden. A group without one changes nothing.
  void LoadClockPanel(int slot, bool hideOther);
  void ShowCapacity(CapacityRow& row, const std::string& field);

  Application& application_;
  ParameterList list_;
  ClockPanel clockPanel_;
  Clock2Panel clock2Panel_;
  PanelContext clockContext_;
  PanelContext clock2Context_;
  bool clockShown_ = false;
  bool clock2Shown_ = false;

  ControlModel seriesBox_;
  ControlModel groupBox_;
  ControlModel partBox_;
  CapacityRow rom_{"ROM Capacity:", "", true};
  CapacityRow ram_{"RAM Capacity:", "", true};
  CapacityRow dataFlash_{"Data Flash:", "", true};
  int groupPicture_ = 0;
  std::vector<std::string> tabs_;
  std::vector<PageTooltip> tooltips_;
  SelectionControl focus_ = SelectionControl::kSeriesBox;
  bool pageReady_ = false;
  bool visible_ = true;
};

}  // namespace tessara

#endif  // TESSARA_PAGES_SELECTION_PAGE_H_
