#include "pages/parameter_list.h"

#include "core/text.h"

namespace tessara {

void ParameterList::DeleteAllRows() {
  rows_.clear();
  highlightRow_ = -1;
  visibleRow_ = -1;
}

int ParameterList::AppendRow(std::string parameter, std::string comment) {
  rows_.push_back(Row{std::move(parameter), std::move(comment)});
  return static_cast<int>(rows_.size()) - 1;
}

int ParameterList::FindRowStartingWith(std::string_view prefix) const {
  if (prefix.empty()) return -1;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (StartsWithNoCase(rows_[i].parameter, prefix)) return static_cast<int>(i);
  }
  return -1;
}

void ParameterList::SetHighlightRow(int row) {
  highlightRow_ = row;
  if (row >= 0 && row < RowCount()) highlightText_ = rows_[static_cast<std::size_t>(row)].parameter;
}

CellColours ParameterList::PaintCell(int row) {
  lastDrawnRow_ = row;
  std::string_view text;
  if (row >= 0 && row < RowCount()) text = rows_[static_cast<std::size_t>(row)].parameter;
  return colours_.ForRow(text, highlightText_);
}

void ParameterList::Click(int row) {
  if (row >= 0 && row < RowCount()) {
    highlightText_ = rows_[static_cast<std::size_t>(row)].parameter;
  } else {
    highlightText_.clear();
  }
}

void ParameterList::LoseFocus() {
  if (lastDrawnRow_ >= 0 && lastDrawnRow_ < RowCount()) {
    highlightText_ = rows_[static_cast<std::size_t>(lastDrawnRow_)].parameter;
  } else {
    highlightText_.clear();
  }
}

}  // namespace tessara
