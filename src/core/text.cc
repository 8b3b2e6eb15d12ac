#include "core/text.h"

#include <clocale>
#include <algorithm>
#include <functional>
#include <cerrno>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <locale.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
#include <immintrin.h>
#endif

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


std::string ToUpperAscii(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = ToUpperAscii(c);
  return result;
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  // Names are mostly written alike: equal bytes settle it at once.
  if (a == b) return true;
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

ChunkedText::ChunkedText(std::string_view fileContent) {
  text_.reserve(fileContent.size());
  const bool hasNul = fileContent.find('\0') != std::string_view::npos;
  // Line by line: the CR of a CR LF is dropped, and a line longer than a chunk is cut
  // into chunks of the chunk size, its line feed going with the last of them.
  for (std::size_t start = 0; start < fileContent.size();) {
    std::size_t feed = fileContent.find('\n', start);
    const bool fed = feed != std::string_view::npos;
    std::size_t end = fed ? feed : fileContent.size();
    std::size_t contentEnd = (fed && end > start && fileContent[end - 1] == '\r') ? end - 1 : end;
    const std::size_t lineBegin = text_.size();
    text_.append(fileContent.substr(start, contentEnd - start));
    if (fed) text_.push_back('\n');
    for (std::size_t chunk = lineBegin; chunk < text_.size(); chunk += kChunkSize) {
      const std::size_t chunkEnd = std::min(chunk + kChunkSize, text_.size());
      std::size_t visibleEnd = chunkEnd;
      if (hasNul) visibleEnd = std::min(chunkEnd, text_.find('\0', chunk));
      starts_.push_back(chunk);
      visibleEnds_.push_back(visibleEnd);
    }
    start = end + 1;
  }
}

std::size_t ChunkedText::ChunkOf(std::size_t position) const {
  return static_cast<std::size_t>(std::upper_bound(starts_.begin(), starts_.end(), position) - starts_.begin()) - 1;
}

bool ChunkedText::WithinOneChunk(std::size_t position, std::size_t length) const {
  return position + length <= visibleEnds_[ChunkOf(position)];
}

std::size_t ChunkedText::FirstChunkWith(std::string_view name) const {
  if (name.empty()) return 0;
  const std::boyer_moore_horspool_searcher searcher(name.begin(), name.end());
  for (auto from = text_.begin();;) {
    auto match = std::search(from, text_.end(), searcher);
    if (match == text_.end()) return ChunkCount();
    std::size_t position = static_cast<std::size_t>(match - text_.begin());
    if (WithinOneChunk(position, name.size())) return ChunkOf(position);
    from = match + 1;
  }
}

std::vector<std::size_t> ChunkedText::FirstChunksWith(const std::vector<std::string_view>& names) const {
  std::vector<std::size_t> first(names.size(), ChunkCount());
  if (names.empty()) return first;
  // The names of one group's sections all end in "_" and the group's name. One pass over
  // the places of that common ending finds every name: a name can only stand where its
  // ending does, and the places come in file order, so the first fit of a name is in its
  // first chunk. A short common ending would stand everywhere: then each name is looked
  // for on its own.
  std::size_t common = names[0].size();
  for (std::string_view name : names) {
    std::size_t same = 0;
    while (same < common && same < name.size() &&
           name[name.size() - 1 - same] == names[0][names[0].size() - 1 - same]) {
      ++same;
    }
    common = same;
  }
  constexpr std::size_t kShortestUsefulEnding = 4;
  if (common < kShortestUsefulEnding) {
    for (std::size_t i = 0; i < names.size(); ++i) first[i] = FirstChunkWith(names[i]);
    return first;
  }
  std::string_view ending = names[0].substr(names[0].size() - common);
  const std::boyer_moore_horspool_searcher searcher(ending.begin(), ending.end());
  std::size_t missing = names.size();
  for (auto from = text_.begin(); missing > 0;) {
    auto match = std::search(from, text_.end(), searcher);
    if (match == text_.end()) break;
    const std::size_t end = static_cast<std::size_t>(match - text_.begin()) + common;
    const std::size_t chunk = ChunkOf(end - 1);
    if (end <= visibleEnds_[chunk]) {
      for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string_view name = names[i];
        if (first[i] != ChunkCount() || name.size() > end - starts_[chunk]) continue;
        if (std::string_view(text_).substr(end - name.size(), name.size()) == name) {
          first[i] = chunk;
          --missing;
        }
      }
    }
    from = match + 1;
  }
  return first;
}

void ChunkedText::AppendSectionBehind(std::size_t chunk, std::string& out) const {
  std::size_t last = chunk + 1;
  while (last < ChunkCount() && !(visibleEnds_[last] > starts_[last] && text_[starts_[last]] == '[')) ++last;
  // Chunks lie end to end unless a NUL hid a chunk's tail: append each run of them whole.
  std::size_t runStart = 0;
  std::size_t runEnd = 0;
  for (std::size_t i = chunk + 1; i < last; ++i) {
    if (starts_[i] != runEnd) {
      out.append(text_, runStart, runEnd - runStart);
      runStart = starts_[i];
    }
    runEnd = visibleEnds_[i];
  }
  out.append(text_, runStart, runEnd - runStart);
}

void ChunkedText::ReadSection(const std::string& section, std::string& out) const {
  std::size_t chunk = FirstChunkWith(AsCString(section));
  if (chunk < ChunkCount()) AppendSectionBehind(chunk, out);
}

std::vector<std::string> ChunkedText::ReadSections(const std::vector<std::string>& sections) const {
  std::vector<std::string_view> names;
  names.reserve(sections.size());
  for (const std::string& section : sections) names.push_back(AsCString(section));
  std::vector<std::size_t> first = FirstChunksWith(names);
  std::vector<std::string> texts(sections.size());
  for (std::size_t i = 0; i < sections.size(); ++i) {
    if (first[i] < ChunkCount()) AppendSectionBehind(first[i], texts[i]);
  }
  return texts;
}

namespace {

// Reads a data file: a missing one ends the program, one that cannot be opened is told.
bool ReadDataFile(Host& host, const std::string& path, std::string& content) {
  if (!ReadWholeFile(path, content)) {
    // Only a file that could not be read is looked at again, to tell a missing file
    // (which ends the program) from one that cannot be opened.
    if (!FileExists(path)) {
      host.MessageBox(FormatC(kMissingFileFormat, path.c_str()));
      host.Exit(1);
    }
    host.MessageBox(FormatC(kErrorOpeningFormat, path.c_str()));
    return false;
  }
  return true;
}

}  // namespace

int ReadSectionText(Host& host, const std::string& section, std::string& out,
                    const std::string& path) {
  std::string content;
  if (!ReadDataFile(host, path, content)) return 1;
  ReadSectionFromChunks(ReadTextChunks(content), section, out);
  return 0;
}

namespace {

// The sum of a text without a NUL: every byte as a signed number, less the CR of each
// CR LF; `nul` tells whether a NUL stands anywhere, where the sum does not hold. Bytes
// are summed in blocks of 64 narrow lanes that cannot overflow within a block, a shape
// the compiler turns into vector code; a start-up sums every data file.
#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
// Wider vectors where the processor has them, chosen once when the program loads.
__attribute__((target_clones("avx2", "default")))
#endif
std::uint32_t PlainTextSum(std::string_view content, bool& nul) {
  const signed char* bytes = reinterpret_cast<const signed char*>(content.data());
  const std::size_t size = content.size();
  constexpr std::size_t kLanes = 64;
  constexpr std::size_t kRounds = 255;  // 255 * 128 fits a 16-bit lane, 255 pairs a byte
  std::uint32_t total = 0;
  std::uint32_t crlf = 0;
  std::uint8_t lowest = 0xFF;
  std::size_t i = 0;
  while (size - i > kLanes) {
    // Each round looks one byte ahead for the LF of a pair, so a block stops short of
    // the text's last byte.
    const std::size_t rounds = std::min(kRounds, (size - i - 1) / kLanes);
    std::int16_t lanes[kLanes] = {};
    std::uint8_t pairs[kLanes] = {};
    std::uint8_t least[kLanes];
    for (std::size_t lane = 0; lane < kLanes; ++lane) least[lane] = 0xFF;
    for (std::size_t round = 0; round < rounds; ++round, i += kLanes) {
      for (std::size_t lane = 0; lane < kLanes; ++lane) {
        const signed char byte = bytes[i + lane];
        lanes[lane] = static_cast<std::int16_t>(lanes[lane] + byte);
        pairs[lane] = static_cast<std::uint8_t>(pairs[lane] + ((byte == '\r') & (bytes[i + lane + 1] == '\n')));
        least[lane] = std::min(least[lane], static_cast<std::uint8_t>(byte));
      }
    }
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      total += static_cast<std::uint32_t>(static_cast<std::int32_t>(lanes[lane]));
      crlf += pairs[lane];
      lowest = std::min(lowest, least[lane]);
    }
  }
  for (; i < size; ++i) {
    total += static_cast<std::uint32_t>(static_cast<std::int32_t>(bytes[i]));
    crlf += (bytes[i] == '\r') & (i + 1 < size && bytes[i + 1] == '\n');
    lowest = std::min(lowest, static_cast<std::uint8_t>(bytes[i]));
  }
  nul = lowest == 0;
  return total - crlf * static_cast<std::uint32_t>('\r');
}

#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
#define TESSARA_SUM_X86 1
// The same with the processor's 64-byte vectors: each byte is summed as an unsigned
// one, 128 more than its signed value, eight at a time by the sum of absolute
// differences, and the 128s are taken off at the end; the CR LF pairs are counted by
// their masks.
__attribute__((target("avx512bw,popcnt"))) std::uint32_t PlainTextSum64(std::string_view content, bool& nul) {
  const char* bytes = content.data();
  const std::size_t size = content.size();
  const __m512i flip = _mm512_set1_epi8(static_cast<char>(0x80));
  const __m512i cr = _mm512_set1_epi8('\r');
  const __m512i feed = _mm512_set1_epi8('\n');
  __m512i sums = _mm512_setzero_si512();
  __m512i least = _mm512_set1_epi8(-1);
  std::uint64_t crlf = 0;
  std::size_t i = 0;
  // Each block looks one byte ahead for the LF of a pair.
  for (; i + 64 < size; i += 64) {
    const __m512i block = _mm512_loadu_si512(bytes + i);
    const __m512i next = _mm512_loadu_si512(bytes + i + 1);
    sums = _mm512_add_epi64(sums, _mm512_sad_epu8(_mm512_xor_si512(block, flip), _mm512_setzero_si512()));
    least = _mm512_min_epu8(least, block);
    crlf += static_cast<std::uint64_t>(
        __builtin_popcountll(_mm512_mask_cmpeq_epi8_mask(_mm512_cmpeq_epi8_mask(block, cr), next, feed)));
  }
  alignas(64) std::uint64_t lanes[8];
  _mm512_store_si512(lanes, sums);
  std::uint64_t unsignedTotal = 0;
  for (std::uint64_t lane : lanes) unsignedTotal += lane;
  std::uint32_t total = static_cast<std::uint32_t>(unsignedTotal - 128 * static_cast<std::uint64_t>(i));
  bool sawNul = _mm512_cmpeq_epi8_mask(least, _mm512_setzero_si512()) != 0;
  for (; i < size; ++i) {
    total += static_cast<std::uint32_t>(static_cast<std::int32_t>(static_cast<signed char>(bytes[i])));
    crlf += (bytes[i] == '\r') & (i + 1 < size && bytes[i + 1] == '\n');
    sawNul = sawNul || bytes[i] == '\0';
  }
  nul = sawNul;
  return total - static_cast<std::uint32_t>(crlf) * static_cast<std::uint32_t>('\r');
}

bool Vector64Sums() {
  static const bool supported = [] {
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("popcnt");
  }();
  return supported;
}
#endif

}  // namespace

std::uint16_t TextChecksum(std::string_view fileContent) {
  const std::size_t size = fileContent.size();
  const char* bytes = fileContent.data();
  bool nul = false;
#if defined(TESSARA_SUM_X86)
  const std::uint32_t plain = Vector64Sums() ? PlainTextSum64(fileContent, nul) : PlainTextSum(fileContent, nul);
#else
  const std::uint32_t plain = PlainTextSum(fileContent, nul);
#endif
  if (!nul) return static_cast<std::uint16_t>(plain & 0xFFFFu);
  // A NUL hides the rest of its chunk: walk the chunks as ReadTextChunks cuts them.
  std::uint32_t total = 0;
  std::size_t chunkLength = 0;
  bool hidden = false;
  for (std::size_t i = 0; i < size; ++i) {
    char c = bytes[i];
    if (c == '\r' && i + 1 < size && bytes[i + 1] == '\n') continue;
    ++chunkLength;
    if (c == '\0') hidden = true;
    if (!hidden) total += static_cast<std::uint32_t>(static_cast<std::int32_t>(static_cast<signed char>(c)));
    if (c == '\n' || chunkLength == kChunkSize) {
      chunkLength = 0;
      hidden = false;
    }
  }
  return static_cast<std::uint16_t>(total & 0xFFFFu);
}

std::uint16_t FileChecksum(Host& host, const std::string& path) {
  std::string content;
  if (!ReadDataFile(host, path, content)) return 1;
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

namespace {

// Opens a regular file for reading with plain system calls, a data file being read
// several times at every start. A path that is not a regular file (a folder, a pipe) is
// refused without blocking on it. Returns -1 on failure, else the descriptor and size.
int OpenRegularFile(const std::string& path, std::size_t& size) {
  int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (fd < 0) return -1;
  struct stat info;
  if (fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
    ::close(fd);
    return -1;
  }
  size = static_cast<std::size_t>(info.st_size);
  return fd;
}

// Reads into content[from, to) until that is full or the file ends, and leaves `content`
// as long as what it holds; false on a read error.
bool ReadInto(int fd, std::string& content, std::size_t from, std::size_t to) {
  content.resize(to);
  std::size_t length = from;
  while (length < to) {
    ssize_t got = ::read(fd, content.data() + length, to - length);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) {
      content.resize(length);
      return got == 0;
    }
    length += static_cast<std::size_t>(got);
  }
  return true;
}

}  // namespace

bool ReadWholeFile(const std::string& path, std::string& content) {
  std::size_t size = 0;
  int fd = OpenRegularFile(path, size);
  if (fd < 0) return false;
  // The size the file has now, then on to its end, in case it grew meanwhile; the look
  // for more goes into a small buffer of its own, so that `content` keeps its size.
  bool read = ReadInto(fd, content, 0, size);
  while (read && content.size() == size) {
    char more[4096];
    ssize_t got = ::read(fd, more, sizeof more);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) {
      read = got == 0;
      break;
    }
    content.append(more, static_cast<std::size_t>(got));
    size = content.size();
  }
  ::close(fd);
  return read;
}

TextBuffer& TextBuffer::operator=(const TextBuffer& other) {
  // The copy takes room for what it holds, and the room held before goes: a store
  // emptied by an assignment keeps no file's worth of memory.
  TextBuffer copy(other);
  Swap(copy);
  return *this;
}

void TextBuffer::Reserve(std::size_t capacity) {
  if (capacity <= capacity_) return;
  std::unique_ptr<char[], Release> larger(static_cast<char*>(::operator new[](capacity, kAlignment)));
  if (size_ > 0) std::memcpy(larger.get(), bytes_.get(), size_);
  bytes_ = std::move(larger);
  capacity_ = capacity;
}

void TextBuffer::Append(std::string_view text) {
  if (text.empty()) return;
  if (text.size() > capacity_ - size_) Reserve(std::max(size_ + text.size(), 2 * capacity_));
  std::memcpy(bytes_.get() + size_, text.data(), text.size());
  size_ += text.size();
}

bool TextBuffer::ReadFrom(int fd, std::size_t limit) {
  Reserve(limit);
  while (size_ < limit) {
    ssize_t got = ::read(fd, bytes_.get() + size_, limit - size_);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return got == 0;
    size_ += static_cast<std::size_t>(got);
  }
  return true;
}

bool ReadWholeFile(const std::string& path, TextBuffer& content) {
  std::size_t size = 0;
  int fd = OpenRegularFile(path, size);
  if (fd < 0) return false;
  content.Clear();
  // One byte more than the file holds is asked for, so that a file that did not grow
  // since its size was taken is read whole by a single read; one that did is read on.
  std::size_t room = size + 1;
  bool read = content.ReadFrom(fd, room);
  while (read && content.size() == room) {
    room *= 2;
    read = content.ReadFrom(fd, room);
  }
  ::close(fd);
  return read;
}

bool ReadFileStart(const std::string& path, std::size_t limit, TextBuffer& content, bool& whole) {
  std::size_t size = 0;
  int fd = OpenRegularFile(path, size);
  if (fd < 0) return false;
  content.Clear();
  bool read = content.ReadFrom(fd, std::min(size, limit));
  ::close(fd);
  whole = size <= limit;
  return read;
}

bool WriteTextFileReplacing(const std::string& path, const std::string& text) {
  std::string onDisk;
  onDisk.reserve(text.size() + text.size() / 16);
  for (char c : text) {
    if (c == '\n') onDisk.push_back('\r');
    onDisk.push_back(c);
  }
  const std::string temporary = path + ".tessara~";
  bool written = false;
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    if (out) {
      out.write(onDisk.data(), static_cast<std::streamsize>(onDisk.size()));
      out.flush();
      written = static_cast<bool>(out);
    }
  }
  if (written && std::rename(temporary.c_str(), path.c_str()) == 0) return true;
  std::remove(temporary.c_str());
  return false;
}

}  // namespace tessara
