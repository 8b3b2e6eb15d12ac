#ifndef TESSARA_PANELS_FRAMEWORK_CLOCK_VALUES_H_
#define TESSARA_PANELS_FRAMEWORK_CLOCK_VALUES_H_

#include <string>
#include <string_view>
#include <vector>

namespace tessara {

struct PanelContext;

// The two clock values the KB family's panels read directly, in Hz. They are 0 until
// the peripheral page first sets them and keep their value when it closes.
struct ClockValues {
  double SystemClockHz = 0;
  double LowClockHz = 0;
};

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

// The values the page last set; 0 without a context or before the page set them.
double SystemClockHzOf(const PanelContext* context);
double LowClockHzOf(const PanelContext* context);

// The clock f after the oscillator stage as the serial channels see it, with family
// tests and a ceiling of their own: f cut to a whole number, divided by the "oscdiv"
// row of the Clock2Panel when its first source is chosen in the ZNR9 family or its
// third in the QTL family (QTL/4V and QTL/4W included), multiplied by its "PLL" row
// when its fourth source is chosen, but never above kSerialClockCeilingHz. Without a
// Clock2Panel link f is returned unchanged.
inline constexpr double kSerialClockCeilingHz = 20000000.0;
double SerialClockOf(const PanelContext* context, double f);

}  // namespace tessara

#endif  // TESSARA_PANELS_FRAMEWORK_CLOCK_VALUES_H_
