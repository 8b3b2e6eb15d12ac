#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "panel_fixture.h"
#include "panels/framework/generic_panel.h"
#include "panels/framework/section_layout.h"

namespace tessara {
namespace {

std::string DialogLine(PanelKind kind) {
  return "Dialog=" + std::string(TagOf(kind).dialogValue);
}

class LoadSectionTest : public ::testing::Test {
 protected:
  // Loads `lines` into a fresh panel of `kind` with the common handlers.
  GenericPanel& Load(PanelKind kind, std::vector<std::string> lines) {
    fixture.SetLines(std::move(lines));
    panel = std::make_unique<GenericPanel>(kind);
    panel->SetContext(&fixture.context);
    panel->LoadSection();
    return *panel;
  }

  PanelFixture fixture;
  std::unique_ptr<GenericPanel> panel;
};

TEST_F(LoadSectionTest, CellsKeepEmptyOnesAndATrailingEmptyCell) {
  GenericPanel& p = Load(PanelKind::kAEC, {"Dialog=AEC", "Radiobox_1=a;b;c;", "Radiobox_2=x;;y"});
  const PanelRow& first = p.Rows().Row(2);
  ASSERT_EQ(first.CellCount(), 4);
  EXPECT_EQ(first.Cell(2), "c");
  EXPECT_EQ(first.Cell(3), "");
  EXPECT_FALSE(first.HasCell(4));
  const PanelRow& second = p.Rows().Row(3);
  ASSERT_EQ(second.CellCount(), 3);
  EXPECT_EQ(second.Cell(1), "");
  EXPECT_EQ(second.Cell(2), "y");
}

TEST_F(LoadSectionTest, LinesBeforeTheDialogLineAreIgnored) {
  GenericPanel& p = Load(PanelKind::kAEC, {"Radiobox_1=early;a;b", "Dialog=AEC",
                                           "Radiobox_2=late;a;b"});
  EXPECT_TRUE(p.Rows().Row(1).IsEmpty());
  EXPECT_EQ(p.Rows().Row(3).Cell(0), "late");
  EXPECT_EQ(p.FindControl("Radiobox_1")->Caption(), "");
  EXPECT_EQ(p.PeripheralName(), "Peripheral One");
}

TEST_F(LoadSectionTest, DialogValueArmsWithoutRegardToCaseButBlanksCount) {
  EXPECT_FALSE(Load(PanelKind::kAEC, {"dialog=aec", "Radiobox_1=on;a;b"}).Rows().Row(2).IsEmpty());
  EXPECT_TRUE(Load(PanelKind::kAEC, {"Dialog = AEC", "Radiobox_1=on;a;b"}).Rows().Row(2).IsEmpty());
  EXPECT_TRUE(Load(PanelKind::kAEC, {"Dialog=AEC ", "Radiobox_1=on;a;b"}).Rows().Row(2).IsEmpty());
}

TEST_F(LoadSectionTest, ADialogLineOfAnotherKindNeitherArmsNorDisarms) {
  GenericPanel& p = Load(PanelKind::kAEC, {"Dialog=WKP", "Radiobox_1=a;b;c", "Dialog=AEC",
                                           "Dialog=WKP", "Radiobox_2=d;e;f"});
  EXPECT_TRUE(p.Rows().Row(2).IsEmpty());
  EXPECT_EQ(p.Rows().Row(5).Cell(0), "d");
}

TEST_F(LoadSectionTest, TimerXAcceptsItsSecondDialogValue) {
  GenericPanel& p = Load(PanelKind::kTimerX, {"Dialog=Timer B", "Radiobox_1=Timer B;Off;On"});
  EXPECT_EQ(p.FindControl("Radiobox_1")->Caption(), "Timer B");
}

TEST_F(LoadSectionTest, InitialValueKeepsItsBlanksAndSplitsTheComment) {
  GenericPanel& p = Load(PanelKind::kWKP, {"Dialog=WKP", "initial_value=p=1 //c",
                                           "initial_value_2=q=2", "Radiobox_1=x"});
  EXPECT_EQ(p.ParameterRows()[0], "p=1 ");
  EXPECT_EQ(p.ParameterComments()[0], "//c");
  EXPECT_EQ(p.ParameterRows()[1], "q=2");
  EXPECT_EQ(p.ParameterComments()[1], "");
  EXPECT_EQ(p.Rows().Row(2).Cells(), std::vector<std::string>{"p=1 "});
}

TEST_F(LoadSectionTest, InitialValueLinesAreIgnoredByKindsThatComputeTheirRows) {
  GenericPanel& p = Load(PanelKind::kComparator, {DialogLine(PanelKind::kComparator),
                                                  "initial_value=p=1"});
  EXPECT_EQ(p.ParameterRows()[0], "");
  EXPECT_TRUE(p.Rows().Row(2).IsEmpty());
}

TEST_F(LoadSectionTest, TooltipTextsFollowTheClockRuleOnlyInClockPanels) {
  EXPECT_EQ(Load(PanelKind::kPort, {DialogLine(PanelKind::kPort), "Tooltip=a;b"}).TooltipTexts(),
            (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(Load(PanelKind::kClock, {DialogLine(PanelKind::kClock), "Tooltip=a;b"}).TooltipTexts(),
            (std::vector<std::string>{"a"}));
  // The AEC panel keeps ten texts at most.
  EXPECT_EQ(Load(PanelKind::kAEC, {"Dialog=AEC", "Tooltip=1;2;3;4;5;6;7;8;9;10;11;12"})
                .TooltipTexts()
                .size(),
            10u);
}

TEST_F(LoadSectionTest, PlacesBehindTheKindsLineLimitAreNotRead) {
  std::vector<std::string> lines{DialogLine(PanelKind::kPort)};
  for (int place = 2; place <= 64; ++place) lines.push_back("Unknown=x");
  lines.push_back("Peripheral_Heading=late heading");  // place 65
  EXPECT_EQ(Load(PanelKind::kPort, lines).PeripheralHeading(), "");
  lines[0] = DialogLine(PanelKind::kUART3);
  EXPECT_EQ(Load(PanelKind::kUART3, lines).PeripheralHeading(), "late heading");
}

TEST_F(LoadSectionTest, ExtraSettingKeysFillTheSlotOfTheirNumber) {
  GenericPanel& p = Load(PanelKind::kAEC, {"Dialog=AEC", "ExtraSetting_Checkbox_12=prio=High;a;b",
                                           "extrasetting_combobox_2=lvl=Level;1;2",
                                           "ExtraSetting_Combobox_9=too=far"});
  EXPECT_EQ(p.ExtraCheckSpecs()[12], "ExtraSetting_Checkbox_12=prio=High;a;b");
  EXPECT_EQ(p.ExtraComboSpecs()[2], "extrasetting_combobox_2=lvl=Level;1;2");
  EXPECT_EQ(p.ExtraComboSpecs().size(), 5u);
}

TEST_F(LoadSectionTest, ErrorLinesDropEmptyRowsAndCells) {
  GenericPanel& p = Load(PanelKind::kDAC, {DialogLine(PanelKind::kDAC), "Error_Min=a,b;;c,,d",
                                           "Error_Other=x,y"});
  const ErrorTable& table = p.ErrorMinRows();
  ASSERT_EQ(table.RowCount(), 2);
  EXPECT_EQ(table.Cell(0, 1), "b");
  EXPECT_EQ(table.Cell(1, 0), "c");
  EXPECT_EQ(table.Cell(1, 1), "d");
  EXPECT_FALSE(table.HasCell(1, 2));
  EXPECT_EQ(p.ErrorNullRows().RowCount(), 0);
}

TEST_F(LoadSectionTest, KindsWithoutErrorTablesIgnoreErrorLines) {
  EXPECT_EQ(Load(PanelKind::kAEC, {"Dialog=AEC", "Error_Min=a,b"}).ErrorMinRows().RowCount(), 0);
}

TEST_F(LoadSectionTest, OverLongLineShowsItsCodeAndIsUsedUpToTheLimit) {
  std::string longCaption(2600, 'x');
  GenericPanel& p = Load(PanelKind::kAEC, {"Dialog=AEC", "Radiobox_2=" + longCaption,
                                           "Peripheral_Heading=AEC block"});
  ASSERT_EQ(fixture.host.messages.size(), 1u);
  EXPECT_EQ(fixture.host.messages[0], "String Buffer over-run!!!,\n\n1258");
  // The line is cut at 2,500 characters, its cell at 199, and loading goes on.
  EXPECT_EQ(p.Rows().Row(2).Cell(0), std::string(199, 'x'));
  EXPECT_EQ(p.PeripheralHeading(), "AEC block");
}

TEST_F(LoadSectionTest, KindsWithoutOverrunCodeStayQuiet) {
  Load(PanelKind::kLCD, {DialogLine(PanelKind::kLCD), "Radiobox_1=" + std::string(3000, 'y')});
  EXPECT_TRUE(fixture.host.messages.empty());
}

TEST_F(LoadSectionTest, TimerRdCellsOverTheirSizeNameCellOrLastCell) {
  std::string big(1200, 'z');
  GenericPanel& p = Load(PanelKind::kTimerRD, {DialogLine(PanelKind::kTimerRD),
                                               "Radiobox_2=" + big + ";b;" + big});
  EXPECT_EQ(fixture.host.messages,
            (std::vector<std::string>{"String Buffer over-run!!!\n\n1114",
                                      "String Buffer over-run!!!\n\n1115"}));
  EXPECT_EQ(p.Rows().Row(2).Cell(0).size(), 999u);
}

TEST_F(LoadSectionTest, RowKeepsNoMoreCellsThanTheKindAllows) {
  std::string value;
  for (int c = 0; c < 30; ++c) value += "c" + std::to_string(c) + ";";
  GenericPanel& p = Load(PanelKind::kTimerG, {DialogLine(PanelKind::kTimerG), "Radiobox_1=" + value});
  EXPECT_EQ(p.Rows().Row(2).CellCount(), 20);
  EXPECT_EQ(p.Rows().Row(2).Cell(19), "c19");
}

TEST_F(LoadSectionTest, MissingSectionOrMissingDialogGivesAnEmptyPanel) {
  GenericPanel& none = Load(PanelKind::kWKP, {});
  EXPECT_TRUE(none.HasWindow());
  EXPECT_EQ(none.FindControl("Radiobox_1")->Caption(), "");
  GenericPanel& unarmed = Load(PanelKind::kWKP, {"no equals sign", "Radiobox_1=a;b;c"});
  EXPECT_TRUE(unarmed.Rows().Row(2).IsEmpty());
  EXPECT_TRUE(fixture.host.messages.empty());
}

TEST_F(LoadSectionTest, CaptionsLabelsAndLinksComeFromTheirCells) {
  GenericPanel& p = Load(PanelKind::kWKP, {"Dialog=WKP", "Radiobox_2=Mode;First;Second;M=0;M=1",
                                           "Radiobox_3=Edge;Rising;Falling;W.E=0;W.E=1",
                                           "Radiobox_4=Pull;Off;On;W.P=0;W.P=1"});
  const Control* edge = p.FindControl("Radiobox_3");
  EXPECT_EQ(edge->Caption(), "Edge");
  EXPECT_EQ(edge->parts[0].text, "Rising");
  EXPECT_EQ(edge->parts[1].text, "Falling");
  // Group 2 copies its caption and one label and links nothing.
  EXPECT_EQ(p.FindControl("Radiobox_2")->parts[0].text, "First");
  EXPECT_EQ(p.FindControl("Radiobox_2")->parts[1].text, "");
  EXPECT_EQ(p.InitialValueLinks()[0], "Edge=W.E");
  EXPECT_EQ(p.InitialValueLinks()[1], "Pull=W.P");
  EXPECT_EQ(p.InitialValueLinks()[2], "");
}

TEST_F(LoadSectionTest, ComboboxItemsFollowTheirAvailabilityDigits) {
  // ADC2 Combobox 4: items 1 to 6, link 7, availability digits in cell 20.
  std::string row = "Clock;A;B;;D;E;F;ck=1";
  for (int c = 8; c < 20; ++c) row += ";";
  row += ";101110";
  GenericPanel& p = Load(PanelKind::kADC2, {DialogLine(PanelKind::kADC2), "Combobox_4=" + row});
  const ControlModel& box = p.FindControl("Combobox_4")->parts[0];
  // B is left out by its digit, the empty item by its emptiness, F by its digit.
  EXPECT_EQ(box.items, (std::vector<std::string>{"A", "D", "E"}));
  EXPECT_EQ(box.selection, 0);
}

TEST_F(LoadSectionTest, ComboEditboxPresetsAreListedAndTheFirstGoesIntoTheField) {
  GenericPanel& p = Load(PanelKind::kDAC, {DialogLine(PanelKind::kDAC),
                                           "ComboEditbox_1=Level;V;DA.DR0;ok;1;0;255;bad;10|20|30"});
  const ControlModel& field = p.FindControl("ComboEditbox_1")->parts[0];
  // "30" is not closed by a bar.
  EXPECT_EQ(field.items, (std::vector<std::string>{"10", "20"}));
  EXPECT_EQ(field.text, "10");
  EXPECT_EQ(p.FindControl("ComboEditbox_1")->unitText, "V");
}

TEST_F(LoadSectionTest, ClockPanelSelectsItsStoredIndexAndStopsAtAnEmptyItem) {
  std::string row = "Divider;1;2;;4;5;div=1";
  for (int c = 7; c < 18; ++c) row += ";";
  row += ";1;11111";
  GenericPanel& p = Load(PanelKind::kClock, {DialogLine(PanelKind::kClock), "Combobox_1=" + row,
                                             "initial_value_1=clk=20000000"});
  const ControlModel& box = p.FindControl("Combobox_1")->parts[0];
  EXPECT_EQ(box.items, (std::vector<std::string>{"1", "2"}));
  EXPECT_EQ(box.selection, 1);
  EXPECT_EQ(p.InitialValueLinks()[0], "Divider=div");
  EXPECT_EQ(p.InitialValueLinks()[1], "initial_value_1=clk");
}

TEST_F(LoadSectionTest, FormatMarkerSetsTheLongLayout) {
  std::string row = "Timer RA;Off;On";
  for (int c = 3; c < 12; ++c) row += ";";
  EXPECT_TRUE(Load(PanelKind::kTimerRA, {DialogLine(PanelKind::kTimerRA), "Radiobox_1=" + row + ";v1.31"})
                  .LongLayout());
  EXPECT_FALSE(Load(PanelKind::kTimerRA, {DialogLine(PanelKind::kTimerRA), "Radiobox_1=" + row + ";V1.31"})
                   .LongLayout());
}

TEST_F(LoadSectionTest, Uart2ModeRowRemovesModesWithAZeroDigit) {
  std::string mode = "Serial Interface Mode;Async;Sync;I2C;SPI";
  for (int c = 5; c < 16; ++c) mode += ";";
  mode += ";01101";
  GenericPanel& p = Load(PanelKind::kUART2, {DialogLine(PanelKind::kUART2), "Combobox_1=" + mode});
  // Positions 0 and 3 go, counted as before any removal.
  EXPECT_EQ(p.FindControl("Combobox_1")->parts[0].items,
            (std::vector<std::string>{"Sync", "I2C"}));
}

TEST_F(LoadSectionTest, DmaCausesComeFromTheirDigitCell) {
  std::string row = "DMA Request Cause";
  for (int c = 1; c <= 28; ++c) row += ";cause" + std::to_string(c);
  for (int c = 29; c < 86; ++c) row += ";";
  row += ";0110";
  GenericPanel& p = Load(PanelKind::kDMA, {DialogLine(PanelKind::kDMA), "Combobox_1=" + row});
  EXPECT_EQ(p.FindControl("Combobox_1")->parts[0].items,
            (std::vector<std::string>{"cause2", "cause3"}));
}

TEST_F(LoadSectionTest, EveryKindLoadsItsOwnSection) {
  for (const ResourceTag& tag : kResourceTags) {
    SCOPED_TRACE(std::string(tag.className));
    const RowKeyLayout& first = RowKeysOf(tag.kind).front();
    GenericPanel& p = Load(tag.kind, {"Dialog=" + std::string(tag.dialogValue),
                                      first.key + "=Caption;One;Two",
                                      "Peripheral_Heading=heading"});
    EXPECT_EQ(p.PeripheralName(), "Peripheral One");
    EXPECT_EQ(p.Rows().Row(2).Cell(0), "Caption");
    EXPECT_EQ(p.FindControl(first.key)->Caption(), "Caption");
    EXPECT_EQ(p.PeripheralHeading(), "heading");
    EXPECT_EQ(static_cast<int>(p.ParameterRows().size()), p.Traits().parameterSlots);
  }
}

TEST(SectionLayoutTest, EveryKindHasRowKeysAndTheMarksParse) {
  for (const ResourceTag& tag : kResourceTags) {
    EXPECT_FALSE(RowKeysOf(tag.kind).empty()) << tag.className;
  }
  const RowKeyLayout* check = FindRowKey(PanelKind::kTimerRD, "checkbox_7");
  ASSERT_NE(check, nullptr);
  EXPECT_EQ(check->copied.size(), 9u);
  ASSERT_EQ(check->pairs.size(), 8u);
  EXPECT_EQ(check->pairs[7], std::make_pair(8, 23));
  const RowKeyLayout* box = FindRowKey(PanelKind::kTimerRA, "Combobox_2");
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(box->copied, (std::vector<int>{0, 2}));
  EXPECT_EQ(box->links, (std::vector<int>{6, 9}));
  EXPECT_EQ(FindRowKey(PanelKind::kAEC, "Radiobox_5"), nullptr);
  EXPECT_EQ(ParseRowKeyLayouts("Radiobox 3,5: C 0-2 / nonsense / Wheel 1: C 0").size(), 2u);
}

}  // namespace
}  // namespace tessara
