#include "panels/framework/panel_kind_traits.h"

#include <array>

namespace tessara {

namespace {

constexpr unsigned R = kWordRadiobox;
constexpr unsigned C = kWordCombobox;
constexpr unsigned E = kWordEditbox;
constexpr unsigned K = kWordCheckbox;
constexpr unsigned CE = kWordComboEditbox;
constexpr unsigned L = kWordLabel;

constexpr LoadRefresh kBefore = LoadRefresh::kBeforeFill;
constexpr LoadRefresh kAfter = LoadRefresh::kAfterFill;
constexpr LoadRefresh kCaller = LoadRefresh::kByCaller;

using K_ = PanelKind;

// One row per kind: limits and keys of its sections, then its table sizes and save tag.
constexpr std::array<PanelKindTraits, kPanelKindCount> kTraits{{
    {K_::kClock, "ClockPanel", 64, 65, 200, 1234, 10, R | C | E, 0,
     kNoExtraParameter | kNoExtraSetting | kNoError, 15, 65, 10, "Clock:", kCaller, false},
    {K_::kClock2, "Clock2Panel", 64, 65, 200, 1235, 10, R | C | E, 0,
     kNoExtraParameter | kNoExtraSetting | kNoError, 15, 65, 10, "Clock2:", kCaller, false},
    {K_::kPort, "PortPanel", 64, 65, 200, 1236, 10, R | C | K, 0, kNoError, 6, 65, 10, "Port%d:",
     kBefore, false},
    {K_::kInterrupt, "InterruptPanel", 64, 65, 200, 1237, 10, R | C | L, 1, kNoError, 10, 65, 10,
     "Interrupt%d:", kAfter, false},
    {K_::kKeyInput, "KeyInputPanel", 64, 65, 200, 1238, 10, R | C, 1, kNoError, 10, 65, 5,
     "KeyInputInterrupt:", kBefore, false},
    {K_::kLCD, "LCDPanel", 64, 70, 200, 0, 10, R | C, 1, kNoError, 30, 65, 10, "LCD:", kBefore,
     false},
    {K_::kTimerA2, "TimerA2Panel", 64, 70, 200, 0, 10, R | C | E | CE, 1, kNoError, 30, 65, 10,
     "TimerA2:", kBefore, false},
    {K_::kTimerF, "TimerFPanel", 64, 65, 200, 0, 30, R | C | K | CE, 1, 0, 60, 65, 30, "TimerF:",
     kBefore, false},
    {K_::kTimerC, "TimerCPanel", 64, 65, 200, 1244, 20, R | C | K | CE, 3, 0, 25, 65, 20,
     "TimerC:", kBefore, false},
    {K_::kTimerC2, "TimerC2Panel", 19, 65, 200, 1258, 15, R | C | CE, 1, 0, 10, 20, 15,
     "TimerC2:", kBefore, false},
    {K_::kTimerY, "TimerYPanel", 64, 70, 200, 1234, 20, R | C | E | CE, 1, 0, 60, 65, 20,
     "TimerY:", kBefore, false},
    {K_::kTimerZ, "TimerZPanel", 64, 65, 200, 1245, 20, R | C | E | CE, 1, 0, 15, 65, 20,
     "TimerZ:", kBefore, false},
    {K_::kTimerX, "TimerXPanel", 64, 65, 200, 1241, 20, R | C | E | CE, 1, 0, 15, 65, 20,
     "TimerX%d:", kBefore, false},
    {K_::kTimerA, "TimerAPanel", 64, 70, 200, 1262, 20, R | C | CE, 1, 0, 20, 65, 20,
     "TimerA%d:", kBefore, true},
    {K_::kTimerS, "TimerSPanel", 64, 130, 2500, 1267, 20, R | C | CE, 3, 0, 75, 65, 20,
     "TimerS:", kAfter, false},
    {K_::kTimerRA, "TimerRAPanel", 64, 65, 200, 1258, 20, R | C | CE, 1, 0, 20, 65, 20,
     "TimerRA:", kCaller, false},
    {K_::kTimerRE, "TimerREPanel", 64, 65, 200, 1263, 20, R | C | CE, 1, 0, 35, 65, 20,
     "TimerRE:", kBefore, false},
    {K_::kTimerRD, "TimerRDPanel", 129, 610, 1000, 1265, 100, R | C | K | CE, 2, 0, 100, 150, 100,
     "TimerRD:", kBefore, false},
    {K_::kTimerRC, "TimerRCPanel", 99, 100, 1000, 1258, 60, R | C | CE, 1, 0, 80, 100, 60,
     "TimerRC:", kBefore, false},
    {K_::kTimerRF, "TimerRFPanel", 64, 65, 200, 1258, 30, R | C | K | CE, 4, 0, 30, 65, 30,
     "TimerRF:", kBefore, false},
    {K_::kTimerG, "TimerGPanel", 19, 20, 200, 1258, 10, R | C, 1, kNoError, 10, 20, 10, "TimerG:",
     kBefore, false},
    {K_::kMotorTimer, "MotorTimerPanel", 64, 65, 200, 1239, 30, R | C | CE, 1, 0, 35, 65, 30,
     "3PMotorCtrlTimer:", kBefore, true},
    {K_::kUART2, "UART2Panel", 64, 65, 200, 1246, 20, R | C | E | K | CE, 2, 0, 25, 65, 20,
     "UART2_%d:", kBefore, true},
    {K_::kUART3, "UART3Panel", 149, 610, 2500, 1240, 40, R | C | E | K | CE, 1, 0, 60, 130, 40,
     "UART3:", kCaller, true},
    {K_::kSCI, "SCIPanel", 64, 65, 200, 0, 20, R | C | K | CE, 1, 0, 60, 65, 20, "SCI%d:",
     kBefore, false},
    {K_::kSCI1, "SCI1Panel", 14, 65, 200, 1258, 15, R | C, 1, kNoError, 15, 15, 15, "SCI1:",
     kBefore, false},
    {K_::kSIO, "SIOPanel", 64, 65, 200, 1260, 10, R | C | CE, 1, 0, 15, 65, 10, "SIO%d:", kBefore,
     true},
    {K_::kSSU, "SSUPanel", 69, 70, 200, 1256, 40, R | C | CE, 1, kNoExtraParameter, 40, 70, 40,
     "SSU:", kBefore, false},
    {K_::kMultiMasterI2C, "MultiMasterI2CPanel", 64, 65, 200, 1258, 10, R | C | CE, 2, 0, 10, 65,
     10, "MultiMasterI2C:", kBefore, false},
    {K_::kLIN, "LINPanel", 64, 65, 200, 1247, 20, R | C | CE, 1, 0, 25, 65, 20, "LIN:", kBefore,
     false},
    {K_::kCAN, "CANPanel", 69, 70, 200, 1259, 20, R | C | CE, 4, 0, 18, 70, 20, "CAN:", kBefore,
     false},
    {K_::kADC, "ADCPanel", 64, 70, 200, 1254, 10, R | C, 1, kNoError, 10, 65, 10, "ADC:", kBefore,
     false},
    {K_::kADC2, "ADC2Panel", 64, 70, 200, 1259, 10, R | C, 1, kNoError, 10, 65, 10, "ADC2:",
     kBefore, false},
    {K_::kADC3, "ADC3Panel", 19, 65, 200, 1258, 10, R | C, 1, kNoError, 10, 20, 10, "ADC3:",
     kBefore, false},
    {K_::kADC4, "ADC4Panel", 64, 65, 200, 1259, 60, R | C | K, 1, kNoError, 30, 65, 20, "ADC4:",
     kCaller, false},
    {K_::kDAC, "DACPanel", 64, 65, 200, 1245, 10, R | CE, 1, 0, 10, 65, 10, "DAC:", kBefore,
     false},
    {K_::kComparator, "ComparatorPanel", 64, 65, 200, 1245, 10, R | C | K, 1,
     kNoInitialValue | kNoError, 10, 65, 10, "Comparator:", kBefore, false},
    {K_::kComparatorVDC, "ComparatorVDCPanel", 64, 65, 200, 1245, 20, R | C | K, 1,
     kNoInitialValue | kNoError, 20, 65, 20, "ComparatorVDC:", kBefore, false},
    {K_::kComparatorB, "ComparatorBPanel", 64, 65, 200, 1245, 10, R | CE, 0,
     kNoExtraSetting | kNoError, 10, 65, 10, "ComparatorB:", kBefore, false},
    {K_::kDMA, "DMAPanel", 64, 130, 200, 1269, 20, R | C | CE, 1, 0, 20, 65, 20, "DMA%d:",
     kBefore, true},
    {K_::kDTC, "DTCPanel", 64, 65, 200, 1245, 23, R | C | K | CE, 1,
     kNoInitialValue | kNoExtraComment | kNoExtraParameter | kNoExtraSetting, 325, 65, 23, "DTC:",
     kCaller, false},
    {K_::kWKP, "WKPPanel", 19, 20, 200, 1258, 20, R, 1, kNoError, 20, 20, 20, "WKP:", kBefore,
     false},
    {K_::kAEC, "AECPanel", 19, 20, 200, 1258, 10, R, 1, kNoError, 10, 20, 10, "AEC:", kBefore,
     false},
    {K_::kPWM, "PWMPanel", 14, 65, 200, 1258, 10, R | C | CE, 1, 0, 10, 15, 10, "PWM:", kBefore,
     false},
}};

}  // namespace

const PanelKindTraits& TraitsOf(PanelKind kind) {
  for (const PanelKindTraits& traits : kTraits) {
    if (traits.kind == kind) return traits;
  }
  // Every kind has a row; the table test guards this.
  return kTraits[0];
}

int LineLengthLimit(PanelKind kind) {
  return kind == PanelKind::kTimerRD || kind == PanelKind::kTimerRC ? kMaxLongSectionLineLength
                                                                    : kMaxSectionLineLength;
}

int RowTableRows(const PanelKindTraits& traits) {
  return traits.rows > traits.linesRead ? traits.rows : traits.linesRead + 1;
}

}  // namespace tessara
