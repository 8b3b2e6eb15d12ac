#include "panels/framework/clock_values.h"

#include "core/text.h"
#include "panels/framework/panel_context.h"
#include "panels/framework/peripheral_panel.h"
#include "panels/system/clock2_panel.h"

namespace tessara {

bool FindRowValue(const std::vector<std::string>& rows, std::string_view prefix,
                  std::string& value) {
  for (const std::string& row : rows) {
    if (!StartsWithNoCase(row, prefix)) continue;
    std::size_t equals = row.find('=');
    value = equals == std::string::npos ? std::string() : row.substr(equals + 1);
    return true;
  }
  return false;
}

double ClockRowHz(const PanelContext* context, double fallbackHz) {
  if (context == nullptr) return fallbackHz;
  const PeripheralPanel* clock =
      context->clockLink != nullptr ? context->clockLink : context->clock2Link;
  std::string value;
  if (clock == nullptr || !FindRowValue(clock->ParameterRows(), "clk", value)) return fallbackHz;
  return ParseReal(value);
}

bool HasClock2Link(const PanelContext* context) {
  return context != nullptr && context->clock2Link != nullptr;
}

double OscillatorClockOf(const PanelContext* context, double x) {
  if (context == nullptr) return x;
  // The link is typed as any panel; only a Clock2Panel has an oscillator divider.
  const auto* clock2 = dynamic_cast<const Clock2Panel*>(context->clock2Link);
  return clock2 == nullptr ? x : clock2->OscillatorClock(x);
}

}  // namespace tessara
