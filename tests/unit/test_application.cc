#include "core/application.h"

#include <gtest/gtest.h>

#include "core/ini.h"
#include "core/text.h"
#include "recording_host.h"
#include "temp_folder.h"

namespace tessara {
namespace {

// A program folder written by the test: Tessara.ini and data files in "IO Files".
class StartUpTest : public ::testing::Test {
 protected:
  void SetUp() override { SetModuleFolder(home.path()); }
  void TearDown() override { SetModuleFolder(""); }

  std::string DataFile(const std::string& name, const std::string& group,
                       const std::string& extra = "") {
    std::string text = "[Database]\nSeries=S\nGroup=" + group +
                       "\nPart_No_1=P1;8Kbytes;1Kbytes;2Kbytes\n" + extra;
    home.Write("IO Files/" + name, text);
    return text;
  }
  void Ini(const std::string& text) { home.Write("Tessara.ini", text); }
  std::string SumOf(const std::string& text) { return FormatC("H'%04X", TextChecksum(text)); }

  int ExitStatusOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const HostExit& exit) {
      return exit.status;
    }
    return -1;
  }

  TempFolder home;
  RecordingHost host;
};

TEST_F(StartUpTest, NoListedFileIsReportedAndEndsTheRun) {
  Application application(host);
  EXPECT_EQ(application.StartUp(), Application::StartResult::kNoDatabase);
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0], "No Database file located!\n\nApplication will now exit.");
}

TEST_F(StartUpTest, EveryChecksumSpellingIsAccepted) {
  // A file whose sum is 255: 126 + 126 + 3.
  std::string text = "~~\x03";
  ASSERT_EQ(TextChecksum(text), 255);
  home.Write("IO Files/a.ini", text);
  for (const char* spelling : {"h'00ff", "H'00FF", "255", "0xff", "0377"}) {
    Ini(std::string("[Database_File]\nFile1=a.ini\nFile1_Checksum=") + spelling + "\n");
    RecordingHost fresh;
    Application application(fresh);
    EXPECT_EQ(application.VerifyDataFiles(), 2) << spelling;
    EXPECT_TRUE(fresh.messages.empty()) << spelling;
  }
}

TEST_F(StartUpTest, AnAlteredFileEndsTheProgram) {
  std::string text = DataFile("a.ini", "G/1 Group");
  Ini("[Database_File]\nFile1=a.ini\nFile1_Checksum=" + SumOf(text + "x") + "\n");
  Application application(host);
  EXPECT_EQ(ExitStatusOf([&] { application.StartUp(); }), 1);
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0], "IO Files: \"/IO Files/a.ini\" is being altered!\n\nApplication will now exit!");
}

TEST_F(StartUpTest, AMissingChecksumKeyPassesOnlyASumOfZero) {
  DataFile("a.ini", "G/1 Group");
  Ini("[Database_File]\nFile1=a.ini\n");
  Application application(host);
  EXPECT_EQ(ExitStatusOf([&] { application.VerifyDataFiles(); }), 1);

  home.Write("IO Files/zero.ini", "");
  Ini("[Database_File]\nFile1=zero.ini\n");
  Application second(host);
  EXPECT_EQ(second.VerifyDataFiles(), 2);
}

TEST_F(StartUpTest, AMissingFileNamesItsFolderRelativeForm) {
  Ini("[Database_File]\nFile1=gone.ini\nFile1_Checksum=0\n");
  Application application(host);
  EXPECT_EQ(ExitStatusOf([&] { application.StartUp(); }), 1);
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0], "Missing IO Files: \"/gone.ini\".\n\nApplication will now exit!");
}

TEST_F(StartUpTest, WritingModeStoresEverySumWithoutComparing) {
  std::string a = DataFile("a.ini", "G/1 Group");
  std::string b = DataFile("b.ini", "G/2 Group");
  Ini("[Database_File]\nDebug=CREATE_Checksum\nFile1=a.ini\nFile1_Checksum=1\nFile2=b.ini\n");
  Application application(host);
  EXPECT_EQ(application.StartUp(), Application::StartResult::kRunning);
  EXPECT_EQ(ReadProfileString("Database_File", "File1_Checksum", "", home.File("Tessara.ini")), SumOf(a));
  EXPECT_EQ(ReadProfileString("Database_File", "File2_Checksum", "", home.File("Tessara.ini")), SumOf(b));

  // The next run in checking mode accepts the new sums.
  WriteProfileString("Database_File", "Debug", "", home.File("Tessara.ini"));
  Application checking(host);
  EXPECT_EQ(checking.StartUp(), Application::StartResult::kRunning);
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(StartUpTest, TheListEndsAtTheFirstGap) {
  std::string a = DataFile("a.ini", "G/1 Group");
  Ini("[Database_File]\nFile1=a.ini\nFile1_Checksum=" + SumOf(a) +
      "\nFile3=missing.ini\nFile3_Checksum=0\n");
  Application application(host);
  EXPECT_EQ(application.StartUp(), Application::StartResult::kRunning);
  EXPECT_EQ(application.DataFileCount(), 1);
  EXPECT_EQ(application.database().Entry(1).Group, "G/1 Group");
  EXPECT_TRUE(application.database().Entry(2).Group.empty());
}

TEST_F(StartUpTest, IoFilesComesFirstAndTheProgramFolderSecond) {
  std::string inIo = DataFile("a.ini", "From IO Group");
  home.Write("a.ini", "[Database]\nGroup=Beside Group\n");
  std::string beside = "[Database]\nGroup=Only Beside Group\n";
  home.Write("b.ini", beside);
  Ini("[Database_File]\nFile1=a.ini\nFile1_Checksum=" + SumOf(inIo) + "\nFile2=b.ini\nFile2_Checksum=" +
      SumOf(beside) + "\n");
  Application application(host);
  EXPECT_EQ(application.StartUp(), Application::StartResult::kRunning);
  EXPECT_EQ(application.database().Entry(1).Group, "From IO Group");
  EXPECT_EQ(application.database().Entry(2).Group, "Only Beside Group");
  // The group tables of a file beside the program are read from "IO Files" alone.
  EXPECT_EQ(ExitStatusOf([&] { application.LoadGroupTables(2); }), -1);
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(StartUpTest, GroupTablesOfAFileOnlyBesideTheProgramEndTheProgram) {
  std::string beside =
      "[Database]\nGroup=B Group\n[Configuration_B Group]\nConfiguration_1=Clock\n";
  home.Write("b.ini", beside);
  home.Write("IO Files/keep.txt", "");
  Ini("[Database_File]\nFile1=b.ini\nFile1_Checksum=" + SumOf(beside) + "\n");
  Application application(host);
  // The configuration list is read from the missing "IO Files" copy, so it is empty and
  // no section is looked for; the copy beside the program is never used for tables.
  EXPECT_EQ(application.StartUp(), Application::StartResult::kRunning);
  EXPECT_TRUE(application.database().Entry(1).Configuration[1].empty());
}

TEST_F(StartUpTest, CatalogueReadsPartsAndColoursUpToTheFirstAbsentKey) {
  std::string a = DataFile("a.ini", "G/1 Group",
                           "Part_No_2=P2\nPart_No_4=P4;1;2;3\nColor_1=Foreground_Focus_Valid=1,2,3\n"
                           "Color_3=x=1\n");
  Ini("[Database_File]\nFile1=a.ini\nFile1_Checksum=" + SumOf(a) + "\n");
  Application application(host);
  ASSERT_EQ(application.StartUp(), Application::StartResult::kRunning);
  const DatabaseEntry& entry = application.database().Entry(1);
  EXPECT_EQ(entry.Series, "S");
  EXPECT_EQ(entry.Part[1], "P1;8Kbytes;1Kbytes;2Kbytes");
  EXPECT_EQ(entry.Part[2], "P2");
  EXPECT_TRUE(entry.Part[3].empty());
  EXPECT_TRUE(entry.Part[4].empty());
  EXPECT_EQ(entry.Color[1], "Foreground_Focus_Valid=1,2,3");
  EXPECT_TRUE(entry.Color[3].empty());
}

TEST_F(StartUpTest, CatalogueReadsALongOrLateDatabaseSectionWhole) {
  // The catalogue reads a file's start first; a Database section that runs past it, or
  // that stands behind other sections, must still be read to its end.
  const std::string filler = "// " + std::string(200, '-') + "\n";
  std::string longSection = "[Database]\nSeries=Long\nGroup=L Group\n";
  for (int i = 0; i < 200; ++i) longSection += filler;
  longSection += "Part_No_1=LATE;1;2;3\n[Configuration_L Group]\n";
  std::string lateSection;
  for (int i = 0; i < 200; ++i) lateSection += "[Other_" + std::to_string(i) + "]\n" + filler;
  lateSection += "[Database]\nSeries=Late\nPart_No_1=P;1;2;3\nPart_No_2=Q;1;2;3";
  home.Write("IO Files/long.ini", longSection);
  home.Write("IO Files/late.ini", lateSection);
  Ini("[Database_File]\nFile1=long.ini\nFile1_Checksum=" + SumOf(longSection) +
      "\nFile2=late.ini\nFile2_Checksum=" + SumOf(lateSection) + "\n");
  Application application(host);
  ASSERT_EQ(application.StartUp(), Application::StartResult::kRunning);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(application.database().Entry(1).Series, "Long");
  EXPECT_EQ(application.database().Entry(1).Part[1], "LATE;1;2;3");
  EXPECT_EQ(application.database().Entry(2).Series, "Late");
  EXPECT_EQ(application.database().Entry(2).Part[2], "Q;1;2;3");
}

class GroupTablesTest : public StartUpTest {
 protected:
  // Starts on one data file holding `body` behind its Database section.
  Application& Start(const std::string& body) {
    std::string text = DataFile("g.ini", "G/1 Group", body);
    Ini("[Database_File]\nFile1=g.ini\nFile1_Checksum=" + SumOf(text) + "\n");
    application = std::make_unique<Application>(host);
    EXPECT_EQ(application->StartUp(), Application::StartResult::kRunning);
    return *application;
  }
  std::unique_ptr<Application> application;
};

TEST_F(GroupTablesTest, CommentRuleAndUnterminatedLastLine) {
  Application& app = Start(
      "[Configuration_G/1 Group]\nConfiguration_1=Timer\n"
      "[ResourceID_G/1 Group]\nResourceID_1=IID_DIALOG_TIMERRA\nResourceID_2=IID_DIALOG_ADC\n"
      "[Timer_G/1 Group]\n"
      "Dialog=Timer RA\n"
      "// comment\n"
      "a/b=second character is a slash\n"
      "\n"
      "Radiobox_1=x;y // kept\n"
      "last=no line feed");
  const DatabaseEntry& entry = app.database().Entry(1);
  EXPECT_EQ(entry.Configuration[1], "Timer");
  EXPECT_EQ(entry.ResourceID[2], "IID_DIALOG_ADC");
  ASSERT_EQ(entry.SectionLines[1].size(), 2u);
  EXPECT_EQ(*entry.SectionLine(1, 1), "Dialog=Timer RA");
  EXPECT_EQ(*entry.SectionLine(1, 2), "Radiobox_1=x;y // kept");
  EXPECT_FALSE(entry.SectionLine(1, 3).has_value());
}

TEST_F(GroupTablesTest, ConfigurationsEndAtTheFirstAbsentKey) {
  Application& app = Start(
      "[Configuration_G/1 Group]\nConfiguration_1=One\nConfiguration_3=Three\n"
      "[One_G/1 Group]\nx=1\n");
  EXPECT_EQ(app.database().Entry(1).Configuration[1], "One");
  EXPECT_TRUE(app.database().Entry(1).Configuration[3].empty());
}

TEST_F(GroupTablesTest, A151stLineIsRefusedWithItsMessage) {
  std::string lines;
  for (int i = 1; i <= 152; ++i) lines += "line" + std::to_string(i) + "=x\n";
  Application& app = Start("[Configuration_G/1 Group]\nConfiguration_1=Big\nConfiguration_2=Fits\n[Big_G/1 Group]\n" +
                           lines + "[Fits_G/1 Group]\n" + lines.substr(0, lines.find("line151")));
  EXPECT_EQ(app.database().Entry(1).SectionLines[1].size(), 150u);
  EXPECT_EQ(app.database().Entry(1).SectionLines[2].size(), 150u);
  ASSERT_EQ(host.messages.size(), 2u);
  EXPECT_EQ(host.messages[0], "Too much data entry in DB that GUI can handle!!!,\n\n4004");
}

TEST_F(GroupTablesTest, CommentsAndBlankLinesDoNotCountTowardsTheLimit) {
  // 200 lines each: 150 stored with comments and blank lines between them fit; 151
  // stored ones bring one message, for the 151st.
  auto section = [](int stored) {
    std::string lines;
    for (int i = 1; i <= 200; ++i) {
      if (i <= stored) {
        lines += "line" + std::to_string(i) + "=x\r\n";
      } else {
        lines += i % 3 == 0 ? "// note\r\n" : i % 3 == 1 ? "\r\n" : "x/ half\r\n";
      }
    }
    return lines;
  };
  Application& app =
      Start("[Configuration_G/1 Group]\r\nConfiguration_1=Fits\r\nConfiguration_2=Over\r\n[Fits_G/1 Group]\r\n" +
            section(150) + "[Over_G/1 Group]\r\n" + section(151));
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0], "Too much data entry in DB that GUI can handle!!!,\n\n4004");
  EXPECT_EQ(app.database().Entry(1).SectionLines[1].size(), 150u);
  EXPECT_EQ(app.database().Entry(1).SectionLines[2].size(), 150u);
  EXPECT_EQ(*app.database().Entry(1).SectionLine(1, 150), "line150=x");
  EXPECT_EQ(*app.database().Entry(1).SectionLine(2, 150), "line150=x");
}

TEST_F(GroupTablesTest, AGroupIsReadOnce) {
  Application& app = Start("[Configuration_G/1 Group]\nConfiguration_1=One\n[One_G/1 Group]\nx=1\n");
  home.Write("IO Files/g.ini", "[Configuration_G/1 Group]\nConfiguration_1=Changed\n");
  app.LoadGroupTables(1);
  EXPECT_EQ(app.database().Entry(1).Configuration[1], "One");
  EXPECT_EQ(app.database().Entry(1).SectionLines[1].size(), 1u);
}

TEST_F(GroupTablesTest, SectionNamesFollowTheSubstringRule) {
  // "Port 11_G/1 Group" does not hold "Port 1_G/1 Group", but the comment that merely
  // mentions the name does, and so starts the section.
  Application& app = Start(
      "[Configuration_G/1 Group]\nConfiguration_1=Port 1\n"
      "[Port 11_G/1 Group]\nx=eleven\n"
      "// the next one is Port 1_G/1 Group\n"
      "y=early\n"
      "[Port 1_G/1 Group]\nz=real\n");
  ASSERT_EQ(app.database().Entry(1).SectionLines[1].size(), 1u);
  EXPECT_EQ(*app.database().Entry(1).SectionLine(1, 1), "y=early");
}

TEST_F(GroupTablesTest, NoMoreThan64ConfigurationsAreRead) {
  std::string names, ids;
  for (int k = 1; k <= 66; ++k) {
    names += "Configuration_" + std::to_string(k) + "=C" + std::to_string(k) + "\n";
    ids += "ResourceID_" + std::to_string(k) + "=IID_DIALOG_PORT\n";
  }
  Application& app = Start("[Configuration_G/1 Group]\n" + names + "[ResourceID_G/1 Group]\n" + ids +
                           "[C64_G/1 Group]\nx=1\n");
  const DatabaseEntry& entry = app.database().Entry(1);
  EXPECT_EQ(entry.Configuration[64], "C64");
  EXPECT_EQ(entry.ResourceID[64], "IID_DIALOG_PORT");
  EXPECT_EQ(entry.SectionLines[64].size(), 1u);
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(GroupTablesTest, AnOverLongLineIsStoredAsTheChunksItWasReadIn) {
  std::string longLine = "Radiobox_1=" + std::string(2500, 'x') + "\n";
  Application& app = Start("[Configuration_G/1 Group]\nConfiguration_1=One\n[One_G/1 Group]\n" + longLine +
                           "y=2\n");
  const DatabaseEntry& entry = app.database().Entry(1);
  // The section text is whole again once its chunks are joined: one stored line.
  ASSERT_EQ(entry.SectionLines[1].size(), 2u);
  EXPECT_EQ(entry.SectionLines[1][0].size(), longLine.size() - 1);
}

TEST_F(GroupTablesTest, ANulHidesTheRestOfItsChunk) {
  // The chunk "x=1<NUL>hidden" is read up to its NUL, its line feed with it, so the next
  // line joins it.
  Application& app = Start(std::string("[Configuration_G/1 Group]\nConfiguration_1=One\n[One_G/1 Group]\n"
                                       "x=1\0hidden\ny=2\nz=3\n", 81));
  const DatabaseEntry& entry = app.database().Entry(1);
  ASSERT_EQ(entry.SectionLines[1].size(), 2u);
  EXPECT_EQ(*entry.SectionLine(1, 1), "x=1y=2");
  EXPECT_EQ(*entry.SectionLine(1, 2), "z=3");
}

TEST(StoreSectionLines, OutOfRangeSlotsAndRowsAreRefused) {
  RecordingHost host;
  DatabaseEntry entry;
  StoreSectionLines(host, entry, 65, 1, "a=1\nb=2\n");
  StoreSectionLines(host, entry, 1, 65, "a=1\n");
  ASSERT_EQ(host.messages.size(), 3u);
  EXPECT_EQ(host.messages[0], "Too much data entry in DB that GUI can handle!!!,\n\n4002");
  EXPECT_EQ(host.messages[2], "Too much data entry in DB that GUI can handle!!!,\n\n4003");
}

}  // namespace
}  // namespace tessara
