#ifndef TESSARA_CORE_INI_H_
#define TESSARA_CORE_INI_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessara {

// Ini files by the profile-string rules the data files and the program's ini are
// written for: section and key names compare without regard to case, blanks around a
// key and its value are dropped, the first match wins, and the value is cut to the
// caller's buffer (its size counts the terminator, so size - 1 characters).
inline constexpr std::size_t kProfileBufferSize = 2500;
inline constexpr std::size_t kProgramIniBufferSize = 512;

// Returns the value, or `fallback` when the file, the section or the key is absent.
// `found` (optional) tells whether the key was there.
std::string ReadProfileString(const std::string& section, const std::string& key,
                              const std::string& fallback, const std::string& path,
                              std::size_t bufferSize = kProfileBufferSize, bool* found = nullptr);

// The same over a file already in memory.
std::string ReadProfileStringFromText(const std::string& fileText, const std::string& section,
                                      const std::string& key, const std::string& fallback,
                                      std::size_t bufferSize = kProfileBufferSize,
                                      bool* found = nullptr);

// An ini text read once and looked up many times, with the same results as
// ReadProfileStringFromText. Lines are only looked at up to the end of the sections asked
// for, so a data file's leading sections are found without walking its panel sections.
class IniText {
 public:
  explicit IniText(std::string text) : owned_(std::move(text)), text_(owned_) {}
  // Reads a text that someone else keeps, for as long as this lives.
  static IniText Viewing(std::string_view text) { return IniText(text, 0); }
  IniText(const IniText&) = delete;
  IniText& operator=(const IniText&) = delete;

  std::string Read(const std::string& section, const std::string& key, const std::string& fallback,
                   std::size_t bufferSize = kProfileBufferSize, bool* found = nullptr);
  // The values of keys prefix1, prefix2, ... prefix<last> of a section (a prefix with
  // no blank at its start), as Read with no
  // fallback gives each: values[j] for key prefix<j> (values[0] stays empty). One walk
  // through the section's keys, for lists that are read key by key up to the first
  // absent one.
  void ReadNumbered(const std::string& section, std::string_view prefix, int last,
                    std::vector<std::string_view>& values);
  std::string_view text() const { return text_; }
  // Whether the text holds all of the first section of that name: a header line follows
  // it. Read from a file's start only, such a section reads as in the whole file.
  bool HoldsWholeSection(const std::string& section);

 private:
  struct Entry {
    std::string_view key;    // trimmed
    std::string_view value;  // trimmed
    std::uint64_t keyHash = 0;  // of the key without regard to case, once looked up
  };
  struct Section {
    std::string_view name;   // trimmed
    // The lines behind the header, up to the next header or the text's end.
    std::size_t bodyBegin = 0;
    std::size_t bodyEnd = 0;
    bool read = false;    // entries holds the key lines of the body
    std::vector<Entry> entries;
    bool closed = false;  // by a following header
    bool hashed = false;  // the entries' keyHash and keyIndex are set
    // An open-addressing table of the first entry of each key, by keyHash: slot values
    // are entry indices plus one, 0 for an empty slot. Its size is a power of two.
    std::vector<std::uint32_t> keyIndex;
  };
  static void HashKeys(Section& section);
  Section* Find(std::string_view name);
  // The first section of that name, scanning on from where the last search stopped.
  // Places the section of the next header at or behind position_.
  void ScanNextSection();
  std::size_t FindHeaderLine(std::size_t from) const;
  // Calls visit(key, valueBegin, valueEnd) for each key line of a section: its key
  // trimmed, its value untrimmed as text_[valueBegin, valueEnd).
  template <typename Visit>
  void ForEachKeyLine(const Section& section, Visit&& visit) const;
  std::string_view TrimmedValue(std::size_t begin, std::size_t end) const;
  void ReadEntries(Section& section) const;

  IniText(std::string_view text, int) : text_(text) {}

  std::string owned_;
  std::string_view text_;
  std::size_t position_ = 0;  // start of the first line not yet scanned
  std::vector<Section> sections_;
};

// Creates the file, the section or the key as needed; every other line stays as it
// was. Returns false when the file cannot be written.
bool WriteProfileString(const std::string& section, const std::string& key,
                        const std::string& value, const std::string& path);

// The program's ini: Tessara.ini in the program folder, unless a path is given.
std::string ProgramIniPath();
std::size_t ReadProgramIni(const std::string& section, const std::string& key, std::string& out,
                           const std::string& iniPath = "");
bool WriteProgramIni(const std::string& section, const std::string& key, const std::string& value,
                     const std::string& iniPath = "");

}  // namespace tessara

#endif  // TESSARA_CORE_INI_H_
