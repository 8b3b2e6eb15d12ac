#ifndef TESSARA_FUZZ_FUZZ_SUPPORT_H_
#define TESSARA_FUZZ_FUZZ_SUPPORT_H_

#include <cstdio>
#include <cstdlib>
#include <string>

#include "temp_folder.h"

namespace tessara {

// A property of the code under fuzz that must hold for every input: a breach is a
// finding like a crash, so it aborts and libFuzzer keeps the input.
#define FUZZ_CHECK(condition)                                                   \
  do {                                                                          \
    if (!(condition)) {                                                         \
      std::fprintf(stderr, "%s:%d: property broken: %s\n", __FILE__, __LINE__, \
                   #condition);                                                 \
      std::abort();                                                             \
    }                                                                           \
  } while (0)

// One scratch folder for the whole fuzzing process: files are rewritten for each input
// rather than created anew, which keeps the runs fast.
inline TempFolder& ScratchFolder() {
  static TempFolder folder;
  return folder;
}

}  // namespace tessara

#endif  // TESSARA_FUZZ_FUZZ_SUPPORT_H_
