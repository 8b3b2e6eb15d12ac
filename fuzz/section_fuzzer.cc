// Cuts a section out of an arbitrary data file and stores its lines, as a group load
// does for each configuration.
#include <fuzzer/FuzzedDataProvider.h>

#include <memory>
#include <vector>

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
    for (const auto& lines : entry->SectionLines) FUZZ_CHECK(lines.empty());
    return 0;
  }
  const auto& stored = entry->SectionLines[static_cast<std::size_t>(k)];
  FUZZ_CHECK(stored.size() == std::min<std::size_t>(candidates, kMaxSectionLines));
  FUZZ_CHECK(host.messages.size() == candidates - stored.size());
  for (const std::string& line : stored) {
    FUZZ_CHECK(!line.empty() && line.find('\n') == std::string::npos);
    FUZZ_CHECK(line[0] != '/' && (line.size() < 2 || line[1] != '/'));
  }
  return 0;
}
