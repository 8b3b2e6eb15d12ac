#ifndef TESSARA_PANELS_FRAMEWORK_ROW_TABLE_H_
#define TESSARA_PANELS_FRAMEWORK_ROW_TABLE_H_

#include <string>
#include <string_view>
#include <vector>

namespace tessara {

// The value of one section line split at ";". Cell 0 is the row's caption and
// identity. Cells behind the last one are absent; an absent cell reads as empty text,
// so a layout that names more cells than a row holds never reads past the row.
class PanelRow {
 public:
  bool IsEmpty() const { return cells_.empty(); }
  int CellCount() const { return static_cast<int>(cells_.size()); }
  bool HasCell(int index) const { return index >= 0 && index < CellCount(); }
  const std::string& Cell(int index) const;
  const std::vector<std::string>& Cells() const { return cells_; }

  void SetCells(std::vector<std::string> cells) { cells_ = std::move(cells); }
  void Clear() { cells_.clear(); }

 private:
  std::vector<std::string> cells_;
};

// A panel's table of rows: row r holds section line r, row 0 stays empty.
class RowTable {
 public:
  explicit RowTable(int rows = 0) : rows_(static_cast<std::size_t>(rows < 0 ? 0 : rows)) {}

  int RowCount() const { return static_cast<int>(rows_.size()); }
  // Row `index`; an index outside the table gives an empty row.
  const PanelRow& Row(int index) const;
  PanelRow& MutableRow(int index) { return rows_.at(static_cast<std::size_t>(index)); }
  void Clear();

  // The first row from `firstRow` on whose cell 0 is present and equals `caption`
  // without regard to case; row 0 when none does.
  int FindRowByCaption(std::string_view caption, int firstRow = 1) const;

 private:
  std::vector<PanelRow> rows_;
};

}  // namespace tessara

#endif  // TESSARA_PANELS_FRAMEWORK_ROW_TABLE_H_
