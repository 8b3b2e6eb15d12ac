#include "pages/page_commands.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "core/application.h"
#include "core/ini.h"
#include "core/text.h"
#include "generator/generate_dialog.h"
#include "generator/output_target.h"
#include "pages/page_flow.h"
#include "pages/peripheral_page.h"
#include "pages/selection_page.h"
#include "panels/framework/peripheral_panel.h"
#include "project/project_file.h"
#include "panels/framework/error_tables.h"
#include "scripted_host.h"
#include "temp_folder.h"

namespace tessara {
namespace {

constexpr int kKbSeries = 2;
constexpr int kAecRow = 10;

// The bundled sample data in a program folder of the test's own, so that the ini can
// be changed and written; both pages in the flow that the front-ends drive.
class PageCommandsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::copy(std::string(TESSARA_SOURCE_DIR) + "/data", home.path(),
                          std::filesystem::copy_options::recursive);
    SetModuleFolder(home.path());
    application = std::make_unique<Application>(host);
    ASSERT_EQ(application->StartUp(), Application::StartResult::kRunning);
    flow = std::make_unique<PageFlow>(*application);
    flow->Start();
    selection = &flow->Selection();
    page = &flow->Peripherals();
  }
  void TearDown() override { SetModuleFolder(""); }

  // The KB chip, its peripheral page open, the AEC counting on rising edges.
  void OpenKbWithAecInUse() {
    ASSERT_TRUE(selection->ChooseSeries(kKbSeries));
    ASSERT_TRUE(selection->ChoosePart(1));
    flow->Next();
    page->Select(kAecRow);
    PeripheralPanel* aec = page->Panel(PanelKind::kAEC);
    ASSERT_TRUE(aec->ChooseOption("Radiobox_1", 1));
    ASSERT_TRUE(aec->ChooseOption("Radiobox_2", 1));
  }

  void SetEnhancedGenerate(const std::string& value) {
    ASSERT_TRUE(WriteProgramIni("Generate", "EnhancedGenerate", value));
  }

  TempFolder home;
  TempFolder out;
  ScriptedHost host;
  std::unique_ptr<Application> application;
  std::unique_ptr<PageFlow> flow;
  SelectionPage* selection = nullptr;
  PeripheralPage* page = nullptr;
};

TEST_F(PageCommandsTest, PlainSaveDialogWritesAllFourFilesOfTheKbChip) {
  OpenKbWithAecInUse();
  SetEnhancedGenerate("0");
  host.saveAnswers = {out.File("board.c")};
  std::vector<bool> gate;
  GenerateOutcome outcome =
      GenerateCommand(*application, *flow, [&](bool passed) { gate.push_back(passed); });
  EXPECT_EQ(outcome, GenerateOutcome::kWritten);
  EXPECT_EQ(gate, std::vector<bool>{true});
  EXPECT_EQ(host.generateDialogs, 0);
  ASSERT_EQ(host.asked.size(), 1u);
  EXPECT_EQ(host.asked[0].filter, "C Source Files (*.c;*.h)|*.c;*.h|All Files (*.*)|*.*||");
  EXPECT_EQ(host.asked[0].initial, GeneratedFolder() + "Config");
  EXPECT_TRUE(host.messages.empty()) << host.messages.front();
  // The clock's rows and the AEC's block are in the source, and as the AEC is in use
  // its function closes it.
  std::string source = out.Read("board.c");
  EXPECT_NE(source.find("ckcsr=0x00;"), std::string::npos) << source;
  EXPECT_NE(source.find("AEC.ECCR.BIT.ECPWME=1;"), std::string::npos) << source;
  EXPECT_NE(source.find("void AecStart(void)"), std::string::npos) << source;
  EXPECT_TRUE(std::filesystem::exists(out.File("board.h")));
  EXPECT_TRUE(std::filesystem::exists(out.File("iodefine.h")));
  EXPECT_TRUE(std::filesystem::exists(out.File("intprg.c")));
  EXPECT_EQ(page->Output.OutputFolder, out.path() + "/");
  EXPECT_EQ(host.viewed, (std::vector<std::string>{out.File("board.h"), out.File("board.c")}));
}

TEST_F(PageCommandsTest, CancelledSaveDialogWritesNothing) {
  OpenKbWithAecInUse();
  SetEnhancedGenerate("");
  EXPECT_EQ(GenerateCommand(*application, *flow), GenerateOutcome::kCancelled);
  EXPECT_TRUE(std::filesystem::is_empty(out.path()));
  EXPECT_FALSE(std::filesystem::exists(GeneratedFolder() + "Config.c"));
}

TEST_F(PageCommandsTest, GenerateDialogTargetIsRememberedInTheIni) {
  OpenKbWithAecInUse();
  SetEnhancedGenerate("1");
  host.saveAnswers = {out.File("app.c")};
  host.generateDialog = [this](GenerateDialogModel& dialog, OutputState& output) {
    EXPECT_EQ(dialog.Paths.Entries(), std::vector<std::string>{"/tmp/Config.c"});
    dialog.BrowsePath(host, host.AskSaveFile("", GenerateDialogModel::kPathFilter, output.OutputPath),
                      output);
    return dialog.Ok();
  };
  EXPECT_EQ(GenerateCommand(*application, *flow), GenerateOutcome::kWritten);
  EXPECT_EQ(host.generateDialogs, 1);
  EXPECT_TRUE(std::filesystem::exists(out.File("app.c")));
  EXPECT_TRUE(std::filesystem::exists(out.File("app.h")));
  std::string remembered;
  ReadProgramIni("Generate", "Config_Folder_Pathname0", remembered);
  EXPECT_EQ(remembered, out.File("app.c"));
  ReadProgramIni("Generate", "ORV_Workspace_Selected", remembered);
  EXPECT_EQ(remembered, "0");
}

TEST_F(PageCommandsTest, CancelInTheGenerateDialogKeepsTheBrowsedStartFolder) {
  OpenKbWithAecInUse();
  SetEnhancedGenerate("1");
  host.generateDialog = [this](GenerateDialogModel& dialog, OutputState& output) {
    dialog.BrowsePath(host, out.File("later.c"), output);
    return false;
  };
  EXPECT_EQ(GenerateCommand(*application, *flow), GenerateOutcome::kCancelled);
  EXPECT_FALSE(std::filesystem::exists(out.File("later.c")));
  EXPECT_EQ(page->Output.OutputPath, out.File("later.c"));
}

TEST_F(PageCommandsTest, SavedProjectLoadsBackIntoBoxesClockAndPanels) {
  OpenKbWithAecInUse();
  PeripheralPanel& clock2 = selection->Clock2();
  host.saveAnswers = {out.File("board.tsr")};
  ASSERT_TRUE(SaveCommand(*application, *flow));
  EXPECT_EQ(host.asked.back().filter, std::string(kProjectFilter));
  EXPECT_EQ(page->Output.OutputPath, out.File("board.tsr"));
  std::string saved = out.Read("board.tsr");
  EXPECT_NE(saved.find("\r\nSeries/Group/PartNo:2 0 1 \r\n"), std::string::npos) << saved;

  // Back, another chip, then the file again.
  host.resetAnswers = {{true, false}};
  ASSERT_TRUE(flow->Back());
  ASSERT_TRUE(selection->ChooseSeries(0));
  host.openAnswers = {out.File("board.tsr")};
  ASSERT_TRUE(LoadCommand(*application, *flow));
  EXPECT_EQ(*selection->SeriesBox().SelectedItem(), "KB");
  EXPECT_EQ(*selection->PartBox().SelectedItem(), "KB77161B");
  EXPECT_TRUE(clock2.HasWindow());
  EXPECT_FALSE(page->ProjectText.empty());

  flow->Next();
  PeripheralPanel* aec = page->Panel(PanelKind::kAEC);
  ASSERT_TRUE(aec->HasWindow());
  EXPECT_EQ(aec->FindControl("Radiobox_1")->CheckedPart(), 1);
  EXPECT_EQ(aec->FindControl("Radiobox_2")->CheckedPart(), 1);
  EXPECT_FALSE(page->Panel(PanelKind::kWKP)->HasWindow()) << "never opened, so not restored";

  // Saving the restored state gives the same file.
  host.saveAnswers = {out.File("again.tsr")};
  ASSERT_TRUE(SaveCommand(*application, *flow));
  EXPECT_EQ(out.Read("again.tsr"), saved);
}

TEST_F(PageCommandsTest, LoadTellsWhatItCouldNotRead) {
  host.openAnswers = {out.File("none.tsr")};
  EXPECT_FALSE(LoadCommand(*application, *flow));
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0], "Unable to open file: \n" + out.File("none.tsr"));

  // A file with a bad sum is read, but leaves the boxes as they are.
  std::string body = "Series/Group/PartNo:2 0 0 \n";
  out.Write("bad.tsr", ProjectChecksumLine(body) + "\nSeries/Group/PartNo:1 0 0 \n");
  host.openAnswers = {out.File("bad.tsr")};
  EXPECT_TRUE(LoadCommand(*application, *flow));
  EXPECT_EQ(host.messages.back(), "Checksum failed!");
  EXPECT_EQ(*selection->SeriesBox().SelectedItem(), "QTL");

  host.openAnswers.clear();
  std::size_t messages = host.messages.size();
  EXPECT_FALSE(LoadCommand(*application, *flow));
  EXPECT_EQ(host.messages.size(), messages) << "a cancelled dialog says nothing";
  EXPECT_EQ(host.asked.back().title, "Open");
  EXPECT_EQ(host.asked.back().filter, std::string(kProjectFilter));
}

TEST_F(PageCommandsTest, PeripheralListKeepsTheFirstDataFilesColoursAcrossOpenings) {
  // The first data file paints invalid rows on a light yellow; the KB chip's file has
  // no colour lines of its own.
  const ListColour yellow = Rgb(255, 255, 224);
  OpenKbWithAecInUse();
  EXPECT_EQ(page->List().Colours().Colour(ListColourKey::kBackgroundNotFocusInvalid), yellow);
  host.resetAnswers = {{true, false}};
  ASSERT_TRUE(flow->Back());
  flow->Next();
  EXPECT_EQ(page->List().Colours().Colour(ListColourKey::kBackgroundNotFocusInvalid), yellow);
}

}  // namespace
}  // namespace tessara
