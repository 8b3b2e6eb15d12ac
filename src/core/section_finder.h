#ifndef TESSARA_CORE_SECTION_FINDER_H_
#define TESSARA_CORE_SECTION_FINDER_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/text.h"

namespace tessara {

// Finds the sections of many names in a data file's text as it was read, with the rule
// of a fresh read for each (a name is a plain substring of one chunk, the section ends
// at a chunk that begins with "["), but without cutting the file into chunks first: a
// group load finds all its sections in one pass over the bytes and keeps the lines as
// places in the text it read. The lines of a section are those of
// ChunkedText::ReadSections for the same name, cut at their line feeds.
//
// The search does not apply, and the chunked search must be used, to a text that holds
// a NUL byte (a chunk's text stops there), to a name that is empty up to its first NUL
// or holds a CR or a line feed, or to names that share no ending.
// How the bytes are looked at: by plain code, 16, 32 or 64 at a time by the processor's
// vector instructions, or the widest way the processor has. Every way finds the same.
enum class ScanWidth { kPlain, kVector16, kVector32, kVector64, kWidest };

// The comment rule of a section's lines: a line is stored unless it is empty or has "/"
// as its first or its second character.
inline bool IsStoredLine(std::string_view line) {
  const char first = line.empty() ? '/' : line[0];
  const char second = line.size() > 1 ? line[1] : ' ';
  return (first != '/') & (second != '/');
}

// Where one section's lines lie in the text: the lines from `begin` up to `end`, every
// one of them ended by a line feed except perhaps a last one, which is no line; `lines`
// of them a line feed ends. A section that was not found has no lines.
struct SectionRange {
  std::size_t begin = 0;
  std::size_t end = 0;
  std::size_t lines = 0;
};

// Calls visit(offset, line) for each line of text[begin, end) that a line feed ends:
// the line without its line feed and without the CR of a CR LF.
template <typename Visit>
void ForEachLineBetween(std::string_view text, std::size_t begin, std::size_t end, Visit&& visit) {
  for (std::size_t start = begin; start < end;) {
    const std::size_t feed = text.find('\n', start);
    if (feed == std::string_view::npos || feed >= end) return;
    const std::size_t contentEnd = feed > start && text[feed - 1] == '\r' ? feed - 1 : feed;
    visit(start, text.substr(start, contentEnd - start));
    start = feed + 1;
  }
}

class SectionFinder {
 public:
  // What the finder gives: each section's lines, or where each section lies (for a
  // store that cuts the lines when they are first read).
  enum class Yield { kLines, kRanges };

  // `text` must outlive the finder. A name is read up to its first NUL, as the
  // reading loop holds it as a C string.
  SectionFinder(std::string_view text, const std::vector<std::string>& sections,
                ScanWidth width = ScanWidth::kWidest, Yield yield = Yield::kLines);
  // The same for names that someone else keeps for as long as the finder lives.
  static SectionFinder OverViews(std::string_view text, const std::vector<std::string_view>& sections,
                                 ScanWidth width = ScanWidth::kWidest, Yield yield = Yield::kLines) {
    return SectionFinder(text, sections, width, yield, 0);
  }

  // Whether this processor can look at the bytes in that way.
  static bool Supports(ScanWidth width);

  // Whether the finder serves this text and these names. Ranges serve fewer texts than
  // lines: they need the processor's 64-byte vectors, and a file whose lines all fit
  // in one chunk, so that a line and a chunk are one.
  bool Applies() const { return applies_; }
  // The lines of the whole text: no section has more. (Lines only.)
  std::size_t LineCount() const { return lineCount_; }
  // Where section i lies; its lines are those ForEachLineBetween gives. (Ranges only.)
  SectionRange Range(std::size_t i) const;
  // How many lines of a range the comment rule keeps (IsStoredLine). (Ranges only.)
  std::size_t StoredLines(const SectionRange& range) const;
  // Whether the comment rule keeps more than `limit` lines of a range: the lines are
  // looked at only until that is known. (Ranges only.)
  bool MoreStoredLinesThan(const SectionRange& range, std::size_t limit) const;

  // Calls visit(offset, length) for each line of section i's text that a line feed
  // ends, in order: `length` bytes of the text from `offset`, without the line feed and
  // without the CR of a CR LF.
  template <typename Visit>
  void ForEachLine(std::size_t i, Visit&& visit) const;

 private:
  // One line of the file as text mode reads it.
  struct TextLine {
    std::size_t start;
    std::size_t contentEnd;  // behind its last character, before its CR LF or LF
    bool fed;                // a line feed ends it
    // Its length as read: the CR of a CR LF does not count, the line feed does.
    std::size_t Length() const { return contentEnd - start + (fed ? 1 : 0); }
  };

  SectionFinder(std::string_view text, const std::vector<std::string_view>& sections, ScanWidth width,
                Yield yield, int);
  void Find(const std::vector<std::string_view>& sections, ScanWidth width);

  template <typename Scanner>
  void Scan(std::string_view ending, Scanner scanPage);
  void ScanRanges(std::string_view ending, bool vector);
  // Takes what the block of 64 bytes at `base`, with `lines` line feeds ahead of it,
  // holds for the ranges: its marks of line feeds, "[" and places of the ending.
  void TakeRangeHit(std::size_t base, std::size_t lines, std::uint64_t feeds, std::uint64_t brackets,
                    std::uint64_t ends, std::string_view ending);
  // Counts the lines of a range that the comment rule keeps and drops, until more than
  // `keptLimit` are kept or `droppedLimit` are dropped.
  void CountStored(const SectionRange& range, std::size_t keptLimit, std::size_t droppedLimit, std::size_t& kept,
                   std::size_t& dropped) const;
  void GroupNames(std::string_view ending);
  // `lines`: the line feeds ahead of `position`, `feed`: the first line feed behind it
  // where known, else npos (ranges only).
  void EndingAt(std::size_t position, std::string_view ending, std::size_t lines, std::size_t feed);
  void FindNamesEndingAt(std::size_t position, std::string_view ending, std::size_t group, std::size_t lines,
                         std::size_t feed);
  std::size_t LineOf(std::size_t position) const;
  TextLine Line(std::size_t index) const {
    TextLine line;
    line.start = lineStarts_[index];
    std::size_t next = index + 1 < lineCount_ ? lineStarts_[index + 1] : text_.size();
    line.fed = text_[next - 1] == '\n';
    std::size_t end = line.fed ? next - 1 : next;
    line.contentEnd = (line.fed && end > line.start && text_[end - 1] == '\r') ? end - 1 : end;
    return line;
  }
  // Reports `line` from its chunk at `from` on. False when the section ends there: one
  // of those chunks begins with "[" (the text before it is then a last line without a
  // line feed, which is no line), or no line feed ends it.
  template <typename Visit>
  bool ReportLine(const TextLine& line, std::size_t from, Visit& visit) const;

  std::string_view text_;
  bool applies_ = false;
  std::vector<std::string_view> names_;
  // Names grouped by the byte before the common ending (group 256: a name that is the
  // ending alone): groupOrder_[groupStarts_[g] .. groupStarts_[g + 1]) are group g's,
  // those up to groupEnds_[g] not found yet.
  static constexpr std::size_t kEndingAlone = 256;
  static constexpr std::size_t kNameGroups = 257;
  std::array<std::uint32_t, kNameGroups + 1> groupStarts_{};
  std::array<std::uint32_t, kNameGroups> groupEnds_{};
  std::vector<std::uint32_t> groupOrder_;
  // Where each line starts: the scan writes ahead of the count, into room it makes
  // without filling it first.
  void MakeLineRoom(std::size_t room);
  std::unique_ptr<std::size_t[]> lineStarts_;
  std::size_t lineCount_ = 0;
  std::size_t lineRoom_ = 0;
  std::vector<std::size_t> matchStarts_;  // where name i first stands in one chunk, or npos
  std::size_t missing_ = 0;               // names not found yet

  // Ranges: where each name first stands, the line feeds ahead of it; each place where
  // a line begins with "[", in order, with the line feeds ahead of it; the line feeds of
  // the whole text.
  struct Place {
    std::size_t position;
    std::size_t lines;
  };
  bool ranges_ = false;
  bool vector_ = false;
  std::vector<std::size_t> matchLines_;
  std::vector<std::size_t> matchFeeds_;  // the first line feed behind the name, or npos
  std::vector<Place> bracketStarts_;
  std::size_t totalLines_ = 0;
};

template <typename Visit>
bool SectionFinder::ReportLine(const TextLine& line, std::size_t from, Visit& visit) const {
  for (std::size_t chunk = from; chunk < line.Length(); chunk += kChunkSize) {
    if (line.start + chunk < line.contentEnd && text_[line.start + chunk] == '[') return false;
  }
  if (!line.fed) return false;
  visit(line.start + from, line.contentEnd - line.start - from);
  return true;
}

template <typename Visit>
void SectionFinder::ForEachLine(std::size_t i, Visit&& visit) const {
  if (!applies_ || i >= matchStarts_.size() || matchStarts_[i] == std::string_view::npos) return;
  // The section begins with the chunk behind the one that holds the name.
  std::size_t index = LineOf(matchStarts_[i]);
  const TextLine line = Line(index);
  const std::size_t from = ((matchStarts_[i] - line.start) / kChunkSize + 1) * kChunkSize;
  bool open = from >= line.Length() || ReportLine(line, from, visit);
  // Every line but the file's last ends with a line feed just before the next line's
  // start; a line of one chunk ends the section when it begins with "[".
  const std::size_t last = lineCount_ - 1;
  const std::size_t* starts = lineStarts_.get();
  const char* text = text_.data();
  for (++index; open && index < last; ++index) {
    const std::size_t start = starts[index];
    std::size_t end = starts[index + 1] - 1;
    if (end > start && text[end - 1] == '\r') --end;
    if (end - start >= kChunkSize) {
      open = ReportLine(Line(index), 0, visit);
    } else if (text[start] == '[') {
      open = false;
    } else {
      visit(start, end - start);
    }
  }
  if (open && index == last) ReportLine(Line(last), 0, visit);
}

}  // namespace tessara

#endif  // TESSARA_CORE_SECTION_FINDER_H_
