#include "pages/clock_summary.h"

#include <gtest/gtest.h>

#include "database/peripheral_identity.h"

namespace tessara {
namespace {

ClockSummaryInput Clock(int source, bool divider, bool frequency, bool secondFrequency,
                        bool oscillatorDivider, std::vector<std::string> rows) {
  ClockSummaryInput input;
  input.sourceCaption = "Source";
  input.sourceLabels = {"L1", "L2", "L3", "L4"};
  input.checkedSource = source;
  input.divider = {divider, "Div", "", "1/2"};
  input.frequency = {frequency, "Freq", "F:", "10"};
  input.secondFrequency = {secondFrequency, "Second", "S:", "16"};
  input.oscillatorDivider = {oscillatorDivider, "Osc", "", "1/2"};
  input.parameterRows = std::move(rows);
  return input;
}

FamilyFlags Family(const char* group) {
  FamilyFlags flags;
  flags.SetFromGroupName(group);
  return flags;
}

struct SummaryCase {
  const char* name;
  const char* group;
  ClockSummaryInput clock;
  const char* first;
  const char* second;
  const char* alternate;
  const char* third;
  const char* fourth;
};

TEST(Clock2Summary, TextsOfEveryFamilyBranch) {
  const std::vector<std::string> rows = {"CLKX=20000000", "oscdivider=2", "pll=3"};
  const SummaryCase cases[] = {
      {"KB first source", "KB/77161 Group", Clock(0, true, true, true, false, rows), "S: :\t16 MHz",
       "CPU Clock      :    System Clock", "", "F::\t10 KHz", ""},
      {"KB lists off", "KB/77161 Group", Clock(1, true, false, false, false, rows), "", "", "", "", ""},
      {"QTL second source", "QTL/4C Group", Clock(1, true, true, false, false, rows), "Source:\t\tL2",
       "Div:\t1/2", "", "F: 10 MHz", ""},
      {"QTL third source", "QTL/4C Group", Clock(2, false, false, true, true, rows),
       "Source:\t\tHigh-Speed On-chip", "", "", "F: 10MHz", ""},
      {"QTL fourth source", "QTL/4C Group", Clock(3, false, true, false, false, rows),
       "OCO Clock:\t\tOn-chip oscillator(default)", "", "CPU Clock:\t\tL4", "F: 0.125MHz", "F: 32768Hz"},
      {"QTL f without the divider list", "QTL/4C Group", Clock(0, false, false, true, false, rows),
       "Source:\t\tL1", "", "", "F: MHz", ""},
      {"QTL lists off, first", "QTL/4C Group", Clock(0, false, false, false, false, rows),
       "Source:\t\tL1", "", "", "F: 0.125 MHz", ""},
      {"QTL lists off, fourth", "QTL/4C Group", Clock(3, false, false, false, false, rows),
       "OCO Clock:\t\tOn-chip oscillator(default)", "", "CPU Clock:\t\tL4", "F: 0.125 MHz",
       "F: 32768Hz"},
      {"ZNR9 third source", "ZNR9/4X Group", Clock(2, false, false, false, false, rows),
       "OCO Clock:\t\tOn-chip oscillator(default)", "", "CPU Clock:\t\tL3", "F: 1MHz", "F: 32768Hz"},
      {"ZNR9 PLL product", "ZNR9/4X Group", Clock(3, true, true, false, false, rows), "Source:\t\tL4",
       "Div:\t1/2", "", "F: 20MHz", ""},
      {"ZNR9 f", "ZNR9/4X Group", Clock(0, false, false, true, false, rows), "Source:\t\tL1", "", "",
       "F: 10MHz", ""},
      {"4V fourth source", "QTL/4V Group", Clock(3, true, false, false, false, rows),
       "System Clock:\t\tL4", "Div:\t1/2", "", "F: 32768 Hz", ""},
      {"4Y f", "QTL/4Y Group", Clock(2, false, false, true, false, rows), "Source:\t\tL3", "", "",
       "F: 10 MHz", ""},
      {"no family", "Other Group", Clock(0, true, true, true, true, rows), "", "", "", "", ""},
  };
  for (const SummaryCase& c : cases) {
    ClockSummary summary = Clock2PanelSummary(c.clock, Family(c.group));
    EXPECT_EQ(summary.first, c.first) << c.name;
    EXPECT_EQ(summary.second, c.second) << c.name;
    EXPECT_EQ(summary.alternate, c.alternate) << c.name;
    EXPECT_EQ(summary.third, c.third) << c.name;
    EXPECT_EQ(summary.fourth, c.fourth) << c.name;
  }
}

TEST(Clock2Summary, FormOfTheScaledClockInTheQTLFamily) {
  struct FormCase {
    const char* clk;
    const char* oscdiv;
    const char* third;
  } cases[] = {
      {"clk=20000000", "oscdiv=4", "F: 5MHz"},
      {"clk=36864000", "oscdiv=2", "F: 18.432MHz"},
      {"clk=32000000", "oscdiv=5", "F: 6.400MHz"},
      {"clk=32000000", "oscdiv=8", "F: 4MHz"},
      {"clk=20000000", "oscdiv=3", "F: 6.667MHz"},
      {"clk=1000000", "oscdiv=2", "F: 0.500MHz"},
      // No clk row: f is computed from 0.
      {"x=1", "oscdiv=2", "F: 0.000MHz"},
  };
  for (const FormCase& c : cases) {
    ClockSummary summary =
        Clock2PanelSummary(Clock(0, false, false, true, true, {c.clk, c.oscdiv}), Family("QTL/4C Group"));
    EXPECT_EQ(summary.third, c.third) << c.clk << " " << c.oscdiv;
  }
}

TEST(ClockPanelSummary, ThirdLineByTheListThatIsEnabled) {
  EXPECT_EQ(ClockPanelSummary(Clock(0, true, true, true, false, {})).third, "F: 10 MHz");
  // The second list's value goes with the first list's label.
  EXPECT_EQ(ClockPanelSummary(Clock(1, true, false, true, false, {})).third, "F: 16 MHz");
  EXPECT_EQ(ClockPanelSummary(Clock(0, true, false, false, false, {})).third, "F: 0.125 MHz");
  ClockSummary third = ClockPanelSummary(Clock(2, false, false, false, false, {}));
  EXPECT_EQ(third.first, "Source:\t\tL3");
  EXPECT_EQ(third.second, "Div:\t1/2");
  EXPECT_TRUE(third.alternateHidden);
  EXPECT_EQ(third.third, "");
}

TEST(ClockValues, KBValuesOnlyFromEnabledLists) {
  ClockValues values;
  SetKBClockValues(Clock(0, true, true, true, false, {}), values);
  EXPECT_DOUBLE_EQ(values.SystemClockHz, 16000000);
  EXPECT_DOUBLE_EQ(values.LowClockHz, 10000);
  SetKBClockValues(Clock(0, true, false, false, false, {}), values);
  EXPECT_DOUBLE_EQ(values.SystemClockHz, 16000000);
  EXPECT_DOUBLE_EQ(ClockRowValue({"a=1", "CLK=5", "clk=6"}, "clk"), 5);
  EXPECT_DOUBLE_EQ(ClockRowValue({"a=1"}, "clk"), 0);
}

}  // namespace
}  // namespace tessara
