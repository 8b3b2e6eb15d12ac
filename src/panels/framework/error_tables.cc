#include "panels/framework/error_tables.h"

namespace tessara {

namespace {

const std::string kAbsent;

std::vector<std::string_view> SplitDroppingEmpty(std::string_view text, char separator,
                                                 std::size_t limit) {
  std::vector<std::string_view> pieces;
  while (pieces.size() < limit) {
    std::size_t at = text.find(separator);
    std::string_view piece = text.substr(0, at);
    if (!piece.empty()) pieces.push_back(piece);
    if (at == std::string_view::npos) break;
    text.remove_prefix(at + 1);
  }
  return pieces;
}

}  // namespace

void ErrorTable::Load(std::string_view value) {
  rows_.clear();
  for (std::string_view rowText : SplitDroppingEmpty(value, ';', kErrorTableRows)) {
    std::vector<std::string> cells;
    for (std::string_view cell : SplitDroppingEmpty(rowText, ',', kErrorTableCells)) {
      cells.emplace_back(cell.substr(0, kErrorCellLength));
    }
    rows_.push_back(std::move(cells));
  }
}

bool ErrorTable::HasCell(int row, int cell) const {
  return row >= 0 && row < RowCount() && cell >= 0 &&
         cell < static_cast<int>(rows_[static_cast<std::size_t>(row)].size());
}

const std::string& ErrorTable::Cell(int row, int cell) const {
  if (!HasCell(row, cell)) return kAbsent;
  return rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(cell)];
}

}  // namespace tessara
