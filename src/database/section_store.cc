#include "database/section_store.h"

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

void SectionStore::MoveRowToEnd(RowSpans& row) {
  std::size_t moved = spans_.size();
  for (std::size_t i = 0; i < row.count; ++i) spans_.push_back(spans_[row.first + i]);
  row.first = moved;
}

void SectionStore::Assign(std::size_t k, const std::vector<std::string>& lines) {
  if (k >= kRows) return;
  rows_[k] = RowSpans();
  for (const std::string& line : lines) AddLine(k, AppendText(line), line.size());
}

SectionStore::Row SectionStore::operator[](std::size_t k) const {
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
