#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "panel_fixture.h"
#include "panels/framework/generic_panel.h"
#include "sample_panel.h"

namespace tessara {
namespace {

class PeripheralPanelTest : public ::testing::Test {
 protected:
  void SetUp() override {
    fixture.SetLines(SampleSection());
    panel.SetContext(&fixture.context);
    panel.LoadSection();
  }

  std::vector<std::string> ListedRows() const {
    std::vector<std::string> rows;
    for (const ParameterList::Row& row : fixture.list.Rows()) rows.push_back(row.parameter);
    return rows;
  }

  PanelFixture fixture;
  SamplePanel panel;
};

TEST_F(PeripheralPanelTest, LoadShowsTheRowsOfEnabledControlsThroughTheirLinks) {
  EXPECT_EQ(panel.ActiveKeys()[0], "P.POL");
  EXPECT_EQ(panel.ActiveKeys()[1], "P.CKS");
  EXPECT_EQ(panel.ActiveKeys()[2], "P.DUTY");
  EXPECT_EQ(ListedRows(), (std::vector<std::string>{"P.POL=0", "P.CKS=0", "P.DUTY=50"}));
  EXPECT_EQ(fixture.list.Rows()[1].comment, "//clock f1");
  EXPECT_EQ(panel.FindControl("Combobox_1")->parts[0].items,
            (std::vector<std::string>{"f1", "f4"}));
}

TEST_F(PeripheralPanelTest, SwitchingOffHidesRowsThatStayStoredAndComeBack) {
  ASSERT_TRUE(panel.ChooseOption("Radiobox_2", 1));
  ASSERT_TRUE(panel.ChooseOption("Radiobox_1", 0));
  EXPECT_FALSE(panel.FindControl("Radiobox_2")->AnyPartEnabled());
  EXPECT_EQ(panel.FindControl("Radiobox_2")->CheckedPart(), 0);
  EXPECT_TRUE(ListedRows().empty());
  // The group's last row is kept while it is hidden.
  EXPECT_EQ(panel.ParameterRows()[0], "P.POL=1");
  EXPECT_FALSE(panel.ChooseOption("Radiobox_2", 1));

  ASSERT_TRUE(panel.ChooseOption("Radiobox_1", 1));
  EXPECT_EQ(panel.CurrentChoice(), 1);
  // The re-run of the group's handler rewrites the row of the option the mask left.
  EXPECT_EQ(panel.ParameterRows()[0], "P.POL=0");
  EXPECT_EQ(ListedRows(), (std::vector<std::string>{"P.POL=0", "P.CKS=0", "P.DUTY=50"}));
}

TEST_F(PeripheralPanelTest, OptionRowGoesToTheSlotOfItsNameAndIsMarked) {
  ASSERT_TRUE(panel.ChooseOption("Radiobox_2", 1));
  EXPECT_EQ(panel.ParameterRows()[0], "P.POL=1");
  EXPECT_EQ(panel.ParameterComments()[0], "active low");
  EXPECT_EQ(fixture.list.HighlightRow(), 0);
  EXPECT_EQ(fixture.list.VisibleRow(), 0);
}

TEST_F(PeripheralPanelTest, OptionRowOfANewNameTakesTheFirstFreeSlotOrElseSlotZero) {
  std::vector<std::string> lines = SampleSection();
  lines.resize(8);  // no error lines: the kind reads 14 places
  lines[2] = "Radiobox_2=" + Cells({{0, "Polarity"}, {3, "P.NEW=0"}, {4, "P.OTHER=1"}});
  for (int i = 0; i < 6; ++i) lines.push_back("initial_value=R" + std::to_string(i) + "=0");
  fixture.SetLines(lines);
  SamplePanel full;
  full.SetContext(&fixture.context);
  full.LoadSection();
  ASSERT_EQ(full.ParameterRows()[8], "R5=0");
  full.ChooseOption("Radiobox_2", 1);
  EXPECT_EQ(full.ParameterRows()[9], "P.OTHER=1");
  full.ChooseOption("Radiobox_2", 0);
  EXPECT_EQ(full.ParameterRows()[0], "P.NEW=0");
  EXPECT_EQ(full.ParameterRows()[1], "P.CKS=0");
}

TEST_F(PeripheralPanelTest, ComboboxItemFindsItsCellsPastItemsLeftOut) {
  ASSERT_TRUE(panel.ChooseItem("Combobox_1", 1));  // "f4", cell 3 of the row
  EXPECT_EQ(panel.ParameterRows()[1], "P.CKS=2");
  EXPECT_EQ(panel.ParameterComments()[1], "clock f4");
  EXPECT_EQ(panel.ParameterRows()[3], "P.CKE=0");
  EXPECT_EQ(fixture.list.HighlightRow(), 1);
}

TEST_F(PeripheralPanelTest, RefillComboKeepsTheSelectionWhileTheMaskIsTheSame) {
  RefillableCombo clocks{{"f1", "f2", "", "f4"}, ""};
  int box = panel.ControlIndex("Combobox_1");
  panel.RefillCombo(box, clocks, "1111");
  EXPECT_EQ(panel.FindControl("Combobox_1")->parts[0].items,
            (std::vector<std::string>{"f1", "f2", "f4"}));
  panel.MutableControl("Combobox_1")->parts[0].Select(2);
  panel.RefillCombo(box, clocks, "1111");
  EXPECT_EQ(panel.FindControl("Combobox_1")->parts[0].selection, 2);
  panel.RefillCombo(box, clocks, "");
  EXPECT_EQ(panel.FindControl("Combobox_1")->parts[0].selection, 2);
  panel.RefillCombo(box, clocks, "0101");
  EXPECT_EQ(panel.FindControl("Combobox_1")->parts[0].items,
            (std::vector<std::string>{"f2", "f4"}));
  EXPECT_EQ(panel.FindControl("Combobox_1")->parts[0].selection, 0);
}

TEST_F(PeripheralPanelTest, RefreshGuardLetsAMaskRefreshOnlyOnce) {
  SamplePanel guarded(true);
  guarded.SetContext(&fixture.context);
  guarded.LoadSection();
  guarded.refreshes = 0;
  guarded.ChooseOption("Radiobox_1", 1);
  EXPECT_EQ(guarded.refreshes, 1);
  EXPECT_EQ(guarded.RefreshGuard(), 0);
  panel.refreshes = 0;
  panel.ChooseOption("Radiobox_1", 1);
  EXPECT_GT(panel.refreshes, 1);
}

TEST_F(PeripheralPanelTest, SaveStateWritesGroupsAndListIndicesAndLoadStateReplaysThem) {
  panel.ChooseOption("Radiobox_1", 1);
  panel.ChooseOption("Radiobox_2", 1);
  panel.ChooseItem("Combobox_1", 1);
  std::string line = panel.SaveTag();
  panel.SaveState(line);
  EXPECT_EQ(line, "PWM:0 1 0 1 1  \n");

  fixture.list.DeleteAllRows();
  SamplePanel restored;
  restored.SetContext(&fixture.context);
  restored.LoadSection();
  restored.LoadState("Checksum:1\nOther:1 1 \n" + line);
  EXPECT_EQ(restored.FindControl("Radiobox_2")->CheckedPart(), 1);
  EXPECT_EQ(restored.ParameterRows()[0], "P.POL=1");
  EXPECT_EQ(restored.ParameterRows()[1], "P.CKS=2");
}

TEST_F(PeripheralPanelTest, LoadStateWithoutTheTagKeepsTheStateAndShortLinesReadZero) {
  panel.ChooseOption("Radiobox_1", 1);
  panel.ChooseOption("Radiobox_2", 1);
  panel.LoadState("Nothing here");
  EXPECT_EQ(panel.FindControl("Radiobox_2")->CheckedPart(), 1);
  panel.LoadState("PWM:0 1 ");
  // The missing values read as 0: group 2 has no option checked and writes nothing.
  EXPECT_EQ(panel.FindControl("Radiobox_2")->CheckedPart(), -1);
  EXPECT_EQ(panel.ParameterRows()[0], "P.POL=1");
}

TEST_F(PeripheralPanelTest, EnableDigitsStartOptionsDisabled) {
  std::vector<std::string> lines = SampleSection();
  lines[2] += "";  // keeps the row; its digits are in cell 7
  lines[2].replace(lines[2].find(";11"), 3, ";01");
  fixture.SetLines(lines);
  SamplePanel p;
  p.SetContext(&fixture.context);
  p.LoadSection();
  EXPECT_FALSE(p.FindControl("Radiobox_2")->parts[0].enabled);
  EXPECT_TRUE(p.FindControl("Radiobox_2")->parts[1].enabled);
}

TEST_F(PeripheralPanelTest, TooltipsGoToTheControlsInOrder) {
  std::vector<std::string> lines = SampleSection();
  lines.push_back("Tooltip=switch;polarity;clock");
  fixture.SetLines(lines);
  SamplePanel p;
  p.SetContext(&fixture.context);
  p.LoadSection();
  ASSERT_EQ(p.Tooltips().bindings.size(), 3u);
  EXPECT_EQ(p.Tooltips().bindings[1].text, "polarity");
  EXPECT_EQ(p.Tooltips().bindings[1].control, p.ControlIndex("Radiobox_2"));
  EXPECT_EQ(p.Tooltips().bindings[1].part, -1);
}

TEST_F(PeripheralPanelTest, ClearTablesEmptiesWhatALoadFilledButNotTheControls) {
  panel.ChooseOption("Radiobox_2", 1);
  panel.ClearTables();
  EXPECT_TRUE(panel.Rows().Row(2).IsEmpty());
  EXPECT_EQ(panel.ParameterRows()[0], "");
  EXPECT_EQ(panel.InitialValueLinks()[0], "");
  EXPECT_EQ(panel.ErrorMinRows().RowCount(), 0);
  EXPECT_EQ(panel.FindControl("Radiobox_2")->CheckedPart(), 1);
}

// Captions of which one is part of the other both match the longer caption's link; the
// first free target wins and the later caption keeps its own name.
TEST(LinkResolutionTest, ACaptionInsideALongerCaptionTakesTheLongerOnesLink) {
  PanelFixture fixture;
  fixture.SetLines({"Dialog=WKP", "Radiobox_4=Mode Select;A;B;MS=0;MS=1",
                    "Radiobox_3=Mode;A;B;MD=0;MD=1", "initial_value=MS=0", "initial_value=MD=0"});
  GenericPanel panel(PanelKind::kWKP);
  panel.SetContext(&fixture.context);
  panel.LoadSection();
  EXPECT_EQ(panel.InitialValueLinks()[0], "Mode Select=MS");
  EXPECT_EQ(panel.ActiveKeys()[1], "MS");           // Radiobox_3, "Mode"
  EXPECT_EQ(panel.ActiveKeys()[2], "Mode Select");  // Radiobox_4 keeps its caption
  ASSERT_EQ(fixture.list.RowCount(), 1);
  EXPECT_EQ(fixture.list.Rows()[0].parameter, "MS=0");
}

TEST(LinkResolutionTest, AControlWithoutARowAddsNoKeyThatMatches) {
  PanelFixture fixture;
  fixture.SetLines({"Dialog=WKP", "initial_value==0"});
  GenericPanel panel(PanelKind::kWKP);
  panel.SetContext(&fixture.context);
  panel.LoadSection();
  EXPECT_EQ(panel.FindControl("Radiobox_2")->Caption(), "");
  EXPECT_EQ(fixture.list.RowCount(), 0);
}

}  // namespace
}  // namespace tessara
