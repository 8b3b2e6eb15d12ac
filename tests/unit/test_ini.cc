#include "core/ini.h"

#include <gtest/gtest.h>

#include "temp_folder.h"

namespace tessara {
namespace {

const char* const kSample =
    "; a comment\r\n"
    "[Database_File]\r\n"
    "  File1 =  first.ini  \r\n"
    "file1=second.ini\r\n"
    "Empty=\r\n"
    "[generate]\r\n"
    "EnhancedGenerate=1\r\n"
    "[Database_File]\r\n"
    "File2=hidden.ini\r\n";

TEST(ReadProfileString, NamesWithoutRegardToCaseBlanksDroppedFirstMatchWins) {
  bool found = false;
  EXPECT_EQ(ReadProfileStringFromText(kSample, "DATABASE_FILE", "FILE1", "d", kProfileBufferSize, &found), "first.ini");
  EXPECT_TRUE(found);
  EXPECT_EQ(ReadProfileStringFromText(kSample, "Generate", "enhancedgenerate", "d"), "1");
}

TEST(ReadProfileString, AbsentKeysSectionsAndFilesGiveTheDefault) {
  bool found = true;
  EXPECT_EQ(ReadProfileStringFromText(kSample, "Database_File", "File9", "dflt", kProfileBufferSize, &found), "dflt");
  EXPECT_FALSE(found);
  EXPECT_EQ(ReadProfileStringFromText(kSample, "Nowhere", "File1", ""), "");
  EXPECT_EQ(ReadProfileStringFromText(kSample, "Database_File", "Empty", "dflt"), "");
  // A second section of the same name is never looked at.
  EXPECT_EQ(ReadProfileStringFromText(kSample, "Database_File", "File2", "none"), "none");
  EXPECT_EQ(ReadProfileString("Database_File", "File1", "none", "/no/such/file.ini"), "none");
}

TEST(ReadProfileString, ValueIsCutToTheBuffer) {
  std::string text = "[S]\nk=" + std::string(3000, 'v') + "\n";
  EXPECT_EQ(ReadProfileStringFromText(text, "S", "k", "").size(), kProfileBufferSize - 1);
  EXPECT_EQ(ReadProfileStringFromText(text, "S", "k", "", 90).size(), 89u);
}

TEST(IniText, AnswersAsTheWholeTextReadDoes) {
  IniText ini(kSample);
  bool found = false;
  EXPECT_EQ(ini.Read("generate", "ENHANCEDGENERATE", "d", kProfileBufferSize, &found), "1");
  EXPECT_TRUE(found);
  // Asked out of file order, and again: the first section and the first key still win.
  EXPECT_EQ(ini.Read(" Database_File ", "file1", "d"), "first.ini");
  EXPECT_EQ(ini.Read("Database_File", "File2", "none", kProfileBufferSize, &found), "none");
  EXPECT_FALSE(found);
  EXPECT_EQ(ini.Read("Database_File", "Empty", "d", kProfileBufferSize, &found), "");
  EXPECT_TRUE(found);
  EXPECT_EQ(ini.Read("Nowhere", "File1", "d"), "d");
  EXPECT_EQ(ini.Read("Generate", "EnhancedGenerate", "d"), "1");
}

TEST(IniText, KeepsLinesAheadOfTheFirstHeaderOutAndCutsToTheBuffer) {
  IniText ini("k=loose\n[S]\nk=" + std::string(3000, 'v') + "\n[T]\nlast=1");
  EXPECT_EQ(ini.Read("S", "k", "").size(), kProfileBufferSize - 1);
  EXPECT_EQ(ini.Read("S", "k", "", 90).size(), 89u);
  EXPECT_EQ(ini.Read("T", "last", ""), "1");
  EXPECT_EQ(ini.Read("", "k", "none"), "none");
}

TEST(IniText, ReadsANumberedListAsKeyByKeyReadsDo) {
  const std::string text =
      "[L]\nItem_2=two\nitem_1 = one \nItem_1=again\nItem_01=zero one\nItem_3=\nItem_12=twelve\n"
      "Item_4x=no\nItem_99=past\nItem_5=" + std::string(3000, 'v') + "\n[L]\nItem_6=second section\n";
  IniText ini(text);
  std::vector<std::string_view> values;
  ini.ReadNumbered("l", "Item_", 12, values);
  ASSERT_EQ(values.size(), 13u);
  for (int j = 1; j <= 12; ++j) {
    EXPECT_EQ(std::string(values[static_cast<std::size_t>(j)]),
              ReadProfileStringFromText(text, "l", "Item_" + std::to_string(j), ""))
        << j;
  }
  EXPECT_EQ(values[1], "one");
  EXPECT_EQ(values[5].size(), kProfileBufferSize - 1);
  ini.ReadNumbered("absent", "Item_", 3, values);
  EXPECT_EQ(values, std::vector<std::string_view>(4));
}

TEST(IniText, TellsHeadersByTheirFirstCharacterPastTheBlanks) {
  // A "[" inside a value or after other characters starts no section; blanks, tabs and
  // a CR ahead of it do not stop a header; a header may be the last line.
  const std::string text =
      "[A]\nk=[B]\nx [B]\n \t\r[ B ]\nk=b\n  k2 = two words  \r\n[C]\n[D]\r\nk=d\n=no key\nnokey\n[E]";
  IniText ini(text);
  EXPECT_EQ(ini.Read("A", "k", "none"), "[B]");
  EXPECT_EQ(ini.Read("B", "k", "none"), "b");
  EXPECT_EQ(ini.Read("b", "K2", "none"), "two words");
  EXPECT_EQ(ini.Read("C", "k", "none"), "none");
  EXPECT_EQ(ini.Read("D", "k", "none"), "d");
  EXPECT_EQ(ini.Read("D", "", "none"), "no key");
  EXPECT_EQ(ini.Read("E", "k", "none"), "none");
  EXPECT_TRUE(ini.HoldsWholeSection("D"));
  EXPECT_FALSE(ini.HoldsWholeSection("E"));
  for (const char* section : {"A", "B", "C", "D", "E"}) {
    for (const char* key : {"k", "K2", "", "nokey", "x [B]"}) {
      EXPECT_EQ(IniText(text).Read(section, key, "none"), ReadProfileStringFromText(text, section, key, "none"))
          << section << " " << key;
    }
  }
}

TEST(WriteProfileString, CreatesFileSectionAndKey) {
  TempFolder folder;
  std::string path = folder.File("new.ini");
  ASSERT_TRUE(WriteProfileString("Generate", "Path", "/x", path));
  EXPECT_EQ(folder.Read("new.ini"), "[Generate]\r\nPath=/x\r\n");
  ASSERT_TRUE(WriteProfileString("Generate", "Other", "2", path));
  ASSERT_TRUE(WriteProfileString("Display", "ExtraSetting", "1", path));
  EXPECT_EQ(folder.Read("new.ini"),
            "[Generate]\r\nPath=/x\r\nOther=2\r\n[Display]\r\nExtraSetting=1\r\n");
  EXPECT_EQ(ReadProfileString("generate", "other", "", path), "2");
}

TEST(WriteProfileString, ReplacesTheFirstMatchAndKeepsEveryOtherLine) {
  TempFolder folder;
  std::string path = folder.Write("t.ini",
                                  "# header\n[A]\nx = 1\nX=2\n\n[B]\ny=3\n");
  ASSERT_TRUE(WriteProfileString("a", "x", "9", path));
  ASSERT_TRUE(WriteProfileString("A", "z", "new", path));
  EXPECT_EQ(folder.Read("t.ini"), "# header\n[A]\nx=9\nX=2\nz=new\n\n[B]\ny=3\n");
}

TEST(WriteProfileString, ClosesAnUnterminatedLastLine) {
  TempFolder folder;
  std::string path = folder.Write("t.ini", "[A]\nx=1");
  ASSERT_TRUE(WriteProfileString("A", "y", "2", path));
  EXPECT_EQ(folder.Read("t.ini"), "[A]\nx=1\ny=2\n");
}

TEST(WriteProfileString, FailsWhereTheFileCannotBeWritten) {
  EXPECT_FALSE(WriteProfileString("A", "x", "1", "/no/such/folder/t.ini"));
}

}  // namespace
}  // namespace tessara
