#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "pages/clock_summary.h"
#include "panel_fixture.h"
#include "panels/analog/adc2_panel.h"
#include "panels/analog/adc3_panel.h"
#include "panels/analog/adc4_panel.h"
#include "panels/analog/adc_panel.h"

namespace tessara {
namespace {

// A section line "KEY=cells" with the cells given by their numbers; the cells between
// them are empty, so a test shows each value at the place the panel reads it.
std::string Line(const std::string& key, const std::map<int, std::string>& cells) {
  std::string line = key + "=";
  int last = cells.empty() ? 0 : cells.rbegin()->first;
  for (int c = 0; c <= last; ++c) {
    if (c > 0) line += ";";
    auto at = cells.find(c);
    if (at != cells.end()) line += at->second;
  }
  return line;
}

template <typename Panel>
struct Bench {
  explicit Bench(std::vector<std::string> lines, const char* groupName = "TST/1 Group") {
    fixture.group->Group = groupName;
    fixture.flags.SetFromGroupName(groupName);
    fixture.context.clockValues = &clocks;
    fixture.SetLines(std::move(lines));
    panel.SetContext(&fixture.context);
    panel.LoadSection();
  }

  std::vector<std::string> Listed() const {
    std::vector<std::string> rows;
    for (const ParameterList::Row& row : fixture.list.Rows()) rows.push_back(row.parameter);
    return rows;
  }
  std::string CommentOf(const std::string& name) const {
    for (const ParameterList::Row& row : fixture.list.Rows()) {
      if (row.parameter.rfind(name + "=", 0) == 0) return row.comment;
    }
    return "(not listed)";
  }
  bool HasRow(const std::string& row) const {
    for (const std::string& r : panel.ParameterRows()) {
      if (r == row) return true;
    }
    return false;
  }
  const Control& C(const char* key) const { return *panel.FindControl(key); }
  std::string Saved() const {
    std::string text;
    panel.SaveState(text);
    return text;
  }

  PanelFixture fixture;
  ClockValues clocks;
  Panel panel;
};

// ---------------------------------------------------------------- ADCPanel

std::vector<std::string> AdcSection(const std::string& usedMask = "11111111111") {
  return {
      "Dialog=ADC",
      Line("Radiobox_1", {{0, "Converter"}, {1, "Off"}, {2, "On"}, {3, "ADST=0"}, {4, "ADST=1"},
                          {7, "11"}, {8, "00000000000"}, {9, usedMask}}),
      // The mode's short masks: "x" enables like "1".
      Line("Radiobox_2", {{0, "Mode"}, {1, "Single"}, {2, "Repeat"}, {3, "MD=0"}, {4, "MD=1"},
                          {5, "//single"}, {6, "//repeat"}, {7, "11"}, {8, "xx"}, {9, "x0"}}),
      Line("Radiobox_3", {{0, "Clock"}, {1, "/4"}, {2, "/2"}, {3, "/1"}, {4, "/8"},
                          {5, "CKS=0"}, {6, "CKS=1"}, {7, "CKS=2"}, {8, "CKS=3"},
                          {9, "//div 4"}, {10, "//div 2"}, {11, "//div 1"}, {12, "//div 8"},
                          {13, "1111"}, {14, "SSSS"}}),
      Line("Radiobox_4", {{0, "Trigger"}, {1, "Soft"}, {2, "Pin"}, {3, "TRG=0"}, {4, "TRG=1"},
                          {5, "//soft"}, {6, "//pin"}, {7, "11"}}),
      // The second option writes nothing: its cell is empty.
      Line("Radiobox_5", {{0, "Hold"}, {1, "Off"}, {2, "On"}, {3, "SMP=0"}, {5, "//no hold"},
                          {7, "11"}}),
      Line("Combobox_1", {{0, "Input"}, {1, "AN0"}, {2, "AN9"}, {13, "CH=0"}, {14, "GRP=0"},
                          {15, "CH=1"}, {37, "//AN0"}, {38, "//group 0"}, {39, "//AN9"},
                          {61, "1"}}),
  };
}

TEST(AdcPanel, TheSwitchSteersElevenPlacesAndReRunsTheHandlers) {
  Bench<ADCPanel> bench(AdcSection());
  ASSERT_TRUE(bench.panel.ChooseOption("Radiobox_1", 0));
  for (const char* key : {"Radiobox_2", "Radiobox_3", "Radiobox_4", "Radiobox_5", "Combobox_1"}) {
    EXPECT_FALSE(bench.C(key).AnyPartEnabled()) << key;
  }
  EXPECT_TRUE(bench.Listed().empty());
  ASSERT_TRUE(bench.panel.ChooseOption("Radiobox_1", 1));
  EXPECT_EQ(bench.Listed(),
            (std::vector<std::string>{"MD=0", "CKS=0", "TRG=0", "SMP=0", "CH=0"}));
  EXPECT_EQ(bench.CommentOf("CH"), "//AN0");
  // The switch's own row is written but is no active key.
  EXPECT_TRUE(bench.HasRow("ADST=1"));
}

TEST(AdcPanel, AnEmptySwitchMaskChangesNothingAndReRunsNothing) {
  Bench<ADCPanel> bench(AdcSection(""));
  bench.panel.ChooseOption("Radiobox_1", 0);
  bench.panel.ChooseOption("Radiobox_1", 1);
  EXPECT_FALSE(bench.C("Radiobox_2").AnyPartEnabled());
  EXPECT_FALSE(bench.HasRow("MD=0"));
  EXPECT_TRUE(bench.HasRow("ADST=1"));
}

TEST(AdcPanel, TheModeMaskReadsAnyDigitButZeroAsEnabling) {
  Bench<ADCPanel> bench(AdcSection());
  bench.panel.ChooseOption("Radiobox_1", 1);
  ASSERT_TRUE(bench.panel.ChooseOption("Radiobox_4", 1));
  EXPECT_EQ(bench.CommentOf("TRG"), "//pin");
  ASSERT_TRUE(bench.panel.ChooseOption("Radiobox_2", 1));
  const Control& trigger = bench.C("Radiobox_4");
  EXPECT_TRUE(trigger.parts[0].enabled);
  EXPECT_FALSE(trigger.parts[1].enabled);
  EXPECT_EQ(trigger.CheckedPart(), 0);
  EXPECT_EQ(bench.CommentOf("TRG"), "//soft");
  EXPECT_EQ(bench.CommentOf("MD"), "//repeat");
  ASSERT_TRUE(bench.panel.ChooseOption("Radiobox_2", 0));
  EXPECT_TRUE(trigger.parts[1].enabled);
}

TEST(AdcPanel, OnQtl4ChipsTheRepeatModeTakesTheFourthClockAway) {
  Bench<ADCPanel> bench(AdcSection(), "QTL/4C Group");
  bench.panel.ChooseOption("Radiobox_1", 1);
  ASSERT_TRUE(bench.panel.ChooseOption("Radiobox_3", 3));
  EXPECT_EQ(bench.CommentOf("CKS"), "//div 8");
  bench.panel.ChooseOption("Radiobox_2", 1);
  const Control& clock = bench.C("Radiobox_3");
  EXPECT_FALSE(clock.parts[3].enabled);
  EXPECT_EQ(clock.CheckedPart(), 0);
  EXPECT_EQ(bench.CommentOf("CKS"), "//div 4");
  bench.panel.ChooseOption("Radiobox_2", 0);
  EXPECT_TRUE(clock.parts[3].enabled);
  EXPECT_EQ(clock.CheckedPart(), 0);
}

TEST(AdcPanel, OtherChipsKeepTheFourthClockInRepeatMode) {
  Bench<ADCPanel> bench(AdcSection(), "QTL/6P Group");
  bench.panel.ChooseOption("Radiobox_1", 1);
  bench.panel.ChooseOption("Radiobox_3", 3);
  bench.panel.ChooseOption("Radiobox_2", 1);
  EXPECT_TRUE(bench.C("Radiobox_3").parts[3].enabled);
  EXPECT_EQ(bench.CommentOf("CKS"), "//div 8");
}

TEST(AdcPanel, TheFourOptionGroupTakesEnableDigitsAndShowMask) {
  std::vector<std::string> lines = AdcSection();
  lines[3] = Line("Radiobox_3", {{0, "Clock"}, {1, "/4"}, {2, "/2"}, {3, "/1"}, {4, "/8"},
                                 {5, "CKS=0"}, {13, "1101"}, {14, "SSSH"}});
  Bench<ADCPanel> bench(lines);
  const Control& clock = bench.C("Radiobox_3");
  EXPECT_FALSE(clock.parts[2].enabled);
  EXPECT_TRUE(clock.parts[3].enabled);
  EXPECT_FALSE(clock.parts[3].visible);
  EXPECT_TRUE(clock.parts[2].visible);
}

TEST(AdcPanel, AChannelWritesItsTwoRowsEachInASlotOfItsOwn) {
  Bench<ADCPanel> bench(AdcSection());
  bench.panel.ChooseOption("Radiobox_1", 1);
  EXPECT_TRUE(bench.HasRow("GRP=0"));
  ASSERT_TRUE(bench.panel.ChooseItem("Combobox_1", 1));
  EXPECT_TRUE(bench.HasRow("CH=1"));
  // The second item's second cell is empty: the first item's row stays.
  EXPECT_TRUE(bench.HasRow("GRP=0"));
  EXPECT_FALSE(bench.HasRow("CH=0"));
  EXPECT_EQ(bench.CommentOf("CH"), "//AN9");
}

TEST(AdcPanel, AnEmptyOptionCellLeavesTheRowAsItWas) {
  Bench<ADCPanel> bench(AdcSection());
  bench.panel.ChooseOption("Radiobox_1", 1);
  ASSERT_TRUE(bench.panel.ChooseOption("Radiobox_5", 1));
  EXPECT_TRUE(bench.HasRow("SMP=0"));
  EXPECT_EQ(bench.CommentOf("SMP"), "//no hold");
}

TEST(AdcPanel, SavesThirteenValuesAndReplaysThem) {
  Bench<ADCPanel> bench(AdcSection(), "QTL/4C Group");
  bench.panel.ChooseOption("Radiobox_1", 1);
  bench.panel.ChooseOption("Radiobox_3", 2);
  bench.panel.ChooseOption("Radiobox_4", 1);
  bench.panel.ChooseItem("Combobox_1", 1);
  EXPECT_EQ(bench.Saved(), "0 1 1 0 0 0 1 0 0 1 1 0 1  \n");

  Bench<ADCPanel> again(AdcSection(), "QTL/4C Group");
  again.panel.LoadState("ADC:" + bench.Saved());
  EXPECT_EQ(again.Saved(), bench.Saved());
  EXPECT_EQ(again.panel.ParameterRows(), bench.panel.ParameterRows());
}

// ---------------------------------------------------------------- ADC2Panel

std::vector<std::string> Adc2Section(const std::string& clockItem = "Divide by 32") {
  std::map<int, std::string> mode{{0, "Mode"}, {1, "Once"}, {2, "Sweep"}, {9, "MD=0"},
                                  {10, "MD=1"}, {17, "//once"}, {18, "//sweep"}, {25, "1"},
                                  {26, "11"},
                                  // Masks: trigger group (first place inverted), lists 2, 5, 6, 7.
                                  {27, "111111"}, {28, "011110"},
                                  // Items of Combobox_7, of Combobox_1, the mask of Radiobox_2.
                                  {35, "1100"}, {36, ""}, {43, "1110"}, {44, "0011"},
                                  {51, "11"}, {52, "10"}};
  return {
      "Dialog=ADC2",
      Line("Radiobox_1", {{0, "Converter"}, {1, "Off"}, {2, "On"}, {3, "ADST=0"}, {4, "ADST=1"},
                          {7, "11"}, {8, "00000000000"}, {9, "11111111111"}}),
      Line("Radiobox_2", {{0, "Hold"}, {1, "Off"}, {2, "On"}, {3, "SMP=0"}, {4, "SMP=1"}, {7, "11"}}),
      Line("Radiobox_3", {{0, "Trigger"}, {1, "Soft"}, {2, "Timer"}, {3, "TRG=0"}, {4, "TRG=1"},
                          {7, "11"}}),
      Line("Combobox_1", {{0, "Channels"}, {1, "A"}, {2, "B"}, {3, "C"}, {4, "D"}, {5, "GS=0"},
                          {6, "GS=1"}, {7, "GS=2"}, {8, "GS=3"}, {13, "1"},
                          {14, "11000000"}, {15, "00110000"}, {16, "00000011"}, {17, ""}}),
      Line("Combobox_2", {{0, "Clock"}, {1, clockItem}, {2, "Divide by 4(subclk)"}, {3, "Divide by 2"},
                          {4, "Divide by 8"}, {7, "Divide by 1024"}, {8, "Divide by 4"},
                          {9, "CKS=0"}, {10, "CKS=1"}, {11, "CKS=2"}, {12, "CKS=3"},
                          {15, "CKS=6"}, {16, "CKS=7"}, {17, "//c0"}, {18, "//c1"}, {19, "//c2"},
                          {20, "//c3"}, {23, "//c6"}, {24, "//c7"}, {25, "1"}}),
      Line("Combobox_3", mode),
      Line("Combobox_4", {{0, "Source"}, {1, "fAD"}, {2, "fOCO-F"}, {3, "fAD/2"}, {7, "SRC=0"},
                          {8, "SRC=1"}, {9, "SRC=2"}, {13, "//fad"}, {14, "//foco"}, {15, "//fad2"},
                          {19, "1"}, {20, "111"}}),
      Line("Combobox_5", {{0, "Bits"}, {1, "10"}, {2, "8"}, {5, "BIT=0"}, {6, "BIT=1"}, {13, "1"}}),
      Line("Combobox_6", {{0, "Buffer"}, {1, "Off"}, {2, "On"}, {5, "BUF=0"}, {6, "BUF=1"}, {13, "1"}}),
      Line("Combobox_7", {{0, "Sweep"}, {1, "P"}, {2, "Q"}, {3, "R"}, {4, "S"}, {5, "SW=0"},
                          {6, "SW=1"}, {7, "SW=2"}, {8, "SW=3"}, {13, "1"}}),
  };
}

TEST(Adc2Panel, TheModeRefillsTheListsAndMasksTheTriggerWithAnInvertedFirstPlace) {
  Bench<ADC2Panel> bench(Adc2Section());
  bench.panel.ChooseOption("Radiobox_1", 1);
  EXPECT_EQ(bench.C("Combobox_1").parts[0].items, (std::vector<std::string>{"A", "B", "C"}));
  EXPECT_EQ(bench.C("Combobox_7").parts[0].items, (std::vector<std::string>{"P", "Q"}));
  // Channel group A offers the first two clocks.
  EXPECT_EQ(bench.C("Combobox_2").parts[0].items,
            (std::vector<std::string>{"Divide by 32", "Divide by 4(subclk)"}));
  EXPECT_EQ(bench.C("Radiobox_3").CheckedPart(), 0);

  ASSERT_TRUE(bench.panel.ChooseItem("Combobox_3", 1));
  const Control& trigger = bench.C("Radiobox_3");
  EXPECT_EQ(trigger.CheckedPart(), 1);
  EXPECT_FALSE(trigger.parts[0].enabled);
  EXPECT_TRUE(bench.HasRow("TRG=1"));
  EXPECT_FALSE(bench.C("Combobox_7").parts[0].enabled);
  EXPECT_EQ(bench.C("Combobox_1").parts[0].items, (std::vector<std::string>{"C", "D"}));
  EXPECT_EQ(bench.C("Combobox_1").parts[0].selection, 0);
  EXPECT_TRUE(bench.HasRow("GS=2"));
  EXPECT_FALSE(bench.C("Radiobox_2").parts[1].enabled);
  // The clock digits go by the channel list's position, not by its item: C stands first
  // now, and position 0 keeps the clocks it had.
  EXPECT_EQ(bench.C("Combobox_2").parts[0].items,
            (std::vector<std::string>{"Divide by 32", "Divide by 4(subclk)"}));
  bench.panel.ChooseItem("Combobox_1", 1);
  EXPECT_EQ(bench.C("Combobox_2").parts[0].items,
            (std::vector<std::string>{"Divide by 2", "Divide by 8"}));
  EXPECT_TRUE(bench.HasRow("CKS=2"));
}

TEST(Adc2Panel, AnEmptyDigitCellLeavesAListAloneButRunsItsHandler) {
  Bench<ADC2Panel> bench(Adc2Section());
  bench.panel.ChooseOption("Radiobox_1", 1);
  bench.panel.ChooseItem("Combobox_7", 1);
  ASSERT_TRUE(bench.HasRow("SW=1"));
  // The sweep mode has no Combobox_7 digits; its mask leaves the list enabled again.
  bench.panel.ChooseItem("Combobox_3", 1);
  bench.panel.ChooseItem("Combobox_3", 0);
  EXPECT_EQ(bench.C("Combobox_7").parts[0].items, (std::vector<std::string>{"P", "Q"}));
  // The mask's "0" put the list to item 0 while disabled; the handler wrote that item.
  EXPECT_TRUE(bench.HasRow("SW=0"));
}

// Serial clock cycle = divider / clock x 1000000 us.
TEST(Adc2Panel, OnKbChipsTheClockCommentGivesTheSerialClockCycle) {
  Bench<ADC2Panel> bench(Adc2Section(), "KB/77161 Group");
  bench.clocks.SystemClockHz = 16000000;
  bench.clocks.LowClockHz = 32768;
  bench.panel.ChooseOption("Radiobox_1", 1);
  EXPECT_EQ(bench.CommentOf("CKS"), "//c0, Serial Clock Cycle = 2.0us");  // 32 / 16 MHz
  ASSERT_TRUE(bench.panel.ChooseItem("Combobox_2", 1));
  EXPECT_EQ(bench.CommentOf("CKS"), "//c1, Serial Clock Cycle = 122.1us");  // 4 / 32768 Hz
  bench.panel.ChooseOption("Radiobox_1", 1);
  bench.panel.ChooseItem("Combobox_1", 1);  // group B: clocks 3 and 4
  EXPECT_EQ(bench.CommentOf("CKS"), "//c2, Serial Clock Cycle = 0.1us");  // 1 / 16 MHz
  bench.panel.ChooseItem("Combobox_1", 2);  // group D: clocks 7 and 8
  EXPECT_EQ(bench.CommentOf("CKS"), "//c6, Serial Clock Cycle = 64.0us");  // 1024 / 16 MHz
}

TEST(Adc2Panel, AnItemThatOnlyBeginsLikeADividerCountsAsOne) {
  Bench<ADC2Panel> bench(Adc2Section("Divide by 320"), "KB/77161 Group");
  bench.clocks.SystemClockHz = 10000000;
  bench.panel.ChooseOption("Radiobox_1", 1);
  EXPECT_EQ(bench.CommentOf("CKS"), "//c0, Serial Clock Cycle = 0.1us");
}

TEST(Adc2Panel, OutsideKbTheClockCommentStandsAlone) {
  Bench<ADC2Panel> bench(Adc2Section(), "QTL/4V Group");
  bench.clocks.SystemClockHz = 16000000;
  bench.panel.ChooseOption("Radiobox_1", 1);
  EXPECT_EQ(bench.CommentOf("CKS"), "//c0");
}

TEST(Adc2Panel, OnQtl4eTheOscillatorItemLeavesOutsideTheFirstModeAndComesBack) {
  Bench<ADC2Panel> bench(Adc2Section(), "QTL/4E Group");
  bench.panel.ChooseOption("Radiobox_1", 1);
  ASSERT_TRUE(bench.panel.ChooseItem("Combobox_4", 2));
  EXPECT_TRUE(bench.HasRow("SRC=2"));
  bench.panel.ChooseItem("Combobox_3", 1);
  const ControlModel& sources = bench.C("Combobox_4").parts[0];
  EXPECT_EQ(sources.items, (std::vector<std::string>{"fAD", "fAD/2"}));
  EXPECT_EQ(sources.selection, 0);
  EXPECT_TRUE(bench.HasRow("SRC=0"));
  bench.panel.ChooseItem("Combobox_4", 1);
  bench.panel.ChooseItem("Combobox_3", 0);
  EXPECT_EQ(sources.items, (std::vector<std::string>{"fAD", "fOCO-F", "fAD/2"}));
  EXPECT_EQ(*sources.SelectedItem(), "fAD/2");
}

TEST(Adc2Panel, OtherChipsKeepTheOscillatorItem) {
  Bench<ADC2Panel> bench(Adc2Section(), "QTL/4V Group");
  bench.panel.ChooseOption("Radiobox_1", 1);
  bench.panel.ChooseItem("Combobox_3", 1);
  EXPECT_EQ(bench.C("Combobox_4").parts[0].items.size(), 3u);
}

// The mode is saved before the lists, so a source index saved in the sweep mode means
// the list without the oscillator item.
TEST(Adc2Panel, SavesTheModeFirstAndReplaysTheListsItShaped) {
  Bench<ADC2Panel> bench(Adc2Section(), "QTL/4F Group");
  bench.panel.ChooseOption("Radiobox_1", 1);
  bench.panel.ChooseItem("Combobox_3", 1);
  bench.panel.ChooseItem("Combobox_4", 1);
  bench.panel.ChooseItem("Combobox_1", 1);
  ASSERT_TRUE(bench.HasRow("SRC=2"));
  EXPECT_EQ(bench.Saved(), "0 1 1 0 0 1 1 1 0 1 0 0 0  \n");

  Bench<ADC2Panel> again(Adc2Section(), "QTL/4F Group");
  again.panel.LoadState("ADC2:" + bench.Saved());
  EXPECT_EQ(*again.C("Combobox_4").parts[0].SelectedItem(), "fAD/2");
  EXPECT_EQ(*again.C("Combobox_1").parts[0].SelectedItem(), "D");
  EXPECT_TRUE(again.HasRow("SRC=2"));
  EXPECT_TRUE(again.HasRow("GS=3"));
  EXPECT_EQ(again.Saved(), bench.Saved());
}

// ---------------------------------------------------------------- ADC3Panel

// 62 or 31 cycles of the system clock, in microseconds.
TEST(Adc3Panel, ConversionTimesAgainstTheSystemClock) {
  const std::string warning =
      ", Warning: Conversion times faster than minimum conversion times (7.8us) ";
  EXPECT_EQ(ADC3Panel::ConversionComment("AD.AMR.BIT.CKS=0", "//slow", 4000000),
            "//slow, Conversion Times = 15.5us");
  EXPECT_EQ(ADC3Panel::ConversionComment("AD.AMR.BIT.CKS=1", "//fast", 4000000), "//fast" + warning);
  EXPECT_EQ(ADC3Panel::ConversionComment("AD.AMR.BIT.CKS=0", "//slow", 10000000), "//slow" + warning);
  // 10.3 us is still too fast, although the text names 7.8 us.
  EXPECT_EQ(ADC3Panel::ConversionComment("AD.AMR.BIT.CKS=1", "//fast", 3000000), "//fast" + warning);
  // 31 cycles at 2.5 MHz are exactly 12.4 us: not below the limit.
  EXPECT_EQ(ADC3Panel::ConversionComment("AD.AMR.BIT.CKS=1", "//fast", 2500000),
            "//fast, Conversion Times = 12.4us");
}

std::vector<std::string> Adc3Section() {
  return {
      "Dialog=ADC3",
      Line("Radiobox_1", {{0, "Converter"}, {1, "Off"}, {2, "On"}, {3, "ADST=0"}, {4, "ADST=1"},
                          {7, "11"}, {8, "0000"}, {9, "1111"}}),
      Line("Radiobox_2", {{0, "Speed"}, {1, "Slow"}, {2, "Fast"}, {3, "AD.AMR.BIT.CKS=0"},
                          {4, "AD.AMR.BIT.CKS=1"}, {5, "//62 states"}, {6, "//31 states"}, {7, "11"}}),
      Line("Combobox_1", {{0, "SCAN"}, {1, "Single"}, {2, "Scan"}, {4, "SCAN=0"}, {5, "SCAN=1"},
                          {7, "//single"}, {8, "//scan"}, {10, "1"}}),
      Line("Combobox_2", {{0, "CH"}, {1, "AN0"}, {12, "AN11"}, {13, "CH=0"}, {24, "CH=11"},
                          {25, "//an0"}, {36, "//an11"}, {37, "1"}}),
  };
}

TEST(Adc3Panel, TheSpeedCommentUsesThePagesSystemClock) {
  Bench<ADC3Panel> bench(Adc3Section(), "ZNR9/4X Group");
  bench.clocks.SystemClockHz = 4000000;
  bench.panel.ChooseOption("Radiobox_1", 1);
  ASSERT_TRUE(bench.panel.ChooseOption("Radiobox_2", 0));
  EXPECT_EQ(bench.CommentOf("AD.AMR.BIT.CKS"), "//62 states, Conversion Times = 15.5us");
  // Captions that are the rows' names show without a link; the mode list has not run.
  bench.panel.ChooseItem("Combobox_2", 1);
  EXPECT_EQ(bench.Listed(), (std::vector<std::string>{"AD.AMR.BIT.CKS=0", "CH=11"}));
  EXPECT_EQ(bench.CommentOf("CH"), "//an11");
}

TEST(Adc3Panel, TheSwitchMaskReRunsNothing) {
  Bench<ADC3Panel> bench(Adc3Section());
  bench.panel.ChooseOption("Radiobox_1", 0);
  EXPECT_FALSE(bench.C("Combobox_2").parts[0].enabled);
  bench.panel.ChooseOption("Radiobox_1", 1);
  EXPECT_TRUE(bench.C("Combobox_2").parts[0].enabled);
  EXPECT_FALSE(bench.HasRow("CH=0"));
  EXPECT_TRUE(bench.HasRow("ADST=1"));
}

TEST(Adc3Panel, SavesSixValues) {
  Bench<ADC3Panel> bench(Adc3Section());
  bench.panel.ChooseOption("Radiobox_1", 1);
  bench.panel.ChooseOption("Radiobox_2", 1);
  bench.panel.ChooseItem("Combobox_2", 1);
  EXPECT_EQ(bench.Saved(), "0 1 0 1 0 1  \n");
  Bench<ADC3Panel> again(Adc3Section());
  again.panel.LoadState("ADC3:" + bench.Saved());
  EXPECT_EQ(again.Saved(), bench.Saved());
  EXPECT_TRUE(again.HasRow("AD.AMR.BIT.CKS=1"));
  EXPECT_TRUE(again.HasRow("CH=11"));
  // The replay runs the mode list's handler too.
  EXPECT_TRUE(again.HasRow("SCAN=0"));
}

// ---------------------------------------------------------------- ADC4Panel

std::vector<std::string> Adc4Section() {
  std::map<int, std::string> fourBoxes{{0, "Pins A"}, {1, "a0"}, {2, "a1"}, {3, "a2"}, {4, "a3"}};
  std::map<int, std::string> eightBoxes{{0, "Pins B"}};
  for (int k = 1; k <= 4; ++k) {
    std::string n = std::to_string(k - 1);
    fourBoxes[3 + 2 * k] = "PA" + n + "=1";
    fourBoxes[4 + 2 * k] = "PA" + n + "=0";
    fourBoxes[11 + 2 * k] = "//a" + n + " on";
    fourBoxes[12 + 2 * k] = "//a" + n + " off";
  }
  for (int k = 1; k <= 8; ++k) {
    std::string n = std::to_string(k - 1);
    eightBoxes[k] = "b" + n;
    eightBoxes[7 + 2 * k] = "PB" + n + "=1";
    eightBoxes[8 + 2 * k] = "PB" + n + "=0";
    eightBoxes[23 + 2 * k] = "//b" + n + " on";
  }
  return {
      "Dialog=ADC4",
      // Places 1, 5, 7, 9, 11 and 13 are not read: the "0"s there change nothing.
      Line("Radiobox_1", {{0, "Converter"}, {1, "Off"}, {2, "On"}, {3, "ADST=0"}, {4, "ADST=1"},
                          {8, "0000000000000000000000"}, {9, "1011101010101011111111"}}),
      Line("Radiobox_2", {{0, "Mode"}, {1, "Single"}, {2, "Scan"}, {3, "SCAN=0"}, {4, "SCAN=1"}}),
      Line("Radiobox_3", {{0, "Trigger"}, {1, "Soft"}, {2, "Pin"}, {3, "TRGE=0"}, {4, "TRGE=1"}}),
      Line("Radiobox_4", {{0, "Time"}, {1, "Slow"}, {2, "Fast"}, {3, "CKS=0"}, {4, "CKS=9"},
                          {5, "//slow"}, {6, "//never"}}),
      Line("Radiobox_5", {{0, "Speed"}, {1, "Slow"}, {2, "Fast"}, {3, "CKS=8"}, {4, "CKS=1"},
                          {5, "//never"}, {6, "//fast"}}),
      Line("Radiobox_6", {{0, "Six"}, {1, "x"}}),
      Line("Radiobox_7", {{0, "Irq"}, {1, "Off"}, {2, "On"}, {3, "ADIE=0"}, {4, "ADIE=1"}}),
      Line("Radiobox_8", {{0, "Eight"}, {1, "y"}}),
      Line("Combobox_1", {{0, "Input"}, {1, "AN0"}, {2, "AN1"}, {3, "AN2"}, {6, "CH=0"}, {7, "CH=1"},
                          {8, "CH=2"}, {11, "//an0"}, {12, "//an1"}, {13, "//an2"},
                          {18, "1111"}, {19, "0111"}, {20, "1010"}}),
      Line("Combobox_2", {{0, "Group"}, {1, "G0"}, {2, "G1"}, {3, "G2"}, {5, "GRP=0"}, {6, "GRP=1"},
                          {7, "GRP=2"}, {15, "11111111"}, {16, "10101010"}, {17, "1111"}}),
      Line("Combobox_3", {{0, "End"}, {1, "E0"}, {2, "E1"}, {3, "E2"}, {4, "E3"}, {5, "E4"}, {6, "E5"},
                          {7, "E6"}, {8, "E7"}, {9, "END=0"}, {10, "END=1"}, {11, "END=2"},
                          {12, "END=3"}, {13, "END=4"}, {14, "END=5"}, {15, "END=6"}, {16, "END=7"}}),
      Line("Combobox_4", {{0, "Clock"}, {1, "phi"}, {5, "CLK=0"}}),
      Line("Combobox_5", {{0, "Align"}, {1, "Right"}, {2, "Left"}, {5, "DAL=0"}, {6, "DAL=1"}}),
      Line("Combobox_6", {{0, "Ref"}, {1, "AVCC"}, {2, "VREF"}, {5, "REF=0"}, {6, "REF=1"},
                          {15, "11"}, {16, "00"}}),
      Line("Checkbox_1", fourBoxes),
      Line("Checkbox_2", eightBoxes),
      // Each box's caption slot becomes the parameter of its box.
      "ExtraComment=Combobox_2,Radiobox_1(1)=/* group chosen */,/* second text */",
  };
}

TEST(Adc4Panel, NothingIsGreyedUntilTheSwitchHandlerRuns) {
  Bench<ADC4Panel> bench(Adc4Section());
  EXPECT_EQ(bench.C("Radiobox_1").CheckedPart(), 0);
  EXPECT_EQ(bench.C("Radiobox_2").CheckedPart(), -1);
  EXPECT_TRUE(bench.C("Combobox_1").parts[0].enabled);
  EXPECT_TRUE(bench.C("Checkbox_2").parts[7].enabled);
}

TEST(Adc4Panel, TheSwitchMaskReadsItsPlacesAndEveryHandlerWritesBehindIt) {
  Bench<ADC4Panel> bench(Adc4Section());
  ASSERT_TRUE(bench.panel.ChooseOption("Radiobox_1", 0));
  EXPECT_FALSE(bench.C("Radiobox_2").AnyPartEnabled());
  EXPECT_EQ(bench.C("Radiobox_2").CheckedPart(), 0);
  EXPECT_FALSE(bench.C("Checkbox_1").parts[0].enabled);
  EXPECT_TRUE(bench.Listed().empty());
  ASSERT_TRUE(bench.panel.ChooseOption("Radiobox_1", 1));
  // Place 2 is "1", place 3 "1"; the "0"s at places 1, 5, 7, 9, 11 and 13 are not read.
  for (const char* key : {"Radiobox_2", "Radiobox_3", "Radiobox_4", "Radiobox_5", "Radiobox_7"}) {
    EXPECT_TRUE(bench.C(key).parts[0].enabled && bench.C(key).parts[1].enabled) << key;
  }
  EXPECT_TRUE(bench.C("Checkbox_2").parts[7].enabled);
  EXPECT_EQ(bench.Listed(),
            (std::vector<std::string>{"SCAN=0", "TRGE=0", "CKS=0", "ADIE=0", "CH=0", "GRP=0",
                                      "END=0", "CLK=0", "DAL=0", "REF=0", "PA0=0", "PA1=0",
                                      "PA2=0", "PA3=0", "PB0=0", "PB1=0", "PB2=0", "PB3=0",
                                      "PB4=0", "PB5=0", "PB6=0", "PB7=0"}));
}

TEST(Adc4Panel, TheTwoGroupsOfThePairMoveTogetherAndShowOneRow) {
  Bench<ADC4Panel> bench(Adc4Section());
  bench.panel.ChooseOption("Radiobox_1", 1);
  ASSERT_TRUE(bench.panel.ChooseOption("Radiobox_5", 1));
  EXPECT_EQ(bench.C("Radiobox_4").CheckedPart(), 1);
  EXPECT_EQ(bench.CommentOf("CKS"), "//fast");
  EXPECT_TRUE(bench.HasRow("CKS=1"));
  ASSERT_TRUE(bench.panel.ChooseOption("Radiobox_4", 0));
  EXPECT_EQ(bench.C("Radiobox_5").CheckedPart(), 0);
  EXPECT_TRUE(bench.HasRow("CKS=0"));
  EXPECT_EQ(bench.CommentOf("CKS"), "//slow");
  std::vector<std::string> keys = bench.panel.ActiveKeys();
  EXPECT_EQ(std::count(keys.begin(), keys.end(), "CKS"), 1);
}

TEST(Adc4Panel, TheInputMaskInvertsItsFirstPlaceOnTheSecondGroupOfThePair) {
  Bench<ADC4Panel> bench(Adc4Section());
  bench.panel.ChooseOption("Radiobox_1", 1);
  // "0111": the first option of Radiobox_5 goes grey with its second option checked; the
  // re-run of Radiobox_4 then checks the first again, as the pair's handlers do.
  ASSERT_TRUE(bench.panel.ChooseItem("Combobox_1", 1));
  EXPECT_FALSE(bench.C("Radiobox_5").parts[0].enabled);
  EXPECT_TRUE(bench.HasRow("CH=1"));
  // "1010": the second options of both groups go grey and the pair falls to its first.
  bench.panel.ChooseOption("Radiobox_5", 1);
  ASSERT_TRUE(bench.panel.ChooseItem("Combobox_1", 2));
  EXPECT_FALSE(bench.C("Radiobox_4").parts[1].enabled);
  EXPECT_FALSE(bench.C("Radiobox_5").parts[1].enabled);
  EXPECT_EQ(bench.C("Radiobox_4").CheckedPart(), 0);
  EXPECT_FALSE(bench.C("Combobox_5").parts[0].enabled);
  EXPECT_TRUE(bench.HasRow("CKS=0"));
}

TEST(Adc4Panel, TheGroupListDecidesTheEndPinsAndKeepsAPositionThatStillExists) {
  Bench<ADC4Panel> bench(Adc4Section());
  bench.panel.ChooseOption("Radiobox_1", 1);
  bench.panel.ChooseItem("Combobox_3", 3);
  ASSERT_TRUE(bench.panel.ChooseItem("Combobox_2", 1));
  const ControlModel& ends = bench.C("Combobox_3").parts[0];
  EXPECT_EQ(ends.items, (std::vector<std::string>{"E0", "E2", "E4", "E6"}));
  EXPECT_EQ(*ends.SelectedItem(), "E6");
  EXPECT_TRUE(bench.HasRow("END=6"));
  // Four digits are too few: the list stays.
  bench.panel.ChooseItem("Combobox_2", 2);
  EXPECT_EQ(ends.items.size(), 4u);
  bench.panel.ChooseItem("Combobox_2", 0);
  EXPECT_EQ(ends.items.size(), 8u);
  EXPECT_EQ(*ends.SelectedItem(), "E3");
}

TEST(Adc4Panel, TheReferenceTakesTheLastBoxOfEachBlock) {
  Bench<ADC4Panel> bench(Adc4Section());
  bench.panel.ChooseOption("Radiobox_1", 1);
  bench.panel.ToggleCheckbox("Checkbox_1", 3, true);
  EXPECT_TRUE(bench.HasRow("PA3=1"));
  EXPECT_EQ(bench.CommentOf("PA3"), "//a3 on");
  ASSERT_TRUE(bench.panel.ChooseItem("Combobox_6", 1));
  EXPECT_FALSE(bench.C("Checkbox_1").parts[3].enabled);
  EXPECT_FALSE(bench.C("Checkbox_1").parts[3].checked);
  EXPECT_FALSE(bench.C("Checkbox_2").parts[7].enabled);
  // A greyed box writes nothing: its last row stays, and so does its slot.
  EXPECT_TRUE(bench.HasRow("PA3=1"));
  EXPECT_TRUE(bench.C("Checkbox_1").parts[0].enabled);
}

TEST(Adc4Panel, TheGroupListsExtraCommentGivesItsFirstTextWhateverTheItem) {
  Bench<ADC4Panel> bench(Adc4Section());
  bench.panel.ChooseOption("Radiobox_1", 1);
  bench.panel.ChooseItem("Combobox_2", 1);
  std::string out;
  bench.panel.EmitRegisterCode(out);
  EXPECT_EQ(out, "/* group chosen */");
  bench.panel.ChooseOption("Radiobox_1", 0);
  bench.panel.EmitRegisterCode(out);
  EXPECT_EQ(out, "");
}

TEST(Adc4Panel, SavesThirtyFourValuesAndReplaysThem) {
  Bench<ADC4Panel> bench(Adc4Section());
  bench.panel.ChooseOption("Radiobox_1", 1);
  bench.panel.ChooseOption("Radiobox_5", 1);
  bench.panel.ChooseItem("Combobox_2", 1);
  bench.panel.ChooseItem("Combobox_3", 2);
  bench.panel.ToggleCheckbox("Checkbox_1", 1, true);
  bench.panel.ToggleCheckbox("Checkbox_2", 6, true);
  EXPECT_EQ(bench.Saved(),
            "0 1 0 0 0 0 0 1 0 1 0 0 0 0 0 0 0 1 2 0 0 0 0 1 0 0 0 0 0 0 0 0 1 0  \n");
  Bench<ADC4Panel> again(Adc4Section());
  again.panel.LoadState("ADC4:" + bench.Saved());
  EXPECT_EQ(again.Saved(), bench.Saved());
  EXPECT_TRUE(again.HasRow("PB6=1"));
  EXPECT_TRUE(again.HasRow("END=4"));
  EXPECT_TRUE(again.HasRow("CKS=1"));
}

}  // namespace
}  // namespace tessara
