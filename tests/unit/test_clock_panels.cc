#include <gtest/gtest.h>

#include "database/device_database.h"
#include "pages/parameter_list.h"
#include "panels/system/clock2_panel.h"
#include "panels/system/clock_panel.h"
#include "recording_host.h"

namespace tessara {
namespace {

// A group whose configuration 1 is the clock, with the given section lines.
struct ClockFixture {
  explicit ClockFixture(const char* tag, std::vector<std::string> lines) {
    entry.Group = "QTL/4C Group";
    entry.Configuration[1] = "Clock";
    entry.ResourceID[1] = tag;
    entry.SectionLines.Assign(1, lines);
    context.host = &host;
    context.group = &entry;
    context.configuration = 1;
    context.parameterList = &list;
  }
  // As the selection page loads a clock panel at a change of group.
  void Load(PeripheralPanel& panel) {
    panel.SetContext(&context);
    panel.ClearTables();
    panel.LoadSection();
    panel.OnInitDialog();
    panel.RunHandler(panel.ControlIndex("Radiobox_1"));
    panel.RefreshParameters("");
  }
  std::vector<std::string> ListRows() const {
    std::vector<std::string> rows;
    for (const ParameterList::Row& row : list.Rows()) rows.push_back(row.parameter);
    return rows;
  }
  RecordingHost host;
  DatabaseEntry entry;
  PanelContext context;
  ParameterList list;
};

std::string RowNamed(const PeripheralPanel& panel, std::string_view name) {
  for (const std::string& row : panel.ParameterRows()) {
    if (PeripheralPanel::RowName(row) == name) return row;
  }
  return "";
}

std::vector<std::string> ClockLines() {
  return {
      "Dialog=Clock",
      "Radiobox_1=Src;A;B;C;s=1;s=2;s=3;t=1;;t=3;//s1;//s2;//s3;//t1;;//t3;111;SSS;11110;01001;10000;;;clk=7",
      "Radiobox_2=Drive;Lo;Hi;d=0;d=1;//lo;//hi;11;SS",
      "Combobox_1=CPU Clock Division;/1;/2;/4;;;v=0;v=1;v=2;;;//v0;//v1;//v2;;;1;S;2;111",
      "Combobox_2=Clock Frequency;F;MHz;20;10;;;;clk=20000000;clk=10000000;;;;//20;//10;;;;1;S;0;11",
      "Combobox_3=Sub;S;MHz;0.5;;;;;clk=500000;;;;;//0.5;;;;;1;S;0;1",
  };
}

TEST(ClockPanel, SourceOptionsWriteTheirRowsAndMasks) {
  ClockFixture fixture("IID_DIALOG_CLOCK", ClockLines());
  ClockPanel panel;
  fixture.Load(panel);
  EXPECT_EQ(fixture.ListRows(), (std::vector<std::string>{"s=1", "t=1", "d=1", "v=2"}));
  const Control* drive = panel.FindControl("Radiobox_2");
  EXPECT_TRUE(drive->parts[1].checked);  // starts on its second option
  EXPECT_EQ(RowNamed(panel, "clk"), "clk=20000000");

  // B: "01001" forces Drive to its second option and disables its first; the divider
  // goes back to its start index 2, not to 0; the first frequency list is disabled.
  ASSERT_TRUE(panel.ChooseItem("Combobox_1", 0));
  ASSERT_TRUE(panel.ChooseItem("Combobox_2", 1));
  ASSERT_TRUE(panel.ChooseOption("Radiobox_1", 1));
  EXPECT_FALSE(drive->parts[0].enabled);
  EXPECT_TRUE(drive->parts[1].checked);
  const Control* divider = panel.FindControl("Combobox_1");
  EXPECT_FALSE(divider->parts[0].enabled);
  EXPECT_EQ(divider->parts[0].selection, 2);
  // The second row of B is empty: t keeps its value from A. The disabled list keeps
  // its clk row; the enabled second list then writes its own.
  EXPECT_EQ(fixture.ListRows(), (std::vector<std::string>{"s=2", "t=1", "d=1"}));
  EXPECT_EQ(RowNamed(panel, "clk"), "clk=500000");

  // C writes its third row, clk=7, into the clk slot; no list is enabled to overwrite it.
  ASSERT_TRUE(panel.ChooseOption("Radiobox_1", 2));
  EXPECT_EQ(RowNamed(panel, "clk"), "clk=7");
  EXPECT_FALSE(panel.FindControl("Combobox_2")->parts[0].enabled);
}

TEST(ClockPanel, SaveStateHoldsEveryOptionAndLoadStateReplaysIt) {
  ClockFixture fixture("IID_DIALOG_CLOCK", ClockLines());
  ClockPanel panel;
  fixture.Load(panel);
  ASSERT_TRUE(panel.ChooseItem("Combobox_2", 1));
  ASSERT_TRUE(panel.ChooseOption("Radiobox_1", 1));
  std::string saved;
  panel.SaveState(saved);
  // The mask's "0" put the first frequency list back to item 0.
  EXPECT_EQ(saved, "0 1 0 0 1 2 0 0  \n");

  ClockPanel replayed;
  ClockFixture second("IID_DIALOG_CLOCK", ClockLines());
  second.Load(replayed);
  replayed.LoadState("Other:1 1 \nClock:" + saved);
  EXPECT_EQ(replayed.ParameterRows(), panel.ParameterRows());
  EXPECT_EQ(second.ListRows(), fixture.ListRows());
}

TEST(ClockPanel, DefaultsHideAGroupWhoseOptionsAreAllHidden) {
  std::vector<std::string> lines = ClockLines();
  lines[2] = "Radiobox_2=Drive;Lo;Hi;d=0;d=1;//lo;//hi;10;HH";
  ClockFixture fixture("IID_DIALOG_CLOCK", lines);
  ClockPanel panel;
  fixture.Load(panel);
  const Control* drive = panel.FindControl("Radiobox_2");
  EXPECT_FALSE(drive->frame.visible);
  EXPECT_FALSE(drive->parts[0].visible);
  // A hidden option does not count: the group writes no row.
  EXPECT_EQ(fixture.ListRows(), (std::vector<std::string>{"s=1", "t=1", "v=2"}));
}

std::vector<std::string> Clock2Lines() {
  auto cells = [](std::vector<std::pair<int, std::string>> values, int count) {
    std::vector<std::string> out(static_cast<std::size_t>(count));
    for (auto& [k, v] : values) out[static_cast<std::size_t>(k)] = v;
    std::string joined;
    for (std::size_t i = 0; i < out.size(); ++i) joined += (i ? ";" : "") + out[i];
    return joined;
  };
  return {
      "Dialog=Clock",
      "Radiobox_1=" + cells({{0, "Src"}, {1, "A"}, {2, "B"}, {3, "C"}, {4, "D"}, {5, "s=1"}, {6, "s=2"},
                             {7, "s=3"}, {8, "s=4"}, {21, "1111"}, {22, "SSSS"}, {23, "1111111111"},
                             {24, "0011111111"}, {25, "1111111111"}, {26, "1111111111"}, {29, "x=1"}},
                            31),
      "Radiobox_2=Two;P;Q;p=0;p=1;;;11;SS",
      "Combobox_2=Freq;F;MHz;8;16;;;;;clk=8000000;clk=16000000;;;;;1;S;0;11;110;011;;;;;0;1",
      "Combobox_4=Osc;1/1;1/2;;;;;;;o=0;o=1;;;;;1;;oscdiv=1;oscdiv=2;;;;;;;;;;;;;;;1;S;0;11",
      "Combobox_5=Mul;x2;x4;x6;m=2;m=4;m=6;n=1;n=1;n=1;PLL=2;PLL=4;PLL=6;;;;;;;1;S;0;101",
  };
}

TEST(Clock2Panel, FourthSourceRefillsBox5FromTheFrequency) {
  ClockFixture fixture("IID_DIALOG_CLOCK2", Clock2Lines());
  Clock2Panel panel;
  fixture.Load(panel);
  const ControlModel& box5 = panel.FindControl("Combobox_5")->parts[0];
  // An enabled Combobox_5 gets its items only from a refill.
  EXPECT_TRUE(box5.items.empty());
  ASSERT_TRUE(panel.ChooseOption("Radiobox_1", 3));
  EXPECT_EQ(box5.items, (std::vector<std::string>{"x2", "x4"}));
  ASSERT_TRUE(panel.ChooseItem("Combobox_2", 1));
  EXPECT_EQ(box5.items, (std::vector<std::string>{"x4", "x6"}));
  EXPECT_EQ(box5.selection, 1);
  EXPECT_NE(std::find(panel.ParameterRows().begin(), panel.ParameterRows().end(), "PLL=6"),
            panel.ParameterRows().end());
  // The same digits again keep the user's selection.
  ASSERT_TRUE(panel.ChooseItem("Combobox_5", 0));
  ASSERT_TRUE(panel.ChooseItem("Combobox_2", 1));
  EXPECT_EQ(box5.selection, 0);
}

TEST(Clock2Panel, ADisabledBox5RefillsFromItsOwnDigits) {
  std::vector<std::string> lines = Clock2Lines();
  lines[1].replace(lines[1].find("1111111111"), 10, "111111110-");
  ClockFixture fixture("IID_DIALOG_CLOCK2", lines);
  Clock2Panel panel;
  fixture.Load(panel);
  const ControlModel& box5 = panel.FindControl("Combobox_5")->parts[0];
  EXPECT_FALSE(box5.enabled);
  EXPECT_EQ(box5.items, (std::vector<std::string>{"x2", "x6"}));
  EXPECT_EQ(RowNamed(panel, "PLL"), "");
}

TEST(Clock2Panel, AnyMaskDigitForcesTheSecondOption) {
  ClockFixture fixture("IID_DIALOG_CLOCK2", Clock2Lines());
  Clock2Panel panel;
  fixture.Load(panel);
  const Control* two = panel.FindControl("Radiobox_2");
  // "1" only enables, yet the selection moves to the second option.
  EXPECT_TRUE(two->parts[1].checked);
  EXPECT_TRUE(two->parts[0].enabled);
  ASSERT_TRUE(panel.ChooseOption("Radiobox_2", 0));
  ASSERT_TRUE(panel.ChooseOption("Radiobox_1", 1));
  EXPECT_TRUE(two->parts[1].checked);
  EXPECT_FALSE(two->parts[0].enabled);
}

TEST(Clock2Panel, OscillatorClockDividesOnlyWithTheThirdSource) {
  ClockFixture fixture("IID_DIALOG_CLOCK2", Clock2Lines());
  Clock2Panel panel;
  fixture.Load(panel);
  EXPECT_DOUBLE_EQ(panel.OscillatorClock(20000000.7), 20000000);
  ASSERT_TRUE(panel.ChooseOption("Radiobox_1", 2));
  ASSERT_TRUE(panel.ChooseItem("Combobox_4", 1));
  EXPECT_DOUBLE_EQ(panel.OscillatorClock(20000001), 10000000);
}

TEST(Clock2Panel, SummaryInputReadsThePanelState) {
  ClockFixture fixture("IID_DIALOG_CLOCK2", Clock2Lines());
  Clock2Panel panel;
  fixture.Load(panel);
  ASSERT_TRUE(panel.ChooseItem("Combobox_2", 1));
  ClockSummaryInput input = panel.SummaryInput();
  EXPECT_EQ(input.sourceCaption, "Src");
  EXPECT_EQ(input.sourceLabels, (std::vector<std::string>{"A", "B", "C", "D"}));
  EXPECT_EQ(input.frequency.label, "F");
  EXPECT_EQ(input.frequency.selected, "16");
  EXPECT_DOUBLE_EQ(ClockRowValue(input.parameterRows, "clk"), 16000000);
}

}  // namespace
}  // namespace tessara
