#include "core/text.h"

#include <clocale>
#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <locale.h>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

#include "core/host.h"

namespace tessara {

namespace {

// A locale object with the C rules, so that numbers are read and written alike in the
// GUI (which adopts the user's locale) and the CLI.
locale_t CLocale() {
  static locale_t c = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(0));
  return c;
}

std::string& ModuleFolderOverride() {
  static std::string folder;
  return folder;
}

const char* const kMissingFileFormat = "Missing Files to read: \"%s\"..\n\nApplication will now exit!";
const char* const kErrorOpeningFormat = "Error opening file: \"%s\"";

}  // namespace

char ToLowerAscii(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; }
char ToUpperAscii(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }

std::string ToUpperAscii(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = ToUpperAscii(c);
  return result;
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (ToLowerAscii(a[i]) != ToLowerAscii(b[i])) return false;
  }
  return true;
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() && EqualsNoCase(text.substr(0, prefix.size()), prefix);
}

bool StartsWith(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

std::size_t FindNoCase(std::string_view haystack, std::string_view needle) {
  if (needle.size() > haystack.size()) return std::string_view::npos;
  for (std::size_t i = 0; i + needle.size() <= haystack.size(); ++i) {
    if (EqualsNoCase(haystack.substr(i, needle.size()), needle)) return i;
  }
  return std::string_view::npos;
}

std::string FormatC(const char* format, ...) {
  locale_t previous = uselocale(CLocale());
  va_list args;
  va_start(args, format);
  va_list copy;
  va_copy(copy, args);
  int length = std::vsnprintf(nullptr, 0, format, copy);
  va_end(copy);
  std::string result;
  if (length > 0) {
    result.resize(static_cast<std::size_t>(length) + 1);
    std::vsnprintf(result.data(), result.size(), format, args);
    result.resize(static_cast<std::size_t>(length));
  }
  va_end(args);
  uselocale(previous);
  return result;
}

std::string ModuleFolder() {
  if (!ModuleFolderOverride().empty()) return ModuleFolderOverride();
  char buffer[4096];
  ssize_t length = readlink("/proc/self/exe", buffer, sizeof buffer - 1);
  if (length <= 0) return ".";
  std::string path(buffer, static_cast<std::size_t>(length));
  std::size_t slash = path.rfind(kPathSeparator);
  if (slash == std::string::npos) return ".";
  if (slash == 0) return std::string(1, kPathSeparator);
  return path.substr(0, slash);
}

void SetModuleFolder(const std::string& folder) {
  std::string cleaned = folder;
  while (cleaned.size() > 1 && cleaned.back() == kPathSeparator) cleaned.pop_back();
  ModuleFolderOverride() = cleaned;
}

std::string JoinPath(const std::string& folder, const std::string& name) {
  if (folder.empty()) return name;
  if (folder.back() == kPathSeparator) return folder + name;
  return folder + kPathSeparator + name;
}

std::vector<std::string> ReadTextChunks(const std::string& fileContent) {
  std::vector<std::string> chunks;
  std::string chunk;
  const std::size_t size = fileContent.size();
  for (std::size_t i = 0; i < size; ++i) {
    char c = fileContent[i];
    if (c == '\r' && i + 1 < size && fileContent[i + 1] == '\n') continue;
    chunk.push_back(c);
    if (c == '\n' || chunk.size() == kChunkSize) {
      chunks.push_back(std::move(chunk));
      chunk.clear();
    }
  }
  if (!chunk.empty()) chunks.push_back(std::move(chunk));
  return chunks;
}

namespace {

// A chunk seen as the C string the reading loop would see: it ends at a NUL byte.
std::string_view AsCString(const std::string& chunk) {
  std::size_t nul = chunk.find('\0');
  return nul == std::string::npos ? std::string_view(chunk) : std::string_view(chunk).substr(0, nul);
}

}  // namespace

void ReadSectionFromChunks(const std::vector<std::string>& chunks, const std::string& section,
                           std::string& out) {
  // The name is a C string too: a NUL that a data file put into a configuration name
  // ends it.
  std::string_view name = AsCString(section);
  std::size_t i = 0;
  while (i < chunks.size() && AsCString(chunks[i]).find(name) == std::string_view::npos) ++i;
  if (i == chunks.size()) return;
  for (++i; i < chunks.size(); ++i) {
    std::string_view chunk = AsCString(chunks[i]);
    if (!chunk.empty() && chunk.front() == '[') break;
    out.append(chunk);
  }
}

int ReadSectionText(Host& host, const std::string& section, std::string& out,
                    const std::string& path) {
  if (!FileExists(path)) {
    host.MessageBox(FormatC(kMissingFileFormat, path.c_str()));
    host.Exit(1);
  }
  std::string content;
  if (!ReadWholeFile(path, content)) {
    host.MessageBox(FormatC(kErrorOpeningFormat, path.c_str()));
    return 1;
  }
  ReadSectionFromChunks(ReadTextChunks(content), section, out);
  return 0;
}

std::uint16_t TextChecksum(const std::string& fileContent) {
  std::uint32_t total = 0;
  for (const std::string& chunk : ReadTextChunks(fileContent)) {
    for (char c : AsCString(chunk)) {
      total += static_cast<std::uint32_t>(static_cast<std::int32_t>(static_cast<signed char>(c)));
    }
  }
  return static_cast<std::uint16_t>(total & 0xFFFFu);
}

std::uint16_t FileChecksum(Host& host, const std::string& path) {
  if (!FileExists(path)) {
    host.MessageBox(FormatC(kMissingFileFormat, path.c_str()));
    host.Exit(1);
  }
  std::string content;
  if (!ReadWholeFile(path, content)) {
    host.MessageBox(FormatC(kErrorOpeningFormat, path.c_str()));
    return 1;
  }
  return TextChecksum(content);
}

std::uint32_t CStrtoul32(std::string_view text, int base) {
  std::string copy(text);
  const char* p = copy.c_str();
  while (*p == ' ' || (*p >= '\t' && *p <= '\r')) ++p;
  bool negative = false;
  if (*p == '+' || *p == '-') {
    negative = (*p == '-');
    ++p;
  }
  // The sign was taken off above, so strtoull sees a plain magnitude.
  if (*p == '+' || *p == '-') return 0;
  char* end = nullptr;
  errno = 0;
  unsigned long long magnitude = std::strtoull(p, &end, base);
  if (end == p) return 0;
  if (errno == ERANGE || magnitude > 0xFFFFFFFFull) return 0xFFFFFFFFu;
  std::uint32_t value = static_cast<std::uint32_t>(magnitude);
  return negative ? static_cast<std::uint32_t>(0u - value) : value;
}

std::uint32_t ParseNumber(std::string_view text, int base) {
  if (text.empty()) return 0;
  if (StartsWith(text, "H'") || StartsWith(text, "h'")) return CStrtoul32(text.substr(2, 11), 16);
  if (StartsWith(text, "D'") || StartsWith(text, "d'")) return CStrtoul32(text.substr(2, 11), 10);
  if (base == 10 || base == 2) return CStrtoul32(text, base);
  return CStrtoul32(text, 16);
}

double ParseReal(std::string_view text) {
  std::string copy(text);
  return strtod_l(copy.c_str(), nullptr, CLocale());
}

void BestDividerPair(int& n, int& m, float a, float b) {
  // The distance is kept in single precision, as the register search always was;
  // the target itself is computed in double.
  const double x = a * 0.001 / b;
  float bestDistance = 256.0f;
  int bestI = 256;
  int bestJ = 1;
  for (int i = 256; i >= 1; --i) {
    for (int j = 1; j <= 256; ++j) {
      double d = std::fabs(x - static_cast<double>(i * j));
      if (d < bestDistance) {
        bestDistance = static_cast<float>(d);
        bestI = i;
        bestJ = j;
      }
    }
  }
  n = bestI - 1;
  m = bestJ - 1;
}

void SortParameterLines(std::vector<std::string>& lines, std::vector<std::string>& comments,
                        std::string order, int count) {
  const int available = static_cast<int>(std::min(lines.size(), comments.size()));
  if (count > available) count = available;
  int p = 0;
  while (true) {
    std::size_t semicolon = order.find(';');
    if (order.empty() || semicolon == std::string::npos) return;
    std::string name = order.substr(0, semicolon);
    order.erase(0, semicolon + 1);
    for (int i = 0; i < count; ++i) {
      const std::string& line = lines[static_cast<std::size_t>(i)];
      std::string_view lineName = std::string_view(line).substr(0, line.find('='));
      if (EqualsNoCase(lineName, name)) {
        std::swap(lines[static_cast<std::size_t>(p)], lines[static_cast<std::size_t>(i)]);
        std::swap(comments[static_cast<std::size_t>(p)], comments[static_cast<std::size_t>(i)]);
        ++p;
        break;
      }
    }
    // p can only reach count - 1 from below; the >= keeps a short list in bounds.
    if (p >= count - 1) return;
  }
}

std::string ProjectChecksumLine(std::string_view text) {
  std::uint32_t total = 0;
  for (char c : text) {
    total += static_cast<std::uint32_t>(static_cast<std::int32_t>(static_cast<signed char>(c)));
  }
  return FormatC("Checksum:%d", static_cast<int>(static_cast<std::int32_t>(total)));
}

std::string StripValue(std::string_view text) {
  std::size_t equals = text.find('=');
  std::string_view name = equals == std::string_view::npos ? text : text.substr(0, equals);
  return std::string(name.substr(0, 31));
}

std::vector<std::string> SplitCells(std::string_view text) {
  std::size_t equals = text.find('=');
  if (equals != std::string_view::npos) text.remove_prefix(equals + 1);
  std::size_t nul = text.find('\0');
  if (nul != std::string_view::npos) text = text.substr(0, nul);
  std::vector<std::string> cells;
  if (text.empty()) return cells;
  std::string cell;
  for (char c : text) {
    if (c == ';') {
      cells.push_back(std::move(cell));
      cell.clear();
    } else {
      cell.push_back(c);
    }
  }
  if (!cell.empty()) cells.push_back(std::move(cell));
  return cells;
}

std::string RemoveBlanks(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (char c : text) {
    if (c != ' ') result.push_back(c);
  }
  return result;
}

std::string ReadNextToken(std::string& text) {
  std::size_t end = text.find_first_of(" :=");
  std::string token = text.substr(0, end);
  if (end == std::string::npos) {
    text.clear();
  } else {
    text.erase(0, end + 1);
  }
  return token;
}

std::string FirstPathFolder(std::string_view text) {
  std::string_view first = text.substr(0, text.find(','));
  std::size_t separator = first.rfind(kPathSeparator);
  if (separator == std::string_view::npos) return "";
  return std::string(first.substr(0, separator));
}

bool FileExists(const std::string& path) {
  struct stat info;
  if (path.empty() || stat(path.c_str(), &info) != 0 || S_ISDIR(info.st_mode)) return false;
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) return false;
  std::fclose(file);
  return true;
}

bool FolderWritable(const std::string& path) {
  std::string probe = path + "~~";
  std::remove(probe.c_str());
  std::FILE* file = std::fopen(probe.c_str(), "wx");
  if (file == nullptr) return false;
  std::fclose(file);
  std::remove(probe.c_str());
  return true;
}

bool ReadWholeFile(const std::string& path, std::string& content) {
  struct stat info;
  if (stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return false;
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  std::ostringstream buffer;
  buffer << in.rdbuf();
  content = buffer.str();
  return true;
}

}  // namespace tessara
