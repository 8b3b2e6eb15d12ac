#include "idelink/ide_link.h"

#include <gtest/gtest.h>

#include <memory>

#include "core/application.h"
#include "core/text.h"
#include "generator/code_generator.h"
#include "idelink/ide_server.h"
#include "pages/peripheral_page.h"
#include "recording_host.h"
#include "temp_folder.h"

namespace tessara {
namespace {

// A development environment played by the test: a project with files, or no
// workspace, failing calls, and a project that refuses a file it holds already.
class FakeIdeServer : public IdeServer {
 public:
  int AddProjectFile(const std::string& path) override {
    calls.push_back("add " + path);
    if (failAdds) return -1;
    for (const std::string& file : project) {
      if (file == path && refuseDuplicates) return -1;
    }
    project.push_back(path);
    return 0;
  }
  int RemoveProjectFile(const std::string& path) override {
    calls.push_back("remove " + path);
    std::erase(project, path);
    return 0;
  }
  int FinishProjectUpdate() override {
    calls.push_back("finish");
    return 0;
  }
  int StartIde() override {
    calls.push_back("start");
    return startResult;
  }
  int GetProjectName(std::string& name) override {
    name = projectName;
    return nameResult;
  }
  int GetProjectFiles(std::string& files) override {
    files = fileList;
    return filesResult;
  }

  std::vector<std::string> calls;
  std::vector<std::string> project;
  std::string projectName = "blinky";
  std::string fileList;
  int nameResult = 0, filesResult = 0, startResult = 0;
  bool refuseDuplicates = true, failAdds = false;
};

// A host whose dialogs answer as the test says.
struct DialogHost : RecordingHost {
  bool AskInvokeIde(const std::string& text) override {
    questions.push_back(text);
    return invoke;
  }
  bool RunProjectDetectedDialog(ProjectDetectedDialogModel& dialog) override {
    shown.push_back(dialog.FileListText);
    if (!typedPath.empty()) dialog.PathText = typedPath;
    return accept && dialog.Ok(*this);
  }
  std::vector<std::string> questions, shown;
  bool invoke = false, accept = true;
  std::string typedPath;
};

class IdeLinkTest : public ::testing::Test {
 protected:
  void SetUp() override {
    SetModuleFolder(home.path());
    std::string data =
        "[Database]\nSeries=KB\nGroup=KB/1 Group\nPart_No_1=K1;8Kbytes;1Kbytes;\n"
        "[Configuration_KB/1 Group]\nConfiguration_1=WKP\n[ResourceID_KB/1 Group]\nResourceID_1=IID_DIALOG_WKP\n"
        "[Default_KB/1 Group]\nvoid init(void)\n{\n}\n[Header3_KB/1 Group]\n/* vectors */\n";
    home.Write("IO Files/k.ini", data);
    home.Write("Tessara.ini", "[Database_File]\nFile1=k.ini\nFile1_Checksum=" +
                                  FormatC("H'%04X", TextChecksum(data)) + "\n");
    application = std::make_unique<Application>(host);
    ASSERT_EQ(application->StartUp(), Application::StartResult::kRunning);
    application->SetFamilyFlags(1);
    page = std::make_unique<PeripheralPage>(*application);
    page->Open(false, nullptr, nullptr);
    page->Output.ProjectInsertion = 1;  // as the Generate dialog leaves it for project mode
    server.fileList = project.File("main.c") + "," + project.File("other.c");
  }
  void TearDown() override { SetModuleFolder(""); }

  void Insert(IdeServer* target) {
    CodeGenerator generator(*application, *page);
    InsertIntoProject(*application, target, page->ProjectDialog, page->Output, generator);
  }

  TempFolder home, project;
  DialogHost host;
  FakeIdeServer server;
  std::unique_ptr<Application> application;
  std::unique_ptr<PeripheralPage> page;
};

TEST_F(IdeLinkTest, WithoutAServerProjectModeEndsInItsMessage) {
  EXPECT_EQ(ConnectIdeServer(), nullptr);
  Insert(nullptr);
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0], kNoWorkspaceDetected);
  EXPECT_TRUE(host.shown.empty());
}

TEST_F(IdeLinkTest, AFailedQueryIsHandlerA) {
  server.filesResult = -5;
  Insert(&server);
  EXPECT_EQ(host.messages, (std::vector<std::string>{kNoWorkspaceDetected}));
  server.filesResult = 0;
  server.nameResult = -1;
  Insert(&server);
  EXPECT_EQ(host.messages.size(), 2u);
}

TEST_F(IdeLinkTest, NoWorkspaceOffersToStartTheEnvironment) {
  server.nameResult = 1;
  Insert(&server);
  EXPECT_EQ(host.questions, (std::vector<std::string>{"Could not detect any existing ORV workspace!"}));
  EXPECT_TRUE(server.calls.empty()) << "Cancel writes nothing and starts nothing";
  host.invoke = true;
  server.startResult = -1;
  Insert(&server);
  EXPECT_EQ(server.calls, (std::vector<std::string>{"start"}));
  EXPECT_EQ(host.messages, (std::vector<std::string>{kUnableToInvokeIde}));
  EXPECT_FALSE(std::filesystem::exists(project.File("Config.c")));
}

TEST_F(IdeLinkTest, WritesInProjectOrderAndInsertsEachFile) {
  Insert(&server);
  ASSERT_EQ(host.shown.size(), 1u);
  EXPECT_EQ(host.shown[0],
            "The following files will be inserted into the ORV workspace.\nIf the files already exist, "
            "they will be overwritten.\n\n1. Config.c,\n2. Config.h,\n3. iodefine.h\n4. intprg.c\n");
  const std::string folder = project.path() + "/";
  EXPECT_EQ(server.calls, (std::vector<std::string>{"add " + folder + "Config.c", "add " + folder + "Config.h",
                                                    "add " + folder + "iodefine.h", "add " + folder + "intprg.c",
                                                    "finish"}));
  EXPECT_EQ(project.Read("intprg.c"), "/* vectors */\r\n");
  EXPECT_TRUE(host.viewed.empty()) << "project mode opens no viewer";
  EXPECT_EQ(page->Output.OutputPath, folder + "Config.c");

  // The same target again: the project refuses the duplicates, which are taken out and
  // added anew.
  server.calls.clear();
  Insert(&server);
  ASSERT_GE(server.calls.size(), 3u);
  EXPECT_EQ(server.calls[0], "add " + folder + "Config.c");
  EXPECT_EQ(server.calls[1], "remove " + folder + "Config.c");
  EXPECT_EQ(server.calls[2], "add " + folder + "Config.c");
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(IdeLinkTest, AnEmptyFileListNeedsATypedPath) {
  server.fileList = "";
  host.accept = true;
  Insert(&server);
  EXPECT_EQ(host.messages.back(),
            "Could not find the absolute path for the detected project!\n\nPlease enter the desired location "
            "manually.");
  EXPECT_TRUE(server.calls.empty());
  host.messages.clear();
  host.typedPath = project.File("app");
  Insert(&server);
  EXPECT_EQ(page->ProjectDialog.TargetName, "app");
  EXPECT_EQ(ProjectHeaderName("app"), ".h");
  EXPECT_EQ(server.calls[1], "add " + project.path() + "/.h");
}

TEST(ProjectDetectedDialog, BrowseTakesFolderAndName) {
  ProjectDetectedDialogModel dialog;
  dialog.TargetFolder = "/p";
  dialog.Open("QTL/4C Group", false);
  EXPECT_EQ(dialog.PathText, "/p/Config.c");
  EXPECT_NE(dialog.FileListText.find("3. sfr_QTL4Cconfig.h\n"), std::string::npos);
  EXPECT_EQ(dialog.FileListText.find("intprg.c"), std::string::npos);
  dialog.Browse("/q/r/main.c");
  EXPECT_EQ(dialog.TargetFolder, "/q/r");
  EXPECT_EQ(dialog.TargetName, "main.c");
}

}  // namespace
}  // namespace tessara
