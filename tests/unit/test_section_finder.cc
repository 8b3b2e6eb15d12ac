#include "core/section_finder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/text.h"

namespace tessara {
namespace {

// The lines the finder reports for each name, as texts.
std::vector<std::vector<std::string>> FoundLines(const std::string& text, const std::vector<std::string>& names,
                                                 ScanWidth width) {
  SectionFinder finder(text, names, width);
  EXPECT_TRUE(finder.Applies());
  std::vector<std::vector<std::string>> lines(names.size());
  for (std::size_t i = 0; i < names.size(); ++i) {
    finder.ForEachLine(i, [&](std::size_t offset, std::size_t length) { lines[i].push_back(text.substr(offset, length)); });
  }
  return lines;
}

// The lines of each section as the chunked search reads it, cut at the line feeds.
std::vector<std::vector<std::string>> ChunkedLines(const std::string& text, const std::vector<std::string>& names) {
  std::vector<std::vector<std::string>> lines(names.size());
  std::vector<std::string> sections = ChunkedText(text).ReadSections(names);
  for (std::size_t i = 0; i < names.size(); ++i) {
    for (std::size_t start = 0, end; (end = sections[i].find('\n', start)) != std::string::npos; start = end + 1) {
      lines[i].push_back(sections[i].substr(start, end - start));
    }
  }
  return lines;
}

std::vector<ScanWidth> Widths() {
  std::vector<ScanWidth> widths;
  for (ScanWidth width : {ScanWidth::kPlain, ScanWidth::kVector16, ScanWidth::kVector32, ScanWidth::kVector64,
                          ScanWidth::kWidest}) {
    if (SectionFinder::Supports(width)) widths.push_back(width);
  }
  return widths;
}

// A text long enough for every way of looking to take whole pages of blocks, with the
// section of interest behind them.
std::string Padding() {
  std::string padding;
  for (int i = 0; padding.size() < 9000; ++i) padding += "// filler line " + std::to_string(i) + "\r\n";
  return padding;
}

TEST(SectionFinder, CrLfFileGivesTheLinesWithoutTheirLineEnds) {
  const std::string text = Padding() + "[A_G/1 Group]\r\nDialog=port\r\n\r\nx=1\r\r\n[B_G/1 Group]\r\ny=2\r\nlast";
  for (ScanWidth width : Widths()) {
    auto lines = FoundLines(text, {"A_G/1 Group", "B_G/1 Group"}, width);
    EXPECT_EQ(lines[0], (std::vector<std::string>{"Dialog=port", "", "x=1\r"}));
    // A last line without a line feed is no line.
    EXPECT_EQ(lines[1], (std::vector<std::string>{"y=2"}));
  }
}

TEST(SectionFinder, TheFirstMentionOfANameStartsItsSection) {
  const std::string text = Padding() + "[Port 11_G]\nx=eleven\n// see Port 1_G\ny=early\n[Port 1_G]\nz=real\n";
  for (ScanWidth width : Widths()) {
    auto lines = FoundLines(text, {"Port 1_G", "Port 11_G", "Absent_G"}, width);
    EXPECT_EQ(lines[0], (std::vector<std::string>{"y=early"}));
    EXPECT_EQ(lines[1], (std::vector<std::string>{"x=eleven", "// see Port 1_G", "y=early"}));
    EXPECT_TRUE(lines[2].empty());
  }
}

TEST(SectionFinder, LongLinesAreReadInChunks) {
  // A line of 2,500 characters is two chunks: the second one ends the section when it
  // begins with "[", and the text before it is then no line.
  const std::string longLine = "Radiobox_1=" + std::string(kChunkSize - 11, 'x') + "[rest";
  const std::string longPlain = "Radiobox_2=" + std::string(3000, 'y');
  const std::string text = Padding() + "[A_G]\r\nk=1\r\n" + longPlain + "\r\n" + longLine + "\r\nnever\r\n";
  for (ScanWidth width : Widths()) {
    auto lines = FoundLines(text, {"A_G"}, width);
    EXPECT_EQ(lines[0], (std::vector<std::string>{"k=1", longPlain}));
    EXPECT_EQ(lines, ChunkedLines(text, {"A_G"}));
  }
}

TEST(SectionFinder, ANameMustStandWithinOneChunk) {
  // The first mention straddles the end of the first chunk of its line and does not
  // count.
  const std::string straddling = Padding() + std::string(kChunkSize - 2, 'x') + "A_G\nnext=1\n[A_G]\nx=1\n";
  for (ScanWidth width : Widths()) {
    EXPECT_EQ(FoundLines(straddling, {"A_G"}, width)[0], (std::vector<std::string>{"x=1"}));
  }
}

TEST(SectionFinder, ASectionMayBeginInsideALongLine) {
  // The name stands in the first chunk of a long line: the section begins with the
  // line's second chunk.
  const std::string text = Padding() + "A_G" + std::string(2500, 'y') + "\r\nnext=1\r\n[B]\r\n";
  for (ScanWidth width : Widths()) {
    auto lines = FoundLines(text, {"A_G"}, width);
    EXPECT_EQ(lines[0], (std::vector<std::string>{std::string(3 + 2500 - kChunkSize, 'y'), "next=1"}));
    EXPECT_EQ(lines, ChunkedLines(text, {"A_G"}));
  }
}

TEST(SectionFinder, NamesThatShareLittleStillFindTheirSections) {
  // Names whose common ending is one byte, and a name that is that byte alone.
  const std::string text = Padding() + "[a_]\nx=1\n[bb_]\ny=2\n_\nz=3\n";
  for (ScanWidth width : Widths()) {
    std::vector<std::string> names = {"a_", "bb_", "_"};
    EXPECT_EQ(FoundLines(text, names, width), ChunkedLines(text, names));
  }
}

// The lines of each range, as texts, and whether each range's counts of lines and of
// stored lines are those of its lines.
std::vector<std::vector<std::string>> RangeLines(const std::string& text, const std::vector<std::string>& names,
                                                 ScanWidth width) {
  SectionFinder finder(text, names, width, SectionFinder::Yield::kRanges);
  EXPECT_TRUE(finder.Applies());
  std::vector<std::vector<std::string>> lines(names.size());
  for (std::size_t i = 0; i < names.size(); ++i) {
    const SectionRange range = finder.Range(i);
    std::size_t stored = 0;
    ForEachLineBetween(text, range.begin, range.end, [&](std::size_t, std::string_view line) {
      lines[i].emplace_back(line);
      stored += IsStoredLine(line) ? 1 : 0;
    });
    EXPECT_EQ(range.lines, lines[i].size()) << names[i];
    EXPECT_EQ(finder.StoredLines(range), stored) << names[i];
  }
  return lines;
}

std::vector<ScanWidth> RangeWidths() {
  std::vector<ScanWidth> widths = {ScanWidth::kPlain};
  if (SectionFinder::Supports(ScanWidth::kVector64)) widths.push_back(ScanWidth::kVector64);
  return widths;
}

TEST(SectionFinderRanges, HoldTheLinesTheLinesFinderReports) {
  // Comments, blank lines, CR LF and CR alone, a name first met in a comment, a section
  // that ends at the file's end without a line feed, one that a "[" line ends at once,
  // and lines placed across the 64-byte blocks by the padding.
  const std::string body =
      "// A_G/1 Group is mentioned here first\r\nx=0\r\n[A_G/1 Group]\r\nDialog=port\r\n\r\n/x\n"
      "a/b\n//c\n\r\n\rz\n/\nx=1\r\r\n[B_G/1 Group]\n[C_G/1 Group]\ny=2\nw=/\n\n"
      "[D_G/1 Group]\nq=1\nlast";
  const std::vector<std::string> names = {"A_G/1 Group", "B_G/1 Group", "C_G/1 Group", "D_G/1 Group",
                                          "E_G/1 Group"};
  for (std::size_t pad : {0u, 1u, 63u, 64u, 65u, 900u}) {
    const std::string text = std::string(pad, 'p') + "\n" + Padding() + body;
    const auto expected = FoundLines(text, names, ScanWidth::kWidest);
    for (ScanWidth width : RangeWidths()) {
      EXPECT_EQ(RangeLines(text, names, width), expected) << "padding " << pad;
    }
  }
}

TEST(SectionFinderRanges, CountOnlyTheLinesTheCommentRuleKeeps) {
  const std::string text = Padding() + "[A_G]\n//one\nx=1\n\n/two\nt/hree\nx=2\r\n\r\nx=3\n[B_G]\n";
  for (ScanWidth width : RangeWidths()) {
    SectionFinder finder(text, {"A_G"}, width, SectionFinder::Yield::kRanges);
    ASSERT_TRUE(finder.Applies());
    EXPECT_EQ(finder.Range(0).lines, 8u);
    EXPECT_EQ(finder.StoredLines(finder.Range(0)), 3u);
  }
}

TEST(SectionFinderRanges, CountStoredLinesOfLongSectionsAcrossBlocks) {
  // Sections of many blocks whose lines begin at every place of a block, with comments,
  // blank lines, CR LF and a slash as the second character, and a last line that no
  // line feed ends.
  std::string body;
  const char* const kinds[] = {"x=1\n", "//c\n", "\n", "a/b\n", "\r\n", "k\r\n", "/\n", "q\rr\n", "\rz\n", "ab\n"};
  for (int n = 0; n < 700; ++n) body += kinds[(n * 7 + n / 3) % 10] + std::string(static_cast<std::size_t>(n % 5), 'w');
  for (std::size_t pad : {0u, 1u, 2u, 63u}) {
    const std::string text = Padding() + std::string(pad, 'p') + "\n[A_G]\n" + body + "[B_G]\n" + body + "end";
    for (ScanWidth width : RangeWidths()) {
      RangeLines(text, {"A_G", "B_G"}, width);
    }
  }
}

TEST(SectionFinderRanges, TellWhetherMoreLinesAreStoredThanALimit) {
  // 20 lines, 12 of them stored, over several blocks; each limit is told as the exact
  // count tells it, whichever way the count would stop early.
  std::string body;
  for (int i = 0; i < 20; ++i) body += i % 5 < 3 ? "key" + std::to_string(i) + "=" + std::string(30, 'v') + "\n" : "// c\n";
  const std::string text = Padding() + "[A_G]\n" + body + "[B_G]\n";
  for (ScanWidth width : RangeWidths()) {
    SectionFinder finder(text, {"A_G"}, width, SectionFinder::Yield::kRanges);
    ASSERT_TRUE(finder.Applies());
    const SectionRange range = finder.Range(0);
    ASSERT_EQ(range.lines, 20u);
    ASSERT_EQ(finder.StoredLines(range), 12u);
    for (std::size_t limit = 0; limit <= 21; ++limit) {
      EXPECT_EQ(finder.MoreStoredLinesThan(range, limit), limit < 12) << limit;
    }
  }
}

TEST(SectionFinderRanges, DeclineLongLinesNulsAndNarrowVectors) {
  const std::string longLine = "[A_G]\n" + std::string(1950, 'x') + "\ny=1\n";
  for (ScanWidth width : RangeWidths()) {
    EXPECT_FALSE(SectionFinder(Padding() + longLine, {"A_G"}, width, SectionFinder::Yield::kRanges).Applies());
    EXPECT_FALSE(SectionFinder(Padding() + std::string("[A_G]\nx\0\n", 9), {"A_G"}, width,
                               SectionFinder::Yield::kRanges)
                     .Applies());
    // The lines finder serves what the ranges decline.
    EXPECT_TRUE(SectionFinder(Padding() + longLine, {"A_G"}, width).Applies());
  }
  EXPECT_FALSE(SectionFinder("[A_G]\nx\n", {"A_G"}, ScanWidth::kVector32, SectionFinder::Yield::kRanges).Applies());
}

TEST(SectionFinderRanges, VectorsAndBytesDeclineTheSameLongLines) {
  if (!SectionFinder::Supports(ScanWidth::kVector64)) GTEST_SKIP() << "no 64-byte vectors here";
  int declinedBetween = 0;
  int between = 0;
  for (std::size_t length = 900; length <= 2100; length += 29) {
    for (std::size_t shift : {0u, 17u, 40u, 500u}) {
      const std::string text =
          Padding() + std::string(shift, 's') + "\n[A_G]\n" + std::string(length, 'x') + "\ny=1\n" + Padding();
      const SectionFinder bytes(text, {"A_G"}, ScanWidth::kPlain, SectionFinder::Yield::kRanges);
      const SectionFinder vectors(text, {"A_G"}, ScanWidth::kVector64, SectionFinder::Yield::kRanges);
      ASSERT_EQ(bytes.Applies(), vectors.Applies()) << length << " " << shift;
      // Lines shorter than a window of 960 bytes always serve; lines of 1919 characters
      // and more, among them every line longer than a chunk, never do.
      if (length < 960) {
        EXPECT_TRUE(bytes.Applies()) << length << " " << shift;
      }
      if (length >= 1919) {
        EXPECT_FALSE(bytes.Applies()) << length << " " << shift;
      }
      if (length >= 960 && length < 1919) {
        ++between;
        declinedBetween += bytes.Applies() ? 0 : 1;
      }
    }
  }
  // Between the two, where the line happens to stand decides.
  EXPECT_GT(declinedBetween, 0);
  EXPECT_LT(declinedBetween, between);
}

TEST(SectionFinder, DeclinesWhatOnlyTheChunkedSearchReadsRight) {
  EXPECT_FALSE(SectionFinder(std::string("[A_G]\nx=1\0y\n", 13), {"A_G"}).Applies());
  EXPECT_FALSE(SectionFinder("[A_G]\nx=1\n", {"A_G\r"}).Applies());
  EXPECT_FALSE(SectionFinder("[A_G]\nx=1\n", {std::string("\0A_G", 4)}).Applies());
  EXPECT_FALSE(SectionFinder("[A_G]\nx=1\n", {"A_G", "B_H"}).Applies());
  EXPECT_TRUE(SectionFinder("[A_G]\nx=1\n", {std::string("A_G\0B", 5)}).Applies());
}

}  // namespace
}  // namespace tessara
