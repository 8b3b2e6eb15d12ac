#include "panels/framework/row_table.h"

#include "core/text.h"

namespace tessara {

namespace {
const std::string kAbsentCell;
const PanelRow kAbsentRow;
}  // namespace

const std::string& PanelRow::Cell(int index) const {
  return HasCell(index) ? cells_[static_cast<std::size_t>(index)] : kAbsentCell;
}

const PanelRow& RowTable::Row(int index) const {
  if (index < 0 || index >= RowCount()) return kAbsentRow;
  return rows_[static_cast<std::size_t>(index)];
}

void RowTable::Clear() {
  for (PanelRow& row : rows_) row.Clear();
}

int RowTable::FindRowByCaption(std::string_view caption, int firstRow) const {
  for (int r = firstRow < 0 ? 0 : firstRow; r < RowCount(); ++r) {
    const PanelRow& row = rows_[static_cast<std::size_t>(r)];
    if (row.HasCell(0) && EqualsNoCase(row.Cell(0), caption)) return r;
  }
  return 0;
}

}  // namespace tessara
