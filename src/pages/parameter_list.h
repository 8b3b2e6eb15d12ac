#ifndef TESSARA_PAGES_PARAMETER_LIST_H_
#define TESSARA_PAGES_PARAMETER_LIST_H_

#include <string>
#include <string_view>
#include <vector>

#include "pages/parameter_list_colours.h"

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
  // Marks a row: its column-0 text becomes the text that is painted in the focus
  // colours, for as long as rows with that text stand in the list.
  void SetHighlightRow(int row);

  // The column-0 text of the rows to paint in the focus colours. It is a text, not an
  // index: every row with that text is marked, and the mark outlives a rebuild.
  const std::string& HighlightText() const { return highlightText_; }
  void SetHighlightText(std::string text) { highlightText_ = std::move(text); }

  // --- Painting hooks the front-end calls.
  // The colours of a cell of `row`, in either column; remembers the row as the one
  // painted last. A row outside the list paints as an empty valid row.
  CellColours PaintCell(int row);
  int LastDrawnRow() const { return lastDrawnRow_; }
  // The left button went down over `row` (-1 below the last row): that row's text,
  // or none, becomes the mark.
  void Click(int row);
  // The list lost the keyboard focus: the mark moves to the row painted last.
  void LoseFocus();

  // Read once, when the page that owns the list is built.
  ParameterListColours& Colours() { return colours_; }
  const ParameterListColours& Colours() const { return colours_; }
  // The row that the front-end must scroll into view; -1 for none.
  int VisibleRow() const { return visibleRow_; }
  void EnsureVisible(int row) { visibleRow_ = row; }

  const std::vector<Row>& Rows() const { return rows_; }
  int RowCount() const { return static_cast<int>(rows_.size()); }

 private:
  std::vector<Row> rows_;
  int highlightRow_ = -1;
  int visibleRow_ = -1;
  std::string highlightText_;
  int lastDrawnRow_ = -1;
  ParameterListColours colours_;
};

}  // namespace tessara

#endif  // TESSARA_PAGES_PARAMETER_LIST_H_
