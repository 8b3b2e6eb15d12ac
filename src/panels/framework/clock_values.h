#ifndef TESSARA_PANELS_FRAMEWORK_CLOCK_VALUES_H_
#define TESSARA_PANELS_FRAMEWORK_CLOCK_VALUES_H_

#include <string>
#include <string_view>
#include <vector>

namespace tessara {

struct PanelContext;

// What a panel with a time or frequency field reads of the clocks. The clock panels
// stand on the selection page; a panel reaches them only through the links of its
// context, and only their rows "clk" and "oscdiv" and the oscillator divider.

// The value behind "=" of the first of `rows` whose name begins with `prefix` (case
// ignored); false when no row does.
bool FindRowValue(const std::vector<std::string>& rows, std::string_view prefix,
                  std::string& value);

// The value of the first row "clk" of the clock panel the group uses: the ClockPanel
// when that link is set, else the Clock2Panel. `fallbackHz` when there is no such row.
double ClockRowHz(const PanelContext* context, double fallbackHz);

// Whether the group's clock is a Clock2Panel.
bool HasClock2Link(const PanelContext* context);

// The Clock2Panel's OscillatorClock of x. Without a Clock2Panel link x is returned
// unchanged: there is no oscillator divider to apply.
double OscillatorClockOf(const PanelContext* context, double x);

}  // namespace tessara

#endif  // TESSARA_PANELS_FRAMEWORK_CLOCK_VALUES_H_
