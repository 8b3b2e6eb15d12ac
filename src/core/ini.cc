#include "core/ini.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string_view>
#include <vector>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

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

// A blank that Trim drops.
inline bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

}  // namespace

// The start of the first header line at or behind `from`, a line start, or npos. Only
// a line that holds a "[" can be a header, so the lines between are passed over by a
// search for that character alone.
std::size_t IniText::FindHeaderLine(std::size_t from) const {
  const char* const data = text_.data();
  while (from < text_.size()) {
    const void* found = std::memchr(data + from, '[', text_.size() - from);
    if (found == nullptr) return std::string_view::npos;
    const std::size_t bracket = static_cast<std::size_t>(static_cast<const char*>(found) - data);
    // A header: nothing but blanks ahead of the "[" on its line.
    std::size_t start = bracket;
    while (start > 0 && data[start - 1] != '\n' && IsBlank(data[start - 1])) --start;
    if (start == 0 || data[start - 1] == '\n') return start;
    from = bracket + 1;
  }
  return std::string_view::npos;
}

void IniText::ScanNextSection() {
  // Lines ahead of the first header belong to no section.
  const std::size_t header = FindHeaderLine(position_);
  if (header == std::string_view::npos) {
    position_ = text_.size();
    return;
  }
  const std::size_t feed = text_.find('\n', header);
  const std::size_t headerEnd = feed == std::string_view::npos ? text_.size() : feed;
  std::string_view name;
  SectionHeader(text_.substr(header, headerEnd - header), name);
  if (sections_.empty()) sections_.reserve(8);
  Section& section = sections_.emplace_back();
  section.name = name;
  section.bodyBegin = std::min(headerEnd + 1, text_.size());
  const std::size_t next = FindHeaderLine(section.bodyBegin);
  section.closed = next != std::string_view::npos;
  section.bodyEnd = section.closed ? next : text_.size();
  position_ = section.bodyEnd;
}

template <typename Visit>
void IniText::ForEachKeyLine(const Section& section, Visit&& visit) const {
  const char* const data = text_.data();
  const std::size_t end = section.bodyEnd;
  for (std::size_t position = section.bodyBegin; position < end;) {
    // The line's end and its first "=", found together.
    std::size_t feed = end;
    std::size_t equals = end;
    std::size_t at = position;
#if defined(__SSE2__)
    const __m128i feedByte = _mm_set1_epi8('\n');
    const __m128i equalsByte = _mm_set1_epi8('=');
    for (; at + 16 <= end; at += 16) {
      const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(data + at));
      const unsigned feeds = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, feedByte)));
      const unsigned equalSigns = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, equalsByte)));
      if (equals == end && equalSigns != 0) equals = at + static_cast<std::size_t>(__builtin_ctz(equalSigns));
      if (feeds != 0) {
        feed = at + static_cast<std::size_t>(__builtin_ctz(feeds));
        break;
      }
    }
#endif
    if (feed == end) {
      for (; at < end && data[at] != '\n'; ++at) {
        if (equals == end && data[at] == '=') equals = at;
      }
      feed = at;
    }
    if (equals < feed) {
      std::size_t keyStart = position;
      std::size_t keyEnd = equals;
      while (keyStart < keyEnd && IsBlank(data[keyStart])) ++keyStart;
      while (keyEnd > keyStart && IsBlank(data[keyEnd - 1])) --keyEnd;
      visit(text_.substr(keyStart, keyEnd - keyStart), equals + 1, feed);
    }
    position = feed + 1;
  }
}

std::string_view IniText::TrimmedValue(std::size_t begin, std::size_t end) const {
  const char* const data = text_.data();
  while (begin < end && IsBlank(data[begin])) ++begin;
  while (end > begin && IsBlank(data[end - 1])) --end;
  return text_.substr(begin, end - begin);
}

// The key lines of a section are read when one of its keys is first asked for: a
// search for a later section passes over them.
void IniText::ReadEntries(Section& section) const {
  if (section.read) return;
  section.read = true;
  section.entries.reserve(16);
  ForEachKeyLine(section, [&](std::string_view key, std::size_t valueBegin, std::size_t valueEnd) {
    section.entries.push_back({key, TrimmedValue(valueBegin, valueEnd)});
  });
}

IniText::Section* IniText::Find(std::string_view name) {
  for (Section& section : sections_) {
    if (EqualsNoCase(section.name, name)) return &section;
  }
  while (position_ < text_.size()) {
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
  if (!match->hashed) {
    ReadEntries(*match);
    HashKeys(*match);
  }
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
  // The key a Read of prefix<j> wants: the prefix, then j as written by to_string. Only
  // the first entry of a key counts: a value found, even an empty one, points into the
  // text.
  auto number = [&](std::string_view key) -> std::size_t {
    if (key.size() <= prefix.size() || !EqualsNoCase(key.substr(0, prefix.size()), prefix)) return 0;
    const std::string_view digits = key.substr(prefix.size());
    if (digits.size() > 9 || digits[0] < '1' || digits[0] > '9') return 0;
    std::size_t j = 0;
    for (char c : digits) {
      if (c < '0' || c > '9') return 0;
      j = j * 10 + static_cast<std::size_t>(c - '0');
    }
    return j < values.size() && values[j].data() == nullptr ? j : 0;
  };
  if (match->read) {
    for (const Entry& entry : match->entries) {
      if (const std::size_t j = number(entry.key); j != 0) values[j] = entry.value.substr(0, kProfileBufferSize - 1);
    }
    return;
  }
  // A list is read once: its lines are looked at as they stand, without keeping them.
  ForEachKeyLine(*match, [&](std::string_view key, std::size_t valueBegin, std::size_t valueEnd) {
    if (const std::size_t j = number(key); j != 0) {
      values[j] = TrimmedValue(valueBegin, valueEnd).substr(0, kProfileBufferSize - 1);
    }
  });
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
