#include "core/application.h"

#include "core/host.h"
#include "core/ini.h"
#include "core/text.h"

namespace tessara {

namespace {

// File names live in 90-byte fields: a longer ini value arrives cut to 89 characters.
constexpr std::size_t kDataFileNameBuffer = 90;

std::uint32_t ChecksumFromIni(const std::string& value) {
  if (StartsWith(value, "H'") || StartsWith(value, "h'")) return CStrtoul32(value.substr(2), 16);
  return CStrtoul32(value, 0);
}

}  // namespace

Application::Application(Host& host) : host_(host) {}

int Application::DataFileCount() const {
  int count = 0;
  while (count < kMaxDataFiles && !DataFileName[static_cast<std::size_t>(count + 1)].empty()) ++count;
  return count;
}

int Application::VerifyDataFiles(VerifyMode mode) {
  const std::string iniPath = ProgramIniPath();
  // The ini is read once. Writing mode changes it between its reads, so there every key
  // is read from the file as it stands at that moment.
  std::string iniText;
  const bool iniReadable = ReadWholeFile(iniPath, iniText);
  IniText ini(std::move(iniText));
  const bool writing =
      mode == VerifyMode::kWrite ||
      (mode == VerifyMode::kFromIni &&
       EqualsNoCase(iniReadable ? ini.Read("Database_File", "Debug", "") : "", "create_checksum"));
  auto read = [&](const std::string& key, std::size_t bufferSize) {
    if (writing) return ReadProfileString("Database_File", key, "", iniPath, bufferSize);
    return iniReadable ? ini.Read("Database_File", key, "", bufferSize) : std::string();
  };
  TextBuffer content;  // one buffer for every file's text
  int slot = 1;
  for (; slot <= kMaxDataFiles; ++slot) {
    const std::string key = "File" + std::to_string(slot);
    std::string name = read(key, kDataFileNameBuffer);
    if (name.empty()) break;
    DataFileName[static_cast<std::size_t>(slot)] = name;
    std::uint32_t expected = ChecksumFromIni(read(key + "_Checksum", kProfileBufferSize));

    // A file that reads in "IO Files" is the one the look would find there, and its sum
    // is that of its text; any other case looks and sums as a fresh start would.
    LocatedFile located = DataFileInIoFolder(name);
    std::uint16_t sum = 0;
    if (ReadWholeFile(located.path, content)) {
      sum = TextChecksum(content.View());
    } else {
      located = LocateDataFile(name);
      if (located.path.empty()) {
        host_.MessageBox(DataFileMissingText(name));
        host_.Exit(1);
      }
      sum = FileChecksum(host_, located.path);
    }
    DataFileChecksum[static_cast<std::size_t>(slot)] = sum;

    if (writing) {
      WriteProfileString("Database_File", key + "_Checksum", FormatC("H'%04X", sum), iniPath);
    } else if (mode == VerifyMode::kFromIni && expected != sum) {
      host_.MessageBox(FormatC("IO Files: \"%s\" is being altered!\n\nApplication will now exit!",
                               located.relativeForm.c_str()));
      host_.Exit(1);
    }
  }
  return slot;
}

Application::StartResult Application::StartUp() {
  if (VerifyDataFiles() == 1) {
    host_.MessageBox(kNoDatabaseMessage);
    return StartResult::kNoDatabase;
  }
  LoadCatalogue(host_, Database, DataFileName);
  LoadGroupTables(1);
  return StartResult::kRunning;
}

void Application::LoadGroupTables(int slot) {
  if (slot < 1 || slot > kMaxDataFiles) return;
  tessara::LoadGroupTables(host_, Database, slot, DataFileName[static_cast<std::size_t>(slot)]);
}

void Application::SetFamilyFlags(int slot) {
  if (slot < 1 || slot > kMaxDataFiles) return;
  Flags.SetFromGroupName(Database.Entry(slot).Group);
}

}  // namespace tessara
