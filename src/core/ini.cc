#include "core/ini.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string_view>
#include <vector>

#include "core/text.h"

namespace tessara {

namespace {

std::string_view Trim(std::string_view text) {
  auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
  while (!text.empty() && blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && blank(text.back())) text.remove_suffix(1);
  return text;
}

// The name of a "[name]" line, or no value for any other line.
bool SectionHeader(std::string_view line, std::string_view& name) {
  line = Trim(line);
  if (line.empty() || line.front() != '[') return false;
  line.remove_prefix(1);
  std::size_t close = line.find(']');
  name = Trim(close == std::string_view::npos ? line : line.substr(0, close));
  return true;
}

// The key of a "key=value" line; false for lines without "=".
bool KeyOf(std::string_view line, std::string_view& key, std::string_view& value) {
  std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return false;
  key = Trim(line.substr(0, equals));
  value = Trim(line.substr(equals + 1));
  return true;
}

std::vector<std::string_view> SplitLines(std::string_view text) {
  std::vector<std::string_view> lines;
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    if (end == std::string_view::npos) {
      lines.push_back(text.substr(start));
      break;
    }
    lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}

}  // namespace

std::string ReadProfileStringFromText(const std::string& fileText, const std::string& section,
                                      const std::string& key, const std::string& fallback,
                                      std::size_t bufferSize, bool* found) {
  if (found != nullptr) *found = false;
  bool inSection = false;
  bool sectionSeen = false;
  for (std::string_view line : SplitLines(fileText)) {
    std::string_view name;
    if (SectionHeader(line, name)) {
      // Only the first section of a name is ever looked at.
      if (inSection) break;
      inSection = !sectionSeen && EqualsNoCase(name, Trim(section));
      sectionSeen = sectionSeen || inSection;
      continue;
    }
    if (!inSection) continue;
    std::string_view lineKey, value;
    if (KeyOf(line, lineKey, value) && EqualsNoCase(lineKey, Trim(key))) {
      if (found != nullptr) *found = true;
      std::size_t limit = bufferSize == 0 ? 0 : bufferSize - 1;
      return std::string(value.substr(0, limit));
    }
  }
  return fallback;
}

namespace {

// A hash of the lower-case bytes, so that names equal without regard to case hash
// alike. Eight bytes at a time: the capitals of a word are found and lowered together.
std::uint64_t NoCaseHash(std::string_view text) {
  constexpr std::uint64_t kOnes = 0x0101010101010101ull;
  constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15ull;
  std::uint64_t hash = text.size() * kMultiplier;
  for (std::size_t at = 0; at < text.size(); at += 8) {
    std::uint64_t word = 0;
    if (text.size() - at >= 8) {
      std::memcpy(&word, text.data() + at, 8);
    } else {
      for (std::size_t i = at; i < text.size(); ++i) {
        word |= static_cast<std::uint64_t>(static_cast<unsigned char>(text[i])) << (8 * (i - at));
      }
    }
    // A byte from 'A' to 'Z' gets 0x20 added: its high bit marks the range test below.
    const std::uint64_t ascii = word & (0x7F * kOnes);
    const std::uint64_t fromA = ascii + (0x80 - 'A') * kOnes;
    const std::uint64_t pastZ = ascii + (0x80 - 'Z' - 1) * kOnes;
    const std::uint64_t capitals = fromA & ~pastZ & ~word & (0x80 * kOnes);
    word |= capitals >> 2;
    hash = (hash ^ word) * kMultiplier;
    hash ^= hash >> 32;
  }
  // Numbered keys differ in their last bytes, which the multiplications carry only into
  // the high bits: a final mix spreads them over the low bits that pick a table slot.
  hash ^= hash >> 33;
  hash *= 0xFF51AFD7ED558CCDull;
  hash ^= hash >> 33;
  return hash;
}

// The line at `position` of `text`, moving `position` behind its line feed.
bool NextLine(std::string_view text, std::size_t& position, std::string_view& line) {
  if (position >= text.size()) return false;
  std::size_t end = text.find('\n', position);
  if (end == std::string_view::npos) end = text.size();
  line = text.substr(position, end - position);
  position = end + 1;
  return true;
}

}  // namespace

namespace {

inline bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// What one line of a section is, as SectionHeader and KeyOf tell it, in one look at
// the line: a header (its first character past the blanks is "["), a key line, or
// neither.
enum class LineKind { kHeader, kKey, kOther };
inline LineKind ClassifyLine(std::string_view line, std::string_view& key, std::string_view& value) {
  const char* const begin = line.data();
  const char* const end = begin + line.size();
  const char* at = begin;
  while (at != end && IsBlank(*at)) ++at;
  if (at != end && *at == '[') return LineKind::kHeader;
  const char* const keyStart = at;
  while (at != end && *at != '=') ++at;
  if (at == end) return LineKind::kOther;
  const char* keyEnd = at;
  while (keyEnd != keyStart && IsBlank(keyEnd[-1])) --keyEnd;
  const char* valueStart = at + 1;
  const char* valueEnd = end;
  while (valueStart != valueEnd && IsBlank(*valueStart)) ++valueStart;
  while (valueEnd != valueStart && IsBlank(valueEnd[-1])) --valueEnd;
  key = std::string_view(keyStart, static_cast<std::size_t>(keyEnd - keyStart));
  value = std::string_view(valueStart, static_cast<std::size_t>(valueEnd - valueStart));
  return LineKind::kKey;
}

}  // namespace

void IniText::ScanNextSection() {
  std::string_view line, name;
  if (headerPending_) {
    NextLine(text_, position_, line);
    headerPending_ = false;
  } else {
    // Lines ahead of the first header belong to no section.
    do {
      if (!NextLine(text_, position_, line)) return;
    } while (!SectionHeader(line, name));
  }
  SectionHeader(line, name);
  if (sections_.empty()) sections_.reserve(8);
  sections_.emplace_back();
  Section& section = sections_.back();
  section.name = name;
  section.entries.reserve(16);
  for (std::size_t lineStart = position_; NextLine(text_, position_, line); lineStart = position_) {
    std::string_view key, value;
    const LineKind kind = ClassifyLine(line, key, value);
    if (kind == LineKind::kHeader) {
      position_ = lineStart;
      headerPending_ = true;
      section.closed = true;
      break;
    }
    if (kind == LineKind::kKey) section.entries.push_back({key, value});
  }
}

IniText::Section* IniText::Find(std::string_view name) {
  for (Section& section : sections_) {
    if (EqualsNoCase(section.name, name)) return &section;
  }
  while (headerPending_ || position_ < text_.size()) {
    std::size_t before = sections_.size();
    ScanNextSection();
    if (sections_.size() == before) break;
    if (EqualsNoCase(sections_.back().name, name)) return &sections_.back();
  }
  return nullptr;
}

bool IniText::HoldsWholeSection(const std::string& section) {
  const Section* match = Find(Trim(section));
  return match != nullptr && match->closed;
}

std::string IniText::Read(const std::string& section, const std::string& key,
                          const std::string& fallback, std::size_t bufferSize, bool* found) {
  if (found != nullptr) *found = false;
  Section* match = Find(Trim(section));
  if (match == nullptr) return fallback;
  if (!match->hashed) HashKeys(*match);
  std::string_view wanted = Trim(key);
  const std::uint64_t wantedHash = NoCaseHash(wanted);
  const std::size_t mask = match->keyIndex.size() - 1;
  for (std::size_t slot = wantedHash & mask; match->keyIndex[slot] != 0; slot = (slot + 1) & mask) {
    const Entry& entry = match->entries[match->keyIndex[slot] - 1];
    if (entry.keyHash == wantedHash && EqualsNoCase(entry.key, wanted)) {
      if (found != nullptr) *found = true;
      std::size_t limit = bufferSize == 0 ? 0 : bufferSize - 1;
      return std::string(entry.value.substr(0, limit));
    }
  }
  return fallback;
}

void IniText::ReadNumbered(const std::string& section, std::string_view prefix, int last,
                           std::vector<std::string_view>& values) {
  values.assign(last < 0 ? 1 : static_cast<std::size_t>(last) + 1, std::string_view());
  Section* match = Find(Trim(section));
  if (match == nullptr || last < 1) return;
  std::vector<bool> taken(values.size());
  for (const Entry& entry : match->entries) {
    // The key a Read of prefix<j> wants: the prefix, then j as written by to_string.
    const std::string_view key = entry.key;
    if (key.size() <= prefix.size() || !EqualsNoCase(key.substr(0, prefix.size()), prefix)) continue;
    const std::string_view digits = key.substr(prefix.size());
    if (digits.size() > 9 || digits[0] < '1' || digits[0] > '9') continue;
    std::size_t j = 0;
    bool number = true;
    for (char c : digits) {
      number = number && c >= '0' && c <= '9';
      j = j * 10 + static_cast<std::size_t>(c - '0');
    }
    // Only the first entry of a key counts.
    if (!number || j >= values.size() || taken[j]) continue;
    taken[j] = true;
    values[j] = entry.value.substr(0, kProfileBufferSize - 1);
  }
}

// Keys are found by their hash: a data file's numbered keys are read one after the
// other, and a walk through the keys ahead of each would make a section's reads grow
// with the square of its keys. Only the first entry of a key goes into the table.
void IniText::HashKeys(Section& section) {
  std::size_t size = 1;
  while (size < 2 * section.entries.size() + 1) size *= 2;
  section.keyIndex.assign(size, 0);
  const std::size_t mask = size - 1;
  for (std::size_t i = 0; i < section.entries.size(); ++i) {
    Entry& entry = section.entries[i];
    entry.keyHash = NoCaseHash(entry.key);
    std::size_t slot = entry.keyHash & mask;
    bool seen = false;
    for (; section.keyIndex[slot] != 0 && !seen; slot = (slot + 1) & mask) {
      const Entry& other = section.entries[section.keyIndex[slot] - 1];
      seen = other.keyHash == entry.keyHash && EqualsNoCase(other.key, entry.key);
    }
    if (!seen) section.keyIndex[slot] = static_cast<std::uint32_t>(i + 1);
  }
  section.hashed = true;
}

std::string ReadProfileString(const std::string& section, const std::string& key,
                              const std::string& fallback, const std::string& path,
                              std::size_t bufferSize, bool* found) {
  std::string content;
  if (!ReadWholeFile(path, content)) {
    if (found != nullptr) *found = false;
    return fallback;
  }
  return ReadProfileStringFromText(content, section, key, fallback, bufferSize, found);
}

bool WriteProfileString(const std::string& section, const std::string& key,
                        const std::string& value, const std::string& path) {
  std::string content;
  bool exists = ReadWholeFile(path, content);
  // New lines follow the file's own line ends; a new file gets CR LF.
  bool crlf = !exists || content.find('\n') == std::string::npos ||
              (content.find('\n') > 0 && content[content.find('\n') - 1] == '\r');
  const std::string newLine = key + "=" + value;

  std::vector<std::string> lines;
  for (std::string_view line : SplitLines(content)) lines.emplace_back(line);
  std::string lineEnd = crlf ? "\r" : "";
  // An unterminated last line is closed first, so that new lines can follow it.
  if (!content.empty() && content.back() != '\n') lines.back() += lineEnd;

  int sectionStart = -1;
  int lastContentLine = -1;
  int keyLine = -1;
  for (int i = 0; i < static_cast<int>(lines.size()); ++i) {
    std::string_view name;
    if (SectionHeader(lines[static_cast<std::size_t>(i)], name)) {
      if (sectionStart >= 0) break;
      if (EqualsNoCase(name, Trim(section))) {
        sectionStart = i;
        lastContentLine = i;
      }
      continue;
    }
    if (sectionStart < 0) continue;
    std::string_view lineKey, lineValue;
    if (KeyOf(lines[static_cast<std::size_t>(i)], lineKey, lineValue) &&
        EqualsNoCase(lineKey, Trim(key))) {
      keyLine = i;
      break;
    }
    if (!Trim(lines[static_cast<std::size_t>(i)]).empty()) lastContentLine = i;
  }

  if (keyLine >= 0) {
    lines[static_cast<std::size_t>(keyLine)] = newLine + lineEnd;
  } else if (sectionStart >= 0) {
    lines.insert(lines.begin() + lastContentLine + 1, newLine + lineEnd);
  } else {
    lines.push_back("[" + section + "]" + lineEnd);
    lines.push_back(newLine + lineEnd);
  }

  std::string text;
  for (const std::string& line : lines) text += line + "\n";

  // Written beside the target and renamed over it, so that a failed write never
  // leaves half an ini behind.
  std::string temporary = path + ".tmp~";
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    if (!out) return false;
    out << text;
    out.flush();
    if (!out) {
      std::remove(temporary.c_str());
      return false;
    }
  }
  if (std::rename(temporary.c_str(), path.c_str()) != 0) {
    std::remove(temporary.c_str());
    return false;
  }
  return true;
}

std::string ProgramIniPath() { return JoinPath(ModuleFolder(), "Tessara.ini"); }

std::size_t ReadProgramIni(const std::string& section, const std::string& key, std::string& out,
                           const std::string& iniPath) {
  out = ReadProfileString(section, key, "", iniPath.empty() ? ProgramIniPath() : iniPath,
                          kProgramIniBufferSize);
  return out.size();
}

bool WriteProgramIni(const std::string& section, const std::string& key, const std::string& value,
                     const std::string& iniPath) {
  return WriteProfileString(section, key, value, iniPath.empty() ? ProgramIniPath() : iniPath);
}

}  // namespace tessara
