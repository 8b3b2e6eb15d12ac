#include "database/device_database.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "core/host.h"
#include "core/ini.h"
#include "core/section_finder.h"
#include "core/text.h"

namespace tessara {

namespace {

const char* const kIoFolder = "IO Files";
// How much of a data file's start the catalogue reads first.
constexpr std::size_t kCatalogueReadAhead = 16 * 1024;

// Reads keys prefix1, prefix2, ... of a section until the first absent (or empty) one.
template <std::size_t N>
void ReadNumberedKeys(IniText& file, const std::string& section, const char* prefix, int last,
                      std::array<std::string, N>& slots) {
  std::vector<std::string_view> values;
  file.ReadNumbered(section, prefix, last, values);
  for (std::size_t j = 1; j < values.size() && j < N; ++j) {
    if (values[j].empty()) break;
    slots[j] = values[j];
  }
}

// The comment rule and the line limit, applied to one section's lines one by one; the
// lines kept go to row k of the entry's store.
class SectionLineKeeper {
 public:
  SectionLineKeeper(Host& host, DatabaseEntry& entry, int slot, int k)
      : host_(&host), row_(entry.SectionLines, Storable(slot, k) ? static_cast<std::size_t>(k) : SectionStore::kRows),
        slot_(slot), k_(k) {}

  // Whether lines can be kept at all: elsewhere every line is refused with a message.
  static bool Storable(int slot, int k) { return slot <= kMaxDataFiles && k >= 0 && k <= kMaxConfigurations; }

  // `line` stands at `offset` of the store's text.
  void Offer(std::string_view line, std::size_t offset) {
    if (!IsStoredLine(line)) return;
    if (slot_ > kMaxDataFiles || k_ > kMaxConfigurations || place_ > kMaxSectionLines) {
      Refuse();
      return;
    }
    if (k_ < 0) return;
    row_.Add(offset, line.size());
    ++place_;
  }

 private:
  // A line beyond a limit: its message, the first limit it meets naming the place.
  void Refuse() const {
    const char* code = slot_ > kMaxDataFiles ? "4002" : k_ > kMaxConfigurations ? "4003" : "4004";
    host_->MessageBox(std::string(kTooMuchDataMessage) + code);
  }

  Host* host_;
  SectionStore::RowWriter row_;
  int slot_;
  int k_;
  int place_ = 1;
};

}  // namespace

std::optional<std::string_view> DatabaseEntry::SectionLine(int k, int place) const {
  if (k < 0 || k > kMaxConfigurations || place < 1) return std::nullopt;
  const SectionStore::Row lines = SectionLines[static_cast<std::size_t>(k)];
  if (static_cast<std::size_t>(place) > lines.size()) return std::nullopt;
  return lines[static_cast<std::size_t>(place - 1)];
}

LocatedFile DataFileInIoFolder(const std::string& name) {
  LocatedFile located;
  located.path = JoinPath(JoinPath(ModuleFolder(), kIoFolder), name);
  located.relativeForm = std::string(1, kPathSeparator) + kIoFolder + kPathSeparator + name;
  return located;
}

LocatedFile LocateDataFile(const std::string& name) {
  LocatedFile located;
  LocatedFile inIoFolder = DataFileInIoFolder(name);
  std::string beside = JoinPath(ModuleFolder(), name);
  if (FileExists(inIoFolder.path)) {
    located = inIoFolder;
  } else if (FileExists(beside)) {
    located.path = beside;
    located.relativeForm = std::string(1, kPathSeparator) + name;
  } else {
    located.relativeForm = std::string(1, kPathSeparator) + name;
  }
  return located;
}

std::string DataFileMissingText(const std::string& name) {
  std::string relative = std::string(1, kPathSeparator) + name;
  return FormatC("Missing IO Files: \"%s\".\n\nApplication will now exit!", relative.c_str());
}

int LoadCatalogue(Host& host, DeviceDatabase& database, const std::vector<std::string>& fileNames) {
  TextBuffer fileText;  // one buffer for every file's start
  int slot = 1;
  for (; slot <= kMaxDataFiles; ++slot) {
    if (static_cast<std::size_t>(slot) >= fileNames.size() || fileNames[static_cast<std::size_t>(slot)].empty()) break;
    const std::string& name = fileNames[static_cast<std::size_t>(slot)];
    // The Database section leads a data file: the catalogue reads the file's start, and
    // all of it only when the section does not end there. A file that reads in "IO Files"
    // is the one a look would find there; any other case takes the look first.
    LocatedFile located = DataFileInIoFolder(name);
    bool whole = false;
    if (!ReadFileStart(located.path, kCatalogueReadAhead, fileText, whole)) {
      located = LocateDataFile(name);
      if (located.path.empty() || !ReadFileStart(located.path, kCatalogueReadAhead, fileText, whole)) {
        host.MessageBox(DataFileMissingText(name));
        host.Exit(1);
      }
    }
    DatabaseEntry& entry = database.Entry(slot);
    auto fill = [&entry](IniText& file) {
      entry.Series = file.Read("Database", "Series", "");
      entry.Group = file.Read("Database", "Group", "");
      ReadNumberedKeys(file, "Database", "Part_No_", kMaxParts, entry.Part);
      ReadNumberedKeys(file, "Database", "Color_", kMaxColors, entry.Color);
    };
    IniText start = IniText::Viewing(fileText.View());
    if (whole || start.HoldsWholeSection("Database")) {
      fill(start);
      continue;
    }
    TextBuffer wholeText;
    if (!ReadWholeFile(located.path, wholeText)) {
      host.MessageBox(DataFileMissingText(name));
      host.Exit(1);
    }
    IniText file = IniText::Viewing(wholeText.View());
    fill(file);
  }
  return slot;
}

void StoreSectionLines(Host& host, DatabaseEntry& entry, int slot, int k, const std::string& text) {
  const std::size_t base =
      SectionLineKeeper::Storable(slot, k) ? entry.SectionLines.AppendText(text) : 0;
  SectionLineKeeper keeper(host, entry, slot, k);
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    // A last line that no line feed ends is not part of the section.
    if (end == std::string::npos) break;
    keeper.Offer(std::string_view(text).substr(start, end - start), base + start);
    start = end + 1;
  }
}

void LoadGroupTables(Host& host, DeviceDatabase& database, int slot, const std::string& fileName) {
  if (slot < 1 || slot > kMaxDataFiles) return;
  DatabaseEntry& entry = database.Entry(slot);
  if (entry.TablesLoaded()) return;
  // This stage reads the group's file from "IO Files" alone.
  const std::string path = JoinPath(JoinPath(ModuleFolder(), kIoFolder), fileName);
  TextBuffer fileText;
  const bool readable = ReadWholeFile(path, fileText);
  {
    IniText file = IniText::Viewing(fileText.View());
    ReadNumberedKeys(file, "Configuration_" + entry.Group, "Configuration_", kMaxConfigurations,
                     entry.Configuration);
    ReadNumberedKeys(file, "ResourceID_" + entry.Group, "ResourceID_", kMaxConfigurations, entry.ResourceID);
  }

  // The section names, "<configuration>_<group>", side by side in one text.
  std::size_t configurations = 0;
  std::size_t nameBytes = 0;
  while (configurations < static_cast<std::size_t>(kMaxConfigurations) &&
         !entry.Configuration[configurations + 1].empty()) {
    nameBytes += entry.Configuration[++configurations].size() + 1 + entry.Group.size();
  }
  std::string nameText(nameBytes, '_');
  std::vector<std::string_view> names(configurations);
  for (std::size_t k = 1, at = 0; k <= configurations; ++k) {
    const std::string& configuration = entry.Configuration[k];
    char* name = nameText.data() + at;
    std::memcpy(name, configuration.data(), configuration.size());
    std::memcpy(name + configuration.size() + 1, entry.Group.data(), entry.Group.size());
    names[k - 1] = std::string_view(name, configuration.size() + 1 + entry.Group.size());
    at += names[k - 1].size();
  }
  auto sectionNames = [&names] { return std::vector<std::string>(names.begin(), names.end()); };

  if (!readable) {
    // Each section is read by the file's path, which shows the file's message.
    const std::vector<std::string> sections = sectionNames();
    for (std::size_t i = 0; i < sections.size(); ++i) {
      std::string text;
      if (ReadSectionText(host, sections[i], text, path) != 0) continue;
      StoreSectionLines(host, entry, slot, static_cast<int>(i) + 1, text);
    }
    return;
  }
  if (names.empty()) return;
  // The file read once is the store of the group's lines: every section is found in it
  // by the substring rule a fresh read of the file would apply, and its lines are kept
  // as places in it.
  const std::size_t base = entry.SectionLines.AdoptText(std::move(fileText));
  const std::string_view text = entry.SectionLines.Text().substr(base);
  // Where the text allows, each section is only placed, and its lines are cut when a
  // panel first reads them; a section with more lines than a row takes is cut now, so
  // that its messages come with the load. Only a section with more lines than that has
  // its stored lines counted, and only until it is known whether they are too many.
  const SectionFinder ranges =
      SectionFinder::OverViews(text, names, ScanWidth::kWidest, SectionFinder::Yield::kRanges);
  if (ranges.Applies()) {
    for (std::size_t i = 0; i < names.size(); ++i) {
      const int k = static_cast<int>(i) + 1;
      const SectionRange range = ranges.Range(i);
      if (!ranges.MoreStoredLinesThan(range, static_cast<std::size_t>(kMaxSectionLines))) {
        entry.SectionLines.AddPendingRow(static_cast<std::size_t>(k), base + range.begin, base + range.end,
                                         range.lines);
        continue;
      }
      SectionLineKeeper keeper(host, entry, slot, k);
      ForEachLineBetween(text, range.begin, range.end,
                         [&](std::size_t offset, std::string_view line) { keeper.Offer(line, base + offset); });
    }
    return;
  }
  const SectionFinder finder = SectionFinder::OverViews(text, names);
  // No section holds more lines than the file.
  entry.SectionLines.ReserveLines(finder.LineCount());
  for (std::size_t i = 0; finder.Applies() && i < names.size(); ++i) {
    SectionLineKeeper keeper(host, entry, slot, static_cast<int>(i) + 1);
    finder.ForEachLine(i, [&](std::size_t offset, std::size_t length) {
      keeper.Offer(text.substr(offset, length), base + offset);
    });
  }
  if (!finder.Applies()) {
    // A text the one-pass search does not serve is cut into chunks; each section's text
    // is then kept behind the file's.
    std::vector<std::string> texts = ChunkedText(text).ReadSections(sectionNames());
    for (std::size_t i = 0; i < texts.size(); ++i) {
      StoreSectionLines(host, entry, slot, static_cast<int>(i) + 1, texts[i]);
    }
  }
}

}  // namespace tessara
