#include "panels/framework/clock_values.h"

#include <cmath>

#include "core/text.h"
#include "database/peripheral_identity.h"
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

double SystemClockHzOf(const PanelContext* context) {
  if (context == nullptr || context->clockValues == nullptr) return 0;
  return context->clockValues->SystemClockHz;
}

double LowClockHzOf(const PanelContext* context) {
  if (context == nullptr || context->clockValues == nullptr) return 0;
  return context->clockValues->LowClockHz;
}

namespace {

// The number behind "=" of the first row that begins with `prefix`; 1 without one.
double RowFactor(const std::vector<std::string>& rows, std::string_view prefix) {
  std::string value;
  return FindRowValue(rows, prefix, value) ? ParseReal(value) : 1.0;
}

}  // namespace

double SerialClockOf(const PanelContext* context, double f) {
  const auto* clock2 =
      context == nullptr ? nullptr : dynamic_cast<const Clock2Panel*>(context->clock2Link);
  if (clock2 == nullptr) return f;
  const Control* source = clock2->FindControl("Radiobox_1");
  auto sourceChosen = [&](std::size_t option) {
    return source != nullptr && option < source->parts.size() && source->parts[option].checked;
  };
  const FamilyFlags noFlags;
  const FamilyFlags& flags = context->flags != nullptr ? *context->flags : noFlags;
  const std::vector<std::string>& rows = clock2->ParameterRows();
  f = std::trunc(f);
  const bool divided = (flags.FlagZNR9Family != 0 && sourceChosen(0)) ||
                       ((flags.FlagQTLFamily != 0 || flags.FlagQTL4VW != 0) && sourceChosen(2));
  if (divided) {
    double oscdiv = RowFactor(rows, "oscdiv");
    // A divider that reads as no number divides by 1 rather than giving no clock.
    if (oscdiv == 0) oscdiv = 1;
    f = std::trunc(f / oscdiv);
  }
  if (sourceChosen(3)) {
    f = std::trunc(f * RowFactor(rows, "PLL"));
    if (f > kSerialClockCeilingHz) f = kSerialClockCeilingHz;
  }
  return f;
}

}  // namespace tessara
