#include "generator/code_generator.h"

#include <gtest/gtest.h>

#include <memory>

#include "core/application.h"
#include "core/text.h"
#include "generator/config_template.h"
#include "pages/error_report.h"
#include "pages/peripheral_page.h"
#include "panels/framework/peripheral_panel.h"
#include "recording_host.h"
#include "temp_folder.h"

namespace tessara {
namespace {

const std::string kStar(kStarLine);
const std::string kMarker(kClockMarker);

// A chip with an AEC and a WKP, templates of its own, and both panels' File texts.
class CodeGeneratorTest : public ::testing::Test {
 protected:
  void SetUp() override {
    SetModuleFolder(home.path());
    std::string data =
        "[Database]\nSeries=T\nGroup=T/1 Group\nPart_No_1=T1;8Kbytes;1Kbytes;\n"
        "[Configuration_T/1 Group]\nConfiguration_1=WKP\nConfiguration_2=AEC\n"
        "[ResourceID_T/1 Group]\nResourceID_1=IID_DIALOG_WKP\nResourceID_2=IID_DIALOG_AEC\n"
        "[AEC_T/1 Group]\n"
        "Dialog=AEC\n"
        "Peripheral_Heading=" + kStar + ";// AEC setting;" + kStar + "\n"
        "Radiobox_1=Event counter;Not used;Used;;;;;11;000000;111111\n"
        "Radiobox_2=Count edge;Rising;Falling;aecr=0x00;aecr=0x01;//rising;//falling;11\n"
        "Radiobox_3=Filter;Off;On;aecf=0,aecx=1;aecf=1;//off;//on;11\n"
        "Radiobox_4=Reset;Off;On;aecrs=0;aecrs=1;//off;//on;11\n"
        "initial_value=aecr=0x00//rising\n"
        "initial_value=aecf=0,aecx=1//off\n"
        "initial_value=aecrs=0//off\n"
        "File_Pragma=#pragma interrupt aec_isr\n"
        "File_Function_Declaration=void aec_isr(void);\n"
        "File_Function=void aec_isr(void){aecf=0;}\n"
        "[WKP_T/1 Group]\n"
        "Dialog=WKP\n"
        "Peripheral_Heading=" + kStar + ";// WKP setting;" + kStar + "\n"
        "Radiobox_1=Wake-up;Not used;Used;wkpen=0;wkpen=1;//off;//on;11\n"
        "initial_value=wkpen=0//off\n"
        "File_Function=void wkp_isr(void){wkpf=0;}\n"
        "[Header1_T/1 Group]\n/* config.c */\n"
        "[Header2_T/1 Group]\n#include \"config.h\"\n"
        "[Default_T/1 Group]\n#include \"config.h\"\nvoid init(void)\n{\n\t" + kMarker + "\n}\n"
        "[Default_SRF_Header_T/1 Group]\n/* registers */\n"
        "[End]\n";
    home.Write("IO Files/t.ini", data);
    home.Write("Tessara.ini", "[Database_File]\nFile1=t.ini\nFile1_Checksum=" +
                                  FormatC("H'%04X", TextChecksum(data)) + "\n");
    application = std::make_unique<Application>(host);
    ASSERT_EQ(application->StartUp(), Application::StartResult::kRunning);
    application->SetFamilyFlags(1);
    page = std::make_unique<PeripheralPage>(*application);
    page->Open(true, nullptr, nullptr);
  }
  void TearDown() override { SetModuleFolder(""); }

  std::string Target(const std::string& name) {
    page->Output.SetTarget(out.File(name), name);
    return out.File(name);
  }

  TempFolder home;
  TempFolder out;
  RecordingHost host;
  std::unique_ptr<Application> application;
  std::unique_ptr<PeripheralPage> page;
};

std::string Line(const std::string& code, const std::string& comment) {
  std::string line = "\n\t" + code + ";";
  if (code.size() < 40) line.append(40 - code.size(), ' ');
  return line + comment;
}

TEST_F(CodeGeneratorTest, BlocksFollowTheListAndRowsPassTheFilter) {
  page->Select(1);  // AEC
  PeripheralPanel* aec = page->Panel(PanelKind::kAEC);
  ASSERT_TRUE(aec->ChooseOption("Radiobox_1", 1));
  page->Select(0);  // WKP, left at its defaults
  std::string clock;
  std::string body = CodeGenerator(*application, *page).BuildInitBody(clock);
  EXPECT_EQ(clock, "");
  // The switch groups write rows that no active key names, and groups 3 and 4 link no
  // parameter to their captions: only the edge row is generated.
  std::string wkp = "\n\n\t" + kStar + "\n\t// WKP setting\n\t" + kStar + "\n\t";
  std::string aecBlock =
      "\n\n\t" + kStar + "\n\t// AEC setting\n\t" + kStar + Line("aecr=0x00", "//rising") + "\n\t";
  EXPECT_EQ(body, wkp + aecBlock);
}

TEST_F(CodeGeneratorTest, WritesAllFilesWithCrLfAndTheOwnNames) {
  page->Select(1);
  ASSERT_TRUE(page->Panel(PanelKind::kAEC)->ChooseOption("Radiobox_1", 1));
  Target("main.c");
  CodeGenerator(*application, *page).WriteAll();
  EXPECT_TRUE(host.messages.empty());
  std::string source = out.Read("main.c");
  EXPECT_EQ(source.substr(0, 16), "/* main.c */\r\n#i");
  EXPECT_NE(source.find("#include \"main.h\"\r\n"), std::string::npos);
  EXPECT_NE(source.find(kMarker + "\r\n}"), std::string::npos) << "no clock panel, no clock text";
  EXPECT_NE(source.find("{\r\n\r\n\t" + kStar), std::string::npos) << "the blocks follow init's brace";
  // Only the peripheral in use brings its function, pragma and declaration.
  EXPECT_NE(source.find("\r\n\r\nvoid aec_isr(void)\r\n{\r\n\taecf=0;\r\n}"), std::string::npos);
  EXPECT_EQ(source.find("wkp_isr"), std::string::npos);
  EXPECT_EQ(out.Read("main.h"),
            "#include \"main.h\"\r\n\r\n\r\n#pragma interrupt aec_isr\r\n\r\nvoid aec_isr(void);");
  EXPECT_EQ(out.Read("sfr_T1config.h"), "/* registers */\r\n");
  EXPECT_FALSE(std::filesystem::exists(out.File("intprg.c")));
  EXPECT_EQ(host.viewed, (std::vector<std::string>{out.File("main.h"), out.File("main.c")}));
}

TEST_F(CodeGeneratorTest, AnUnwritableTargetFailsAloneAndTheOthersStillRun) {
  page->Select(0);
  page->Output.SetTarget(out.File("missing/Config.c"), "Config.c");
  page->Output.OutputFolder = out.path() + "/";
  CodeGenerator(*application, *page).WriteAll();
  ASSERT_EQ(host.messages.size(), 2u);
  EXPECT_EQ(host.messages[0], "Error opening file: \"" + out.File("missing/Config.h") + "\"");
  EXPECT_EQ(host.messages[1], "Error opening file: \"" + out.File("missing/Config.c") + "\"");
  EXPECT_EQ(out.Read("sfr_T1config.h"), "/* registers */\r\n");
}

TEST(ErrorReportList, PiecesAndBlankRowsBetweenReports) {
  ErrorReport report;
  std::vector<std::string> first(kErrorTableCells), second(kErrorTableCells);
  first[2] = "E01";
  first[3] = "Time too short'for the clock";
  first[4] = "See the timer chapter";
  first[5] = "not a column";
  second[2] = "E02";
  report.rows = {first, second};
  std::vector<ErrorListRow> rows = ErrorReportListRows(report);
  ASSERT_EQ(rows.size(), 4u);
  EXPECT_EQ(rows[0], (ErrorListRow{"E01", "Time too short", ""}));
  EXPECT_EQ(rows[1], (ErrorListRow{"", "for the clock", "See the timer chapter"}));
  EXPECT_EQ(rows[2], (ErrorListRow{"", "", ""}));
  EXPECT_EQ(rows[3], (ErrorListRow{"E02", "", ""}));
  EXPECT_TRUE(ErrorReportListRows(ErrorReport{}).empty());
}

}  // namespace
}  // namespace tessara
