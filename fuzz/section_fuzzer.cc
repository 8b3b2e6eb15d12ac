// Cuts a section out of an arbitrary data file and stores its lines, as a group load
// does for each configuration.
#include <fuzzer/FuzzedDataProvider.h>

#include <memory>
#include <vector>

#include "core/section_finder.h"
#include "core/text.h"
#include "database/device_database.h"
#include "fuzz_support.h"
#include "recording_host.h"
#include "reference_section.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessara;
  FuzzedDataProvider input(data, size);
  // A group and a few configurations, whose sections are looked for one by one and all
  // at once, as a group load does.
  std::string group = input.ConsumeRandomLengthString(24);
  std::vector<std::string> sections(input.ConsumeIntegralInRange<std::size_t>(1, 4));
  for (std::string& section : sections) section = input.ConsumeRandomLengthString(16) + "_" + group;
  int slot = input.ConsumeIntegralInRange<int>(1, kMaxDataFiles + 2);
  int k = input.ConsumeIntegralInRange<int>(0, kMaxConfigurations + 2);
  std::string fileText = input.ConsumeRemainingBytesAsString();

  std::string path = ScratchFolder().Write("IO Files/fuzz.ini", fileText);
  RecordingHost host;
  std::string text = "kept";
  FUZZ_CHECK(ReadSectionText(host, sections[0], text, path) == 0);
  FUZZ_CHECK(host.messages.empty());
  std::string expected = "kept";
  ReferenceSectionText(path, sections[0], expected);
  FUZZ_CHECK(text == expected);
  FUZZ_CHECK(TextChecksum(fileText) == ReferenceChecksum(fileText));

  const ChunkedText chunked(fileText);
  std::vector<std::string> texts = chunked.ReadSections(sections);
  FUZZ_CHECK(texts.size() == sections.size());
  for (std::size_t i = 0; i < sections.size(); ++i) {
    std::string reference;
    ReferenceSectionText(path, sections[i], reference);
    FUZZ_CHECK(texts[i] == reference);
    std::string one = "kept";
    chunked.ReadSection(sections[i], one);
    FUZZ_CHECK(one == "kept" + reference);
  }
  // The one-pass search over the bytes as read, where it applies, reports exactly the
  // lines of those texts that a line feed ends.
  std::vector<std::vector<std::string>> found(sections.size());
  const SectionFinder finder(fileText, sections);
  const bool applies = finder.Applies();
  for (std::size_t i = 0; i < sections.size(); ++i) {
    finder.ForEachLine(i, [&](std::size_t offset, std::size_t length) {
      FUZZ_CHECK(offset <= fileText.size() && length <= fileText.size() - offset);
      found[i].push_back(fileText.substr(offset, length));
    });
  }
  // Every way of looking at the bytes finds the same.
  for (ScanWidth width : {ScanWidth::kPlain, ScanWidth::kVector16, ScanWidth::kVector32, ScanWidth::kVector64}) {
    if (!SectionFinder::Supports(width)) continue;
    const SectionFinder narrower(fileText, sections, width);
    FUZZ_CHECK(narrower.Applies() == applies);
    for (std::size_t i = 0; i < sections.size(); ++i) {
      std::vector<std::string> lines;
      narrower.ForEachLine(i, [&](std::size_t offset, std::size_t length) { lines.push_back(fileText.substr(offset, length)); });
      FUZZ_CHECK(lines == found[i]);
    }
  }
  if (applies) {
    for (std::size_t i = 0; i < sections.size(); ++i) {
      std::vector<std::string> lines;
      for (std::size_t start = 0, end; (end = texts[i].find('\n', start)) != std::string::npos; start = end + 1) {
        lines.push_back(texts[i].substr(start, end - start));
      }
      FUZZ_CHECK(found[i] == lines);
    }
  } else {
    FUZZ_CHECK(found == std::vector<std::vector<std::string>>(sections.size()));
    // It declines only for a NUL in the text, a name empty up to its NUL or holding a
    // line end, or names without a common ending.
    const std::string_view firstName(sections[0].c_str());
    bool oddName = firstName.empty();
    for (const std::string& section : sections) {
      std::string_view name(section.c_str());
      oddName = oddName || name.empty() || name.find_first_of("\r\n") != std::string_view::npos ||
                name.back() != firstName.back();
    }
    FUZZ_CHECK(oddName || fileText.find('\0') != std::string::npos);
  }

  // Ranges, where they serve, hold exactly the lines found, and as many stored lines as
  // the comment rule keeps of them; by vectors and byte by byte alike.
  for (ScanWidth width : {ScanWidth::kPlain, ScanWidth::kVector64}) {
    if (!SectionFinder::Supports(width)) continue;
    const SectionFinder ranges(fileText, sections, width, SectionFinder::Yield::kRanges);
    const SectionFinder plain(fileText, sections, ScanWidth::kPlain, SectionFinder::Yield::kRanges);
    FUZZ_CHECK(ranges.Applies() == plain.Applies());
    FUZZ_CHECK(!ranges.Applies() || applies);
    if (!ranges.Applies()) continue;
    for (std::size_t i = 0; i < sections.size(); ++i) {
      const SectionRange range = ranges.Range(i);
      const SectionRange again = plain.Range(i);
      FUZZ_CHECK(range.begin == again.begin && range.end == again.end && range.lines == again.lines);
      FUZZ_CHECK(range.begin <= range.end && range.end <= fileText.size());
      std::vector<std::string> lines;
      std::size_t stored = 0;
      ForEachLineBetween(fileText, range.begin, range.end, [&](std::size_t, std::string_view line) {
        lines.emplace_back(line);
        stored += IsStoredLine(line) ? 1 : 0;
      });
      FUZZ_CHECK(lines == found[i]);
      FUZZ_CHECK(lines.size() == range.lines);
      FUZZ_CHECK(stored == ranges.StoredLines(range) && stored == plain.StoredLines(again));
      // The early stops of the limit's question answer as the count does.
      for (std::size_t limit : {std::size_t{0}, stored / 2, stored, stored + 1, range.lines}) {
        FUZZ_CHECK(ranges.MoreStoredLinesThan(range, limit) == (stored > limit));
        FUZZ_CHECK(plain.MoreStoredLinesThan(again, limit) == (stored > limit));
      }
    }
  }

  std::string fromChunks;
  ReadSectionFromChunks(ReadTextChunks(fileText), sections[0], fromChunks);
  FUZZ_CHECK("kept" + fromChunks == text);

  auto entry = std::make_unique<DatabaseEntry>();
  StoreSectionLines(host, *entry, slot, k, fromChunks);
  std::size_t candidates = 0;
  for (std::size_t start = 0, end; (end = fromChunks.find('\n', start)) != std::string::npos; start = end + 1) {
    std::string_view line = std::string_view(fromChunks).substr(start, end - start);
    if (!line.empty() && line[0] != '/' && (line.size() < 2 || line[1] != '/')) ++candidates;
  }
  if (slot > kMaxDataFiles || k > kMaxConfigurations) {
    FUZZ_CHECK(host.messages.size() == candidates);
    for (std::size_t row = 0; row < SectionStore::kRows; ++row) FUZZ_CHECK(entry->SectionLines.Count(row) == 0);
    return 0;
  }
  const SectionStore::Row stored = entry->SectionLines[static_cast<std::size_t>(k)];
  FUZZ_CHECK(stored.size() == std::min<std::size_t>(candidates, kMaxSectionLines));
  FUZZ_CHECK(host.messages.size() == candidates - stored.size());
  for (std::string_view line : stored) {
    FUZZ_CHECK(!line.empty() && line.find('\n') == std::string::npos);
    FUZZ_CHECK(line[0] != '/' && (line.size() < 2 || line[1] != '/'));
  }
  return 0;
}
