#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "panels/framework/bit_operation.h"
#include "panels/system/interrupt_panel.h"
#include "panels/system/key_input_panel.h"
#include "sample_group.h"

namespace tessara {
namespace {

template <typename Panel>
void LoadPanel(SampleGroup& group, Panel& panel, PanelKind kind) {
  ASSERT_GT(group.context.configuration, 0);
  ASSERT_TRUE(IsPanelKind(kind, group.Group(), group.context.configuration));
  panel.SetContext(&group.context);
  panel.LoadSection();
  ASSERT_TRUE(group.host.messages.empty());
}

TEST(BitOperation, ToggleSetAndPlainValue) {
  EXPECT_EQ(BitOperation::Parse("^10").Apply(0x13), 0x03u);
  EXPECT_EQ(BitOperation::Parse("|80").Apply(0x01), 0x81u);
  EXPECT_EQ(BitOperation::Parse("=2A").Apply(0x01), 0x2Au);
  // A toggle that only acts on a register holding something.
  EXPECT_EQ(BitOperation::Parse("^01").Apply(0x00, true), 0x00u);
  EXPECT_EQ(BitOperation::Parse("^01").Apply(0x00), 0x01u);
  EXPECT_EQ(RegisterRowValue("IEGR.BYTE=H'1F"), 0x1Fu);
  EXPECT_EQ(RegisterRowText("pd0", 0x5), "pd0=0x05");
}

class InterruptPanelTest : public ::testing::Test {
 protected:
  void SetUp() override { LoadPanel(group, panel, PanelKind::kInterrupt); }
  const std::string& ControlRegister() const { return panel.ParameterRows()[0]; }

  SampleGroup group{"INT 0", "QTL4C.ini"};
  InterruptPanel panel;
};

TEST_F(InterruptPanelTest, SecondPolarityClickedTwiceChangesTheValueOnce) {
  EXPECT_EQ(ControlRegister(), "int0ic=0x00,int0en=0");
  ASSERT_TRUE(panel.ChooseOption("Radiobox_5", 1));
  ASSERT_TRUE(panel.ChooseOption("Radiobox_5", 1));
  EXPECT_EQ(ControlRegister(), "int0ic=0x10,int0en=0");
  EXPECT_EQ(panel.Group5Choice(), 1);
  ASSERT_TRUE(panel.ChooseOption("Radiobox_5", 0));
  ASSERT_TRUE(panel.ChooseOption("Radiobox_5", 0));
  EXPECT_EQ(ControlRegister(), "int0ic=0x00,int0en=0");
}

TEST_F(InterruptPanelTest, BitOperationsCarryTheStatementsBehindTheComma) {
  ASSERT_TRUE(panel.ChooseOption("Radiobox_4", 3));
  EXPECT_EQ(ControlRegister(), "int0ic=0x03,int0en=1");
  // The polarity put back last leaves its comment on the row.
  EXPECT_EQ(panel.ParameterComments()[0], "//INT0 on the falling edge");
  ASSERT_TRUE(panel.ChooseOption("Radiobox_5", 1));
  EXPECT_EQ(ControlRegister(), "int0ic=0x13,int0en=1");
  EXPECT_EQ(panel.ParameterComments()[0], "//INT0 on the rising edge");
}

TEST_F(InterruptPanelTest, TheFourthGroupPutsThePolarityBitsBack) {
  panel.ChooseOption("Radiobox_5", 1);
  panel.ChooseOption("Radiobox_4", 2);
  EXPECT_EQ(ControlRegister(), "int0ic=0x12,int0en=1");
  panel.ChooseOption("Radiobox_5", 0);
  EXPECT_EQ(ControlRegister(), "int0ic=0x02,int0en=1");
  // With the first polarity the toggle runs twice and the rebuilt value stays.
  panel.ChooseOption("Radiobox_4", 5);
  EXPECT_EQ(ControlRegister(), "int0ic=0x05,int0en=1");
}

TEST_F(InterruptPanelTest, BothEdgesRemoveTheSecondPolarityAndItsBits) {
  panel.ChooseOption("Radiobox_5", 1);
  ASSERT_TRUE(panel.ChooseOption("Radiobox_2", 1));
  EXPECT_EQ(ControlRegister(), "int0ic=0x00,int0en=0");
  const Control& polarity = *panel.FindControl("Radiobox_5");
  EXPECT_FALSE(polarity.parts[1].enabled);
  EXPECT_TRUE(polarity.parts[0].checked);
  EXPECT_EQ(panel.Group5Choice(), 0);
  EXPECT_EQ(panel.ParameterRows()[1], "int0both=1");
  EXPECT_FALSE(panel.ChooseOption("Radiobox_5", 1));
  panel.ChooseOption("Radiobox_2", 0);
  EXPECT_TRUE(panel.FindControl("Radiobox_5")->parts[1].enabled);
}

TEST_F(InterruptPanelTest, PlainRowsAndTheListTakeTheirOwnSlots) {
  panel.ChooseOption("Radiobox_1", 1);
  panel.ChooseOption("Radiobox_3", 2);
  ASSERT_TRUE(panel.ChooseItem("Combobox_1", 2));
  EXPECT_EQ(panel.ParameterRows()[1], "int0pin=1");
  EXPECT_EQ(panel.ParameterRows()[2], "int0f=2");
  EXPECT_EQ(panel.ParameterRows()[3], "int0sel=2");
  EXPECT_EQ(panel.ParameterComments()[3], "//INT0 on P1_7");
  // Every non-empty slot is listed: no key filter.
  EXPECT_EQ(group.list.RowCount(), 4);
}

TEST_F(InterruptPanelTest, SaveLineOfNineteenIntegersReplaysTheRegister) {
  panel.ChooseOption("Radiobox_4", 3);
  panel.ChooseOption("Radiobox_5", 1);
  std::string line = panel.SaveTag();
  panel.SaveState(line);
  EXPECT_EQ(line, "Interrupt0:1 0 1 0 1 0 0 0 0 0 0 1 0 0 0 0 0 1 0  \n");
  InterruptPanel restored;
  restored.SetContext(&group.context);
  restored.LoadSection();
  restored.LoadState(line);
  EXPECT_EQ(restored.ParameterRows()[0], "int0ic=0x13,int0en=1");
  EXPECT_EQ(restored.Group5Choice(), 1);
}

TEST(InterruptPanelFamilies, TheZnr9FamilySavesThirteenIntegers) {
  SampleGroup group{"INT 0", "ZNR94X.ini"};
  InterruptPanel panel;
  LoadPanel(group, panel, PanelKind::kInterrupt);
  panel.ChooseOption("Radiobox_1", 1);
  panel.ChooseOption("Radiobox_4", 3);
  panel.ChooseOption("Radiobox_5", 1);
  std::string line = panel.SaveTag();
  panel.SaveState(line);
  EXPECT_EQ(line, "Interrupt0:1 0 0 0 0 1 0 0 0 0 0 1 0  \n");
  InterruptPanel restored;
  restored.SetContext(&group.context);
  restored.LoadSection();
  restored.LoadState(line);
  EXPECT_EQ(restored.ParameterRows()[0], "int0ic=0x13,int0en=1");
  // The first group is not in this form and stays as the window opened.
  EXPECT_EQ(restored.FindControl("Radiobox_1")->CheckedPart(), 0);
}

TEST(InterruptPanelFamilies, AZeroInAGroupsDigitsGreysTheWholeGroup) {
  SampleGroup group{"INT 1", "QTL4C.ini"};
  InterruptPanel panel;
  LoadPanel(group, panel, PanelKind::kInterrupt);
  for (const ControlModel& option : panel.FindControl("Radiobox_3")->parts) {
    EXPECT_FALSE(option.enabled);
  }
  EXPECT_FALSE(panel.FindControl("Combobox_1")->parts[0].enabled);
  EXPECT_TRUE(panel.FindControl("Radiobox_4")->parts[7].enabled);
}

class KeyInputPanelTest : public ::testing::Test {
 protected:
  void SetUp() override { LoadPanel(group, panel, PanelKind::kKeyInput); }
  const std::string& Register() const { return panel.ParameterRows()[0]; }
  bool Checked(const char* key) const { return panel.FindControl(key)->parts[0].checked; }

  SampleGroup group{"Key Input", "QTL4C.ini"};
  KeyInputPanel panel;
};

TEST_F(KeyInputPanelTest, EachPairButtonIsAGroupOfOneOption) {
  const Control& on = *panel.FindControl("Radiobox_3");
  ASSERT_EQ(on.parts.size(), 1u);
  EXPECT_EQ(on.parts[0].text, "K10-K13 On");
  EXPECT_TRUE(Checked("Radiobox_2"));
  EXPECT_FALSE(Checked("Radiobox_3"));
  EXPECT_EQ(Register(), "kirold=0x00");
}

TEST_F(KeyInputPanelTest, APinsBitFollowsItsButtonsAndTheListShowsItsState) {
  ASSERT_TRUE(panel.ChooseOption("Radiobox_3", 0));
  EXPECT_FALSE(Checked("Radiobox_2"));
  EXPECT_EQ(Register(), "kirold=0x01");
  EXPECT_EQ(panel.ParameterComments()[0], "//K10 key input on");
  ASSERT_TRUE(panel.ChooseOption("Radiobox_3", 0));
  EXPECT_EQ(Register(), "kirold=0x01");

  // A pin never touched shows the first button and leaves the register alone.
  ASSERT_TRUE(panel.ChooseItem("Combobox_1", 2));
  EXPECT_TRUE(Checked("Radiobox_2"));
  EXPECT_FALSE(Checked("Radiobox_3"));
  EXPECT_EQ(Register(), "kirold=0x01");
  EXPECT_EQ(panel.PairChoice(0), 0);
  ASSERT_TRUE(panel.ChooseOption("Radiobox_3", 0));
  EXPECT_EQ(Register(), "kirold=0x05");

  ASSERT_TRUE(panel.ChooseItem("Combobox_1", 0));
  EXPECT_TRUE(Checked("Radiobox_3"));
  ASSERT_TRUE(panel.ChooseOption("Radiobox_2", 0));
  EXPECT_EQ(Register(), "kirold=0x04");
  EXPECT_EQ(panel.ParameterComments()[0], "//K10 key input off");
  EXPECT_EQ(panel.PinState(0)[0], 0);
  EXPECT_EQ(panel.PinState(0)[2], 1);
}

TEST_F(KeyInputPanelTest, TheSecondPairSetsTheHighBits) {
  ASSERT_TRUE(panel.ChooseItem("Combobox_2", 3));
  ASSERT_TRUE(panel.ChooseOption("Radiobox_5", 0));
  EXPECT_EQ(Register(), "kirold=0x80");
  EXPECT_EQ(panel.PinState(1)[3], 1);
  EXPECT_EQ(panel.PinState(0)[3], 0);
}

TEST_F(KeyInputPanelTest, SaveKeepsOnlyThePresentPinOfEachPair) {
  panel.ChooseOption("Radiobox_1", 2);
  EXPECT_EQ(panel.ParameterRows()[1], "kupic=0x02");
  panel.ChooseOption("Radiobox_3", 0);
  panel.ChooseItem("Combobox_1", 1);
  panel.ChooseOption("Radiobox_3", 0);
  EXPECT_EQ(Register(), "kirold=0x03");
  std::string line = panel.SaveTag();
  panel.SaveState(line);
  EXPECT_EQ(line, "KeyInputInterrupt:0 0 1 0 0 0 0 0 1 0 0 1 1 0  \n");

  KeyInputPanel restored;
  restored.SetContext(&group.context);
  restored.LoadSection();
  restored.LoadState(line);
  EXPECT_EQ(restored.ParameterRows()[0], "kirold=0x02");
  EXPECT_EQ(restored.ParameterRows()[1], "kupic=0x02");
  EXPECT_EQ(restored.FindControl("Combobox_1")->parts[0].selection, 1);
  EXPECT_TRUE(restored.FindControl("Radiobox_3")->parts[0].checked);
}

TEST(KeyInputPanelGroups, AZeroDisablesAListAndItsButtons) {
  SampleGroup group{"Key Input"};
  KeyInputPanel panel;
  LoadPanel(group, panel, PanelKind::kKeyInput);
  EXPECT_FALSE(panel.FindControl("Combobox_2")->parts[0].enabled);
  EXPECT_FALSE(panel.FindControl("Radiobox_4")->parts[0].enabled);
  EXPECT_FALSE(panel.ChooseOption("Radiobox_5", 0));
  ASSERT_TRUE(panel.ChooseOption("Radiobox_3", 0));
  EXPECT_EQ(panel.ParameterRows()[0], "kmrold=0x01");
}

}  // namespace
}  // namespace tessara
