#ifndef TESSARA_FUZZ_REFERENCE_SECTION_H_
#define TESSARA_FUZZ_REFERENCE_SECTION_H_

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "core/text.h"

namespace tessara {

// The section rule as a plain C reading loop would apply it to a file: read it anew,
// chunk by chunk into a NUL-terminated buffer, look for the name with strstr, then copy
// chunks up to one that begins with "[". The fuzz targets hold the library's faster
// in-memory search to the results of this loop.
inline void ReferenceSectionText(const std::string& path, const std::string& section, std::string& out) {
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) return;
  char buffer[2000];
  // One text-mode chunk: up to 1999 characters, ending behind a line feed; a CR right
  // before a LF is not part of the text.
  auto nextChunk = [&]() {
    std::size_t length = 0;
    int c;
    while (length < 1999 && (c = std::fgetc(file)) != EOF) {
      if (c == '\r') {
        int after = std::fgetc(file);
        if (after == '\n') {
          c = '\n';
        } else if (after != EOF) {
          std::ungetc(after, file);
        }
      }
      buffer[length++] = static_cast<char>(c);
      if (c == '\n') break;
    }
    buffer[length] = '\0';
    return length > 0;
  };
  // A name with a NUL in it is, to strstr, only the text before the NUL.
  const char* name = section.c_str();
  bool found = false;
  while (!found && nextChunk()) found = std::strstr(buffer, name) != nullptr;
  while (found && nextChunk() && buffer[0] != '[') out.append(buffer);
  std::fclose(file);
}

// The sum of a text file, chunk by chunk as ReadTextChunks cuts it, each chunk up to its
// first NUL.
inline std::uint16_t ReferenceChecksum(const std::string& content) {
  std::uint32_t total = 0;
  for (const std::string& chunk : ReadTextChunks(content)) {
    for (char c : chunk) {
      if (c == '\0') break;
      total += static_cast<std::uint32_t>(static_cast<std::int32_t>(static_cast<signed char>(c)));
    }
  }
  return static_cast<std::uint16_t>(total & 0xFFFFu);
}

}  // namespace tessara

#endif  // TESSARA_FUZZ_REFERENCE_SECTION_H_
