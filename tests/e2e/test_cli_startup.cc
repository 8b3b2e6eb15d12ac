#include <gtest/gtest.h>

#include <fstream>

#include "cli_runner.h"
#include "temp_folder.h"

namespace tessara {
namespace {

TEST(CliUsage, HelpVersionAndBadUsage) {
  CliResult help = RunCli({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_NE(help.out.find("catalogue"), std::string::npos);
  CliResult version = RunCli({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.out, "Tessara V.1.31 Release 00\n");
  EXPECT_EQ(RunCli({"frobnicate"}).status, 2);
  EXPECT_EQ(RunCli({"checksums", "--bogus"}).status, 2);
  EXPECT_EQ(RunCli({}).status, 2);
}

TEST(CliSampleData, CatalogueListsEveryPartInFileAndKeyOrder) {
  CliResult result = RunCli({"catalogue"});
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out.substr(0, result.out.find('\n', result.out.find('\n') + 1) + 1),
            "QTL\tQTL/4C Group\tQTL4C12\t8Kbytes\t512bytes\t2Kbytes\n"
            "QTL\tQTL/4C Group\tQTL4C14\t16Kbytes\t1Kbytes\t2Kbytes\n");
  // A part without a ";" list still has its line, with empty fields behind it.
  EXPECT_NE(result.out.find("QTL\tQTL/6P Group\tQTL6P-EVAL\t\t\t\n"), std::string::npos);
  EXPECT_NE(result.out.find("QTL\tQTL/6P Group\tQTL6P04\t16Kbytes\t1Kbytes\t\n"), std::string::npos);
  EXPECT_NE(result.out.find("KB\tKB/77161 Group\tKB77161A\t32Kbytes\t2Kbytes\t\n"), std::string::npos);
  EXPECT_NE(result.out.find("ZNR9\tZNR9/4X Group\t"), std::string::npos);
  EXPECT_NE(result.out.find("QTL\tQTL/4V Group\t"), std::string::npos);
}

TEST(CliSampleData, ChecksumsAgreeWithTheIni) {
  CliResult sums = RunCli({"checksums"});
  ASSERT_EQ(sums.status, 0) << sums.err;
  std::ifstream ini(std::string(TESSARA_SOURCE_DIR) + "/data/Tessara.ini");
  std::string iniText((std::istreambuf_iterator<char>(ini)), std::istreambuf_iterator<char>());
  std::istringstream lines(sums.out);
  std::string line;
  int count = 0;
  while (std::getline(lines, line)) {
    std::string name = line.substr(0, line.find('\t'));
    std::string sum = line.substr(line.find('\t') + 1);
    ++count;
    EXPECT_NE(iniText.find("_Checksum=" + sum), std::string::npos) << line;
    EXPECT_NE(iniText.find("=" + name), std::string::npos) << line;
  }
  EXPECT_GE(count, 5);
}

class CliHomeTest : public ::testing::Test {
 protected:
  std::string Home() { return folder.path(); }
  TempFolder folder;
};

TEST_F(CliHomeTest, AnEditedDataFileStopsEveryCommand) {
  CopySampleHome(Home());
  {
    std::ofstream edit(Home() + "/IO Files/QTL6P.ini", std::ios::app);
    edit << "// an extra line\n";
  }
  for (const std::vector<std::string>& command :
       std::vector<std::vector<std::string>>{{"catalogue"}, {"run", "-"}}) {
    std::vector<std::string> arguments = {"--home", Home()};
    arguments.insert(arguments.end(), command.begin(), command.end());
    CliResult result = RunCli(arguments, "quit\n");
    EXPECT_EQ(result.status, 1) << command[0];
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "IO Files: \"/IO Files/QTL6P.ini\" is being altered!\n\nApplication will now exit!\n");
  }
  // checksums does not compare; with --write the next start accepts the file again.
  EXPECT_EQ(RunCli({"--home", Home(), "checksums", "--write"}).status, 0);
  CliResult again = RunCli({"--home", Home(), "catalogue"});
  EXPECT_EQ(again.status, 0) << again.err;
}

TEST_F(CliHomeTest, MissingIniAndMissingFile) {
  CliResult none = RunCli({"--home", Home(), "catalogue"});
  EXPECT_EQ(none.status, 1);
  EXPECT_EQ(none.err, "No Database file located!\n\nApplication will now exit.\n");
  EXPECT_EQ(RunCli({"--home", Home(), "checksums"}).status, 1);

  folder.Write("Tessara.ini", "[Database_File]\nFile1=lost.ini\nFile1_Checksum=H'0000\n");
  CliResult missing = RunCli({"--home", Home(), "checksums"});
  EXPECT_EQ(missing.status, 1);
  EXPECT_EQ(missing.err, "Missing IO Files: \"/lost.ini\".\n\nApplication will now exit!\n");
}

TEST_F(CliHomeTest, ChecksumSpellingsAndAGapInTheList) {
  // "[Database]\n" sums to 983 = H'03D7; five spellings of it.
  folder.Write("IO Files/a.ini", "[Database]\n");
  folder.Write("IO Files/b.ini", "[Database]\n");
  folder.Write("IO Files/c.ini", "[Database]\n");
  folder.Write("IO Files/d.ini", "[Database]\n");
  folder.Write("IO Files/e.ini", "[Database]\n");
  folder.Write("Tessara.ini",
               "[Database_File]\nFile1=a.ini\nFile1_Checksum=h'03d7\nFile2=b.ini\nFile2_Checksum=H'03D7\n"
               "File3=c.ini\nFile3_Checksum=983\nFile4=d.ini\nFile4_Checksum=0x3D7\n"
               "File5=e.ini\nFile5_Checksum=01727\n"
               "File7=missing.ini\nFile7_Checksum=0\n");
  CliResult sums = RunCli({"--home", Home(), "checksums"});
  ASSERT_EQ(sums.status, 0) << sums.err;
  EXPECT_EQ(sums.out, "a.ini\tH'03D7\nb.ini\tH'03D7\nc.ini\tH'03D7\nd.ini\tH'03D7\ne.ini\tH'03D7\n");
  CliResult catalogue = RunCli({"--home", Home(), "catalogue"});
  EXPECT_EQ(catalogue.status, 0) << catalogue.err << catalogue.out;
  EXPECT_EQ(catalogue.out, "");
}

TEST_F(CliHomeTest, ScriptsReportTheirBadLines) {
  CopySampleHome(Home());
  CliResult result = RunCli({"--home", Home(), "run", "-"}, "# comment\n\n  quit\n");
  EXPECT_EQ(result.status, 0) << result.err;
  result = RunCli({"--home", Home(), "run", "-"}, "\nfly away\nquit\n");
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err, "line 2: unknown command \"fly\"\n");
  result = RunCli({"--home", Home(), "run", Home() + "/no-such-script"});
  EXPECT_EQ(result.status, 4);
}

}  // namespace
}  // namespace tessara
