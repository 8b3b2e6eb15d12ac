// make_synthetic_home DIR [FILES]: writes a program folder of synthetic chip data, for
// running tessara-cli --home DIR on a catalogue of full size.
#include <cstdio>
#include <cstdlib>

#include "synthetic_data.h"

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: make_synthetic_home DIR [FILES]\n");
    return 2;
  }
  tessara::SyntheticShape shape;
  if (argc > 2) shape.files = std::atoi(argv[2]);
  if (shape.files < 1 || shape.files > 64) {
    std::fprintf(stderr, "FILES must be 1 to 64\n");
    return 2;
  }
  tessara::SyntheticHome home = tessara::WriteSyntheticHome(argv[1], shape);
  std::printf("%zu data files, %zu bytes in all, in %s\n", home.dataFiles.size(), home.totalBytes,
              home.folder.c_str());
  return 0;
}
