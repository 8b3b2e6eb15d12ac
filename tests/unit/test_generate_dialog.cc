#include "generator/generate_dialog.h"

#include <gtest/gtest.h>

#include "core/ini.h"
#include "core/text.h"
#include "generator/output_target.h"
#include "recording_host.h"
#include "temp_folder.h"

namespace tessara {
namespace {

class GenerateDialogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    SetModuleFolder(home.path());
    host.documents = out.path();
  }
  void TearDown() override { SetModuleFolder(""); }
  std::string Ini(const std::string& key) {
    std::string value;
    ReadProgramIni("Generate", key, value);
    return value;
  }
  TempFolder home, out;
  RecordingHost host;
};

TEST(RecentPathList, NewestFirstFourAtMostNoDuplicatesInAnyCase) {
  RecentPathList list;
  for (const char* path : {"/a", "/b", "/c", "/d"}) list.Append(path);
  list.Append("/e");
  EXPECT_EQ(list.Entries().size(), 4u);
  list.Choose("/C");
  EXPECT_EQ(list.Entries(), (std::vector<std::string>{"/c", "/a", "/b", "/d"}));
  list.Choose("/new");
  EXPECT_EQ(list.Entries(), (std::vector<std::string>{"/new", "/c", "/a", "/b"}));
  list.PutInFront("/typed");
  EXPECT_EQ(list.Entries(), (std::vector<std::string>{"/typed", "/new", "/c", "/a"}));
}

TEST_F(GenerateDialogTest, OpensWithTheDocumentsFolderWhenNothingIsRemembered) {
  GenerateDialogModel dialog;
  dialog.Open(host, 0);
  EXPECT_EQ(dialog.Paths.Entries(), (std::vector<std::string>{out.File("Config.c")}));
  EXPECT_EQ(dialog.PathSelection, 0);
  EXPECT_TRUE(dialog.Workspaces.Entries().empty());
  EXPECT_TRUE(dialog.PathControlsEnabled());
  EXPECT_FALSE(dialog.WorkspaceControlsEnabled());
}

TEST_F(GenerateDialogTest, RememberedPathsThatCannotBeWrittenAreDropped) {
  WriteProgramIni("Generate", "Config_Folder_Pathname0", "/no/such/folder/Config.c");
  WriteProgramIni("Generate", "Config_Folder_Pathname1", out.File("x.c"));
  WriteProgramIni("Generate", "ORV_Workspace_Selected", "1");
  GenerateDialogModel dialog;
  dialog.Open(host, 0);
  EXPECT_EQ(dialog.Paths.Entries(), (std::vector<std::string>{out.File("x.c")}));
  EXPECT_EQ(dialog.ProjectInsertion, 1);
  // A "0" does not clear a 1 that came from the page.
  WriteProgramIni("Generate", "ORV_Workspace_Selected", "0");
  GenerateDialogModel second;
  second.Open(host, 1);
  EXPECT_EQ(second.ProjectInsertion, 1);
}

TEST_F(GenerateDialogTest, BrowseSetsTheTargetAtOnceAndOkRemembersTheLists) {
  GenerateDialogModel dialog;
  dialog.Open(host, 0);
  OutputState output;
  dialog.BrowsePath(host, "/no/such/folder/a.c", output);
  EXPECT_EQ(host.messages, (std::vector<std::string>{"Cannot save file into the specified folder!"}));
  EXPECT_TRUE(dialog.ConfigPath.empty());
  dialog.BrowsePath(host, out.File("main.c"), output);
  EXPECT_EQ(output.OutputPath, out.File("main.c"));
  EXPECT_EQ(output.OutputFileName, "main.c");
  EXPECT_EQ(output.OutputFolder, out.path() + "/");
  EXPECT_EQ(dialog.Paths.Entries().front(), out.File("main.c"));
  ASSERT_TRUE(dialog.Ok());
  EXPECT_EQ(dialog.ConfigName, "main.c");
  EXPECT_EQ(Ini("Config_Folder_Pathname0"), out.File("main.c"));
  EXPECT_EQ(Ini("Config_Folder_Pathname1"), out.File("Config.c"));
  EXPECT_EQ(Ini("ORV_Workspace_Selected"), "0");
}

TEST_F(GenerateDialogTest, OkWithoutATargetKeepsTheDialogOpen) {
  GenerateDialogModel dialog;
  dialog.Open(host, 0);
  dialog.PathSelection = -1;
  dialog.PathText.clear();
  EXPECT_FALSE(dialog.Ok());
  dialog.PathText = out.File("typed.c");
  EXPECT_TRUE(dialog.Ok());
  EXPECT_EQ(dialog.ConfigPath, out.File("typed.c"));
  EXPECT_EQ(dialog.Paths.Entries().front(), out.File("typed.c"));
}

}  // namespace
}  // namespace tessara
