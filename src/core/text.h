#ifndef TESSARA_CORE_TEXT_H_
#define TESSARA_CORE_TEXT_H_

#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace tessara {

class Host;

// Case-insensitive comparisons of ASCII names: data keys, tags, captions. Bytes
// outside ASCII compare as they stand, whatever the user's locale.
inline char ToLowerAscii(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; }
inline char ToUpperAscii(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c; }
std::string ToUpperAscii(std::string_view text);
bool EqualsNoCase(std::string_view a, std::string_view b);
bool StartsWithNoCase(std::string_view text, std::string_view prefix);
bool StartsWith(std::string_view text, std::string_view prefix);
// Position of needle in haystack without regard to case, or npos.
std::size_t FindNoCase(std::string_view haystack, std::string_view needle);

// printf-style formatting with the C locale's rules, whatever locale the front-end set.
std::string FormatC(const char* format, ...) __attribute__((format(printf, 1, 2)));

// The folder of the program's own file, without a trailing separator. SetModuleFolder
// puts another folder in its place (the --home switch of both executables).
std::string ModuleFolder();
void SetModuleFolder(const std::string& folder);

// The host's folder separator, used wherever a path is built or shown.
inline constexpr char kPathSeparator = '/';
std::string JoinPath(const std::string& folder, const std::string& name);

// Text-file reading in the chunks the data-file rules are written for: a chunk ends
// behind a line feed or after 1,999 characters; a carriage return before a line feed
// is dropped, as text mode does.
inline constexpr std::size_t kChunkSize = 1999;
std::vector<std::string> ReadTextChunks(const std::string& fileContent);

// Appends the lines of `section` (found as a plain substring of a chunk) to `out`.
// Returns 0 when the file was read, 1 when it could not be opened; ends the process
// through the host when the file does not exist.
int ReadSectionText(Host& host, const std::string& section, std::string& out,
                    const std::string& path);
// The same rule over chunks already in memory.
void ReadSectionFromChunks(const std::vector<std::string>& chunks, const std::string& section,
                           std::string& out);

// A text file cut into those chunks once, for finding many sections in it: a group load
// looks for every configuration's section in the same file. The results are those of
// ReadSectionFromChunks over ReadTextChunks of the same content.
class ChunkedText {
 public:
  explicit ChunkedText(std::string_view fileContent);

  // Appends the section `section` to `out`.
  void ReadSection(const std::string& section, std::string& out) const;
  // The texts of many sections at once, in the order of the names.
  std::vector<std::string> ReadSections(const std::vector<std::string>& sections) const;

 private:
  std::size_t ChunkCount() const { return starts_.size(); }
  std::size_t ChunkOf(std::size_t position) const;
  // Whether [position, position + length) lies in the visible text of one chunk.
  bool WithinOneChunk(std::size_t position, std::size_t length) const;
  // The first chunk whose visible text holds `name`, or ChunkCount().
  std::size_t FirstChunkWith(std::string_view name) const;
  std::vector<std::size_t> FirstChunksWith(const std::vector<std::string_view>& names) const;
  void AppendSectionBehind(std::size_t chunk, std::string& out) const;

  std::string text_;                     // the content with the CR of each CR LF dropped
  std::vector<std::size_t> starts_;      // chunk i begins at starts_[i] of text_
  std::vector<std::size_t> visibleEnds_; // and is seen up to its first NUL
};

// The 16-bit sum of a text file: every character as a signed 8-bit number, CR of a
// CR LF not counted. Ends the process through the host when the file does not exist;
// returns 1 when it exists but cannot be opened.
std::uint16_t FileChecksum(Host& host, const std::string& path);
std::uint16_t TextChecksum(std::string_view fileContent);

// C strtoul as a 32-bit unsigned long: base 0, 2 to 36; a value past 32 bits gives
// 0xFFFFFFFF, a leading minus negates modulo 2^32.
std::uint32_t CStrtoul32(std::string_view text, int base);
std::uint32_t ParseNumber(std::string_view text, int base);
double ParseReal(std::string_view text);

// Register values (divider - 1) of the pair whose product is nearest to a * 0.001 / b.
void BestDividerPair(int& n, int& m, float a, float b);

void SortParameterLines(std::vector<std::string>& lines, std::vector<std::string>& comments,
                        std::string order, int count);
std::string ProjectChecksumLine(std::string_view text);
std::string StripValue(std::string_view text);
// The cells of a ";"-list behind the first "=". Cells are returned whole: callers keep
// the first `maxCells` and cut each to its own size.
std::vector<std::string> SplitCells(std::string_view text);
std::string RemoveBlanks(std::string_view text);
std::string ReadNextToken(std::string& text);
std::string FirstPathFolder(std::string_view text);

// A text held in one block of memory that is not filled before it is written: a group
// load reads its whole data file into one and keeps it as long as the catalogue, and a
// std::string would first zero every byte that the read then writes. Copies are deep.
class TextBuffer {
 public:
  TextBuffer() = default;
  explicit TextBuffer(std::string_view text) { Append(text); }
  TextBuffer(const TextBuffer& other) { Append(other.View()); }
  TextBuffer& operator=(const TextBuffer& other);
  TextBuffer(TextBuffer&& other) noexcept { Swap(other); }
  TextBuffer& operator=(TextBuffer&& other) noexcept {
    TextBuffer taken(std::move(other));
    Swap(taken);
    return *this;
  }

  std::string_view View() const { return {bytes_.get(), size_}; }
  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }
  void Append(std::string_view text);
  void Clear() { size_ = 0; }

 private:
  friend bool ReadWholeFile(const std::string& path, TextBuffer& content);
  friend bool ReadFileStart(const std::string& path, std::size_t limit, TextBuffer& content, bool& whole);
  // Reads from `fd` until `limit` bytes are held or the file ends; false on an error.
  bool ReadFrom(int fd, std::size_t limit);
  // Makes room for at least `capacity` bytes, keeping what is held.
  void Reserve(std::size_t capacity);
  void Swap(TextBuffer& other) noexcept {
    std::swap(bytes_, other.bytes_);
    std::swap(size_, other.size_);
    std::swap(capacity_, other.capacity_);
  }

  // The bytes start on a cache line: the system copies a file's pages into such a
  // block faster than into one that starts inside a line.
  static constexpr std::align_val_t kAlignment{64};
  struct Release {
    void operator()(char* bytes) const { ::operator delete[](bytes, kAlignment); }
  };
  std::unique_ptr<char[], Release> bytes_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

bool FileExists(const std::string& path);
bool FolderWritable(const std::string& path);
// Reads a whole file as bytes; false when it cannot be opened or is not a regular file.
bool ReadWholeFile(const std::string& path, std::string& content);
// The same into a buffer, which then holds the file alone.
bool ReadWholeFile(const std::string& path, TextBuffer& content);
// Reads at most `limit` bytes from the start of a file; `whole` tells whether that was
// all of it. False as for ReadWholeFile.
bool ReadFileStart(const std::string& path, std::size_t limit, TextBuffer& content, bool& whole);

// Writes a text file the way text mode does (each "\n" as CR LF), into a file beside
// the target that is then renamed over it, so that a failure never leaves a truncated
// file where a good one stood. False when the target could not be written.
bool WriteTextFileReplacing(const std::string& path, const std::string& text);

}  // namespace tessara

#endif  // TESSARA_CORE_TEXT_H_
