// Writes one key into an arbitrary ini file and reads it back.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>

#include "core/ini.h"
#include "fuzz_support.h"

namespace {

std::string Trimmed(const std::string& text) {
  const char* blanks = " \t\r\n";
  std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessara;
  FuzzedDataProvider input(data, size);
  std::string section = input.ConsumeRandomLengthString(32);
  std::string key = input.ConsumeRandomLengthString(32);
  std::string value = input.ConsumeRandomLengthString(64);
  std::string before = input.ConsumeRemainingBytesAsString();

  std::string path = ScratchFolder().Write("fuzz.ini", before);
  FUZZ_CHECK(WriteProfileString(section, key, value, path));
  std::string after = ScratchFolder().Read("fuzz.ini");

  // Names and values that a header or a key line can hold: a line feed in them would
  // write lines of its own.
  auto writable = [](const std::string& name, const char* forbidden) {
    return name.find_first_of(forbidden) == std::string::npos && name.find('\0') == std::string::npos;
  };
  if (!writable(section, "[]\n\r") || !writable(key, "[=\n\r") || !writable(value, "\n\r")) return 0;

  // Nothing is lost: every old line is still there, one of them perhaps replaced, and at
  // most a closed last line, a header and the key line are new.
  auto lines = [](const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
  };
  FUZZ_CHECK(lines(after) >= lines(before));
  FUZZ_CHECK(lines(after) <= lines(before) + 3);

  bool found = false;
  std::string back = ReadProfileString(section, key, "", path, kProfileBufferSize, &found);
  FUZZ_CHECK(found);
  FUZZ_CHECK(back == Trimmed(value));
  return 0;
}
