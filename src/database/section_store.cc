#include "database/section_store.h"

#include "core/section_finder.h"

namespace tessara {

std::size_t SectionStore::AdoptText(std::string text) {
  if (!text_.empty()) return AppendText(text);
  text_ = std::move(text);
  return 0;
}

std::size_t SectionStore::AppendText(std::string_view text) {
  std::size_t offset = text_.size();
  text_.append(text);
  return offset;
}

SectionStore::RowWriter::RowWriter(SectionStore& store, std::size_t k)
    : store_(store), k_(k), valid_(k < kRows), textSize_(store.text_.size()) {
  if (!valid_) return;
  RowSpans& row = store_.rows_[k];
  if (row.pending) store_.Cut(row);
  if (row.count == 0) {
    row.first = store_.spans_.size();
  } else if (row.first + row.count != store_.spans_.size()) {
    store_.MoveRowToEnd(row);
  }
}

SectionStore::RowWriter::~RowWriter() {
  if (valid_) store_.rows_[k_].count = store_.spans_.size() - store_.rows_[k_].first;
}

void SectionStore::MoveRowToEnd(RowSpans& row) {
  std::size_t moved = spans_.size();
  for (std::size_t i = 0; i < row.count; ++i) spans_.push_back(spans_[row.first + i]);
  row.first = moved;
}

void SectionStore::AddPendingRow(std::size_t k, std::size_t begin, std::size_t end, std::size_t stored) {
  if (k >= kRows || begin > end || end > text_.size() || stored > end - begin) return;
  RowSpans& row = rows_[k];
  row = RowSpans();
  row.first = spans_.size();
  row.count = stored;
  row.pending = true;
  row.pendingBegin = begin;
  row.pendingEnd = end;
  spans_.resize(spans_.size() + stored);
}

void SectionStore::Cut(RowSpans& row) const {
  row.pending = false;
  std::size_t cut = 0;
  ForEachLineBetween(text_, row.pendingBegin, row.pendingEnd, [&](std::size_t offset, std::string_view line) {
    if (!IsStoredLine(line) || cut == row.count) return;
    spans_[row.first + cut++] = {offset, line.size()};
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
  if (k >= kRows || rows_[k].count == 0) return Row(text_, nullptr, 0);
  return Row(text_, spans_.data() + rows_[k].first, rows_[k].count);
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
