#ifndef TESSARA_BENCH_FULL_CHIP_H_
#define TESSARA_BENCH_FULL_CHIP_H_

#include <string>

namespace tessara {

// A program folder with one chip that has every panel the group can have: the bundled
// sample group with the most panels, whose configurations of each kind that has a panel
// class are repeated (as copies of the group's own sections) up to the number of panel
// objects of that kind. The templates, the clock and the other configurations stay as
// the sample has them, so the chip loads, generates and saves like a real one.
struct FullChipHome {
  std::string folder;    // holds Tessara.ini and "IO Files"
  std::string dataFile;  // the one data file, full path
  std::string group;     // its group name
  int listRows = 0;      // rows of its peripheral list
  int panels = 0;        // of those, the rows that have a panel
};

// Writes the folder from the sample data in `sampleFolder` (Tessara.ini and "IO Files").
// Generate runs in folder mode, with its plain save dialog.
FullChipHome WriteFullChipHome(const std::string& folder, const std::string& sampleFolder);

}  // namespace tessara

#endif  // TESSARA_BENCH_FULL_CHIP_H_
