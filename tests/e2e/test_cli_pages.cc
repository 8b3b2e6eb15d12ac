#include <gtest/gtest.h>

#include <filesystem>

#include "cli_runner.h"
#include "temp_folder.h"

namespace tessara {
namespace {

// Timer RA of the sample QTL/4C chip switched on, with the time field given.
std::string TimerRaScript(const std::string& time) {
  return "group \"QTL/4C Group\"\nnext\nselect \"Timer RA\"\noption Radiobox_1 2\ntype ComboEditbox_1 " + time +
         "\n";
}

class CliPagesTest : public ::testing::Test {
 protected:
  CliResult Run(const std::string& script) { return RunCli({"--home", home.path(), "run", "-"}, script); }
  void SetUp() override { CopySampleHome(home.path()); }
  TempFolder home;
  TempFolder out;
};

TEST_F(CliPagesTest, TheSecondPageListsThePeripheralsAndShowsTheChosenPanel) {
  CliResult result = Run(TimerRaScript("1") + "rows\n");
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_NE(result.out.find("trapre=79\t//Prescaler and counter for the interval\n"), std::string::npos);
  EXPECT_NE(result.out.find("tra=249\t"), std::string::npos);
  // A row without a panel class keeps the panel that is shown; typing selects no item.
  result = Run(TimerRaScript("1") + "select \"Timer RB\"\ncontrols\n");
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_NE(result.out.find("ComboEditbox_1\tComboEditbox\tenabled=1\tvisible=1\tselection=0\ttext=1\t"),
            std::string::npos);
}

TEST_F(CliPagesTest, ErrorsPrintTheReportAndTheRunEndsWithStatus3) {
  CliResult result = Run(TimerRaScript("1.5.2") + "errors\nerrors\nrows\n");
  EXPECT_EQ(result.status, 3);
  const std::string report =
      "E0801\tTimer RA: the interval time is not available\tChoose one of the listed interval times\n";
  EXPECT_EQ(result.out.substr(0, 2 * report.size()), report + report);
  EXPECT_NE(result.out.find("trapre=NULL"), std::string::npos) << "the run goes on behind the report";
}

TEST_F(CliPagesTest, AFailedGateWritesNothing) {
  std::string folder = out.File("never");
  CliResult result = Run(TimerRaScript("12x") + "generate \"" + folder + "\"\nrows\n");
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.out.rfind("E0801\t", 0), 0u);
  EXPECT_EQ(result.out.find("trapre"), std::string::npos) << "the run ends at the gate";
  EXPECT_FALSE(std::filesystem::exists(folder));
}

TEST_F(CliPagesTest, GenerateWritesTheFilesIntoANewFolder) {
  std::string folder = out.File("a/b");
  CliResult result = Run(TimerRaScript("10") + "generate \"" + folder + "\" main.c\n");
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_TRUE(std::filesystem::exists(folder + "/main.c"));
  EXPECT_TRUE(std::filesystem::exists(folder + "/main.h"));
  EXPECT_TRUE(std::filesystem::exists(folder + "/sfr_QTL4Cconfig.h"));
  EXPECT_FALSE(std::filesystem::exists(folder + "/intprg.c"));
  EXPECT_NE(out.Read("a/b/main.c").find("\r\n\ttra="), std::string::npos);
}

TEST_F(CliPagesTest, BackAsksAndFollowsTheScriptsAnswer) {
  const std::string warning = "All peripherals settings will be reset to default.\nDo you want to continue?\n";
  CliResult result = Run("next\nback cancel\nselect 0\nback remember\nnext\nback\nseries 0\n");
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.err, warning + warning) << "ticked once, never asked again";
  result = Run("next\nback ok\nselect 0\n");
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err, warning + "line 3: select acts on the peripheral page, which is not open\n");
}

TEST_F(CliPagesTest, SavedProjectsLoadGenerateAndSaveToTheSameBytes) {
  std::string project = out.File("timer.tsr");
  CliResult saved = Run(TimerRaScript("10") + "save \"" + project + "\"\n");
  ASSERT_EQ(saved.status, 0) << saved.err;
  std::string first = out.Read("timer.tsr");
  EXPECT_EQ(first.rfind("Checksum:", 0), 0u);
  EXPECT_NE(first.find("\r\nTimerRA:"), std::string::npos);

  CliResult again = Run("load \"" + project + "\"\nnext\nsave \"" + out.File("again.tsr") + "\"\nselect \"Timer RA\"\nrows\n");
  ASSERT_EQ(again.status, 0) << again.err;
  EXPECT_EQ(out.Read("again.tsr"), first);
  EXPECT_NE(again.out.find("trapre="), std::string::npos);

  CliResult generated = RunCli({"--home", home.path(), "generate", project, "--out", out.File("gen")});
  ASSERT_EQ(generated.status, 0) << generated.err;
  EXPECT_TRUE(std::filesystem::exists(out.File("gen/Config.c")));
  CliResult checked = RunCli({"--home", home.path(), "check", project});
  EXPECT_EQ(checked.status, 0) << checked.err;
  EXPECT_EQ(checked.out, "");
}

TEST_F(CliPagesTest, DamagedAndMissingProjects) {
  CliResult missing = RunCli({"--home", home.path(), "check", out.File("none.tsr")});
  EXPECT_EQ(missing.status, 4);
  EXPECT_EQ(missing.err, "Unable to open file: \n" + out.File("none.tsr") + "\n");
  out.Write("bad.tsr", "Checksum:1\r\nSeries/Group/PartNo:0 0 0 \r\n");
  CliResult bad = Run("load \"" + out.File("bad.tsr") + "\"\nnext\nquit\n");
  EXPECT_EQ(bad.status, 0) << "a message box does not change the status";
  EXPECT_EQ(bad.err, "Checksum failed!\n");
  CliResult script = Run("load \"" + out.File("none.tsr") + "\"\nnext\n");
  EXPECT_EQ(script.status, 4);
}

TEST_F(CliPagesTest, ProjectModeWithoutADevelopmentEnvironmentEndsInItsMessage) {
  CliResult result = Run(TimerRaScript("1") + "insert invoke\nrows\n");
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.err,
            "Tessara was not able to detect any open workspace. \n\nPlease ensure that the following settings "
            "have been made: \n\n1. In the ORV directory, the batch file REGISTERSERVER.bat has been executed "
            "previously\n\n2. EcxOrvTargetServer.dll has been registered within ORV\n\n3. An active ORV "
            "workspace is now open\n\n\n");
  EXPECT_NE(result.out.find("tra=249"), std::string::npos) << "the run goes on";
  result = Run(TimerRaScript("0.5") + "insert\n");
  EXPECT_EQ(result.status, 3) << "the gate comes first";
  EXPECT_EQ(result.out.rfind("E0801\t", 0), 0u);
}

}  // namespace
}  // namespace tessara
