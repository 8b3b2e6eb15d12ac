#include "panels/framework/extra_settings_panel.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "panel_fixture.h"
#include "panels/framework/generic_panel.h"

namespace tessara {
namespace {

// What a front-end's drawer was asked to do, in order.
class RecordingPresenter : public ExtraSettingsPresenter {
 public:
  void SlideOut() override { calls.push_back("out"); }
  void SlideBack() override { calls.push_back("back"); }
  void ControlsChanged() override { ++redraws; }
  std::vector<std::string> calls;
  int redraws = 0;
};

class ExtraSettingsPanelTest : public ::testing::Test {
 protected:
  void Open(std::vector<std::string> lines, const std::string& filter = "") {
    SetLines(std::move(lines));
    popup.SetPresenter(&presenter);
    popup.extraSettingFound = [this] { ++found; };
    popup.controlChanged = [this](int number) { changed.push_back(number); };
    popup.SetupExtraSettings(filter);
  }
  // Another peripheral's lines, with the same state row.
  void SetLines(std::vector<std::string> lines) {
    lines_ = std::move(lines);
    popup.SetPeripheral({lines_.begin(), lines_.end()}, &row);
  }
  // The numbers of the shown controls, ordered by their place: combo boxes first.
  std::vector<int> ShownInLayoutOrder() const {
    std::vector<int> shown;
    for (int place = 0; place < ExtraSettingsPanel::kControls; ++place) {
      for (int number = 1; number <= ExtraSettingsPanel::kComboBoxes; ++number) {
        if (popup.Control(number).place == place) shown.push_back(number);
      }
    }
    for (int place = 0; place < ExtraSettingsPanel::kControls; ++place) {
      for (int number = ExtraSettingsPanel::kComboBoxes + 1; number <= ExtraSettingsPanel::kControls; ++number) {
        if (popup.Control(number).place == place) shown.push_back(number);
      }
    }
    return shown;
  }

  std::vector<std::string> lines_;
  ExtraSettingsRow row{};
  RecordingPresenter presenter;
  ExtraSettingsPanel popup;
  int found = 0;
  std::vector<int> changed;
};

const char* kPriority =
    "ExtraSetting_Combobox_1=IPL=Interrupt Priority;Level 0;Level 1;Level 2;;Level 4;;;;"
    "ipr=0;ipr=1;ipr=2;ipr=3;ipr=4;;;;//level 0;//level 1;//level 2;//level 3;//level 4";

TEST_F(ExtraSettingsPanelTest, AComboBoxTakesLabelItemsToTheFirstEmptyAndTheStoredIndex) {
  row[1] = 2;
  Open({"Dialog=AEC", kPriority});
  const ExtraControl& combo = popup.Combo(1);
  EXPECT_TRUE(combo.visible);
  EXPECT_EQ(combo.label, "Interrupt Priority");
  EXPECT_EQ(combo.items, (std::vector<std::string>{"Level 0", "Level 1", "Level 2"}));
  EXPECT_EQ(combo.selection, 2);
  EXPECT_EQ(popup.ComboSelection(1), 2);
  EXPECT_EQ(found, 1);
}

TEST_F(ExtraSettingsPanelTest, ACheckBoxTakesItsLabelAsText) {
  Open({"ExtraSetting_Checkbox_1=WAIT=Stop in wait mode;w=0;w=1;//runs;//stops"});
  EXPECT_TRUE(popup.Check(1).visible);
  EXPECT_EQ(popup.Check(1).label, "Stop in wait mode");
  EXPECT_FALSE(popup.Check(2).visible);
}

TEST_F(ExtraSettingsPanelTest, FilterWordsKeepALineForTheModeThatNamesIt) {
  const std::vector<std::string> lines = {
      "ExtraSetting_Checkbox_1=SSU_CLK=SSU clock phase;a;b",
      "ExtraSetting_Checkbox_2=iic_ack=IIC acknowledge;a;b",  // the words count in any case
      "ExtraSetting_Checkbox_3=SIO_POL=SIO polarity;a;b",
      "ExtraSetting_Checkbox_4=I2C_FAST=I2C fast mode;a;b",
      "ExtraSetting_Checkbox_5=NF=Noise filter;a;b",
  };
  Open(lines);
  EXPECT_EQ(ShownInLayoutOrder(), (std::vector<int>{9}));
  EXPECT_EQ(found, 5) << "every line found counts, shown or not";

  popup.SetupExtraSettings("IIC");
  EXPECT_EQ(ShownInLayoutOrder(), (std::vector<int>{6, 9}));
  popup.SetupExtraSettings("I2C");
  EXPECT_EQ(ShownInLayoutOrder(), (std::vector<int>{8, 9}));
  popup.SetupExtraSettings("SSU");
  EXPECT_EQ(ShownInLayoutOrder(), (std::vector<int>{5, 9}));
}

TEST_F(ExtraSettingsPanelTest, ALineThatDoesNotApplyLetsTheSearchGoOn) {
  // The first line for box 1 belongs to a mode and the second has no label: both count
  // as found, and the third gives the box.
  Open({"ExtraSetting_Checkbox_1=SSU_X=SSU only;a;b", "ExtraSetting_Checkbox_1=no label;a;b",
         "ExtraSetting_Checkbox_1=PLAIN=Plain box;a;b"});
  EXPECT_EQ(popup.Check(1).label, "Plain box");
  EXPECT_EQ(found, 3);
}

TEST_F(ExtraSettingsPanelTest, ALineWithoutALabelCountsButShowsNothing) {
  Open({"ExtraSetting_Combobox_2=NoNameHere;x;y"});
  EXPECT_FALSE(popup.Combo(2).visible);
  EXPECT_EQ(found, 1);
  EXPECT_EQ(popup.FirstShownControl(), -1);
}

TEST_F(ExtraSettingsPanelTest, TheLayoutClosesUpOverHiddenControls) {
  Open({"ExtraSetting_Combobox_1=A=First;1", "ExtraSetting_Combobox_3=C=Third;1",
         "ExtraSetting_Checkbox_2=B2=Two", "ExtraSetting_Checkbox_5=B5=Five",
         "ExtraSetting_Checkbox_6=B6=Six"});
  EXPECT_EQ(popup.Combo(1).place, 0);
  EXPECT_EQ(popup.Combo(2).place, -1);
  EXPECT_EQ(popup.Combo(3).place, 1);
  EXPECT_EQ(popup.ShownComboCount(), 2);
  // The check boxes stand below the two shown combo boxes, one step apart, in order.
  EXPECT_EQ(popup.Check(2).place, 0);
  EXPECT_EQ(popup.Check(5).place, 1);
  EXPECT_EQ(popup.Check(6).place, 2);
  EXPECT_EQ(popup.Check(1).place, -1);
  EXPECT_EQ(popup.FirstShownControl(), 1);

  // Another peripheral with check boxes only: they move up to the top.
  SetLines({"ExtraSetting_Checkbox_3=B3=Three"});
  popup.SetupExtraSettings("");
  EXPECT_EQ(popup.ShownComboCount(), 0);
  EXPECT_EQ(popup.Check(3).place, 0);
  EXPECT_EQ(popup.FirstShownControl(), 7);
  EXPECT_EQ(ShownInLayoutOrder(), (std::vector<int>{7}));
}

TEST_F(ExtraSettingsPanelTest, ModeOneSelectsTheStoredIndicesAndSlidesOut) {
  Open({kPriority, "ExtraSetting_Checkbox_1=W=Wait;a;b"});
  row[1] = 1;
  EXPECT_EQ(popup.SetPopupMode(1), 1);
  EXPECT_EQ(popup.Combo(1).selection, 1);
  EXPECT_EQ(presenter.calls, (std::vector<std::string>{"out"}));
  // The same mode again, and -1, change nothing.
  EXPECT_EQ(popup.SetPopupMode(1), 1);
  EXPECT_EQ(popup.SetPopupMode(-1), 1);
  EXPECT_EQ(presenter.calls.size(), 1u);
}

TEST_F(ExtraSettingsPanelTest, ModeZeroForgetsTheStoredSideSettings) {
  Open({kPriority, "ExtraSetting_Checkbox_1=W=Wait;a;b", "ExtraSetting_Checkbox_2=D=Debug;a;b"});
  popup.SetPopupMode(1);
  ASSERT_TRUE(popup.ChooseComboItem(1, 2));
  ASSERT_TRUE(popup.SetCheckBox(2, true));
  row[1] = 2;
  row[2] = -1;  // a box that never had a selection keeps none
  row[6] = 1;
  row[25] = 7;  // beyond the controls: not a side setting
  EXPECT_EQ(popup.SetPopupMode(0), 0);
  EXPECT_EQ(row[1], 0);
  EXPECT_EQ(row[2], -1);
  EXPECT_EQ(row[6], 0);
  EXPECT_EQ(row[25], 7);
  EXPECT_FALSE(popup.Check(2).checked);
  EXPECT_EQ(presenter.calls, (std::vector<std::string>{"out", "back"}));
}

TEST_F(ExtraSettingsPanelTest, APeripheralWithoutShownSideSettingsHidesTheOpenPopup) {
  Open({kPriority});
  popup.SetPopupMode(1);
  SetLines({"Radiobox_1=Switch;Off;On"});
  popup.SetupExtraSettings("");
  EXPECT_EQ(popup.PopupMode(), 0);
  EXPECT_EQ(presenter.calls, (std::vector<std::string>{"out", "back"}));

  // Lines that wait for a mode word are hidden, not forgotten.
  SetLines({"ExtraSetting_Combobox_1=SSU_IPL=Priority;0;1;2"});
  row[1] = 2;
  popup.SetupExtraSettings("SSU");
  popup.SetPopupMode(1);
  popup.SetupExtraSettings("");
  EXPECT_EQ(popup.PopupMode(), 0);
  EXPECT_EQ(row[1], 2);
  popup.SetupExtraSettings("SSU");
  EXPECT_EQ(popup.ComboSelection(1), 2);
}

TEST_F(ExtraSettingsPanelTest, UserActionsReachOnlyShownControlsOfAShownPopup) {
  Open({kPriority, "ExtraSetting_Checkbox_3=W=Wait;a;b"});
  EXPECT_FALSE(popup.ChooseComboItem(1, 1)) << "the popup is hidden";
  popup.SetPopupMode(1);
  EXPECT_FALSE(popup.ChooseComboItem(2, 0)) << "combo box 2 is hidden";
  EXPECT_FALSE(popup.ChooseComboItem(1, 3)) << "the box has three items";
  EXPECT_FALSE(popup.SetCheckBox(1, true));
  EXPECT_FALSE(popup.SetCheckBox(17, true));
  EXPECT_TRUE(changed.empty());

  EXPECT_TRUE(popup.ChooseComboItem(1, 2));
  EXPECT_TRUE(popup.SetCheckBox(3, true));
  EXPECT_EQ(changed, (std::vector<int>{1, 7}));
  EXPECT_EQ(popup.ComboSelection(1), 2);
  EXPECT_EQ(popup.CheckState(3), 1);
}

TEST_F(ExtraSettingsPanelTest, ControlsTakeTheirStateFromTheRowOfTheSelectedPeripheral) {
  Open({kPriority, "ExtraSetting_Checkbox_16=L=Last;a;b"});
  ExtraSettingsRow other{};
  other[1] = 1;
  other[20] = 1;
  popup.SetPeripheral({lines_.begin(), lines_.end()}, &other);
  popup.SetControlsFromState();
  EXPECT_EQ(popup.ComboSelection(1), 1);
  EXPECT_EQ(popup.CheckState(16), 1);
  // Before the box is filled for this peripheral any index it could hold stands, so that
  // the panel's refresh already sees it; filled, a box lacking the item selects nothing.
  other[1] = 4;
  popup.SetControlsFromState();
  EXPECT_EQ(popup.ComboSelection(1), 4);
  popup.SetupExtraSettings("");
  EXPECT_EQ(popup.ComboSelection(1), -1);
  other[1] = 8;
  popup.SetControlsFromState();
  EXPECT_EQ(popup.ComboSelection(1), -1);
}

TEST(ExtraSettingCells, CutsBehindTheFirstEqualsIntoFiftyCellsOfSeventyNine) {
  std::string line = "ExtraSetting_Checkbox_1=N=Label;" + std::string(100, 'r');
  for (int i = 0; i < 60; ++i) line += ";c" + std::to_string(i);
  std::vector<std::string> cells = ExtraSettingCells(line);
  ASSERT_EQ(cells.size(), 50u);
  EXPECT_EQ(cells[0], "N=Label");
  EXPECT_EQ(cells[1], std::string(79, 'r'));
  EXPECT_EQ(cells[49], "c47");
}

// ---------------------------------------------------------------- the panels' rows

// An AEC panel whose section carries side settings, on a page with the popup.
class ExtraSettingsRowsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    fixture.SetLines({
        "Dialog=AEC",
        "Radiobox_1=Event counter;Not used;Used;;;;;11;000;111",
        "Radiobox_2=Count edge;Rising;Falling;aecr=0x00;aecr=0x01;//rising;//falling;11",
        "initial_value=aecr=0x00//rising",
        kPriority,
        "ExtraSetting_Checkbox_2=DBG=Stop at a break;dbg=0;dbg=1;//runs on;//stops",
    });
    fixture.context.popup = &popup;
    fixture.context.hasExtraSettings = true;
    panel = std::make_unique<GenericPanel>(PanelKind::kAEC);
    panel->SetContext(&fixture.context);
    panel->LoadSection();
    const SectionStore::Row lines = fixture.group->SectionLines[1];
    popup.SetPeripheral({lines.begin(), lines.end()}, &row);
    popup.SetupExtraSettings("");
    popup.SetPopupMode(1);
  }

  std::vector<ParameterList::Row> ListRows() const { return fixture.list.Rows(); }

  PanelFixture fixture;
  ExtraSettingsRow row{};
  ExtraSettingsPanel popup;
  std::unique_ptr<GenericPanel> panel;
};

TEST_F(ExtraSettingsRowsTest, AComboBoxWithoutSelectionGivesItsFirstItemsRow) {
  ExtraSettingsPanel empty;  // a popup whose boxes were never filled
  fixture.context.popup = &empty;
  panel->RefreshParameters("");
  EXPECT_EQ(panel->ExtraComboSelection()[0], 0);
  EXPECT_EQ(panel->ExtraComboRows()[1][0], "ipr=0");
  EXPECT_EQ(panel->ExtraComboComments()[1][0], "//level 0");
  ASSERT_FALSE(ListRows().empty());
  EXPECT_EQ(ListRows().back().parameter, "ipr=0");
}

TEST_F(ExtraSettingsRowsTest, ChosenItemsAndCheckedBoxesBecomeRowsBehindThePanelsOwn) {
  ASSERT_TRUE(popup.ChooseComboItem(1, 2));
  ASSERT_TRUE(popup.SetCheckBox(2, true));
  panel->RefreshParameters("");
  std::vector<ParameterList::Row> rows = ListRows();
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[0].parameter, "aecr=0x00");
  EXPECT_EQ(rows[1].parameter, "ipr=2");
  EXPECT_EQ(rows[1].comment, "//level 2");
  EXPECT_EQ(rows[2].parameter, "dbg=1");
  EXPECT_EQ(rows[2].comment, "//stops");
  EXPECT_EQ(panel->ExtraCheckRows()[2][0], "dbg=1");
  EXPECT_EQ(panel->ExtraCheckState()[1], 1);
}

TEST_F(ExtraSettingsRowsTest, AnUncheckedBoxLeavesNoRowBehind) {
  popup.SetCheckBox(2, true);
  panel->RefreshParameters("");
  popup.SetCheckBox(2, false);
  panel->RefreshParameters("");
  EXPECT_EQ(panel->ExtraCheckRows()[2][0], "");
  EXPECT_EQ(panel->ExtraCheckComments()[2][0], "");
  EXPECT_EQ(fixture.list.FindRowStartingWith("dbg"), -1);
}

TEST_F(ExtraSettingsRowsTest, TheFocusedPopupControlMarksItsRowInsteadOfTheChangedOne) {
  popup.SetFocusedControl(6);  // check box 2
  popup.SetCheckBox(2, true);
  panel->RefreshParameters("aecr");
  EXPECT_EQ(fixture.list.HighlightText(), "dbg=1");
  popup.SetFocusedControl(-1);
  panel->RefreshParameters("aecr");
  EXPECT_EQ(fixture.list.HighlightText(), "aecr=0x00");
}

TEST_F(ExtraSettingsRowsTest, WithoutThePopupThePanelAddsNoRows) {
  fixture.context.popup = nullptr;
  panel->ClearExtraRows();
  panel->RefreshParameters("");
  EXPECT_EQ(fixture.list.FindRowStartingWith("ipr"), -1);
  EXPECT_EQ(panel->ExtraComboRows()[1][0], "");
}

TEST_F(ExtraSettingsRowsTest, SwitchingThePeripheralOffHidesThePopupAndForgetsItsChecks) {
  ASSERT_TRUE(panel->ChooseOption("Radiobox_1", 1));
  popup.SetCheckBox(2, true);
  row[6] = 1;
  row[1] = 2;
  ASSERT_TRUE(panel->ChooseOption("Radiobox_1", 0));
  EXPECT_EQ(popup.PopupMode(), 0);
  EXPECT_EQ(row[1], 0);
  EXPECT_EQ(row[6], 0);
  EXPECT_EQ(fixture.list.FindRowStartingWith("dbg"), -1);
}

}  // namespace
}  // namespace tessara
