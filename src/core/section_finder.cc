#include "core/section_finder.h"

#include <algorithm>
#include <bit>
#include <cstring>

#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
#define TESSARA_SCAN_X86 1
#include <immintrin.h>
#endif

namespace tessara {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

// The bits set in a mask: by the processor's own instruction where it has one, chosen
// once when the program loads.
#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
__attribute__((target_clones("popcnt", "default")))
#endif
std::size_t CountBits(std::uint64_t bits) {
  return static_cast<std::size_t>(std::popcount(bits));
}
// Bytes are looked at in blocks of 64, one bit of a mask per byte, and blocks in pages.
constexpr std::size_t kBlock = 64;
constexpr std::size_t kPageBlocks = 64;
// Room for line starts is made for about one line in this many bytes at first.
constexpr std::size_t kBytesPerLineGuess = 32;

// Whether n bytes at a and b are the same: names are short, and a call to memcmp costs
// more than comparing them eight bytes at a time in place.
inline bool SameBytes(const char* a, const char* b, std::size_t n) {
  for (; n >= 8; n -= 8, a += 8, b += 8) {
    std::uint64_t x;
    std::uint64_t y;
    std::memcpy(&x, a, 8);
    std::memcpy(&y, b, 8);
    if (x != y) return false;
  }
  for (; n > 0; --n, ++a, ++b) {
    if (*a != *b) return false;
  }
  return true;
}

std::string_view CommonEnding(const std::vector<std::string_view>& names) {
  const std::string_view first = names[0];
  std::size_t common = first.size();
  for (std::string_view name : names) {
    // Names mostly share their whole ending: one comparison tells.
    if (name.size() >= common && SameBytes(name.data() + name.size() - common, first.data() + first.size() - common, common)) {
      continue;
    }
    std::size_t same = 0;
    while (same < common && same < name.size() && name[name.size() - 1 - same] == first[first.size() - 1 - same]) {
      ++same;
    }
    common = same;
  }
  return first.substr(first.size() - common);
}

// Which bytes a name may not hold as it stands: a CR or a line feed, which no line
// holds, and a NUL, which ends the name.
constexpr unsigned kLineEndByte = 1;
constexpr unsigned kNulByte = 2;
unsigned OddBytes(std::string_view text) {
  static constexpr auto kOdd = [] {
    std::array<unsigned char, 256> odd{};
    odd['\r'] = kLineEndByte;
    odd['\n'] = kLineEndByte;
    odd[0] = kNulByte;
    return odd;
  }();
  unsigned odd = 0;
  for (char c : text) odd |= kOdd[static_cast<unsigned char>(c)];
  return odd;
}

// One page of blocks to scan: `blocks` * 64 bytes at `data`, which is `base` bytes into
// the text, with `tail` more bytes readable behind them.
struct Page {
  const char* data;
  std::size_t base;
  std::size_t blocks;
  std::size_t tail;  // the ending's length less one
  char first;        // the ending's first and last byte
  char last;
};

// What scanning a page gives: the start of each line behind a line feed is written to
// `starts` (room for 64 per block must be there) and counted; ends[b] has a bit for
// each place of block b where the ending's first byte stands and its last byte `tail`
// places further on.
struct PageMarks {
  std::size_t* starts;
  std::uint64_t* ends;
  std::size_t written = 0;
  bool nul = false;
};

// Writes the position behind each line feed that `feeds` marks in the block at `base`,
// four at a time whatever their number, so that the common case takes no branch.
// kPopCount: the processor counts bits in one instruction.
template <bool kPopCount>
inline std::size_t WriteLineStarts(std::uint64_t feeds, std::size_t base, std::size_t* out) {
  std::size_t count;
  if constexpr (kPopCount) {
    count = static_cast<std::size_t>(__builtin_popcountll(feeds));
  } else {
    std::uint64_t bits = feeds - ((feeds >> 1) & 0x5555555555555555ull);
    bits = (bits & 0x3333333333333333ull) + ((bits >> 2) & 0x3333333333333333ull);
    bits = (bits + (bits >> 4)) & 0x0F0F0F0F0F0F0F0Full;
    count = static_cast<std::size_t>((bits * 0x0101010101010101ull) >> 56);
  }
  for (std::size_t n = 0; n < 4; ++n, feeds &= feeds - 1) {
    out[n] = base + static_cast<std::size_t>(std::countr_zero(feeds)) + 1;
  }
  for (std::size_t n = 4; n < count; ++n, feeds &= feeds - 1) {
    out[n] = base + static_cast<std::size_t>(std::countr_zero(feeds)) + 1;
  }
  return count;
}

using PageScanner = void (*)(const Page& page, PageMarks& marks);

void ScanPagePlain(const Page& page, PageMarks& marks) {
  const char* data = page.data;
  for (std::size_t b = 0; b < page.blocks; ++b, data += kBlock) {
    std::uint64_t feeds = 0;
    std::uint64_t ends = 0;
    for (std::size_t i = 0; i < kBlock; ++i) {
      feeds |= static_cast<std::uint64_t>(data[i] == '\n') << i;
      ends |= static_cast<std::uint64_t>(data[i] == page.first && data[i + page.tail] == page.last) << i;
      marks.nul = marks.nul || data[i] == '\0';
    }
    marks.written += WriteLineStarts<false>(feeds, page.base + b * kBlock, marks.starts + marks.written);
    marks.ends[b] = ends;
  }
}

#if defined(TESSARA_SCAN_X86)
void ScanPageVector16(const Page& page, PageMarks& marks) {
  const __m128i feed = _mm_set1_epi8('\n');
  const __m128i first = _mm_set1_epi8(page.first);
  const __m128i last = _mm_set1_epi8(page.last);
  __m128i least = _mm_set1_epi8(-1);
  const char* data = page.data;
  for (std::size_t b = 0; b < page.blocks; ++b, data += kBlock) {
    std::uint64_t feeds = 0;
    std::uint64_t ends = 0;
    for (int part = 0; part < 4; ++part) {
      const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(data + 16 * part));
      const __m128i behind = _mm_loadu_si128(reinterpret_cast<const __m128i*>(data + 16 * part + page.tail));
      least = _mm_min_epu8(least, bytes);
      feeds |= static_cast<std::uint64_t>(static_cast<std::uint16_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, feed))))
               << (16 * part);
      ends |= static_cast<std::uint64_t>(static_cast<std::uint16_t>(_mm_movemask_epi8(
                  _mm_and_si128(_mm_cmpeq_epi8(bytes, first), _mm_cmpeq_epi8(behind, last)))))
              << (16 * part);
    }
    marks.written += WriteLineStarts<false>(feeds, page.base + b * kBlock, marks.starts + marks.written);
    marks.ends[b] = ends;
  }
  marks.nul = marks.nul || _mm_movemask_epi8(_mm_cmpeq_epi8(least, _mm_setzero_si128())) != 0;
}

__attribute__((target("avx2"))) inline std::uint64_t Bits(__m256i mask) {
  return static_cast<std::uint64_t>(static_cast<std::uint32_t>(_mm256_movemask_epi8(mask)));
}

__attribute__((target("avx2,popcnt,bmi"))) void ScanPageVector32(const Page& page, PageMarks& marks) {
  const __m256i feed = _mm256_set1_epi8('\n');
  const __m256i first = _mm256_set1_epi8(page.first);
  const __m256i last = _mm256_set1_epi8(page.last);
  __m256i least = _mm256_set1_epi8(-1);
  const char* data = page.data;
  for (std::size_t b = 0; b < page.blocks; ++b, data += kBlock) {
    const __m256i low = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(data));
    const __m256i high = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(data + 32));
    const __m256i lowBehind = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(data + page.tail));
    const __m256i highBehind = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(data + 32 + page.tail));
    least = _mm256_min_epu8(least, _mm256_min_epu8(low, high));
    const std::uint64_t feeds = Bits(_mm256_cmpeq_epi8(low, feed)) | Bits(_mm256_cmpeq_epi8(high, feed)) << 32;
    marks.written += WriteLineStarts<true>(feeds, page.base + b * kBlock, marks.starts + marks.written);
    marks.ends[b] = Bits(_mm256_and_si256(_mm256_cmpeq_epi8(low, first), _mm256_cmpeq_epi8(lowBehind, last))) |
                    Bits(_mm256_and_si256(_mm256_cmpeq_epi8(high, first), _mm256_cmpeq_epi8(highBehind, last)))
                        << 32;
  }
  marks.nul = marks.nul || _mm256_movemask_epi8(_mm256_cmpeq_epi8(least, _mm256_setzero_si256())) != 0;
}

__attribute__((target("avx512bw,popcnt,bmi"))) void ScanPageVector64(const Page& page, PageMarks& marks) {
  const __m512i feed = _mm512_set1_epi8('\n');
  const __m512i first = _mm512_set1_epi8(page.first);
  const __m512i last = _mm512_set1_epi8(page.last);
  __m512i least = _mm512_set1_epi8(-1);
  const char* data = page.data;
  for (std::size_t b = 0; b < page.blocks; ++b, data += kBlock) {
    const __m512i bytes = _mm512_loadu_si512(data);
    const __m512i behind = _mm512_loadu_si512(data + page.tail);
    least = _mm512_min_epu8(least, bytes);
    const std::uint64_t feeds = _mm512_cmpeq_epi8_mask(bytes, feed);
    marks.written += WriteLineStarts<true>(feeds, page.base + b * kBlock, marks.starts + marks.written);
    marks.ends[b] = _mm512_cmpeq_epi8_mask(bytes, first) & _mm512_cmpeq_epi8_mask(behind, last);
  }
  marks.nul = marks.nul || _mm512_cmpeq_epi8_mask(least, _mm512_setzero_si512()) != 0;
}
#endif

// Ranges serve a file whose lines are chunks. The text is looked at in windows of this
// many whole blocks from its start; a line of a chunk's length covers a whole window,
// so a file where every window holds a line feed has only lines well within a chunk.
constexpr std::size_t kWindowBlocks = 15;
constexpr std::size_t kWindow = kWindowBlocks * kBlock;
static_assert(2 * kWindow - 1 < kChunkSize - 2);
// The ranges look at pages of whole windows.
constexpr std::size_t kRangePageBlocks = 4 * kWindowBlocks;

// A block that holds a "[" or a place of the ending: the page's block, the line feeds
// ahead of it, and its marks of line feeds, "[" and places of the ending.
struct RangeHit {
  std::uint32_t block;
  std::uint32_t lines;
  std::uint64_t feeds;
  std::uint64_t brackets;
  std::uint64_t ends;
};

// What scanning a page for the ranges gives and carries on to the next page: the
// blocks that hold a "[" or a place of the ending, the line feeds ahead, and the window
// the next page goes on with.
struct RangeMarks {
  RangeHit* hits;
  std::size_t hitCount = 0;
  std::uint32_t lines = 0;
  std::size_t windowBlocks = 0;  // blocks of the current window already looked at
  std::uint32_t windowLines = 0; // line feeds ahead of the current window
  bool nul = false;
  bool longLine = false;
};

#if defined(TESSARA_SCAN_X86)
// The ranges' look at one block: its line feeds are counted, and the block is listed
// when it holds a "[" or the ending may stand there. Such blocks are few, so a branch to
// list them, with the marks at hand, is cheaper than a store for every block; whether
// the "[" begins a line is told when the block is taken.
struct RangeBlockScan {
  __m512i feed;
  __m512i bracket;
  __m512i first;
  __m512i last;
  __m512i least;
  RangeHit* hits;
  std::size_t hitCount;
  std::uint32_t lines;
};

__attribute__((target("avx512bw,popcnt,bmi"), always_inline)) inline void ScanRangeBlock(RangeBlockScan& scan,
                                                                                        const char* data,
                                                                                        std::size_t tail,
                                                                                        std::size_t b) {
  const __m512i bytes = _mm512_loadu_si512(data);
  const __m512i behind = _mm512_loadu_si512(data + tail);
  scan.least = _mm512_min_epu8(scan.least, bytes);
  const std::uint64_t feeds = _mm512_cmpeq_epi8_mask(bytes, scan.feed);
  const std::uint64_t brackets = _mm512_cmpeq_epi8_mask(bytes, scan.bracket);
  const std::uint64_t ends = _mm512_mask_cmpeq_epi8_mask(_mm512_cmpeq_epi8_mask(bytes, scan.first), behind, scan.last);
  if (__builtin_expect((brackets | ends) != 0, 0)) {
    scan.hits[scan.hitCount++] = {static_cast<std::uint32_t>(b), scan.lines, feeds, brackets, ends};
  }
  scan.lines += static_cast<std::uint32_t>(__builtin_popcountll(feeds));
}

// Scans a page of blocks for the ranges. A window whose line feeds do not grow marks a
// long line; a page of whole windows that begins with one is looked at window by window.
__attribute__((target("avx512bw,popcnt,bmi"))) void ScanRangePageVector64(const Page& page, RangeMarks& marks) {
  RangeBlockScan scan{_mm512_set1_epi8('\n'), _mm512_set1_epi8('['), _mm512_set1_epi8(page.first),
                      _mm512_set1_epi8(page.last), _mm512_set1_epi8(-1), marks.hits, 0, marks.lines};
  const std::size_t blocks = page.blocks;
  const std::size_t tail = page.tail;
  std::size_t windowBlocks = marks.windowBlocks;
  std::uint32_t windowLines = marks.windowLines;
  bool longLine = marks.longLine;
  const char* data = page.data;
  std::size_t b = 0;
  if (windowBlocks == 0) {
    for (; b + kWindowBlocks <= blocks; data += kWindow) {
#pragma GCC unroll 15
      for (std::size_t w = 0; w < kWindowBlocks; ++w) ScanRangeBlock(scan, data + w * kBlock, tail, b + w);
      b += kWindowBlocks;
      longLine = longLine || scan.lines == windowLines;
      windowLines = scan.lines;
    }
  }
  for (; b < blocks; ++b, data += kBlock) {
    ScanRangeBlock(scan, data, tail, b);
    if (++windowBlocks == kWindowBlocks) {
      longLine = longLine || scan.lines == windowLines;
      windowLines = scan.lines;
      windowBlocks = 0;
    }
  }
  marks.hitCount = scan.hitCount;
  marks.lines = scan.lines;
  marks.windowBlocks = windowBlocks;
  marks.windowLines = windowLines;
  marks.longLine = longLine;
  marks.nul = marks.nul || _mm512_cmpeq_epi8_mask(scan.least, _mm512_setzero_si512()) != 0;
}

// Counts the lines of text[begin, end) that the comment rule keeps and those it drops,
// where begin starts a line and end follows a line feed, over the whole blocks of 64
// bytes that end before `end` (so that the byte behind each can be read), until more
// than `keptLimit` are kept or `droppedLimit` are dropped. Returns where it stopped.
__attribute__((target("avx512bw,popcnt,bmi"))) std::size_t CountStoredVector64(const char* data, std::size_t begin,
                                                                              std::size_t end, std::size_t keptLimit,
                                                                              std::size_t droppedLimit,
                                                                              std::size_t& kept, std::size_t& dropped) {
  const __m512i feed = _mm512_set1_epi8('\n');
  const __m512i slash = _mm512_set1_epi8('/');
  const __m512i cr = _mm512_set1_epi8('\r');
  std::size_t at = begin - begin % kBlock;
  std::uint64_t carry = at == 0 || data[at - 1] == '\n' ? 1 : 0;
  std::uint64_t from = ~std::uint64_t{0} << (begin % kBlock);
  for (; at + kBlock < end && kept <= keptLimit && dropped < droppedLimit; at += kBlock) {
    const __m512i bytes = _mm512_loadu_si512(data + at);
    const __m512i next = _mm512_loadu_si512(data + at + 1);
    const std::uint64_t feeds = _mm512_cmpeq_epi8_mask(bytes, feed);
    const std::uint64_t starts = ((feeds << 1) | carry) & from;
    carry = feeds >> 63;
    from = ~std::uint64_t{0};
    // A line is dropped when it is empty (a line feed, or a CR LF, at its start) or has
    // "/" as its first or second character.
    const std::uint64_t droppedStarts =
        starts & (feeds | _mm512_cmpeq_epi8_mask(bytes, slash) | _mm512_cmpeq_epi8_mask(next, slash) |
                  _mm512_mask_cmpeq_epi8_mask(_mm512_cmpeq_epi8_mask(bytes, cr), next, feed));
    const std::size_t lineCount = static_cast<std::size_t>(__builtin_popcountll(starts));
    const std::size_t droppedCount = static_cast<std::size_t>(__builtin_popcountll(droppedStarts));
    kept += lineCount - droppedCount;
    dropped += droppedCount;
  }
  return std::max(at, begin);
}
#endif

// Whether the line that begins at `start` is kept by the comment rule; a line feed ends
// it, so the byte behind its first one can be read unless that first one is the feed.
inline bool StoredLineAt(const char* data, std::size_t start) {
  const char first = data[start];
  if (first == '\n') return false;
  const char second = data[start + 1];
  return first != '/' && second != '/' && !(first == '\r' && second == '\n');
}

PageScanner ScannerFor(ScanWidth width) {
#if defined(TESSARA_SCAN_X86)
  if (width == ScanWidth::kWidest) {
    for (ScanWidth widest : {ScanWidth::kVector64, ScanWidth::kVector32, ScanWidth::kVector16}) {
      if (SectionFinder::Supports(widest)) {
        width = widest;
        break;
      }
    }
  }
  if (width == ScanWidth::kVector64 && SectionFinder::Supports(width)) return ScanPageVector64;
  if (width == ScanWidth::kVector32 && SectionFinder::Supports(width)) return ScanPageVector32;
  if (width != ScanWidth::kPlain) return ScanPageVector16;
#endif
  (void)width;
  return ScanPagePlain;
}

}  // namespace

bool SectionFinder::Supports(ScanWidth width) {
#if defined(TESSARA_SCAN_X86)
  static const bool bitInstructions = [] {
    __builtin_cpu_init();
    return __builtin_cpu_supports("popcnt") && __builtin_cpu_supports("bmi");
  }();
  static const bool vector32 = bitInstructions && __builtin_cpu_supports("avx2");
  static const bool vector64 = bitInstructions && __builtin_cpu_supports("avx512bw");
  if (width == ScanWidth::kVector32) return vector32;
  if (width == ScanWidth::kVector64) return vector64;
  return true;
#else
  return width == ScanWidth::kPlain || width == ScanWidth::kWidest;
#endif
}

SectionFinder::SectionFinder(std::string_view text, const std::vector<std::string>& sections, ScanWidth width,
                             Yield yield)
    : text_(text), matchStarts_(sections.size(), kNone), missing_(sections.size()), ranges_(yield == Yield::kRanges) {
  std::vector<std::string_view> views;
  views.reserve(sections.size());
  for (const std::string& section : sections) views.emplace_back(section);
  Find(views, width);
}

SectionFinder::SectionFinder(std::string_view text, const std::vector<std::string_view>& sections, ScanWidth width,
                             Yield yield, int)
    : text_(text), matchStarts_(sections.size(), kNone), missing_(sections.size()), ranges_(yield == Yield::kRanges) {
  Find(sections, width);
}

void SectionFinder::Find(const std::vector<std::string_view>& sections, ScanWidth width) {
  if (sections.empty()) return;
  if (ranges_) {
    // The counts of line feeds are kept in 32 bits.
    if (text_.size() >= (std::size_t{1} << 31)) return;
    // Byte by byte, ranges cost more than lines: the widest way serves only with vectors.
    if (width == ScanWidth::kWidest) width = ScanWidth::kVector64;
    if (width != ScanWidth::kPlain && !(width == ScanWidth::kVector64 && Supports(width))) return;
    matchLines_.assign(sections.size(), 0);
    matchFeeds_.assign(sections.size(), kNone);
  }
  names_.assign(sections.begin(), sections.end());
  for (std::string_view name : names_) {
    if (name.empty()) return;
  }
  // The names share their ending, which is looked at once.
  std::string_view ending = CommonEnding(names_);
  unsigned odd = OddBytes(ending);
  for (std::string_view name : names_) odd |= OddBytes(name.substr(0, name.size() - ending.size()));
  if ((odd & kNulByte) != 0) {
    // The reading loop holds a name as a C string: up to its first NUL.
    odd = 0;
    for (std::string_view& name : names_) {
      name = name.substr(0, name.find('\0'));
      if (name.empty()) return;
      odd |= OddBytes(name);
    }
    ending = CommonEnding(names_);
  }
  if (ending.empty() || (odd & kLineEndByte) != 0) return;
  GroupNames(ending);
  if (ranges_) {
    vector_ = width == ScanWidth::kVector64;
    ScanRanges(ending, vector_);
  } else {
    Scan(ending, ScannerFor(width));
  }
}

// Groups the names by the byte before the ending, so that a place of the ending is
// compared with few names.
void SectionFinder::GroupNames(std::string_view ending) {
  auto groupOf = [&](std::string_view name) {
    return name.size() > ending.size() ? static_cast<unsigned char>(name[name.size() - ending.size() - 1])
                                       : kEndingAlone;
  };
  groupStarts_.fill(0);
  for (std::string_view name : names_) ++groupStarts_[groupOf(name) + 1];
  for (std::size_t group = 1; group < groupStarts_.size(); ++group) groupStarts_[group] += groupStarts_[group - 1];
  groupOrder_.resize(names_.size());
  std::copy(groupStarts_.begin() + 1, groupStarts_.end(), groupEnds_.begin());
  std::array<std::uint32_t, kNameGroups> next;
  std::copy(groupStarts_.begin(), groupStarts_.end() - 1, next.begin());
  for (std::size_t n = 0; n < names_.size(); ++n) groupOrder_[next[groupOf(names_[n])]++] = static_cast<std::uint32_t>(n);
}

// One pass over the bytes finds where every line starts, whether a NUL is anywhere, and
// where each name first stands within one chunk. Each name ends with the names' common
// ending, so only the places of that ending are looked at, found by its first and last
// byte. A page of blocks is marked by the widest vector code the processor has, then the
// places are looked at.
template <typename Scanner>
void SectionFinder::Scan(std::string_view ending, Scanner scanPage) {
  const char* data = text_.data();
  const std::size_t size = text_.size();
  const std::size_t tail = ending.size() - 1;
  // Line starts are written ahead of their count: room for a page's worth is kept free.
  constexpr std::size_t kPageRoom = kPageBlocks * kBlock;
  MakeLineRoom(size / kBytesPerLineGuess + kPageRoom + 1);
  std::size_t& lines = lineCount_;
  if (size > 0) lineStarts_[lines++] = 0;
  bool nul = false;
  std::size_t i = 0;
  std::uint64_t ends[kPageBlocks];
  while (i + kBlock + tail <= size) {
    if (lines + kPageRoom > lineRoom_) MakeLineRoom(2 * lineRoom_);
    const Page page{data + i, i, std::min(kPageBlocks, (size - tail - i) / kBlock), tail, ending.front(),
                    ending.back()};
    PageMarks marks{lineStarts_.get() + lines, ends};
    scanPage(page, marks);
    lines += marks.written;
    nul = nul || marks.nul;
    for (std::size_t b = 0; missing_ > 0 && b < page.blocks; ++b) {
      for (std::uint64_t end = ends[b]; end != 0; end &= end - 1) {
        EndingAt(i + b * kBlock + static_cast<std::size_t>(std::countr_zero(end)), ending, 0, kNone);
      }
    }
    i += page.blocks * kBlock;
  }
  for (; i < size; ++i) {
    if (data[i] == '\n') {
      if (lines == lineRoom_) MakeLineRoom(2 * lineRoom_);
      lineStarts_[lines++] = i + 1;
    }
    if (data[i] == '\0') nul = true;
    if (missing_ > 0 && i + tail < size && data[i] == ending.front() && data[i + tail] == ending.back()) {
      EndingAt(i, ending, 0, kNone);
    }
  }
  // A line feed at the very end starts no line.
  if (lines > 0 && lineStarts_[lines - 1] == size) --lines;
  applies_ = !nul;
}

// The pass for ranges: the line feeds ahead of every place where a line begins with
// "[" and of the first place of each name, whether a NUL or a long line is anywhere.
// Blocks are looked at by 64-byte vectors while the ending's last byte can be read
// behind them, and the rest byte by byte, or all of it byte by byte.
void SectionFinder::ScanRanges(std::string_view ending, bool vector) {
  const char* data = text_.data();
  const std::size_t size = text_.size();
  const std::size_t tail = ending.size() - 1;
  bracketStarts_.clear();
  // Mostly one "[" line per section, and a few more.
  bracketStarts_.reserve(2 * names_.size() + 16);
  RangeHit hits[kRangePageBlocks];
  RangeMarks marks{hits};
  std::size_t i = 0;
#if defined(TESSARA_SCAN_X86)
  while (vector && i + kBlock + tail <= size) {
    const Page page{data + i, i, std::min(kRangePageBlocks, (size - tail - i) / kBlock), tail, ending.front(),
                    ending.back()};
    ScanRangePageVector64(page, marks);
    for (std::size_t h = 0; h < marks.hitCount; ++h) {
      const RangeHit& hit = hits[h];
      TakeRangeHit(i + hit.block * kBlock, hit.lines, hit.feeds, hit.brackets, hit.ends, ending);
    }
    i += page.blocks * kBlock;
  }
#else
  (void)vector;
#endif
  // The rest byte by byte, in the same windows.
  std::size_t lines = marks.lines;
  std::size_t windowLines = marks.windowLines;
  bool nul = marks.nul;
  bool longLine = marks.longLine;
  for (; i < size; ++i) {
    const char byte = data[i];
    if (byte == '[' && (i == 0 || data[i - 1] == '\n')) bracketStarts_.push_back({i, lines});
    if (missing_ > 0 && i + tail < size && byte == ending.front() && data[i + tail] == ending.back()) {
      EndingAt(i, ending, lines, kNone);
    }
    lines += byte == '\n' ? 1 : 0;
    nul = nul || byte == '\0';
    if ((i + 1) % kWindow == 0) {
      longLine = longLine || lines == windowLines;
      windowLines = lines;
    }
  }
  totalLines_ = lines;
  applies_ = !nul && !longLine;
}

// A block that the pass listed: its "[" lines and its places of the ending are taken,
// each with the line feeds ahead of it.
void SectionFinder::TakeRangeHit(std::size_t base, std::size_t lines, std::uint64_t feeds, std::uint64_t brackets,
                                 std::uint64_t ends, std::string_view ending) {
  const char* data = text_.data();
  const std::uint64_t starts = (feeds << 1) | (base == 0 || data[base - 1] == '\n' ? 1 : 0);
  for (std::uint64_t open = brackets & starts; open != 0; open &= open - 1) {
    const int bit = std::countr_zero(open);
    const std::uint64_t ahead = (std::uint64_t{1} << bit) - 1;
    bracketStarts_.push_back({base + static_cast<std::size_t>(bit), lines + CountBits(feeds & ahead)});
  }
  for (std::uint64_t end = missing_ > 0 ? ends : 0; end != 0; end &= end - 1) {
    const int bit = std::countr_zero(end);
    const std::uint64_t ahead = (std::uint64_t{1} << bit) - 1;
    // The first line feed behind the ending, when it stands in this block.
    const std::uint64_t behind = feeds & ~ahead;
    EndingAt(base + static_cast<std::size_t>(bit), ending, lines + CountBits(feeds & ahead),
             behind != 0 ? base + static_cast<std::size_t>(std::countr_zero(behind)) : kNone);
  }
}

SectionRange SectionFinder::Range(std::size_t i) const {
  if (!applies_ || !ranges_ || i >= matchStarts_.size() || matchStarts_[i] == kNone) return {};
  // The section begins with the line behind the one that holds the name, and ends at
  // the first line behind that which begins with "[".
  const std::size_t feed = matchFeeds_[i] != kNone ? matchFeeds_[i] : text_.find('\n', matchStarts_[i]);
  if (feed == std::string_view::npos) return {text_.size(), text_.size(), 0};
  SectionRange range;
  range.begin = feed + 1;
  const std::size_t linesAhead = matchLines_[i] + 1;
  auto bracket = std::lower_bound(bracketStarts_.begin(), bracketStarts_.end(), range.begin,
                                  [](const Place& place, std::size_t position) { return place.position < position; });
  range.end = bracket == bracketStarts_.end() ? text_.size() : bracket->position;
  range.lines = (bracket == bracketStarts_.end() ? totalLines_ : bracket->lines) - linesAhead;
  return range;
}

std::size_t SectionFinder::StoredLines(const SectionRange& range) const {
  std::size_t kept = 0;
  std::size_t dropped = 0;
  CountStored(range, text_.size(), text_.size(), kept, dropped);
  return kept;
}

bool SectionFinder::MoreStoredLinesThan(const SectionRange& range, std::size_t limit) const {
  if (range.lines <= limit) return false;
  std::size_t kept = 0;
  std::size_t dropped = 0;
  CountStored(range, limit, range.lines - limit, kept, dropped);
  return kept > limit;
}

void SectionFinder::CountStored(const SectionRange& range, std::size_t keptLimit, std::size_t droppedLimit,
                                std::size_t& kept, std::size_t& dropped) const {
  if (!applies_ || !ranges_ || range.begin >= range.end || range.end > text_.size()) return;
  // Only lines that a line feed ends count: those up to the range's last line feed.
  const char* data = text_.data();
  const void* lastFeed = memrchr(data + range.begin, '\n', range.end - range.begin);
  if (lastFeed == nullptr) return;
  const std::size_t end = static_cast<std::size_t>(static_cast<const char*>(lastFeed) - data) + 1;
  std::size_t at = range.begin;
#if defined(TESSARA_SCAN_X86)
  if (vector_) at = CountStoredVector64(data, range.begin, end, keptLimit, droppedLimit, kept, dropped);
#endif
  for (; at < end && kept <= keptLimit && dropped < droppedLimit; ++at) {
    if (at != 0 && data[at - 1] != '\n') continue;
    if (StoredLineAt(data, at)) {
      ++kept;
    } else {
      ++dropped;
    }
  }
}

void SectionFinder::MakeLineRoom(std::size_t room) {
  std::unique_ptr<std::size_t[]> larger(new std::size_t[room]);
  if (lineCount_ > 0) std::memcpy(larger.get(), lineStarts_.get(), lineCount_ * sizeof(std::size_t));
  lineStarts_ = std::move(larger);
  lineRoom_ = room;
}

// The ending may stand at `position`: every name not yet found that ends there is
// found, when it lies within one chunk of its line.
void SectionFinder::EndingAt(std::size_t position, std::string_view ending, std::size_t lines, std::size_t feed) {
  if (!SameBytes(text_.data() + position, ending.data(), ending.size())) return;
  // Only names with the byte that stands before the ending here, and a name that is the
  // ending alone, can end here.
  if (position > 0) {
    FindNamesEndingAt(position, ending, static_cast<unsigned char>(text_[position - 1]), lines, feed);
  }
  FindNamesEndingAt(position, ending, kEndingAlone, lines, feed);
}

void SectionFinder::FindNamesEndingAt(std::size_t position, std::string_view ending, std::size_t group,
                                      std::size_t lines, std::size_t feed) {
  const std::size_t end = position + ending.size();
  for (std::uint32_t at = groupStarts_[group]; at < groupEnds_[group];) {
    const std::size_t n = groupOrder_[at];
    const std::string_view name = names_[n];
    const std::size_t start = end - name.size();
    if (name.size() > end || text_[start] != name.front() ||
        !SameBytes(text_.data() + start, name.data(), name.size() - ending.size())) {
      ++at;
      continue;
    }
    // A name holds no line feed, so it stands within one line, whose start is known by
    // now; the chunks of a line begin every kChunkSize characters of it. Ranges serve
    // only files whose lines are chunks.
    if (!ranges_) {
      const std::size_t lineStart = lineStarts_[LineOf(start)];
      if ((start - lineStart) / kChunkSize != (end - 1 - lineStart) / kChunkSize) {
        ++at;
        continue;
      }
    }
    matchStarts_[n] = start;
    if (ranges_) {
      matchLines_[n] = lines;
      matchFeeds_[n] = feed;
    }
    --missing_;
    // A name found is looked for no more: the group's last one not found takes its place.
    std::swap(groupOrder_[at], groupOrder_[--groupEnds_[group]]);
  }
}

std::size_t SectionFinder::LineOf(std::size_t position) const {
  const std::size_t* starts = lineStarts_.get();
  return static_cast<std::size_t>(std::upper_bound(starts, starts + lineCount_, position) - starts) - 1;
}

}  // namespace tessara
