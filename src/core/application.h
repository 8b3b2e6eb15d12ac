#ifndef TESSARA_CORE_APPLICATION_H_
#define TESSARA_CORE_APPLICATION_H_

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "database/device_database.h"
#include "database/peripheral_identity.h"

namespace tessara {

class Host;

inline constexpr const char* kNoDatabaseMessage =
    "No Database file located!\n\nApplication will now exit.";

// The one application object: the data files, their catalogue and the selection. It
// lives for the whole run; pages and panels reach it by reference.
class Application {
 public:
  explicit Application(Host& host);

  enum class StartResult { kRunning, kNoDatabase };

  // Verification, catalogue and the first group's tables. A missing or altered data
  // file ends the process through the host with status 1.
  StartResult StartUp();

  // Steps of the verification; in computing mode the sums are taken and neither
  // compared nor written (the CLI's `checksums`). Returns the slot at which the list
  // ended (1 when no file is listed), 65 when all 64 were verified.
  enum class VerifyMode { kFromIni, kComputeOnly, kWrite };
  int VerifyDataFiles(VerifyMode mode = VerifyMode::kFromIni);

  // Reads the group's tables on its first use (the file from "IO Files" alone).
  void LoadGroupTables(int slot);
  // Sets the family flags from the group of the slot.
  void SetFamilyFlags(int slot);

  Host& host() { return host_; }
  DeviceDatabase& database() { return Database; }
  const DeviceDatabase& database() const { return Database; }

  // Data-file slots 1 to 64; slot 0 and the slots behind the list stay empty.
  std::vector<std::string> DataFileName = std::vector<std::string>(kMaxDataFiles + 1);
  std::array<std::uint16_t, kMaxDataFiles + 1> DataFileChecksum{};
  DeviceDatabase Database;
  std::string CommandLineFile;
  int SelectedFile = 1;
  int SelectedSeries = 1;
  int SelectedGroup = 1;
  int SelectedPart = 1;
  FamilyFlags Flags;

  // The number of listed data files (slots 1 to count), after VerifyDataFiles.
  int DataFileCount() const;

 private:
  Host& host_;
};

}  // namespace tessara

#endif  // TESSARA_CORE_APPLICATION_H_
