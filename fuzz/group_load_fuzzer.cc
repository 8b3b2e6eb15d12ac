// Catalogues an arbitrary data file in a program folder of its own and loads its
// group's tables, then holds the result to a plain key-by-key, section-by-section read.
#include <memory>

#include "core/ini.h"
#include "core/text.h"
#include "database/device_database.h"
#include "fuzz_support.h"
#include "recording_host.h"
#include "reference_section.h"

namespace {

using namespace tessara;

// Keys prefix1, prefix2, ... looked up one by one in the whole text, up to the first
// absent one.
template <std::size_t N>
void ReferenceKeys(const std::string& fileText, const std::string& section, const std::string& prefix,
                   int last, std::array<std::string, N>& slots) {
  for (int j = 1; j <= last; ++j) {
    std::string value = ReadProfileStringFromText(fileText, section, prefix + std::to_string(j), "");
    if (value.empty()) break;
    slots[static_cast<std::size_t>(j)] = value;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string fileText(reinterpret_cast<const char*>(data), size);
  TempFolder& home = ScratchFolder();
  SetModuleFolder(home.path());
  const std::string path = home.Write("IO Files/group.ini", fileText);
  const std::vector<std::string> names = {"", "group.ini"};

  RecordingHost host;
  auto database = std::make_unique<DeviceDatabase>();
  FUZZ_CHECK(LoadCatalogue(host, *database, names) == 2);
  LoadGroupTables(host, *database, 1, "group.ini");
  const DatabaseEntry& entry = database->Entry(1);

  RecordingHost referenceHost;
  auto expected = std::make_unique<DatabaseEntry>();
  expected->Series = ReadProfileStringFromText(fileText, "Database", "Series", "");
  expected->Group = ReadProfileStringFromText(fileText, "Database", "Group", "");
  ReferenceKeys(fileText, "Database", "Part_No_", kMaxParts, expected->Part);
  ReferenceKeys(fileText, "Database", "Color_", kMaxColors, expected->Color);
  ReferenceKeys(fileText, "Configuration_" + expected->Group, "Configuration_", kMaxConfigurations,
                expected->Configuration);
  ReferenceKeys(fileText, "ResourceID_" + expected->Group, "ResourceID_", kMaxConfigurations,
                expected->ResourceID);
  for (int k = 1; k <= kMaxConfigurations && !expected->Configuration[static_cast<std::size_t>(k)].empty(); ++k) {
    std::string text;
    ReferenceSectionText(path, expected->Configuration[static_cast<std::size_t>(k)] + "_" + expected->Group, text);
    StoreSectionLines(referenceHost, *expected, 1, k, text);
  }

  FUZZ_CHECK(entry.Series == expected->Series);
  FUZZ_CHECK(entry.Group == expected->Group);
  FUZZ_CHECK(entry.Part == expected->Part);
  FUZZ_CHECK(entry.Color == expected->Color);
  FUZZ_CHECK(entry.Configuration == expected->Configuration);
  FUZZ_CHECK(entry.ResourceID == expected->ResourceID);
  FUZZ_CHECK(entry.SectionLines == expected->SectionLines);
  FUZZ_CHECK(host.messages == referenceHost.messages);

  // A loaded group is never read again.
  std::vector<std::string> messagesBefore = host.messages;
  LoadGroupTables(host, *database, 1, "group.ini");
  FUZZ_CHECK(host.messages == messagesBefore);
  return 0;
}
