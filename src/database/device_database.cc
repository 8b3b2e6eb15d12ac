#include "database/device_database.h"

#include <algorithm>
#include <memory>

#include "core/host.h"
#include "core/ini.h"
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
  for (int j = 1; j <= last; ++j) {
    std::string value = file.Read(section, prefix + std::to_string(j), "");
    if (value.empty()) break;
    slots[static_cast<std::size_t>(j)] = value;
  }
}

}  // namespace

const std::string* DatabaseEntry::SectionLine(int k, int place) const {
  if (k < 0 || k > kMaxConfigurations || place < 1) return nullptr;
  const std::vector<std::string>& lines = SectionLines[static_cast<std::size_t>(k)];
  if (static_cast<std::size_t>(place) > lines.size()) return nullptr;
  return &lines[static_cast<std::size_t>(place - 1)];
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
  int slot = 1;
  for (; slot <= kMaxDataFiles; ++slot) {
    if (static_cast<std::size_t>(slot) >= fileNames.size() || fileNames[static_cast<std::size_t>(slot)].empty()) break;
    const std::string& name = fileNames[static_cast<std::size_t>(slot)];
    // The Database section leads a data file: the catalogue reads the file's start, and
    // all of it only when the section does not end there. A file that reads in "IO Files"
    // is the one a look would find there; any other case takes the look first.
    LocatedFile located = DataFileInIoFolder(name);
    std::string fileText;
    bool whole = false;
    if (!ReadFileStart(located.path, kCatalogueReadAhead, fileText, whole)) {
      located = LocateDataFile(name);
      if (located.path.empty() || !ReadFileStart(located.path, kCatalogueReadAhead, fileText, whole)) {
        host.MessageBox(DataFileMissingText(name));
        host.Exit(1);
      }
    }
    auto start = std::make_unique<IniText>(std::move(fileText));
    if (!whole && !start->HoldsWholeSection("Database")) {
      if (!ReadWholeFile(located.path, fileText)) {
        host.MessageBox(DataFileMissingText(name));
        host.Exit(1);
      }
      start = std::make_unique<IniText>(std::move(fileText));
    }
    IniText& file = *start;
    DatabaseEntry& entry = database.Entry(slot);
    entry.Series = file.Read("Database", "Series", "");
    entry.Group = file.Read("Database", "Group", "");
    ReadNumberedKeys(file, "Database", "Part_No_", kMaxParts, entry.Part);
    ReadNumberedKeys(file, "Database", "Color_", kMaxColors, entry.Color);
  }
  return slot;
}

void StoreSectionLines(Host& host, DatabaseEntry& entry, int slot, int k, const std::string& text) {
  if (slot <= kMaxDataFiles && k >= 0 && k <= kMaxConfigurations) {
    // Room for every line at once, so that the lines are not moved as the row grows.
    std::size_t lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    entry.SectionLines[static_cast<std::size_t>(k)].reserve(std::min<std::size_t>(lines, kMaxSectionLines));
  }
  int place = 1;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    // A last line that no line feed ends is not part of the section.
    if (end == std::string::npos) break;
    std::string_view line = std::string_view(text).substr(start, end - start);
    start = end + 1;
    bool comment = (line.size() > 0 && line[0] == '/') || (line.size() > 1 && line[1] == '/');
    if (line.empty() || comment) continue;
    if (slot > kMaxDataFiles) {
      host.MessageBox(std::string(kTooMuchDataMessage) + "4002");
      continue;
    }
    if (k > kMaxConfigurations) {
      host.MessageBox(std::string(kTooMuchDataMessage) + "4003");
      continue;
    }
    if (place > kMaxSectionLines) {
      host.MessageBox(std::string(kTooMuchDataMessage) + "4004");
      continue;
    }
    entry.SectionLines[static_cast<std::size_t>(k)].emplace_back(line);
    ++place;
  }
}

void LoadGroupTables(Host& host, DeviceDatabase& database, int slot, const std::string& fileName) {
  if (slot < 1 || slot > kMaxDataFiles) return;
  DatabaseEntry& entry = database.Entry(slot);
  if (entry.TablesLoaded()) return;
  // This stage reads the group's file from "IO Files" alone.
  const std::string path = JoinPath(JoinPath(ModuleFolder(), kIoFolder), fileName);
  std::string fileText;
  bool readable = ReadWholeFile(path, fileText);
  IniText file(std::move(fileText));
  ReadNumberedKeys(file, "Configuration_" + entry.Group, "Configuration_", kMaxConfigurations,
                   entry.Configuration);
  ReadNumberedKeys(file, "ResourceID_" + entry.Group, "ResourceID_", kMaxConfigurations,
                   entry.ResourceID);

  std::vector<std::string> sections;
  for (int k = 1; k <= kMaxConfigurations && !entry.Configuration[static_cast<std::size_t>(k)].empty(); ++k) {
    sections.push_back(entry.Configuration[static_cast<std::size_t>(k)] + "_" + entry.Group);
  }
  if (!readable) {
    // Each section is read by the file's path, which shows the file's message.
    for (std::size_t i = 0; i < sections.size(); ++i) {
      std::string text;
      if (ReadSectionText(host, sections[i], text, path) != 0) continue;
      StoreSectionLines(host, entry, slot, static_cast<int>(i) + 1, text);
    }
    return;
  }
  // The file is read once and cut into chunks once; every section is then found by the
  // same substring rule a fresh read of the file would apply.
  std::vector<std::string> texts = ChunkedText(file.text()).ReadSections(sections);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    StoreSectionLines(host, entry, slot, static_cast<int>(i) + 1, texts[i]);
  }
}

}  // namespace tessara
