#ifndef TESSARA_PAGES_CLOCK_SUMMARY_H_
#define TESSARA_PAGES_CLOCK_SUMMARY_H_

#include <string>
#include <string_view>
#include <vector>

#include "panels/framework/clock_values.h"

namespace tessara {

struct FamilyFlags;

// What the summary reads of a clock panel: the source group, the lists and the
// panel's parameter rows. Building it from a panel is the panel's business, so the
// texts below can be worked out (and tested) from plain values.
struct ClockSummaryInput {
  struct Box {
    bool enabled = false;
    std::string caption;   // the group-box text
    std::string label;     // the label beside a frequency box
    std::string selected;  // the selected item's text, empty for none
  };
  std::string sourceCaption;              // caption of Radiobox_1
  std::vector<std::string> sourceLabels;  // labels of its options
  int checkedSource = -1;                 // from 0; -1 for none
  Box divider;                            // Combobox_1
  Box frequency;                          // Combobox_2
  Box secondFrequency;                    // Combobox_3
  Box oscillatorDivider;                  // Combobox_4 (Clock2Panel only)
  std::vector<std::string> parameterRows;

  const std::string& SourceLabel(int option) const;
};

// The five texts at the foot of the peripheral page. The second and the alternate
// second line lie at the same place; a branch that writes one may hide the other.
struct ClockSummary {
  std::string first;
  std::string second;
  std::string alternate;
  std::string third;
  std::string fourth;
  bool secondHidden = false;
  bool alternateHidden = false;
};

// The summary of a chip with the ClockPanel.
ClockSummary ClockPanelSummary(const ClockSummaryInput& clock);

// The summary of a chip with the Clock2Panel, by the first family flag that is set:
// KB, QTL, ZNR9, then the groups QTL/4V to QTL/4Y. With none set nothing is written.
ClockSummary Clock2PanelSummary(const ClockSummaryInput& clock, const FamilyFlags& flags);

// What the peripheral page writes when it opens: the summary of the ClockPanel when
// its link is set, else that of the Clock2Panel, else nothing.
ClockSummary WriteClockSummary(const ClockSummaryInput* clockLink,
                               const ClockSummaryInput* clock2Link, const FamilyFlags& flags);

// The number behind "=" of the first of the rows that begins with `name` (compared on
// the length of `name`, without regard to case); 0 when no row does.
double ClockRowValue(const std::vector<std::string>& rows, std::string_view name);

// Sets the values from a KB chip's Clock2Panel: the number in the selected text of
// Combobox_3 in MHz and that of Combobox_2 in kHz, each only while its box is enabled.
void SetKBClockValues(const ClockSummaryInput& clock, ClockValues& values);

}  // namespace tessara

#endif  // TESSARA_PAGES_CLOCK_SUMMARY_H_
