#include "pages/clock_summary.h"

#include <algorithm>

#include "core/text.h"
#include "database/peripheral_identity.h"

namespace tessara {

namespace {

constexpr const char* kOnChipOscillatorLine = "OCO Clock:\t\tOn-chip oscillator(default)";
constexpr const char* kCpuClockPrefix = "CPU Clock:\t\t";
constexpr double kPllLimitMHz = 20;

// Options of the clock source, counted from 0.
constexpr int kFirstSource = 0;
constexpr int kSecondSource = 1;
constexpr int kThirdSource = 2;
constexpr int kFourthSource = 3;

std::string SourceLine(const ClockSummaryInput& clock, int option) {
  return clock.sourceCaption + ":\t\t" + clock.SourceLabel(option);
}

// The divider line: the caption, a colon and the selected text, hiding the line that
// shares its place.
void WriteDividerLine(const ClockSummaryInput& clock, ClockSummary& summary) {
  summary.second = clock.divider.caption + ":\t" + clock.divider.selected;
  summary.alternateHidden = true;
}

bool IsPlainOscillatorDivider(double oscdiv) {
  return oscdiv == 2 || oscdiv == 4 || oscdiv == 5 || oscdiv == 8;
}

// The form of f = clk / oscdiv in MHz. The QTL family writes whole megahertz only for
// the dividers that give them, and never for the two crystals whose quotient is not
// whole; with the divider list disabled it writes no number at all.
std::string ScaledClockText(double clk, double oscdiv, bool qtlFamily, bool oscillatorDividerEnabled) {
  const double f = clk / oscdiv * 0.000001;
  if (qtlFamily && !oscillatorDividerEnabled) return "";
  if (f < 1) return FormatC("%.3f", f);
  if (!qtlFamily) return FormatC("%.0f", f);
  const bool wholeMegahertz = IsPlainOscillatorDivider(oscdiv) && clk != 36864000 &&
                              !(clk == 32000000 && oscdiv == 5);
  return FormatC(wholeMegahertz ? "%.0f" : "%.3f", f);
}

void KBBranch(const ClockSummaryInput& clock, ClockSummary& summary, std::string& third) {
  if (clock.checkedSource == kFirstSource) summary.second = "CPU Clock      :    System Clock";
  if (clock.secondFrequency.enabled) {
    summary.first = clock.secondFrequency.label + " :\t" + clock.secondFrequency.selected + " MHz";
  }
  if (clock.frequency.enabled) {
    third = clock.frequency.label + ":\t" + clock.frequency.selected + " KHz";
  }
}

// The QTL and ZNR9 families share one branch; `qtl` tells which of the two it is.
void QTLOrZNR9Branch(const ClockSummaryInput& clock, bool qtl, ClockSummary& summary,
                     std::string& third) {
  const int source = clock.checkedSource;
  if (source == kFirstSource || source == kSecondSource) {
    summary.first = SourceLine(clock, source);
  } else if (source == kThirdSource) {
    if (qtl) {
      summary.first = clock.sourceCaption + ":\t\tHigh-Speed On-chip";
    } else {
      summary.first = kOnChipOscillatorLine;
      summary.alternate = kCpuClockPrefix + clock.SourceLabel(kThirdSource);
    }
  } else if (source == kFourthSource) {
    if (qtl) {
      summary.first = kOnChipOscillatorLine;
      summary.alternate = kCpuClockPrefix + clock.SourceLabel(kFourthSource);
    } else {
      summary.first = SourceLine(clock, kFourthSource);
    }
  }
  if (clock.divider.enabled) WriteDividerLine(clock, summary);

  const std::string& label = clock.frequency.label;
  if (clock.frequency.enabled) {
    if (source == kSecondSource) {
      third = label + " " + clock.frequency.selected + " MHz";
    } else if (source == kFourthSource) {
      if (qtl) {
        third = label + " 0.125MHz";
        summary.fourth = label + " 32768Hz";
      } else {
        double product = ParseReal(clock.frequency.selected) * ClockRowValue(clock.parameterRows, "PLL");
        third = label + " " + FormatC("%.0f", std::min(product, kPllLimitMHz)) + "MHz";
      }
    }
  } else if (clock.secondFrequency.enabled) {
    const double clk = ClockRowValue(clock.parameterRows, "clk");
    const double oscdiv = ClockRowValue(clock.parameterRows, "oscdiv");
    third = label + " " + ScaledClockText(clk, oscdiv, qtl, clock.oscillatorDivider.enabled) + "MHz";
  } else if (!qtl) {
    third = label + " 1MHz";
    summary.fourth = label + " 32768Hz";
  } else if (source == kFirstSource) {
    third = label + " 0.125 MHz";
  } else if (source == kFourthSource) {
    third = label + " 0.125 MHz";
    summary.fourth = label + " 32768Hz";
  }
}

// The groups QTL/4V to QTL/4Y have a branch of their own.
void QTL4VBranch(const ClockSummaryInput& clock, ClockSummary& summary, std::string& third) {
  const int source = clock.checkedSource;
  if (source >= kFirstSource && source <= kThirdSource) {
    summary.first = SourceLine(clock, source);
  } else if (source == kFourthSource) {
    summary.first = "System Clock:\t\t" + clock.SourceLabel(kFourthSource);
  }
  if (clock.divider.enabled) WriteDividerLine(clock, summary);

  const std::string& label = clock.frequency.label;
  if (clock.frequency.enabled) {
    if (source == kSecondSource) third = label + " " + clock.frequency.selected + " MHz";
  } else if (clock.secondFrequency.enabled) {
    const double clk = ClockRowValue(clock.parameterRows, "clk");
    const double oscdiv = ClockRowValue(clock.parameterRows, "oscdiv");
    const double f = clk / oscdiv * 0.000001;
    third = label + " " + FormatC(IsPlainOscillatorDivider(oscdiv) ? "%.0f" : "%.3f", f) + " MHz";
  } else if (source == kFirstSource) {
    third = label + " 0.125 MHz";
  } else if (source == kFourthSource) {
    third = label + " 32768 Hz";
  }
}

}  // namespace

const std::string& ClockSummaryInput::SourceLabel(int option) const {
  static const std::string kNone;
  if (option < 0 || option >= static_cast<int>(sourceLabels.size())) return kNone;
  return sourceLabels[static_cast<std::size_t>(option)];
}

double ClockRowValue(const std::vector<std::string>& rows, std::string_view name) {
  for (const std::string& row : rows) {
    if (!StartsWithNoCase(row, name)) continue;
    std::size_t equals = row.find('=');
    return equals == std::string::npos ? 0 : ParseReal(std::string_view(row).substr(equals + 1));
  }
  return 0;
}

ClockSummary ClockPanelSummary(const ClockSummaryInput& clock) {
  ClockSummary summary;
  summary.first = SourceLine(clock, clock.checkedSource);
  WriteDividerLine(clock, summary);
  const std::string& label = clock.frequency.label;
  if (clock.frequency.enabled) {
    summary.third = label + " " + clock.frequency.selected + " MHz";
  } else if (clock.secondFrequency.enabled) {
    summary.third = label + " " + clock.secondFrequency.selected + " MHz";
  } else if (clock.checkedSource == kFirstSource) {
    summary.third = label + " 0.125 MHz";
  }
  return summary;
}

ClockSummary Clock2PanelSummary(const ClockSummaryInput& clock, const FamilyFlags& flags) {
  ClockSummary summary;
  // The third line is one text that is set last, whichever branch made it.
  std::string third;
  if (flags.FlagKBFamily) {
    KBBranch(clock, summary, third);
  } else if (flags.FlagQTLFamily) {
    QTLOrZNR9Branch(clock, true, summary, third);
  } else if (flags.FlagZNR9Family) {
    QTLOrZNR9Branch(clock, false, summary, third);
  } else if (flags.FlagQTL4VW || flags.FlagQTL4XY) {
    QTL4VBranch(clock, summary, third);
  }
  summary.third = third;
  return summary;
}

ClockSummary WriteClockSummary(const ClockSummaryInput* clockLink,
                               const ClockSummaryInput* clock2Link, const FamilyFlags& flags) {
  if (clockLink != nullptr) return ClockPanelSummary(*clockLink);
  if (clock2Link != nullptr) return Clock2PanelSummary(*clock2Link, flags);
  return ClockSummary();
}

void SetKBClockValues(const ClockSummaryInput& clock, ClockValues& values) {
  if (clock.secondFrequency.enabled) values.SystemClockHz = ParseReal(clock.secondFrequency.selected) * 1000000;
  if (clock.frequency.enabled) values.LowClockHz = ParseReal(clock.frequency.selected) * 1000;
}

}  // namespace tessara
