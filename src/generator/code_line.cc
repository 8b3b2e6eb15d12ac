#include "generator/code_line.h"

#include "core/text.h"

namespace tessara {

void AppendCodeLine(std::string_view code, std::string_view comment, std::string& out) {
  out += "\n\t";
  out += code;
  out += ';';
  if (code.size() < kCodeColumnWidth) out.append(kCodeColumnWidth - code.size(), ' ');
  out += comment;
}

bool IsActiveRow(const std::vector<std::string>& activeKeys, std::string_view row, int count) {
  std::string_view name = row.substr(0, row.find('='));
  for (int i = 0; i < count && static_cast<std::size_t>(i) < activeKeys.size(); ++i) {
    const std::string& key = activeKeys[static_cast<std::size_t>(i)];
    if (!key.empty() && EqualsNoCase(key, name)) return true;
  }
  return false;
}

void AppendParameterRows(PanelRows panel, std::string& out, const StatementRule& rule) {
  std::vector<std::string>& rows = *panel.rows;
  std::vector<std::string>& comments = *panel.comments;
  SortParameterLines(rows, comments, panel.parameterSort,
                     panel.sortCount > 0 ? panel.sortCount : panel.count);
  for (int i = 0; i < panel.count && static_cast<std::size_t>(i) < rows.size(); ++i) {
    const std::string& row = rows[static_cast<std::size_t>(i)];
    if (row.empty()) continue;
    if (panel.activeKeys != nullptr && !IsActiveRow(*panel.activeKeys, row, panel.count)) continue;
    std::string statement = row;
    for (char& c : statement) {
      if (c == ',') c = ';';
    }
    const std::string empty;
    const std::string& comment =
        static_cast<std::size_t>(i) < comments.size() ? comments[static_cast<std::size_t>(i)] : empty;
    std::string following;
    if (rule) rule(statement, following);
    AppendCodeLine(statement, comment, out);
    out += following;
  }
}

void AppendExtraRows(const std::vector<std::vector<std::string>>& rows,
                     const std::vector<std::vector<std::string>>& comments, int count,
                     std::string& out) {
  for (std::size_t k = 1; k < rows.size(); ++k) {
    for (int j = 0; j < count && static_cast<std::size_t>(j) < rows[k].size(); ++j) {
      const std::string& cell = rows[k][static_cast<std::size_t>(j)];
      if (cell.empty()) break;
      const std::string empty;
      const std::string& comment = k < comments.size() && static_cast<std::size_t>(j) < comments[k].size()
                                       ? comments[k][static_cast<std::size_t>(j)]
                                       : empty;
      AppendCodeLine(cell, comment, out);
    }
  }
}

namespace {

// Position of c, or -1; every insertion looks afresh, and a missing brace puts the
// inserted text at the front, which gives a text without braces its odd fixed shape.
int Find(const std::string& text, char c) {
  std::size_t at = text.find(c);
  return at == std::string::npos ? -1 : static_cast<int>(at);
}

void InsertAt(std::string& text, int index, const char* what) {
  text.insert(static_cast<std::size_t>(index < 0 ? 0 : index), what);
}

}  // namespace

void AppendFunction(std::string_view function, std::string& out) {
  std::string text(function);
  InsertAt(text, Find(text, '{'), "\n");
  InsertAt(text, Find(text, '{') + 1, "\n\t");
  InsertAt(text, Find(text, '}'), "\n");
  out += "\n\n";
  out += text;
}

}  // namespace tessara
