#include "database/section_store.h"

#include <algorithm>

#include "core/section_finder.h"

namespace tessara {

SectionStore::SectionStore(const SectionStore& other) { *this = other; }

SectionStore& SectionStore::operator=(const SectionStore& other) {
  if (this == &other) return *this;
  text_ = other.text_;
  spans_ = other.spans_;
  for (std::size_t k = 0; k < kRows; ++k) {
    const RowSpans& theirs = other.rows_[k];
    RowSpans& mine = rows_[k];
    mine.first = theirs.first;
    mine.count = theirs.count;
    mine.pending = theirs.pending;
    mine.pendingBegin = theirs.pendingBegin;
    mine.pendingEnd = theirs.pendingEnd;
    mine.room = theirs.room;
    mine.own.reset();
    if (theirs.own) {
      mine.own = std::make_unique_for_overwrite<Span[]>(theirs.count);
      std::copy(theirs.own.get(), theirs.own.get() + theirs.count, mine.own.get());
    }
  }
  return *this;
}

std::size_t SectionStore::AdoptText(TextBuffer&& text) {
  if (!text_.empty()) return AppendText(text.View());
  text_ = std::move(text);
  return 0;
}

std::size_t SectionStore::AppendText(std::string_view text) {
  std::size_t offset = text_.size();
  text_.Append(text);
  return offset;
}

SectionStore::RowWriter::RowWriter(SectionStore& store, std::size_t k)
    : store_(store), k_(k), valid_(k < kRows), textSize_(store.text_.size()) {
  if (!valid_) return;
  RowSpans& row = store_.rows_[k];
  if (row.pending) store_.Cut(row);
  if (row.count == 0) {
    row.own.reset();
    row.first = store_.spans_.size();
  } else if (row.own || row.first + row.count != store_.spans_.size()) {
    store_.MoveRowToEnd(row);
  }
}

SectionStore::RowWriter::~RowWriter() {
  if (valid_) store_.rows_[k_].count = store_.spans_.size() - store_.rows_[k_].first;
}

void SectionStore::MoveRowToEnd(RowSpans& row) {
  std::size_t moved = spans_.size();
  if (row.own) {
    spans_.insert(spans_.end(), row.own.get(), row.own.get() + row.count);
    row.own.reset();
  } else {
    for (std::size_t i = 0; i < row.count; ++i) spans_.push_back(spans_[row.first + i]);
  }
  row.first = moved;
}

void SectionStore::AddPendingRow(std::size_t k, std::size_t begin, std::size_t end, std::size_t room) {
  if (k >= kRows || begin > end || end > text_.size()) return;
  RowSpans& row = rows_[k];
  row = RowSpans();
  row.pending = true;
  row.pendingBegin = begin;
  row.pendingEnd = end;
  // No more lines begin in the range than it has bytes.
  row.room = std::min(room, end - begin);
}

void SectionStore::Cut(RowSpans& row) const {
  row.pending = false;
  row.count = 0;
  if (row.room == 0) return;
  row.own = std::make_unique_for_overwrite<Span[]>(row.room);
  std::size_t cut = 0;
  Span* room = row.own.get();
  ForEachLineBetween(text_.View(), row.pendingBegin, row.pendingEnd, [&](std::size_t offset, std::string_view line) {
    if (!IsStoredLine(line) || cut == row.room) return;
    room[cut++] = {offset, line.size()};
  });
  row.count = cut;
}

void SectionStore::Assign(std::size_t k, const std::vector<std::string>& lines) {
  if (k >= kRows) return;
  rows_[k] = RowSpans();
  for (const std::string& line : lines) AddLine(k, AppendText(line), line.size());
}

SectionStore::Row SectionStore::operator[](std::size_t k) const {
  if (k < kRows && rows_[k].pending) Cut(rows_[k]);
  if (k >= kRows || rows_[k].count == 0) return Row(Text(), nullptr, 0);
  return Row(Text(), LinesOf(rows_[k]), rows_[k].count);
}

bool SectionStore::operator==(const SectionStore& other) const {
  for (std::size_t k = 0; k < kRows; ++k) {
    Row mine = (*this)[k];
    Row theirs = other[k];
    if (mine.size() != theirs.size()) return false;
    for (std::size_t i = 0; i < mine.size(); ++i) {
      if (mine[i] != theirs[i]) return false;
    }
  }
  return true;
}

}  // namespace tessara
