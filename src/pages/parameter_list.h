#ifndef TESSARA_PAGES_PARAMETER_LIST_H_
#define TESSARA_PAGES_PARAMETER_LIST_H_

#include <string>
#include <string_view>
#include <vector>

namespace tessara {

// The two-column list under a page's panel: one row per register setting that the
// shown panel would generate, with its comment. It is a view, never a store: the
// shown panel deletes and rebuilds it on every refresh.
class ParameterList {
 public:
  struct Row {
    std::string parameter;
    std::string comment;
  };

  void DeleteAllRows();
  // Appends a row and returns its index.
  int AppendRow(std::string parameter, std::string comment);
  // The first row whose parameter column begins with `prefix` without regard to case,
  // or -1. An empty prefix names no row.
  int FindRowStartingWith(std::string_view prefix) const;

  // The row that the last change marked; -1 for none.
  int HighlightRow() const { return highlightRow_; }
  void SetHighlightRow(int row) { highlightRow_ = row; }
  // The row that the front-end must scroll into view; -1 for none.
  int VisibleRow() const { return visibleRow_; }
  void EnsureVisible(int row) { visibleRow_ = row; }

  const std::vector<Row>& Rows() const { return rows_; }
  int RowCount() const { return static_cast<int>(rows_.size()); }

 private:
  std::vector<Row> rows_;
  int highlightRow_ = -1;
  int visibleRow_ = -1;
};

}  // namespace tessara

#endif  // TESSARA_PAGES_PARAMETER_LIST_H_
