#include "database/peripheral_identity.h"

#include "core/text.h"
#include "database/device_database.h"

namespace tessara {

const std::array<ResourceTag, kPanelKindCount> kResourceTags = {{
    {"IID_DIALOG_CLOCK", PanelKind::kClock, "ClockPanel", 138, 1, "Clock", ""},
    {"IID_DIALOG_CLOCK2", PanelKind::kClock2, "Clock2Panel", 204, 1, "Clock", ""},
    {"IID_DIALOG_CLOCKSYNSERIALINTERFACE", PanelKind::kSSU, "SSUPanel", 199, 1, "SSU", ""},
    {"IID_DIALOG_INTERRUPT", PanelKind::kInterrupt, "InterruptPanel", 139, 10, "INT", ""},
    {"IID_DIALOG_KEYINPUT_INTERRUPT", PanelKind::kKeyInput, "KeyInputPanel", 140, 1, "Key Input Interrupt", ""},
    {"IID_DIALOG_PORT", PanelKind::kPort, "PortPanel", 129, 12, "port", ""},
    {"IID_DIALOG_TIMERX", PanelKind::kTimerX, "TimerXPanel", 142, 3, "Timer X", "Timer B"},
    {"IID_DIALOG_TIMERY", PanelKind::kTimerY, "TimerYPanel", 148, 1, "Timer Y", ""},
    {"IID_DIALOG_TIMERZ", PanelKind::kTimerZ, "TimerZPanel", 149, 1, "Timer Z", ""},
    {"IID_DIALOG_TIMERC", PanelKind::kTimerC, "TimerCPanel", 147, 1, "Timer C", ""},
    {"IID_DIALOG_UART_VER2", PanelKind::kUART2, "UART2Panel", 172, 3, "UART", "LIN"},
    {"IID_DIALOG_ADC", PanelKind::kADC, "ADCPanel", 150, 1, "ADC", ""},
    {"IID_DIALOG_MULTIMASTERI2C", PanelKind::kMultiMasterI2C, "MultiMasterI2CPanel", 205, 1, "Multi-master I2C bus", ""},
    {"IID_DIALOG_CAN", PanelKind::kCAN, "CANPanel", 214, 1, "CAN", ""},
    {"IID_DIALOG_ADC2", PanelKind::kADC2, "ADC2Panel", 208, 1, "ADC2", ""},
    {"IID_DIALOG_SIO", PanelKind::kSIO, "SIOPanel", 212, 2, "SIO", ""},
    {"IID_DIALOG_TIMERA", PanelKind::kTimerA, "TimerAPanel", 215, 5, "Timer A", ""},
    {"IID_DIALOG_TIMERS", PanelKind::kTimerS, "TimerSPanel", 216, 1, "Timer S", ""},
    {"IID_DIALOG_DMA", PanelKind::kDMA, "DMAPanel", 220, 2, "DMA", ""},
    {"IID_DIALOG_TIMERRA", PanelKind::kTimerRA, "TimerRAPanel", 242, 1, "Timer RA", ""},
    {"IID_DIALOG_TIMERRE", PanelKind::kTimerRE, "TimerREPanel", 241, 1, "Timer RE", ""},
    {"IID_DIALOG_LIN", PanelKind::kLIN, "LINPanel", 244, 1, "LIN", ""},
    {"IID_DIALOG_TIMERRD", PanelKind::kTimerRD, "TimerRDPanel", 245, 1, "Timer RD", ""},
    {"IID_DIALOG_UART3", PanelKind::kUART3, "UART3Panel", 227, 1, "UART2", ""},
    {"IID_DIALOG_3PMOTORCTRLTIMER", PanelKind::kMotorTimer, "MotorTimerPanel", 221, 1, "Three phase motor control timer", ""},
    {"IID_DIALOG_LCD_KB", PanelKind::kLCD, "LCDPanel", 243, 1, "LCD_KB", ""},
    {"IID_DIALOG_TIMERA_KB", PanelKind::kTimerA2, "TimerA2Panel", 247, 1, "TimerA", ""},
    {"IID_DIALOG_TIMERF_KB", PanelKind::kTimerF, "TimerFPanel", 248, 1, "TimerF", ""},
    {"IID_DIALOG_SCI3_KB", PanelKind::kSCI, "SCIPanel", 246, 2, "SCI3", ""},
    {"IID_DIALOG_WKP", PanelKind::kWKP, "WKPPanel", 263, 1, "WKP", ""},
    {"IID_DIALOG_SCI1", PanelKind::kSCI1, "SCI1Panel", 266, 1, "SCI1", ""},
    {"IID_DIALOG_AEC", PanelKind::kAEC, "AECPanel", 269, 1, "AEC", ""},
    {"IID_DIALOG_PWM", PanelKind::kPWM, "PWMPanel", 267, 1, "PWM", ""},
    {"IID_DIALOG_TIMERC2", PanelKind::kTimerC2, "TimerC2Panel", 265, 1, "TimerC2", ""},
    {"IID_DIALOG_TIMERG", PanelKind::kTimerG, "TimerGPanel", 264, 1, "TimerG", ""},
    {"IID_DIALOG_ADC3", PanelKind::kADC3, "ADC3Panel", 270, 1, "ADC3", ""},
    {"IID_DIALOG_ADC4", PanelKind::kADC4, "ADC4Panel", 274, 1, "ADC4", ""},
    {"IID_DIALOG_TIMERRC", PanelKind::kTimerRC, "TimerRCPanel", 252, 1, "Timer RC", ""},
    {"IID_DIALOG_TIMERRF", PanelKind::kTimerRF, "TimerRFPanel", 251, 1, "Timer RF", ""},
    {"IID_DIALOG_DAC", PanelKind::kDAC, "DACPanel", 268, 1, "DAC", ""},
    {"IID_DIALOG_COMPARATOR", PanelKind::kComparator, "ComparatorPanel", 273, 1, "Comparator", ""},
    {"IID_DIALOG_COMPARATORVDC", PanelKind::kComparatorVDC, "ComparatorVDCPanel", 256, 1, "ComparatorVDC", ""},
    {"IID_DIALOG_DTC", PanelKind::kDTC, "DTCPanel", 101, 1, "DTC", ""},
    {"IID_DIALOG_COMPARATORB", PanelKind::kComparatorB, "ComparatorBPanel", 257, 1, "ComparatorB", ""},
}};

const ResourceTag& TagOf(PanelKind kind) { return kResourceTags[static_cast<std::size_t>(kind)]; }

const ResourceTag* FindResourceTag(std::string_view tag) {
  for (const ResourceTag& row : kResourceTags) {
    if (EqualsNoCase(row.tag, tag)) return &row;
  }
  return nullptr;
}

bool IsPanelKind(PanelKind kind, const DatabaseEntry& group, int k) {
  if (k < 1 || k > kMaxConfigurations) return false;
  const std::string& id = group.ResourceID[static_cast<std::size_t>(k)];
  return !id.empty() && EqualsNoCase(id, TagOf(kind).tag);
}

int ConfigurationIndexOfClock(const DatabaseEntry& group) {
  for (int k = 0; k <= kMaxConfigurations; ++k) {
    if (EqualsNoCase(group.Configuration[static_cast<std::size_t>(k)], "Clock")) return k;
  }
  return 0;
}

int PanelInstance(const DatabaseEntry& group, int k) {
  const ResourceTag* tag = FindResourceTag(k >= 1 && k <= kMaxConfigurations ? group.ResourceID[static_cast<std::size_t>(k)] : "");
  if (tag == nullptr) return 0;
  int count = 0;
  for (int place = 1; place <= k; ++place) {
    if (IsPanelKind(tag->kind, group, place)) ++count;
  }
  return count;
}

namespace {

// "Begins with the text in any case and contains it exactly."
bool FamilyPrefix(std::string_view name, std::string_view prefix) {
  return StartsWithNoCase(name, prefix) && name.find(prefix) != std::string_view::npos;
}

}  // namespace

void FamilyFlags::SetFromGroupName(std::string_view g) {
  if (FamilyPrefix(g, "QTL")) {
    *this = FamilyFlags{};
    FlagQTLFamily = 1;
  }
  if (StartsWithNoCase(g, "ZNR") && g.find("ZNR9") != std::string_view::npos) {
    *this = FamilyFlags{};
    FlagZNR9Family = 1;
  }
  if (FamilyPrefix(g, "KB")) {
    *this = FamilyFlags{};
    FlagKBFamily = 1;
  }
  if (FamilyPrefix(g, "QTL/4V") || FamilyPrefix(g, "QTL/4W")) {
    FlagQTL4VW = 1;
    FlagQTL4XY = FlagQTLFamily = FlagZNR9Family = FlagKBFamily = FlagQTL4 = FlagQTL4EF = FlagQTL5 = 0;
  }
  if (FamilyPrefix(g, "QTL/4X") || FamilyPrefix(g, "QTL/4Y")) {
    FlagQTL4XY = 1;
    FlagQTL4VW = FlagQTLFamily = FlagZNR9Family = FlagKBFamily = FlagQTL4 = FlagQTL4EF = FlagQTL5 = 0;
  }
  if (FamilyPrefix(g, "QTL/4")) FlagQTL4 = 1;
  if (FamilyPrefix(g, "QTL/4E") || FamilyPrefix(g, "QTL/4F")) FlagQTL4EF = 1;
  if (FamilyPrefix(g, "QTL/5")) FlagQTL5 = 1;
  if (StartsWithNoCase(g, "QTL/5UZ") || StartsWithNoCase(g, "QTL/5SZ") || StartsWithNoCase(g, "QTL/5RZ")) {
    FlagQTL5Z = 1;
  }
}

}  // namespace tessara
