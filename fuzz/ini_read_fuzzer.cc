// Reads one key out of arbitrary ini text by the profile-string rules.
#include <fuzzer/FuzzedDataProvider.h>

#include "core/ini.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessara;
  FuzzedDataProvider input(data, size);
  std::string section = input.ConsumeRandomLengthString(64);
  std::string key = input.ConsumeRandomLengthString(64);
  std::size_t bufferSize = input.ConsumeIntegralInRange<std::size_t>(0, 3000);
  std::string text = input.ConsumeRemainingBytesAsString();

  bool found = false;
  std::string value = ReadProfileStringFromText(text, section, key, "<none>", bufferSize, &found);
  if (found) {
    // A value is the rest of one line, cut to the buffer and without its blanks.
    FUZZ_CHECK(value.size() + 1 <= std::max<std::size_t>(bufferSize, 1));
    FUZZ_CHECK(value.find('\n') == std::string::npos);
    FUZZ_CHECK(text.find(value) != std::string::npos);
  } else {
    FUZZ_CHECK(value == "<none>");
  }
  // The text read once and looked up by section gives the same answers, also for a
  // second key of the same section and a key of the section behind it.
  IniText ini(text);
  bool foundAgain = false;
  FUZZ_CHECK(ini.Read(section, key, "<none>", bufferSize, &foundAgain) == value);
  FUZZ_CHECK(foundAgain == found);
  std::string otherKey = key + "1";
  FUZZ_CHECK(ini.Read(section, otherKey, "") == ReadProfileStringFromText(text, section, otherKey, ""));
  FUZZ_CHECK(ini.Read(key, section, "") == ReadProfileStringFromText(text, key, section, ""));
  // A numbered list read in one walk gives what reading its keys one by one gives.
  std::string prefix = key;
  while (!prefix.empty() && (prefix[0] == ' ' || prefix[0] == '\t' || prefix[0] == '\r' || prefix[0] == '\n')) {
    prefix.erase(0, 1);
  }
  std::vector<std::string_view> values;
  ini.ReadNumbered(section, prefix, 12, values);
  FUZZ_CHECK(values.size() == 13);
  for (int j = 1; j <= 12; ++j) {
    FUZZ_CHECK(std::string(values[static_cast<std::size_t>(j)]) ==
               ReadProfileStringFromText(text, section, prefix + std::to_string(j), ""));
  }
  return 0;
}
