#ifndef TESSARA_DATABASE_DEVICE_DATABASE_H_
#define TESSARA_DATABASE_DEVICE_DATABASE_H_

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "database/section_store.h"

namespace tessara {

class Host;

// Limits of the catalogue. Slot 0 of every table stays empty; 1 to 64 are usable.
inline constexpr int kMaxDataFiles = 64;
inline constexpr int kMaxParts = 64;
inline constexpr int kMaxConfigurations = 64;
inline constexpr int kMaxColors = 9;
inline constexpr int kMaxSectionLines = 150;
inline constexpr const char* kTooMuchDataMessage =
    "Too much data entry in DB that GUI can handle!!!,\n\n";

// What the program knows of one group of chips: one data file.
struct DatabaseEntry {
  std::string Series;
  std::string Group;
  std::array<std::string, kMaxParts + 1> Part;
  std::array<std::string, kMaxConfigurations + 1> Configuration;
  // SectionLines[k] are the stored lines of configuration k; place p is index p - 1.
  SectionStore SectionLines;
  std::array<std::string, kMaxColors + 1> Color;
  std::array<std::string, kMaxConfigurations + 1> ResourceID;

  bool TablesLoaded() const { return !Configuration[1].empty(); }
  // Place p (from 1) of configuration k's section, or nothing behind its last line.
  std::optional<std::string_view> SectionLine(int k, int place) const;
};
static_assert(SectionStore::kRows == kMaxConfigurations + 1, "one row of lines per configuration slot");

class DeviceDatabase {
 public:
  DatabaseEntry& Entry(int slot) { return entries_[slot]; }
  const DatabaseEntry& Entry(int slot) const { return entries_[slot]; }

 private:
  std::array<DatabaseEntry, kMaxDataFiles + 1> entries_;
};

// The data file of `name` as start-up looks for it: the folder "IO Files" of the
// program folder first, then the program folder itself. Empty when neither opens.
struct LocatedFile {
  std::string path;          // full path, empty when not found
  std::string relativeForm;  // "/IO Files/name" or "/name", as messages show it
};
LocatedFile LocateDataFile(const std::string& name);
// The first place LocateDataFile looks, without looking: the file in "IO Files".
LocatedFile DataFileInIoFolder(const std::string& name);
std::string DataFileMissingText(const std::string& name);  // the "Missing IO Files" message

// Fills Series, Group, Part and Color of every listed file. `fileNames` is indexed by
// slot (slot 0 unused) and ends at its first empty name. Returns the first slot not filled.
int LoadCatalogue(Host& host, DeviceDatabase& database, const std::vector<std::string>& fileNames);

// Fills Configuration, ResourceID and SectionLines of one entry, once.
void LoadGroupTables(Host& host, DeviceDatabase& database, int slot, const std::string& fileName);

// The comment rule and line limit that turn a section's text into stored lines.
void StoreSectionLines(Host& host, DatabaseEntry& entry, int slot, int k, const std::string& text);

}  // namespace tessara

#endif  // TESSARA_DATABASE_DEVICE_DATABASE_H_
