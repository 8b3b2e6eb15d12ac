#ifndef TESSARA_BENCH_SYNTHETIC_DATA_H_
#define TESSARA_BENCH_SYNTHETIC_DATA_H_

#include <string>
#include <vector>

namespace tessara {

// The size of a synthetic program folder. The defaults are a full catalogue of large
// groups: as many data files as the ini can list, each with as many configurations as a
// group can hold and sections of up to the line limit.
struct SyntheticShape {
  int files = 64;
  int configurations = 64;
  int minLines = 20;
  int maxLines = 150;
  std::size_t fileBytes = 200 * 1024;  // each file is padded with a template up to this
  unsigned seed = 1;
};

struct SyntheticHome {
  std::string folder;                 // holds Tessara.ini and "IO Files"
  std::vector<std::string> dataFiles; // full paths, in the order the ini lists them
  std::string iniPath;
  std::size_t totalBytes = 0;         // of the data files
};

// Writes Tessara.ini (with the files' correct sums) and the data files into `folder`,
// in the grammar real data files use: a Database section, the configuration and
// resource lists of the group, one panel section per configuration with comments and
// blank lines between its lines, and text templates. CR LF line ends throughout. The
// same shape and seed always give the same bytes.
SyntheticHome WriteSyntheticHome(const std::string& folder, const SyntheticShape& shape = {});

// The text of data file `index` (from 1) alone.
std::string SyntheticDataFile(int index, const SyntheticShape& shape = {});

}  // namespace tessara

#endif  // TESSARA_BENCH_SYNTHETIC_DATA_H_
