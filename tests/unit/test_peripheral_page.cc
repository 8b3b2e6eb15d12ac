#include "pages/peripheral_page.h"

#include <gtest/gtest.h>

#include <memory>

#include "core/application.h"
#include "core/text.h"
#include "panels/framework/peripheral_panel.h"
#include "recording_host.h"
#include "temp_folder.h"

namespace tessara {
namespace {

// A group with a clock, an AEC, a WKP, two ports (no panel class yet) and a peripheral
// with an unknown tag, started from a program folder written by the test.
class PeripheralPageTest : public ::testing::Test {
 protected:
  void SetUp() override {
    SetModuleFolder(home.path());
    std::string data =
        "[Database]\nSeries=T\nGroup=T/1 Group\nPart_No_1=T1;8Kbytes;1Kbytes;\n"
        "[Configuration_T/1 Group]\n"
        "Configuration_1=DTC\nConfiguration_2=CLOCK\nConfiguration_3=AEC\n"
        "Configuration_4=Mystery\nConfiguration_5=Port 1\nConfiguration_6=WKP\n"
        "[ResourceID_T/1 Group]\n"
        "ResourceID_1=IID_DIALOG_DTC\nResourceID_2=IID_DIALOG_CLOCK2\nResourceID_3=IID_DIALOG_AEC\n"
        "ResourceID_4=IID_DIALOG_MYSTERY\nResourceID_5=IID_DIALOG_PORT\nResourceID_6=iid_dialog_wkp\n"
        "[AEC_T/1 Group]\n"
        "Dialog=AEC\n"
        "Radiobox_1=Event counter;Not used;Used;;;;;11;000000;111111\n"
        "Radiobox_2=Count edge;Rising;Falling;aecr=0x00;aecr=0x01;//rising;//falling;11\n"
        "Radiobox_3=Filter;Off;On;aecf=0;aecf=1;//off;//on;11\n"
        "Radiobox_4=Reset;Off;On;aecrs=0;aecrs=1;//off;//on;11\n"
        "initial_value=aecr=0x00//rising\n"
        "[WKP_T/1 Group]\n"
        "Dialog=WKP\n"
        "Radiobox_1=Wake-up;Not used;Used;wkpen=0;wkpen=1;//off;//on;11\n";
    home.Write("IO Files/t.ini", data);
    home.Write("Tessara.ini", "[Database_File]\nFile1=t.ini\nFile1_Checksum=" +
                                  FormatC("H'%04X", TextChecksum(data)) + "\n");
    application = std::make_unique<Application>(host);
    ASSERT_EQ(application->StartUp(), Application::StartResult::kRunning);
    page = std::make_unique<PeripheralPage>(*application);
  }
  void TearDown() override { SetModuleFolder(""); }

  TempFolder home;
  RecordingHost host;
  std::unique_ptr<Application> application;
  std::unique_ptr<PeripheralPage> page;
};

TEST_F(PeripheralPageTest, ListsEveryConfigurationButTheClockInAnyCase) {
  page->Open(true, nullptr, nullptr);
  EXPECT_EQ(page->ListItems(), (std::vector<std::string>{"DTC", "AEC", "Mystery", "Port 1", "WKP"}));
  EXPECT_EQ(page->ConfigurationOfRow(0), 1);
  EXPECT_EQ(page->ConfigurationOfRow(1), 3);
  EXPECT_EQ(page->ConfigurationOfRow(4), 6);
  // The unknown tag has a row but no entry; the other kinds keep their entries.
  ASSERT_EQ(page->PanelList().size(), 4u);
  EXPECT_EQ(page->PanelList()[1], page->Panel(PanelKind::kAEC));
  EXPECT_EQ(page->PanelList()[3], page->Panel(PanelKind::kWKP));
}

TEST_F(PeripheralPageTest, APanelIsLoadedAtItsFirstSelectionOnly) {
  page->Open(true, nullptr, nullptr);
  PeripheralPanel* aec = page->Panel(PanelKind::kAEC);
  ASSERT_NE(aec, nullptr);
  EXPECT_FALSE(aec->HasWindow());
  page->Select(1);
  EXPECT_TRUE(aec->HasWindow());
  EXPECT_EQ(page->ShownPanel(), aec);
  EXPECT_EQ(aec->PeripheralName(), "AEC");
  ASSERT_GE(page->List().RowCount(), 1);
  // A change survives a second selection: the panel is refreshed, not reloaded.
  ASSERT_TRUE(aec->ChooseOption("Radiobox_1", 1));
  ASSERT_TRUE(aec->ChooseOption("Radiobox_2", 1));
  page->Select(0);
  page->Select(1);
  EXPECT_EQ(aec->FindControl("Radiobox_2")->CheckedPart(), 1);
  EXPECT_EQ(page->SelectedMap.substr(0, 3), "110");
}

TEST_F(PeripheralPageTest, ARowWithoutAPanelKeepsTheShownPanelAndItsRows) {
  page->Open(true, nullptr, nullptr);
  page->Select(1);
  std::vector<ParameterList::Row> rows = page->List().Rows();
  PeripheralPanel* shown = page->ShownPanel();
  page->Select(2);  // the unknown tag
  page->Select(0);  // a kind without a panel class
  EXPECT_EQ(page->ShownPanel(), shown);
  EXPECT_EQ(page->List().Rows().size(), rows.size());
}

TEST_F(PeripheralPageTest, BackAsksUnlessTheWarningWasSwitchedOff) {
  struct AnsweringHost : RecordingHost {
    ResetWarningAnswer AskResetWarning(const std::string& text) override {
      questions.push_back(text);
      return answer;
    }
    std::vector<std::string> questions;
    ResetWarningAnswer answer;
  } answering;
  Application app(answering);
  ASSERT_EQ(app.StartUp(), Application::StartResult::kRunning);
  PeripheralPage second(app);
  second.Open(true, nullptr, nullptr);
  second.Select(1);

  answering.answer = {false, true};  // Cancel: the box does not count
  EXPECT_FALSE(second.Leave());
  EXPECT_TRUE(second.IsOpen());
  EXPECT_EQ(second.ResetWarningOff, 0);
  answering.answer = {true, false};
  EXPECT_TRUE(second.Leave());
  EXPECT_FALSE(second.IsOpen());
  second.Open(true, nullptr, nullptr);
  answering.answer = {true, true};
  EXPECT_TRUE(second.Leave());
  EXPECT_EQ(second.ResetWarningOff, 1);
  second.Open(true, nullptr, nullptr);
  EXPECT_TRUE(second.Leave());
  ASSERT_EQ(answering.questions.size(), 3u);
  EXPECT_EQ(answering.questions[0],
            "All peripherals settings will be reset to default.\nDo you want to continue?");
}

TEST_F(PeripheralPageTest, BackThenNextGivesDefaults) {
  page->Open(false, nullptr, nullptr);
  page->Select(1);
  PeripheralPanel* aec = page->Panel(PanelKind::kAEC);
  ASSERT_TRUE(aec->ChooseOption("Radiobox_1", 1));
  page->ProjectText = "AEC:0 1 0 1 0 1 0 1 \n";
  EXPECT_TRUE(page->Leave());
  EXPECT_FALSE(aec->HasWindow());
  EXPECT_TRUE(page->ProjectText.empty());
  page->Open(true, nullptr, nullptr);
  page->Select(1);
  EXPECT_EQ(aec->FindControl("Radiobox_1")->CheckedPart(), 0);
}

// A group whose AEC and WKP carry side settings, with the popup switched on in the ini.
class PeripheralPagePopupTest : public ::testing::Test {
 protected:
  void SetUp() override {
    SetModuleFolder(home.path());
    data =
        "[Database]\nSeries=T\nGroup=T/1 Group\nPart_No_1=T1;8Kbytes;1Kbytes;\n"
        "[Configuration_T/1 Group]\n"
        "Configuration_1=AEC\nConfiguration_2=Mystery\nConfiguration_3=WKP\n"
        "[ResourceID_T/1 Group]\n"
        "ResourceID_1=IID_DIALOG_AEC\nResourceID_2=IID_DIALOG_MYSTERY\nResourceID_3=IID_DIALOG_WKP\n"
        "[AEC_T/1 Group]\n"
        "Dialog=AEC\n"
        "Radiobox_1=Event counter;Not used;Used;;;;;11;000000;111111\n"
        "Radiobox_2=Count edge;Rising;Falling;aecr=0x00;aecr=0x01;//rising;//falling;11\n"
        "initial_value=aecr=0x00//rising\n"
        "ExtraSetting_Combobox_1=AEC_IPL=Priority;Level 0;Level 1;Level 2;;;;;;"
        "aecipr=0;aecipr=1;aecipr=2;;;;;;//level 0;//level 1;//level 2\n"
        "ExtraSetting_Checkbox_1=AEC_DBG=Stop at a break;aecdbg=0;aecdbg=1;//runs on;//stops\n"
        "[WKP_T/1 Group]\n"
        "Dialog=WKP\n"
        "Radiobox_1=Wake-up;Not used;Used;wkpen=0;wkpen=1;//off;//on;11\n"
        "ExtraSetting_Combobox_2=WKP_IPL=Wake-up priority;Low;High;;;;;;;wkpipr=0;wkpipr=1;;;;;;;//low;//high\n";
    WriteProgramFolder("1");
    application = std::make_unique<Application>(host);
    ASSERT_EQ(application->StartUp(), Application::StartResult::kRunning);
    page = std::make_unique<PeripheralPage>(*application);
  }
  void TearDown() override { SetModuleFolder(""); }

  void WriteProgramFolder(const std::string& extraSetting) {
    home.Write("IO Files/t.ini", data);
    home.Write("Tessara.ini", "[Database_File]\nFile1=t.ini\nFile1_Checksum=" +
                                  FormatC("H'%04X", TextChecksum(data)) + "\n[Display]\nExtraSetting=" +
                                  extraSetting + "\n");
  }
  // Opens the page on the AEC, switches it on and gives it priority 2 and the break stop.
  PeripheralPanel& OpenWithAecPriorityTwo() {
    page->Open(true, nullptr, nullptr);
    PeripheralPanel& aec = *page->Panel(PanelKind::kAEC);
    EXPECT_TRUE(aec.ChooseOption("Radiobox_1", 1));
    EXPECT_TRUE(page->Popup()->ChooseComboItem(1, 2));
    EXPECT_TRUE(page->Popup()->SetCheckBox(1, true));
    return aec;
  }

  std::string data;
  TempFolder home;
  RecordingHost host;
  std::unique_ptr<Application> application;
  std::unique_ptr<PeripheralPage> page;
};

TEST_F(PeripheralPagePopupTest, ThePopupExistsOnlyWhenTheIniValueBeginsWithAOne) {
  for (const auto& [value, exists] : std::vector<std::pair<std::string, bool>>{
           {"1", true}, {"10", true}, {"1 yes", true}, {"0", false}, {"01", false}, {"", false}}) {
    SCOPED_TRACE("ExtraSetting=" + value);
    WriteProgramFolder(value);
    PeripheralPage fresh(*application);
    fresh.Open(true, nullptr, nullptr);
    EXPECT_EQ(fresh.Popup() != nullptr, exists);
    EXPECT_EQ(fresh.Panel(PanelKind::kAEC)->Context()->popup, fresh.Popup());
  }
}

TEST_F(PeripheralPagePopupTest, EachSelectionFillsThePopupForItsPeripheral) {
  page->Open(true, nullptr, nullptr);
  ExtraSettingsPanel& popup = *page->Popup();
  EXPECT_TRUE(page->HasExtraSettings());
  EXPECT_EQ(popup.Combo(1).label, "Priority");
  EXPECT_EQ(popup.Check(1).label, "Stop at a break");
  page->Select(1);  // the unknown tag: no lines, no flag, nothing shown
  EXPECT_FALSE(page->HasExtraSettings());
  EXPECT_EQ(popup.FirstShownControl(), -1);
  page->Select(2);
  EXPECT_TRUE(page->HasExtraSettings());
  EXPECT_FALSE(popup.Combo(1).visible);
  EXPECT_EQ(popup.Combo(2).label, "Wake-up priority");
  EXPECT_EQ(popup.Combo(2).place, 0);
}

TEST_F(PeripheralPagePopupTest, APopupEventStoresTheStateOfTheSelectedPositionAndRefreshesItsPanel) {
  PeripheralPanel& aec = OpenWithAecPriorityTwo();
  EXPECT_EQ(page->ExtraSettingsState[0][1], 2);
  EXPECT_EQ(page->ExtraSettingsState[0][5], 1);
  EXPECT_EQ(page->Popup()->FocusedControl(), -1);
  std::vector<ParameterList::Row> rows = page->List().Rows();
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[1].parameter, "aecipr=2");
  EXPECT_EQ(rows[2].parameter, "aecdbg=1");
  EXPECT_EQ(page->List().HighlightText(), "aecdbg=1") << "the row of the control just used";
  EXPECT_EQ(aec.ExtraComboRows()[1][0], "aecipr=2");
}

TEST_F(PeripheralPagePopupTest, SideSettingsAreKeptByListPosition) {
  PeripheralPanel& aec = OpenWithAecPriorityTwo();
  page->Select(2);
  ExtraSettingsPanel& popup = *page->Popup();
  EXPECT_EQ(popup.ComboSelection(2), 0);
  EXPECT_FALSE(popup.Check(1).checked);
  EXPECT_EQ(page->ExtraSettingsState[2][1], 0);
  page->Select(0);
  EXPECT_EQ(popup.ComboSelection(1), 2);
  EXPECT_TRUE(popup.Check(1).checked);
  EXPECT_EQ(aec.ExtraComboRows()[1][0], "aecipr=2");
  EXPECT_NE(page->List().FindRowStartingWith("aecipr=2"), -1);
}

TEST_F(PeripheralPagePopupTest, SwitchingThePeripheralOffForgetsItsSideSettings) {
  PeripheralPanel& aec = OpenWithAecPriorityTwo();
  ASSERT_TRUE(aec.ChooseOption("Radiobox_1", 0));
  EXPECT_EQ(page->Popup()->PopupMode(), 0);
  EXPECT_EQ(page->ExtraSettingsState[0][1], 0);
  EXPECT_EQ(page->ExtraSettingsState[0][5], 0);
  page->Select(2);
  page->Select(0);
  EXPECT_EQ(aec.ExtraComboRows()[1][0], "aecipr=0");
  EXPECT_EQ(aec.ExtraCheckRows()[1][0], "");
}

// Back empties the rows and destroys the popup before it asks, so a cancelled Back
// leaves the page open without its popup.
TEST_F(PeripheralPagePopupTest, BackEmptiesTheExtraRowsAndDestroysThePopupBeforeItAsks) {
  PeripheralPanel& aec = OpenWithAecPriorityTwo();
  page->Select(2);
  PeripheralPanel& wkp = *page->Panel(PanelKind::kWKP);
  ASSERT_EQ(wkp.ExtraComboRows()[2][0], "wkpipr=0");
  EXPECT_FALSE(page->Leave()) << "the recording host cancels the reset warning";
  EXPECT_TRUE(page->IsOpen());
  EXPECT_EQ(page->Popup(), nullptr);
  EXPECT_EQ(aec.Context()->popup, nullptr);
  EXPECT_EQ(aec.ExtraComboRows()[1][0], "");
  EXPECT_EQ(aec.ExtraCheckRows()[1][0], "");
  EXPECT_EQ(wkp.ExtraComboRows()[2][0], "");
  // The next opening makes a new popup.
  page->Close();
  page->Open(true, nullptr, nullptr);
  EXPECT_NE(page->Popup(), nullptr);
}

TEST_F(PeripheralPagePopupTest, ARestoredProjectTakesItsSideSettingsIntoTheRowsAtOnce) {
  std::string values;
  for (int i = 0; i < 1950; ++i) values += i == 1 ? "2 " : (i == 5 ? "1 " : "0 ");
  page->ProjectText = "AEC:0 1 1 0 0 0 0 0 \nExtraSettings:" + values + " \nSelected_Peripherals:1" +
                      std::string(49, '0') + " \n";
  page->Open(false, nullptr, nullptr);
  PeripheralPanel& aec = *page->Panel(PanelKind::kAEC);
  EXPECT_EQ(page->ExtraSettingsState[0][1], 2);
  EXPECT_EQ(aec.ExtraComboRows()[1][0], "aecipr=2");
  EXPECT_EQ(aec.ExtraCheckRows()[1][0], "aecdbg=1");
  EXPECT_EQ(page->Popup()->ComboSelection(1), 2);
}

TEST_F(PeripheralPageTest, AGroupWithOnlyAClockHasAnEmptyList) {
  std::string data =
      "[Database]\nSeries=T\nGroup=C/1 Group\n[Configuration_C/1 Group]\nConfiguration_1=Clock\n"
      "[ResourceID_C/1 Group]\nResourceID_1=IID_DIALOG_CLOCK2\n";
  home.Write("IO Files/c.ini", data);
  home.Write("Tessara.ini", "[Database_File]\nFile1=c.ini\nFile1_Checksum=" +
                                FormatC("H'%04X", TextChecksum(data)) + "\n");
  Application app(host);
  ASSERT_EQ(app.StartUp(), Application::StartResult::kRunning);
  PeripheralPage clockOnly(app);
  clockOnly.Open(true, nullptr, nullptr);
  EXPECT_TRUE(clockOnly.ListItems().empty());
  EXPECT_TRUE(clockOnly.PanelList().empty());
  clockOnly.ShowPanel(0);
  EXPECT_EQ(clockOnly.ShownPanel(), nullptr);
}

}  // namespace
}  // namespace tessara
