#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "panels/system/port_panel.h"
#include "sample_group.h"

namespace tessara {
namespace {

// Options of a pin's group, from 0: first and second status, first and second drive.
constexpr int kInput = 0;
constexpr int kOutput = 1;
constexpr int kLowDrive = 2;
constexpr int kHighDrive = 3;

class PortPanelTest : public ::testing::Test {
 protected:
  void Load(SampleGroup& group, PortPanel& panel) {
    ASSERT_GT(group.context.configuration, 0);
    ASSERT_TRUE(IsPanelKind(PanelKind::kPort, group.Group(), group.context.configuration));
    panel.SetContext(&group.context);
    panel.LoadSection();
    ASSERT_TRUE(group.host.messages.empty());
  }

  std::vector<std::string> Rows(const PortPanel& panel) const {
    std::vector<std::string> rows;
    for (const std::string& row : panel.ParameterRows()) {
      if (!row.empty()) rows.push_back(row);
    }
    return rows;
  }
};

class QtlPort0Test : public PortPanelTest {
 protected:
  void SetUp() override { Load(group, panel); }
  SampleGroup group{"Port 0", "QTL4C.ini"};
  PortPanel panel;
};

TEST_F(QtlPort0Test, StartsWithTheRegisterRowsAndTheDrivePairGreyed) {
  EXPECT_EQ(Rows(panel), (std::vector<std::string>{"pd0=0x00", "drr=0x00"}));
  ASSERT_EQ(group.list.RowCount(), 2);
  EXPECT_EQ(group.list.Rows()[1].comment, "//Port 0 drive capacity");
  const Control& pin = *panel.FindControl("Radiobox_1");
  EXPECT_EQ(pin.Caption(), "Pin0");
  EXPECT_TRUE(pin.parts[kInput].checked);
  EXPECT_TRUE(pin.parts[kLowDrive].checked);
  EXPECT_FALSE(pin.parts[kHighDrive].enabled);
  EXPECT_FALSE(panel.ChooseOption("Radiobox_1", kHighDrive));
  EXPECT_EQ(panel.ColumnHeadings(), (std::array<std::string, 3>{"Pin", "Pin Status", "Drive Capacity"}));
}

TEST_F(QtlPort0Test, TheTwoTooltipTextsGoToEveryStatusAndEveryDriveOption) {
  const std::vector<TooltipBinding>& bindings = panel.Tooltips().bindings;
  ASSERT_EQ(bindings.size(), 32u);
  int status = 0;
  for (const TooltipBinding& binding : bindings) {
    bool statusOption = binding.part == kInput || binding.part == kOutput;
    EXPECT_EQ(binding.text, statusOption ? "Input or output of the pin" : "Drive capacity of the output");
    EXPECT_LT(binding.control, PortPanel::kPins);
    status += statusOption ? 1 : 0;
  }
  EXPECT_EQ(status, 16);
}

TEST_F(QtlPort0Test, BackToTheFirstStatusUndoesTheDriveBitThenTheStatusBit) {
  ASSERT_TRUE(panel.ChooseOption("Radiobox_1", kOutput));
  EXPECT_EQ(Rows(panel), (std::vector<std::string>{"pd0=0x01", "drr=0x00"}));
  ASSERT_TRUE(panel.ChooseOption("Radiobox_1", kHighDrive));
  EXPECT_EQ(Rows(panel), (std::vector<std::string>{"pd0=0x01", "drr=0x01"}));
  EXPECT_EQ(panel.ParameterComments()[1], "//P0_0 high drive");

  ASSERT_TRUE(panel.ChooseOption("Radiobox_1", kInput));
  EXPECT_EQ(Rows(panel), (std::vector<std::string>{"pd0=0x00", "drr=0x00"}));
  EXPECT_EQ(panel.ParameterComments()[0], "//P0_0 input");
  EXPECT_EQ(panel.ParameterComments()[1], "//P0_0 low drive");
  // The status register was written last, so its row is the marked one.
  EXPECT_EQ(group.list.HighlightRow(), 0);
  const Control& pin = *panel.FindControl("Radiobox_1");
  EXPECT_TRUE(pin.parts[kLowDrive].checked);
  EXPECT_FALSE(pin.parts[kHighDrive].checked);
  EXPECT_FALSE(pin.parts[kLowDrive].enabled);
  EXPECT_EQ(panel.PinStatus(0), 0);
  EXPECT_EQ(panel.PinDrive(0), 0);
}

TEST_F(QtlPort0Test, AClickOnTheCheckedOptionTogglesNothing) {
  panel.ChooseOption("Radiobox_1", kOutput);
  panel.ChooseOption("Radiobox_1", kOutput);
  panel.ChooseOption("Radiobox_1", kHighDrive);
  panel.ChooseOption("Radiobox_1", kHighDrive);
  EXPECT_EQ(Rows(panel), (std::vector<std::string>{"pd0=0x01", "drr=0x01"}));
}

TEST_F(QtlPort0Test, EveryPinChangesItsOwnBitOfTheOneRow) {
  panel.ChooseOption("Radiobox_1", kOutput);
  panel.ChooseOption("Radiobox_3", kOutput);
  panel.ChooseOption("Radiobox_8", kOutput);
  panel.ChooseOption("Radiobox_8", kHighDrive);
  EXPECT_EQ(Rows(panel), (std::vector<std::string>{"pd0=0x85", "drr=0x80"}));
  ASSERT_EQ(group.list.RowCount(), 2);
  EXPECT_EQ(group.list.Rows()[0].parameter, "pd0=0x85");
  EXPECT_EQ(group.list.Rows()[0].comment, "//P0_7 output");
}

TEST_F(QtlPort0Test, SaveLineHoldsThirtySixIntegersAndReplaysToTheSameBytes) {
  panel.ChooseOption("Radiobox_1", kOutput);
  panel.ChooseOption("Radiobox_1", kHighDrive);
  panel.ChooseOption("Radiobox_3", kOutput);
  std::string line = panel.SaveTag();
  panel.SaveState(line);
  std::string untouched;
  for (int pin = 0; pin < 5; ++pin) untouched += "1 0 1 0 ";
  EXPECT_EQ(line, "Port0:0 1 0 1 1 0 1 0 0 1 1 0 " + untouched + "0 0 0 -1   \n");

  PortPanel restored;
  restored.SetContext(&group.context);
  restored.LoadSection();
  restored.LoadState("Port1:1 0 1 0 \n" + line);
  EXPECT_EQ(Rows(restored), (std::vector<std::string>{"pd0=0x05", "drr=0x01"}));
  EXPECT_EQ(restored.ParameterRows(), panel.ParameterRows());
  EXPECT_EQ(restored.ParameterComments(), panel.ParameterComments());
  EXPECT_EQ(restored.PinDrive(0), 1);
  EXPECT_TRUE(restored.FindControl("Radiobox_3")->parts[kOutput].checked);
}

TEST_F(PortPanelTest, SwitchesWriteTheirFixedSlotsAndAllOfThemAreReplayed) {
  SampleGroup group{"Port 1", "QTL4C.ini"};
  PortPanel panel;
  Load(group, panel);
  ASSERT_TRUE(panel.ToggleCheckbox("Checkbox_2", 0, true));
  EXPECT_EQ(panel.ParameterRows()[3], "pu03=1");
  EXPECT_EQ(panel.ParameterComments()[3], "//Pull-up on P1_4 to P1_7");
  EXPECT_EQ(panel.ParameterRows()[2], "");
  std::string line = panel.SaveTag();
  panel.SaveState(line);

  PortPanel restored;
  restored.SetContext(&group.context);
  restored.LoadSection();
  restored.LoadState(line);
  // The replay runs the first switch's handler as well, which writes its unchecked row.
  EXPECT_EQ(restored.ParameterRows()[2], "pu02=0");
  EXPECT_EQ(restored.ParameterRows()[3], "pu03=1");
}

TEST_F(PortPanelTest, TheLastSwitchAndTheListAreSavedButNotReadBackInThisGroup) {
  SampleGroup group{"Port 1", "QTL4C.ini"};
  PortPanel panel;
  Load(group, panel);
  ASSERT_TRUE(panel.ToggleCheckbox("Checkbox_3", 0, true));
  EXPECT_EQ(panel.ParameterRows()[4], "p1vt=1");
  panel.ToggleCheckbox("Checkbox_3", 0, false);
  EXPECT_EQ(panel.ParameterRows()[4], "p1vt=0");
  EXPECT_EQ(panel.ParameterRows()[5], "");
  ASSERT_TRUE(panel.ChooseItem("Combobox_1", 2));
  EXPECT_EQ(panel.ParameterRows()[2], "p1fsel=0x02");
  EXPECT_EQ(panel.ParameterComments()[2], "//P1 as analog input");

  panel.ToggleCheckbox("Checkbox_3", 0, true);
  group.context.instance = 1;
  std::string line = panel.SaveTag();
  panel.SaveState(line);
  EXPECT_EQ(line.substr(line.size() - 11), "0 0 1 2   \n");
  PortPanel restored;
  restored.SetContext(&group.context);
  restored.LoadSection();
  restored.LoadState(line);
  EXPECT_FALSE(restored.FindControl("Checkbox_3")->parts[0].checked);
  EXPECT_EQ(restored.ParameterRows()[4], "");
  EXPECT_EQ(restored.FindControl("Combobox_1")->parts[0].selection, 0);
}

TEST_F(PortPanelTest, APortWithoutADriveRegisterListsOnlyItsStatusRow) {
  SampleGroup group{"Port 3", "QTL4C.ini"};
  PortPanel panel;
  Load(group, panel);
  ASSERT_TRUE(panel.ChooseOption("Radiobox_4", kOutput));
  EXPECT_EQ(Rows(panel), std::vector<std::string>{"pd3=0x08"});
  EXPECT_FALSE(panel.FindControl("Radiobox_4")->parts[kHighDrive].enabled);
  EXPECT_EQ(group.list.RowCount(), 1);
}

TEST_F(PortPanelTest, APullUpGoesAwayWhenItsPinBecomesAnOutput) {
  SampleGroup group{"Port 1"};
  PortPanel panel;
  Load(group, panel);
  EXPECT_EQ(panel.ColumnHeadings()[2], "MOS Input Pull Up");
  ASSERT_TRUE(panel.ChooseOption("Radiobox_1", kHighDrive));
  ASSERT_TRUE(panel.ChooseOption("Radiobox_2", kHighDrive));
  EXPECT_EQ(Rows(panel), (std::vector<std::string>{"IO.PCR1=0x00", "IO.PUCR1.BYTE=0x03"}));

  ASSERT_TRUE(panel.ChooseOption("Radiobox_2", kOutput));
  EXPECT_EQ(Rows(panel), (std::vector<std::string>{"IO.PCR1=0x02", "IO.PUCR1.BYTE=0x01"}));
  const Control& pin = *panel.FindControl("Radiobox_2");
  EXPECT_FALSE(pin.parts[kHighDrive].enabled);
  EXPECT_TRUE(pin.parts[kLowDrive].checked);
  EXPECT_FALSE(pin.parts[kHighDrive].checked);

  // Back to input: the drive bit is toggled back while the other pin's bit keeps the
  // register non-zero, and the status change takes the pull-up away once more.
  ASSERT_TRUE(panel.ChooseOption("Radiobox_2", kInput));
  EXPECT_EQ(Rows(panel), (std::vector<std::string>{"IO.PCR1=0x00", "IO.PUCR1.BYTE=0x01"}));
}

TEST_F(PortPanelTest, HeadingsFollowThePinRows) {
  SampleGroup kbPort5{"Port 5"};
  PortPanel port5;
  Load(kbPort5, port5);
  EXPECT_EQ(port5.ColumnHeadings(), (std::array<std::string, 3>{"Pin", "Pin Status", "Data Output"}));

  SampleGroup kbIrq{"IRQ"};
  PortPanel irq;
  Load(kbIrq, irq);
  EXPECT_EQ(irq.ColumnHeadings(), (std::array<std::string, 3>{"IRQ", "Interrupt Enable", "Active Edge"}));
  ASSERT_TRUE(irq.ChooseOption("Radiobox_2", kOutput));
  ASSERT_TRUE(irq.ChooseOption("Radiobox_2", kHighDrive));
  EXPECT_EQ(Rows(irq), (std::vector<std::string>{"IENR1.BYTE=0x02", "IEGR.BYTE=0x02"}));
  EXPECT_EQ(irq.ParameterComments()[1], "//IRQ1 on the rising edge");
}

}  // namespace
}  // namespace tessara
