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
