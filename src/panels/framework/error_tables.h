#ifndef TESSARA_PANELS_FRAMEWORK_ERROR_TABLES_H_
#define TESSARA_PANELS_FRAMEWORK_ERROR_TABLES_H_

#include <string>
#include <string_view>
#include <vector>

namespace tessara {

inline constexpr int kErrorTableRows = 60;
inline constexpr int kErrorTableCells = 60;
inline constexpr int kErrorCellLength = 199;
inline constexpr int kErrorReportRows = 100;

// One of a panel's three tables of error rows: cell 0 the parameter name, cell 1 the
// field name, cells 2 on the report texts. Cells that the data left out are absent
// and read as empty text.
class ErrorTable {
 public:
  // Fills the table from an Error_ line's value: rows separated by ";", cells by ",",
  // empty rows and empty cells dropped, at most 60 of each, cells cut to 199 characters.
  void Load(std::string_view value);
  void Clear() { rows_.clear(); }

  int RowCount() const { return static_cast<int>(rows_.size()); }
  const std::string& Cell(int row, int cell) const;
  bool HasCell(int row, int cell) const;

 private:
  std::vector<std::vector<std::string>> rows_;
};

// The page's report of bad fields: up to 100 rows, cells at the places they had in
// the error table (2 the code, 3 the description, 4 the help text, ...).
struct ErrorReport {
  std::vector<std::vector<std::string>> rows;  // each row holds kErrorTableCells cells

  void Clear() { rows.clear(); }
  bool Full() const { return static_cast<int>(rows.size()) >= kErrorReportRows; }
  int Count() const { return static_cast<int>(rows.size()); }
};

}  // namespace tessara

#endif  // TESSARA_PANELS_FRAMEWORK_ERROR_TABLES_H_
