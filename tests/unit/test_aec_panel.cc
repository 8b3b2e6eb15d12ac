#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "panels/analog/aec_panel.h"
#include "sample_group.h"

namespace tessara {
namespace {

class AecPanelTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_GT(group.context.configuration, 0);
    ASSERT_TRUE(IsPanelKind(PanelKind::kAEC, group.Group(), group.context.configuration));
    panel.SetContext(&group.context);
    panel.LoadSection();
  }

  std::vector<std::string> ListedRows() const {
    std::vector<std::string> rows;
    for (const ParameterList::Row& row : group.list.Rows()) rows.push_back(row.parameter);
    return rows;
  }

  std::string Emitted() const {
    std::string out;
    panel.EmitRegisterCode(out);
    return out;
  }

  SampleGroup group{"AEC"};
  AECPanel panel;
};

TEST_F(AecPanelTest, LoadsItsSampleSection) {
  EXPECT_TRUE(group.host.messages.empty());
  EXPECT_EQ(panel.PeripheralName(), "AEC");
  EXPECT_EQ(panel.FindControl("Radiobox_1")->Caption(), "Event Counter");
  EXPECT_EQ(panel.FindControl("Radiobox_4")->parts[1].text, "16 bits");
  EXPECT_EQ(panel.PeripheralHeading(), "//**************************************;// AEC setting: asynchronous event counter;//**************************************");
  EXPECT_EQ(panel.FileFunction(), "void AecStart(void) { }");
  EXPECT_EQ(panel.FindControl("Radiobox_1")->CheckedPart(), 0);
  EXPECT_EQ(ListedRows(), std::vector<std::string>{"AEC.ECCR.BIT.ECPWME=0"});
  ASSERT_EQ(panel.Tooltips().bindings.size(), 4u);
  EXPECT_EQ(panel.Tooltips().bindings[0].control, panel.ControlIndex("Radiobox_1"));
}

TEST_F(AecPanelTest, NotUsedDisablesEveryGroupAndEmitsOnlyItsOwnLine) {
  ASSERT_TRUE(panel.ChooseOption("Radiobox_1", 0));
  for (const char* key : {"Radiobox_2", "Radiobox_3", "Radiobox_4"}) {
    EXPECT_FALSE(panel.FindControl(key)->AnyPartEnabled()) << key;
  }
  EXPECT_TRUE(ListedRows().empty());
  EXPECT_EQ(panel.ParameterRows()[0], "AEC.ECCR.BIT.ECPWME=0");
  EXPECT_EQ(Emitted(), "/* Event counter not used */");
}

TEST_F(AecPanelTest, RisingEdgeRulesOutTheLongCounterAndHasTheLastWord) {
  panel.ChooseOption("Radiobox_1", 1);
  panel.ChooseOption("Radiobox_4", 1);
  ASSERT_TRUE(panel.ChooseOption("Radiobox_2", 1));
  const Control& length = *panel.FindControl("Radiobox_4");
  EXPECT_EQ(length.CheckedPart(), 0);
  EXPECT_FALSE(length.parts[1].enabled);
  EXPECT_EQ(ListedRows(), std::vector<std::string>{"AEC.ECCR.BIT.ECPWME=1"});
  EXPECT_EQ(group.list.Rows()[0].comment, "//Count on rising edge");
  // Group 1's mask enables the option again, group 2's re-run disables it once more.
  panel.ChooseOption("Radiobox_1", 1);
  EXPECT_FALSE(panel.FindControl("Radiobox_4")->parts[1].enabled);
}

TEST_F(AecPanelTest, EmitsTheLinesOfTheCheckedOptions) {
  panel.ChooseOption("Radiobox_1", 1);
  panel.ChooseOption("Radiobox_3", 1);
  panel.ChooseOption("Radiobox_4", 1);
  EXPECT_EQ(Emitted(),
            "/* Event counter used */\n\t/* Counts AEVH pin events */\n\t/* One 16-bit counter */");
  std::string extra;
  panel.EmitExtraCode(extra);
  EXPECT_EQ(extra, "");
}

TEST_F(AecPanelTest, SaveLineHoldsEightIntegersAndReplaysThroughTheHandlers) {
  panel.ChooseOption("Radiobox_1", 1);
  panel.ChooseOption("Radiobox_3", 1);
  panel.ChooseOption("Radiobox_2", 1);
  std::string line = panel.SaveTag();
  panel.SaveState(line);
  EXPECT_EQ(line, "AEC:0 1 0 1 0 1 1 0  \n");

  AECPanel restored;
  restored.SetContext(&group.context);
  restored.LoadSection();
  restored.LoadState("Series/Group/PartNo:4 0 0 \n" + line + "ExtraSettings:0 \n");
  EXPECT_EQ(restored.FindControl("Radiobox_2")->CheckedPart(), 1);
  EXPECT_EQ(restored.FindControl("Radiobox_3")->CheckedPart(), 1);
  EXPECT_FALSE(restored.FindControl("Radiobox_4")->parts[1].enabled);
  EXPECT_EQ(restored.ParameterRows()[0], "AEC.ECCR.BIT.ECPWME=1");
}

TEST_F(AecPanelTest, SecondGroupCountsOnlyWhileTheSwitchIsEnabled) {
  panel.MutableControl("Radiobox_1")->parts[0].enabled = false;
  panel.MutableControl("Radiobox_1")->parts[1].enabled = false;
  panel.RefreshParameters("");
  EXPECT_TRUE(ListedRows().empty());
}

}  // namespace
}  // namespace tessara
