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
// Bytes are looked at in blocks of 64, one bit of a mask per byte, and blocks in pages.
constexpr std::size_t kBlock = 64;
constexpr std::size_t kPageBlocks = 64;
// Room for line starts is made for about one line in this many bytes at first.
constexpr std::size_t kBytesPerLineGuess = 32;

std::string_view CommonEnding(const std::vector<std::string_view>& names) {
  std::size_t common = names[0].size();
  for (std::string_view name : names) {
    std::size_t same = 0;
    while (same < common && same < name.size() &&
           name[name.size() - 1 - same] == names[0][names[0].size() - 1 - same]) {
      ++same;
    }
    common = same;
  }
  return names[0].substr(names[0].size() - common);
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

// One page of blocks for the ranges, as Page: for each block, the bits of the places
// where a stored line begins and the count of such places ahead of the block, the
// places of the ending, and the places where a line begins with "["; `hits` lists the
// blocks with a place of either of the last two. `carry` is 1 when a line begins at the
// page's first byte; `feedless` counts the blocks without a line feed that run into the
// page.
struct RangeMarks {
  std::uint64_t* stored;
  std::uint32_t* before;
  std::uint64_t* ends;
  std::uint64_t* opens;
  std::uint32_t* hits;
  std::size_t hitCount = 0;
  std::uint64_t carry = 1;
  std::size_t feedless = 0;
  std::uint32_t count = 0;
  bool nul = false;
  bool longLine = false;
};

// Ranges serve a file whose lines are chunks. A line of a chunk's length holds this
// many whole blocks without a line feed; a file where no such run of blocks stands has
// only lines of fewer than (kLongRun + 2) * 64 characters, well within a chunk.
constexpr std::size_t kLongRun = 15;
static_assert((kLongRun + 2) * 64 < kChunkSize);

#if defined(TESSARA_SCAN_X86)
// Marks, for each block, where lines begin that the comment rule keeps (not at a line
// feed, a CR LF, a "/" or a "/" behind it) and where lines begin with "[", and the
// places of the ending as ScanPageVector64 does. Reads one byte behind each block.
__attribute__((target("avx512bw,popcnt,bmi"))) void ScanRangePageVector64(const Page& page, RangeMarks& marks) {
  const __m512i feed = _mm512_set1_epi8('\n');
  const __m512i slash = _mm512_set1_epi8('/');
  const __m512i cr = _mm512_set1_epi8('\r');
  const __m512i bracket = _mm512_set1_epi8('[');
  const __m512i first = _mm512_set1_epi8(page.first);
  const __m512i last = _mm512_set1_epi8(page.last);
  __m512i least = _mm512_set1_epi8(-1);
  std::uint64_t* const stored = marks.stored;
  std::uint32_t* const before = marks.before;
  std::uint64_t* const ends = marks.ends;
  std::uint64_t* const opens = marks.opens;
  std::uint32_t* const hits = marks.hits;
  std::size_t hitCount = 0;
  std::uint64_t carry = marks.carry;
  std::size_t feedless = marks.feedless;
  std::size_t longestRun = 0;
  std::uint32_t count = marks.count;
  const char* data = page.data;
  for (std::size_t b = 0; b < page.blocks; ++b, data += kBlock) {
    const __m512i bytes = _mm512_loadu_si512(data);
    const __m512i behind = _mm512_loadu_si512(data + page.tail);
    least = _mm512_min_epu8(least, bytes);
    const std::uint64_t feeds = _mm512_cmpeq_epi8_mask(bytes, feed);
    const std::uint64_t slashes = _mm512_cmpeq_epi8_mask(bytes, slash);
    // What stands one byte further on: the block's own marks moved down, and the byte
    // behind the block for the last place.
    const std::uint64_t behindByte = static_cast<unsigned char>(data[kBlock]);
    const std::uint64_t slashesNext = (slashes >> 1) | (static_cast<std::uint64_t>(behindByte == '/') << 63);
    const std::uint64_t feedsNext = (feeds >> 1) | (static_cast<std::uint64_t>(behindByte == '\n') << 63);
    const std::uint64_t starts = (feeds << 1) | carry;
    carry = feeds >> 63;
    const std::uint64_t dropped =
        feeds | slashes | slashesNext | (_mm512_cmpeq_epi8_mask(bytes, cr) & feedsNext);
    const std::uint64_t kept = starts & ~dropped;
    stored[b] = kept;
    before[b] = count;
    count += static_cast<std::uint32_t>(__builtin_popcountll(kept));
    const std::uint64_t end = _mm512_cmpeq_epi8_mask(bytes, first) & _mm512_cmpeq_epi8_mask(behind, last);
    const std::uint64_t open = starts & _mm512_cmpeq_epi8_mask(bytes, bracket);
    ends[b] = end;
    opens[b] = open;
    hits[hitCount] = static_cast<std::uint32_t>(b);
    hitCount += (end | open) != 0 ? 1 : 0;
    feedless = feeds != 0 ? 0 : feedless + 1;
    longestRun = std::max(longestRun, feedless);
  }
  marks.hitCount = hitCount;
  marks.carry = carry;
  marks.feedless = feedless;
  marks.count = count;
  marks.longLine = marks.longLine || longestRun >= kLongRun;
  marks.nul = marks.nul || _mm512_cmpeq_epi8_mask(least, _mm512_setzero_si512()) != 0;
}
#endif

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
  if (sections.empty()) return;
  if (ranges_) {
    // The counts of stored lines are kept in 32 bits.
    if (text_.size() >= (std::size_t{1} << 31)) return;
    // Byte by byte, ranges cost more than lines: the widest way serves only with vectors.
    if (width == ScanWidth::kWidest) width = ScanWidth::kVector64;
    if (width != ScanWidth::kPlain && !(width == ScanWidth::kVector64 && Supports(width))) return;
  }
  names_.reserve(sections.size());
  for (const std::string& section : sections) {
    // The reading loop holds a name as a C string: up to its first NUL.
    std::string_view name(section.c_str());
    if (name.empty()) return;
    for (char c : name) {
      if (c == '\r' || c == '\n') return;
    }
    names_.push_back(name);
  }
  const std::string_view ending = CommonEnding(names_);
  if (ending.empty()) return;
  GroupNames(ending);
  if (ranges_) {
    ScanRanges(ending, width == ScanWidth::kVector64);
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
  std::array<std::size_t, kNameGroups> next;
  std::copy(groupStarts_.begin(), groupStarts_.end() - 1, next.begin());
  for (std::size_t n = 0; n < names_.size(); ++n) groupOrder_[next[groupOf(names_[n])]++] = n;
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
        EndingAt(i + b * kBlock + static_cast<std::size_t>(std::countr_zero(end)), ending);
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
      EndingAt(i, ending);
    }
  }
  // A line feed at the very end starts no line.
  if (lines > 0 && lineStarts_[lines - 1] == size) --lines;
  applies_ = !nul;
}

// The pass for ranges: where stored lines and "[" lines begin, whether a NUL or a long
// line is anywhere, and where each name first stands. Blocks are looked at by 64-byte
// vectors while a byte behind the block and the ending's last byte can be read, and the
// rest byte by byte, or all of it byte by byte.
void SectionFinder::ScanRanges(std::string_view ending, bool vector) {
  const char* data = text_.data();
  const std::size_t size = text_.size();
  const std::size_t tail = ending.size() - 1;
  const std::size_t blocks = size / kBlock + 1;
  storedStarts_.reset(new std::uint64_t[blocks]);
  storedBefore_.reset(new std::uint32_t[blocks]);
  bracketStarts_.clear();
  std::uint64_t ends[kPageBlocks];
  std::uint64_t opens[kPageBlocks];
  std::uint32_t hits[kPageBlocks];
  RangeMarks marks{storedStarts_.get(), storedBefore_.get(), ends, opens, hits};
  std::size_t i = 0;
#if defined(TESSARA_SCAN_X86)
  const std::size_t behind = std::max<std::size_t>(tail, 1);
  while (vector && i + kBlock + behind <= size) {
    const Page page{data + i, i, std::min(kPageBlocks, (size - behind - i) / kBlock), tail, ending.front(),
                    ending.back()};
    marks.stored = storedStarts_.get() + i / kBlock;
    marks.before = storedBefore_.get() + i / kBlock;
    ScanRangePageVector64(page, marks);
    for (std::size_t h = 0; h < marks.hitCount; ++h) {
      const std::size_t b = hits[h];
      for (std::uint64_t open = opens[b]; open != 0; open &= open - 1) {
        bracketStarts_.push_back(i + b * kBlock + static_cast<std::size_t>(std::countr_zero(open)));
      }
      for (std::uint64_t end = missing_ > 0 ? ends[b] : 0; end != 0; end &= end - 1) {
        EndingAt(i + b * kBlock + static_cast<std::size_t>(std::countr_zero(end)), ending);
      }
    }
    i += page.blocks * kBlock;
  }
#else
  (void)vector;
#endif
  // The rest byte by byte, into blocks of their own.
  const std::size_t firstLeft = i / kBlock;
  std::fill(storedStarts_.get() + firstLeft, storedStarts_.get() + blocks, 0);
  std::size_t feedless = marks.feedless;
  bool nul = marks.nul;
  bool longLine = marks.longLine;
  bool blockFed = false;
  for (; i < size; ++i) {
    const char byte = data[i];
    const char next = i + 1 < size ? data[i + 1] : '\0';
    if (i == 0 || data[i - 1] == '\n') {
      const bool dropped = byte == '\n' || byte == '/' || next == '/' || (byte == '\r' && next == '\n');
      if (!dropped) storedStarts_[i / kBlock] |= std::uint64_t{1} << (i % kBlock);
      if (byte == '[') bracketStarts_.push_back(i);
    }
    blockFed = blockFed || byte == '\n';
    if (i % kBlock == kBlock - 1) {
      // The runs of whole blocks without a line feed, counted as the vectors count them.
      feedless = blockFed ? 0 : feedless + 1;
      longLine = longLine || feedless >= kLongRun;
      blockFed = false;
    }
    nul = nul || byte == '\0';
    if (missing_ > 0 && i + tail < size && byte == ending.front() && data[i + tail] == ending.back()) {
      EndingAt(i, ending);
    }
  }
  // A last line that no line feed ends is no line: the counts from its block on are
  // made again.
  const void* lastFeed = size > 0 ? memrchr(data, '\n', size) : nullptr;
  const std::size_t lineStart =
      lastFeed == nullptr ? 0 : static_cast<std::size_t>(static_cast<const char*>(lastFeed) - data) + 1;
  std::size_t recount = firstLeft;
  if (lineStart < size) {
    storedStarts_[lineStart / kBlock] &= ~(std::uint64_t{1} << (lineStart % kBlock));
    recount = std::min(recount, lineStart / kBlock);
  }
  std::uint32_t stored = recount < firstLeft ? storedBefore_[recount] : marks.count;
  for (std::size_t b = recount; b < blocks; ++b) {
    storedBefore_[b] = stored;
    stored += static_cast<std::uint32_t>(std::popcount(storedStarts_[b]));
  }
  applies_ = !nul && !longLine;
}

std::size_t SectionFinder::StoredBefore(std::size_t position) const {
  const std::size_t block = position / kBlock;
  const std::uint64_t ahead = (std::uint64_t{1} << (position % kBlock)) - 1;
  return storedBefore_[block] + static_cast<std::size_t>(std::popcount(storedStarts_[block] & ahead));
}

SectionRange SectionFinder::Range(std::size_t i) const {
  if (!applies_ || !ranges_ || i >= matchStarts_.size() || matchStarts_[i] == kNone) return {};
  // The section begins with the line behind the one that holds the name, and ends at
  // the first line behind that which begins with "[".
  const std::size_t feed = text_.find('\n', matchStarts_[i]);
  if (feed == std::string_view::npos) return {text_.size(), text_.size(), 0};
  SectionRange range;
  range.begin = feed + 1;
  auto bracket = std::lower_bound(bracketStarts_.begin(), bracketStarts_.end(), range.begin);
  range.end = bracket == bracketStarts_.end() ? text_.size() : *bracket;
  range.stored = StoredBefore(range.end) - StoredBefore(range.begin);
  return range;
}

void SectionFinder::MakeLineRoom(std::size_t room) {
  std::unique_ptr<std::size_t[]> larger(new std::size_t[room]);
  if (lineCount_ > 0) std::memcpy(larger.get(), lineStarts_.get(), lineCount_ * sizeof(std::size_t));
  lineStarts_ = std::move(larger);
  lineRoom_ = room;
}

// The ending may stand at `position`: every name not yet found that ends there is
// found, when it lies within one chunk of its line.
void SectionFinder::EndingAt(std::size_t position, std::string_view ending) {
  if (std::memcmp(text_.data() + position, ending.data(), ending.size()) != 0) return;
  // Only names with the byte that stands before the ending here, and a name that is the
  // ending alone, can end here.
  if (position > 0) FindNamesEndingAt(position, ending, static_cast<unsigned char>(text_[position - 1]));
  FindNamesEndingAt(position, ending, kEndingAlone);
}

void SectionFinder::FindNamesEndingAt(std::size_t position, std::string_view ending, std::size_t group) {
  const std::size_t end = position + ending.size();
  for (std::size_t at = groupStarts_[group]; at < groupStarts_[group + 1]; ++at) {
    const std::size_t n = groupOrder_[at];
    const std::string_view name = names_[n];
    if (matchStarts_[n] != kNone || name.size() > end) continue;
    const std::size_t start = end - name.size();
    if (std::memcmp(text_.data() + start, name.data(), name.size() - ending.size()) != 0) continue;
    // A name holds no line feed, so it stands within one line, whose start is known by
    // now; the chunks of a line begin every kChunkSize characters of it. Ranges serve
    // only files whose lines are chunks.
    if (!ranges_) {
      const std::size_t lineStart = lineStarts_[LineOf(start)];
      if ((start - lineStart) / kChunkSize != (end - 1 - lineStart) / kChunkSize) continue;
    }
    matchStarts_[n] = start;
    --missing_;
  }
}
std::size_t SectionFinder::LineOf(std::size_t position) const {
  const std::size_t* starts = lineStarts_.get();
  return static_cast<std::size_t>(std::upper_bound(starts, starts + lineCount_, position) - starts) - 1;
}

}  // namespace tessara
