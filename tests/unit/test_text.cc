#include "core/text.h"

#include <gtest/gtest.h>

#include "recording_host.h"
#include "temp_folder.h"

namespace tessara {
namespace {

TEST(ParseNumber, PrefixesBeatTheBase) {
  EXPECT_EQ(ParseNumber("10", 0), 16u);
  EXPECT_EQ(ParseNumber("10", 16), 16u);
  EXPECT_EQ(ParseNumber("10", 10), 10u);
  EXPECT_EQ(ParseNumber("D'10", 16), 10u);
  EXPECT_EQ(ParseNumber("d'10", 0), 10u);
  EXPECT_EQ(ParseNumber("H'10", 10), 16u);
  EXPECT_EQ(ParseNumber("h'ff", 2), 255u);
  EXPECT_EQ(ParseNumber("101", 2), 5u);
  EXPECT_EQ(ParseNumber("", 10), 0u);
}

TEST(ParseNumber, ReadsLikeStrtoulOnA32BitLong) {
  EXPECT_EQ(ParseNumber("12x", 10), 12u);
  EXPECT_EQ(ParseNumber("x", 10), 0u);
  EXPECT_EQ(ParseNumber("0x1F", 0), 0x1Fu);
  EXPECT_EQ(ParseNumber("4294967296", 10), 0xFFFFFFFFu);
  EXPECT_EQ(ParseNumber("-1", 10), 0xFFFFFFFFu);
  // Only 11 characters behind a prefix are read.
  EXPECT_EQ(ParseNumber("D'000000000012", 10), 1u);
}

TEST(CStrtoul32, Base0FollowsTheCRule) {
  EXPECT_EQ(CStrtoul32("0377", 0), 255u);
  EXPECT_EQ(CStrtoul32("0xff", 0), 255u);
  EXPECT_EQ(CStrtoul32("255", 0), 255u);
  EXPECT_EQ(CStrtoul32("  42", 0), 42u);
}

TEST(ParseReal, ReadsLikeAtofWhateverTheLocale) {
  EXPECT_DOUBLE_EQ(ParseReal("2.5"), 2.5);
  EXPECT_DOUBLE_EQ(ParseReal(" 1e3x"), 1000.0);
  EXPECT_DOUBLE_EQ(ParseReal("abc"), 0.0);
  EXPECT_DOUBLE_EQ(ParseReal(""), 0.0);
}

TEST(FormatC, UsesTheCRules) {
  EXPECT_EQ(FormatC("%.3f", 1.5), "1.500");
  EXPECT_EQ(FormatC("H'%04X", 0xab), "H'00AB");
  EXPECT_EQ(FormatC("%s", ""), "");
}

TEST(BestDividerPair, ZeroGivesTheSmallestProduct) {
  int n = -1, m = -1;
  BestDividerPair(n, m, 0.0f, 1.0f);
  EXPECT_EQ(n, 0);
  EXPECT_EQ(m, 0);
}

TEST(BestDividerPair, ExactPairsPreferTheLargestFirstDivider) {
  int n = 0, m = 0;
  // x = 6000 * 0.001 / 1 = 6: 256 down to 1 first finds 6 * 1.
  BestDividerPair(n, m, 6000.0f, 1.0f);
  EXPECT_EQ(n, 5);
  EXPECT_EQ(m, 0);
  // x = 1000: 250 * 4 is the first exact product met from 256 downwards.
  BestDividerPair(n, m, 1000000.0f, 1.0f);
  EXPECT_EQ(n, 249);
  EXPECT_EQ(m, 3);
}

TEST(BestDividerPair, TooLargeATargetKeepsTheStartingPair) {
  int n = 0, m = 0;
  // x = 70000 is more than 256 away from every product: nothing beats the start.
  BestDividerPair(n, m, 70000000.0f, 1.0f);
  EXPECT_EQ(n, 255);
  EXPECT_EQ(m, 0);
}

TEST(SortParameterLines, MovesNamedLinesToTheFrontInOrder) {
  std::vector<std::string> lines = {"a=1", "b=2", "c=3", "d=4"};
  std::vector<std::string> comments = {"ca", "cb", "cc", "cd"};
  SortParameterLines(lines, comments, "C;x;A;", 4);
  EXPECT_EQ(lines, (std::vector<std::string>{"c=3", "a=1", "b=2", "d=4"}));
  EXPECT_EQ(comments, (std::vector<std::string>{"cc", "ca", "cb", "cd"}));
}

TEST(SortParameterLines, StopsWhenAllButOneArePlacedOrTheOrderEnds) {
  std::vector<std::string> lines = {"a=1", "b=2"};
  std::vector<std::string> comments = {"", ""};
  SortParameterLines(lines, comments, "b;a;", 2);
  EXPECT_EQ(lines, (std::vector<std::string>{"b=2", "a=1"}));
  // A name without its closing ";" is not an entry.
  lines = {"a=1", "b=2", "c=3"};
  SortParameterLines(lines, comments = {"", "", ""}, "c", 3);
  EXPECT_EQ(lines, (std::vector<std::string>{"a=1", "b=2", "c=3"}));
}

TEST(ProjectChecksumLine, SumsSignedBytes) {
  EXPECT_EQ(ProjectChecksumLine("AB"), "Checksum:131");
  EXPECT_EQ(ProjectChecksumLine(""), "Checksum:0");
  EXPECT_EQ(ProjectChecksumLine("\xC3\xA9"), "Checksum:-148");
}

TEST(StripValue, TakesTheNameBeforeTheFirstEquals) {
  EXPECT_EQ(StripValue("abc"), "abc");
  EXPECT_EQ(StripValue("=abc"), "");
  EXPECT_EQ(StripValue("a=b=c"), "a");
  EXPECT_EQ(StripValue(std::string(40, 'n') + "=1"), std::string(31, 'n'));
}

TEST(SplitCells, KeepsEmptyCellsButOpensNoneBehindALastSemicolon) {
  EXPECT_EQ(SplitCells("x=a;b;"), (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(SplitCells("a;;b"), (std::vector<std::string>{"a", "", "b"}));
  EXPECT_EQ(SplitCells("k=v=w;z"), (std::vector<std::string>{"v=w", "z"}));
  EXPECT_TRUE(SplitCells("k=").empty());
}

TEST(ReadNextToken, TakesOneRunAndOneSeparator) {
  std::string text = "12 34";
  EXPECT_EQ(ReadNextToken(text), "12");
  EXPECT_EQ(text, "34");
  EXPECT_EQ(ReadNextToken(text), "34");
  EXPECT_EQ(text, "");
  EXPECT_EQ(ReadNextToken(text), "");
  text = ":rest";
  EXPECT_EQ(ReadNextToken(text), "");
  EXPECT_EQ(text, "rest");
  text = "Tag:1=2";
  EXPECT_EQ(ReadNextToken(text), "Tag");
  EXPECT_EQ(ReadNextToken(text), "1");
  EXPECT_EQ(text, "2");
}

TEST(RemoveBlanks, RemovesOnlyBlanks) { EXPECT_EQ(RemoveBlanks(" Port 1\t"), "Port1\t"); }

TEST(FirstPathFolder, TakesTheFolderOfTheFirstElement) {
  EXPECT_EQ(FirstPathFolder("/home/u/out/Config.c,/tmp/x.c"), "/home/u/out");
  EXPECT_EQ(FirstPathFolder("Config.c,/tmp/x.c"), "");
  EXPECT_EQ(FirstPathFolder(""), "");
}

TEST(CaseHelpers, CompareAsciiWithoutRegardToCase) {
  EXPECT_TRUE(EqualsNoCase("Timer RA", "TIMER ra"));
  EXPECT_FALSE(EqualsNoCase("Timer", "Timer "));
  EXPECT_TRUE(StartsWithNoCase("initial_value_1", "INITIAL_VALUE"));
  EXPECT_EQ(FindNoCase("Port 11", "PORT 1"), 0u);
  EXPECT_EQ(FindNoCase("abc", "d"), std::string_view::npos);
}

TEST(ReadTextChunks, CutsBehindLineFeedsAndAtTheChunkSize) {
  std::vector<std::string> chunks = ReadTextChunks("ab\r\ncd\rx\n" + std::string(2000, 'z'));
  ASSERT_EQ(chunks.size(), 4u);
  EXPECT_EQ(chunks[0], "ab\n");
  EXPECT_EQ(chunks[1], "cd\rx\n");
  EXPECT_EQ(chunks[2].size(), kChunkSize);
  EXPECT_EQ(chunks[3], "z");
}

class SectionTextTest : public ::testing::Test {
 protected:
  std::string Section(const std::string& name, const std::string& content) {
    std::string path = folder.Write("data.ini", content);
    std::string out;
    EXPECT_EQ(ReadSectionText(host, name, out, path), 0);
    return out;
  }
  TempFolder folder;
  RecordingHost host;
};

TEST_F(SectionTextTest, ReadsUpToTheNextBracketLine) {
  EXPECT_EQ(Section("Timer_G", "[A]\nx=1\n[Timer_G]\nDialog=T\r\ny=2\n[Next]\nz=3\n"), "Dialog=T\ny=2\n");
}

TEST_F(SectionTextTest, TheLastSectionRunsToTheEndOfTheFile) {
  EXPECT_EQ(Section("S", "[S]\na=1\nlast"), "a=1\nlast");
}

TEST_F(SectionTextTest, AnyMentionOfTheNameStartsTheSection) {
  // The name is a plain substring of a comment line, ahead of the real section.
  EXPECT_EQ(Section("Port 1_G", "// see Port 1_G below\nearly=1\n[Port 1_G]\nlate=2\n"),
            "early=1\n");
  // Case matters for the search.
  EXPECT_EQ(Section("port", "[Port]\na=1\n"), "");
}

TEST_F(SectionTextTest, ANulEndsTheSectionName) {
  // A configuration name read from a data file may hold a NUL; the search, like every
  // C string, sees only what stands before it.
  EXPECT_EQ(Section(std::string("Port\0 junk", 10) + "_G", "[Port]\na=1\n[B]\n"), "a=1\n");
}

TEST_F(SectionTextTest, AnOverLongLineArrivesAsTwoChunks) {
  std::string line = std::string(kChunkSize, 'a') + "[tail\n";
  EXPECT_EQ(Section("S", "[S]\n" + line + "more=1\n"), std::string(kChunkSize, 'a'));
}

TEST(ChunkedText, FindsManySectionsAsSingleReadsDo) {
  const std::string file =
      "[Configuration_G Group]\r\nConfiguration_1=Port 1\r\n"
      "// Port 10_G Group is described last\r\nearly=1\r\n"
      "[Port 1_G Group]\r\na=1\r\n"
      "[Port 10_G Group]\r\nb=2\r\nlast";
  ChunkedText chunked(file);
  std::vector<std::string> texts = chunked.ReadSections({"Port 1_G Group", "Port 10_G Group", "Timer_G Group"});
  ASSERT_EQ(texts.size(), 3u);
  EXPECT_EQ(texts[0], "a=1\n");
  // The comment that mentions the name starts the section.
  EXPECT_EQ(texts[1], "early=1\n");
  EXPECT_EQ(texts[2], "");
  std::string one = "kept";
  chunked.ReadSection("Port 1_G Group", one);
  EXPECT_EQ(one, "kepta=1\n");
}

TEST(ChunkedText, ANameMustStandInOneChunkBeforeItsNul) {
  // The first mention is split by the chunk size, the second is hidden behind a NUL; the
  // third counts.
  std::string file = std::string(kChunkSize - 3, 'x') + "S_Group\n" + "y=1\n";
  file += std::string("ab\0S_Group\n", 11) + "z=2\n" + "S_Group\n" + "w=3\n[next]\n";
  ChunkedText chunked(file);
  std::vector<std::string> texts = chunked.ReadSections({"S_Group", "X_Group"});
  EXPECT_EQ(texts[0], "w=3\n");
  EXPECT_EQ(texts[1], "");
  std::vector<std::string> chunks = ReadTextChunks(file);
  std::string single;
  ReadSectionFromChunks(chunks, "S_Group", single);
  EXPECT_EQ(single, texts[0]);
}

TEST_F(SectionTextTest, AMissingFileEndsTheProgram) {
  std::string out = "kept";
  try {
    ReadSectionText(host, "S", out, folder.File("absent.ini"));
    FAIL() << "expected the program to end";
  } catch (const HostExit& exit) {
    EXPECT_EQ(exit.status, 1);
  }
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.messages[0],
            "Missing Files to read: \"" + folder.File("absent.ini") + "\"..\n\nApplication will now exit!");
  EXPECT_EQ(out, "kept");
}

TEST(FileChecksum, OneSumForEitherLineEnd) {
  TempFolder folder;
  RecordingHost host;
  std::string lf = folder.Write("lf.txt", "A\nB\n");
  std::string crlf = folder.Write("crlf.txt", "A\r\nB\r\n");
  EXPECT_EQ(FileChecksum(host, lf), 65 + 10 + 66 + 10);
  EXPECT_EQ(FileChecksum(host, crlf), 65 + 10 + 66 + 10);
}

TEST(FileChecksum, LongTextsSumInBlocksLikeShortOnes) {
  // Long enough for several blocks of the fast sum, with CR LF pairs across their edges.
  std::string text;
  for (int i = 0; i < 5000; ++i) text += (i % 7 == 0) ? "\r\n" : std::string(1, static_cast<char>(0x20 + i % 200));
  std::uint32_t total = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
    total += static_cast<std::uint32_t>(static_cast<signed char>(text[i]));
  }
  EXPECT_EQ(TextChecksum(text), static_cast<std::uint16_t>(total & 0xFFFF));
  EXPECT_EQ(TextChecksum(text + "\r"), static_cast<std::uint16_t>((total + 13) & 0xFFFF));
}

// The sum as the text-mode chunks give it, byte by byte.
std::uint16_t ChunkSum(const std::string& text) {
  std::uint32_t total = 0;
  std::size_t chunkLength = 0;
  bool hidden = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
    ++chunkLength;
    hidden = hidden || text[i] == '\0';
    if (!hidden) total += static_cast<std::uint32_t>(static_cast<signed char>(text[i]));
    if (text[i] == '\n' || chunkLength == kChunkSize) {
      chunkLength = 0;
      hidden = false;
    }
  }
  return static_cast<std::uint16_t>(total & 0xFFFF);
}

TEST(FileChecksum, EveryLengthAndPlaceOfCrLfHighBytesAndNulsSumsAsTheChunksDo) {
  for (std::size_t length : {1u, 63u, 64u, 65u, 127u, 128u, 129u, 200u, 4096u, 70001u}) {
    std::string text;
    for (std::size_t i = 0; i < length; ++i) {
      // CR LF pairs that straddle the 64-byte blocks, lone CRs, bytes above 0x7F.
      text += (i % 64 == 63) ? '\r' : (i % 64 == 0 && i > 0) ? '\n' : (i % 29 == 5) ? '\r' : static_cast<char>(i * 37);
    }
    for (char& c : text) c = c == '\0' ? 'x' : c;
    EXPECT_EQ(TextChecksum(text), ChunkSum(text)) << length;
    for (std::size_t at : {std::size_t{0}, length / 2, length - 1}) {
      std::string withNul = text;
      withNul[at] = '\0';
      EXPECT_EQ(TextChecksum(withNul), ChunkSum(withNul)) << length << " " << at;
    }
  }
}

TEST(FileChecksum, BytesAboveAsciiCountNegativeAndNulEndsAChunk) {
  EXPECT_EQ(TextChecksum("\xFF"), 0xFFFF);  // -1 in 16 bits
  EXPECT_EQ(TextChecksum(std::string("A\0B\nC", 5)), 65 + 67);
  EXPECT_EQ(TextChecksum(""), 0);
}

TEST(FileChecks, ExistsAndWritable) {
  TempFolder folder;
  std::string file = folder.Write("f.txt", "x");
  EXPECT_TRUE(FileExists(file));
  EXPECT_FALSE(FileExists(folder.File("none.txt")));
  EXPECT_FALSE(FileExists(folder.path()));
  EXPECT_TRUE(FolderWritable(folder.path() + "/"));
  EXPECT_FALSE(FileExists(folder.File("~~")));
  EXPECT_FALSE(FolderWritable(folder.File("no/such/folder/")));
}

TEST(TextBuffer, HoldsAWholeFileAsItsBytesStand) {
  TempFolder folder;
  const std::string bytes = std::string("[S]\r\nx=1\0y\n") + std::string(70000, 'z') + "\xff";
  TextBuffer text(std::string_view("stale"));
  ASSERT_TRUE(ReadWholeFile(folder.Write("big.ini", bytes), text));
  EXPECT_EQ(text.View(), bytes);
  ASSERT_TRUE(ReadWholeFile(folder.Write("empty.ini", ""), text));
  EXPECT_TRUE(text.empty());
  // A folder or a missing file is not read.
  EXPECT_FALSE(ReadWholeFile(folder.path(), text));
  EXPECT_FALSE(ReadWholeFile(folder.File("none.ini"), text));
}

TEST(TextBuffer, CopiesAreDeepAndAppendsKeepWhatIsHeld) {
  TextBuffer text(std::string_view("ab"));
  for (int i = 0; i < 100; ++i) text.Append("cd");
  TextBuffer copy = text;
  text.Append("e");
  EXPECT_EQ(copy.size(), 202u);
  EXPECT_EQ(copy.View().substr(0, 4), "abcd");
  EXPECT_EQ(text.View().back(), 'e');
  TextBuffer moved = std::move(copy);
  EXPECT_EQ(moved.size(), 202u);
  copy = moved;
  EXPECT_EQ(copy.View(), moved.View());
}

TEST(ModuleFolder, HomeStandsInForTheProgramFolder) {
  SetModuleFolder("/some/home/");
  EXPECT_EQ(ModuleFolder(), "/some/home");
  SetModuleFolder("");
  EXPECT_FALSE(ModuleFolder().empty());
  EXPECT_NE(ModuleFolder(), "/some/home");
}

}  // namespace
}  // namespace tessara
