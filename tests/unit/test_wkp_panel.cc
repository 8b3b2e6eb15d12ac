#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "panels/analog/wkp_panel.h"
#include "sample_group.h"

namespace tessara {
namespace {

class WkpPanelTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_GT(group.context.configuration, 0);
    panel.SetContext(&group.context);
    panel.LoadSection();
  }

  std::vector<std::string> ListedRows() const {
    std::vector<std::string> rows;
    for (const ParameterList::Row& row : group.list.Rows()) rows.push_back(row.parameter);
    return rows;
  }

  SampleGroup group{"WKP"};
  WKPPanel panel;
};

TEST_F(WkpPanelTest, LoadsItsSampleSection) {
  EXPECT_TRUE(group.host.messages.empty());
  EXPECT_EQ(panel.FindControl("Radiobox_9")->Caption(), "WKP5 Edge");
  // The enable digits of group 9 start its second option disabled.
  EXPECT_FALSE(panel.FindControl("Radiobox_9")->parts[1].enabled);
  EXPECT_EQ(ListedRows().size(), 6u);
  EXPECT_EQ(ListedRows()[0], "WKP.WEGR.BIT.WKEGS0=0");
  EXPECT_EQ(panel.TooltipTexts().size(), 9u);
}

TEST_F(WkpPanelTest, GroupOneWritesItsOwnRowAndStillLeavesGroupNineAlone) {
  ASSERT_TRUE(panel.ChooseOption("Radiobox_1", 1));
  EXPECT_EQ(panel.ParameterRows()[6], "WKP.WKPCR.BIT.WKPE=1");
  EXPECT_EQ(panel.ParameterComments()[6], "//Wake-up interrupt used");
  EXPECT_FALSE(panel.FindControl("Radiobox_9")->parts[1].enabled);
  EXPECT_FALSE(panel.ChooseOption("Radiobox_9", 1));
  ASSERT_TRUE(panel.ChooseOption("Radiobox_3", 1));
  EXPECT_EQ(ListedRows()[0], "WKP.WEGR.BIT.WKEGS0=1");
  EXPECT_EQ(group.list.HighlightRow(), 0);
}

TEST_F(WkpPanelTest, NotUsedHidesEveryRowButKeepsThem) {
  panel.ChooseOption("Radiobox_1", 1);
  panel.ChooseOption("Radiobox_4", 1);
  ASSERT_TRUE(panel.ChooseOption("Radiobox_1", 0));
  EXPECT_TRUE(ListedRows().empty());
  EXPECT_EQ(panel.FindControl("Radiobox_4")->CheckedPart(), 0);
  // The disabled group's handler returned at once: its last row stays.
  EXPECT_EQ(panel.ParameterRows()[1], "WKP.WEGR.BIT.WKEGS1=1");
  EXPECT_EQ(panel.ParameterRows()[6], "WKP.WKPCR.BIT.WKPE=0");
}

TEST_F(WkpPanelTest, ExtraCommentFollowsGroupTwoAndTheGateOfGroupOne) {
  std::string out;
  panel.ChooseOption("Radiobox_1", 0);
  panel.EmitRegisterCode(out);
  EXPECT_EQ(out, "");
  panel.ChooseOption("Radiobox_1", 1);
  panel.ChooseOption("Radiobox_2", 1);
  panel.EmitRegisterCode(out);
  EXPECT_EQ(out, "/* Pins WKP4 to WKP7 in use */\n\t/* Noise filter off */");
}

TEST_F(WkpPanelTest, SaveLineHasSixteenIntegersAndGroupNineFollowsTheMasks) {
  panel.ChooseOption("Radiobox_1", 1);
  panel.ChooseOption("Radiobox_8", 1);
  std::string line = panel.SaveTag();
  panel.SaveState(line);
  EXPECT_EQ(line, "WKP:0 1 1 0 1 0 1 0 1 0 1 0 1 0 0 1  \n");

  WKPPanel restored;
  restored.SetContext(&group.context);
  restored.LoadSection();
  restored.MutableControl("Radiobox_9")->CheckOption(1);
  restored.LoadState(line + "0 1 0 1");
  EXPECT_EQ(restored.FindControl("Radiobox_8")->CheckedPart(), 1);
  EXPECT_EQ(restored.ParameterRows()[4], "WKP.WEGR.BIT.WKEGS4=1");
  EXPECT_EQ(restored.FindControl("Radiobox_9")->CheckedPart(), 1);
}

}  // namespace
}  // namespace tessara
