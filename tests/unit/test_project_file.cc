#include "project/project_file.h"

#include <gtest/gtest.h>

#include <memory>

#include "core/application.h"
#include "core/text.h"
#include "pages/peripheral_page.h"
#include "panels/framework/peripheral_panel.h"
#include "recording_host.h"
#include "temp_folder.h"

namespace tessara {
namespace {

class ProjectFileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    SetModuleFolder(home.path());
    std::string data =
        "[Database]\nSeries=T\nGroup=T/1 Group\nPart_No_1=T1;8Kbytes;1Kbytes;\n"
        "[Configuration_T/1 Group]\nConfiguration_1=Clock\nConfiguration_2=WKP\nConfiguration_3=AEC\n"
        "[ResourceID_T/1 Group]\nResourceID_1=IID_DIALOG_CLOCK2\nResourceID_2=IID_DIALOG_WKP\n"
        "ResourceID_3=IID_DIALOG_AEC\n"
        "[AEC_T/1 Group]\nDialog=AEC\n"
        "Radiobox_1=Event counter;Not used;Used;;;;;11;000000;111111\n"
        "Radiobox_2=Count edge;Rising;Falling;aecr=0x00;aecr=0x01;//rising;//falling;11\n"
        "[WKP_T/1 Group]\nDialog=WKP\n"
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

TEST_F(ProjectFileTest, OnlyOpenedPanelsHaveALine) {
  page->Open(true, nullptr, nullptr);
  std::string body = ProjectBody(*page, {0, 0, 1}, nullptr, nullptr);
  EXPECT_EQ(body.substr(0, body.find("ExtraSettings:")),
            "Series/Group/PartNo:0 0 1 \nWKP:1 0 1 0 1 0 1 0 1 0 1 0 1 0 1 0  \n");
  std::string zeros;
  for (int i = 0; i < 1950; ++i) zeros += "0 ";
  EXPECT_NE(body.find("ExtraSettings:" + zeros + " \nSelected_Peripherals:1" + std::string(49, '0') + " \n"),
            std::string::npos);
  EXPECT_EQ(ProjectFileText(body), ProjectChecksumLine(body) + "\n" + body);
}

TEST_F(ProjectFileTest, SaveLoadAndSaveAgainGiveTheSameBytes) {
  page->Open(false, nullptr, nullptr);
  page->Select(1);
  ASSERT_TRUE(page->Panel(PanelKind::kAEC)->ChooseOption("Radiobox_1", 1));
  ASSERT_TRUE(page->Panel(PanelKind::kAEC)->ChooseOption("Radiobox_2", 1));
  std::string first = ProjectFileText(ProjectBody(*page, {0, 0, 0}, nullptr, nullptr));
  std::string path = home.File("p.tsr");
  ASSERT_TRUE(WriteProjectFile(host, path, first));
  EXPECT_NE(home.Read("p.tsr").find(" \r\nAEC:0 1 0 1 "), std::string::npos);

  ASSERT_TRUE(page->Leave());
  std::string text;
  bool checksumOk = false;
  ASSERT_TRUE(ReadProjectFile(host, path, text, checksumOk));
  EXPECT_TRUE(checksumOk);
  page->ProjectText = text;
  page->Open(true, nullptr, nullptr);
  EXPECT_EQ(page->ListPosition(), 0) << "the first opened row is selected last";
  EXPECT_EQ(page->Panel(PanelKind::kAEC)->FindControl("Radiobox_2")->CheckedPart(), 1);
  EXPECT_EQ(ProjectFileText(ProjectBody(*page, {0, 0, 0}, nullptr, nullptr)), first);
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(ProjectFileTest, DamagedFilesAreReported) {
  std::string text = "kept";
  bool ok = true;
  EXPECT_FALSE(ReadProjectFile(host, home.File("none.tsr"), text, ok));
  EXPECT_FALSE(ReadProjectFile(host, home.path(), text, ok));
  EXPECT_EQ(text, "kept");
  ASSERT_EQ(host.messages.size(), 2u);
  EXPECT_EQ(host.messages[0], "Unable to open file: \n" + home.File("none.tsr"));

  std::string body = "Series/Group/PartNo:0 0 0 \n";
  home.Write("edited.tsr", ProjectChecksumLine(body) + "\r\n" + "Series/Group/PartNo:0 0 0  \r\n");
  EXPECT_TRUE(ReadProjectFile(host, home.File("edited.tsr"), text, ok));
  EXPECT_FALSE(ok);
  EXPECT_EQ(host.messages.back(), "Checksum failed!");
  EXPECT_EQ(text, "Series/Group/PartNo:0 0 0  \n") << "the text read stays for the next opening";

  home.Write("lf.tsr", ProjectChecksumLine(body) + "\n" + body);
  EXPECT_TRUE(ReadProjectFile(host, home.File("lf.tsr"), text, ok));
  EXPECT_TRUE(ok);
  BoxPositions boxes;
  EXPECT_TRUE(ReadBoxPositions("x Series/Group/PartNo:2 1 3 \n", boxes));
  EXPECT_EQ(boxes.series, 2);
  EXPECT_EQ(boxes.group, 1);
  EXPECT_EQ(boxes.part, 3);
  EXPECT_FALSE(ReadBoxPositions("nothing", boxes));
}

TEST_F(ProjectFileTest, WithoutTheMapEveryRowIsOpenedLastToFirst) {
  page->ProjectText = "Series/Group/PartNo:0 0 0 \nAEC:0 1 1 0 1 0 1 0  \n";
  page->Open(true, nullptr, nullptr);
  EXPECT_TRUE(page->Panel(PanelKind::kWKP)->HasWindow());
  EXPECT_TRUE(page->Panel(PanelKind::kAEC)->HasWindow());
  EXPECT_EQ(page->ListPosition(), 0);
  EXPECT_EQ(page->Panel(PanelKind::kAEC)->FindControl("Radiobox_2")->CheckedPart(), 0);
  EXPECT_EQ(page->Panel(PanelKind::kAEC)->FindControl("Radiobox_1")->CheckedPart(), 1);
}

}  // namespace
}  // namespace tessara
