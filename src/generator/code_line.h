#ifndef TESSARA_GENERATOR_CODE_LINE_H_
#define TESSARA_GENERATOR_CODE_LINE_H_

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tessara {

// Column where a statement's comment starts behind the tab: statements are padded to
// 40 characters, and a longer one is followed by its comment directly.
inline constexpr std::size_t kCodeColumnWidth = 40;

// Appends "\n\t", the code and ";", padding to the comment column, and the comment.
void AppendCodeLine(std::string_view code, std::string_view comment, std::string& out);

// True when the row's name (the text before its first "=") is one of the first `count`
// non-empty keys, compared without regard to case.
bool IsActiveRow(const std::vector<std::string>& activeKeys, std::string_view row, int count);

// What the generator needs of one panel's rows.
struct PanelRows {
  std::vector<std::string>* rows = nullptr;      // ParameterRows, sorted in place
  std::vector<std::string>* comments = nullptr;  // ParameterComments, parallel
  const std::vector<std::string>* activeKeys = nullptr;  // the filter; null for none
  std::string parameterSort;
  int count = 0;      // N, the panel's parameter slots
  int sortCount = 0;  // the count the sort is given; 0 means N
};

// The clock panels' statement rules: they may change the statement and add a line
// behind it.
using StatementRule = std::function<void(std::string& statement, std::string& out)>;

// The row pipeline: sort by Parameter_Sort, skip empty and filtered rows, turn every
// "," into ";", append one code line per row, and let the rule add to it.
void AppendParameterRows(PanelRows panel, std::string& out, const StatementRule& rule = nullptr);

// The popup's rows: for each of the `rowCount` lists (slot 0 unused), its cells up to
// the first empty one or `count` cells, appended unfiltered and unsorted.
void AppendExtraRows(const std::vector<std::vector<std::string>>& rows,
                     const std::vector<std::vector<std::string>>& comments, int count,
                     std::string& out);

// A one-line "head{body}" function text laid out as head, brace line, indented body
// and closing brace line, behind two line feeds.
void AppendFunction(std::string_view function, std::string& out);

}  // namespace tessara

#endif  // TESSARA_GENERATOR_CODE_LINE_H_
